#include "property_model/int64propertymanager.h"

#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

namespace PropertyBrowser {
namespace Managers {

Int64PropertyManager::Int64PropertyManager(QObject* parent)
    : QtAbstractPropertyManager(parent)
{ }

Int64PropertyManager::~Int64PropertyManager() = default;

QtProperty* Int64PropertyManager::createProperty()
{
    return new WidgetProperty(this);
}

QString Int64PropertyManager::toolTipText(QtProperty const* property) const
{
    // State numbers are small; the host's description takes an int.
    return stateToolTipText(property, static_cast<int>(value(property)),
                            minimum(property) == maximum(property));
}

long long Int64PropertyManager::value(QtProperty const* property) const
{
    return nodeNumber<long>(property, "IDataNumeric.DynamicValue");
}

long long Int64PropertyManager::minimum(QtProperty const* property) const
{
    return nodeNumber<long>(property, "IDataNumeric.LocalMin");
}

long long Int64PropertyManager::maximum(QtProperty const* property) const
{
    return nodeNumber<long>(property, "IDataNumeric.LocalMax");
}

long long Int64PropertyManager::singleStep(QtProperty const* property) const
{
    return nodeNumber<long>(property, "IDataNumeric.LocalStep");
}

QString Int64PropertyManager::valueText(QtProperty const* property) const
{
    if (const std::optional<QString> text = nodeValueText(property, LinkedText::Value))
        return *text;
    return QVariant(value(property)).toString();
}

void Int64PropertyManager::initializeProperty(QtProperty*) { }

QIcon Int64PropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

QIcon Int64PropertyManager::propertyIcon(QtProperty const* property) const
{
    return BasePropertyManager::propertyIcon(property);
}

bool Int64PropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    return sendLink(this, nodePath, linkPath);
}

void Int64PropertyManager::setLimits(QtProperty* property, long long minimum, long long maximum)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    QMap<QString, QVariant> limits;
    limits.insert(QStringLiteral("Min"), QVariant::fromValue(minimum));
    limits.insert(QStringLiteral("Max"), QVariant::fromValue(maximum));
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetLimits, limits, false);
}

void Int64PropertyManager::setValue(QtProperty* property, long long value)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetValue,
                         QVariant::fromValue(value), false);
}

} // namespace Managers
} // namespace PropertyBrowser
