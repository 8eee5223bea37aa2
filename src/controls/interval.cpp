#include "controls/interval.h"

#include <climits>

static_assert(sizeof(long) * CHAR_BIT == 64, "Interval needs a 64-bit long");

Interval::Interval(long min, long max, long step)
    : m_lMin(min)
    , m_lMax(max)
    , m_lStep(step)
    , m_lStepCount(0)
{
    setStepCount();
}

long Interval::span(long value) const
{
    // Unsigned subtraction wraps where the signed one would overflow.
    return static_cast<long>(static_cast<unsigned long>(value)
                             - static_cast<unsigned long>(m_lMin));
}

unsigned long Interval::valueToSteps(long value) const
{
    const unsigned long distance = static_cast<unsigned long>(span(value));
    const unsigned long stride = static_cast<unsigned long>(m_lStep);
    // A zero step covers nothing: reading it as no steps keeps the range a single point.
    if (stride == 0)
        return 0;
    return distance / stride + (distance % stride != 0 ? 1 : 0);
}

unsigned long Interval::stepCount() const
{
    return valueToSteps(m_lMax);
}

void Interval::setStepCount()
{
    m_lStepCount = static_cast<long>(stepCount());
}
