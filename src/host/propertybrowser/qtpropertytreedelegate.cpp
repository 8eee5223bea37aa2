#include "qtpropertytreedelegate.h"

#include "qtbrowseritem.h"
#include "qtpropertyabstractcustomrenderer.h"
#include "qttreepropertybrowser.h"

#include "qtbrowseritemmodel.h"
#include "qttargetpixelratio.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

namespace {

// Enough for the cells of many screens, few enough that the cache stays small.
const int kMaxShapedTexts = 4096;

QPalette::ColorGroup colorGroup(const QStyleOptionViewItem& option)
{
    if (!(option.state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return (option.state & QStyle::State_Active) ? QPalette::Normal : QPalette::Inactive;
}

QIcon::Mode iconMode(const QStyleOptionViewItem& option)
{
    if (!(option.state & QStyle::State_Enabled))
        return QIcon::Disabled;
    return (option.state & QStyle::State_Selected) ? QIcon::Selected : QIcon::Normal;
}

QIcon::State iconState(const QStyleOptionViewItem& option)
{
    return (option.state & QStyle::State_Open) ? QIcon::On : QIcon::Off;
}

} // namespace

QtPropertyTreeDelegate::QtPropertyTreeDelegate(QtTreePropertyBrowser* browser)
    : QItemDelegate(browser)
    , m_poBrowser(browser)
{ }

void QtPropertyTreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const
{
    const QtBrowserItem* item = m_poBrowser->itemAt(index);
    QtProperty* property = item->property();
    const bool hasValue = property->hasValue();
    QStyleOptionViewItem cellOption = option;
    if (property->isModified() && (index.column() == 0 || !hasValue)) {
        cellOption.font.setBold(true);
        cellOption.fontMetrics = QFontMetrics(cellOption.font);
    }
    if (!hasValue && m_poBrowser->propertiesWithoutValueMarked())
        cellOption.palette.setColor(QPalette::Text, option.palette.color(QPalette::BrightText));
    cellOption.state &= ~QStyle::State_HasFocus;
    int footHeight = 0;
    if (QtPropertyAbstractCustomRenderer* renderer = m_poBrowser->customRenderer()) {
        // Two calls for a value cell, one for a name cell: see QtPropertyAbstractCustomRenderer.
        const int calls = index.column() == 1 ? 2 : 1;
        for (int call = 0; call < calls; ++call)
            renderer->drawCustom(painter, cellOption, index, *this, property);
        // The value's text keeps the name's line, so that both read as one row.
        footHeight = QtPropertyAbstractCustomRenderer::kNameStripHeight;
    }
    paintCell(painter, cellOption, QtBrowserItemModel::displayText(item, index.column()),
              QtBrowserItemModel::decoration(item, index.column()), footHeight);
    if (index.column() == 0 && hasValue) {
        // The line between name and value; a row without a value spans both visually.
        const QStyle* style
            = cellOption.widget ? cellOption.widget->style() : QApplication::style();
        const QColor grid
            = static_cast<QRgb>(style->styleHint(QStyle::SH_Table_GridLineColor, &cellOption));
        const int x
            = option.direction == Qt::LeftToRight ? option.rect.right() : option.rect.left();
        painter->fillRect(QRect(x, option.rect.top(), 1, option.rect.height()), grid);
    }
}

QSize QtPropertyTreeDelegate::sizeHint(const QStyleOptionViewItem& option,
                                       const QModelIndex& index) const
{
    // A little air around the text, the renderer's strip under it, and at least the height the
    // browser was given.
    QSize size = QItemDelegate::sizeHint(option, index) + QSize(3, 4);
    if (m_poBrowser->customRenderer())
        size.rheight() += QtPropertyAbstractCustomRenderer::kNameStripHeight;
    size.setHeight(qMax(size.height(), m_poBrowser->itemMinimumHeight()));
    return size;
}

QWidget* QtPropertyTreeDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                              const QModelIndex& index) const
{
    QWidget* editor = m_poBrowser->createItemEditor(m_poBrowser->itemAt(index), parent);
    // The cell's text must not show through an editor that does not paint all of itself.
    if (editor)
        editor->setAutoFillBackground(true);
    return editor;
}

void QtPropertyTreeDelegate::updateEditorGeometry(QWidget* editor,
                                                   const QStyleOptionViewItem& option,
                                                   const QModelIndex&) const
{
    // The editor takes the whole cell: what the cell shows, its icon included, is what the
    // editor shows in its own way, and must not stand beside it twice.
    editor->setGeometry(option.rect);
}

void QtPropertyTreeDelegate::setEditorData(QWidget*, const QModelIndex&) const { }

void QtPropertyTreeDelegate::setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const
{ }

bool QtPropertyTreeDelegate::ShapedTextKey::operator==(const ShapedTextKey& other) const
{
    return width == other.width && alignment == other.alignment && direction == other.direction
        && text == other.text && font == other.font;
}

uint qHash(const QtPropertyTreeDelegate::ShapedTextKey& key, uint seed)
{
    seed = qHash(key.text, seed);
    seed = qHash(key.font, seed);
    return qHash(qMakePair(key.width, key.alignment), seed) ^ uint(key.direction);
}

void QtPropertyTreeDelegate::paintCell(QPainter* painter, const QStyleOptionViewItem& option,
                                       QString text, const QIcon& icon, int footHeight) const
{
    // Line breaks as QTextLayout takes them, as the base class converts them.
    if (text.contains(QLatin1Char('\n')))
        text.replace(QLatin1Char('\n'), QChar::LineSeparator);
    painter->save();
    painter->setClipRect(option.rect);
    QRect iconRect;
    if (!icon.isNull())
        iconRect
            = QRect(QPoint(0, 0),
                    icon.actualSize(option.decorationSize, iconMode(option), iconState(option)));
    // Rows are selected whole, so the text's own size places nothing: it gets the rest of the
    // cell after the decoration.
    QRect textRect;
    if (!text.isNull())
        textRect = QRect(0, 0, 1, 1);
    QRect checkRect;
    // Text and icon are laid out above the foot; the selection still fills the whole cell.
    QStyleOptionViewItem layoutOption = option;
    layoutOption.rect.setBottom(option.rect.bottom() - footHeight);
    doLayout(layoutOption, &checkRect, &iconRect, &textRect, false);
    if (option.state & QStyle::State_Selected)
        painter->fillRect(option.rect,
                          option.palette.brush(colorGroup(option), QPalette::Highlight));
    paintIcon(painter, layoutOption, iconRect, icon);
    paintText(painter, layoutOption, textRect, text);
    drawFocus(painter, layoutOption, textRect);
    painter->restore();
}

void QtPropertyTreeDelegate::paintIcon(QPainter* painter, const QStyleOptionViewItem& option,
                                       const QRect& rect, const QIcon& icon) const
{
    if (icon.isNull() || !rect.isValid())
        return;
    const qreal ratio = qtTargetPixelRatio(painter);
    QPixmap sharp = icon.pixmap(rect.size() * ratio, iconMode(option), iconState(option));
    sharp.setDevicePixelRatio(ratio);
    const QSize shown = sharp.size() / ratio;
    const QRect target
        = QStyle::alignedRect(option.direction, option.decorationAlignment, shown, rect);
    painter->drawPixmap(target, sharp);
}

void QtPropertyTreeDelegate::paintText(QPainter* painter, const QStyleOptionViewItem& option,
                                       const QRect& rect, const QString& text) const
{
    const QWidget* widget = option.widget;
    const QStyle* style = widget ? widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, widget) + 1;
    const QRect textRect = rect.adjusted(margin, 0, -margin, 0);
    // Text on several lines, wrapped, being edited or too long to fit takes the base class's
    // way, which elides and clips; a single line that fits is drawn from the kept layout.
    const bool oneLine = !text.isEmpty() && textRect.width() > 0
        && !(option.features & QStyleOptionViewItem::WrapText)
        && !(option.state & QStyle::State_Editing) && !text.contains(QChar::LineSeparator)
        && !text.contains(QChar::ParagraphSeparator);
    const ShapedText* shaped = oneLine ? &shapedText(option, text, textRect.width()) : nullptr;
    if (!shaped || textRect.width() < shaped->size.width()
        || textRect.height() < shaped->size.height()) {
        QItemDelegate::drawDisplay(painter, option, rect, text);
        return;
    }
    const QPalette::ColorGroup group = colorGroup(option);
    // The selection's fill is under the whole cell already.
    painter->setPen(option.palette.color(
        group, option.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text));
    const QSize layoutSize(textRect.width(), int(shaped->size.height()));
    const QRect layoutRect
        = QStyle::alignedRect(option.direction, option.displayAlignment, layoutSize, textRect);
    painter->setFont(option.font);
    painter->drawStaticText(layoutRect.topLeft(), shaped->staticText);
}

const QtPropertyTreeDelegate::ShapedText&
QtPropertyTreeDelegate::shapedText(const QStyleOptionViewItem& option, const QString& text,
                                   int width) const
{
    const Qt::Alignment alignment
        = QStyle::visualAlignment(option.direction, option.displayAlignment);
    const ShapedTextKey key {text, option.font, width, int(alignment), option.direction};
    const auto found = m_hShapedTexts.constFind(key);
    if (found != m_hShapedTexts.cend())
        return found.value();
    if (m_hShapedTexts.size() >= kMaxShapedTexts)
        m_hShapedTexts.clear();
    QTextOption textOption(alignment);
    textOption.setWrapMode(QTextOption::ManualWrap);
    textOption.setTextDirection(option.direction);
    // Measured as the base class measures, so that both take the same decision on eliding.
    QTextLayout layout(text, option.font);
    layout.setTextOption(textOption);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(width);
    layout.endLayout();
    ShapedText shaped;
    shaped.size = QSizeF(line.naturalTextWidth(), line.height());
    shaped.staticText.setTextFormat(Qt::PlainText);
    shaped.staticText.setTextOption(textOption);
    shaped.staticText.setTextWidth(width);
    shaped.staticText.setText(text);
    return m_hShapedTexts.insert(key, shaped).value();
}
