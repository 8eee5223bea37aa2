#include "qtpropertytreeview.h"

#include "qtbrowseritem.h"
#include "qttreepropertybrowser.h"

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>

QtPropertyTreeView::QtPropertyTreeView(QtTreePropertyBrowser* browser)
    : QTreeView(browser)
    , m_poBrowser(browser)
{ }

bool QtPropertyTreeView::openEditor(const QModelIndex& index)
{
    m_bEditorAsked = true;
    // The public edit() warns when the factory declines, which is an ordinary outcome here.
    return edit(index, AllEditTriggers, nullptr);
}

void QtPropertyTreeView::relayoutRows()
{
    scheduleDelayedItemsLayout();
}

bool QtPropertyTreeView::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Paint:
        paintScrollArea();
        return true;
    case QEvent::StyleChange:
        // A style that changes its look says so with this event, keeping its object.
        m_oFrameCache.clear();
        break;
    default:
        break;
    }
    return QTreeView::event(event);
}

void QtPropertyTreeView::paintScrollArea()
{
    QPainter painter(this);
    const QWidget* vertical = verticalScrollBar()->parentWidget();
    const QWidget* horizontal = horizontalScrollBar()->parentWidget();
    // The scroll bars sit in containers of the scroll area; the corner is where their lines
    // would cross. With a corner widget set, that widget covers it.
    if (vertical && horizontal && vertical->isVisible() && horizontal->isVisible()) {
        QStyleOption option;
        option.initFrom(this);
        option.rect
            = QRect(vertical->x(), horizontal->y(), vertical->width(), horizontal->height());
        style()->drawPrimitive(QStyle::PE_PanelScrollAreaCorner, &option, &painter, this);
    }
    m_oFrameCache.paint(&painter, this,
                        [this](QPainter* framePainter) { drawFrame(framePainter); });
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
    if (isSpannedRow(index))
        drawSpannedRow(painter, rowOption, index);
    else
        QTreeView::drawRow(painter, rowOption, index);
    const QColor grid
        = static_cast<QRgb>(style()->styleHint(QStyle::SH_Table_GridLineColor, &rowOption, this));
    // A one-pixel fill: the raster engine draws a pen line across the row several times slower.
    painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
                      grid);
}

QRect QtPropertyTreeView::visualRect(const QModelIndex& index) const
{
    if (!index.isValid() || !isSpannedRow(index))
        return QTreeView::visualRect(index);
    return QTreeView::visualRect(index.siblingAtColumn(0))
        | QTreeView::visualRect(index.siblingAtColumn(1));
}

QModelIndex QtPropertyTreeView::indexAt(const QPoint& point) const
{
    const QModelIndex index = QTreeView::indexAt(point);
    return index.isValid() && isSpannedRow(index) ? index.siblingAtColumn(0) : index;
}

bool QtPropertyTreeView::isSpannedRow(const QModelIndex& index) const
{
    return !m_poBrowser->itemAt(index)->property()->hasValue();
}

void QtPropertyTreeView::drawSpannedRow(QPainter* painter, const QStyleOptionViewItem& option,
                                        const QModelIndex& index) const
{
    const QHeaderView* head = header();
    const bool reverse = isRightToLeft();
    const int lastSection = head->logicalIndex(head->count() - 1);
    const int lastLeft = columnViewportPosition(lastSection);
    int position = columnViewportPosition(0);
    int width = head->sectionSize(0);
    if (!reverse) {
        width = lastLeft + head->sectionSize(lastSection) - position;
    } else {
        width += position - lastLeft;
        position = lastLeft;
    }
    const int y = option.rect.y();
    const int height = option.rect.height();

    QStyleOptionViewItem cell = option;
    cell.showDecorationSelected = true; // rows are selected whole
    cell.viewItemPosition = QStyleOptionViewItem::OnlyOne;
    if (alternatingRowColors() && height > 0) {
        // Rows have one height, so the row's place in the list follows from its top.
        const int visualRow = (y + verticalOffset()) / height;
        cell.features.setFlag(QStyleOptionViewItem::Alternate, visualRow & 1);
    }
    if (selectionModel()->isSelected(index))
        cell.state |= QStyle::State_Selected;
    if (hasFocus() && currentIndex() == index)
        cell.state |= QStyle::State_HasFocus;
    if (cell.state & QStyle::State_Enabled) {
        QPalette::ColorGroup group = QPalette::Inactive;
        if (!(model()->flags(index) & Qt::ItemIsEnabled)) {
            cell.state &= ~QStyle::State_Enabled;
            group = QPalette::Disabled;
        } else if (cell.state & QStyle::State_Active) {
            group = QPalette::Active;
        }
        cell.palette.setCurrentColorGroup(group);
    }

    int level = rootIsDecorated() ? 1 : 0;
    for (QModelIndex parent = index.parent(); parent.isValid(); parent = parent.parent())
        ++level;
    const int indent = level * indentation();
    const QRect branches(reverse ? position + width - indent : position, y, indent, height);
    const bool clipBranches = branches.width() > width;
    if (clipBranches) {
        painter->save();
        painter->setClipRect(QRect(position, y, width, height));
    }
    // The branch area takes the selection if the style says so; the item's own background
    // shows the alternate colour only, the delegate paints its selection.
    cell.rect = branches;
    if (style()->styleHint(QStyle::SH_ItemView_ShowDecorationSelected, &cell, this))
        style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &cell, painter, this);
    const QStyle::State state = cell.state;
    cell.state &= ~QStyle::State_Selected;
    cell.rect.setRect(reverse ? position : position + indent, y, width - indent, height);
    style()->drawPrimitive(QStyle::PE_PanelItemViewRow, &cell, painter, this);
    cell.state = state;
    if (indentation() != 0)
        drawBranches(painter, branches, index);
    if (clipBranches)
        painter->restore();

    itemDelegate(index)->paint(painter, cell, index);
}

void QtPropertyTreeView::mousePressEvent(QMouseEvent* event)
{
    m_bEditorAsked = false;
    QTreeView::mousePressEvent(event);
    reportMouseEvent(event);
    // A receiver of the signal that asked for an editor has answered the press, whether the
    // factory made one or declined.
    if (m_bEditorAsked)
        return;
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
