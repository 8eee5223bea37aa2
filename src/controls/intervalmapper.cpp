#include "controls/intervalmapper.h"

#include <cmath>
#include <limits>

static_assert(std::numeric_limits<double>::is_iec559, "the slider mapping needs IEEE doubles");

namespace {

const long kWidgetMin = std::numeric_limits<int>::min();
const long kWidgetMax = std::numeric_limits<int>::max();
// 2^63: the first double beyond the signed 64-bit range.
const double kTwoTo63 = 9223372036854775808.0;

unsigned long ceilDivide(unsigned long dividend, unsigned long divisor)
{
    return dividend / divisor + (dividend % divisor != 0 ? 1 : 0);
}

// Halving brings a number of 2^63 or more within the signed conversion; the bit shifted out stays
// as a sticky bit, so the result is still rounded only once.
double unsignedToDouble(unsigned long value)
{
    if (value <= static_cast<unsigned long>(std::numeric_limits<long>::max()))
        return static_cast<double>(static_cast<long>(value));
    const unsigned long halved = (value >> 1) | (value & 1);
    return 2.0 * static_cast<double>(static_cast<long>(halved));
}

// Truncates toward zero; out-of-range results give what the hardware conversion gives, the
// lowest value, without relying on a conversion that the language leaves undefined.
long truncateToLong(double value)
{
    if (!(value < kTwoTo63) || value < -kTwoTo63)
        return std::numeric_limits<long>::min();
    return static_cast<long>(value);
}

} // namespace

IntervalMapper::IntervalMapper(Interval const& iData)
    : m_oIData(iData)
    , m_oWidget(0, 100, 1)
    , m_ulStepMultiplier(0)
{
    refresh();
}

unsigned long IntervalMapper::stepMultiplier() const
{
    const unsigned long widgetCount = m_oWidget.cachedStepCount();
    if (widgetCount == 0)
        return 0;
    return ceilDivide(m_oIData.cachedStepCount(), widgetCount);
}

void IntervalMapper::refresh()
{
    m_oWidget = Interval(kWidgetMin, kWidgetMax, 1);
    m_oWidget.setStepCount();
    m_oIData.setStepCount();
    m_ulStepMultiplier = stepMultiplier();

    const unsigned long dataCount = m_oIData.cachedStepCount();
    if (dataCount >= m_oWidget.cachedStepCount()) {
        m_ulStepMultiplier = stepMultiplier();
        return;
    }
    // Fewer data steps than slider positions: one widget step per data step.
    m_ulStepMultiplier = 1;
    m_oWidget = Interval(kWidgetMin, kWidgetMin + static_cast<long>(dataCount), 1);
    m_oWidget.setStepCount();
}

unsigned long IntervalMapper::iDataValueToWidgetSteps(long value) const
{
    const unsigned long multiplier = stepMultiplier();
    const unsigned long stride = static_cast<unsigned long>(m_oIData.step());
    // A zero step leaves no data steps, as in Interval, so the value sits on the widget min.
    if (multiplier == 0 || stride == 0)
        return 0;
    const unsigned long distance = static_cast<unsigned long>(m_oIData.span(value));
    // Only the remainder of the step rounds up; the one of the multiplier is dropped on purpose.
    return distance / stride / multiplier + (distance % stride != 0 ? 1 : 0);
}

long IntervalMapper::valueToWidget(long value) const
{
    const unsigned long sum
        = static_cast<unsigned long>(m_oWidget.min()) + iDataValueToWidgetSteps(value);
    long position = static_cast<long>(sum);
    if (position < m_oWidget.min())
        position = m_oWidget.min();
    if (position > m_oWidget.max())
        position = m_oWidget.max();
    return position;
}

unsigned long IntervalMapper::widgetValueToIDataSteps(long value) const
{
    return m_oWidget.valueToSteps(value) * stepMultiplier();
}

long IntervalMapper::valueFromWidget(long value) const
{
    const double min = static_cast<double>(m_oIData.min());
    const double max = static_cast<double>(m_oIData.max());
    const double steps = unsignedToDouble(widgetValueToIDataSteps(value));
    const double step = static_cast<double>(m_oIData.step());
    // One rounding for the whole product and sum.
    double result = std::fma(step, steps, min);
    if (result < min)
        result = min;
    if (result > max)
        result = max;
    return truncateToLong(result);
}
