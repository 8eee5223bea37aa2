#ifndef QTFRAMECACHE_H
#define QTFRAMECACHE_H

#include <QImage>
#include <QRect>
#include <QStyle>

#include <array>
#include <functional>

class QFrame;
class QPainter;

/// Keeps the pixels of a frame's border, so that a widget painted whole again at the same size
/// and look puts them back instead of having the style draw them. The raster engine draws a
/// style's one-pixel frame lines pixel by pixel, which was half the cost of painting a browser.
class QtFrameCache
{
public:
    /// Draws the border of @p frame, the bands between its rectangle and its contents, with
    /// @p painter. @p drawFrame draws the frame as the widget would, with the painter it is given;
    /// it is called when something the frame's look depends on changed, and at every paint for
    /// a device whose pixel ratio is not a whole number.
    void paint(QPainter* painter, const QFrame* frame,
               const std::function<void(QPainter*)>& drawFrame);
    /// Forgets the kept pixels, for a style that changed its look and said so.
    void clear();

private:
    /// Everything the style is given when it draws a frame.
    struct Key
    {
        QSize size;
        QRect frameRect;
        QRect contentsRect;
        int frameStyle = 0;
        int lineWidth = 0;
        int midLineWidth = 0;
        QStyle::State state;
        Qt::LayoutDirection direction = Qt::LeftToRight;
        qint64 palette = 0;
        const QStyle* style = nullptr;
        qreal ratio = 0;

        bool operator==(const Key& other) const;
    };
    /// One band of the border and its pixels.
    struct Band
    {
        QRect rect;
        QImage pixels;
    };

    static Key keyOf(const QFrame* frame, qreal ratio);
    void fill(const QFrame* frame, const std::function<void(QPainter*)>& drawFrame);

    Key m_oKey;
    bool m_bFilled = false;
    std::array<Band, 4> m_aBands;
};

#endif
