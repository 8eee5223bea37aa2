#include "property_model/stringpropertymanager.h"

#include "dialogs/customcharactermap.h"
#include "property_model/widgetproperty.h"
#include "sdk/apptranslation.h"
#include "sdk/ditem.h"

namespace PropertyBrowser {
namespace Managers {

StringPropertyManager::StringPropertyManager(QObject* parent)
    : QtStringPropertyManager(parent)
{ }

StringPropertyManager::~StringPropertyManager() = default;

QtProperty* StringPropertyManager::createProperty()
{
    return new WidgetProperty(this);
}

QString StringPropertyManager::value(QtProperty const* property) const
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    return node ? node->property("IDataBasicString.DynamicValue").toString() : QString();
}

QString StringPropertyManager::valueText(QtProperty const* property) const
{
    if (const std::optional<QString> text = nodeValueText(property, LinkedText::Empty))
        return *text;
    const QString shown = CustomCharacterMap::toDisplayString(value(property));
    // The host hands the name on as a C string, which ends at the first NUL.
    return App::getTranslatedName(shown.left(shown.indexOf(QChar(0))));
}

QIcon StringPropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

QIcon StringPropertyManager::propertyIcon(QtProperty const* property) const
{
    return BasePropertyManager::propertyIcon(property);
}

bool StringPropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    return sendLink(this, nodePath, linkPath);
}

void StringPropertyManager::setValue(QtProperty* property, QString const& text)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetValue,
                         CustomCharacterMap::fromDisplayString(text), false);
}

} // namespace Managers
} // namespace PropertyBrowser
