#ifndef QTBROWSERITEMMODEL_H
#define QTBROWSERITEMMODEL_H

#include <QAbstractItemModel>
#include <QIcon>

class QtBrowserItem;

/// The items of a browser as a two-column model: the property's name and its value.
/// Nothing is copied from the properties; every role is read from them when asked, so a
/// change costs one dataChanged() for the row whatever changed.
class QtBrowserItemModel : public QAbstractItemModel
{
    Q_OBJECT
public:
    enum Column { NameColumn, ValueColumn };

    /// Creates the model of the items below @p root, which the browser owns.
    QtBrowserItemModel(QtBrowserItem* root, QObject* parent);

    /// The index of the child at @p row of @p parent; the item is its internal pointer.
    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    /// The index of the parent item, found through its cached row.
    QModelIndex parent(const QModelIndex& index) const override;
    /// The number of children of the item of @p parent.
    int rowCount(const QModelIndex& parent = {}) const override;
    /// Two: name and value.
    int columnCount(const QModelIndex& parent = {}) const override;
    /// Name, tips, value text and value icon, read from the property.
    QVariant data(const QModelIndex& index, int role) const override;
    /// Enabled if the property and its ancestors are; the value is editable if there is one.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// The column titles.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// The text of the cell in @p column of @p item, as data() gives it for Qt::DisplayRole:
    /// null for the value cell of a property without a value (a group).
    static QString displayText(const QtBrowserItem* item, int column);
    /// The icon of the cell in @p column of @p item, as data() gives it for Qt::DecorationRole.
    static QIcon decoration(const QtBrowserItem* item, int column);
    /// @p text as a cell or tool tip shows it: cut after the first 4,096 characters, with an
    /// ellipsis, when it is longer.
    static QString shownText(QString text);

    /// The item of @p index, or null for the root.
    QtBrowserItem* itemAt(const QModelIndex& index) const;
    /// The index of @p item in @p column; invalid for null.
    QModelIndex indexOf(QtBrowserItem* item, int column = NameColumn) const;

    /// Inserts @p item as the child of @p parent at @p row, announcing it to the views.
    void insertItem(QtBrowserItem* parent, int row, QtBrowserItem* item);
    /// Detaches @p item, with everything below it, from its parent, announcing it to the views.
    void detachItem(QtBrowserItem* item);
    /// Drops every top-level item at once; the caller deletes them in @p dropItems.
    template<class DropItems>
    void resetItems(DropItems dropItems)
    {
        beginResetModel();
        dropItems();
        endResetModel();
    }
    /// Tells the views that something shown of @p item changed.
    void itemChanged(QtBrowserItem* item);

private:
    /// Whether @p item and all its ancestors have enabled properties.
    static bool isEffectivelyEnabled(const QtBrowserItem* item);

    QtBrowserItem* m_poRoot;
};

#endif
