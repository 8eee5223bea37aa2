#include "qtbrowseritem.h"

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
    return m_lChildren;
}

QtAbstractPropertyBrowser* QtBrowserItem::browser() const
{
    return m_poBrowser;
}

int QtBrowserItem::rowOf(const QtBrowserItem* child)
{
    const int cached = child->m_iRowKey - m_iRowKeyOffset;
    if (cached >= 0 && cached < m_iFirstStaleRow && m_lChildren.at(cached) == child)
        return cached;
    const int count = m_lChildren.size();
    for (int row = m_iFirstStaleRow; row < count; ++row)
        m_lChildren.at(row)->m_iRowKey = row + m_iRowKeyOffset;
    m_iFirstStaleRow = count;
    return child->m_iRowKey - m_iRowKeyOffset;
}

void QtBrowserItem::insertChild(int row, QtBrowserItem* child)
{
    const int count = m_lChildren.size();
    if (row == 0 && count > 0) {
        // Every key stays valid when the offset moves down with the new first row.
        --m_iRowKeyOffset;
        m_lChildren.prepend(child);
        child->m_iRowKey = m_iRowKeyOffset;
        ++m_iFirstStaleRow;
    } else if (row == count) {
        m_lChildren.append(child);
        child->m_iRowKey = row + m_iRowKeyOffset;
        if (m_iFirstStaleRow == count)
            m_iFirstStaleRow = count + 1;
    } else {
        m_lChildren.insert(row, child);
        m_iFirstStaleRow = qMin(m_iFirstStaleRow, row);
    }
}

void QtBrowserItem::removeChild(int row)
{
    m_lChildren.removeAt(row);
    if (m_lChildren.isEmpty()) {
        m_iRowKeyOffset = 0;
        m_iFirstStaleRow = 0;
    } else if (row == 0) {
        ++m_iRowKeyOffset;
        m_iFirstStaleRow = qMax(0, m_iFirstStaleRow - 1);
    } else {
        m_iFirstStaleRow = qMin(m_iFirstStaleRow, row);
    }
}
