#ifndef QTGROUPPROPERTYMANAGER_H
#define QTGROUPPROPERTYMANAGER_H

#include "qtabstractpropertymanager.h"

/// Manages properties that have no value of their own and only gather sub-properties.
class QtGroupPropertyManager : public QtAbstractPropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without properties.
    explicit QtGroupPropertyManager(QObject* parent = nullptr);

protected:
    /// Always false: a group shows no value.
    bool hasValue(const QtProperty* property) const override;
    /// Nothing to prepare: a group keeps no data.
    void initializeProperty(QtProperty* property) override;
};

#endif
