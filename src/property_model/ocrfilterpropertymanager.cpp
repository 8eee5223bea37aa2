#include "property_model/ocrfilterpropertymanager.h"

#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

#include <QStringList>

namespace PropertyBrowser {
namespace Managers {

OcrFilterPropertyManager::OcrFilterPropertyManager(QObject* parent)
    : QtStringPropertyManager(parent)
{ }

OcrFilterPropertyManager::~OcrFilterPropertyManager() = default;

QtProperty* OcrFilterPropertyManager::createProperty()
{
    return new WidgetProperty(this);
}

QString OcrFilterPropertyManager::value(QtProperty const* property) const
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    return node ? node->property("IDataBasicString.DynamicValue").toString() : QString();
}

QString OcrFilterPropertyManager::valueText(QtProperty const* property) const
{
    if (const std::optional<QString> text = nodeValueText(property, LinkedText::Value))
        return *text;
    return value(property);
}

QIcon OcrFilterPropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

QIcon OcrFilterPropertyManager::propertyIcon(QtProperty const* property) const
{
    return BasePropertyManager::propertyIcon(property);
}

bool OcrFilterPropertyManager::setLink(QString const&, QString const&)
{
    return false;
}

void OcrFilterPropertyManager::setValue(QtProperty*, QString&) { }

void OcrFilterPropertyManager::setValue(QtProperty* property, QString const& filterName,
                                        QString const& filterValue)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetValue,
                         QStringList({filterName, filterValue}), false);
}

} // namespace Managers
} // namespace PropertyBrowser
