#include "property_model/binarypropertymanager.h"

#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

namespace PropertyBrowser {
namespace Managers {

BinaryPropertyManager::BinaryPropertyManager(QObject* parent)
    : QtStringPropertyManager(parent)
{ }

BinaryPropertyManager::~BinaryPropertyManager() = default;

QtProperty* BinaryPropertyManager::createProperty()
{
    return new WidgetProperty(this);
}

QString BinaryPropertyManager::valueText(QtProperty const* property) const
{
    if (const std::optional<QString> text = nodeValueText(property, LinkedText::Value))
        return *text;
    if (WidgetProperty::poNode(property)->ioType() == Script::DItem::IoInput)
        return tr("Not Linked");
    return QString();
}

QIcon BinaryPropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

QIcon BinaryPropertyManager::propertyIcon(QtProperty const* property) const
{
    return BasePropertyManager::propertyIcon(property);
}

bool BinaryPropertyManager::setLink(QString nodePath, QString linkPath)
{
    return sendLink(this, nodePath, linkPath);
}

void BinaryPropertyManager::setValue(QtProperty* property, QByteArray const& data)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetValue, data, false);
}

} // namespace Managers
} // namespace PropertyBrowser
