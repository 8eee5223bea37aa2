#ifndef PROPERTYBROWSER_EDITORS_WIDGETSETDYNAMICGENERIC_H
#define PROPERTYBROWSER_EDITORS_WIDGETSETDYNAMICGENERIC_H

#include "sdk/ditem.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <memory>

class QTreeWidgetItem;
class Ui_WidgetSetDynamicGeneric;

namespace PropertyBrowser {
namespace Editors {

/// The "Linked Value" page of the value dialog: the nodes that may be linked, as a tree by their
/// dotted paths with the nodes' icons, with the node linked now selected. The caller reads the
/// result from the tree: the selected item's Qt::UserRole data is the path to link, and no
/// selection means no link.
class WidgetSetDynamicGeneric : public QWidget
{
    Q_OBJECT

public:
    /// Makes the picker for @p parent, normally the value dialog, whose buttons it drives.
    explicit WidgetSetDynamicGeneric(QWidget* parent = nullptr, Qt::WindowFlags flags = {});
    ~WidgetSetDynamicGeneric() override;

    /// Builds the tree of the linkable nodes (first list) with the icons of the second list,
    /// and selects the item of @p selectPath.
    void generateTree(Script::DItemListPair nodes, QString selectPath);
    /// Shows one disabled line saying that there is nothing to link.
    void generateTreeNoNodes();
    /// Hangs the components of @p path, but the first, below @p root.
    void createTree(QString path, QTreeWidgetItem* root);
    /// Descends from @p parent along @p parts, adding the items that are missing; new items
    /// carry @p fullPath.
    void addChildren(QTreeWidgetItem* parent, QStringList parts, QString fullPath);
    /// Adds a child named @p name that carries @p fullPath below @p parent, and makes it the
    /// new @p parent.
    void addChild(QTreeWidgetItem*& parent, QString const& name, QString const& fullPath);
    /// The first child of @p parent whose text is the translation of @p name, or null.
    QTreeWidgetItem* findChildItem(QTreeWidgetItem* parent, QString const& name);
    /// Gives every item named like the last component of a node of the second list that
    /// node's icon.
    void addIcons(Script::DItemListPair nodes);
    /// Selects the item of the node at @p path and opens its ancestors.
    void expandAndSelect(QString path);
    /// Expands every ancestor of @p item, not the item itself.
    void iterateAndExpandToBackwardRoot(QTreeWidgetItem* item);

    /// The form; the caller reads the selection of its tree.
    std::unique_ptr<Ui_WidgetSetDynamicGeneric> ui;

signals:
    /// Whether the node linked now was found in the tree.
    void nodeLinked(bool linked);

public slots:
    /// Drops the selection, so that the caller finds no link chosen.
    void onResetLinkActivated(bool checked);
    /// Makes the item named like the combo box's entry @p index current.
    void onCbxIndexChanged(int index);
    /// Accepts the dialog when @p item is a leaf.
    void onItemDoubleClicked(QTreeWidgetItem* item, int column);

private:
    /// The first child of @p parent shown as @p text, or null.
    QTreeWidgetItem* childWithText(QTreeWidgetItem* parent, QString const& text) const;

    QWidget* m_poParent;
    // While generateTree() builds the tree, which adds items only through addChild(): the
    // first child of each item by display text, so that many paths are placed without
    // scanning sibling lists. Empty otherwise, and then siblings are scanned.
    QHash<QTreeWidgetItem*, QHash<QString, QTreeWidgetItem*>> m_hChildrenByText;
    bool m_bIndexing = false;
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
