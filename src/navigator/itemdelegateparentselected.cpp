#include "navigator/itemdelegateparentselected.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QTextOption>

ItemDelegateParentSelected::ItemDelegateParentSelected(QObject* parent)
    : QStyledItemDelegate(parent)
{ }

void ItemDelegateParentSelected::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                       const QModelIndex& index) const
{
    if (!option.state.testFlag(QStyle::State_Selected) || !index.model()
        || !index.model()->index(0, 0, index).isValid()) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }

    painter->save();
    const QString text = index.data(Qt::DisplayRole).toString();
    const QRect textBounds = option.fontMetrics.boundingRect(text);
    const int textSpan = textBounds.right() - textBounds.left();
    const QVariant decoration = index.data(Qt::DecorationRole);
    const QIcon icon = decoration.canConvert<QIcon>() ? decoration.value<QIcon>() : QIcon();
    QRect rect = option.rect;

    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(option);
    if (icon.isNull()) {
        focus.rect = QRect(QPoint(rect.left(), rect.top()),
                           QPoint(rect.left() + textSpan + 6, rect.bottom()));
        QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter,
                                             option.widget);
        painter->translate(3, 1);
        painter->drawText(QRectF(rect), text, QTextOption());
    } else {
        const int decorationWidth = option.decorationSize.width();
        focus.rect
            = QRect(QPoint(rect.left(), rect.top()),
                    QPoint(rect.left() + textSpan + 13 + decorationWidth - 1, rect.bottom()));
        QApplication::style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter,
                                             option.widget);
        painter->translate(3, 1);
        painter->drawPixmap(rect.topLeft(),
                            icon.pixmap(option.decorationSize, QIcon::Normal, QIcon::Off));
        painter->translate(6, 0);
        painter->translate(0, -1);
        rect.setLeft(rect.left() + decorationWidth);
        painter->drawText(rect, Qt::AlignVCenter, text);
    }
    painter->restore();
}
