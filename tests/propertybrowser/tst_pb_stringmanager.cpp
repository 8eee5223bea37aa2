#include "propertymetatype.h"
#include "qtstringpropertymanager.h"
#include "qttreepropertybrowser.h"

#include "testsupport.h"

#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

class TestStringManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        qRegisterMetaType<QtProperty*>();
    }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void newPropertyTakesAnyText()
    {
        QtStringPropertyManager manager;
        QtProperty* property = manager.addProperty(QStringLiteral("label"));
        QVERIFY(manager.value(property).isEmpty());
        QCOMPARE(manager.echoMode(property), QLineEdit::Normal);
        QCOMPARE(manager.isReadOnly(property), false);
        QVERIFY(manager.regExp(property).exactMatch(QStringLiteral("anything at all")));
        manager.setValue(property, QStringLiteral("any text 123 !"));
        QCOMPARE(manager.value(property), QStringLiteral("any text 123 !"));
        QCOMPARE(property->valueText(), QStringLiteral("any text 123 !"));
    }

    void setValue_data()
    {
        QTest::addColumn<QRegExp>("regExp");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<int>("emitted");
        const QRegExp digits(QStringLiteral("[0-9]{1,3}"));
        QTest::newRow("matching") << digits << "42"
                                  << "42" << 1;
        QTest::newRow("too long") << digits << "1234"
                                  << "7" << 0;
        QTest::newRow("letters") << digits << "4a"
                                 << "7" << 0;
        QTest::newRow("same") << digits << "7"
                              << "7" << 0;
        QTest::newRow("invalid expression checks nothing") << QRegExp(QStringLiteral("(")) << "text"
                                                           << "text" << 1;
    }

    void setValue()
    {
        QFETCH(QRegExp, regExp);
        QFETCH(QString, value);
        QFETCH(QString, expected);
        QFETCH(int, emitted);
        QtStringPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setValue(property, QStringLiteral("7"));
        manager.setRegExp(property, regExp);
        QSignalSpy valueSpy(&manager, &QtStringPropertyManager::valueChanged);
        QSignalSpy changedSpy(&manager, &QtAbstractPropertyManager::propertyChanged);
        manager.setValue(property, value);
        QCOMPARE(manager.value(property), expected);
        QCOMPARE(property->valueText(), expected);
        QCOMPARE(valueSpy.count(), emitted);
        QCOMPARE(changedSpy.count(), emitted);
        if (emitted == 1) {
            QCOMPARE(valueSpy.at(0).at(0).value<QtProperty*>(), property);
            QCOMPARE(valueSpy.at(0).at(1).toString(), expected);
        }
    }

    void setRegExpKeepsTheValue()
    {
        QtStringPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setValue(property, QStringLiteral("abc"));
        QSignalSpy spy(&manager, &QtStringPropertyManager::regExpChanged);
        const QRegExp digits(QStringLiteral("[0-9]+"));
        manager.setRegExp(property, digits);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(1).toRegExp(), digits);
        QCOMPARE(manager.regExp(property), digits);
        QCOMPARE(manager.value(property), QStringLiteral("abc"));
        manager.setRegExp(property, digits);
        QCOMPARE(spy.count(), 1);
    }

    void echoMode_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("emitted");
        QTest::newRow("password") << int(QLineEdit::Password) << 1;
        QTest::newRow("no echo") << int(QLineEdit::NoEcho) << 1;
        QTest::newRow("same") << int(QLineEdit::Normal) << 0;
    }

    void echoMode()
    {
        QFETCH(int, mode);
        QFETCH(int, emitted);
        QtStringPropertyManager manager;
        QtProperty* property = manager.addProperty();
        QSignalSpy spy(&manager, &QtStringPropertyManager::echoModeChanged);
        manager.setEchoMode(property, static_cast<QLineEdit::EchoMode>(mode));
        QCOMPARE(int(manager.echoMode(property)), mode);
        QCOMPARE(spy.count(), emitted);
        if (emitted == 1)
            QCOMPARE(spy.at(0).at(1).toInt(), mode);
    }

    void readOnly()
    {
        QtStringPropertyManager manager;
        QtProperty* property = manager.addProperty();
        QSignalSpy spy(&manager, &QtStringPropertyManager::readOnlyChanged);
        manager.setReadOnly(property, true);
        manager.setReadOnly(property, true);
        QCOMPARE(spy.count(), 1);
        QVERIFY(manager.isReadOnly(property));
        QCOMPARE(spy.at(0).at(1).toBool(), true);
    }

    void longTextsAreCutForTheCell_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("shown");
        const QString a4096(4096, QLatin1Char('a'));
        QTest::newRow("4,096 characters stay whole") << a4096 << a4096;
        QTest::newRow("one more is cut with an ellipsis")
            << a4096 + QLatin1Char('b') << a4096 + QChar(0x2026);
        // A character beyond the basic plane is two; it is not cut in half.
        const QString clef = QString::fromUcs4(U"\U0001D11E");
        QTest::newRow("a pair across the cut goes whole")
            << QString(4095, QLatin1Char('a')) + clef + QLatin1Char('b')
            << QString(4095, QLatin1Char('a')) + QChar(0x2026);
        QTest::newRow("50 million characters")
            << QString(50000000, QLatin1Char('x')) << QString(4096, QLatin1Char('x')) + QChar(0x2026);
    }

    void longTextsAreCutForTheCell()
    {
        QFETCH(QString, value);
        QFETCH(QString, shown);
        QtStringPropertyManager manager;
        QtProperty* property = manager.addProperty(QStringLiteral("text"));
        manager.setValue(property, value);
        QtTreePropertyBrowser browser;
        browser.addProperty(property);
        const QAbstractItemModel* model = browser.findChild<QTreeView*>()->model();
        QCOMPARE(model->index(0, 1).data(Qt::DisplayRole).toString(), shown);
        QCOMPARE(model->index(0, 1).data(Qt::ToolTipRole).toString(), shown);
        // The manager keeps the whole value; only what is shown is cut.
        QCOMPARE(manager.value(property).size(), value.size());
    }

    void propertyOfAnotherManagerIsIgnored()
    {
        QtStringPropertyManager manager;
        QtStringPropertyManager other;
        QtProperty* foreign = other.addProperty();
        QSignalSpy spy(&manager, &QtStringPropertyManager::valueChanged);
        manager.setValue(foreign, QStringLiteral("x"));
        QCOMPARE(spy.count(), 0);
        QVERIFY(other.value(foreign).isEmpty());
    }
};

QTEST_MAIN(TestStringManager)

#include "tst_pb_stringmanager.moc"
