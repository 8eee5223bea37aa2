#include "qtboolpropertymanager.h"
#include "qtproperty.h"

#include "testsupport.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

namespace {

// The application style's ticked check box of 16x16 device-independent pixels, drawn at @p ratio.
QImage styleCheckBox(qreal ratio)
{
    QPixmap pixmap(QSize(16, 16) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QStyleOptionButton option;
    option.rect = QRect(0, 0, 16, 16);
    option.state = QStyle::State_Enabled | QStyle::State_On;
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter);
    painter.end();
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// Counts the pixels that are neither fully transparent nor fully opaque: the soft edge that a
// picture scaled up from fewer pixels has in plenty.
int softPixels(const QImage& image)
{
    const QImage argb = image.convertToFormat(QImage::Format_ARGB32);
    int count = 0;
    for (int y = 0; y < argb.height(); ++y) {
        for (int x = 0; x < argb.width(); ++x) {
            const int alpha = qAlpha(argb.pixel(x, y));
            if (alpha > 0 && alpha < 255)
                ++count;
        }
    }
    return count;
}

} // namespace

// Runs on a screen of device pixel ratio 2, as a high density display has.
class TestCheckBoxIconHiDpi : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        QCOMPARE(qApp->devicePixelRatio(), 2.0);
    }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void pixmapHasAPhysicalPixelEach_data()
    {
        QTest::addColumn<bool>("checked");
        QTest::newRow("checked") << true;
        QTest::newRow("unchecked") << false;
    }

    void pixmapHasAPhysicalPixelEach()
    {
        QFETCH(bool, checked);
        QtBoolPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setValue(property, checked);
        const QPixmap pixmap = property->valueIcon().pixmap(QSize(16, 16));
        QCOMPARE(pixmap.devicePixelRatio(), 2.0);
        QCOMPARE(pixmap.size(), QSize(32, 32));
    }

    void pixmapIsDrawnAtFullDensity()
    {
        QtBoolPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setValue(property, true);
        const QImage sharp = property->valueIcon()
                                 .pixmap(QSize(16, 16))
                                 .toImage()
                                 .convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(sharp, styleCheckBox(2.0));
        // The same check box drawn with a pixel per unit and blown up, as a bitmap icon would be.
        const QImage blownUp
            = styleCheckBox(1.0).scaled(32, 32, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        QVERIFY2(softPixels(sharp) < softPixels(blownUp),
                 qPrintable(QStringLiteral("%1 soft pixels drawn, %2 scaled")
                                .arg(softPixels(sharp))
                                .arg(softPixels(blownUp))));
    }
};

int main(int argc, char** argv)
{
    // Must be set before the application exists: the screen's ratio is fixed when it is made.
    qputenv("QT_SCALE_FACTOR", "2");
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    TestCheckBoxIconHiDpi test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_pb_checkboxicon_hidpi.moc"
