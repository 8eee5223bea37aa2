#ifndef WSLIDER_H
#define WSLIDER_H

#include <QSlider>

/// A slider whose groove click jumps to the pointer instead of paging, and whose wheel notches
/// and page keys move by a single step.
///
/// The value controls use it where a page step would skip over most of a small range and where
/// a wide 64-bit range is mapped onto the slider, so that one page could be billions of values.
class WSlider : public QSlider
{
    Q_OBJECT

public:
    explicit WSlider(QWidget* parent = nullptr);

    /// Returns the value under the pixel @p pos along the slider's axis, snapped to the single
    /// step and clamped to the range.
    int pixelPosToRangeValue(int pos) const;

protected:
    void mousePressEvent(QMouseEvent* ev) override;
    void mouseReleaseEvent(QMouseEvent* ev) override;
    void mouseMoveEvent(QMouseEvent* ev) override;
    void wheelEvent(QWheelEvent* ev) override;
    void keyPressEvent(QKeyEvent* ev) override;

private:
    /// Returns the coordinate of @p point along the slider's axis.
    int axisCoordinate(const QPoint& point) const;

    /// Returns the handle's rectangle in the current style.
    QRect oHandleRect() const;

    /// Moves the handle so that its centre sits under @p pointer, committing the value.
    void vJumpTo(int pointer);

    // A QStyle::SubControl value; 0 while nothing is pressed.
    int m_iPressedControl;
    // Pixels from the handle's leading edge to the pointer when the drag began.
    int m_iClickOffset;
};

#endif
