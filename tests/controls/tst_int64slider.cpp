#include "controls/int64slider.h"

#include "fixedsliderstyle.h"
#include "testsupport.h"

#include <QApplication>
#include <QLayout>
#include <QSignalSpy>
#include <QStyleOptionSlider>
#include <QTest>

#include <limits>
#include <memory>

namespace {

const long kLowest = std::numeric_limits<long>::min();
const long kHighest = std::numeric_limits<long>::max();
const int kIntLowest = std::numeric_limits<int>::min();
const int kIntHighest = std::numeric_limits<int>::max();

// Takes the signals by the type name that the header writes, as the editors do.
class Receiver : public QObject
{
    Q_OBJECT

public:
    QList<long> m_lMoved;
    QList<long> m_lChanged;

public slots:
    void onSliderMoved(int64_t value) { m_lMoved << value; }
    void onSliderValueChanged(int64_t value) { m_lChanged << value; }
};

using Values = QList<long>;

Values values(const QSignalSpy& spy)
{
    Values result;
    for (const QList<QVariant>& arguments : spy)
        result << arguments.at(0).value<long>();
    return result;
}

// Sends a mouse event to @p widget as the window system would; returns whether it was accepted.
bool sendMouse(QWidget* widget, QEvent::Type type, int x, Qt::MouseButton button,
               Qt::MouseButtons buttons)
{
    return TestSupport::sendMouse(widget, type, QPoint(x, widget->height() / 2), button, buttons);
}

WSlider* inner(Int64Slider& slider)
{
    return slider.findChild<WSlider*>();
}

void setRange(Int64Slider& slider, long min, long max, long step)
{
    slider.setMinimum(min);
    slider.setMaximum(max);
    slider.setSingleStep(step);
}

} // namespace

class TestInt64Slider : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }

    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    // Runs first: nothing else in this program names the type before a slider exists.
    void typeNameKnownOnceASliderExists()
    {
        QCOMPARE(QMetaType::type("int64_t"), int(QMetaType::UnknownType));
        Int64Slider slider;
        QCOMPARE(QMetaType::type("int64_t"), qMetaTypeId<int64_t>());
    }

    void construction()
    {
        QWidget parent;
        auto* slider = new Int64Slider(&parent);
        QCOMPARE(slider->parentWidget(), &parent);
        // The toolkit slider's own defaults, 0 to 99 by 1, become the data range.
        QCOMPARE(slider->min(), 0LL);
        QCOMPARE(slider->max(), 99LL);
        QCOMPARE(slider->singleStep(), 1LL);
        WSlider* wrapped = inner(*slider);
        QVERIFY(wrapped);
        QCOMPARE(wrapped->parentWidget(), slider);
        QCOMPARE(slider->findChildren<WSlider*>().size(), 1);
        QCOMPARE(wrapped->minimum(), kIntLowest);
        QCOMPARE(wrapped->maximum(), kIntLowest + 99);
        QCOMPARE(wrapped->singleStep(), 1);
        QCOMPARE(wrapped->pageStep(), 1);
        // The toolkit slider's value 0 lies above the new widget range and is clamped to its
        // top, which reads as the data maximum.
        QCOMPARE(wrapped->value(), kIntLowest + 99);
        QCOMPARE(slider->value(), 99L);
        // The toolkit slider's orientation, too.
        QCOMPARE(slider->orientation(), Qt::Vertical);
        QVERIFY(slider->layout());
        QCOMPARE(slider->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
        QCOMPARE(slider->layout()->indexOf(wrapped), 0);
        QCOMPARE(slider->sizeHint(), wrapped->sizeHint());
        QCOMPARE(slider->minimumSizeHint(), wrapped->minimumSizeHint());
        wrapped->setOrientation(Qt::Vertical);
        QCOMPARE(slider->sizeHint(), wrapped->sizeHint());
        QCOMPARE(slider->minimumSizeHint(), wrapped->minimumSizeHint());
    }

    void rangesAndRoundTrips_data()
    {
        QTest::addColumn<long>("min");
        QTest::addColumn<long>("max");
        QTest::addColumn<long>("step");
        QTest::addColumn<int>("widgetMax");
        QTest::addColumn<long>("value");
        QTest::addColumn<int>("position");
        QTest::addColumn<long>("back");
        QTest::newRow("0 to 100") << 0L << 100L << 1L << -2147483548 << 37L << -2147483611 << 37L;
        QTest::newRow("0 to 10, bottom")
            << 0L << 10L << 1L << -2147483638 << 0L << kIntLowest << 0L;
        QTest::newRow("0 to 10, top")
            << 0L << 10L << 1L << -2147483638 << 10L << -2147483638 << 10L;
        QTest::newRow("0 to 10 by 3, between steps")
            << 0L << 10L << 3L << -2147483644 << 7L << -2147483645 << 9L;
        QTest::newRow("0 to 10 by 3, top")
            << 0L << 10L << 3L << -2147483644 << 10L << -2147483644 << 10L;
        QTest::newRow("-5 to 5 by 2") << -5L << 5L << 2L << -2147483643 << 0L << -2147483645 << 1L;
        QTest::newRow("2^32") << 0L << 4294967296L << 1L << kIntHighest << 3L << -2147483647 << 2L;
        QTest::newRow("2^40, inside") << 0L << 1099511627776L << 1L << kIntHighest << 1000000000000L
                                      << 1743566935 << 999999999831L;
        QTest::newRow("2^40, top") << 0L << 1099511627776L << 1L << kIntHighest << 1099511627776L
                                   << 2130771712 << 1099511627520L;
        QTest::newRow("2^40, below the bottom jumps to the end")
            << 0L << 1099511627776L << 1L << kIntHighest << -1L << kIntHighest << 1099511627776L;
        QTest::newRow("whole range, 0")
            << kLowest << kHighest << 1L << kIntHighest << 0L << -1 << -2147483648L;
        QTest::newRow("whole range, lowest")
            << kLowest << kHighest << 1L << kIntHighest << kLowest << kIntLowest << kLowest;
        // The top of the slider reads as the bottom of the range.
        QTest::newRow("whole range, highest")
            << kLowest << kHighest << 1L << kIntHighest << kHighest << kIntHighest << kLowest;
        QTest::newRow("one point") << 5L << 5L << 1L << kIntLowest << 1000L << kIntLowest << 5L;
        QTest::newRow("above the top clamps")
            << 0L << 10L << 1L << -2147483638 << 50L << -2147483638 << 10L;
    }

    void rangesAndRoundTrips()
    {
        QFETCH(long, min);
        QFETCH(long, max);
        QFETCH(long, step);
        QFETCH(int, widgetMax);
        QFETCH(long, value);
        QFETCH(int, position);
        QFETCH(long, back);
        Int64Slider slider;
        setRange(slider, min, max, step);
        QCOMPARE(slider.min(), static_cast<long long>(min));
        QCOMPARE(slider.max(), static_cast<long long>(max));
        QCOMPARE(slider.singleStep(), static_cast<long long>(step));
        QCOMPARE(inner(slider)->minimum(), kIntLowest);
        QCOMPARE(inner(slider)->maximum(), widgetMax);
        // A value away from the expected one first, so that setValue has to move the slider.
        inner(slider)->setValue(position == kIntLowest ? kIntHighest : kIntLowest);
        slider.setValue(value);
        QCOMPARE(inner(slider)->value(), position);
        QCOMPARE(slider.value(), back);
        QCOMPARE(slider.property("value").value<long>(), back);
    }

    void everyValueOfASmallRangeRoundTrips()
    {
        Int64Slider slider;
        setRange(slider, -3, 10, 1);
        QSignalSpy changed(&slider, &Int64Slider::valueChanged);
        for (long value = -3; value <= 10; ++value) {
            slider.setValue(value);
            QCOMPARE(slider.value(), value);
        }
        QCOMPARE(changed.count(), 14);
        QCOMPARE(values(changed).constLast(), 10L);
    }

    void setMaximumBelowMinimum()
    {
        Int64Slider slider;
        slider.setMinimum(10);
        QCOMPARE(slider.max(), 99LL);
        QSignalSpy maxSpy(&slider, &Int64Slider::maxChanged);
        slider.setMaximum(3);
        QCOMPARE(maxSpy.count(), 1);
        QCOMPARE(maxSpy.at(0).at(0).toLongLong(), 3LL);
        QCOMPARE(slider.max(), 10LL);
        QCOMPARE(slider.min(), 10LL);
        QCOMPARE(inner(slider)->maximum(), inner(slider)->minimum());
        slider.setValue(-50);
        QCOMPARE(slider.value(), 10L);
    }

    void setMinimumAboveMaximumRaisesIt()
    {
        Int64Slider slider;
        QSignalSpy minSpy(&slider, &Int64Slider::minChanged);
        slider.setMinimum(500);
        QCOMPARE(minSpy.count(), 1);
        QCOMPARE(minSpy.at(0).at(0).toLongLong(), 500LL);
        QCOMPARE(slider.min(), 500LL);
        QCOMPARE(slider.max(), 500LL);
    }

    void settersAlwaysSignal()
    {
        Int64Slider slider;
        QSignalSpy minSpy(&slider, &Int64Slider::minChanged);
        QSignalSpy maxSpy(&slider, &Int64Slider::maxChanged);
        QSignalSpy stepSpy(&slider, &Int64Slider::singleStepChanged);
        slider.setMinimum(0);
        slider.setMaximum(99);
        slider.setSingleStep(1);
        QCOMPARE(minSpy.count(), 1);
        QCOMPARE(maxSpy.count(), 1);
        QCOMPARE(stepSpy.count(), 1);
        slider.setSingleStep(4);
        QCOMPARE(stepSpy.count(), 2);
        QCOMPARE(stepSpy.at(1).at(0).toLongLong(), 4LL);
        QCOMPARE(slider.singleStep(), 4LL);
        // 99 in steps of 4 is 25 steps, the last one short.
        QCOMPARE(inner(slider)->maximum(), kIntLowest + 25);
        // The same through the property system.
        QVERIFY(slider.setProperty("max", QVariant::fromValue(200LL)));
        QCOMPARE(slider.max(), 200LL);
        QCOMPARE(maxSpy.count(), 2);
        QCOMPARE(slider.property("min").toLongLong(), 0LL);
        QCOMPARE(slider.property("singleStep").toLongLong(), 4LL);
    }

    void rangeChangeKeepsThePosition()
    {
        Int64Slider slider;
        setRange(slider, 0, 100, 1);
        slider.setValue(50);
        QSignalSpy changed(&slider, &Int64Slider::valueChanged);
        // The slider keeps its position, which now stands for another value.
        slider.setMinimum(20);
        QCOMPARE(inner(slider)->value(), kIntLowest + 50);
        QCOMPARE(slider.value(), 70L);
        QCOMPARE(changed.count(), 0);
    }

    void clampedPositionIsReportedThroughTheNewRange()
    {
        Int64Slider slider;
        setRange(slider, 0, 100, 1);
        slider.setValue(50);
        QSignalSpy changed(&slider, &Int64Slider::valueChanged);
        slider.setMaximum(10);
        QCOMPARE(values(changed), Values {10});
        // The old mapping would have read the clamped position as 0, the new one as 1000.
        slider.setMinimum(1000);
        QCOMPARE(values(changed), (Values {10, 1000}));
        QCOMPARE(slider.value(), 1000L);
    }

    void setValueMovesOnlyToAnotherPosition()
    {
        Int64Slider slider;
        setRange(slider, 0, 1099511627776L, 1);
        slider.setValue(0);
        QSignalSpy changed(&slider, &Int64Slider::valueChanged);
        QSignalSpy moved(&slider, &Int64Slider::sliderMoved);
        // One position covers 257 values here.
        slider.setValue(100);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(slider.value(), 0L);
        slider.setValue(257);
        QCOMPARE(values(changed), Values {257});
        slider.setValue(257);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(moved.count(), 0);
    }

    void connectionsByTypeName()
    {
        Int64Slider slider;
        setRange(slider, -1000, 1000, 2);
        Receiver direct;
        Receiver queued;
        QVERIFY(connect(&slider, SIGNAL(valueChanged(int64_t)), &direct,
                        SLOT(onSliderValueChanged(int64_t))));
        QVERIFY(
            connect(&slider, SIGNAL(sliderMoved(int64_t)), &direct, SLOT(onSliderMoved(int64_t))));
        QVERIFY(connect(&slider, SIGNAL(valueChanged(int64_t)), &queued,
                        SLOT(onSliderValueChanged(int64_t)), Qt::QueuedConnection));
        QVERIFY(connect(&slider, SIGNAL(sliderMoved(int64_t)), &queued,
                        SLOT(onSliderMoved(int64_t)), Qt::QueuedConnection));
        slider.setValue(-998);
        QCOMPARE(direct.m_lChanged, Values {-998});
        // A slider that is down reports each position as a move.
        slider.setSliderDown(true);
        inner(slider)->setSliderPosition(inner(slider)->minimum() + 10);
        QCOMPARE(direct.m_lMoved, Values {-980});
        QCOMPARE(direct.m_lChanged, (Values {-998, -980}));
        slider.setSliderDown(false);
        QTRY_COMPARE(queued.m_lChanged, (Values {-998, -980}));
        QTRY_COMPARE(queued.m_lMoved, Values {-980});
    }

    void mouse_data()
    {
        QTest::addColumn<bool>("tracking");
        QTest::newRow("tracking") << true;
        QTest::newRow("no tracking") << false;
    }

    void mouse()
    {
        QFETCH(bool, tracking);
        FixedSliderStyle style;
        Int64Slider slider;
        WSlider* wrapped = inner(slider);
        wrapped->setStyle(&style);
        // 500 steps of 2: one slider position, and one pixel, per step.
        setRange(slider, 0, 1000, 2);
        slider.setTracking(tracking);
        slider.setOrientation(Qt::Horizontal);
        slider.resize(540, 30);
        slider.show();
        QVERIFY(QTest::qWaitForWindowExposed(&slider));
        QCOMPARE(wrapped->width(), 540);
        QSignalSpy changed(&slider, &Int64Slider::valueChanged);
        QSignalSpy moved(&slider, &Int64Slider::sliderMoved);
        // A click in the groove jumps: position 250 is the value 500.
        QTest::mouseClick(wrapped, Qt::LeftButton, Qt::NoModifier,
                          QPoint(265, wrapped->height() / 2));
        QCOMPARE(values(changed), Values {500});
        QCOMPARE(moved.count(), 0);
        QCOMPARE(slider.value(), 500L);
        // A drag from 3 pixels into the handle at pixel 260.
        QTest::mousePress(wrapped, Qt::LeftButton, Qt::NoModifier,
                          QPoint(263, wrapped->height() / 2));
        QVERIFY(slider.isSliderDown());
        QVERIFY(sendMouse(wrapped, QEvent::MouseMove, 313, Qt::NoButton, Qt::LeftButton));
        QVERIFY(sendMouse(wrapped, QEvent::MouseMove, 363, Qt::NoButton, Qt::LeftButton));
        QCOMPARE(values(moved), (Values {600, 700}));
        QCOMPARE(values(changed), tracking ? (Values {500, 600, 700}) : Values {500});
        QTest::mouseRelease(wrapped, Qt::LeftButton, Qt::NoModifier,
                            QPoint(363, wrapped->height() / 2));
        QVERIFY(!slider.isSliderDown());
        QCOMPARE(values(changed), tracking ? (Values {500, 600, 700}) : (Values {500, 700}));
        QCOMPARE(slider.value(), 700L);
    }

    void onePointRangeIgnoresTheMouse()
    {
        Int64Slider slider;
        setRange(slider, 5, 5, 1);
        slider.setOrientation(Qt::Horizontal);
        slider.resize(300, 30);
        slider.show();
        QVERIFY(QTest::qWaitForWindowExposed(&slider));
        QSignalSpy changed(&slider, &Int64Slider::valueChanged);
        QSignalSpy moved(&slider, &Int64Slider::sliderMoved);
        WSlider* wrapped = inner(slider);
        for (int x : {5, 150, 295}) {
            QVERIFY(
                !sendMouse(wrapped, QEvent::MouseButtonPress, x, Qt::LeftButton, Qt::LeftButton));
            QVERIFY(!sendMouse(wrapped, QEvent::MouseButtonPress, x, Qt::MiddleButton,
                               Qt::MiddleButton));
        }
        QVERIFY(!slider.isSliderDown());
        QCOMPARE(changed.count(), 0);
        QCOMPARE(moved.count(), 0);
        QCOMPARE(slider.value(), 5L);
    }

    void wheelAndKeysMoveOneWidgetStep()
    {
        Int64Slider slider;
        setRange(slider, 0, 1099511627776L, 1);
        slider.setValue(0);
        slider.setOrientation(Qt::Horizontal);
        slider.resize(300, 30);
        slider.show();
        QVERIFY(QTest::qWaitForWindowExposed(&slider));
        QSignalSpy changed(&slider, &Int64Slider::valueChanged);
        QSignalSpy moved(&slider, &Int64Slider::sliderMoved);
        // In this range one widget step is 257 values.
        QVERIFY(TestSupport::sendWheel(inner(slider), 120));
        QCOMPARE(slider.value(), 257L);
        QTest::keyClick(inner(slider), Qt::Key_PageUp);
        QCOMPARE(slider.value(), 514L);
        QTest::keyClick(inner(slider), Qt::Key_Left);
        QCOMPARE(values(changed), (Values {257, 514, 257}));
        QCOMPARE(moved.count(), 0);
    }

    void forwarding()
    {
        Int64Slider slider;
        WSlider* wrapped = inner(slider);
        slider.setTracking(false);
        QVERIFY(!slider.hasTracking());
        QVERIFY(!wrapped->hasTracking());
        slider.setOrientation(Qt::Vertical);
        QCOMPARE(slider.orientation(), Qt::Vertical);
        QCOMPARE(wrapped->orientation(), Qt::Vertical);
        slider.setInvertedAppearance(true);
        QVERIFY(slider.invertedAppearance());
        QVERIFY(wrapped->invertedAppearance());
        slider.setInvertedControls(true);
        QVERIFY(slider.invertedControls());
        QVERIFY(wrapped->invertedControls());
        slider.setSliderDown(true);
        QVERIFY(slider.isSliderDown());
        QVERIFY(wrapped->isSliderDown());
        // And the properties read the same.
        QCOMPARE(slider.property("tracking").toBool(), false);
        QCOMPARE(slider.property("orientation").value<Qt::Orientation>(), Qt::Vertical);
        QCOMPARE(slider.property("invertedAppearance").toBool(), true);
        QCOMPARE(slider.property("invertedControls").toBool(), true);
        QCOMPARE(slider.property("sliderDown").toBool(), true);
        QVERIFY(slider.setProperty("tracking", true));
        QVERIFY(wrapped->hasTracking());
        QVERIFY(slider.setProperty("orientation", QVariant::fromValue(Qt::Horizontal)));
        QCOMPARE(wrapped->orientation(), Qt::Horizontal);
    }

    void zeroStepReadsAsOnePoint()
    {
        // A step of 0 covers no distance: the range is read as its minimum alone.
        Int64Slider slider;
        setRange(slider, -10, 10, 1);
        QSignalSpy stepSpy(&slider, &Int64Slider::singleStepChanged);
        slider.setSingleStep(0);
        QCOMPARE(stepSpy.count(), 1);
        QCOMPARE(stepSpy.at(0).at(0).toLongLong(), 0LL);
        QCOMPARE(inner(slider)->minimum(), inner(slider)->maximum());
        slider.setValue(7);
        QCOMPARE(slider.value(), -10L);
    }

    void negativeStepStaysInRange()
    {
        // A negative step has no meaning; it must still leave a usable slider behind.
        Int64Slider slider;
        setRange(slider, -10, 10, -1);
        QVERIFY(inner(slider)->minimum() <= inner(slider)->maximum());
        slider.setValue(3);
        QVERIFY(slider.value() >= -10 && slider.value() <= 10);
    }
};

QTEST_MAIN(TestInt64Slider)
#include "tst_int64slider.moc"
