#include "navigator/widgettreeview.h"

#include "navigator/containers.h"
#include "navigator/uniformrowdelegate.h"
#include "property_model/widgetproperty.h"
#include "sdk/apptranslation.h"
#include "sdk/apputils.h"
#include "sdk/ditem.h"
#include "sdk/visibilityinfo.h"

#include <QApplication>
#include <QCursor>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

namespace Containers {

const std::string MODULE_POS = "M_POSITION";
const std::string MODULE_LINFO = "M_LICENSE_INFO";
const std::string MODULE_NAME = "M_NAME";
const std::string MODULE_FNAME = "M_FRIENDLY_NAME";
const std::string MODULE_ICONPATH = "M_ICON_PATH";
const std::string MODULE_DESC = "M_DESC";
const std::string MODULE_GROUP = "M_GROUP";
const std::string MODULE_TOOLBOX = "M_TOOLBOX";

} // namespace Containers

namespace {

const QString kAddModuleItem = QStringLiteral("AddModuleItem");
const QString kPhantom = QStringLiteral("Phantom");
const QString kModulePrefix = QStringLiteral("Module Application.");
// Every row but the preview fades, so that the preview stands out.
const QString kFadingStyleSheet = QStringLiteral(
    "QTreeWidget::item:!selected { color: rgba(0, 0, 0, 25%); background-color: transparent; }");

// Ctrl+C and Ctrl+V belong to the dock; the item view would take Ctrl+C for its own copy.
bool isDockShortcut(const QKeyEvent& event)
{
    return event.modifiers() == Qt::ControlModifier
        && (event.key() == Qt::Key_C || event.key() == Qt::Key_V);
}

} // namespace

const QString WidgetTreeView::kMoveFormat = QStringLiteral("application/x-teLumo-module-move");
const QString WidgetTreeView::kAddFormat = QStringLiteral("application/x-teLumo-module-add");

QString WidgetTreeView::payloadText(const QMimeData& data, const QString& format)
{
    const QByteArray bytes = data.data(format);
    const int end = bytes.indexOf('\0');
    // Our own drags write UTF-8; anything else decodes to replacement characters, harmlessly.
    return QString::fromUtf8(end < 0 ? bytes : bytes.left(end));
}

namespace {

// A module's own drag is a move; a drag from elsewhere is one only when it cannot be an
// insertion, so that another program's payload of both formats inserts a module.
bool isMoveDrag(const QDropEvent& event, const QObject* view)
{
    const QMimeData* data = event.mimeData();
    return data && data->hasFormat(WidgetTreeView::kMoveFormat)
        && (event.source() == view || !data->hasFormat(WidgetTreeView::kAddFormat));
}

// The module id and name of a tool-box drag; a payload without "@" names no module, its name is
// then empty.
struct AddPayload
{
    QString id;
    QString name;
};

AddPayload addPayload(const QMimeData& data)
{
    const QString text = WidgetTreeView::payloadText(data, WidgetTreeView::kAddFormat);
    return {text.section(QLatin1Char('@'), 0, 0), text.section(QLatin1Char('@'), 1, 1)};
}

bool isAddModuleRow(const QTreeWidgetItem* item)
{
    return item && item->data(0, WidgetTreeView::AddModuleItemRole).toString() == kAddModuleItem;
}

} // namespace

bool WidgetTreeView::bHoldsNoNode(const QTreeWidgetItem& item)
{
    return isAddModuleRow(&item) || item.data(0, PhantomRole).toString() == kPhantom;
}

WidgetTreeView::WidgetTreeView(QWidget* parent)
    : QTreeWidget(parent)
    , restoreItem(nullptr)
    , phantomItem(nullptr)
    , dropTarget(nullptr)
    , activeDragMove(nullptr)
    , dragStartPos(-1, -1)
    , pressPos(0, 0)
    , animatedBeforeDrag(false)
    , uniformBeforeDrag(false)
    , rowSizes(new UniformRowDelegate(this))
    , copyPositionValid(false)
{
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setDragEnabled(true);
    // The hover cursor over the rows needs move events without a pressed button.
    setMouseTracking(true);
    // Tool tips of any widget would cover the preview while a copied module is placed.
    qApp->installEventFilter(this);
    setMinimumSize(180, 180);
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    setItemDelegate(rowSizes);
    // The host may empty the tree at any time; no pointer into it may outlive its rows.
    connect(model(), &QAbstractItemModel::modelAboutToBeReset, this, &WidgetTreeView::forgetItems);
    connect(model(), &QAbstractItemModel::rowsAboutToBeRemoved, this,
            &WidgetTreeView::forgetRemovedItems);
}

WidgetTreeView::~WidgetTreeView()
{
    qApp->removeEventFilter(this);
    // The model goes with the widget's children, after this part of the object is gone.
    disconnect(model(), nullptr, this, nullptr);
    // A preview that a refused position took out of the tree is ours alone.
    if (phantomItem && !phantomItem->treeWidget())
        delete phantomItem;
}

void WidgetTreeView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        if (isInCopyMode()) {
            restore(nullptr);
            event->accept();
            return;
        }
        break;
    case Qt::Key_F2:
        emit doEditModule();
        event->accept();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (isAddModuleRow(currentItem()))
            emit showToolBox();
        break;
    default:
        if (isDockShortcut(*event)) {
            event->ignore();
            return;
        }
        break;
    }
    QTreeWidget::keyPressEvent(event);
}

void WidgetTreeView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && isInCopyMode()) {
        if (!copyPositionValid) {
            event->ignore();
            return;
        }
        dropTarget = rowBeforePreview(dropTarget);
        emit pasteItem(copiedModule, pathOf(dropTarget));
        restore(nullptr);
        return;
    }
    if (event->button() == Qt::LeftButton)
        pressPos = QPoint(-1, -1);
    QTreeWidgetItem* item = itemAt(event->pos());
    if (isAddModuleRow(item)) {
        // Any press on the row is taken; only the left button asks for the tool box.
        if (event->button() == Qt::LeftButton)
            emit showToolBox();
        return;
    }
    const Script::DItem* node = item ? getDItem(*item) : nullptr;
    if (event->button() == Qt::LeftButton && node && node->isDraggable() && item->parent()
        && item->parent() == topLevelItem(0))
        pressPos = event->pos();
    QTreeWidget::mousePressEvent(event);
}

void WidgetTreeView::mouseMoveEvent(QMouseEvent* event)
{
    // Set only when it changes: every move of the pointer comes here.
    const bool overRow = itemAt(event->pos()) != nullptr;
    if (overRow != testAttribute(Qt::WA_SetCursor)) {
        if (overRow)
            setCursor(Qt::PointingHandCursor);
        else
            unsetCursor();
    }
    if (isInCopyMode()) {
        checkCopy(event->pos());
        return;
    }
    // The item view's own drag and drag selection are never wanted: modules move by our drag.
    if (pressPos.x() < 0 || pressPos.y() < 0 || !(event->buttons() & Qt::LeftButton))
        return;
    if ((event->pos() - pressPos).manhattanLength() < QApplication::startDragDistance())
        return;
    QTreeWidgetItem* item = itemAt(pressPos);
    const Script::DItem* node = item ? getDItem(*item) : nullptr;
    if (!node)
        return;
    dragIcon = item->data(0, Qt::DecorationRole).value<QIcon>();
    auto* data = new QMimeData;
    data->setData(kMoveFormat, node->iDataPath().toUtf8());
    auto* drag = new QDrag(this);
    drag->setMimeData(data);
    if (!dragIcon.isNull())
        drag->setPixmap(dragIcon.pixmap(iconSize()));
    drag->exec(Qt::MoveAction);
    // The press is used up, whether the drag was dropped or cancelled.
    pressPos = QPoint(-1, -1);
}

void WidgetTreeView::enterEvent(QEvent* event)
{
    if (isInCopyMode())
        QGuiApplication::setOverrideCursor(Qt::DragCopyCursor);
    QTreeWidget::enterEvent(event);
}

void WidgetTreeView::leaveEvent(QEvent* event)
{
    QGuiApplication::restoreOverrideCursor();
    QTreeWidget::leaveEvent(event);
}

void WidgetTreeView::dragEnterEvent(QDragEnterEvent* event)
{
    // A tool-box drag cannot start over a copy in progress.
    if (isInCopyMode()) {
        event->ignore();
        return;
    }
    showOnlyModules();
    const QMimeData* data = event->mimeData();
    if (!data)
        return;
    if (data->hasFormat(kAddFormat)) {
        dragStartPos = QPointF(qRound(event->posF().x()), qRound(event->posF().y()));
        {
            const QSignalBlocker blocker(this);
            clearSelection();
        }
        if (data->hasImage())
            dragIcon = QIcon(QPixmap::fromImage(qvariant_cast<QImage>(data->imageData())));
        else if (!data->hasText())
            dragIcon = QIcon();
        event->acceptProposedAction();
    } else if (data->hasFormat(kMoveFormat)) {
        event->acceptProposedAction();
    }
}

void WidgetTreeView::dragMoveEvent(QDragMoveEvent* event)
{
    const QMimeData* data = event->mimeData();
    if (!data || (!data->hasFormat(kMoveFormat) && !data->hasFormat(kAddFormat)))
        return;
    QTreeWidgetItem* item = followTarget(event->pos());
    if (!item)
        return;
    // The direction is judged against where the drag entered.
    QTreeWidgetItem* next
        = event->posF().y() < dragStartPos.y() ? itemAbove(item) : itemBelow(item);
    if (next)
        scrollToItem(next, QAbstractItemView::EnsureVisible);
    activeDragMove = event;
    const QString path = pathOf(dropTarget);
    // The check gets the translated id, and the drop passes it raw: the host expects both.
    if (isMoveDrag(*event, this))
        emit checkTreeItem(payloadText(*data, kMoveFormat), path);
    else
        emit checkTreeItem(App::getTranslatedName(addPayload(*data).id), path);
}

void WidgetTreeView::dragLeaveEvent(QDragLeaveEvent* event)
{
    restore(nullptr);
    event->accept();
}

void WidgetTreeView::dropEvent(QDropEvent* event)
{
    const QMimeData* data = event->mimeData();
    if (!data)
        return;
    if (event->source() == this && data->hasFormat(kMoveFormat)
        && (event->possibleActions() & Qt::MoveAction)) {
        if (!dropTarget)
            return;
        dropTarget = rowBeforePreview(dropTarget);
        emit moveItem(payloadText(*data, kMoveFormat), pathOf(dropTarget));
        restore(nullptr);
        event->accept();
        return;
    }
    if (!data->hasFormat(kAddFormat)) {
        // Nothing can be made of the drop; the tree must not stay collapsed.
        restore(nullptr);
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    const AddPayload added = addPayload(*data);
    // The dock restores the tree once the host has answered.
    emit insertNewItem(added.id, pathOf(rowBeforePreview(getItemAtPosOrLast(event->pos()))),
                       added.name);
}

void WidgetTreeView::setValidationResult(bool isValidPosition)
{
    QTreeWidgetItem* top = topLevelItem(0);
    if (!top)
        return;
    if (!isValidPosition) {
        if (activeDragMove)
            activeDragMove->ignore();
        else if (isInCopyMode())
            copyPositionValid = false;
        setCurrentItem(nullptr);
        dropTarget = nullptr;
        // The preview is kept for the next position, out of the tree.
        if (phantomItem)
            top->removeChild(phantomItem);
        activeDragMove = nullptr;
        return;
    }
    if (activeDragMove || isInCopyMode()) {
        QString text;
        if (activeDragMove) {
            const QMimeData& data = *activeDragMove->mimeData();
            text = isMoveDrag(*activeDragMove, this)
                ? App::getTranslatedName(
                    payloadText(data, kMoveFormat).remove(kModulePrefix, Qt::CaseSensitive))
                : App::getTranslatedName(addPayload(data).name);
            // Drops are taken where the host allows them, even after a refused position.
            activeDragMove->acceptProposedAction();
        } else {
            text = App::getTranslatedName(copiedModule);
            copyPositionValid = true;
        }
        placePhantom(text);
    }
    activeDragMove = nullptr;
}

void WidgetTreeView::placePhantom(const QString& text)
{
    QTreeWidgetItem* top = topLevelItem(0);
    // Right after the drop target, at the front when the target is no module.
    auto wantedIndex = [this, top] {
        return dropTarget && dropTarget->parent() == top ? top->indexOfChild(dropTarget) + 1 : 0;
    };
    const QSignalBlocker blocker(this);
    if (!phantomItem) {
        // Made once per gesture, then moved, so that a drag costs no allocation per move.
        phantomItem = new QTreeWidgetItem(QTreeWidgetItem::Type);
        QFont font = this->font();
        font.setWeight(QFont::Bold);
        phantomItem->setData(0, Qt::FontRole, font);
        phantomItem->setData(0, Qt::DecorationRole, dragIcon);
        phantomItem->setData(0, PhantomRole, kPhantom);
        top->insertChild(wantedIndex(), phantomItem);
        setStyleSheet(kFadingStyleSheet);
    } else if (phantomItem->parent() != top || top->indexOfChild(phantomItem) != wantedIndex()) {
        // Moving the row is what costs; where it already stands it stays.
        top->removeChild(phantomItem);
        top->insertChild(wantedIndex(), phantomItem);
    }
    if (currentItem() != phantomItem)
        setCurrentItem(phantomItem, 0);
    phantomItem->setData(0, Qt::DisplayRole, text);
}

QTreeWidgetItem* WidgetTreeView::rowBeforePreview(QTreeWidgetItem* item) const
{
    // Placing on the preview itself means after the row above it.
    return item && item == phantomItem ? itemAbove(phantomItem) : item;
}

QTreeWidgetItem* WidgetTreeView::followTarget(QPoint pos)
{
    QTreeWidgetItem* item = getItemAtPosOrLast(pos);
    // Over the preview itself the target stays where it was.
    if (item && item == phantomItem)
        return dropTarget;
    dropTarget = item;
    return item;
}

QString WidgetTreeView::pathOf(const QTreeWidgetItem* item) const
{
    const Script::DItem* node = item ? getDItem(*item) : nullptr;
    // A row without a node, or no row, names no position; the host refuses the empty path.
    return node ? node->iDataPath() : QString();
}

void WidgetTreeView::forgetItems()
{
    // The preview goes with the rows it is in; one out of the tree is still ours.
    if (phantomItem && phantomItem->treeWidget() == this)
        phantomItem = nullptr;
    dropTarget = nullptr;
    restoreItem = nullptr;
    expandedItems.clear();
}

void WidgetTreeView::forgetRemovedItems(const QModelIndex& parent, int first, int last)
{
    auto within = [](const QTreeWidgetItem* item, const QTreeWidgetItem* removed) {
        for (; item; item = item->parent()) {
            if (item == removed)
                return true;
        }
        return false;
    };
    for (int row = first; row <= last; ++row) {
        const QTreeWidgetItem* removed = itemFromIndex(model()->index(row, 0, parent));
        if (within(dropTarget, removed))
            dropTarget = nullptr;
        if (within(restoreItem, removed))
            restoreItem = nullptr;
        // The preview leaving on its own is our doing; below a removed row it goes with it.
        if (phantomItem && phantomItem != removed && within(phantomItem, removed))
            phantomItem = nullptr;
    }
}

bool WidgetTreeView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ToolTip && isInCopyMode())
        return true;
    return QTreeWidget::eventFilter(watched, event);
}

Script::DItem* WidgetTreeView::getDItem(const QTreeWidgetItem& item) const
{
    return PropertyBrowser::WidgetProperty::poNodeAt(item.data(0, NodeAddressRole));
}

void WidgetTreeView::refreshTreeItemState(QTreeWidgetItem& item)
{
    const Script::DItem* node = getDItem(item);
    // A row without a node has nothing to show; the host must not pass one.
    if (!node)
        return;
    // The first refreshed row still carries the colour the host gave it: that is the default.
    static const QColor defaultColor = item.foreground(0).color();
    QBrush brush(defaultColor, Qt::SolidPattern);
    QString toolTip;
    if (node->ioType() == Script::DItem::IoInput) {
        brush = QBrush(Qt::lightGray);
        toolTip = tr("Input");
    } else if (node->ioType() == Script::DItem::IoOutput) {
        brush = QBrush(Qt::darkGray);
        toolTip = tr("Output");
    }
    // Out of range is the one state the user must notice, whatever the kind of node.
    item.setData(0, Qt::ForegroundRole,
                 node->outOfRangeCounter() != 0 ? QBrush(Qt::red, Qt::SolidPattern) : brush);
    item.setData(0, Qt::DisplayRole, App::getTranslatedName(node->unTranslatedName()));
    item.setData(0, Qt::DecorationRole,
                 App::Utils(App::UtilsIconFromPath, node->iconPath()).value<QIcon>());
    item.setData(0, Qt::ToolTipRole,
                 QCoreApplication::translate("IData", toolTip.toUtf8().constData()));
}

void WidgetTreeView::refreshItemVisiblity()
{
    // Nothing in the walk can change the mode, so it is read once for all items.
    const int mode = ItemVisibility::VisibilityInfo::instance()->getVisibilityMode();
    for (QTreeWidgetItemIterator it(this); *it; ++it) {
        QTreeWidgetItem* item = *it;
        if (bHoldsNoNode(*item))
            continue;
        const Script::DItem* node = getDItem(*item);
        if (!node)
            continue;
        const bool guiVisible = node->property("IData.IsGuiVisible").toBool();
        const QVariant unavailable = node->property("GUI.Unavailable");
        refreshTreeItemState(*item);
        QFont font = item->font(0);
        if (unavailable.isValid() && unavailable.toBool()) {
            item->setHidden(true);
        } else if (guiVisible) {
            font.setStyle(QFont::StyleNormal);
            item->setFont(0, font);
            item->setHidden(false);
        } else if (mode == ItemVisibility::VisibilityInfo::ExpertView) {
            font.setStyle(QFont::StyleItalic);
            item->setFont(0, font);
            item->setHidden(false);
        } else {
            item->setHidden(true);
        }
    }
}

void WidgetTreeView::vSetTreeExpandableState(QTreeWidgetItem* parent, bool save)
{
    if (!parent)
        return;
    for (int i = 0; i < parent->childCount(); ++i) {
        QTreeWidgetItem* child = parent->child(i);
        if (save) {
            if (child->isExpanded())
                expandedItems.insert(child);
        } else if (expandedItems.contains(child)) {
            child->setExpanded(true);
        }
        vSetTreeExpandableState(child, save);
    }
}

void WidgetTreeView::showOnlyModules()
{
    animatedBeforeDrag = isAnimated();
    // Without animation the collapse is done at once, before the first position is checked.
    setAnimated(false);
    // Every move of the preview row lays out the rows again. The module rows are alike: taken
    // as one height, they are not all measured again each time.
    uniformBeforeDrag = uniformRowHeights();
    rowSizes->setUniform(true);
    setUniformRowHeights(true);
    vSetTreeExpandableState(invisibleRootItem(), true);
    if (QTreeWidgetItem* root = topLevelItem(0)) {
        collapseAll();
        root->setExpanded(true);
    }
}

void WidgetTreeView::restore(QTreeWidgetItem* item)
{
    dropTarget = nullptr;
    activeDragMove = nullptr;
    dragStartPos = QPointF(0, 0);
    pressPos = QPoint(-1, -1);
    dragIcon = QIcon();
    // One layout after all rows are expanded again, instead of one per expanded row.
    scheduleDelayedItemsLayout();
    vSetTreeExpandableState(invisibleRootItem(), false);
    expandedItems.clear();
    restoreItem = item;
    if (item) {
        setCurrentItem(item);
        scrollToItem(item, QAbstractItemView::PositionAtCenter);
    }
    setAnimated(animatedBeforeDrag);
    setUniformRowHeights(uniformBeforeDrag);
    rowSizes->setUniform(uniformBeforeDrag);
    leaveCopyMode();
}

void WidgetTreeView::restoreTreeView()
{
    // The host has just put the new module right below the drop target.
    restore(itemBelow(dropTarget));
}

bool WidgetTreeView::isInCopyMode() const
{
    return !copiedModule.isEmpty();
}

void WidgetTreeView::leaveCopyMode()
{
    QGuiApplication::restoreOverrideCursor();
    setStyleSheet(QString());
    copiedModule.clear();
    copyPositionValid = false;
    dropTarget = nullptr;
    QTreeWidgetItem* root = topLevelItem(0);
    if (root && phantomItem) {
        root->removeChild(phantomItem);
        delete phantomItem;
        phantomItem = nullptr;
    }
}

QTreeWidgetItem* WidgetTreeView::getItemAtPosOrLast(QPoint pos)
{
    QTreeWidgetItem* item = itemAt(pos);
    if (item && !isAddModuleRow(item))
        return item;
    // Below the list or on "Add Module" means after the last module.
    QTreeWidgetItem* root = topLevelItem(0);
    if (!root || root->childCount() == 0)
        return item;
    return root->child(root->childCount() - 1);
}

void WidgetTreeView::checkCopy(QPoint pos)
{
    QTreeWidgetItem* item = followTarget(pos);
    if (!item)
        return;
    const Script::DItem* node = getDItem(*item);
    if (!node)
        return;
    emit checkTreeItem(copiedModule, node->iDataPath());
}

void WidgetTreeView::enterCopyMode(const QString& moduleName, const QIcon& icon)
{
    copiedModule = QString(moduleName).remove(kModulePrefix, Qt::CaseSensitive);
    dragIcon = icon;
    showOnlyModules();
    restoreItem = currentItem();
    if (restoreItem)
        restoreItem->setSelected(true);
    checkCopy(mapFromGlobal(QCursor::pos()));
}
