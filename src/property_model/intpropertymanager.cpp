#include "property_model/intpropertymanager.h"

#include "navigator/ditemnavpainter.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

namespace PropertyBrowser {
namespace Managers {

namespace {

// A row whose node is gone or not yet bound reads as 0, like a node without the key.
int nodeValue(QtProperty const* property, const char* key)
{
    const WidgetProperty* row = dynamic_cast<WidgetProperty const*>(property);
    return row && row->node ? row->variantToVal<int>(row->node->property(key)) : 0;
}

} // namespace

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
    return nodeValue(property, "IDataNumeric.DynamicValue");
}

int IntPropertyManager::minimum(QtProperty const* property) const
{
    return nodeValue(property, "IDataNumeric.LocalMin");
}

int IntPropertyManager::maximum(QtProperty const* property) const
{
    return nodeValue(property, "IDataNumeric.LocalMax");
}

int IntPropertyManager::singleStep(QtProperty const* property) const
{
    return nodeValue(property, "IDataNumeric.LocalStep");
}

QString IntPropertyManager::valueText(QtProperty const* property) const
{
    const Script::DItem* node = poNode(property);
    if (!node)
        return QString();
    const QSharedPointer<QString> text = DItemNavPainter(*node).getValueText();
    if (text)
        return *text;
    return QVariant(value(property)).toString();
}

QIcon IntPropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

bool IntPropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    emit vPropertyEdited(nodePath, VardeenDefs::PropertyEditor::SetLink, linkPath, false);
    return true;
}

void IntPropertyManager::setLimits(QtProperty* property, int minimum, int maximum)
{
    const Script::DItem* node = poNode(property);
    if (!node)
        return;
    QMap<QString, QVariant> limits;
    limits.insert(QStringLiteral("Min"), minimum);
    limits.insert(QStringLiteral("Max"), maximum);
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetLimits, limits, false);
}

void IntPropertyManager::setValue(QtProperty* property, int value)
{
    const Script::DItem* node = poNode(property);
    if (!node)
        return;
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetValue, value, false);
}

} // namespace Managers
} // namespace PropertyBrowser
