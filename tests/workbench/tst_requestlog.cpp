#include "requestlog.h"
#include "testsupport.h"

#include <QImage>
#include <QTest>

class TestRequestLog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void describe_data();
    void describe();
    void rows();
};

void TestRequestLog::initTestCase()
{
    TestSupport::failOnWarnings();
}

void TestRequestLog::cleanup()
{
    QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
}

void TestRequestLog::describe_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("none") << QVariant() << "none";
    QTest::newRow("text") << QVariant("DONT_BLOCK_ME") << "\"DONT_BLOCK_ME\"";
    QTest::newRow("number") << QVariant(42) << "42";
    QTest::newRow("64-bit") << QVariant(qlonglong(-9223372036854775807LL - 1))
                            << "-9223372036854775808";
    QTest::newRow("bool") << QVariant(false) << "false";
    QTest::newRow("list") << QVariant(QVariantList {"Job.A", 4, 1.5, false})
                          << "[\"Job.A\", 4, 1.5, false]";
    QTest::newRow("nested") << QVariant(QVariantList {QVariantList {1}, QStringList {"a", "b"}})
                            << "[[1], [\"a\", \"b\"]]";
    QTest::newRow("map") << QVariant(QVariantMap {{"Max", 9}, {"Min", 1}}) << "{Max: 9, Min: 1}";
    QTest::newRow("bytes") << QVariant(QByteArray(5, 'x')) << "5 byte(s)";
    QTest::newRow("image") << QVariant(QImage(3, 2, QImage::Format_RGB32)) << "image 3 x 2";
    QTest::newRow("long text") << QVariant(QString(200, 'a'))
                               << '"' + QString(119, 'a') + QChar(0x2026) + '"';
}

void TestRequestLog::describe()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    QCOMPARE(RequestLog::sDescribe(value), text);
}

void TestRequestLog::rows()
{
    RequestLog log;
    WRequest<QVariant> request(500, 521, WParam<QVariant>(QVariantList {"Job.A"}, 953), WaitOnReply,
                               25000);
    log.vAppend(request, QVariant(), QStringLiteral("Deleted Job.A"));
    log.vAppend(WRequest<QVariant>(0, 9, WParam<QVariant>(), WaitOnReply, 25000), QVariant(),
                QStringLiteral("Selected Job"));
    log.vAppend(WRequest<QVariant>(500, 532, WParam<QVariant>("Job.A", 625), WaitOnReply, 25000),
                QVariant(), QStringLiteral("Moved"));
    log.vAppend(WRequest<QVariant>(0, 777, WParam<QVariant>(1, 999), WaitOnReply, 25000),
                QVariant(), QStringLiteral("Not handled"));
    QCOMPARE(log.count(), 4);
    QCOMPARE(log.rowTexts(0), QStringList({"1", "500", "521 delete", "953 value = [\"Job.A\"]",
                                           "none", "Deleted Job.A"}));
    QCOMPARE(log.rowTexts(1).at(2), QStringLiteral("9 selection changed"));
    QCOMPARE(log.rowTexts(1).at(3), QString());
    QCOMPARE(log.rowTexts(2).mid(2, 2),
             QStringList({"532 move module", "625 source = \"Job.A\""}));
    // What the log does not know stays a bare number.
    QCOMPARE(log.rowTexts(3).mid(2, 2), QStringList({"777", "999 = 1"}));
    QCOMPARE(log.requestId(0), 521);
    QCOMPARE(log.requestId(3), 777);
    QCOMPARE(log.requestId(4), 0);
    log.clear();
    QCOMPARE(log.count(), 0);
    QVERIFY(log.rowTexts(0).isEmpty());
}

QTEST_MAIN(TestRequestLog)
#include "tst_requestlog.moc"
