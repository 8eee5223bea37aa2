#ifndef QTPROPERTYTREEDELEGATE_H
#define QTPROPERTYTREEDELEGATE_H

#include <QFont>
#include <QHash>
#include <QIcon>
#include <QItemDelegate>
#include <QStaticText>

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
    /// Gives the editor the whole value cell.
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    /// Does nothing: the factory fills its editor from the manager.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Does nothing: the factory's editor writes to the manager as it changes.
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;

private:
    /// The cell's text, laid out once for a font, width and alignment, ready to draw again.
    struct ShapedText
    {
        QStaticText staticText;
        QSizeF size;
    };
    struct ShapedTextKey
    {
        QString text;
        QFont font;
        int width;
        int alignment;
        Qt::LayoutDirection direction;
        bool operator==(const ShapedTextKey& other) const;
    };
    friend uint qHash(const ShapedTextKey& key, uint seed);

    /// Paints what QItemDelegate::paint() paints for a cell of our model, which has no check
    /// state and no font, alignment, foreground or background roles, without the QVariant
    /// round trips and without measuring the text when the layout does not depend on it. Text
    /// and icon keep clear of the lowest @p footHeight pixels.
    void paintCell(QPainter* painter, const QStyleOptionViewItem& option, QString text,
                   const QIcon& icon, int footHeight) const;
    /// Paints @p icon into @p rect at the painter's pixel ratio, where the base class would
    /// scale up a pixmap made for ratio 1.
    void paintIcon(QPainter* painter, const QStyleOptionViewItem& option, const QRect& rect,
                   const QIcon& icon) const;
    /// Paints @p text as QItemDelegate::drawDisplay() does, from a layout kept from earlier
    /// paints when the text fits on one line.
    void paintText(QPainter* painter, const QStyleOptionViewItem& option, const QRect& rect,
                   const QString& text) const;
    /// The laid-out @p text for @p option, made on first use.
    const ShapedText& shapedText(const QStyleOptionViewItem& option, const QString& text,
                                 int width) const;

    QtTreePropertyBrowser* m_poBrowser;
    // Shaping is most of a cell's cost and the same texts are painted again and again; the
    // cache is emptied when it has grown to many screens of rows.
    mutable QHash<ShapedTextKey, ShapedText> m_hShapedTexts;
};

#endif
