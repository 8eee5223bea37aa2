#include "property_model/idatapropertymanager.h"

#include "navigator/ditemnavpainter.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

namespace PropertyBrowser {
namespace Managers {

IDataPropertyManager::IDataPropertyManager(QObject* parent)
    : QtStringPropertyManager(parent)
{ }

IDataPropertyManager::~IDataPropertyManager() = default;

QtProperty* IDataPropertyManager::createProperty()
{
    return new WidgetProperty(this);
}

QString IDataPropertyManager::value(QtProperty const*) const
{
    return QString();
}

QString IDataPropertyManager::valueText(QtProperty const* property) const
{
    const Script::DItem* node = poNode(property);
    if (!node)
        return QString();
    const QSharedPointer<QString> text = DItemNavPainter(*node).getValueText();
    return text ? *text : QString();
}

QIcon IDataPropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

bool IDataPropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    emit vPropertyEdited(nodePath, VardeenDefs::PropertyEditor::SetLink, linkPath, false);
    return true;
}

void IDataPropertyManager::setValue(QtProperty*, QString&) { }

} // namespace Managers
} // namespace PropertyBrowser
