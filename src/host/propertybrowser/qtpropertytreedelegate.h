#ifndef QTPROPERTYTREEDELEGATE_H
#define QTPROPERTYTREEDELEGATE_H

#include <QIcon>
#include <QItemDelegate>

class QtTreePropertyBrowser;

/// Paints the cells of a QtTreePropertyBrowser, calling its custom renderer first, and creates
/// editors through the browser. Editors commit through their managers, not through the model.
class QtPropertyTreeDelegate : public QItemDelegate
{
    Q_OBJECT
public:
    /// Creates the delegate of @p browser as its child.
    explicit QtPropertyTreeDelegate(QtTreePropertyBrowser* browser);

    /// Paints the cell, after the custom renderer had its calls.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// The cell's size, at least the browser's minimum row height.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// The editor the browser creates for the cell's property, or null.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// Does nothing: the factory fills its editor from the manager.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Does nothing: the factory's editor writes to the manager as it changes.
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

protected:
    void drawDecoration(QPainter* painter, const QStyleOptionViewItem& option, const QRect& rect,
                        const QPixmap& pixmap) const override;

private:
    QtTreePropertyBrowser* m_poBrowser;
    // The icon of the cell being painted: drawDecoration() renders it at the painter's pixel
    // ratio, where the base class would scale up a pixmap made for ratio 1.
    mutable QIcon m_oPaintedIcon;
};

#endif
