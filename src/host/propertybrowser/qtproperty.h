#ifndef QTPROPERTY_H
#define QTPROPERTY_H

#include <QIcon>
#include <QList>
#include <QString>

class QtAbstractPropertyManager;

/// One property: a name, tips, flags and sub-properties; the value lives in its manager.
/// A property may be the sub-property of several parents, and any browser may show it.
class QtProperty
{
public:
    /// Detaches the property from its parents and sub-properties and tells the manager.
    virtual ~QtProperty();

    /// The sub-properties, in their order.
    QList<QtProperty*> subProperties() const;

    /// The manager that created the property and holds its value.
    QtAbstractPropertyManager* propertyManager() const;

    /// The tool tip shown on the name.
    QString toolTip() const;
    /// The status tip shown on the name.
    QString statusTip() const;
    /// The "What's this" text of the name.
    QString whatsThis() const;
    /// The name shown in the first column.
    QString propertyName() const;
    /// Whether the property can be edited; browsers also disable its sub-properties.
    bool isEnabled() const;
    /// Whether the property is marked as modified; the tree shows its name in bold.
    bool isModified() const;

    /// Whether the property has a value at all (a group has none); asks the manager.
    bool hasValue() const;
    /// The icon of the value; asks the manager.
    QIcon valueIcon() const;
    /// The icon before the name; asks the manager. Not in the published API.
    QIcon propertyIcon() const;
    /// The value as text; asks the manager.
    QString valueText() const;

    /// Sets the tool tip.
    void setToolTip(const QString& text);
    /// Sets the status tip.
    void setStatusTip(const QString& text);
    /// Sets the "What's this" text.
    void setWhatsThis(const QString& text);
    /// Sets the name.
    void setPropertyName(const QString& text);
    /// Enables or disables the property.
    void setEnabled(bool enable);
    /// Marks the property as modified or not.
    void setModified(bool modified);

    /// Appends @p property to the sub-properties.
    void addSubProperty(QtProperty* property);
    /// Inserts @p property after @p afterProperty, or first if that is null or no sub-property.
    /// Does nothing if @p property already is a sub-property or would become its own ancestor.
    void insertSubProperty(QtProperty* property, QtProperty* afterProperty);
    /// Removes @p property from the sub-properties; the property itself stays.
    void removeSubProperty(QtProperty* property);

protected:
    /// Creates a property of @p manager; only managers create properties.
    explicit QtProperty(QtAbstractPropertyManager* manager);

    /// Tells the manager, and so every browser, that something shown of the property changed.
    void propertyChanged();

private:
    friend class QtAbstractPropertyManager;

    /// Whether @p property is this property or one of its ancestors.
    bool isSelfOrAncestor(const QtProperty* property) const;

    QtAbstractPropertyManager* m_poManager;
    QList<QtProperty*> m_lSubProperties;
    // A property rarely has more than one parent, so a list is smaller and faster than a set.
    QList<QtProperty*> m_lParents;
    QString m_sName;
    QString m_sToolTip;
    QString m_sStatusTip;
    QString m_sWhatsThis;
    // The manager's creation-ordered list, so that a teardown visits each property once.
    QtProperty* m_poPreviousInManager = nullptr;
    QtProperty* m_poNextInManager = nullptr;
    bool m_bEnabled = true;
    bool m_bModified = false;
};

#endif
