#include "qtgrouppropertymanager.h"

QtGroupPropertyManager::QtGroupPropertyManager(QObject* parent)
    : QtAbstractPropertyManager(parent)
{ }

bool QtGroupPropertyManager::hasValue(const QtProperty* property) const
{
    Q_UNUSED(property)
    return false;
}

void QtGroupPropertyManager::initializeProperty(QtProperty* property)
{
    // The base class requires this; a group has nothing to set up.
    Q_UNUSED(property)
}
