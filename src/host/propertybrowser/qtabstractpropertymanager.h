#ifndef QTABSTRACTPROPERTYMANAGER_H
#define QTABSTRACTPROPERTYMANAGER_H

#include <QIcon>
#include <QObject>
#include <QSet>
#include <QString>

class QtProperty;

/// Creates properties, owns them and holds their values; the base of every typed manager.
class QtAbstractPropertyManager : public QObject
{
    Q_OBJECT
public:
    /// Creates a manager without properties.
    explicit QtAbstractPropertyManager(QObject* parent = nullptr);
    /// Destroys the manager and every property it created.
    ~QtAbstractPropertyManager() override;

    /// The properties the manager created and that still exist.
    QSet<QtProperty*> properties() const;
    /// Destroys every property the manager created.
    void clear() const;

    /// Creates a property named @p name through createProperty() and initialises it.
    QtProperty* addProperty(const QString& name = QString());

signals:
    /// @p property became a sub-property of @p parent, after @p after (null: first).
    void propertyInserted(QtProperty* property, QtProperty* parent, QtProperty* after);
    /// Something shown of @p property changed.
    void propertyChanged(QtProperty* property);
    /// @p property stopped being a sub-property of @p parent.
    void propertyRemoved(QtProperty* property, QtProperty* parent);
    /// @p property is being destroyed; it has no parents left in any browser's eyes.
    void propertyDestroyed(QtProperty* property);

protected:
    /// Whether @p property has a value; true unless a manager says otherwise.
    virtual bool hasValue(const QtProperty* property) const;
    /// The icon of the value of @p property; none by default.
    virtual QIcon valueIcon(const QtProperty* property) const;
    /// The icon that goes before the name of @p property; none by default. Not in the
    /// published API: a manager shows here what belongs to the row rather than to its value,
    /// such as whether the value is linked.
    virtual QIcon propertyIcon(const QtProperty* property) const;
    /// The value of @p property as text; empty by default.
    virtual QString valueText(const QtProperty* property) const;
    /// Sets up the value of a property that addProperty() just created.
    virtual void initializeProperty(QtProperty* property) = 0;
    /// Drops the value of a property that is being destroyed.
    virtual void uninitializeProperty(QtProperty* property);
    /// Creates the property object; a manager overrides it to create its own subclass.
    virtual QtProperty* createProperty();

private:
    friend class QtProperty;

    /// Called from the property's destructor: announces it and forgets it.
    void propertyGone(QtProperty* property);

    QSet<QtProperty*> m_hProperties;
    // Creation order as an intrusive list: clear() then deletes from the front in O(1) each,
    // where walking a shrinking hash would rescan its emptied buckets every time.
    QtProperty* m_poFirst = nullptr;
    QtProperty* m_poLast = nullptr;
};

#endif
