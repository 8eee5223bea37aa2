#ifndef QTBROWSERITEM_H
#define QTBROWSERITEM_H

#include <QList>

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
    /// The child items, in their order.
    QList<QtBrowserItem*> children() const;
    /// The browser that owns the item.
    QtAbstractPropertyBrowser* browser() const;

private:
    friend class QtAbstractPropertyBrowser;
    friend class QtBrowserItemModel;

    QtBrowserItem(QtAbstractPropertyBrowser* browser, QtProperty* property, QtBrowserItem* parent);
    ~QtBrowserItem();

    /// The row of @p child among the children; amortised O(1).
    int rowOf(const QtBrowserItem* child);
    /// Inserts @p child at @p row.
    void insertChild(int row, QtBrowserItem* child);
    /// Removes the child at @p row.
    void removeChild(int row);

    QtAbstractPropertyBrowser* m_poBrowser;
    QtProperty* m_poProperty;
    // The browser's hidden root for top-level items, so that they need no special case.
    QtBrowserItem* m_poParent;
    QList<QtBrowserItem*> m_lChildren;
    // Row numbers are cached as keys: a child's row is its key minus the parent's offset.
    // Adding or removing at either end only moves the offset; a change in the middle marks
    // the rows from there on stale until the next lookup renumbers them once.
    int m_iRowKey = 0;
    int m_iRowKeyOffset = 0;
    int m_iFirstStaleRow = 0;
};

#endif
