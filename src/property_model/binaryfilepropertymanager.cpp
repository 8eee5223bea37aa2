#include "property_model/binaryfilepropertymanager.h"

#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

#include <QMap>

namespace PropertyBrowser {
namespace Managers {

BinaryFilePropertyManager::BinaryFilePropertyManager(QObject* parent)
    : QtStringPropertyManager(parent)
{ }

BinaryFilePropertyManager::~BinaryFilePropertyManager() = default;

QtProperty* BinaryFilePropertyManager::createProperty()
{
    return new WidgetProperty(this);
}

QString BinaryFilePropertyManager::valueText(QtProperty const* property) const
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return QString();
    const QVariant fileName = node->property("FileName");
    return fileName.isNull() ? tr("Not Loaded") : fileName.toString();
}

QIcon BinaryFilePropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

QIcon BinaryFilePropertyManager::propertyIcon(QtProperty const* property) const
{
    return BasePropertyManager::propertyIcon(property);
}

bool BinaryFilePropertyManager::setLink(QString nodePath, QString linkPath)
{
    return sendLink(this, nodePath, linkPath);
}

void BinaryFilePropertyManager::setValue(QtProperty* property, QByteArray const& binaries,
                                         QString const& fileName, QString const& extension,
                                         QString const& description)
{
    const Script::DItem* node = WidgetProperty::poNode(property);
    if (!node)
        return;
    QMap<QString, QVariant> file;
    file.insert(QStringLiteral("BinaryData"), binaries);
    file.insert(QStringLiteral("FileName"), fileName);
    file.insert(QStringLiteral("Extension"), extension);
    file.insert(QStringLiteral("Description"), description);
    emit vPropertyEdited(node->iDataPath(), VardeenDefs::PropertyEditor::SetValue, file, false);
}

} // namespace Managers
} // namespace PropertyBrowser
