#include "navigator/uniformrowdelegate.h"

UniformRowDelegate::UniformRowDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
    , m_bUniform(false)
{ }

void UniformRowDelegate::setUniform(bool uniform)
{
    m_bUniform = uniform;
    m_oMeasured = QPersistentModelIndex();
}

QSize UniformRowDelegate::sizeHint(const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const
{
    if (!m_bUniform)
        return QStyledItemDelegate::sizeHint(option, index);
    if (m_oMeasured.isValid() && m_oMeasured == index)
        return m_oMeasuredSize;
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    const QModelIndex child = index.model()->index(0, 0, index);
    if (child.isValid())
        size.setHeight(qMax(size.height(), QStyledItemDelegate::sizeHint(option, child).height()));
    m_oMeasured = index;
    m_oMeasuredSize = size;
    return size;
}
