#include "qtbrowseritem.h"

#include <cmath>

QtBrowserItem::QtBrowserItem(QtAbstractPropertyBrowser* browser, QtProperty* property,
                             QtBrowserItem* parent)
    : m_poBrowser(browser)
    , m_poProperty(property)
    , m_poParent(parent)
{ }

QtBrowserItem::~QtBrowserItem() = default;

QtProperty* QtBrowserItem::property() const
{
    return m_poProperty;
}

QtBrowserItem* QtBrowserItem::parent() const
{
    // The hidden root is the only item without a property.
    return m_poParent && m_poParent->m_poProperty ? m_poParent : nullptr;
}

QList<QtBrowserItem*> QtBrowserItem::children() const
{
    return m_lChildren.toList();
}

int QtBrowserItem::childCount() const
{
    return m_lChildren.size();
}

QtAbstractPropertyBrowser* QtBrowserItem::browser() const
{
    return m_poBrowser;
}

namespace {

// Below this many logged shifts a renumbering is not worth its pass over the children.
const int kMinKeyShifts = 16;
// A renumbering writes into every child, scattered over the heap, while a lookup replays the
// log from one array: a log longer than the square root of the children costs less in all.
const double kKeyShiftsPerRoot = 4.0;

// The most shifts logged before all keys of @p count children are renumbered.
int maxKeyShifts(int count)
{
    return qMax(kMinKeyShifts, int(kKeyShiftsPerRoot * std::sqrt(double(count))));
}

} // namespace

int QtBrowserItem::rowOf(const QtBrowserItem* child)
{
    // The ends need no log: rows are appended there, and a reorder takes its rows from there.
    const int count = m_lChildren.size();
    if (count > 0 && m_lChildren.last() == child)
        return count - 1;
    if (count > 0 && m_lChildren.first() == child)
        return 0;
    int key = child->m_iRowKey;
    const int logged = m_vKeyShifts.size();
    for (int i = child->m_iRowKeyAge; i < logged; ++i) {
        const KeyShift& shift = m_vKeyShifts.at(i);
        if (key >= shift.fromKey)
            key += shift.delta;
    }
    const int row = key - m_iRowKeyOffset;
    if (row >= 0 && row < count && m_lChildren.at(row) == child) {
        // Stored, so that the next lookup of the same child replays nothing.
        QtBrowserItem* found = m_lChildren.at(row);
        found->m_iRowKey = key;
        found->m_iRowKeyAge = logged;
        return row;
    }
    // Only a log that went wrong leads here; renumbering all children still finds the row.
    renumberChildren();
    return child->m_iRowKey;
}

void QtBrowserItem::insertChild(int row, QtBrowserItem* child)
{
    const int count = m_lChildren.size();
    if (row == 0 && count > 0) {
        // Every key stays valid when the offset moves down with the new first row.
        --m_iRowKeyOffset;
        m_lChildren.insert(0, child);
    } else if (row == count) {
        m_lChildren.insert(count, child);
    } else {
        // The keys from the new row on move up by one; the new child's key comes after that.
        m_vKeyShifts.append({row + m_iRowKeyOffset, 1});
        m_lChildren.insert(row, child);
    }
    child->m_iRowKey = row + m_iRowKeyOffset;
    child->m_iRowKeyAge = m_vKeyShifts.size();
    if (m_vKeyShifts.size() > maxKeyShifts(count + 1))
        renumberChildren();
}

void QtBrowserItem::removeChild(int row)
{
    m_lChildren.removeAt(row);
    const int count = m_lChildren.size();
    if (count == 0) {
        m_iRowKeyOffset = 0;
        m_vKeyShifts.clear();
    } else if (row == 0) {
        ++m_iRowKeyOffset;
    } else if (row < count) {
        // The keys behind the removed row move down by one; the last row has none behind it.
        m_vKeyShifts.append({row + m_iRowKeyOffset + 1, -1});
        if (m_vKeyShifts.size() > maxKeyShifts(count))
            renumberChildren();
    }
}

QList<QtBrowserItem*> QtBrowserItem::takeChildren()
{
    m_iRowKeyOffset = 0;
    m_vKeyShifts.clear();
    return m_lChildren.takeAll();
}

void QtBrowserItem::renumberChildren()
{
    const int count = m_lChildren.size();
    for (int row = 0; row < count; ++row) {
        QtBrowserItem* child = m_lChildren.at(row);
        child->m_iRowKey = row;
        child->m_iRowKeyAge = 0;
    }
    m_iRowKeyOffset = 0;
    m_vKeyShifts.clear();
}
