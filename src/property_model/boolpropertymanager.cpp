#include "property_model/boolpropertymanager.h"

#include "property_model/widgetproperty.h"
#include "sdk/apptranslation.h"
#include "sdk/ditem.h"

namespace PropertyBrowser {
namespace Managers {

BoolPropertyManager::BoolPropertyManager(QObject* parent)
    : QtBoolPropertyManager(parent)
{ }

BoolPropertyManager::~BoolPropertyManager() = default;

QtProperty* BoolPropertyManager::createProperty()
{
    return new WidgetProperty(this);
}

bool BoolPropertyManager::value(QtProperty const* property) const
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    return node && node->property("IDataBasicBool.DynamicValue").toBool();
}

QString BoolPropertyManager::valueText(QtProperty const* property) const
{
    if (const std::optional<QString> text = nodeValueText(property, LinkedText::Empty))
        return *text;
    return App::getTranslatedName(
        WidgetProperty::poNode(property)->property("IDataBasicBool.ActionReply").toString());
}

QIcon BoolPropertyManager::valueIcon(QtProperty const* property) const
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return emptyIcon;
    // An output without a value to show and a linked node show no stale check mark.
    if (node->ioType() == Script::DItem::IoOutput
        && (node->hasErrorState() || node->isInitialized()))
        return emptyIcon;
    if (node->isLinked())
        return emptyIcon;
    return value(property) ? checkBoxChecked : checkBoxUnhecked;
}

QIcon BoolPropertyManager::propertyIcon(QtProperty const* property) const
{
    return BasePropertyManager::propertyIcon(property);
}

bool BoolPropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    return sendLink(this, nodePath, linkPath);
}

void BoolPropertyManager::setValue(QtProperty* property, bool value)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetValue, value, false);
}

} // namespace Managers
} // namespace PropertyBrowser
