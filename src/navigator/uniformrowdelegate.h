#ifndef UNIFORMROWDELEGATE_H
#define UNIFORMROWDELEGATE_H

#include <QStyledItemDelegate>

/// Paints rows as the base class does. While a view takes all its rows to be as high as its
/// first one, the first row is measured as the taller of itself and its first child, so that
/// rows with icons keep their height, and measured once: the view asks at each layout.
class UniformRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Makes a delegate owned by @p parent, measuring every row as the base class does.
    explicit UniformRowDelegate(QObject* parent);

    /// Says whether the view now takes all rows to be as high as its first one; either way the
    /// size kept of the first row is forgotten.
    void setUniform(bool uniform);

    /// The size of the row at @p index; see the class.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    bool m_bUniform;
    mutable QPersistentModelIndex m_oMeasured;
    mutable QSize m_oMeasuredSize;
};

#endif
