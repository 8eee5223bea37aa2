#include "controls/wslider.h"

#include "fixedsliderstyle.h"
#include "testsupport.h"

#include <QApplication>
#include <QSignalSpy>
#include <QStyleOptionSlider>
#include <QTest>

#include <limits>
#include <memory>

namespace {

// The slider under test with its style option in reach.
class ProbeSlider : public WSlider
{
public:
    using QAbstractSlider::repeatAction;
    using QSlider::initStyleOption;
    using WSlider::WSlider;

    QRect handleRect()
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
    }

    int handleCentre()
    {
        const QPoint centre = handleRect().center();
        return orientation() == Qt::Horizontal ? centre.x() : centre.y();
    }
};

// A window that keeps the wheel events that reach it.
class WheelCatcher : public QWidget
{
public:
    int m_iWheelEvents = 0;

protected:
    void wheelEvent(QWheelEvent* ev) override
    {
        ++m_iWheelEvents;
        ev->accept();
    }
};

// Sends a mouse event straight to @p widget, as the window system would, and returns whether
// the widget accepted it.
bool sendMouse(QWidget* widget, QEvent::Type type, int x, Qt::MouseButton button,
               Qt::MouseButtons buttons, int y = 15)
{
    return TestSupport::sendMouse(widget, type, QPoint(x, y), button, buttons);
}

bool moveWith(QWidget* widget, int x, Qt::MouseButtons held)
{
    return sendMouse(widget, QEvent::MouseMove, x, Qt::NoButton, held);
}

// Turns the wheel over @p widget; the event comes as from the window system, so that an
// ignored one travels on to the parent.
// A shown horizontal slider of the fixed geometry over 0 to 500.
struct Fixture
{
    explicit Fixture(bool tracking, Qt::Orientation orientation = Qt::Horizontal)
    {
        slider = std::make_unique<ProbeSlider>();
        slider->setStyle(&style);
        slider->setOrientation(orientation);
        slider->setRange(0, 500);
        slider->setPageStep(100);
        slider->setTracking(tracking);
        if (orientation == Qt::Horizontal)
            slider->resize(540, 30);
        else
            slider->resize(30, 540);
    }

    bool show()
    {
        slider->show();
        return QTest::qWaitForWindowExposed(slider.get());
    }

    FixedSliderStyle style;
    std::unique_ptr<ProbeSlider> slider;
};

// Watches the slider's signals.
struct Spies
{
    explicit Spies(QAbstractSlider* slider)
        : moved(slider, &QAbstractSlider::sliderMoved)
        , changed(slider, &QAbstractSlider::valueChanged)
        , pressed(slider, &QAbstractSlider::sliderPressed)
        , released(slider, &QAbstractSlider::sliderReleased)
        , actions(slider, &QAbstractSlider::actionTriggered)
    { }

    QList<int> values(const QSignalSpy& spy) const
    {
        QList<int> result;
        for (const QList<QVariant>& arguments : spy)
            result << arguments.at(0).toInt();
        return result;
    }

    QSignalSpy moved;
    QSignalSpy changed;
    QSignalSpy pressed;
    QSignalSpy released;
    QSignalSpy actions;
};

using Values = QList<int>;

} // namespace

class TestWSlider : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }

    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void fixedGeometry()
    {
        // The geometry the other tests count on.
        Fixture f(true);
        QCOMPARE(f.slider->handleRect(), QRect(10, 0, 11, 30));
        f.slider->setValue(250);
        QCOMPARE(f.slider->handleRect(), QRect(260, 0, 11, 30));
        QCOMPARE(f.slider->handleCentre(), 265);
    }

    void pixelPosToRangeValue_data()
    {
        QTest::addColumn<Qt::Orientation>("orientation");
        QTest::addColumn<bool>("inverted");
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("pos");
        QTest::addColumn<int>("raw");
        QTest::addColumn<int>("expected");
        const auto h = Qt::Horizontal;
        const auto v = Qt::Vertical;
        const int lowest = std::numeric_limits<int>::min();
        const int highest = std::numeric_limits<int>::max();
        // The pixel is 10 plus the distance from the minimum; raw is the toolkit's value.
        QTest::newRow("one value per pixel") << h << false << 0 << 500 << 1 << 260 << 250 << 250;
        QTest::newRow("before the groove") << h << false << 0 << 500 << 1 << -50 << 0 << 0;
        QTest::newRow("beyond the groove") << h << false << 0 << 500 << 1 << 5000 << 500 << 500;
        QTest::newRow("lowest pixel") << h << false << 0 << 500 << 7 << lowest << 0 << 0;
        QTest::newRow("highest pixel") << h << false << 0 << 500 << 7 << highest << 500 << 500;
        QTest::newRow("snap from the minimum") << h << false << 0 << 500 << 7 << 260 << 250 << 245;
        QTest::newRow("step beyond half the range")
            << h << false << 0 << 500 << 300 << 509 << 499 << 300;
        QTest::newRow("maximum is kept off the grid")
            << h << false << 0 << 500 << 300 << 510 << 500 << 500;
        QTest::newRow("minimum") << h << false << 0 << 500 << 300 << 10 << 0 << 0;
        // Across 0 the two halves snap on different grids: from the minimum above 0, from the
        // maximum below it.
        QTest::newRow("across 0, positive") << h << false << -249 << 251 << 7 << 359 << 100 << 94;
        QTest::newRow("across 0, negative") << h << false << -249 << 251 << 7 << 159 << -100 << -99;
        QTest::newRow("across 0, zero") << h << false << -249 << 251 << 7 << 259 << 0 << -4;
        QTest::newRow("negative range") << h << false << -1000 << -500 << 30 << 260 << -750 << -740;
        QTest::newRow("negative range, near the minimum")
            << h << false << -1000 << -500 << 30 << 11 << -999 << -980;
        QTest::newRow("negative range, minimum")
            << h << false << -1000 << -500 << 30 << 10 << -1000 << -1000;
        QTest::newRow("step 0 doesn't snap") << h << false << 0 << 500 << 0 << 343 << 333 << 333;
        QTest::newRow("one point") << h << false << 5 << 5 << 1 << 260 << 5 << 5;
        QTest::newRow("vertical, maximum at the top")
            << v << false << 0 << 500 << 1 << 110 << 400 << 400;
        QTest::newRow("vertical, inverted") << v << true << 0 << 500 << 1 << 110 << 100 << 100;
        QTest::newRow("horizontal, inverted") << h << true << 0 << 500 << 1 << 110 << 400 << 400;
        // The whole int range: the distance from the minimum wraps for values from 0 up.
        QTest::newRow("whole range, step 1")
            << h << false << lowest << highest << 1 << 260 << 0 << 0;
        QTest::newRow("whole range, step 3 at 0")
            << h << false << lowest << highest << 3 << 260 << 0 << 2;
        QTest::newRow("whole range, step 3 above 0")
            << h << false << lowest << highest << 3 << 261 << 8589934 << 8589935;
        QTest::newRow("whole range, step 3 below 0")
            << h << false << lowest << highest << 3 << 259 << -8589935 << -8589936;
        QTest::newRow("whole range, start")
            << h << false << lowest << highest << 3 << 10 << lowest << lowest;
        QTest::newRow("whole range, end")
            << h << false << lowest << highest << 3 << 510 << highest << highest;
    }

    void pixelPosToRangeValue()
    {
        QFETCH(Qt::Orientation, orientation);
        QFETCH(bool, inverted);
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(int, step);
        QFETCH(int, pos);
        QFETCH(int, raw);
        QFETCH(int, expected);
        Fixture f(true, orientation);
        f.slider->setInvertedAppearance(inverted);
        f.slider->setRange(minimum, maximum);
        f.slider->setSingleStep(step);
        QStyleOptionSlider option;
        f.slider->initStyleOption(&option);
        // The value before the snap, as the toolkit computes it for this geometry.
        const qint64 travelled = qint64(pos) - FixedSliderStyle::kGrooveStart;
        const int clampedTravel = int(qBound<qint64>(std::numeric_limits<int>::min(), travelled,
                                                     std::numeric_limits<int>::max()));
        QCOMPARE(QStyle::sliderValueFromPosition(minimum, maximum, clampedTravel,
                                                 FixedSliderStyle::kTravel, option.upsideDown),
                 raw);
        QCOMPARE(f.slider->pixelPosToRangeValue(pos), expected);
    }

    void grooveClickJumps_data()
    {
        QTest::addColumn<bool>("tracking");
        QTest::newRow("tracking") << true;
        QTest::newRow("no tracking") << false;
    }

    void grooveClickJumps()
    {
        QFETCH(bool, tracking);
        Fixture f(tracking);
        QVERIFY(f.show());
        Spies spies(f.slider.get());
        QTest::mousePress(f.slider.get(), Qt::LeftButton, Qt::NoModifier, QPoint(265, 15));
        // The handle's centre lands under the pointer, with no page step on the way.
        QCOMPARE(f.slider->value(), 250);
        QCOMPARE(f.slider->sliderPosition(), 250);
        QCOMPARE(f.slider->handleCentre(), 265);
        QCOMPARE(spies.values(spies.changed), Values {250});
        QCOMPARE(spies.values(spies.moved), Values {});
        // Only moves: with tracking the new position is also committed as it is set.
        QCOMPARE(spies.values(spies.actions),
                 tracking ? (Values {QAbstractSlider::SliderMove, QAbstractSlider::SliderMove})
                          : Values {QAbstractSlider::SliderMove});
        QCOMPARE(spies.pressed.count(), 0);
        QVERIFY(!f.slider->isSliderDown());
        QCOMPARE(f.slider->repeatAction(), QAbstractSlider::SliderNoAction);
        // The jump does not turn into a drag.
        QVERIFY(!moveWith(f.slider.get(), 400, Qt::LeftButton));
        QCOMPARE(f.slider->value(), 250);
        QCOMPARE(f.slider->sliderPosition(), 250);
        QTest::mouseRelease(f.slider.get(), Qt::LeftButton, Qt::NoModifier, QPoint(400, 15));
        QCOMPARE(spies.changed.count(), 1);
        QCOMPARE(spies.moved.count(), 0);
        QCOMPARE(spies.released.count(), 0);
        // A second click on the same spot finds the handle and changes nothing.
        QTest::mouseClick(f.slider.get(), Qt::LeftButton, Qt::NoModifier, QPoint(265, 15));
        QCOMPARE(f.slider->value(), 250);
        QCOMPARE(spies.changed.count(), 1);
    }

    void grooveClickSnapsToStep()
    {
        Fixture f(false);
        f.slider->setSingleStep(7);
        QVERIFY(f.show());
        Spies spies(f.slider.get());
        QTest::mouseClick(f.slider.get(), Qt::LeftButton, Qt::NoModifier, QPoint(265, 15));
        QCOMPARE(f.slider->value(), 245);
        QCOMPARE(spies.values(spies.changed), Values {245});
        QCOMPARE(f.slider->handleCentre(), 260);
    }

    void grooveClickJumpsBackwards()
    {
        Fixture f(true);
        f.slider->setValue(400);
        QVERIFY(f.show());
        Spies spies(f.slider.get());
        QTest::mouseClick(f.slider.get(), Qt::LeftButton, Qt::NoModifier, QPoint(65, 15));
        QCOMPARE(f.slider->value(), 50);
        QCOMPARE(spies.values(spies.changed), Values {50});
    }

    void grooveClickInTheToolkitStyle()
    {
        // The same jump with the style's own geometry: the handle centres under the pointer.
        ProbeSlider slider;
        slider.setOrientation(Qt::Horizontal);
        slider.setRange(0, 1000);
        slider.setPageStep(10);
        slider.resize(320, 30);
        slider.show();
        QVERIFY(QTest::qWaitForWindowExposed(&slider));
        QSignalSpy changed(&slider, &QAbstractSlider::valueChanged);
        const int pointer = 240;
        QVERIFY(pointer > slider.handleRect().right());
        QTest::mouseClick(&slider, Qt::LeftButton, Qt::NoModifier, QPoint(pointer, 15));
        QCOMPARE(changed.count(), 1);
        QVERIFY2(qAbs(slider.handleCentre() - pointer) <= 1,
                 qPrintable(QString::number(slider.handleCentre())));
        QVERIFY(slider.value() > 10);
    }

    void dragHandle_data()
    {
        QTest::addColumn<bool>("tracking");
        QTest::newRow("tracking") << true;
        QTest::newRow("no tracking") << false;
    }

    void dragHandle()
    {
        QFETCH(bool, tracking);
        Fixture f(tracking);
        QVERIFY(f.show());
        Spies spies(f.slider.get());
        // The handle spans pixels 10 to 20; the press is 3 pixels into it.
        QTest::mousePress(f.slider.get(), Qt::LeftButton, Qt::NoModifier, QPoint(13, 15));
        QVERIFY(f.slider->isSliderDown());
        QCOMPARE(spies.pressed.count(), 1);
        QCOMPARE(spies.changed.count(), 0);
        QVERIFY(moveWith(f.slider.get(), 113, Qt::LeftButton));
        QVERIFY(moveWith(f.slider.get(), 213, Qt::LeftButton));
        QVERIFY(moveWith(f.slider.get(), 213, Qt::LeftButton));
        QVERIFY(moveWith(f.slider.get(), 2000, Qt::LeftButton));
        QCOMPARE(f.slider->sliderPosition(), 500);
        QCOMPARE(spies.values(spies.moved), (Values {100, 200, 500}));
        QCOMPARE(spies.values(spies.changed), tracking ? (Values {100, 200, 500}) : Values {});
        QCOMPARE(f.slider->value(), tracking ? 500 : 0);
        QTest::mouseRelease(f.slider.get(), Qt::LeftButton, Qt::NoModifier, QPoint(2000, 15));
        QVERIFY(!f.slider->isSliderDown());
        QCOMPARE(spies.released.count(), 1);
        QCOMPARE(spies.moved.count(), 3);
        // Without tracking the value is committed once, at the release.
        QCOMPARE(spies.values(spies.changed), tracking ? (Values {100, 200, 500}) : Values {500});
        QCOMPARE(f.slider->value(), 500);
        // After the release a move drags nothing.
        QVERIFY(!moveWith(f.slider.get(), 113, Qt::LeftButton));
        QCOMPARE(f.slider->value(), 500);
    }

    void dragVertical()
    {
        Fixture f(true, Qt::Vertical);
        QVERIFY(f.show());
        Spies spies(f.slider.get());
        // Value 0 sits at the bottom: the handle spans pixels 510 to 520.
        QCOMPARE(f.slider->handleRect().top(), 510);
        QTest::mousePress(f.slider.get(), Qt::LeftButton, Qt::NoModifier, QPoint(15, 515));
        QVERIFY(f.slider->isSliderDown());
        QVERIFY(
            sendMouse(f.slider.get(), QEvent::MouseMove, 15, Qt::NoButton, Qt::LeftButton, 415));
        QTest::mouseRelease(f.slider.get(), Qt::LeftButton, Qt::NoModifier, QPoint(15, 415));
        QCOMPARE(spies.values(spies.moved), Values {100});
        QCOMPARE(f.slider->value(), 100);
    }

    void absoluteSetButton_data()
    {
        QTest::addColumn<bool>("tracking");
        QTest::newRow("tracking") << true;
        QTest::newRow("no tracking") << false;
    }

    void absoluteSetButton()
    {
        QFETCH(bool, tracking);
        Fixture f(tracking);
        QVERIFY(f.show());
        const int absolute = f.slider->style()->styleHint(QStyle::SH_Slider_AbsoluteSetButtons);
        QVERIFY(absolute & Qt::MiddleButton);
        Spies spies(f.slider.get());
        QTest::mousePress(f.slider.get(), Qt::MiddleButton, Qt::NoModifier, QPoint(265, 15));
        // The jump commits at once, tracking or not, and before the slider is down.
        QCOMPARE(spies.values(spies.changed), Values {250});
        QCOMPARE(spies.moved.count(), 0);
        QVERIFY(f.slider->isSliderDown());
        QCOMPARE(spies.pressed.count(), 1);
        // The press goes on as a drag, 5 pixels into the handle at 260.
        QVERIFY(moveWith(f.slider.get(), 365, Qt::MiddleButton));
        QCOMPARE(spies.values(spies.moved), Values {350});
        QCOMPARE(spies.values(spies.changed), tracking ? (Values {250, 350}) : Values {250});
        QTest::mouseRelease(f.slider.get(), Qt::MiddleButton, Qt::NoModifier, QPoint(365, 15));
        QVERIFY(!f.slider->isSliderDown());
        QCOMPARE(spies.values(spies.changed), (Values {250, 350}));
        QCOMPARE(f.slider->value(), 350);
    }

    void ignoredPresses_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("maximum");
        QTest::newRow("right button") << int(Qt::RightButton) << int(Qt::RightButton) << 500;
        QTest::newRow("left with right held")
            << int(Qt::LeftButton) << int(Qt::LeftButton | Qt::RightButton) << 500;
        QTest::newRow("middle with left held")
            << int(Qt::MiddleButton) << int(Qt::LeftButton | Qt::MiddleButton) << 500;
        QTest::newRow("one-point range") << int(Qt::LeftButton) << int(Qt::LeftButton) << 0;
        QTest::newRow("one-point range, middle button")
            << int(Qt::MiddleButton) << int(Qt::MiddleButton) << 0;
    }

    void ignoredPresses()
    {
        QFETCH(int, button);
        QFETCH(int, buttons);
        QFETCH(int, maximum);
        Fixture f(true);
        f.slider->setMaximum(maximum);
        QVERIFY(f.show());
        Spies spies(f.slider.get());
        const auto pressed = Qt::MouseButton(button);
        const auto held = Qt::MouseButtons(buttons);
        QVERIFY(!sendMouse(f.slider.get(), QEvent::MouseButtonPress, 265, pressed, held));
        // Neither a press on the handle nor a drag from it starts.
        QVERIFY(!sendMouse(f.slider.get(), QEvent::MouseButtonPress, 15, pressed, held));
        QVERIFY(!moveWith(f.slider.get(), 365, held));
        QVERIFY(!sendMouse(f.slider.get(), QEvent::MouseButtonRelease, 365, pressed, Qt::NoButton));
        QCOMPARE(f.slider->value(), 0);
        QVERIFY(!f.slider->isSliderDown());
        QCOMPARE(spies.changed.count(), 0);
        QCOMPARE(spies.moved.count(), 0);
        QCOMPARE(spies.pressed.count(), 0);
        QCOMPARE(spies.actions.count(), 0);
    }

    void secondButtonDuringDragIsIgnored()
    {
        Fixture f(true);
        QVERIFY(f.show());
        Spies spies(f.slider.get());
        QTest::mousePress(f.slider.get(), Qt::LeftButton, Qt::NoModifier, QPoint(13, 15));
        QVERIFY(f.slider->isSliderDown());
        // A right press and its release, with the left button still held, change nothing.
        QVERIFY(!sendMouse(f.slider.get(), QEvent::MouseButtonPress, 265, Qt::RightButton,
                           Qt::LeftButton | Qt::RightButton));
        QVERIFY(!sendMouse(f.slider.get(), QEvent::MouseButtonRelease, 265, Qt::RightButton,
                           Qt::LeftButton));
        QVERIFY(f.slider->isSliderDown());
        QCOMPARE(spies.released.count(), 0);
        QVERIFY(moveWith(f.slider.get(), 113, Qt::LeftButton));
        QCOMPARE(spies.values(spies.moved), Values {100});
        QVERIFY(sendMouse(f.slider.get(), QEvent::MouseButtonRelease, 113, Qt::LeftButton,
                          Qt::NoButton));
        QVERIFY(!f.slider->isSliderDown());
        QCOMPARE(spies.released.count(), 1);
        QCOMPARE(spies.values(spies.changed), Values {100});
    }

    void releaseWithoutPressIsIgnored()
    {
        Fixture f(true);
        QVERIFY(f.show());
        QVERIFY(!sendMouse(f.slider.get(), QEvent::MouseButtonRelease, 265, Qt::LeftButton,
                           Qt::NoButton));
        QVERIFY(!moveWith(f.slider.get(), 265, Qt::LeftButton));
        QCOMPARE(f.slider->value(), 0);
    }

    void wheel_data()
    {
        QTest::addColumn<QPoint>("angle");
        QTest::addColumn<bool>("inverted");
        QTest::addColumn<bool>("tracking");
        QTest::addColumn<int>("steps");
        QTest::newRow("one notch up") << QPoint(0, 120) << false << true << 1;
        QTest::newRow("one notch down") << QPoint(0, -120) << false << true << -1;
        QTest::newRow("ten notches at once") << QPoint(0, 1200) << false << true << 1;
        QTest::newRow("a quarter notch") << QPoint(0, 30) << false << true << 1;
        QTest::newRow("smallest turn down") << QPoint(0, -1) << false << true << -1;
        QTest::newRow("inverted controls") << QPoint(0, 120) << true << true << -1;
        QTest::newRow("inverted controls, down") << QPoint(0, -120) << true << true << 1;
        QTest::newRow("no tracking") << QPoint(0, 120) << false << false << 1;
        QTest::newRow("sideways") << QPoint(120, 0) << false << true << 1;
        QTest::newRow("mostly sideways") << QPoint(-200, 100) << false << true << -1;
        QTest::newRow("diagonal takes the vertical") << QPoint(100, -100) << false << true << -1;
    }

    void wheel()
    {
        QFETCH(QPoint, angle);
        QFETCH(bool, inverted);
        QFETCH(bool, tracking);
        QFETCH(int, steps);
        Fixture f(tracking);
        f.slider->setSingleStep(5);
        f.slider->setValue(250);
        f.slider->setInvertedControls(inverted);
        QVERIFY(f.show());
        Spies spies(f.slider.get());
        QVERIFY(TestSupport::sendWheel(f.slider.get(), angle));
        QCOMPARE(f.slider->value(), 250 + 5 * steps);
        QCOMPARE(spies.values(spies.changed), Values {250 + 5 * steps});
        QCOMPARE(spies.moved.count(), 0);
        // Nothing is carried over to the next event.
        QVERIFY(TestSupport::sendWheel(f.slider.get(), angle));
        QCOMPARE(f.slider->value(), 250 + 10 * steps);
        QCOMPARE(spies.changed.count(), 2);
    }

    void wheelAtTheEndChangesNothing()
    {
        Fixture f(true);
        f.slider->setValue(500);
        QVERIFY(f.show());
        Spies spies(f.slider.get());
        QVERIFY(TestSupport::sendWheel(f.slider.get(), QPoint(0, 120)));
        QCOMPARE(f.slider->value(), 500);
        QCOMPARE(spies.changed.count(), 0);
    }

    void wheelWithoutDeltaGoesToTheParent()
    {
        FixedSliderStyle style;
        WheelCatcher window;
        auto* slider = new ProbeSlider(&window);
        slider->setStyle(&style);
        slider->setOrientation(Qt::Horizontal);
        slider->setRange(0, 500);
        slider->setValue(250);
        slider->setGeometry(0, 0, 540, 30);
        window.resize(540, 60);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QSignalSpy changed(slider, &QAbstractSlider::valueChanged);
        QVERIFY(TestSupport::sendWheel(slider, QPoint(0, 0)));
        QCOMPARE(window.m_iWheelEvents, 1);
        QCOMPARE(slider->value(), 250);
        QCOMPARE(changed.count(), 0);
        // A turned wheel stays with the slider.
        QVERIFY(TestSupport::sendWheel(slider, QPoint(0, 120)));
        QCOMPARE(window.m_iWheelEvents, 1);
        QCOMPARE(slider->value(), 251);
        // On its own the slider leaves the empty event ignored.
        auto* alone = new ProbeSlider;
        std::unique_ptr<ProbeSlider> owner(alone);
        alone->setRange(0, 500);
        QVERIFY(!TestSupport::sendWheel(alone, QPoint(0, 0)));
    }

    void keys_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("inverted");
        QTest::addColumn<int>("expected");
        // From 250 with a single step of 5 and a page step of 100.
        QTest::newRow("page up steps singly") << int(Qt::Key_PageUp) << false << 255;
        QTest::newRow("page down steps singly") << int(Qt::Key_PageDown) << false << 245;
        QTest::newRow("page up, inverted") << int(Qt::Key_PageUp) << true << 245;
        QTest::newRow("page down, inverted") << int(Qt::Key_PageDown) << true << 255;
        QTest::newRow("right arrow") << int(Qt::Key_Right) << false << 255;
        QTest::newRow("left arrow") << int(Qt::Key_Left) << false << 245;
        QTest::newRow("up arrow") << int(Qt::Key_Up) << false << 255;
        QTest::newRow("down arrow, inverted") << int(Qt::Key_Down) << true << 255;
        QTest::newRow("home") << int(Qt::Key_Home) << false << 0;
        QTest::newRow("end") << int(Qt::Key_End) << false << 500;
    }

    void keys()
    {
        QFETCH(int, key);
        QFETCH(bool, inverted);
        QFETCH(int, expected);
        Fixture f(false);
        f.slider->setSingleStep(5);
        f.slider->setValue(250);
        f.slider->setInvertedControls(inverted);
        QVERIFY(f.show());
        Spies spies(f.slider.get());
        QTest::keyClick(f.slider.get(), Qt::Key(key));
        QCOMPARE(f.slider->value(), expected);
        QCOMPARE(spies.values(spies.changed), Values {expected});
        QCOMPARE(spies.moved.count(), 0);
    }

    void setValueFromCode()
    {
        Fixture f(false);
        QVERIFY(f.show());
        Spies spies(f.slider.get());
        f.slider->setValue(123);
        f.slider->setValue(123);
        QCOMPARE(spies.values(spies.changed), Values {123});
        QCOMPARE(spies.moved.count(), 0);
    }
};

QTEST_MAIN(TestWSlider)
#include "tst_wslider.moc"
