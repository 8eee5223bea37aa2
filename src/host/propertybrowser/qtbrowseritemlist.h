#ifndef QTBROWSERITEMLIST_H
#define QTBROWSERITEMLIST_H

#include <QList>

#include <vector>

class QtBrowserItem;

/// The children of a browser item, in their order. A gap buffer: the free room sits where the
/// last change was made, so changes one after another at the same place, as reordering makes
/// them, cost no move of the other children; only moving the room elsewhere costs the distance.
class QtBrowserItemList
{
public:
    /// The number of children.
    int size() const;
    /// Whether there are no children.
    bool isEmpty() const;
    /// The child at @p row.
    QtBrowserItem* at(int row) const;
    /// The first child; the list must not be empty.
    QtBrowserItem* first() const;
    /// The last child; the list must not be empty.
    QtBrowserItem* last() const;
    /// Inserts @p item at @p row, 0 to size().
    void insert(int row, QtBrowserItem* item);
    /// Removes the child at @p row.
    void removeAt(int row);
    /// The children as a list, in their order.
    QList<QtBrowserItem*> toList() const;
    /// Removes all children and returns them, in their order.
    QList<QtBrowserItem*> takeAll();

private:
    int gapLength() const;
    /// Moves the free room so that it starts at @p row.
    void moveGap(int row);

    std::vector<QtBrowserItem*> m_vSlots;
    int m_iGapStart = 0;
    int m_iGapEnd = 0;
};

#endif
