#include "sdk/apptranslation.h"
#include "sdk/apputils.h"
#include "sdk/element.h"
#include "sdk/metrics.h"

#include "testsupport.h"

#include <QApplication>
#include <QHash>
#include <QIcon>
#include <QMainWindow>
#include <QMetaProperty>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

namespace {

// A translator filled from a table, so that a test needs no compiled translation file.
class TableTranslator : public QTranslator
{
public:
    void add(const QString& context, const QString& source, const QString& translation)
    {
        m_mapTexts.insert(context + QLatin1Char('\n') + source, translation);
    }

    bool isEmpty() const override { return m_mapTexts.isEmpty(); }

    QString translate(const char* context, const char* source, const char* disambiguation,
                      int n) const override
    {
        Q_UNUSED(disambiguation)
        Q_UNUSED(n)
        return m_mapTexts.value(QString::fromUtf8(context) + QLatin1Char('\n')
                                + QString::fromUtf8(source));
    }

private:
    QHash<QString, QString> m_mapTexts;
};

QImage iconImage(const QVariant& icon, int size)
{
    return icon.value<QIcon>().pixmap(size, size).toImage();
}

} // namespace

class TestApp : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        m_oTranslator.add(QStringLiteral("IData"), QStringLiteral("Threshold"),
                          QStringLiteral("Schwellwert"));
        m_oTranslator.add(QStringLiteral("IData"), QStringLiteral("Error"),
                          QStringLiteral("Fehler"));
        m_oTranslator.add(QStringLiteral("Other"), QStringLiteral("Threshold"),
                          QStringLiteral("Seuil"));
        m_oTranslator.add(QStringLiteral("Other"), QStringLiteral("Only here"),
                          QStringLiteral("Nur hier"));
        m_oTranslator.add(QStringLiteral("IData"), QStringLiteral("Größe"), QStringLiteral("Size"));
    }

    void cleanup()
    {
        QCoreApplication::removeTranslator(&m_oTranslator);
        App::Metrics::setMainWindow(nullptr);
        QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    }

    void translatedNameWithoutTranslatorIsTheName()
    {
        QCOMPARE(App::getTranslatedName(QStringLiteral("Threshold")), QStringLiteral("Threshold"));
        QCOMPARE(App::getTranslatedName(QString()), QString());
    }

    void translatedName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("expected");
        QTest::newRow("translated") << QStringLiteral("Threshold") << QStringLiteral("Schwellwert");
        QTest::newRow("status word") << QStringLiteral("Error") << QStringLiteral("Fehler");
        QTest::newRow("other context only")
            << QStringLiteral("Only here") << QStringLiteral("Only here");
        QTest::newRow("unknown") << QStringLiteral("Area") << QStringLiteral("Area");
        QTest::newRow("beyond ASCII") << QStringLiteral("Größe") << QStringLiteral("Size");
    }

    void translatedName()
    {
        QFETCH(QString, name);
        QFETCH(QString, expected);
        QVERIFY(QCoreApplication::installTranslator(&m_oTranslator));
        QCOMPARE(App::getTranslatedName(name), expected);
    }

    void translationTriesTheContextsInOrder_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QStringList>("contexts");
        QTest::addColumn<QString>("expected");
        QTest::newRow("first wins")
            << QStringLiteral("Threshold")
            << QStringList {QStringLiteral("Other"), QStringLiteral("IData")}
            << QStringLiteral("Seuil");
        QTest::newRow("falls through")
            << QStringLiteral("Only here")
            << QStringList {QStringLiteral("IData"), QStringLiteral("Other")}
            << QStringLiteral("Nur hier");
        QTest::newRow("no context")
            << QStringLiteral("Threshold") << QStringList() << QStringLiteral("Threshold");
        QTest::newRow("none translates")
            << QStringLiteral("Area") << QStringList {QStringLiteral("IData")}
            << QStringLiteral("Area");
    }

    void translationTriesTheContextsInOrder()
    {
        QFETCH(QString, key);
        QFETCH(QStringList, contexts);
        QFETCH(QString, expected);
        QVERIFY(QCoreApplication::installTranslator(&m_oTranslator));
        QCOMPARE(App::getTranslation(key, contexts), expected);
    }

    void iconFromAResourcePath()
    {
        const QVariant result
            = App::Utils(App::UtilsIconFromPath, QStringLiteral(":/images/omniSpect.svg"));
        QVERIFY(result.canConvert<QIcon>());
        const QIcon icon = result.value<QIcon>();
        QVERIFY(!icon.isNull());
        QCOMPARE(icon.pixmap(24, 24).size(), QSize(24, 24));
        QCOMPARE(App::Utils(App::UtilsId(0), QStringLiteral(":/images/file_open.svg"), QVariant(),
                            QVariant())
                     .value<QIcon>()
                     .isNull(),
                 false);
    }

    void iconFromAnEmptyPathIsInvalid()
    {
        QVERIFY(!App::Utils(App::UtilsIconFromPath, QString()).isValid());
        QVERIFY(!App::Utils(App::UtilsIconFromPath).isValid());
    }

    void checkBoxIcons()
    {
        const QVariant checked
            = App::Utils(App::UtilsId(2), QVariant(true), QVariant(), QVariant());
        const QVariant unchecked = App::Utils(App::UtilsCheckBoxIcon, QVariant(false));
        QVERIFY(checked.canConvert<QIcon>());
        QVERIFY(unchecked.canConvert<QIcon>());
        QVERIFY(!checked.value<QIcon>().isNull());
        QVERIFY(!unchecked.value<QIcon>().isNull());
        QVERIFY(iconImage(checked, 16) != iconImage(unchecked, 16));
        // The same state gives the same picture every time.
        QCOMPARE(iconImage(App::Utils(App::UtilsCheckBoxIcon, true), 16), iconImage(checked, 16));
    }

    void checkBoxIconsAreVectorArt()
    {
        // A bitmap icon would only scale; these render afresh at every size.
        const QImage big = iconImage(App::Utils(App::UtilsCheckBoxIcon, true), 64);
        QCOMPARE(big.size(), QSize(64, 64));
        const QImage upscaled = iconImage(App::Utils(App::UtilsCheckBoxIcon, true), 16)
                                    .scaled(64, 64, Qt::IgnoreAspectRatio, Qt::FastTransformation);
        QVERIFY(big.convertToFormat(QImage::Format_ARGB32)
                != upscaled.convertToFormat(QImage::Format_ARGB32));
    }

    void otherIdsAreInvalid_data()
    {
        QTest::addColumn<int>("id");
        QTest::newRow("1") << 1;
        QTest::newRow("3") << 3;
        QTest::newRow("negative") << -1;
    }

    void otherIdsAreInvalid()
    {
        QFETCH(int, id);
        QVERIFY(!App::Utils(App::UtilsId(id), QStringLiteral(":/images/omniSpect.svg")).isValid());
    }

    void centerOverAParent()
    {
        QWidget parent;
        parent.setGeometry(100, 120, 400, 300);
        QWidget dialog;
        dialog.resize(100, 50);
        App::Metrics::centerParent(&parent, &dialog);
        QCOMPARE(dialog.size(), QSize(100, 50));
        QCOMPARE(dialog.frameGeometry().center(), parent.frameGeometry().center());
    }

    void centerOverTheScreenWithoutParent()
    {
        QWidget dialog;
        dialog.resize(200, 100);
        App::Metrics::centerParent(nullptr, &dialog);
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QCOMPARE(dialog.frameGeometry().center(), screen.center());
    }

    void centeredWindowStaysOnTheScreen()
    {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QWidget parent;
        parent.setGeometry(screen.right() - 50, screen.bottom() - 50, 40, 40);
        QWidget dialog;
        dialog.resize(300, 200);
        App::Metrics::centerParent(&parent, &dialog);
        QVERIFY(screen.contains(dialog.frameGeometry()));
        QCOMPARE(dialog.frameGeometry().right(), screen.right());
        QCOMPARE(dialog.frameGeometry().bottom(), screen.bottom());
    }

    void centerAChildOverItsParent()
    {
        QWidget window;
        window.setGeometry(0, 0, 300, 300);
        auto* area = new QWidget(&window);
        area->setGeometry(100, 100, 100, 100);
        auto* child = new QWidget(&window);
        child->resize(20, 10);
        App::Metrics::centerParent(area, child);
        QCOMPARE(child->geometry().center(), area->geometry().center());
    }

    void centerNothing()
    {
        QWidget parent;
        App::Metrics::centerParent(&parent, nullptr);
        QCOMPARE(parent.pos(), QPoint(0, 0));
    }

    void mainWindow()
    {
        QCOMPARE(App::Metrics::getMainWindow(false), nullptr);
        QWidget plain;
        QCOMPARE(App::Metrics::getMainWindow(false), nullptr);
        QMainWindow window;
        QCOMPARE(App::Metrics::getMainWindow(false), &window);
        QCOMPARE(App::Metrics::getMainWindow(true), nullptr);
        App::Metrics::setMainWindow(&plain);
        QCOMPARE(App::Metrics::getMainWindow(false), &plain);
        App::Metrics::setMainWindow(nullptr);
        QCOMPARE(App::Metrics::getMainWindow(false), &window);
    }

    void chosenMainWindowThatEndsIsForgotten()
    {
        auto* chosen = new QWidget;
        App::Metrics::setMainWindow(chosen);
        delete chosen;
        QCOMPARE(App::Metrics::getMainWindow(false), nullptr);
    }

    void elementProperties()
    {
        Assistant::Element element(QStringLiteral("Step 1"), QStringLiteral("Choose a camera."));
        QCOMPARE(element.property("name").toString(), QStringLiteral("Step 1"));
        QCOMPARE(element.property("text").toString(), QStringLiteral("Choose a camera."));
        QCOMPARE(element.property("done").toBool(), false);

        QSignalSpy nameSpy(&element, &Assistant::Element::nameChanged);
        QSignalSpy textSpy(&element, &Assistant::Element::textChanged);
        QSignalSpy doneSpy(&element, &Assistant::Element::doneChanged);
        QVERIFY(element.setProperty("name", QStringLiteral("Step 2")));
        QVERIFY(element.setProperty("name", QStringLiteral("Step 2")));
        element.setText(QStringLiteral("Set the exposure."));
        element.setDone(true);
        QCOMPARE(nameSpy.count(), 1);
        QCOMPARE(textSpy.count(), 1);
        QCOMPARE(doneSpy.count(), 1);
        QCOMPARE(element.name(), QStringLiteral("Step 2"));
        QVERIFY(element.bDone());
    }

    void elementPropertiesNotifyForQml_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("name") << QByteArray("name");
        QTest::newRow("text") << QByteArray("text");
        QTest::newRow("done") << QByteArray("done");
    }

    void elementPropertiesNotifyForQml()
    {
        QFETCH(QByteArray, name);
        const QMetaObject& meta = Assistant::Element::staticMetaObject;
        const int index = meta.indexOfProperty(name.constData());
        QVERIFY(index >= 0);
        QVERIFY(meta.property(index).hasNotifySignal());
        QVERIFY(meta.property(index).isWritable());
    }

private:
    TableTranslator m_oTranslator;
};

QTEST_MAIN(TestApp)
#include "tst_app.moc"
