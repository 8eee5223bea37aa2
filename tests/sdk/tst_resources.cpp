#include "sdk/apputils.h"

#include "testsupport.h"

#include <QFile>
#include <QIcon>
#include <QSlider>
#include <QSvgRenderer>
#include <QTest>

class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void icons_data()
    {
        QTest::addColumn<QString>("path");
        const char* const names[]
            = {"Setting-3.svg",        "browse_settings.svg",    "chain_closed.svg",
               "chain_open.svg",       "chain_partial.svg",      "cs_origin.svg",
               "cursor_forbidden.svg", "edit_delete_all(2).svg", "edit_delete_all.svg",
               "file_open.svg",        "file_save.svg",          "omniSpect.svg",
               "status_warning.svg",   "checkbox_checked.svg",   "checkbox_unchecked.svg"};
        for (const char* name : names)
            QTest::newRow(name) << QStringLiteral(":/images/") + QLatin1String(name);
    }

    void icons()
    {
        QFETCH(QString, path);
        QVERIFY(QFile::exists(path));
        QSvgRenderer renderer(path);
        QVERIFY(renderer.isValid());
        // One grid for every icon, so that they line up in menus and buttons.
        QCOMPARE(renderer.viewBoxF(), QRectF(0, 0, 24, 24));

        const QIcon icon = App::Utils(App::UtilsIconFromPath, path).value<QIcon>();
        QVERIFY(!icon.isNull());
        const QImage image = icon.pixmap(24, 24).toImage().convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(image.size(), QSize(24, 24));
        int inked = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                inked += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
        }
        // Something is drawn, and not a solid square.
        QVERIFY(inked > 24);
        QVERIFY(inked < 24 * 24);
    }

    void chainIconsDiffer()
    {
        const auto picture = [](const char* name) {
            return QIcon(QStringLiteral(":/images/") + QLatin1String(name))
                .pixmap(24, 24)
                .toImage();
        };
        QVERIFY(picture("chain_closed.svg") != picture("chain_open.svg"));
        QVERIFY(picture("chain_closed.svg") != picture("chain_partial.svg"));
        QVERIFY(picture("chain_open.svg") != picture("chain_partial.svg"));
    }

    void sliderStyleSheet()
    {
        QFile file(QStringLiteral(":/resources/WStyleSheet.qss"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString sheet = QString::fromLatin1(file.readAll());
        for (const char* part : {"QSlider::groove:horizontal", "QSlider::handle:horizontal",
                                 "QSlider::sub-page:horizontal"})
            QVERIFY2(sheet.contains(QLatin1String(part)), part);

        // A sheet Qt cannot parse makes it warn, which fails the test.
        QSlider slider(Qt::Horizontal);
        slider.setStyleSheet(sheet);
        slider.setRange(0, 100);
        slider.setValue(30);
        slider.resize(200, 24);
        const QImage styled = slider.grab().toImage();
        QSlider plain(Qt::Horizontal);
        plain.setRange(0, 100);
        plain.setValue(30);
        plain.resize(200, 24);
        QVERIFY(styled != plain.grab().toImage());
    }

    void assistantPages_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("start") << QStringLiteral(":/resources/qml/StartAssistantComponent.qml");
        QTest::newRow("welcome") << QStringLiteral(":/resources/qml/WelcomeAssistant.qml");
    }

    void assistantPages()
    {
        QFETCH(QString, path);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray text = file.readAll();
        QVERIFY(text.contains("import QtQuick 2.15"));
        QVERIFY(text.contains("property string forceTranslate"));
        QVERIFY(text.contains("qsTr("));
    }
};

QTEST_MAIN(TestResources)
#include "tst_resources.moc"
