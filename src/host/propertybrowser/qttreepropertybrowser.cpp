#include "qttreepropertybrowser.h"

#include "qtbrowseritemmodel.h"
#include "qtpropertytreedelegate.h"
#include "qtpropertytreeview.h"

#include <QHBoxLayout>
#include <QHeaderView>

QtTreePropertyBrowser::QtTreePropertyBrowser(QWidget* parent)
    : QtAbstractPropertyBrowser(parent)
    , m_poView(new QtPropertyTreeView(this))
    , m_poDelegate(new QtPropertyTreeDelegate(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_poView);
    setFocusProxy(m_poView);

    m_poView->setModel(itemModel());
    m_poView->setItemDelegate(m_poDelegate);
    // One row height for all rows: the view then never measures rows one by one.
    m_poView->setUniformRowHeights(true);
    m_poView->setSelectionMode(QAbstractItemView::SingleSelection);
    m_poView->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_poView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_poView->setAlternatingRowColors(true);
    m_poView->header()->setSectionsMovable(false);
    m_poView->header()->setStretchLastSection(true);
    setResizeMode(Stretch);

    connect(m_poView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &QtTreePropertyBrowser::onViewCurrentChanged);
    connect(this, &QtAbstractPropertyBrowser::currentItemChanged, this,
            &QtTreePropertyBrowser::onBrowserCurrentChanged);
    connect(m_poView, &QTreeView::expanded, this, &QtTreePropertyBrowser::onViewExpanded);
    connect(m_poView, &QTreeView::collapsed, this, &QtTreePropertyBrowser::onViewCollapsed);
}

QtTreePropertyBrowser::~QtTreePropertyBrowser()
{
    // The renderer, a child of ours, is destroyed after this destructor has finished.
    disconnect(m_oRendererConnection);
    // The view and its editors go while the items they show still exist.
    delete m_poView;
}

int QtTreePropertyBrowser::indentation() const
{
    return m_poView->indentation();
}

void QtTreePropertyBrowser::setIndentation(int indentation)
{
    m_poView->setIndentation(indentation);
}

bool QtTreePropertyBrowser::rootIsDecorated() const
{
    return m_poView->rootIsDecorated();
}

void QtTreePropertyBrowser::setRootIsDecorated(bool show)
{
    m_poView->setRootIsDecorated(show);
}

bool QtTreePropertyBrowser::alternatingRowColors() const
{
    return m_poView->alternatingRowColors();
}

void QtTreePropertyBrowser::setAlternatingRowColors(bool enable)
{
    m_poView->setAlternatingRowColors(enable);
}

bool QtTreePropertyBrowser::isHeaderVisible() const
{
    return !m_poView->isHeaderHidden();
}

void QtTreePropertyBrowser::setHeaderVisible(bool visible)
{
    m_poView->setHeaderHidden(!visible);
}

QtTreePropertyBrowser::ResizeMode QtTreePropertyBrowser::resizeMode() const
{
    return m_eResizeMode;
}

void QtTreePropertyBrowser::setResizeMode(ResizeMode mode)
{
    m_eResizeMode = mode;
    // The enumerators have QHeaderView's values; the value column stretches in every mode.
    m_poView->header()->setSectionResizeMode(static_cast<QHeaderView::ResizeMode>(mode));
}

int QtTreePropertyBrowser::splitterPosition() const
{
    return m_poView->header()->sectionSize(0);
}

void QtTreePropertyBrowser::setSplitterPosition(int position)
{
    m_poView->header()->resizeSection(0, position);
}

void QtTreePropertyBrowser::setExpanded(QtBrowserItem* item, bool expanded)
{
    if (!item)
        return;
    if (expanded)
        m_hCollapsed.remove(item);
    else
        m_hCollapsed.insert(item);
    m_poView->setExpanded(indexOf(item, 0), expanded);
}

bool QtTreePropertyBrowser::isExpanded(QtBrowserItem* item) const
{
    return item && !m_hCollapsed.contains(item);
}

bool QtTreePropertyBrowser::isItemVisible(QtBrowserItem* item) const
{
    const QModelIndex index = indexOf(item, 0);
    return index.isValid() && !m_poView->isRowHidden(index.row(), index.parent());
}

void QtTreePropertyBrowser::setItemVisible(QtBrowserItem* item, bool visible)
{
    const QModelIndex index = indexOf(item, 0);
    if (index.isValid())
        m_poView->setRowHidden(index.row(), index.parent(), !visible);
}

void QtTreePropertyBrowser::setBackgroundColor(QtBrowserItem* item, const QColor& color)
{
    if (!item)
        return;
    if (color.isValid())
        m_hBackgroundColors.insert(item, color);
    else
        m_hBackgroundColors.remove(item);
    m_poView->viewport()->update();
}

QColor QtTreePropertyBrowser::backgroundColor(QtBrowserItem* item) const
{
    return m_hBackgroundColors.value(item);
}

QColor QtTreePropertyBrowser::calculatedBackgroundColor(QtBrowserItem* item) const
{
    // Most rows have no colour of their own; skip the walk when no row has one.
    if (m_hBackgroundColors.isEmpty())
        return QColor();
    for (; item; item = item->parent()) {
        const auto it = m_hBackgroundColors.constFind(item);
        if (it != m_hBackgroundColors.cend())
            return it.value();
    }
    return QColor();
}

void QtTreePropertyBrowser::setPropertiesWithoutValueMarked(bool mark)
{
    if (m_bMarkPropertiesWithoutValue == mark)
        return;
    m_bMarkPropertiesWithoutValue = mark;
    m_poView->viewport()->update();
}

bool QtTreePropertyBrowser::propertiesWithoutValueMarked() const
{
    return m_bMarkPropertiesWithoutValue;
}

void QtTreePropertyBrowser::editItem(QtBrowserItem* item)
{
    const QModelIndex index = indexOf(item, 1);
    if (!index.isValid())
        return;
    m_poView->setCurrentIndex(index);
    m_poView->openEditor(index);
}

void QtTreePropertyBrowser::setIconSize(const QSize& size)
{
    m_poView->setIconSize(size);
}

void QtTreePropertyBrowser::setItemMinimumHeight(int height)
{
    if (m_iItemMinimumHeight == height)
        return;
    m_iItemMinimumHeight = height;
    m_poView->relayoutRows();
}

void QtTreePropertyBrowser::setCustomRenderer(QtPropertyAbstractCustomRenderer* renderer)
{
    disconnect(m_oRendererConnection);
    m_poRenderer = renderer;
    if (auto* object = dynamic_cast<QObject*>(renderer))
        m_oRendererConnection
            = connect(object, &QObject::destroyed, this, [this] { m_poRenderer = nullptr; });
    m_poView->viewport()->update();
}

void QtTreePropertyBrowser::itemInserted(QtBrowserItem* item, QtBrowserItem*)
{
    // Items start expanded; a parent's expansion matters to the view once it has a child.
    QtBrowserItem* parent = item->parent();
    if (parent && parent->childCount() == 1 && !m_hCollapsed.contains(parent))
        m_poView->expand(indexOf(parent, 0));
}

void QtTreePropertyBrowser::itemRemoved(QtBrowserItem* item)
{
    m_hCollapsed.remove(item);
    m_hBackgroundColors.remove(item);
}

void QtTreePropertyBrowser::itemChanged(QtBrowserItem* item)
{
    // The model repainted the row; rows below may change with its enabled state.
    if (item->childCount() > 0)
        m_poView->viewport()->update();
}

QtBrowserItem* QtTreePropertyBrowser::itemAt(const QModelIndex& index) const
{
    return itemModel()->itemAt(index);
}

QModelIndex QtTreePropertyBrowser::indexOf(QtBrowserItem* item, int column) const
{
    if (!item || item->browser() != this)
        return {};
    return itemModel()->indexOf(item, column);
}

QtPropertyAbstractCustomRenderer* QtTreePropertyBrowser::customRenderer() const
{
    return m_poRenderer;
}

int QtTreePropertyBrowser::itemMinimumHeight() const
{
    return m_iItemMinimumHeight;
}

QWidget* QtTreePropertyBrowser::createItemEditor(QtBrowserItem* item, QWidget* parent)
{
    return item ? createEditor(item->property(), parent) : nullptr;
}

void QtTreePropertyBrowser::onViewCurrentChanged(const QModelIndex& current)
{
    if (m_bSyncingCurrent)
        return;
    m_bSyncingCurrent = true;
    setCurrentItem(itemAt(current));
    m_bSyncingCurrent = false;
}

void QtTreePropertyBrowser::onBrowserCurrentChanged(QtBrowserItem* item)
{
    if (m_bSyncingCurrent)
        return;
    m_bSyncingCurrent = true;
    m_poView->setCurrentIndex(indexOf(item, 0));
    m_bSyncingCurrent = false;
}

void QtTreePropertyBrowser::onViewExpanded(const QModelIndex& index)
{
    QtBrowserItem* item = itemAt(index);
    m_hCollapsed.remove(item);
    emit expanded(item);
}

void QtTreePropertyBrowser::onViewCollapsed(const QModelIndex& index)
{
    QtBrowserItem* item = itemAt(index);
    m_hCollapsed.insert(item);
    emit collapsed(item);
}
