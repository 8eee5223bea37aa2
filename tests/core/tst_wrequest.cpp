#include "testsupport.h"
#include "wutils/wparam.h"
#include "wutils/wrequest.h"

#include <QTest>
#include <QVariant>

#include <list>
#include <type_traits>
#include <utility>

static_assert(std::is_base_of<std::pair<int, int>, WParam<int>>::value,
              "a parameter is a value and key pair");
static_assert(std::has_virtual_destructor<WParam<int>>::value, "parameters are polymorphic");
static_assert(std::is_base_of<std::list<WParam<int>>, WRequest<int>>::value,
              "a request is a list of parameters");
static_assert(std::has_virtual_destructor<WRequest<int>>::value, "requests are polymorphic");
static_assert(WaitOn(1) == WaitOnReply, "the requests of the plug-in wait with mode 1");

using Pair = QPair<int, int>;
using PairList = QList<Pair>;
Q_DECLARE_METATYPE(PairList)

namespace {

// The request's parameters as (value, key) pairs, in list order.
PairList contents(const WRequest<int>& request)
{
    PairList result;
    for (const WParam<int>& param : request)
        result.append(Pair(param.first, param.second));
    return result;
}

} // namespace

class TestWRequest : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void defaultParam();
    void paramHoldsValueAndKey();

    void constructorParam_data();
    void constructorParam();
    void defaultVariantParamLeavesNoParameter();
    void constructorFields();

    void firstValueForAKeyWins_data();
    void firstValueForAKeyWins();

    void copyIsWhole();
};

void TestWRequest::initTestCase()
{
    TestSupport::failOnWarnings();
}

void TestWRequest::defaultParam()
{
    const WParam<int> number;
    QCOMPARE(number.first, 0);
    QCOMPARE(number.second, -1);

    const WParam<QString> text;
    QVERIFY(text.first.isNull());
    QCOMPARE(text.second, -1);

    const WParam<QVariant> variant;
    QVERIFY(!variant.first.isValid());
    QCOMPARE(variant.second, -1);
}

void TestWRequest::paramHoldsValueAndKey()
{
    const WParam<QVariant> param(QVariant(QStringLiteral("Module.Node")), 956);
    QCOMPARE(param.first.toString(), QStringLiteral("Module.Node"));
    QCOMPARE(param.second, 956);
}

void TestWRequest::constructorParam_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("key");
    QTest::addColumn<PairList>("expected");

    QTest::newRow("default value and key") << 0 << -1 << PairList();
    QTest::newRow("default value, other key") << 0 << 953 << PairList {Pair(0, 953)};
    QTest::newRow("other value, default key") << 7 << -1 << PairList {Pair(7, -1)};
    QTest::newRow("other value and key") << 7 << 956 << PairList {Pair(7, 956)};
}

void TestWRequest::constructorParam()
{
    QFETCH(int, value);
    QFETCH(int, key);
    QFETCH(PairList, expected);

    const WRequest<int> request(0, 34, WParam<int>(value, key), WaitOn(1), 25000);
    QCOMPARE(contents(request), expected);
}

void TestWRequest::defaultVariantParamLeavesNoParameter()
{
    // The selection request carries no parameter at all.
    const WRequest<QVariant> request(0, 9, WParam<QVariant>(), WaitOn(1), 25000);
    QVERIFY(request.empty());
    QCOMPARE(request.id, 9);

    const WRequest<QVariant> withPath(0, 43, WParam<QVariant>(QStringLiteral("A.B"), 956),
                                      WaitOn(1), 25000);
    QCOMPARE(int(withPath.size()), 1);
    QCOMPARE(withPath.front().first.toString(), QStringLiteral("A.B"));
    QCOMPARE(withPath.front().second, 956);
}

void TestWRequest::constructorFields()
{
    const WRequest<QVariant> request(500, 521, WParam<QVariant>(QVariantList {1}, 953), WaitOn(1),
                                     25000);
    QCOMPARE(request.category, 500);
    QCOMPARE(request.id, 521);
    QCOMPARE(request.waitOn, WaitOn(1));
    QCOMPARE(request.timeout, 25000);
    QVERIFY(!request.result.isValid());
}

void TestWRequest::firstValueForAKeyWins_data()
{
    QTest::addColumn<PairList>("first");
    QTest::addColumn<PairList>("added");
    QTest::addColumn<PairList>("expected");

    QTest::newRow("new keys are appended in order")
        << PairList {Pair(1, 625)} << PairList {Pair(2, 626), Pair(3, 627)}
        << PairList {Pair(1, 625), Pair(2, 626), Pair(3, 627)};
    QTest::newRow("a repeated key keeps the constructor's value")
        << PairList {Pair(1, 625)} << PairList {Pair(9, 625)} << PairList {Pair(1, 625)};
    QTest::newRow("a repeated key keeps the first added value")
        << PairList() << PairList {Pair(4, 626), Pair(5, 626), Pair(6, 627), Pair(7, 627)}
        << PairList {Pair(4, 626), Pair(6, 627)};
    QTest::newRow("equal values under other keys are all kept")
        << PairList {Pair(1, 625)} << PairList {Pair(1, 626), Pair(1, 627)}
        << PairList {Pair(1, 625), Pair(1, 626), Pair(1, 627)};
    // Only the constructor leaves a default parameter out; a later one is judged by its key.
    QTest::newRow("a default parameter added later is kept")
        << PairList {Pair(0, -1)} << PairList {Pair(0, -1)} << PairList {Pair(0, -1)};
    QTest::newRow("the default key is a key like any other")
        << PairList {Pair(3, -1)} << PairList {Pair(0, -1), Pair(5, 625)}
        << PairList {Pair(3, -1), Pair(5, 625)};
}

void TestWRequest::firstValueForAKeyWins()
{
    QFETCH(PairList, first);
    QFETCH(PairList, added);
    QFETCH(PairList, expected);

    const WParam<int> firstParam
        = first.isEmpty() ? WParam<int>() : WParam<int>(first.at(0).first, first.at(0).second);
    WRequest<int> request(500, 531, firstParam, WaitOn(1), 25000);
    for (const Pair& pair : added)
        request.addParam(WParam<int>(pair.first, pair.second));
    QCOMPARE(contents(request), expected);
}

void TestWRequest::copyIsWhole()
{
    WRequest<QVariant> request(500, 532, WParam<QVariant>(QStringLiteral("A.B"), 625), WaitOn(1),
                               25000);
    request.addParam(WParam<QVariant>(QStringLiteral("C"), 626));
    request.addParam(WParam<QVariant>(QStringLiteral("after"), 627));
    request.result = 42;

    const WRequest<QVariant> copy = request;
    QCOMPARE(copy.category, 500);
    QCOMPARE(copy.id, 532);
    QCOMPARE(copy.waitOn, WaitOn(1));
    QCOMPARE(copy.timeout, 25000);
    QCOMPARE(copy.result.toInt(), 42);
    QCOMPARE(int(copy.size()), 3);
    QStringList values;
    QList<int> keys;
    for (const WParam<QVariant>& param : copy) {
        values << param.first.toString();
        keys << param.second;
    }
    QCOMPARE(values, (QStringList {"A.B", "C", "after"}));
    QCOMPARE(keys, (QList<int> {625, 626, 627}));

    // The copy owns its list: changing the original leaves it alone.
    request.clear();
    QCOMPARE(int(copy.size()), 3);
}

QTEST_APPLESS_MAIN(TestWRequest)

#include "tst_wrequest.moc"
