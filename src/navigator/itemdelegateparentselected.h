#ifndef ITEMDELEGATEPARENTSELECTED_H
#define ITEMDELEGATEPARENTSELECTED_H

#include <QStyledItemDelegate>

/// Paints a selected row that has children with a focus frame around its icon and text and no
/// selection fill; every other row looks as the base class paints it.
class ItemDelegateParentSelected : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Makes a delegate owned by @p parent.
    explicit ItemDelegateParentSelected(QObject* parent);

    /// Paints the row at @p index.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

#endif
