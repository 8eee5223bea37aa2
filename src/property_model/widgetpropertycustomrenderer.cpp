#include "property_model/widgetpropertycustomrenderer.h"

#include "navigator/ditemnavpainter.h"
#include "property_model/widgetproperty.h"
#include "qtbrowseritem.h"
#include "qttreepropertybrowser.h"
#include "sdk/ditem.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QPolygonF>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionViewItem>
#include <QSvgRenderer>

#include <limits>

namespace PropertyBrowser {

namespace {

// The icon is made from its file at every drawing and kept nowhere. Rendered straight to a
// pixmap of the button's icon size, the file is read once; an icon made from the file name
// reads it once to check it and once more to draw it, which was most of a row's paint.
QIcon browseIcon(const QSize& size, qreal pixelRatio)
{
    QPixmap pixmap(size * pixelRatio);
    pixmap.setDevicePixelRatio(pixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(QStringLiteral(":/images/browse_settings.svg"))
        .render(&painter, QRectF(QPointF(), size));
    painter.end();
    return QIcon(pixmap);
}

} // namespace

WidgetPropertyCustomRenderer::WidgetPropertyCustomRenderer(QObject* parent)
    : QObject(parent)
    , browser(qobject_cast<QtTreePropertyBrowser*>(parent))
{ }

void WidgetPropertyCustomRenderer::drawCustom(QPainter* painter, QStyleOptionViewItem& option,
                                              const QModelIndex& index, const QItemDelegate&,
                                              QtProperty* property)
{
    drawBrowseButton(painter, option, index, property);
    drawValueBars(painter, option, index, property);
}

void WidgetPropertyCustomRenderer::drawBrowseButton(QPainter* painter, QStyleOptionViewItem& option,
                                                    const QModelIndex& index, QtProperty* property)
{
    // The delegate calls twice for each value cell; the flag lets exactly one of the two draw.
    if (index.column() == 1 && !skipButton && property) {
        painter->save();
        const auto* row = WidgetProperty::poRow(property);
        const Script::DItem* node = row ? row->node : nullptr;
        const std::pair<bool, bool> bar
            = row ? row->numeric_DisplayBar() : std::pair<bool, bool>(false, false);
        const bool editable = node && node->property("iIsEditable").toBool();
        if (editable || bar.first || bar.second) {
            const auto* widget = qobject_cast<const QWidget*>(option.styleObject);
            QStyle* style = widget ? widget->style() : QApplication::style();
            QStyleOptionButton button;
            button.rect = QRect(QPoint(option.rect.right() - 29, option.rect.top()),
                                QPoint(option.rect.right(), option.rect.bottom() - 1));
            button.iconSize = QSize(16, 16);
            button.icon = browseIcon(button.iconSize, painter->device()->devicePixelRatioF());
            style->drawControl(QStyle::CE_PushButton, &button, painter, nullptr);
            option.rect.setRight(option.rect.right() - 30);
        }
        painter->restore();
    }
    skipButton = !skipButton;
}

void WidgetPropertyCustomRenderer::drawValueBars(QPainter* painter, QStyleOptionViewItem& option,
                                                 const QModelIndex& index, QtProperty* property)
{
    const auto* row = WidgetProperty::poRow(property);
    const Script::DItem* node = row ? row->node : nullptr;
    painter->save();
    if (index.column() == 0) {
        if (node)
            option.font.setStyle(node->property("IData.IsGuiVisible").toBool()
                                     ? QFont::StyleNormal
                                     : QFont::StyleItalic);
        const QRect r = option.rect;
        barRect = QRect(QPoint(r.left(), r.bottom() - 3), QPoint(r.right(), r.bottom() - 1));
        const std::pair<bool, bool> bar
            = row ? row->numeric_DisplayBar() : std::pair<bool, bool>(false, false);
        if (node && bar.first) {
            if (!bar.second) {
                drawEmptyBar(painter, QBrush(Qt::lightGray));
            } else {
                const double minimum = node->property("IDataNumeric.DynamicMin").toDouble();
                const double maximum = node->property("IDataNumeric.DynamicMax").toDouble();
                const double value = node->property("IDataNumeric.DynamicValue").toDouble();
                const bool inError
                    = (node->ioType() == Script::DItem::IoOutput && node->hasErrorState())
                    || (node->ioType() == Script::DItem::IoInput && node->hasLinkError());
                if (inError) {
                    drawEmptyBar(painter, QBrush(Qt::darkRed));
                } else if (maximum == minimum) {
                    drawEmptyBar(painter, QBrush(value == minimum ? Qt::darkGreen : Qt::darkRed));
                } else {
                    // Only a range needs the row's depth, which costs a search of the browser's
                    // items. The cell starts after indentation * level pixels, so subtracting
                    // them keeps the range's right end 16 pixels short of the column's end.
                    const int indentation = browser ? browser->indentation() : 0;
                    rangeRect = QRect(QPoint(barRect.left() + 15, barRect.top()),
                                      QPoint(barRect.left() + r.right() - 16
                                                 - indentation * propertyLevel(property),
                                             barRect.top() + 2));
                    drawRangeBar(painter);
                    const double span = maximum - minimum;
                    drawMarker(painter,
                               span != 0.0 ? (value - minimum) / span
                                           : std::numeric_limits<double>::max());
                }
            }
        }
    } else if (node) {
        const QColor text = DItemNavPainter(*node).getTextColor();
        const bool colourEditable
            = node->iDataType() != QLatin1String("IDataGeoPoint") && node->isEditable();
        const QColor highlighted
            = (option.state & QStyle::State_Active) && !colourEditable ? QColor(Qt::white) : text;
        option.palette.setBrush(QPalette::All, QPalette::Text, QBrush(text));
        option.palette.setBrush(QPalette::All, QPalette::HighlightedText, QBrush(highlighted));
    }
    painter->restore();
}

void WidgetPropertyCustomRenderer::drawEmptyBar(QPainter* painter, QBrush brush) const
{
    painter->fillRect(barRect, brush);
}

void WidgetPropertyCustomRenderer::drawRangeBar(QPainter* painter) const
{
    drawEmptyBar(painter, QBrush(Qt::darkGray));
    painter->fillRect(rangeRect, QBrush(Qt::lightGray));
}

void WidgetPropertyCustomRenderer::drawMarker(QPainter* painter, double position) const
{
    painter->setPen(QPen(QBrush(Qt::darkBlue), 1.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(QBrush(Qt::darkBlue));
    // A value out of range keeps its marker, at a fixed distance beyond the range's end.
    double x = 0.0;
    if (position < 0.0)
        x = rangeRect.left() - 7.5;
    else if (position <= 1.0)
        x = rangeRect.left() + position * (rangeRect.right() - rangeRect.left() + 1);
    else
        x = rangeRect.right() + 7.5;
    const double y = rangeRect.bottom();
    const QPolygonF marker({QPointF(x, y), QPointF(x + 2, y - 5), QPointF(x - 2, y - 5)});
    painter->drawPolygon(marker, Qt::OddEvenFill);
}

int WidgetPropertyCustomRenderer::propertyLevel(QtProperty* property) const
{
    const QList<QtBrowserItem*> items
        = browser && property ? browser->items(property) : QList<QtBrowserItem*>();
    if (items.isEmpty())
        return 0;
    int level = 1;
    for (const QtBrowserItem* item = items.first()->parent(); item; item = item->parent())
        ++level;
    return level;
}

} // namespace PropertyBrowser
