#include "controls/wslider.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <cstdint>
#include <limits>

namespace {

// Pointer coordinates come from events and may be anything; differences of them are taken in
// 64 bits and brought back into int range instead of overflowing.
int clampToInt(qint64 value)
{
    if (value < std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    if (value > std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    return static_cast<int>(value);
}

// 32-bit two's complement addition and subtraction that wrap instead of overflowing; a range that
// starts at the lowest int makes the distance of a non-negative value wrap.
int wrapAdd(int a, int b)
{
    return static_cast<int>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

int wrapSub(int a, int b)
{
    return static_cast<int>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

// Snaps @p value to the grid of @p step. The grid is laid from the minimum for non-negative
// values and from the maximum for negative ones, so both ends of a range stay reachable.
int snapToStep(int value, int minimum, int maximum, int step)
{
    if (maximum <= minimum)
        return value;
    if (value <= minimum)
        return minimum;
    if (value >= maximum)
        return maximum;
    if (step <= 0)
        return value;
    int result;
    if (value >= 0) {
        const int distance = wrapSub(value, minimum);
        result = wrapSub(wrapAdd(minimum, distance), distance % step);
    } else {
        const int distance = wrapSub(maximum, value);
        result = wrapSub(maximum, wrapSub(distance, distance % step));
    }
    if (result < minimum)
        result = minimum;
    if (result > maximum)
        result = maximum;
    return result;
}

} // namespace

WSlider::WSlider(QWidget* parent)
    : QSlider(parent)
    , m_iPressedControl(0)
    , m_iClickOffset(0)
{ }

int WSlider::axisCoordinate(const QPoint& point) const
{
    return orientation() == Qt::Horizontal ? point.x() : point.y();
}

QRect WSlider::oHandleRect() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
}

int WSlider::pixelPosToRangeValue(int pos) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove
        = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const QRect handle
        = style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    qint64 grooveFirst;
    qint64 grooveLast;
    qint64 handleLength;
    if (orientation() == Qt::Horizontal) {
        grooveFirst = groove.x();
        grooveLast = groove.right();
        handleLength = qint64(handle.right()) - handle.x();
    } else {
        grooveFirst = groove.y();
        grooveLast = groove.bottom();
        handleLength = qint64(handle.bottom()) - handle.y();
    }
    const int value = QStyle::sliderValueFromPosition(
        minimum(), maximum(), clampToInt(pos - grooveFirst),
        clampToInt(grooveLast - handleLength - grooveFirst), option.upsideDown);
    // The toolkit leaves the value between steps; a slider of coarse steps must land on one.
    return snapToStep(value, minimum(), maximum(), singleStep());
}

void WSlider::vJumpTo(int pointer)
{
    const QRect handle = oHandleRect();
    const qint64 centre = axisCoordinate(handle.center());
    const qint64 leading = axisCoordinate(handle.topLeft());
    setSliderPosition(pixelPosToRangeValue(clampToInt(pointer - (centre - leading))));
    // Commits the position at once, with tracking off too: a jump is a finished choice.
    triggerAction(SliderMove);
    setRepeatAction(SliderNoAction, 500, 50);
}

void WSlider::mousePressEvent(QMouseEvent* ev)
{
    // An empty range has nowhere to go, and a chord of buttons is no clear gesture.
    if (maximum() == minimum() || ev->buttons() != ev->button()) {
        ev->ignore();
        return;
    }
    ev->accept();
    const int button = static_cast<int>(ev->button());
    const int pointer = axisCoordinate(ev->pos());
    if ((button & style()->styleHint(QStyle::SH_Slider_AbsoluteSetButtons, nullptr, this))
        == button) {
        vJumpTo(pointer);
        m_iPressedControl = QStyle::SC_SliderHandle;
        update();
    } else if ((button & style()->styleHint(QStyle::SH_Slider_PageSetButtons, nullptr, this))
               == button) {
        QStyleOptionSlider option;
        initStyleOption(&option);
        m_iPressedControl
            = style()->hitTestComplexControl(QStyle::CC_Slider, &option, ev->pos(), this);
        // Paging through a range of billions is useless; the groove click jumps instead, and
        // does not turn into a drag.
        if (m_iPressedControl == QStyle::SC_SliderGroove)
            vJumpTo(pointer);
    } else {
        ev->ignore();
        return;
    }
    if (m_iPressedControl == QStyle::SC_SliderHandle) {
        setRepeatAction(SliderNoAction, 500, 50);
        const QRect handle = oHandleRect();
        m_iClickOffset = clampToInt(qint64(pointer) - axisCoordinate(handle.topLeft()));
        update(handle);
        setSliderDown(true);
    }
}

void WSlider::mouseMoveEvent(QMouseEvent* ev)
{
    if (m_iPressedControl != QStyle::SC_SliderHandle) {
        ev->ignore();
        return;
    }
    ev->accept();
    const qint64 leading = qint64(axisCoordinate(ev->pos())) - m_iClickOffset;
    setSliderPosition(pixelPosToRangeValue(clampToInt(leading)));
}

void WSlider::mouseReleaseEvent(QMouseEvent* ev)
{
    // The gesture ends only when the last button goes up.
    if (m_iPressedControl == 0 || ev->buttons() != Qt::NoButton) {
        ev->ignore();
        return;
    }
    ev->accept();
    const auto released = static_cast<QStyle::SubControl>(m_iPressedControl);
    m_iPressedControl = 0;
    setRepeatAction(SliderNoAction, 500, 50);
    if (released == QStyle::SC_SliderHandle)
        setSliderDown(false);
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.subControls = released;
    update(style()->subControlRect(QStyle::CC_Slider, &option, released, this));
}

void WSlider::wheelEvent(QWheelEvent* ev)
{
    ev->ignore();
    // The dominant direction of the wheel, as the toolkit's single delta reads it.
    const QPoint angle = ev->angleDelta();
    const qint64 horizontal = angle.x();
    const qint64 vertical = angle.y();
    const qint64 delta
        = (horizontal < 0 ? -horizontal : horizontal) > (vertical < 0 ? -vertical : vertical)
        ? horizontal
        : vertical;
    if (delta == 0)
        return;
    // One notch is one step, however far the wheel turned: in a wide range the toolkit's
    // accumulated scrolling would race through huge distances.
    const bool up = (delta > 0) != invertedControls();
    triggerAction(up ? SliderSingleStepAdd : SliderSingleStepSub);
    ev->accept();
}

void WSlider::keyPressEvent(QKeyEvent* ev)
{
    // The page keys step singly for the same reason as the wheel.
    switch (ev->key()) {
    case Qt::Key_PageUp:
        triggerAction(invertedControls() ? SliderSingleStepSub : SliderSingleStepAdd);
        break;
    case Qt::Key_PageDown:
        triggerAction(invertedControls() ? SliderSingleStepAdd : SliderSingleStepSub);
        break;
    default:
        QAbstractSlider::keyPressEvent(ev);
        break;
    }
}
