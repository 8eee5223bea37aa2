#include "sdk/apputils.h"

#include "testsupport.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QTest>

namespace {

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
class TestHiDpiIcons : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        QCOMPARE(qApp->devicePixelRatio(), 2.0);
    }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void checkBoxIconsHaveAPhysicalPixelEach_data()
    {
        QTest::addColumn<bool>("checked");
        QTest::newRow("checked") << true;
        QTest::newRow("unchecked") << false;
    }

    void checkBoxIconsHaveAPhysicalPixelEach()
    {
        QFETCH(bool, checked);
        const QIcon icon = App::Utils(App::UtilsCheckBoxIcon, checked).value<QIcon>();
        QVERIFY(!icon.isNull());
        const QPixmap pixmap = icon.pixmap(QSize(16, 16));
        QCOMPARE(pixmap.devicePixelRatio(), 2.0);
        QCOMPARE(pixmap.size(), QSize(32, 32));
    }

    void checkBoxIconIsDrawnAtFullDensity()
    {
        const QIcon icon = App::Utils(App::UtilsCheckBoxIcon, true).value<QIcon>();
        const QImage sharp = icon.pixmap(QSize(16, 16)).toImage();
        // The same icon drawn at 16 physical pixels and blown up, as a bitmap icon would be.
        QImage blurred(32, 32, QImage::Format_ARGB32_Premultiplied);
        blurred.fill(Qt::transparent);
        {
            QPainter painter(&blurred);
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            QPixmap small = icon.pixmap(QSize(8, 8));
            painter.drawPixmap(QRect(0, 0, 32, 32), small);
        }
        QCOMPARE(sharp.size(), QSize(32, 32));
        QVERIFY2(softPixels(sharp) < softPixels(blurred),
                 qPrintable(QStringLiteral("%1 soft pixels drawn, %2 scaled")
                                .arg(softPixels(sharp))
                                .arg(softPixels(blurred))));
    }
};

int main(int argc, char** argv)
{
    // Must be set before the application exists: the screen's ratio is fixed when it is made.
    qputenv("QT_SCALE_FACTOR", "2");
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    TestHiDpiIcons test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_hidpiicons.moc"
