#include "controls/disabledlookstyle.h"
#include "controls/forcestyle.h"
#include "controls/ledwidget.h"

#include "testsupport.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTest>

#include <memory>

namespace {

// A base style that remembers the state of the options it is handed.
class RecordingStyle : public QProxyStyle
{
public:
    RecordingStyle()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    { }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        m_lStates.append(option->state);
        QProxyStyle::drawControl(element, option, painter, widget);
    }

    mutable QList<QStyle::State> m_lStates;
};

// A base style that answers the operations that take an option without looking at it, so that
// a null option can reach it, and notes each call with whether an option came along.
class AnsweringStyle : public QProxyStyle
{
public:
    static constexpr QRect kRect = QRect(1, 2, 3, 4);

    AnsweringStyle()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    { }

    void drawPrimitive(PrimitiveElement, const QStyleOption* option, QPainter*,
                       const QWidget*) const override
    {
        note("drawPrimitive", option);
    }

    void drawControl(ControlElement, const QStyleOption* option, QPainter*,
                     const QWidget*) const override
    {
        note("drawControl", option);
    }

    QRect subElementRect(SubElement, const QStyleOption* option, const QWidget*) const override
    {
        note("subElementRect", option);
        return kRect;
    }

    void drawComplexControl(ComplexControl, const QStyleOptionComplex* option, QPainter*,
                            const QWidget*) const override
    {
        note("drawComplexControl", option);
    }

    SubControl hitTestComplexControl(ComplexControl, const QStyleOptionComplex* option,
                                     const QPoint&, const QWidget*) const override
    {
        note("hitTestComplexControl", option);
        return SC_SliderHandle;
    }

    QRect subControlRect(ComplexControl, const QStyleOptionComplex* option, SubControl,
                         const QWidget*) const override
    {
        note("subControlRect", option);
        return kRect;
    }

    QSize sizeFromContents(ContentsType, const QStyleOption* option, const QSize& contentsSize,
                           const QWidget*) const override
    {
        note("sizeFromContents", option);
        return contentsSize + QSize(3, 5);
    }

    mutable QStringList m_lCalls;

private:
    void note(const char* operation, const QStyleOption* option) const
    {
        m_lCalls << QString::fromLatin1(operation)
                + (option ? QStringLiteral(" with an option") : QStringLiteral(" without one"));
    }
};

// A spin box whose style option can be built as it builds it.
class ProbeSpinBox : public QSpinBox
{
public:
    using QSpinBox::initStyleOption;
    using QSpinBox::QSpinBox;
};

} // namespace

class TestDisabledLook : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }

    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void modifyOptionClearsEnabled()
    {
        QStyleOption option;
        option.state = QStyle::State_Enabled | QStyle::State_HasFocus;
        modifyOption(&option);
        QCOMPARE(option.state, QStyle::State(QStyle::State_HasFocus));
        modifyOption(nullptr);
    }

    void nullOptionsPassOn_data()
    {
        QTest::addColumn<int>("operation");
        QTest::newRow("pixelMetric") << 0;
        QTest::newRow("styleHint") << 1;
        QTest::newRow("standardPixmap") << 2;
        QTest::newRow("generatedIconPixmap") << 3;
        QTest::newRow("standardIconImplementation") << 4;
        QTest::newRow("layoutSpacingImplementation") << 5;
    }

    void nullOptionsPassOn()
    {
        QFETCH(int, operation);
        DisabledLookStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
        std::unique_ptr<QStyle> plain(QStyleFactory::create(QStringLiteral("Fusion")));
        switch (operation) {
        case 0:
            QCOMPARE(style.pixelMetric(QStyle::PM_ButtonMargin, nullptr),
                     plain->pixelMetric(QStyle::PM_ButtonMargin, nullptr));
            break;
        case 1:
            QCOMPARE(style.styleHint(QStyle::SH_ToolTip_WakeUpDelay, nullptr),
                     plain->styleHint(QStyle::SH_ToolTip_WakeUpDelay, nullptr));
            break;
        case 2:
            QCOMPARE(style.standardPixmap(QStyle::SP_DialogOkButton, nullptr).size(),
                     plain->standardPixmap(QStyle::SP_DialogOkButton, nullptr).size());
            break;
        case 3: {
            QPixmap pixmap(8, 8);
            pixmap.fill(Qt::blue);
            QCOMPARE(style.generatedIconPixmap(QIcon::Active, pixmap, nullptr).size(), QSize(8, 8));
            break;
        }
        case 4: {
            QIcon icon;
            QVERIFY(QMetaObject::invokeMethod(
                &style, "standardIconImplementation", Q_RETURN_ARG(QIcon, icon),
                Q_ARG(QStyle::StandardPixmap, QStyle::SP_DialogOkButton),
                Q_ARG(const QStyleOption*, nullptr), Q_ARG(const QWidget*, nullptr)));
            QCOMPARE(icon.isNull(), plain->standardIcon(QStyle::SP_DialogOkButton).isNull());
            break;
        }
        case 5: {
            int spacing = -2;
            QVERIFY(QMetaObject::invokeMethod(
                &style, "layoutSpacingImplementation", Q_RETURN_ARG(int, spacing),
                Q_ARG(QSizePolicy::ControlType, QSizePolicy::PushButton),
                Q_ARG(QSizePolicy::ControlType, QSizePolicy::PushButton),
                Q_ARG(Qt::Orientation, Qt::Horizontal), Q_ARG(const QStyleOption*, nullptr),
                Q_ARG(const QWidget*, nullptr)));
            QCOMPARE(spacing,
                     plain->layoutSpacing(QSizePolicy::PushButton, QSizePolicy::PushButton,
                                          Qt::Horizontal));
            break;
        }
        }
    }

    void nullOptionsReachTheBase_data()
    {
        QTest::addColumn<QString>("operation");
        for (const char* operation :
             {"drawPrimitive", "drawControl", "subElementRect", "drawComplexControl",
              "hitTestComplexControl", "subControlRect", "sizeFromContents"})
            QTest::newRow(operation) << QString::fromLatin1(operation);
    }

    void nullOptionsReachTheBase()
    {
        QFETCH(QString, operation);
        auto* base = new AnsweringStyle;
        DisabledLookStyle style(base);
        QImage image(8, 8, QImage::Format_ARGB32);
        QPainter painter(&image);
        if (operation == QLatin1String("drawPrimitive")) {
            style.drawPrimitive(QStyle::PE_FrameFocusRect, nullptr, &painter);
        } else if (operation == QLatin1String("drawControl")) {
            style.drawControl(QStyle::CE_PushButton, nullptr, &painter);
        } else if (operation == QLatin1String("subElementRect")) {
            QCOMPARE(style.subElementRect(QStyle::SE_PushButtonContents, nullptr, nullptr),
                     AnsweringStyle::kRect);
        } else if (operation == QLatin1String("drawComplexControl")) {
            style.drawComplexControl(QStyle::CC_Slider, nullptr, &painter);
        } else if (operation == QLatin1String("hitTestComplexControl")) {
            QCOMPARE(style.hitTestComplexControl(QStyle::CC_Slider, nullptr, QPoint(1, 1)),
                     QStyle::SC_SliderHandle);
        } else if (operation == QLatin1String("subControlRect")) {
            QCOMPARE(
                style.subControlRect(QStyle::CC_Slider, nullptr, QStyle::SC_SliderGroove, nullptr),
                AnsweringStyle::kRect);
        } else {
            QCOMPARE(style.sizeFromContents(QStyle::CT_PushButton, nullptr, QSize(10, 20), nullptr),
                     QSize(13, 25));
        }
        QCOMPARE(base->m_lCalls, QStringList(operation + QStringLiteral(" without one")));
    }

    void drawsEnabledWidgetAsDisabled()
    {
        auto* recorder = new RecordingStyle;
        DisabledLookStyle style(recorder);
        QPushButton button(QStringLiteral("Run"));
        button.setStyle(&style);
        button.resize(120, 40);
        QVERIFY(button.isEnabled());
        QImage image(button.size(), QImage::Format_ARGB32);
        button.render(&image);
        QVERIFY(!recorder->m_lStates.isEmpty());
        for (QStyle::State state : recorder->m_lStates)
            QVERIFY(!(state & QStyle::State_Enabled));
    }

    void looksLikeADisabledWidget_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("push button") << "QPushButton";
        QTest::newRow("check box") << "QCheckBox";
        QTest::newRow("line edit") << "QLineEdit";
        QTest::newRow("slider") << "QSlider";
    }

    void looksLikeADisabledWidget()
    {
        QFETCH(QString, kind);
        auto make = [&kind]() -> std::unique_ptr<QWidget> {
            if (kind == QLatin1String("QPushButton"))
                return std::make_unique<QPushButton>(QStringLiteral("Run"));
            if (kind == QLatin1String("QCheckBox"))
                return std::make_unique<QCheckBox>(QStringLiteral("Trigger"));
            if (kind == QLatin1String("QLineEdit"))
                return std::make_unique<QLineEdit>(QStringLiteral("250"));
            auto slider = std::make_unique<QSlider>(Qt::Horizontal);
            slider->setValue(40);
            return slider;
        };
        // The disabled colours in every group, as the navigator sets them for its locked look.
        QPalette palette = QApplication::palette();
        for (int role = QPalette::WindowText; role <= QPalette::AlternateBase; ++role) {
            const auto colorRole = QPalette::ColorRole(role);
            palette.setBrush(QPalette::All, colorRole,
                             palette.brush(QPalette::Disabled, colorRole));
        }
        DisabledLookStyle style(QStyleFactory::create(QStringLiteral("Fusion")));
        std::unique_ptr<QStyle> fusion(QStyleFactory::create(QStringLiteral("Fusion")));

        std::unique_ptr<QWidget> looked = make();
        ::forceStyle(looked.get(), palette, &style, true);
        std::unique_ptr<QWidget> disabled = make();
        ::forceStyle(disabled.get(), QApplication::palette(), fusion.get(), true);
        disabled->setEnabled(false);
        for (QWidget* widget : {looked.get(), disabled.get()})
            widget->resize(140, 36);

        QImage lookedImage(looked->size(), QImage::Format_ARGB32);
        QImage disabledImage(disabled->size(), QImage::Format_ARGB32);
        lookedImage.fill(Qt::transparent);
        disabledImage.fill(Qt::transparent);
        looked->render(&lookedImage);
        disabled->render(&disabledImage);
        QVERIFY(looked->isEnabled());
        QCOMPARE(lookedImage, disabledImage);

        // And it is not simply what any enabled widget looks like.
        std::unique_ptr<QWidget> enabled = make();
        ::forceStyle(enabled.get(), QApplication::palette(), fusion.get(), true);
        enabled->resize(140, 36);
        QImage enabledImage(enabled->size(), QImage::Format_ARGB32);
        enabledImage.fill(Qt::transparent);
        enabled->render(&enabledImage);
        QVERIFY(enabledImage != disabledImage);
    }

    void styledWidgetKeepsWorking()
    {
        DisabledLookStyle style(nullptr);
        QWidget window;
        auto* button = new QPushButton(QStringLiteral("Run"), &window);
        auto* edit = new QLineEdit(&window);
        edit->move(0, 50);
        ::forceStyle(&window, QApplication::palette(), &style, true);
        QCOMPARE(button->style(), &style);
        QCOMPARE(edit->style(), &style);
        QSignalSpy clicked(button, &QPushButton::clicked);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(clicked.count(), 1);
        QTest::keyClicks(edit, QStringLiteral("abc"));
        QCOMPARE(edit->text(), QStringLiteral("abc"));
    }

    void styledControlsKeepWorking()
    {
        DisabledLookStyle style(nullptr);
        QWidget window;
        auto* slider = new QSlider(Qt::Horizontal, &window);
        slider->setGeometry(0, 0, 200, 30);
        slider->setRange(0, 100);
        slider->setPageStep(10);
        auto* spinBox = new ProbeSpinBox(&window);
        spinBox->setGeometry(0, 40, 120, 30);
        spinBox->setRange(0, 100);
        spinBox->setValue(5);
        auto* comboBox = new QComboBox(&window);
        comboBox->setGeometry(0, 80, 120, 30);
        comboBox->addItems({QStringLiteral("Off"), QStringLiteral("On")});
        ::forceStyle(&window, QApplication::palette(), &style, true);
        window.resize(220, 120);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));

        // A click in the groove, right of the handle, moves the handle that way.
        QTest::mouseClick(slider, Qt::LeftButton, {}, QPoint(190, 15));
        const int clicked = slider->value();
        QVERIFY(clicked > 0);
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(slider->value(), clicked + 1);

        QStyleOptionSpinBox option;
        spinBox->initStyleOption(&option);
        const QRect up = spinBox->style()->subControlRect(QStyle::CC_SpinBox, &option,
                                                          QStyle::SC_SpinBoxUp, spinBox);
        QVERIFY(!up.isEmpty());
        QTest::mouseClick(spinBox, Qt::LeftButton, {}, up.center());
        QCOMPARE(spinBox->value(), 6);

        // The offscreen platform says so when a popup asks for the keyboard; that is no fault here.
        TestSupport::expectWarning(QRegularExpression(
            QStringLiteral("^This plugin does not support grabbing the keyboard")));
        QTest::mouseClick(comboBox, Qt::LeftButton);
        QTRY_VERIFY(comboBox->view()->isVisible());
        comboBox->hidePopup();
        QTRY_VERIFY(!comboBox->view()->isVisible());
    }

    void forceStyleOnTree_data()
    {
        QTest::addColumn<bool>("children");
        QTest::newRow("with children") << true;
        QTest::newRow("top only") << false;
    }

    void forceStyleOnTree()
    {
        QFETCH(bool, children);
        DisabledLookStyle style(nullptr);
        QWidget top;
        auto* middle = new QWidget(&top);
        auto* leaf = new QWidget(middle);
        // A child with a style of its own does not follow its parent's.
        std::unique_ptr<QStyle> own(QStyleFactory::create(QStringLiteral("Fusion")));
        leaf->setStyle(own.get());
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::magenta);
        ::forceStyle(&top, palette, &style, children);
        QCOMPARE(top.style(), &style);
        QCOMPARE(top.palette().color(QPalette::Window), QColor(Qt::magenta));
        QCOMPARE(leaf->style(), children ? static_cast<QStyle*>(&style) : own.get());
        QCOMPARE(middle->testAttribute(Qt::WA_SetStyle), children);
        ::forceStyle(nullptr, palette, &style, children);
    }

    void ledKeepsItsSize_data()
    {
        QTest::addColumn<bool>("state");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("lit") << true << QColor(Qt::green);
        QTest::newRow("not lit") << false << QColor(Qt::red);
    }

    void ledKeepsItsSize()
    {
        QFETCH(bool, state);
        QFETCH(QColor, colour);
        LedWidget led(nullptr, state);
        led.resize(64, 64);
        QImage image(led.size(), QImage::Format_ARGB32);
        image.fill(Qt::white);
        led.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        QCOMPARE(image.pixelColor(8, 8), colour);
        QCOMPARE(image.pixelColor(1, 1), QColor(Qt::white));
        QCOMPARE(image.pixelColor(32, 32), QColor(Qt::white));
        QCOMPARE(image.pixelColor(20, 8), QColor(Qt::white));
    }
};

QTEST_MAIN(TestDisabledLook)
#include "tst_disabledlook.moc"
