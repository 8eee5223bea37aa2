#include "qtbrowseritemmodel.h"

#include "qtbrowseritem.h"
#include "qtproperty.h"

QtBrowserItemModel::QtBrowserItemModel(QtBrowserItem* root, QObject* parent)
    : QAbstractItemModel(parent)
    , m_poRoot(root)
{ }

QModelIndex QtBrowserItemModel::index(int row, int column, const QModelIndex& parent) const
{
    const QtBrowserItem* parentItem = parent.isValid() ? itemAt(parent) : m_poRoot;
    if (parent.column() > NameColumn || row < 0 || row >= parentItem->m_lChildren.size()
        || column < NameColumn || column > ValueColumn)
        return {};
    return createIndex(row, column, parentItem->m_lChildren.at(row));
}

QModelIndex QtBrowserItemModel::parent(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    return indexOf(itemAt(index)->m_poParent);
}

int QtBrowserItemModel::rowCount(const QModelIndex& parent) const
{
    if (parent.column() > NameColumn)
        return 0;
    return (parent.isValid() ? itemAt(parent) : m_poRoot)->m_lChildren.size();
}

int QtBrowserItemModel::columnCount(const QModelIndex&) const
{
    return 2;
}

QVariant QtBrowserItemModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const QtBrowserItem* item = itemAt(index);
    const QtProperty* property = item->m_poProperty;
    switch (role) {
    case Qt::DisplayRole:
        if (index.column() == ValueColumn && !property->hasValue())
            return {};
        return displayText(item, index.column());
    case Qt::DecorationRole: {
        const QIcon icon = decoration(item, index.column());
        return icon.isNull() ? QVariant() : QVariant(icon);
    }
    default:
        break;
    }
    if (index.column() == NameColumn) {
        switch (role) {
        case Qt::ToolTipRole: {
            const QString toolTip = property->toolTip();
            return shownText(toolTip.isEmpty() ? property->propertyName() : toolTip);
        }
        case Qt::StatusTipRole:
            return property->statusTip();
        case Qt::WhatsThisRole:
            return property->whatsThis();
        default:
            return {};
        }
    }
    if (role == Qt::ToolTipRole && property->hasValue())
        return shownText(property->valueText());
    return {};
}

QString QtBrowserItemModel::displayText(const QtBrowserItem* item, int column)
{
    const QtProperty* property = item->m_poProperty;
    if (column == NameColumn)
        return shownText(property->propertyName());
    // A property without a value (a group) leaves its value cell empty.
    return property->hasValue() ? shownText(property->valueText()) : QString();
}

QString QtBrowserItemModel::shownText(QString text)
{
    // No screen shows more of one line than this; measuring and shaping a longer text would
    // cost time and memory in proportion to what can never be seen.
    const int kMaxShown = 4096;
    if (text.size() <= kMaxShown)
        return text;
    int length = kMaxShown;
    if (text.at(length - 1).isHighSurrogate())
        --length;
    text.truncate(length);
    return text + QChar(0x2026);
}

QIcon QtBrowserItemModel::decoration(const QtBrowserItem* item, int column)
{
    const QtProperty* property = item->m_poProperty;
    if (column == NameColumn)
        return property->propertyIcon();
    return property->hasValue() ? property->valueIcon() : QIcon();
}

Qt::ItemFlags QtBrowserItemModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const QtBrowserItem* item = itemAt(index);
    Qt::ItemFlags result = Qt::ItemIsSelectable;
    if (isEffectivelyEnabled(item)) {
        result |= Qt::ItemIsEnabled;
        if (index.column() == ValueColumn && item->m_poProperty->hasValue())
            result |= Qt::ItemIsEditable;
    }
    return result;
}

QVariant QtBrowserItemModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == NameColumn ? tr("Property") : tr("Value");
}

QtBrowserItem* QtBrowserItemModel::itemAt(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<QtBrowserItem*>(index.internalPointer()) : nullptr;
}

QModelIndex QtBrowserItemModel::indexOf(QtBrowserItem* item, int column) const
{
    if (!item || item == m_poRoot)
        return {};
    return createIndex(item->m_poParent->rowOf(item), column, item);
}

void QtBrowserItemModel::insertItem(QtBrowserItem* parent, int row, QtBrowserItem* item)
{
    beginInsertRows(indexOf(parent), row, row);
    parent->insertChild(row, item);
    endInsertRows();
}

void QtBrowserItemModel::detachItem(QtBrowserItem* item)
{
    QtBrowserItem* parent = item->m_poParent;
    const int row = parent->rowOf(item);
    beginRemoveRows(indexOf(parent), row, row);
    parent->removeChild(row);
    endRemoveRows();
}

void QtBrowserItemModel::itemChanged(QtBrowserItem* item)
{
    emit dataChanged(indexOf(item, NameColumn), indexOf(item, ValueColumn));
}

bool QtBrowserItemModel::isEffectivelyEnabled(const QtBrowserItem* item)
{
    for (; item && item->m_poProperty; item = item->m_poParent) {
        if (!item->m_poProperty->isEnabled())
            return false;
    }
    return true;
}
