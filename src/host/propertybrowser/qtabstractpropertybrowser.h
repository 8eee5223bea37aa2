#ifndef QTABSTRACTPROPERTYBROWSER_H
#define QTABSTRACTPROPERTYBROWSER_H

#include "qtabstracteditorfactory.h"

#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QPointer>
#include <QWidget>

class QtAbstractPropertyManager;
class QtBrowserItem;
class QtBrowserItemModel;
class QtProperty;

/// The base of every property browser: keeps the items that show properties, follows the
/// managers' changes and pairs managers with editor factories. All of its state belongs to
/// the browser object; nothing is shared between browsers.
class QtAbstractPropertyBrowser : public QWidget
{
    Q_OBJECT
public:
    /// Creates an empty browser.
    explicit QtAbstractPropertyBrowser(QWidget* parent = nullptr);
    /// Destroys the items and lets go of the factories; properties and managers stay.
    ~QtAbstractPropertyBrowser() override;

    /// The top-level properties, in their order.
    QList<QtProperty*> properties() const;
    /// Every item that shows @p property, at any level, in the order they were made.
    QList<QtBrowserItem*> items(QtProperty* property) const;
    /// The top-level item of @p property, or null if it is not at the top level.
    QtBrowserItem* topLevelItem(QtProperty* property) const;
    /// The top-level items, in their order.
    QList<QtBrowserItem*> topLevelItems() const;
    /// Removes every top-level property; virtual so that a browser can drop its own state too.
    virtual void clear();

    /// Makes @p factory create the editors of the properties of @p manager in this browser,
    /// replacing the factory paired with it before.
    template<class PropertyManager>
    void setFactoryForManager(PropertyManager* manager,
                              QtAbstractEditorFactory<PropertyManager>* factory)
    {
        if (addFactory(manager, factory))
            factory->addPropertyManager(manager);
    }
    /// Ends the pairing of @p manager with its factory in this browser.
    void unsetFactoryForManager(QtAbstractPropertyManager* manager);

    /// The current item, or null.
    QtBrowserItem* currentItem() const;
    /// Makes @p item current; emits currentItemChanged() if that changes it.
    void setCurrentItem(QtBrowserItem* item);

signals:
    /// The current item became @p item (may be null).
    void currentItemChanged(QtBrowserItem* item);

public slots:
    /// Appends @p property and its sub-properties at the top level; returns its item, or null
    /// if it already is at the top level.
    QtBrowserItem* addProperty(QtProperty* property);
    /// Inserts @p property after the top-level @p afterProperty (first if that is null or not at
    /// the top level); returns its item, or null if it already is at the top level.
    QtBrowserItem* insertProperty(QtProperty* property, QtProperty* afterProperty);
    /// Removes the top-level @p property and all items below it; the property stays.
    void removeProperty(QtProperty* property);

protected:
    /// @p item was inserted after its sibling @p afterItem (null: first).
    virtual void itemInserted(QtBrowserItem* item, QtBrowserItem* afterItem) = 0;
    /// @p item is about to be removed; its children were announced before it.
    virtual void itemRemoved(QtBrowserItem* item) = 0;
    /// Something shown of @p item's property changed.
    virtual void itemChanged(QtBrowserItem* item) = 0;

    /// Creates the editor of @p property with the factory paired with its manager; null if
    /// there is none or it declines.
    virtual QWidget* createEditor(QtProperty* property, QWidget* parent);

    /// The item tree as a two-column model (name, value) for browsers built on a view.
    QtBrowserItemModel* itemModel() const;

private:
    /// Records the pairing; true if the factory must be given the manager.
    bool addFactory(QtAbstractPropertyManager* manager, QtAbstractEditorFactoryBase* factory);
    /// Lowers the factory's count of pairings with @p manager, breaking it at zero if asked.
    static void releaseFactory(QtAbstractEditorFactoryBase* factory,
                               QtAbstractPropertyManager* manager, bool breakAtZero);

    /// Creates the item of @p property below @p parent after @p afterItem, and those below it.
    QtBrowserItem* createItem(QtProperty* property, QtBrowserItem* parent,
                              QtBrowserItem* afterItem);
    /// Announces, detaches and deletes @p item and everything below it.
    void removeItem(QtBrowserItem* item);
    /// Announces @p item and its descendants to subclasses, children first.
    void announceRemoval(QtBrowserItem* item);
    /// Forgets @p item and its descendants and deletes them, without announcing.
    void destroyItem(QtBrowserItem* item);
    /// The child of @p parent that shows @p property, or null.
    QtBrowserItem* childItem(QtBrowserItem* parent, QtProperty* property) const;

    void onPropertyInserted(QtProperty* property, QtProperty* parent, QtProperty* after);
    void onPropertyChanged(QtProperty* property);
    void onPropertyRemoved(QtProperty* property, QtProperty* parent);
    void onPropertyDestroyed(QtProperty* property);
    void onManagerDestroyed(QObject* manager);

    QtBrowserItemModel* m_poModel;
    QtBrowserItem* m_poRoot;
    QtBrowserItem* m_poCurrentItem = nullptr;
    QMultiHash<QtProperty*, QtBrowserItem*> m_hItems;
    // How many items show properties of a manager: its signals are followed while non-zero.
    QHash<QtAbstractPropertyManager*, int> m_hManagerItemCounts;
    QHash<QtAbstractPropertyManager*, QPointer<QtAbstractEditorFactoryBase>> m_hFactories;
};

#endif
