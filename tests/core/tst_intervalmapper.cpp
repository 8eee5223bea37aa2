#include "controls/intervalmapper.h"
#include "testsupport.h"

#include <QTest>

#include <algorithm>
#include <limits>
#include <random>
#include <type_traits>
#include <vector>

static_assert(std::is_copy_constructible<IntervalMapper>::value
                  && std::is_copy_assignable<IntervalMapper>::value,
              "the slider holds its mapper by value");

namespace {

const long kLongMin = std::numeric_limits<long>::min();
const long kLongMax = std::numeric_limits<long>::max();
const long kIntMin = std::numeric_limits<int>::min();
const long kIntMax = std::numeric_limits<int>::max();

// ---------------------------------------------------------------------------------------------
// An exact model of the mapping, in 128-bit integers. It follows the rules of the mapping one by
// one and never touches floating point: the double path is reproduced by rounding exact
// integers to 53 significant bits, to nearest with ties to even.

using u128 = unsigned __int128;
using i128 = __int128;

const u128 kTwoTo64 = u128(1) << 64;
const u128 kTwoTo63 = u128(1) << 63;
const u128 kLow64 = kTwoTo64 - 1;
const u128 kSliderSteps = (u128(1) << 32) - 1;

// The 64-bit pattern of a signed number, as an unsigned number below 2^64.
u128 bitsOf(long value)
{
    return u128(i128(value)) & kLow64;
}

// to - from, reduced modulo 2^64.
u128 wrappedDistance(long from, long to)
{
    return u128(i128(to) - i128(from)) & kLow64;
}

// The signed 64-bit number whose pattern is the low 64 bits of value.
long signedOf(u128 value)
{
    const u128 low = value & kLow64;
    return low >= kTwoTo63 ? long(i128(low) - i128(kTwoTo64)) : long(low);
}

u128 roundedUpQuotient(u128 dividend, u128 divisor)
{
    return divisor == 0 ? 0 : (dividend + divisor - 1) / divisor;
}

// An exact integer: a sign and a magnitude of up to 128 bits.
struct Exact
{
    bool negative;
    u128 magnitude;
};

Exact normalised(bool negative, u128 magnitude)
{
    return Exact {negative && magnitude != 0, magnitude};
}

Exact exactOf(long value)
{
    return value < 0 ? normalised(true, u128(-i128(value))) : normalised(false, u128(value));
}

Exact exactOfUnsigned(u128 value)
{
    return normalised(false, value);
}

Exact sum(Exact a, Exact b)
{
    if (a.negative == b.negative)
        return normalised(a.negative, a.magnitude + b.magnitude);
    if (a.magnitude >= b.magnitude)
        return normalised(a.negative, a.magnitude - b.magnitude);
    return normalised(b.negative, b.magnitude - a.magnitude);
}

Exact product(Exact a, Exact b)
{
    return normalised(a.negative != b.negative, a.magnitude * b.magnitude);
}

int compare(Exact a, Exact b)
{
    if (a.negative != b.negative)
        return a.negative ? -1 : 1;
    if (a.magnitude == b.magnitude)
        return 0;
    const bool smallerMagnitude = a.magnitude < b.magnitude;
    return (smallerMagnitude != a.negative) ? -1 : 1;
}

// The value of the nearest double, ties to even; the sign plays no part in that rounding.
Exact nearestDouble(Exact value)
{
    int bits = 0;
    for (u128 rest = value.magnitude; rest != 0; rest >>= 1)
        ++bits;
    if (bits <= 53)
        return value;
    const int dropped = bits - 53;
    u128 kept = value.magnitude >> dropped;
    const u128 remainder = value.magnitude & ((u128(1) << dropped) - 1);
    const u128 half = u128(1) << (dropped - 1);
    if (remainder > half || (remainder == half && (kept & 1) != 0))
        ++kept;
    return normalised(value.negative, kept << dropped);
}

// The mapper as the rules describe it.
struct ModelMapper
{
    ModelMapper(long minimum, long maximum, long stride)
        : min(minimum)
        , max(maximum)
        , step(stride)
    {
        dataCount = roundedUpQuotient(wrappedDistance(min, max), bitsOf(step));
        if (dataCount >= kSliderSteps) {
            widgetCount = kSliderSteps;
            widgetMax = kIntMax;
            storedMultiplier = roundedUpQuotient(dataCount, widgetCount);
        } else {
            widgetCount = dataCount;
            widgetMax = kIntMin + long(dataCount);
            storedMultiplier = 1;
        }
        multiplier = widgetCount == 0 ? 0 : roundedUpQuotient(dataCount, widgetCount);
    }

    u128 widgetSteps(long value) const
    {
        const u128 stride = bitsOf(step);
        if (multiplier == 0 || stride == 0)
            return 0;
        const u128 distance = wrappedDistance(min, value);
        return ((distance / stride) / multiplier + (distance % stride != 0 ? 1 : 0)) & kLow64;
    }

    long toWidget(long value) const
    {
        const long position = signedOf(bitsOf(kIntMin) + widgetSteps(value));
        return std::min(std::max(position, kIntMin), widgetMax);
    }

    u128 dataSteps(long position) const
    {
        return (wrappedDistance(kIntMin, position) * multiplier) & kLow64;
    }

    long fromWidget(long position) const
    {
        const Exact low = nearestDouble(exactOf(min));
        const Exact high = nearestDouble(exactOf(max));
        const Exact steps = nearestDouble(exactOfUnsigned(dataSteps(position)));
        const Exact stride = nearestDouble(exactOf(step));
        Exact result = nearestDouble(sum(product(stride, steps), low));
        if (compare(result, low) < 0)
            result = low;
        if (compare(result, high) > 0)
            result = high;
        const bool representable
            = result.negative ? result.magnitude <= kTwoTo63 : result.magnitude < kTwoTo63;
        if (!representable)
            return kLongMin;
        return result.negative ? long(-i128(result.magnitude)) : long(result.magnitude);
    }

    long min;
    long max;
    long step;
    u128 dataCount;
    u128 widgetCount;
    long widgetMax;
    u128 storedMultiplier;
    u128 multiplier;
};

QString decimal(u128 value)
{
    QString digits;
    do {
        digits.prepend(QChar('0' + int(value % 10)));
        value /= 10;
    } while (value != 0);
    return digits;
}

QString decimal(long value)
{
    return QString::number(value);
}

QString decimal(unsigned long value)
{
    return QString::number(value);
}

// Compares one result with the model and fails the test function with the inputs on a mismatch;
// the message is only built when needed, as the random runs compare millions of results.
#define COMPARE_MODEL(actual, expected, what)                                                      \
    do {                                                                                           \
        const auto actualValue = (actual);                                                         \
        const auto expectedValue = (expected);                                                     \
        ++comparisons;                                                                             \
        if (u128(actualValue) != u128(expectedValue)) {                                            \
            QFAIL(qPrintable(QStringLiteral("%1 for interval %2, %3, %4: got %5, model %6")        \
                                 .arg(what, decimal(model.min), decimal(model.max),                \
                                      decimal(model.step), decimal(actualValue),                   \
                                      decimal(expectedValue))));                                   \
        }                                                                                          \
    } while (false)

// ---------------------------------------------------------------------------------------------
// Reproducible random inputs.

class Inputs
{
public:
    explicit Inputs(unsigned long seed)
        : m_engine(seed)
    { }

    long any() { return long(m_engine()); }

    // Uniform in [low, high], both inclusive.
    long between(long low, long high)
    {
        const unsigned long width
            = static_cast<unsigned long>(high) - static_cast<unsigned long>(low);
        const unsigned long offset = width == std::numeric_limits<unsigned long>::max()
            ? m_engine()
            : std::uniform_int_distribution<unsigned long>(0, width)(m_engine);
        return signedOf(bitsOf(low) + offset);
    }

    // A number of random magnitude: small, medium or large numbers are all frequent.
    long anyMagnitude(long low, long high)
    {
        const int bits = int(between(1, 63));
        const long limit = bits == 63 ? kLongMax : (1L << bits) - 1;
        return std::max(low, std::min(high, between(std::max(low, -limit), std::min(high, limit))));
    }

    bool chance(int percent) { return between(0, 99) < percent; }

private:
    std::mt19937_64 m_engine;
};

struct Range
{
    long min;
    long max;
    long step;
};

Range randomRange(Inputs& in, const QString& kind)
{
    if (kind == "whole range") {
        const long steps[]
            = {1, in.between(1, 1000), in.between(1, 1L << 32), in.between(1, 1L << 62), kLongMax};
        return {in.between(kLongMin, kLongMin + (1L << 20)),
                in.between(kLongMax - (1L << 20), kLongMax), steps[in.between(0, 4)]};
    }
    if (kind == "narrow") {
        const long min = in.between(kLongMin, kLongMax - 1000000);
        return {min, min + in.between(0, 1000000), in.between(1, 1000)};
    }
    if (kind == "near the slider size") {
        const long step = in.chance(40) ? 1 : in.between(1, 1L << 20);
        const long target = long(kSliderSteps) + in.between(-3, 3);
        const long min = in.between(-(1L << 61), 1L << 61);
        return {min, min + step * target - in.between(0, step - 1), step};
    }
    if (kind == "steps that do not divide") {
        const long min = in.between(-(1L << 62), 1L << 62);
        const long step = in.between(2, 1L << 20);
        long width = in.anyMagnitude(1, 1L << 50);
        if (width % step == 0)
            ++width;
        return {min, min + width, step};
    }
    if (kind == "wide") {
        long a = in.any();
        long b = in.any();
        if (a > b)
            std::swap(a, b);
        return {a, b, in.anyMagnitude(1, 1L << 30)};
    }
    if (kind == "huge steps") {
        long a = in.any();
        long b = in.any();
        if (a > b)
            std::swap(a, b);
        return {a, b, in.between(1L << 53, kLongMax)};
    }
    if (kind == "negative steps") {
        long a = in.any();
        long b = in.any();
        if (a > b)
            std::swap(a, b);
        return {a, b, in.chance(50) ? -in.anyMagnitude(1, kLongMax) : kLongMin};
    }
    if (kind == "single point") {
        const long point = in.chance(20) ? (in.chance(50) ? kLongMin : kLongMax) : in.any();
        return {point, point, in.chance(10) ? 0 : in.any()};
    }
    // Anything at all, bounds in either order.
    return {in.any(), in.any(), in.chance(50) ? in.any() : in.anyMagnitude(kLongMin, kLongMax)};
}

} // namespace

class TestIntervalMapper : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void workedValues_data();
    void workedValues();

    void singlePoint_data();
    void singlePoint();

    void zeroStep_data();
    void zeroStep();

    void sliderSizeBoundary_data();
    void sliderSizeBoundary();

    void topOfAWideRange_data();
    void topOfAWideRange();

    void wholeSignedRange_data();
    void wholeSignedRange();

    void outOfRangeValues_data();
    void outOfRangeValues();

    void conversionsStayInTheirRanges_data();
    void conversionsStayInTheirRanges();

    void refreshAgainChangesNothing();
    void copiesAreIndependent();

    void agreesWithExactModel_data();
    void agreesWithExactModel();
};

void TestIntervalMapper::initTestCase()
{
    TestSupport::failOnWarnings();
}

void TestIntervalMapper::workedValues_data()
{
    QTest::addColumn<long>("min");
    QTest::addColumn<long>("max");
    QTest::addColumn<long>("step");
    QTest::addColumn<unsigned long>("stepCount");
    QTest::addColumn<long>("widgetMax");
    QTest::addColumn<unsigned long>("multiplier");
    QTest::addColumn<long>("value");
    QTest::addColumn<long>("slider");
    QTest::addColumn<long>("back");

    QTest::newRow("0..100 by 1") << 0L << 100L << 1L << 100UL << -2147483548L << 1UL << 37L
                                 << -2147483611L << 37L;
    QTest::newRow("0..10 by 3, between steps")
        << 0L << 10L << 3L << 4UL << -2147483644L << 1UL << 7L << -2147483645L << 9L;
    QTest::newRow("0..10 by 3, at max")
        << 0L << 10L << 3L << 4UL << -2147483644L << 1UL << 10L << -2147483644L << 10L;
    QTest::newRow("-5..5 by 2") << -5L << 5L << 2L << 5UL << -2147483643L << 1UL << 0L
                                << -2147483645L << 1L;
    QTest::newRow("0..2^32 by 1") << 0L << 4294967296L << 1L << 4294967296UL << 2147483647L << 2UL
                                  << 3L << -2147483647L << 2L;
    QTest::newRow("0..2^40 by 1, 10^12")
        << 0L << 1099511627776L << 1L << 1099511627776UL << 2147483647L << 257UL << 1000000000000L
        << 1743566935L << 999999999831L;
    QTest::newRow("0..2^40 by 1, at max")
        << 0L << 1099511627776L << 1L << 1099511627776UL << 2147483647L << 257UL << 1099511627776L
        << 2130771712L << 1099511627520L;
}

void TestIntervalMapper::workedValues()
{
    QFETCH(long, min);
    QFETCH(long, max);
    QFETCH(long, step);
    QFETCH(unsigned long, stepCount);
    QFETCH(long, widgetMax);
    QFETCH(unsigned long, multiplier);
    QFETCH(long, value);
    QFETCH(long, slider);
    QFETCH(long, back);

    const IntervalMapper mapper(Interval(min, max, step));
    QCOMPARE(mapper.iData().min(), min);
    QCOMPARE(mapper.iData().max(), max);
    QCOMPARE(mapper.iData().step(), step);
    QCOMPARE(mapper.iData().cachedStepCount(), stepCount);
    QCOMPARE(mapper.widget().min(), kIntMin);
    QCOMPARE(mapper.widget().max(), widgetMax);
    QCOMPARE(mapper.widget().step(), 1L);
    QCOMPARE(mapper.stepMultiplier(), multiplier);
    QCOMPARE(mapper.storedStepMultiplier(), multiplier);
    QCOMPARE(mapper.valueToWidget(value), slider);
    QCOMPARE(mapper.valueFromWidget(slider), back);
}

void TestIntervalMapper::singlePoint_data()
{
    QTest::addColumn<long>("point");
    QTest::addColumn<long>("step");
    QTest::addColumn<long>("back");

    QTest::newRow("zero") << 0L << 1L << 0L;
    QTest::newRow("positive, step 5") << 12345L << 5L << 12345L;
    QTest::newRow("lowest") << kLongMin << 1L << kLongMin;
    QTest::newRow("negative step") << -77L << -4L << -77L;
    // The way back goes through doubles: a point that has no double comes back rounded, and
    // the highest point rounds to 2^63, which wraps to the lowest value.
    QTest::newRow("2^53 + 1 rounds to even") << (1L << 53) + 1 << 1L << (1L << 53);
    QTest::newRow("highest") << kLongMax << 3L << kLongMin;
}

void TestIntervalMapper::singlePoint()
{
    QFETCH(long, point);
    QFETCH(long, step);
    QFETCH(long, back);

    const IntervalMapper mapper(Interval(point, point, step));
    QCOMPARE(mapper.iData().cachedStepCount(), 0UL);
    QCOMPARE(mapper.widget().min(), kIntMin);
    QCOMPARE(mapper.widget().max(), kIntMin);
    QCOMPARE(mapper.widget().cachedStepCount(), 0UL);
    // The computed multiplier rules; the stored one is left at 1 by the narrow branch.
    QCOMPARE(mapper.stepMultiplier(), 0UL);
    QCOMPARE(mapper.storedStepMultiplier(), 1UL);

    for (const long value : {point, point - (point == kLongMin ? 0 : 1),
                             point + (point == kLongMax ? 0 : 1), kLongMin, kLongMax, 0L}) {
        QCOMPARE(mapper.iDataValueToWidgetSteps(value), 0UL);
        QCOMPARE(mapper.valueToWidget(value), kIntMin);
    }
    for (const long position : {kIntMin, kIntMin + 1, 0L, kIntMax, kLongMin, kLongMax}) {
        QCOMPARE(mapper.widgetValueToIDataSteps(position), 0UL);
        QCOMPARE(mapper.valueFromWidget(position), back);
    }
}

void TestIntervalMapper::zeroStep_data()
{
    QTest::addColumn<long>("min");
    QTest::addColumn<long>("max");
    QTest::addColumn<long>("back");

    QTest::newRow("small range") << 0L << 100L << 0L;
    QTest::newRow("negative range") << -1000L << -10L << -1000L;
    QTest::newRow("whole signed range") << kLongMin << kLongMax << kLongMin;
    // The clamp down to max comes last, so a max below min wins.
    QTest::newRow("max below min") << 50L << -50L << -50L;
}

void TestIntervalMapper::zeroStep()
{
    QFETCH(long, min);
    QFETCH(long, max);
    QFETCH(long, back);

    // A zero step gives no steps: the range behaves as the single point min.
    const IntervalMapper mapper(Interval(min, max, 0));
    QCOMPARE(mapper.iData().stepCount(), 0UL);
    QCOMPARE(mapper.iData().cachedStepCount(), 0UL);
    QCOMPARE(mapper.widget().max(), kIntMin);
    QCOMPARE(mapper.stepMultiplier(), 0UL);
    for (const long value : {min, max, 0L, kLongMin, kLongMax}) {
        QCOMPARE(mapper.iDataValueToWidgetSteps(value), 0UL);
        QCOMPARE(mapper.valueToWidget(value), kIntMin);
    }
    for (const long position : {kIntMin, 0L, kIntMax, kLongMax}) {
        QCOMPARE(mapper.widgetValueToIDataSteps(position), 0UL);
        QCOMPARE(mapper.valueFromWidget(position), back);
    }
}

void TestIntervalMapper::sliderSizeBoundary_data()
{
    QTest::addColumn<long>("min");
    QTest::addColumn<long>("max");
    QTest::addColumn<long>("step");
    QTest::addColumn<unsigned long>("stepCount");
    QTest::addColumn<long>("widgetMax");
    QTest::addColumn<unsigned long>("multiplier");

    QTest::newRow("one step fewer: narrow")
        << 0L << 4294967294L << 1L << 4294967294UL << 2147483646L << 1UL;
    QTest::newRow("exactly the slider's steps: wide")
        << 0L << 4294967295L << 1L << 4294967295UL << 2147483647L << 1UL;
    QTest::newRow("the slider's own range")
        << kIntMin << kIntMax << 1L << 4294967295UL << 2147483647L << 1UL;
    QTest::newRow("by 3 with a short last step")
        << 7L << 7L + 12884901884L << 3L << 4294967295UL << 2147483647L << 1UL;
    QTest::newRow("one step more") << 0L << 4294967296L << 1L << 4294967296UL << 2147483647L << 2UL;
    QTest::newRow("twice the slider's steps")
        << 0L << 8589934590L << 1L << 8589934590UL << 2147483647L << 2UL;
    QTest::newRow("just over twice")
        << 0L << 8589934591L << 1L << 8589934591UL << 2147483647L << 3UL;
}

void TestIntervalMapper::sliderSizeBoundary()
{
    QFETCH(long, min);
    QFETCH(long, max);
    QFETCH(long, step);
    QFETCH(unsigned long, stepCount);
    QFETCH(long, widgetMax);
    QFETCH(unsigned long, multiplier);

    const IntervalMapper mapper(Interval(min, max, step));
    QCOMPARE(mapper.iData().cachedStepCount(), stepCount);
    QCOMPARE(mapper.widget().min(), kIntMin);
    QCOMPARE(mapper.widget().max(), widgetMax);
    QCOMPARE(mapper.stepMultiplier(), multiplier);
    QCOMPARE(mapper.storedStepMultiplier(), multiplier);
    // Both ends of the range reach both ends of the slider.
    QCOMPARE(mapper.valueToWidget(min), kIntMin);
    QCOMPARE(mapper.valueFromWidget(kIntMin), min);
    QCOMPARE(mapper.valueFromWidget(widgetMax), max);
}

void TestIntervalMapper::topOfAWideRange_data()
{
    QTest::addColumn<long>("slider");
    QTest::addColumn<long>("back");

    QTest::newRow("the slider position of max") << 2130771712L << 1099511627520L;
    QTest::newRow("one above overshoots and clamps") << 2130771713L << 1099511627776L;
    QTest::newRow("halfway to the end") << 2139127680L << 1099511627776L;
    QTest::newRow("the end of the slider") << 2147483647L << 1099511627776L;
    QTest::newRow("below the top") << 2130771711L << 1099511627263L;
}

void TestIntervalMapper::topOfAWideRange()
{
    QFETCH(long, slider);
    QFETCH(long, back);

    const IntervalMapper mapper(Interval(0, 1099511627776L, 1));
    QCOMPARE(mapper.valueToWidget(1099511627776L), 2130771712L);
    QCOMPARE(mapper.valueFromWidget(slider), back);
}

void TestIntervalMapper::wholeSignedRange_data()
{
    QTest::addColumn<long>("slider");
    QTest::addColumn<unsigned long>("dataSteps");
    QTest::addColumn<long>("back");

    // The top of the slider is 2^64 - 1 steps, whose sum rounds to 2^63 and wraps to the bottom.
    QTest::newRow("top wraps to the bottom") << kIntMax << 18446744073709551615UL << kLongMin;
    QTest::newRow("bottom") << kIntMin << 0UL << kLongMin;
    QTest::newRow("slider -1") << -1L << 9223372034707292159UL << -2147483648L;
    QTest::newRow("slider 0") << 0L << 9223372039002259456UL << 2147483648L;
    // 2^63 + 4404488963073 steps lies just above a tie between two doubles: only the bit that
    // the halving keeps makes it round up.
    QTest::newRow("halving keeps the lowest bit")
        << 1025L << 9223376441343738881UL << 4404488964096L;
    QTest::newRow("one below the top")
        << kIntMax - 1 << 18446744069414584318UL << 9223372032559808512L;
}

void TestIntervalMapper::wholeSignedRange()
{
    QFETCH(long, slider);
    QFETCH(unsigned long, dataSteps);
    QFETCH(long, back);

    const IntervalMapper mapper(Interval(kLongMin, kLongMax, 1));
    QCOMPARE(mapper.iData().cachedStepCount(), 18446744073709551615UL);
    QCOMPARE(mapper.stepMultiplier(), 4294967297UL);
    QCOMPARE(mapper.widget().max(), kIntMax);
    QCOMPARE(mapper.valueToWidget(0), -1L);
    QCOMPARE(mapper.widgetValueToIDataSteps(slider), dataSteps);
    QCOMPARE(mapper.valueFromWidget(slider), back);
}

void TestIntervalMapper::outOfRangeValues_data()
{
    QTest::addColumn<long>("min");
    QTest::addColumn<long>("max");
    QTest::addColumn<long>("step");
    QTest::addColumn<long>("value");
    QTest::addColumn<long>("slider");

    QTest::newRow("above max") << 0L << 100L << 1L << 101L << -2147483548L;
    QTest::newRow("far above max") << 0L << 100L << 1L << kLongMax << -2147483548L;
    QTest::newRow("above max, wide") << 0L << 1099511627776L << 1L << 2000000000000L << kIntMax;
    QTest::newRow("just below min, multiplier 1") << 0L << 100L << 1L << -1L << kIntMin;
    QTest::newRow("further below min, multiplier 1") << 10L << 100L << 1L << 0L << kIntMin;
    // With a step above 1 the wrapped span shrinks below 2^63 steps and the sum stays positive.
    QTest::newRow("below min, step 3") << 10L << 100L << 3L << 0L << -2147483618L;
    QTest::newRow("just below min, multiplier 2") << 0L << 4294967296L << 1L << -1L << kIntMax;
    QTest::newRow("just below min, multiplier 257") << 0L << 1099511627776L << 1L << -1L << kIntMax;
}

void TestIntervalMapper::outOfRangeValues()
{
    QFETCH(long, min);
    QFETCH(long, max);
    QFETCH(long, step);
    QFETCH(long, value);
    QFETCH(long, slider);

    const IntervalMapper mapper(Interval(min, max, step));
    QCOMPARE(mapper.valueToWidget(value), slider);
}

void TestIntervalMapper::conversionsStayInTheirRanges_data()
{
    QTest::addColumn<long>("min");
    QTest::addColumn<long>("max");
    QTest::addColumn<long>("step");

    QTest::newRow("narrow") << -3L << 1000L << 7L;
    QTest::newRow("wide") << -123456789012345L << 987654321098765L << 11L;
    QTest::newRow("wide, ends exact in doubles") << -(1L << 52) << (1L << 52) << 1L;
}

void TestIntervalMapper::conversionsStayInTheirRanges()
{
    QFETCH(long, min);
    QFETCH(long, max);
    QFETCH(long, step);

    // Every slider position reads as a value inside the range, and that value maps back onto
    // the slider.
    const IntervalMapper mapper(Interval(min, max, step));
    const Interval widget = mapper.widget();
    const double low = double(min);
    const double high = double(max);
    for (long position = widget.min(); position <= widget.max();
         position += std::max(1L, (widget.max() - widget.min()) / 997)) {
        const double value = double(mapper.valueFromWidget(position));
        QVERIFY2(value >= low && value <= high, qPrintable(QString::number(position)));
        const long again = mapper.valueToWidget(mapper.valueFromWidget(position));
        QVERIFY2(again >= widget.min() && again <= widget.max(),
                 qPrintable(QString::number(position)));
    }
}

void TestIntervalMapper::refreshAgainChangesNothing()
{
    IntervalMapper mapper(Interval(0, 1099511627776L, 1));
    mapper.refresh();
    QCOMPARE(mapper.widget().max(), kIntMax);
    QCOMPARE(mapper.stepMultiplier(), 257UL);
    QCOMPARE(mapper.storedStepMultiplier(), 257UL);
    QCOMPARE(mapper.valueToWidget(1000000000000L), 1743566935L);

    IntervalMapper narrow(Interval(0, 10, 3));
    narrow.refresh();
    QCOMPARE(narrow.widget().max(), -2147483644L);
    QCOMPARE(narrow.widget().cachedStepCount(), 4UL);
    QCOMPARE(narrow.storedStepMultiplier(), 1UL);
}

void TestIntervalMapper::copiesAreIndependent()
{
    IntervalMapper wide(Interval(0, 4294967296L, 1));
    const IntervalMapper narrow(Interval(0, 100, 1));
    const IntervalMapper keep = wide;
    wide = narrow;
    QCOMPARE(wide.widget().max(), -2147483548L);
    QCOMPARE(wide.valueToWidget(37), -2147483611L);
    QCOMPARE(keep.widget().max(), kIntMax);
    QCOMPARE(keep.stepMultiplier(), 2UL);
    QCOMPARE(keep.valueToWidget(3), -2147483647L);
}

void TestIntervalMapper::agreesWithExactModel_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<unsigned long>("seed");
    QTest::addColumn<int>("ranges");

    const char* const kinds[]
        = {"whole range", "narrow",     "near the slider size", "steps that do not divide",
           "wide",        "huge steps", "negative steps",       "single point",
           "anything"};
    unsigned long seed = 20240611;
    for (const char* kind : kinds)
        QTest::newRow(kind) << QString::fromLatin1(kind) << seed++ << 4000;
}

void TestIntervalMapper::agreesWithExactModel()
{
    QFETCH(QString, kind);
    QFETCH(unsigned long, seed);
    QFETCH(int, ranges);

    Inputs in(seed);
    long comparisons = 0;
    for (int r = 0; r < ranges; ++r) {
        const Range range = randomRange(in, kind);
        const ModelMapper model(range.min, range.max, range.step);
        const IntervalMapper mapper(Interval(range.min, range.max, range.step));

        COMPARE_MODEL(mapper.iData().cachedStepCount(), model.dataCount, "data step count");
        COMPARE_MODEL(mapper.widget().min(), kIntMin, "widget min");
        COMPARE_MODEL(mapper.widget().max(), model.widgetMax, "widget max");
        COMPARE_MODEL(mapper.widget().step(), 1L, "widget step");
        COMPARE_MODEL(mapper.widget().cachedStepCount(), model.widgetCount, "widget step count");
        COMPARE_MODEL(mapper.stepMultiplier(), model.multiplier, "multiplier");
        COMPARE_MODEL(mapper.storedStepMultiplier(), model.storedMultiplier, "stored multiplier");

        // Values on steps, between them, at and beyond both ends, and anywhere.
        const unsigned long stride = static_cast<unsigned long>(range.step);
        const long onStep
            = signedOf(bitsOf(range.min) + u128(stride) * u128(in.between(0, 1L << 40)));
        const long values[] = {range.min,
                               range.max,
                               signedOf(bitsOf(range.min) - 1),
                               signedOf(bitsOf(range.min) + 1),
                               signedOf(bitsOf(range.max) - 1),
                               signedOf(bitsOf(range.max) + 1),
                               onStep,
                               signedOf(bitsOf(onStep) + 1),
                               signedOf(bitsOf(onStep) - 1),
                               range.min <= range.max ? in.between(range.min, range.max) : in.any(),
                               in.any(),
                               0,
                               kLongMin,
                               kLongMax};
        std::vector<long> positions
            = {kIntMin, kIntMax, model.widgetMax, model.widgetMax - 1, model.widgetMax + 1,
               kIntMin - 1, kIntMin + 1, 0, -1, in.between(kIntMin, model.widgetMax),
               in.between(kIntMin, model.widgetMax), in.any(),
               // Just above a tie in the conversion of the steps when
               // the multiplier is 2^32 + 1.
               (in.between(0, kIntMax) & ~2047L) | 1025L, kLongMin, kLongMax};
        for (const long value : values) {
            COMPARE_MODEL(mapper.iDataValueToWidgetSteps(value), model.widgetSteps(value),
                          QStringLiteral("widget steps of %1").arg(value));
            const long position = mapper.valueToWidget(value);
            COMPARE_MODEL(position, model.toWidget(value),
                          QStringLiteral("slider of %1").arg(value));
            positions.push_back(position);
        }
        for (const long position : positions) {
            COMPARE_MODEL(mapper.widgetValueToIDataSteps(position), model.dataSteps(position),
                          QStringLiteral("data steps of slider %1").arg(position));
            COMPARE_MODEL(mapper.valueFromWidget(position), model.fromWidget(position),
                          QStringLiteral("value of slider %1").arg(position));
        }
    }
    // Every range above compares its seven properties and each of its conversions.
    QVERIFY(comparisons >= long(ranges) * (7 + 14 * 2 + 29 * 2));
}

QTEST_APPLESS_MAIN(TestIntervalMapper)

#include "tst_intervalmapper.moc"
