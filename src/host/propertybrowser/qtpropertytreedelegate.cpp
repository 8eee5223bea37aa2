#include "qtpropertytreedelegate.h"

#include "qtbrowseritem.h"
#include "qtpropertyabstractcustomrenderer.h"
#include "qttreepropertybrowser.h"

#include <QApplication>
#include <QPaintEngine>
#include <QPainter>

QtPropertyTreeDelegate::QtPropertyTreeDelegate(QtTreePropertyBrowser* browser)
    : QItemDelegate(browser)
    , m_poBrowser(browser)
{ }

void QtPropertyTreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const
{
    QtProperty* property = m_poBrowser->itemAt(index)->property();
    const bool hasValue = property->hasValue();
    QStyleOptionViewItem cellOption = option;
    if (property->isModified() && (index.column() == 0 || !hasValue)) {
        cellOption.font.setBold(true);
        cellOption.fontMetrics = QFontMetrics(cellOption.font);
    }
    if (!hasValue && m_poBrowser->propertiesWithoutValueMarked())
        cellOption.palette.setColor(QPalette::Text, option.palette.color(QPalette::BrightText));
    cellOption.state &= ~QStyle::State_HasFocus;
    if (QtPropertyAbstractCustomRenderer* renderer = m_poBrowser->customRenderer()) {
        // Two calls for a value cell, one for a name cell: see QtPropertyAbstractCustomRenderer.
        const int calls = index.column() == 1 ? 2 : 1;
        for (int call = 0; call < calls; ++call)
            renderer->drawCustom(painter, cellOption, index, *this, property);
    }
    m_oPaintedIcon = qvariant_cast<QIcon>(index.data(Qt::DecorationRole));
    QItemDelegate::paint(painter, cellOption, index);
    m_oPaintedIcon = QIcon();
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
    // A little air around the text, and at least the height the browser was given.
    QSize size = QItemDelegate::sizeHint(option, index) + QSize(3, 4);
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

void QtPropertyTreeDelegate::setEditorData(QWidget*, const QModelIndex&) const { }

void QtPropertyTreeDelegate::setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const
{ }

void QtPropertyTreeDelegate::drawDecoration(QPainter* painter, const QStyleOptionViewItem& option,
                                            const QRect& rect, const QPixmap& pixmap) const
{
    if (m_oPaintedIcon.isNull() || !rect.isValid()) {
        QItemDelegate::drawDecoration(painter, option, rect, pixmap);
        return;
    }
    const QIcon::Mode mode = !(option.state & QStyle::State_Enabled) ? QIcon::Disabled
        : (option.state & QStyle::State_Selected)                    ? QIcon::Selected
                                                                     : QIcon::Normal;
    const QIcon::State state = (option.state & QStyle::State_Open) ? QIcon::On : QIcon::Off;
    // The engine's device is where the pixels go, also when a widget's painting is redirected
    // into an image by render() or grab().
    const QPaintEngine* engine = painter->paintEngine();
    const qreal ratio = (engine ? engine->paintDevice() : painter->device())->devicePixelRatioF();
    QPixmap sharp = m_oPaintedIcon.pixmap(rect.size() * ratio, mode, state);
    sharp.setDevicePixelRatio(ratio);
    const QSize shown = sharp.size() / ratio;
    const QRect target
        = QStyle::alignedRect(option.direction, option.decorationAlignment, shown, rect);
    painter->drawPixmap(target, sharp);
}
