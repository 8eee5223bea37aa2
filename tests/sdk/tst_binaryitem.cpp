#include "sdk/binaryitem.h"

#include "testsupport.h"

#include <QTest>

using Script::BinaryItem;
using Script::DItem;

class TestBinaryItem : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void isANodeOfBinaryType()
    {
        BinaryItem item(QStringLiteral("Job.Model.Data"));
        QCOMPARE(item.iDataType(), QStringLiteral("IDataBinary"));
        QCOMPARE(item.property("IData.Type").toString(), QStringLiteral("IDataBinary"));
        DItem* asNode = &item;
        QCOMPARE(qobject_cast<BinaryItem*>(asNode), &item);
        QVERIFY(item.binaryData().isEmpty());
    }

    void fileVariant()
    {
        const BinaryItem item(QStringLiteral("Job.Script.File"), QStringLiteral("IDataBinaryFile"),
                              DItem::IoNone);
        QCOMPARE(item.iDataType(), QStringLiteral("IDataBinaryFile"));
        QCOMPARE(item.unTranslatedName(), QStringLiteral("File"));
    }

    void holdsBytesWithZeros_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("* a script\n");
        QTest::newRow("embedded zero") << QByteArray("ab\0cd", 5);
        QTest::newRow("all byte values") << [] {
            QByteArray all;
            for (int i = 0; i < 256; ++i)
                all.append(char(i));
            return all;
        }();
    }

    void holdsBytesWithZeros()
    {
        QFETCH(QByteArray, bytes);
        BinaryItem item;
        item.setBinaryData(bytes);
        QCOMPARE(item.binaryData(), bytes);
        QCOMPARE(item.binaryData().size(), bytes.size());
    }

    void replacingTheBytesKeepsTheReference()
    {
        BinaryItem item;
        const QByteArray& held = item.binaryData();
        item.setBinaryData(QByteArray("first"));
        item.setBinaryData(QByteArray("second"));
        QCOMPARE(held, QByteArray("second"));
    }
};

QTEST_MAIN(TestBinaryItem)
#include "tst_binaryitem.moc"
