#ifndef JOBFIXTURE_H
#define JOBFIXTURE_H

#include "navigator/widgettreeview.h"
#include "sdk/ditem.h"

#include <QTreeWidget>

#include <memory>

/// A small job filled into a tree the way the host fills it: a top-level root row, the modules
/// below it, each row holding its node's address as a 64-bit integer.
class JobFixture
{
public:
    /// Puts the job's root row into @p view.
    explicit JobFixture(QTreeWidget* view)
        : m_poRoot(
            new Script::DItem(QStringLiteral("Module Application"), QStringLiteral("IDataModule")))
    {
        m_poRootItem = new QTreeWidgetItem;
        bind(m_poRootItem, m_poRoot.get());
        view->addTopLevelItem(m_poRootItem);
    }

    /// The root row.
    QTreeWidgetItem* rootItem() const { return m_poRootItem; }

    /// Adds the node at @p path below the node of @p parent, with its row below @p parent.
    QTreeWidgetItem* add(QTreeWidgetItem* parent, const QString& path,
                         Script::DItem::IoType ioType = Script::DItem::IoNone,
                         const QString& type = QStringLiteral("IDataBasicInt"))
    {
        auto* node = new Script::DItem(path, type, ioType);
        nodeOf(parent)->vAddChildNode(node);
        auto* item = new QTreeWidgetItem(parent);
        bind(item, node);
        return item;
    }

    /// The node of a row made by this fixture.
    static Script::DItem* nodeOf(const QTreeWidgetItem* item)
    {
        return reinterpret_cast<Script::DItem*>(
            item->data(0, WidgetTreeView::NodeAddressRole).toLongLong());
    }

private:
    static void bind(QTreeWidgetItem* item, Script::DItem* node)
    {
        item->setText(0, node->unTranslatedName());
        item->setData(0, WidgetTreeView::NodeAddressRole,
                      static_cast<qint64>(reinterpret_cast<quintptr>(node)));
    }

    std::unique_ptr<Script::DItem> m_poRoot;
    QTreeWidgetItem* m_poRootItem;
};

#endif
