#include "qtframecache.h"

#include "qttargetpixelratio.h"

#include <QFrame>
#include <QPainter>
#include <QStyleOption>

#include <cmath>

bool QtFrameCache::Key::operator==(const Key& other) const
{
    return size == other.size && frameRect == other.frameRect && contentsRect == other.contentsRect
        && frameStyle == other.frameStyle && lineWidth == other.lineWidth
        && midLineWidth == other.midLineWidth && state == other.state
        && direction == other.direction && palette == other.palette && style == other.style
        && ratio == other.ratio;
}

QtFrameCache::Key QtFrameCache::keyOf(const QFrame* frame, qreal ratio)
{
    // The state and palette as the style will see them, resolved the way QFrame resolves them.
    QStyleOption option;
    option.initFrom(frame);
    Key key;
    key.size = frame->size();
    key.frameRect = frame->frameRect();
    key.contentsRect = frame->contentsRect();
    key.frameStyle = frame->frameStyle();
    key.lineWidth = frame->lineWidth();
    key.midLineWidth = frame->midLineWidth();
    key.state = option.state;
    key.direction = option.direction;
    key.palette = option.palette.cacheKey();
    key.style = frame->style();
    key.ratio = ratio;
    return key;
}

void QtFrameCache::paint(QPainter* painter, const QFrame* frame,
                         const std::function<void(QPainter*)>& drawFrame)
{
    const qreal ratio = qtTargetPixelRatio(painter);
    // Kept pixels can be put back only where logical pixels start on whole device pixels.
    if (ratio != std::floor(ratio)) {
        drawFrame(painter);
        return;
    }
    const Key key = keyOf(frame, ratio);
    if (!m_bFilled || !(key == m_oKey)) {
        m_oKey = key;
        fill(frame, drawFrame);
    }
    for (const Band& band : m_aBands) {
        if (!band.pixels.isNull())
            painter->drawImage(band.rect.topLeft(), band.pixels);
    }
}

void QtFrameCache::clear()
{
    m_bFilled = false;
    m_aBands = {};
}

void QtFrameCache::fill(const QFrame* frame, const std::function<void(QPainter*)>& drawFrame)
{
    const QRect outer = frame->rect();
    // A logical pixel into the contents too: at a higher pixel density a style's frame line,
    // centred on the border's inner edge, reaches half a pixel into them, over the corner of the
    // scroll bars. The rest of that pixel is covered by the children.
    const QRect inner = frame->contentsRect().adjusted(1, 1, -1, -1);
    m_aBands = {};
    if (inner.isEmpty()) {
        m_aBands[0].rect = outer;
    } else {
        m_aBands[0].rect
            = QRect(outer.left(), outer.top(), outer.width(), inner.top() - outer.top());
        m_aBands[1].rect = QRect(outer.left(), inner.bottom() + 1, outer.width(),
                                 outer.bottom() - inner.bottom());
        m_aBands[2].rect
            = QRect(outer.left(), inner.top(), inner.left() - outer.left(), inner.height());
        m_aBands[3].rect
            = QRect(inner.right() + 1, inner.top(), outer.right() - inner.right(), inner.height());
    }
    const QPalette& palette = frame->palette();
    for (Band& band : m_aBands) {
        if (band.rect.isEmpty())
            continue;
        band.pixels = QImage(band.rect.size() * m_oKey.ratio, QImage::Format_ARGB32_Premultiplied);
        band.pixels.setDevicePixelRatio(m_oKey.ratio);
        band.pixels.fill(Qt::transparent);
        QPainter painter(&band.pixels);
        // As a painter opened on the widget starts.
        painter.setPen(QPen(palette.brush(frame->foregroundRole()), 1));
        painter.setBackground(palette.brush(frame->backgroundRole()));
        painter.setFont(frame->font());
        painter.setLayoutDirection(frame->layoutDirection());
        painter.translate(-band.rect.topLeft());
        drawFrame(&painter);
    }
    m_bFilled = true;
}
