#ifndef QTABSTRACTEDITORFACTORY_H
#define QTABSTRACTEDITORFACTORY_H

#include "qtabstracteditorfactorybase.h"
#include "qtproperty.h"

#include <QSet>

/// An editor factory for the properties of managers of type @p PropertyManager.
template<class PropertyManager>
class QtAbstractEditorFactory : public QtAbstractEditorFactoryBase
{
public:
    /// Creates a factory without managers.
    explicit QtAbstractEditorFactory(QObject* parent)
        : QtAbstractEditorFactoryBase(parent)
    { }

    /// Creates an editor for @p property if one of this factory's managers owns it.
    QWidget* createEditor(QtProperty* property, QWidget* parent) override
    {
        PropertyManager* manager = propertyManager(property);
        return manager ? createEditor(manager, property, parent) : nullptr;
    }

    /// Lets the factory edit the properties of @p manager; adding it twice changes nothing.
    void addPropertyManager(PropertyManager* manager)
    {
        if (!manager || m_hManagers.contains(manager))
            return;
        m_hManagers.insert(manager);
        connectPropertyManager(manager);
        connect(manager, &QObject::destroyed, this, &QtAbstractEditorFactory::managerDestroyed);
    }

    /// Stops editing the properties of @p manager.
    void removePropertyManager(PropertyManager* manager)
    {
        if (!m_hManagers.contains(manager))
            return;
        disconnect(manager, &QObject::destroyed, this, &QtAbstractEditorFactory::managerDestroyed);
        disconnectPropertyManager(manager);
        m_hManagers.remove(manager);
    }

    /// The managers the factory edits for.
    QSet<PropertyManager*> propertyManagers() const { return m_hManagers; }

    /// The manager of @p property if the factory edits for it, else null.
    PropertyManager* propertyManager(QtProperty* property) const
    {
        if (!property)
            return nullptr;
        // Compared as base pointers: the property's manager need not be a PropertyManager.
        const QtAbstractPropertyManager* owner = property->propertyManager();
        for (PropertyManager* manager : m_hManagers) {
            if (manager == owner)
                return manager;
        }
        return nullptr;
    }

protected:
    /// Connects to the value signals of @p manager, to keep open editors up to date.
    virtual void connectPropertyManager(PropertyManager* manager) = 0;
    /// Creates the editor of @p property of @p manager as a child of @p parent.
    virtual QWidget* createEditor(PropertyManager* manager, QtProperty* property, QWidget* parent)
        = 0;
    /// Undoes connectPropertyManager().
    virtual void disconnectPropertyManager(PropertyManager* manager) = 0;

    /// Forgets a manager that is being destroyed; its signals are gone already.
    void managerDestroyed(QObject* manager) override
    {
        for (PropertyManager* candidate : m_hManagers) {
            if (static_cast<QObject*>(candidate) == manager) {
                m_hManagers.remove(candidate);
                return;
            }
        }
    }

private:
    /// Removes @p manager when a browser lets go of the last pairing.
    void breakConnection(QtAbstractPropertyManager* manager) override
    {
        for (PropertyManager* candidate : m_hManagers) {
            if (candidate == manager) {
                removePropertyManager(candidate);
                return;
            }
        }
    }

    QSet<PropertyManager*> m_hManagers;
};

#endif
