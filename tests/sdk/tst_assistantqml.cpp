#include "sdk/element.h"

#include "testsupport.h"

#include <QQmlEngine>

#include <QHash>
#include <QQuickItem>
#include <QQuickWidget>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>

#include <memory>

namespace {

const QUrl startUrl(QStringLiteral("qrc:/resources/qml/StartAssistantComponent.qml"));
const QUrl welcomeUrl(QStringLiteral("qrc:/resources/qml/WelcomeAssistant.qml"));

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

bool hasSignal(const QObject* object, const char* signature)
{
    return object->metaObject()->indexOfSignal(signature) >= 0;
}

// Clicks the middle of the QML item @p item as the mouse would.
void click(QQuickWidget& view, QObject* item)
{
    auto* quickItem = qobject_cast<QQuickItem*>(item);
    QVERIFY(quickItem);
    const QPointF centre
        = quickItem->mapToScene(QPointF(quickItem->width() / 2, quickItem->height() / 2));
    QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier, centre.toPoint());
}

} // namespace

class TestAssistantQml : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        // As the dock does before it shows the pages; the pages must not depend on it.
        qmlRegisterUncreatableType<Assistant::Element>("Element", 1, 0, "Element",
                                                       QStringLiteral("Element type object "
                                                                      "cannot be created."));
    }

    void cleanup()
    {
        m_poView.reset();
        QCoreApplication::removeTranslator(&m_oFirst);
        QCoreApplication::removeTranslator(&m_oSecond);
        QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    }

    void loadsWithoutErrors_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::addColumn<QSize>("minimum");
        QTest::newRow("start") << startUrl << QSize(100, 50);
        QTest::newRow("welcome") << welcomeUrl << QSize(360, 500);
    }

    void loadsWithoutErrors()
    {
        QFETCH(QUrl, url);
        QFETCH(QSize, minimum);
        QObject* root = load(url);
        QVERIFY(root);
        QVERIFY(m_poView->errors().isEmpty());
        QCOMPARE(m_poView->status(), QQuickWidget::Ready);
        QVERIFY(root->property("forceTranslate").isValid());
        auto* rootItem = qobject_cast<QQuickItem*>(root);
        QVERIFY(rootItem);
        QVERIFY(rootItem->implicitWidth() >= minimum.width());
        QCOMPARE(rootItem->implicitHeight() >= minimum.height(), true);

        // The page draws something: more than one colour.
        const QImage picture = m_poView->grabFramebuffer();
        QVERIFY(!picture.isNull());
        const QRgb first = picture.pixel(0, 0);
        bool varied = false;
        for (int y = 0; y < picture.height() && !varied; y += 2) {
            for (int x = 0; x < picture.width() && !varied; x += 2)
                varied = picture.pixel(x, y) != first;
        }
        QVERIFY(varied);
    }

    void startAssistantOffersItsParts()
    {
        QObject* root = load(startUrl);
        QVERIFY(root);
        QVERIFY(hasSignal(root, "displayToolTip()"));
        QObject* button = root->findChild<QObject*>(QStringLiteral("showAssistantBtn"));
        QVERIFY(button);
        QVERIFY(hasSignal(button, "clicked()"));
        QCOMPARE(button->property("text").toString(), QStringLiteral("Start Assistant"));
    }

    void startButtonClicks()
    {
        QObject* root = load(startUrl);
        QVERIFY(root);
        QObject* button = root->findChild<QObject*>(QStringLiteral("showAssistantBtn"));
        QSignalSpy clicked(button, SIGNAL(clicked()));
        click(*m_poView, button);
        QCOMPARE(clicked.count(), 1);
    }

    void disabledStartButtonDoesNotClick()
    {
        QObject* root = load(startUrl);
        QVERIFY(root);
        QObject* button = root->findChild<QObject*>(QStringLiteral("showAssistantBtn"));
        QVERIFY(root->setProperty("enabled", false));
        QSignalSpy clicked(button, SIGNAL(clicked()));
        click(*m_poView, button);
        QCOMPARE(clicked.count(), 0);
    }

    void infoButtonAsksForTheToolTip()
    {
        QObject* root = load(startUrl);
        QVERIFY(root);
        QSignalSpy toolTip(root, SIGNAL(displayToolTip()));
        QObject* info = root->findChild<QObject*>(QStringLiteral("infoBtn"));
        QVERIFY(info);
        QVERIFY(QMetaObject::invokeMethod(info, "clicked"));
        QCOMPARE(toolTip.count(), 1);
    }

    void welcomePageOffersItsParts()
    {
        QObject* root = load(welcomeUrl);
        QVERIFY(root);
        QVERIFY(hasSignal(root, "qmlCloseSignal()"));
        QObject* ok = root->findChild<QObject*>(QStringLiteral("okBtn"));
        QVERIFY(ok);
        QVERIFY(hasSignal(ok, "clicked()"));
        QObject* checkBox = root->findChild<QObject*>(QStringLiteral("checkBox"));
        QVERIFY(checkBox);
        QCOMPARE(checkBox->property("checked"), QVariant(false));
    }

    void welcomeCheckBoxAndOkButton()
    {
        QObject* root = load(welcomeUrl);
        QVERIFY(root);
        QObject* checkBox = root->findChild<QObject*>(QStringLiteral("checkBox"));
        QObject* ok = root->findChild<QObject*>(QStringLiteral("okBtn"));
        click(*m_poView, checkBox);
        QCOMPARE(checkBox->property("checked"), QVariant(true));
        QSignalSpy clicked(ok, SIGNAL(clicked()));
        click(*m_poView, ok);
        QCOMPARE(clicked.count(), 1);
        click(*m_poView, checkBox);
        QCOMPARE(checkBox->property("checked"), QVariant(false));
    }

    void welcomeCloseButtonSendsTheCloseSignal()
    {
        QObject* root = load(welcomeUrl);
        QVERIFY(root);
        QSignalSpy closing(root, SIGNAL(qmlCloseSignal()));
        QObject* close = root->findChild<QObject*>(QStringLiteral("closeBtn"));
        QVERIFY(close);
        click(*m_poView, close);
        QCOMPARE(closing.count(), 1);
    }

    void forceTranslateReadsTheTextsAgain_data()
    {
        QTest::addColumn<QUrl>("url");
        QTest::addColumn<QString>("context");
        QTest::addColumn<QString>("child");
        QTest::addColumn<QString>("source");
        QTest::newRow("start button")
            << startUrl << QStringLiteral("StartAssistantComponent")
            << QStringLiteral("showAssistantBtn") << QStringLiteral("Start Assistant");
        QTest::newRow("welcome ok") << welcomeUrl << QStringLiteral("WelcomeAssistant")
                                    << QStringLiteral("okBtn") << QStringLiteral("OK");
        QTest::newRow("welcome check box")
            << welcomeUrl << QStringLiteral("WelcomeAssistant") << QStringLiteral("checkBox")
            << QStringLiteral("Do not show this page again");
    }

    void forceTranslateReadsTheTextsAgain()
    {
        QFETCH(QUrl, url);
        QFETCH(QString, context);
        QFETCH(QString, child);
        QFETCH(QString, source);
        QObject* root = load(url);
        QVERIFY(root);
        QObject* item = root->findChild<QObject*>(child);
        QVERIFY(item);
        QCOMPARE(item->property("text").toString(), source);

        m_oFirst.add(context, source, QStringLiteral("first ") + source);
        QCoreApplication::installTranslator(&m_oFirst);
        // Installing a translator alone changes nothing on the page.
        QCOMPARE(item->property("text").toString(), source);
        QVERIFY(root->setProperty("forceTranslate", QStringLiteral(" ")));
        QCOMPARE(item->property("text").toString(), QStringLiteral("first ") + source);

        // The host writes the same text each time; every write counts.
        QCoreApplication::removeTranslator(&m_oFirst);
        m_oSecond.add(context, source, QStringLiteral("second ") + source);
        QCoreApplication::installTranslator(&m_oSecond);
        QVERIFY(root->setProperty("forceTranslate", QStringLiteral(" ")));
        QCOMPARE(item->property("text").toString(), QStringLiteral("second ") + source);

        QCoreApplication::removeTranslator(&m_oSecond);
        QVERIFY(root->setProperty("forceTranslate", QStringLiteral(" ")));
        QCOMPARE(item->property("text").toString(), source);
    }

private:
    // Shows @p url in a fresh view, as the dock does, and returns its root object.
    QObject* load(const QUrl& url)
    {
        m_poView = std::make_unique<QQuickWidget>();
        m_poView->setResizeMode(QQuickWidget::SizeRootObjectToView);
        m_poView->setSource(url);
        m_poView->resize(400, 520);
        m_poView->show();
        if (!QTest::qWaitForWindowExposed(m_poView.get()))
            return nullptr;
        return m_poView->rootObject();
    }

    std::unique_ptr<QQuickWidget> m_poView;
    TableTranslator m_oFirst;
    TableTranslator m_oSecond;
};

QTEST_MAIN(TestAssistantQml)
#include "tst_assistantqml.moc"
