#include "qtbrowseritemlist.h"

#include <algorithm>

namespace {

// The room a list starts with; it doubles whenever it is used up.
const int kInitialSlots = 8;

} // namespace

int QtBrowserItemList::size() const
{
    return int(m_vSlots.size()) - gapLength();
}

bool QtBrowserItemList::isEmpty() const
{
    return size() == 0;
}

QtBrowserItem* QtBrowserItemList::at(int row) const
{
    return row < m_iGapStart ? m_vSlots[row] : m_vSlots[row + gapLength()];
}

QtBrowserItem* QtBrowserItemList::first() const
{
    return at(0);
}

QtBrowserItem* QtBrowserItemList::last() const
{
    return at(size() - 1);
}

void QtBrowserItemList::insert(int row, QtBrowserItem* item)
{
    if (gapLength() == 0) {
        // The room is used up: the list grows, with the new room where the insertion goes.
        const int count = size();
        const int grown = std::max(kInitialSlots, 2 * count);
        std::vector<QtBrowserItem*> grownSlots(grown, nullptr);
        std::copy(m_vSlots.begin(), m_vSlots.begin() + row, grownSlots.begin());
        std::copy(m_vSlots.begin() + row, m_vSlots.end(), grownSlots.end() - (count - row));
        m_vSlots.swap(grownSlots);
        m_iGapStart = row;
        m_iGapEnd = grown - (count - row);
    } else {
        moveGap(row);
    }
    m_vSlots[m_iGapStart++] = item;
}

void QtBrowserItemList::removeAt(int row)
{
    // The neighbours of the room, and the end of the list, go without moving anything.
    if (row == m_iGapStart - 1) {
        --m_iGapStart;
    } else if (row == m_iGapStart) {
        ++m_iGapEnd;
    } else if (row == size() - 1) {
        m_vSlots.pop_back();
    } else {
        moveGap(row);
        ++m_iGapEnd;
    }
}

QList<QtBrowserItem*> QtBrowserItemList::toList() const
{
    QList<QtBrowserItem*> list;
    const int count = size();
    list.reserve(count);
    for (int row = 0; row < count; ++row)
        list.append(at(row));
    return list;
}

QList<QtBrowserItem*> QtBrowserItemList::takeAll()
{
    const QList<QtBrowserItem*> list = toList();
    m_vSlots.clear();
    m_iGapStart = 0;
    m_iGapEnd = 0;
    return list;
}

int QtBrowserItemList::gapLength() const
{
    return m_iGapEnd - m_iGapStart;
}

void QtBrowserItemList::moveGap(int row)
{
    if (row < m_iGapStart) {
        // The children from row up to the room move behind it.
        const int moved = m_iGapStart - row;
        std::move_backward(m_vSlots.begin() + row, m_vSlots.begin() + m_iGapStart,
                           m_vSlots.begin() + m_iGapEnd);
        m_iGapStart -= moved;
        m_iGapEnd -= moved;
    } else if (row > m_iGapStart) {
        // The children behind the room, up to row, move before it.
        const int moved = row - m_iGapStart;
        std::move(m_vSlots.begin() + m_iGapEnd, m_vSlots.begin() + m_iGapEnd + moved,
                  m_vSlots.begin() + m_iGapStart);
        m_iGapStart += moved;
        m_iGapEnd += moved;
    }
}
