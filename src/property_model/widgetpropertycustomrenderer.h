#ifndef PROPERTYBROWSER_WIDGETPROPERTYCUSTOMRENDERER_H
#define PROPERTYBROWSER_WIDGETPROPERTYCUSTOMRENDERER_H

#include "qtpropertyabstractcustomrenderer.h"

#include <QBrush>
#include <QObject>
#include <QRect>

class QtTreePropertyBrowser;

namespace PropertyBrowser {

/// Paints what the property tree adds to a plain row: the value bar with its marker under the
/// name of a numeric row, the browse button at the right end of the value cell, and the text
/// colours and font that follow the node's state. The tree's delegate calls it before it paints
/// a cell and then paints with the option changed here.
///
/// The members are written while painting, so one renderer must paint one view only.
class WidgetPropertyCustomRenderer : public QtPropertyAbstractCustomRenderer, public QObject
{
public:
    /// @p parent is the browser whose rows are painted; a parent that is not a
    /// QtTreePropertyBrowser leaves the bars without indentation.
    explicit WidgetPropertyCustomRenderer(QObject* parent);

    void drawCustom(QPainter* painter, QStyleOptionViewItem& option, const QModelIndex& index,
                    const QItemDelegate& delegate, QtProperty* property) override;

    /// Draws the browse button on one of each pair of value-cell calls, and keeps the text off it.
    void drawBrowseButton(QPainter* painter, QStyleOptionViewItem& option, const QModelIndex& index,
                          QtProperty* property);
    /// Column 0: the font and the value bar; any other column: the text colours.
    void drawValueBars(QPainter* painter, QStyleOptionViewItem& option, const QModelIndex& index,
                       QtProperty* property);
    /// Fills the whole strip with @p brush.
    void drawEmptyBar(QPainter* painter, QBrush brush) const;
    /// The strip in dark gray with the range part in light gray.
    void drawRangeBar(QPainter* painter) const;
    /// The marker at @p position: 0 is the left end of the range, 1 the right end.
    void drawMarker(QPainter* painter, double position) const;
    /// The depth of @p property's row: 0 when the browser shows no item for it.
    int propertyLevel(QtProperty* property) const;

private:
    QRect barRect;
    QRect rangeRect;
    QtTreePropertyBrowser* browser;
    bool skipButton = false;
};

} // namespace PropertyBrowser

#endif
