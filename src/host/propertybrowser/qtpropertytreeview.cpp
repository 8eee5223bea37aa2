#include "qtpropertytreeview.h"

#include "qtbrowseritem.h"
#include "qttreepropertybrowser.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

QtPropertyTreeView::QtPropertyTreeView(QtTreePropertyBrowser* browser)
    : QTreeView(browser)
    , m_poBrowser(browser)
{ }

bool QtPropertyTreeView::openEditor(const QModelIndex& index)
{
    // The public edit() warns when the factory declines, which is an ordinary outcome here.
    return edit(index, AllEditTriggers, nullptr);
}

void QtPropertyTreeView::relayoutRows()
{
    scheduleDelayedItemsLayout();
}

void QtPropertyTreeView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const
{
    QStyleOptionViewItem rowOption = option;
    QtBrowserItem* item = m_poBrowser->itemAt(index);
    QColor background;
    if (m_poBrowser->propertiesWithoutValueMarked() && !item->property()->hasValue())
        background = option.palette.color(QPalette::Dark);
    else
        background = m_poBrowser->calculatedBackgroundColor(item);
    if (background.isValid()) {
        // Filled across the branch area too; alternate rows get a lighter shade of it.
        painter->fillRect(option.rect, background);
        rowOption.palette.setColor(QPalette::AlternateBase, background.lighter(112));
    }
    QTreeView::drawRow(painter, rowOption, index);
    const QColor grid
        = static_cast<QRgb>(style()->styleHint(QStyle::SH_Table_GridLineColor, &rowOption, this));
    // A one-pixel fill: the raster engine draws a pen line across the row several times slower.
    painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                      grid);
}

void QtPropertyTreeView::mousePressEvent(QMouseEvent* event)
{
    QTreeView::mousePressEvent(event);
    reportMouseEvent(event);
    // Looked up again: a receiver of the signal may have changed the rows.
    const QModelIndex index = indexAt(event->pos());
    if (event->button() == Qt::LeftButton && index.column() == 1
        && (index.flags() & Qt::ItemIsEditable) && (index.flags() & Qt::ItemIsEnabled)
        && state() != EditingState)
        m_poBrowser->editItem(m_poBrowser->itemAt(index));
}

void QtPropertyTreeView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    reportMouseEvent(event);
}

void QtPropertyTreeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QTreeView::mouseDoubleClickEvent(event);
    reportMouseEvent(event);
}

void QtPropertyTreeView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_F2:
        if (state() != EditingState && currentIndex().isValid()) {
            m_poBrowser->editItem(m_poBrowser->itemAt(currentIndex()));
            event->accept();
            return;
        }
        break;
    default:
        break;
    }
    QTreeView::keyPressEvent(event);
}

void QtPropertyTreeView::reportMouseEvent(QMouseEvent* event)
{
    if (QtBrowserItem* item = m_poBrowser->itemAt(indexAt(event->pos())))
        emit m_poBrowser->mouseEventSignal(event, item);
}
