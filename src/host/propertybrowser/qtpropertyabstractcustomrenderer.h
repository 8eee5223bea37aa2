#ifndef QTPROPERTYABSTRACTCUSTOMRENDERER_H
#define QTPROPERTYABSTRACTCUSTOMRENDERER_H

class QItemDelegate;
class QModelIndex;
class QPainter;
class QStyleOptionViewItem;
class QtProperty;

/// Paints extras into the cells of a QtTreePropertyBrowser and adjusts how the cell is painted.
///
/// Call pattern: for every cell it paints, the tree's delegate calls drawCustom() before it
/// paints the cell's text, once for a name cell (column 0) and twice in a row for a value cell
/// (column 1), both times with the same painter and the same option object. It then paints
/// the cell with that option, so a changed palette, font or rectangle takes effect.
///
/// A row of a property without a value (a group) has one cell, its name across both columns:
/// it gets the single call of a name cell, with the option's rectangle reaching to the end of
/// the value column, and no value-cell calls.
///
/// The two calls per value cell let a renderer that toggles a flag on every call, and draws
/// only when the flag was false, draw exactly once per value cell: of two consecutive calls
/// exactly one finds the flag false, whatever state earlier paints, full or partial, left.
///
/// A name cell's lowest kNameStripHeight pixels are the renderer's, for what it draws under the
/// name: the delegate lays the name and its icon out above them, the value on the same line,
/// and makes rows that much taller. This is an addition of this library, as the renderer
/// itself is.
///
/// The class is not a QObject; a concrete renderer that also derives from QObject and has the
/// browser as its parent lives as long as the browser, and the browser forgets it if it goes.
class QtPropertyAbstractCustomRenderer
{
public:
    /// The height of the strip at the foot of a name cell that is left to the renderer.
    static constexpr int kNameStripHeight = 8;

    virtual ~QtPropertyAbstractCustomRenderer() = default;

    /// Paints extras of the cell @p index of @p property and may change @p option, which the
    /// delegate then paints the cell with; @p delegate is the tree's delegate.
    virtual void drawCustom(QPainter* painter, QStyleOptionViewItem& option,
                            const QModelIndex& index, const QItemDelegate& delegate,
                            QtProperty* property)
        = 0;
};

#endif
