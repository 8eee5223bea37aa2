#include "controls/interval.h"
#include "testsupport.h"

#include <QTest>

#include <limits>
#include <type_traits>

static_assert(std::is_copy_constructible<Interval>::value
                  && std::is_copy_assignable<Interval>::value,
              "intervals are values");
static_assert(sizeof(Interval) == 4 * sizeof(long), "four 64-bit members");

namespace {

const long kLongMin = std::numeric_limits<long>::min();
const long kLongMax = std::numeric_limits<long>::max();
const unsigned long kULongMax = std::numeric_limits<unsigned long>::max();

} // namespace

class TestInterval : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void construction_data();
    void construction();

    void span_data();
    void span();

    void valueToSteps_data();
    void valueToSteps();

    void zeroStep_data();
    void zeroStep();

    void copyKeepsTheCache();
};

void TestInterval::initTestCase()
{
    TestSupport::failOnWarnings();
}

void TestInterval::construction_data()
{
    QTest::addColumn<long>("min");
    QTest::addColumn<long>("max");
    QTest::addColumn<long>("step");
    QTest::addColumn<unsigned long>("stepCount");

    QTest::newRow("0..100 by 1") << 0L << 100L << 1L << 100UL;
    QTest::newRow("short last step counts whole") << 0L << 10L << 3L << 4UL;
    QTest::newRow("step divides") << 0L << 9L << 3L << 3UL;
    QTest::newRow("negative min") << -5L << 5L << 2L << 5UL;
    QTest::newRow("single point") << 7L << 7L << 1L << 0UL;
    QTest::newRow("step larger than the range") << 0L << 10L << 1000L << 1UL;
    QTest::newRow("slider range") << long(std::numeric_limits<int>::min())
                                  << long(std::numeric_limits<int>::max()) << 1L << 4294967295UL;
    QTest::newRow("2^40") << 0L << 1099511627776L << 1L << 1099511627776UL;
    QTest::newRow("whole signed range") << kLongMin << kLongMax << 1L << kULongMax;
    QTest::newRow("whole range by 2") << kLongMin << kLongMax << 2L << 9223372036854775808UL;
    QTest::newRow("whole range by 2^62") << kLongMin << kLongMax << 4611686018427387904L << 4UL;
    // Read as unsigned, a negative step is huge: any nonzero span is one step.
    QTest::newRow("negative step") << 0L << 10L << -1L << 1UL;
    QTest::newRow("max below min wraps") << 10L << 9L << 1L << kULongMax;
}

void TestInterval::construction()
{
    QFETCH(long, min);
    QFETCH(long, max);
    QFETCH(long, step);
    QFETCH(unsigned long, stepCount);

    Interval interval(min, max, step);
    QCOMPARE(interval.min(), min);
    QCOMPARE(interval.max(), max);
    QCOMPARE(interval.step(), step);
    QCOMPARE(interval.stepCount(), stepCount);
    QCOMPARE(interval.cachedStepCount(), stepCount);
    QCOMPARE(interval.valueToSteps(max), stepCount);
    interval.setStepCount();
    QCOMPARE(interval.cachedStepCount(), stepCount);
}

void TestInterval::span_data()
{
    QTest::addColumn<long>("min");
    QTest::addColumn<long>("value");
    QTest::addColumn<long>("span");

    QTest::newRow("inside") << -5L << 5L << 10L;
    QTest::newRow("at min") << 3L << 3L << 0L;
    QTest::newRow("below min") << 3L << 1L << -2L;
    QTest::newRow("whole range wraps to -1") << kLongMin << kLongMax << -1L;
    QTest::newRow("2^63 wraps to the lowest") << kLongMin << 0L << kLongMin;
    QTest::newRow("far below wraps up") << kLongMax << kLongMin << 1L;
}

void TestInterval::span()
{
    QFETCH(long, min);
    QFETCH(long, value);
    QFETCH(long, span);

    QCOMPARE(Interval(min, min, 1).span(value), span);
}

void TestInterval::valueToSteps_data()
{
    QTest::addColumn<long>("min");
    QTest::addColumn<long>("step");
    QTest::addColumn<long>("value");
    QTest::addColumn<unsigned long>("steps");

    QTest::newRow("on a step") << 0L << 3L << 9L << 3UL;
    QTest::newRow("between steps rounds up") << 0L << 3L << 7L << 3UL;
    QTest::newRow("just above a step") << 0L << 3L << 10L << 4UL;
    QTest::newRow("at min") << 100L << 7L << 100L << 0UL;
    QTest::newRow("offset min") << -5L << 2L << 0L << 3UL;
    QTest::newRow("just below min wraps") << 0L << 1L << -1L << kULongMax;
    QTest::newRow("below min, step 2") << 0L << 2L << -1L << 9223372036854775808UL;
    QTest::newRow("span 2^63 by 3") << kLongMin << 3L << 0L << 3074457345618258603UL;
    QTest::newRow("negative step on a multiple") << 0L << -2L << -2L << 1UL;
    QTest::newRow("negative step, smaller span") << 0L << -2L << 5L << 1UL;
}

void TestInterval::valueToSteps()
{
    QFETCH(long, min);
    QFETCH(long, step);
    QFETCH(long, value);
    QFETCH(unsigned long, steps);

    QCOMPARE(Interval(min, min, step).valueToSteps(value), steps);
}

void TestInterval::zeroStep_data()
{
    QTest::addColumn<long>("min");
    QTest::addColumn<long>("max");
    QTest::addColumn<long>("value");

    QTest::newRow("small range") << 0L << 10L << 5L;
    QTest::newRow("whole range") << kLongMin << kLongMax << 0L;
    QTest::newRow("value below min") << 10L << 20L << kLongMin;
}

void TestInterval::zeroStep()
{
    QFETCH(long, min);
    QFETCH(long, max);
    QFETCH(long, value);

    // A zero step covers nothing, so the range counts as a single point.
    Interval interval(min, max, 0);
    QCOMPARE(interval.stepCount(), 0UL);
    QCOMPARE(interval.cachedStepCount(), 0UL);
    QCOMPARE(interval.valueToSteps(value), 0UL);
    QCOMPARE(interval.valueToSteps(max), 0UL);
}

void TestInterval::copyKeepsTheCache()
{
    Interval interval(0, 10, 3);
    Interval copy(-1, -1, 1);
    QCOMPARE(copy.cachedStepCount(), 0UL);
    copy = interval;
    QCOMPARE(copy.min(), 0L);
    QCOMPARE(copy.max(), 10L);
    QCOMPARE(copy.step(), 3L);
    QCOMPARE(copy.cachedStepCount(), 4UL);
}

QTEST_APPLESS_MAIN(TestInterval)

#include "tst_interval.moc"
