#include "property_model/idatapropertymanager.h"

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
    return nodeValueText(property, LinkedText::Value).value_or(QString());
}

QIcon IDataPropertyManager::valueIcon(QtProperty const* property) const
{
    return BasePropertyManager::valueIcon(property);
}

QIcon IDataPropertyManager::propertyIcon(QtProperty const* property) const
{
    return BasePropertyManager::propertyIcon(property);
}

bool IDataPropertyManager::setLink(QString const& nodePath, QString const& linkPath)
{
    return sendLink(this, nodePath, linkPath);
}

void IDataPropertyManager::setValue(QtProperty*, QString&) { }

} // namespace Managers
} // namespace PropertyBrowser
