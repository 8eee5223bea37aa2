#ifndef QTTREEPROPERTYBROWSER_H
#define QTTREEPROPERTYBROWSER_H

#include "qtpropertybrowser.h"

#include <QColor>
#include <QHash>
#include <QSet>
#include <QSize>

class QModelIndex;
class QMouseEvent;
class QtPropertyTreeDelegate;
class QtPropertyTreeView;

/// A browser that shows properties as a two-column tree: names on the left, values on the
/// right. It is a view over the browser's item model, so rows cost no widgets and their text
/// is read from the properties when painted.
class QtTreePropertyBrowser : public QtAbstractPropertyBrowser
{
    Q_OBJECT
    Q_PROPERTY(int indentation READ indentation WRITE setIndentation)
    Q_PROPERTY(bool rootIsDecorated READ rootIsDecorated WRITE setRootIsDecorated)
    Q_PROPERTY(bool alternatingRowColors READ alternatingRowColors WRITE setAlternatingRowColors)
    Q_PROPERTY(bool headerVisible READ isHeaderVisible WRITE setHeaderVisible)
    Q_PROPERTY(ResizeMode resizeMode READ resizeMode WRITE setResizeMode)
    Q_PROPERTY(int splitterPosition READ splitterPosition WRITE setSplitterPosition)
    Q_PROPERTY(bool propertiesWithoutValueMarked READ propertiesWithoutValueMarked WRITE
                   setPropertiesWithoutValueMarked)
public:
    /// How the name column's width follows the browser; the values match QHeaderView's.
    enum ResizeMode { Interactive, Stretch, Fixed, ResizeToContents };
    Q_ENUM(ResizeMode)

    /// Creates an empty tree browser.
    explicit QtTreePropertyBrowser(QWidget* parent = nullptr);
    /// Destroys the view before the items it shows.
    ~QtTreePropertyBrowser() override;

    /// The indentation of each level, in pixels.
    int indentation() const;
    /// Sets the indentation of each level, in pixels.
    void setIndentation(int indentation);

    /// Whether top-level rows show expand and collapse controls.
    bool rootIsDecorated() const;
    /// Shows or hides the expand and collapse controls of top-level rows.
    void setRootIsDecorated(bool show);

    /// Whether rows alternate their background colour.
    bool alternatingRowColors() const;
    /// Makes rows alternate their background colour, or not.
    void setAlternatingRowColors(bool enable);

    /// Whether the column header shows.
    bool isHeaderVisible() const;
    /// Shows or hides the column header.
    void setHeaderVisible(bool visible);

    /// How the name column's width is set.
    ResizeMode resizeMode() const;
    /// Sets how the name column's width is set.
    void setResizeMode(ResizeMode mode);

    /// The width of the name column.
    int splitterPosition() const;
    /// Sets the width of the name column.
    void setSplitterPosition(int position);

    /// Expands or collapses @p item; kept per item.
    void setExpanded(QtBrowserItem* item, bool expanded);
    /// Whether @p item is expanded; items start expanded.
    bool isExpanded(QtBrowserItem* item) const;

    /// Whether the row of @p item shows.
    bool isItemVisible(QtBrowserItem* item) const;
    /// Shows or hides the row of @p item, with its children.
    void setItemVisible(QtBrowserItem* item, bool visible);

    /// Sets the background colour of @p item's row and of the rows below it without their own.
    void setBackgroundColor(QtBrowserItem* item, const QColor& color);
    /// The background colour set for @p item, or an invalid colour.
    QColor backgroundColor(QtBrowserItem* item) const;
    /// The colour @p item's row is painted with: its own or the nearest ancestor's.
    QColor calculatedBackgroundColor(QtBrowserItem* item) const;

    /// Paints the rows of properties without a value (groups) in the palette's dark colour.
    void setPropertiesWithoutValueMarked(bool mark);
    /// Whether rows of properties without a value are marked.
    bool propertiesWithoutValueMarked() const;

    /// Makes @p item current and opens its editor in the value column.
    void editItem(QtBrowserItem* item);

    /// Sets the size of the icons in the rows.
    void setIconSize(const QSize& size);
    /// Sets the least height of a row, in pixels.
    void setItemMinimumHeight(int height);
    /// Installs @p renderer, which the delegate calls for every cell it paints (see
    /// QtPropertyAbstractCustomRenderer for the call pattern); null removes it. The browser
    /// does not own it.
    void setCustomRenderer(QtPropertyAbstractCustomRenderer* renderer);

signals:
    /// @p item was collapsed.
    void collapsed(QtBrowserItem* item);
    /// @p item was expanded.
    void expanded(QtBrowserItem* item);
    /// A mouse press, release or double click on the row of @p item, in either column.
    void mouseEventSignal(QMouseEvent* event, QtBrowserItem* item);

protected:
    void itemInserted(QtBrowserItem* item, QtBrowserItem* afterItem) override;
    void itemRemoved(QtBrowserItem* item) override;
    void itemChanged(QtBrowserItem* item) override;

private:
    friend class QtPropertyTreeDelegate;
    friend class QtPropertyTreeView;

    /// The item of a model index, or null.
    QtBrowserItem* itemAt(const QModelIndex& index) const;
    /// The model index of @p item in @p column.
    QModelIndex indexOf(QtBrowserItem* item, int column) const;
    /// The renderer, or null.
    QtPropertyAbstractCustomRenderer* customRenderer() const;
    /// The least height of a row.
    int itemMinimumHeight() const;
    /// Creates the editor of @p item for the delegate.
    QWidget* createItemEditor(QtBrowserItem* item, QWidget* parent);

    void onViewCurrentChanged(const QModelIndex& current);
    void onBrowserCurrentChanged(QtBrowserItem* item);
    void onViewExpanded(const QModelIndex& index);
    void onViewCollapsed(const QModelIndex& index);

    QtPropertyTreeView* m_poView;
    QtPropertyTreeDelegate* m_poDelegate;
    QtPropertyAbstractCustomRenderer* m_poRenderer = nullptr;
    // Clears m_poRenderer when a renderer that is also a QObject is destroyed.
    QMetaObject::Connection m_oRendererConnection;
    // Items start expanded, so only the collapsed ones are remembered.
    QSet<QtBrowserItem*> m_hCollapsed;
    QHash<QtBrowserItem*, QColor> m_hBackgroundColors;
    ResizeMode m_eResizeMode = Stretch;
    int m_iItemMinimumHeight = 0;
    bool m_bMarkPropertiesWithoutValue = false;
    // Guards the two-way sync of the current item between browser and view.
    bool m_bSyncingCurrent = false;
};

#endif
