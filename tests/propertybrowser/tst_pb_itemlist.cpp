#include "qtbrowseritemlist.h"

#include "testsupport.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

// The list keeps pointers and never follows them, so numbers stand in for items here.
QtBrowserItem* fake(quintptr number)
{
    return reinterpret_cast<QtBrowserItem*>(number * 8 + 8);
}

} // namespace

class TestItemList : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }

    void startsEmpty();
    void insertsAtBothEndsAndInside();
    void removesAtBothEndsAndInside();
    void reorderingPattern();
    void randomAgainstAPlainList_data();
    void randomAgainstAPlainList();
    void takeAllEmptiesIt();
};

void TestItemList::startsEmpty()
{
    QtBrowserItemList list;
    QVERIFY(list.isEmpty());
    QCOMPARE(list.size(), 0);
    QVERIFY(list.toList().isEmpty());
}

void TestItemList::insertsAtBothEndsAndInside()
{
    QtBrowserItemList list;
    list.insert(0, fake(2));
    list.insert(0, fake(0));
    list.insert(2, fake(3));
    list.insert(1, fake(1));
    QCOMPARE(list.toList(), (QList<QtBrowserItem*> {fake(0), fake(1), fake(2), fake(3)}));
    QCOMPARE(list.first(), fake(0));
    QCOMPARE(list.last(), fake(3));
    QCOMPARE(list.at(2), fake(2));
}

void TestItemList::removesAtBothEndsAndInside()
{
    QtBrowserItemList list;
    for (int i = 0; i < 6; ++i)
        list.insert(i, fake(i));
    list.removeAt(5);
    list.removeAt(0);
    list.removeAt(2);
    QCOMPARE(list.toList(), (QList<QtBrowserItem*> {fake(1), fake(2), fake(4)}));
}

void TestItemList::reorderingPattern()
{
    // Reversing as the property tree reorders: take the last, put it after the ones moved.
    const int count = 1000;
    QtBrowserItemList list;
    for (int i = 0; i < count; ++i)
        list.insert(i, fake(i));
    for (int moved = 0; moved < count; ++moved) {
        QtBrowserItem* item = list.last();
        list.removeAt(count - 1);
        list.insert(moved, item);
    }
    for (int row = 0; row < count; ++row)
        QCOMPARE(list.at(row), fake(count - 1 - row));
}

void TestItemList::randomAgainstAPlainList_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed : {11u, 12u, 13u, 14u})
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

void TestItemList::randomAgainstAPlainList()
{
    QFETCH(quint32, seed);
    QRandomGenerator random(seed);
    QtBrowserItemList list;
    QList<QtBrowserItem*> expected;
    for (int step = 0; step < 20000; ++step) {
        const int choice = random.bounded(7);
        if (choice < 4 || expected.isEmpty()) {
            const int row = choice == 0 ? 0
                : choice == 1           ? expected.size()
                                        : random.bounded(expected.size() + 1);
            list.insert(row, fake(step));
            expected.insert(row, fake(step));
        } else {
            const int row = choice == 4 ? 0
                : choice == 5           ? expected.size() - 1
                                        : random.bounded(expected.size());
            list.removeAt(row);
            expected.removeAt(row);
        }
        QCOMPARE(list.size(), expected.size());
        if (!expected.isEmpty()) {
            const int probe = random.bounded(expected.size());
            QCOMPARE(list.at(probe), expected.at(probe));
            QCOMPARE(list.first(), expected.first());
            QCOMPARE(list.last(), expected.last());
        }
    }
    QCOMPARE(list.toList(), expected);
}

void TestItemList::takeAllEmptiesIt()
{
    QtBrowserItemList list;
    for (int i = 0; i < 20; ++i)
        list.insert(i / 2, fake(i));
    const QList<QtBrowserItem*> before = list.toList();
    QCOMPARE(list.takeAll(), before);
    QVERIFY(list.isEmpty());
    list.insert(0, fake(7));
    QCOMPARE(list.toList(), QList<QtBrowserItem*> {fake(7)});
}

QTEST_MAIN(TestItemList)
#include "tst_pb_itemlist.moc"
