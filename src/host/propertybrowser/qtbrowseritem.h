#ifndef QTBROWSERITEM_H
#define QTBROWSERITEM_H

#include "qtbrowseritemlist.h"

#include <QList>
#include <QVector>

class QtAbstractPropertyBrowser;
class QtProperty;

/// One place where a browser shows a property: the same property shown twice has two items.
class QtBrowserItem
{
public:
    /// The property shown here.
    QtProperty* property() const;
    /// The item this one is a child of; null for a top-level item.
    QtBrowserItem* parent() const;
    /// The child items, in their order. A new list at every call: ask childCount() for the count.
    QList<QtBrowserItem*> children() const;
    /// The number of child items.
    int childCount() const;
    /// The browser that owns the item.
    QtAbstractPropertyBrowser* browser() const;

private:
    friend class QtAbstractPropertyBrowser;
    friend class QtBrowserItemModel;

    QtBrowserItem(QtAbstractPropertyBrowser* browser, QtProperty* property, QtBrowserItem* parent);
    ~QtBrowserItem();

    /// The row of @p child among the children; O(1) after changes at either end, at most
    /// O(sqrt(n)) amortised after changes in the middle.
    int rowOf(const QtBrowserItem* child);
    /// Inserts @p child at @p row.
    void insertChild(int row, QtBrowserItem* child);
    /// Removes the child at @p row.
    void removeChild(int row);
    /// Removes every child at once and returns them, in their order.
    QList<QtBrowserItem*> takeChildren();
    /// Gives every child its row as key and forgets the logged shifts.
    void renumberChildren();

    // A change in the middle shifts the keys from @p fromKey on by @p delta.
    struct KeyShift
    {
        int fromKey;
        int delta;
    };

    QtAbstractPropertyBrowser* m_poBrowser;
    QtProperty* m_poProperty;
    // The browser's hidden root for top-level items, so that they need no special case.
    QtBrowserItem* m_poParent;
    QtBrowserItemList m_lChildren;
    // Row numbers are cached as keys: a child's row is its key minus the parent's offset.
    // Adding or removing at either end only moves the offset, or touches no other key. A change
    // in the middle would move every key behind it; instead it is logged, and a lookup replays
    // on the child's key the shifts logged since the key was set, then stores the result.
    // Moving many rows one by one, as reordering does, so costs no renumbering of the rest.
    // The log is bounded by a few times the square root of the number of children: past that,
    // all keys are renumbered at once, which keeps both a lookup and the renumbering, spread
    // over the changes, at O(sqrt(n)).
    int m_iRowKey = 0;
    // The length of the parent's log when m_iRowKey was set: older shifts are in the key.
    int m_iRowKeyAge = 0;
    int m_iRowKeyOffset = 0;
    QVector<KeyShift> m_vKeyShifts;
};

#endif
