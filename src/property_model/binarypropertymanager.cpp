#include "property_model/binarypropertymanager.h"

#include "navigator/ditemnavpainter.h"
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
    const Script::DItem* node = poNode(property);
    if (!node)
        return QString();
    const QSharedPointer<QString> text = DItemNavPainter(*node).getValueText();
    if (text)
        return *text;
    if (node->ioType() == Script::DItem::IoInput)
        return tr("Not Linked");
    return QString();
}

QIcon BinaryPropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

bool BinaryPropertyManager::setLink(QString nodePath, QString linkPath)
{
    emit vPropertyEdited(nodePath, VardeenDefs::PropertyEditor::SetLink, linkPath, false);
    return true;
}

void BinaryPropertyManager::setValue(QtProperty* property, QByteArray const& data)
{
    const Script::DItem* node = poNode(property);
    if (!node)
        return;
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetValue, data, false);
}

} // namespace Managers
} // namespace PropertyBrowser
