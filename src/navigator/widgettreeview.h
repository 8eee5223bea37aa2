#ifndef WIDGETTREEVIEW_H
#define WIDGETTREEVIEW_H

#include <QIcon>
#include <QPoint>
#include <QPointF>
#include <QSet>
#include <QString>
#include <QTreeWidget>

class QDragMoveEvent;
class UniformRowDelegate;
class QMimeData;

namespace Script {
class DItem;
}

/// The job tree: one column of the job's modules and nodes. The host creates and fills the
/// items; the view reads a node out of each one and keeps its look in step with the node.
class WidgetTreeView : public QTreeWidget
{
    Q_OBJECT

public:
    /// The item data roles of column 0 beyond Qt's own.
    enum ItemRole {
        NodeAddressRole = Qt::UserRole + 8, ///< The Script::DItem address as a 64-bit integer.
        AddModuleItemRole = Qt::UserRole + 9, ///< "AddModuleItem" on the "Add Module" row.
        PhantomRole = Qt::UserRole + 10 ///< "Phantom" on the row that previews an insertion.
    };

    /// Makes the view under @p parent and starts watching the application's tool tips.
    explicit WidgetTreeView(QWidget* parent = nullptr);
    /// Stops watching the application's tool tips.
    ~WidgetTreeView() override;

    /// Ends any drag or copy: undoes the collapse of showOnlyModules(), makes @p item current
    /// when it is not null, and leaves copy mode.
    void restore(QTreeWidgetItem* item);
    /// Collapses the tree to the flat list of modules, remembering what was expanded.
    void showOnlyModules();
    /// Below @p parent, records the expanded items when @p save is true, or expands the
    /// recorded ones again when it is false.
    void vSetTreeExpandableState(QTreeWidgetItem* parent, bool save);
    /// Whether @p item is the "Add Module" row or the preview of an insertion, the rows that
    /// hold no node.
    static bool bHoldsNoNode(const QTreeWidgetItem& item);
    /// The node of @p item, read from its address role; null when the row holds none.
    Script::DItem* getDItem(const QTreeWidgetItem& item) const;
    /// Sets the name, icon, tool tip and text colour of @p item from its node.
    void refreshTreeItemState(QTreeWidgetItem& item);
    /// Refreshes every node row and shows, hides or italicises it by the view mode and the
    /// node's visibility keys.
    void refreshItemVisiblity();

    /// Whether a module is marked for copying and waits for its position.
    bool isInCopyMode() const;
    /// Leaves copy mode: restores the cursor and the look, and drops the preview row.
    void leaveCopyMode();
    /// The item under @p pos; the last module when there is none or it is the "Add Module" row.
    QTreeWidgetItem* getItemAtPosOrLast(QPoint pos);
    /// Asks whether the copied module may be placed at the row under @p pos.
    void checkCopy(QPoint pos);

    /// The format of a module dragged inside the list; its payload is the module's path.
    static const QString kMoveFormat;
    /// The format of a new module dragged in from the host's tool box; its payload is the
    /// module's id and name joined by "@".
    static const QString kAddFormat;
    /// The text of the payload of @p format in @p data, up to its first NUL byte.
    static QString payloadText(const QMimeData& data, const QString& format);

signals:
    /// Asks whether the module @p moduleID may be placed after @p insertionPath.
    void checkTreeItem(const QString& moduleID, const QString& insertionPath);
    /// Asks to insert the new module @p moduleID, named @p moduleName, after @p insertionPath.
    void insertNewItem(const QString& moduleID, const QString& insertionPath,
                       QString moduleName = QString());
    /// Asks to paste the copied module @p moduleID after @p insertionPath.
    void pasteItem(const QString& moduleID, const QString& insertionPath);
    /// Asks to move the module @p moduleID after @p insertionPath.
    void moveItem(const QString& moduleID, const QString& insertionPath);
    /// Asks the host to show its tool box of modules.
    void showToolBox();
    /// Asks to rename the current item.
    void doEditModule();

public slots:
    /// Takes the host's answer on the position last asked about: a refused position hides the
    /// preview row, an allowed one shows it there during a drag or in copy mode.
    void setValidationResult(bool isValidPosition);
    /// Enters copy mode for the module at @p moduleName, previewed with @p icon.
    void enterCopyMode(const QString& moduleName, const QIcon& icon);
    /// Ends a drag or copy on the row below the drop target, where the host put the new module.
    void restoreTreeView();

protected:
    /// Escape leaves copy mode, F2 asks to rename, Return or Enter on the "Add Module" row asks
    /// for the tool box; Ctrl+C and Ctrl+V are left to the dock.
    void keyPressEvent(QKeyEvent* event) override;
    /// Arms a drag on a movable module, asks for the tool box on the "Add Module" row, and in
    /// copy mode places the copied module at an allowed position.
    void mousePressEvent(QMouseEvent* event) override;
    /// Sets the hover cursor, follows the pointer in copy mode and starts a module's drag.
    void mouseMoveEvent(QMouseEvent* event) override;
    /// Shows the copy cursor while copy mode is on.
    void enterEvent(QEvent* event) override;
    /// Gives the cursor back.
    void leaveEvent(QEvent* event) override;
    /// Collapses the tree to its modules for a module's drag.
    void dragEnterEvent(QDragEnterEvent* event) override;
    /// Asks the host about the position under the pointer.
    void dragMoveEvent(QDragMoveEvent* event) override;
    /// Undoes the collapse.
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    /// Asks to move or insert the dragged module after the row under the pointer.
    void dropEvent(QDropEvent* event) override;
    /// Swallows tool tips anywhere in the application while copy mode is on.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void placePhantom(const QString& text);
    QString draggedModuleName(const QMimeData& data) const;
    QTreeWidgetItem* followTarget(QPoint pos);
    QTreeWidgetItem* rowBeforePreview(QTreeWidgetItem* item) const;
    QString pathOf(const QTreeWidgetItem* item) const;
    void forgetItems();
    void forgetRemovedItems(const QModelIndex& parent, int first, int last);

    QTreeWidgetItem* restoreItem;
    QTreeWidgetItem* phantomItem;
    QIcon dragIcon;
    QTreeWidgetItem* dropTarget;
    QDragMoveEvent* activeDragMove;
    QPointF dragStartPos;
    QPoint pressPos;
    bool animatedBeforeDrag;
    bool uniformBeforeDrag;
    UniformRowDelegate* rowSizes;
    QSet<QTreeWidgetItem*> expandedItems;
    QString copiedModule;
    bool copyPositionValid;
};

#endif
