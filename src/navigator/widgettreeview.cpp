#include "navigator/widgettreeview.h"

#include "navigator/containers.h"
#include "property_model/widgetproperty.h"
#include "sdk/apptranslation.h"
#include "sdk/apputils.h"
#include "sdk/ditem.h"
#include "sdk/visibilityinfo.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QKeyEvent>
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

} // namespace

bool WidgetTreeView::bHoldsNoNode(const QTreeWidgetItem& item)
{
    return item.data(0, AddModuleItemRole).toString() == kAddModuleItem
        || item.data(0, PhantomRole).toString() == kPhantom;
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
}

WidgetTreeView::~WidgetTreeView()
{
    qApp->removeEventFilter(this);
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
        if (QTreeWidgetItem* item = currentItem();
            item && item->data(0, AddModuleItemRole) == QVariant(kAddModuleItem))
            emit showToolBox();
        break;
    default:
        break;
    }
    QTreeWidget::keyPressEvent(event);
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
    vSetTreeExpandableState(invisibleRootItem(), false);
    expandedItems.clear();
    restoreItem = item;
    if (item) {
        setCurrentItem(item);
        scrollToItem(item, QAbstractItemView::PositionAtCenter);
    }
    setAnimated(animatedBeforeDrag);
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
    if (item && item->data(0, AddModuleItemRole).toString() != kAddModuleItem)
        return item;
    // Below the list or on "Add Module" means after the last module.
    QTreeWidgetItem* root = topLevelItem(0);
    if (!root || root->childCount() == 0)
        return item;
    return root->child(root->childCount() - 1);
}

void WidgetTreeView::checkCopy(QPoint pos)
{
    QTreeWidgetItem* item = getItemAtPosOrLast(pos);
    if (item && item == phantomItem)
        item = dropTarget;
    else
        dropTarget = item;
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
