#include "property_model/intpropertymanager.h"

#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

namespace PropertyBrowser {
namespace Managers {

IntPropertyManager::IntPropertyManager(QObject* parent)
    : QtIntPropertyManager(parent)
{ }

IntPropertyManager::~IntPropertyManager() = default;

QtProperty* IntPropertyManager::createProperty()
{
    return new WidgetProperty(this);
}

QString IntPropertyManager::toolTipText(QtProperty const* property) const
{
    return stateToolTipText(property, value(property), minimum(property) == maximum(property));
}

int IntPropertyManager::value(QtProperty const* property) const
{
    return nodeNumber<int>(property, "IDataNumeric.DynamicValue");
}

int IntPropertyManager::minimum(QtProperty const* property) const
{
    return nodeNumber<int>(property, "IDataNumeric.LocalMin");
}

int IntPropertyManager::maximum(QtProperty const* property) const
{
    return nodeNumber<int>(property, "IDataNumeric.LocalMax");
}

int IntPropertyManager::singleStep(QtProperty const* property) const
{
    return nodeNumber<int>(property, "IDataNumeric.LocalStep");
}

QString IntPropertyManager::valueText(QtProperty const* property) const
{
    if (const std::optional<QString> text = nodeValueText(property, LinkedText::Value))
        return *text;
    return QVariant(value(property)).toString();
}

QIcon IntPropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

QIcon IntPropertyManager::propertyIcon(QtProperty const* property) const
{
    return BasePropertyManager::propertyIcon(property);
}

bool IntPropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    return sendLink(this, nodePath, linkPath);
}

void IntPropertyManager::setLimits(QtProperty* property, int minimum, int maximum)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    QMap<QString, QVariant> limits;
    limits.insert(QStringLiteral("Min"), minimum);
    limits.insert(QStringLiteral("Max"), maximum);
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetLimits, limits, false);
}

void IntPropertyManager::setValue(QtProperty* property, int value)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetValue, value, false);
}

} // namespace Managers
} // namespace PropertyBrowser
