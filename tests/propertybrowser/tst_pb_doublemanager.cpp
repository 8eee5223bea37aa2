#include "propertymetatype.h"
#include "qtdoublepropertymanager.h"

#include "testsupport.h"

#include <QSignalSpy>
#include <QTest>

#include <limits>

namespace {

constexpr double DoubleMax = std::numeric_limits<double>::max();

} // namespace

class TestDoubleManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        qRegisterMetaType<QtProperty*>();
    }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void newPropertyHasDefaults()
    {
        QtDoublePropertyManager manager;
        QtProperty* property = manager.addProperty(QStringLiteral("gain"));
        QCOMPARE(manager.value(property), 0.0);
        QCOMPARE(manager.minimum(property), -DoubleMax);
        QCOMPARE(manager.maximum(property), DoubleMax);
        QCOMPARE(manager.singleStep(property), 1.0);
        QCOMPARE(manager.decimals(property), 2);
        QCOMPARE(manager.isReadOnly(property), false);
        QCOMPARE(property->valueText(), QStringLiteral("0.00"));
    }

    void setValue_data()
    {
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("expected");
        QTest::addColumn<int>("emitted");
        QTest::newRow("inside") << 0.0 << 1.0 << 0.25 << 0.25 << 1;
        QTest::newRow("same") << 0.0 << 1.0 << 0.0 << 0.0 << 0;
        QTest::newRow("below is clamped") << -1.5 << 1.0 << -7.0 << -1.5 << 1;
        QTest::newRow("above is clamped") << 0.0 << 1.0 << 3.0 << 1.0 << 1;
        QTest::newRow("above when at maximum") << -2.0 << -1.0 << 5.0 << -1.0 << 0;
        QTest::newRow("NaN is refused")
            << 0.0 << 1.0 << std::numeric_limits<double>::quiet_NaN() << 0.0 << 0;
    }

    void setValue()
    {
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        QFETCH(double, value);
        QFETCH(double, expected);
        QFETCH(int, emitted);
        QtDoublePropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setRange(property, minimum, maximum);
        QSignalSpy valueSpy(&manager, &QtDoublePropertyManager::valueChanged);
        QSignalSpy changedSpy(&manager, &QtAbstractPropertyManager::propertyChanged);
        manager.setValue(property, value);
        QCOMPARE(manager.value(property), expected);
        QCOMPARE(valueSpy.count(), emitted);
        QCOMPARE(changedSpy.count(), emitted);
        if (emitted == 1)
            QCOMPARE(valueSpy.at(0).at(1).toDouble(), expected);
    }

    void rangeChanges_data()
    {
        QTest::addColumn<QString>("call");
        QTest::addColumn<double>("first");
        QTest::addColumn<double>("second");
        QTest::addColumn<double>("minimum");
        QTest::addColumn<double>("maximum");
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("rangeSignals");
        QTest::addColumn<int>("valueSignals");
        // Every row starts from the range [0, 10] with the value 5.
        QTest::newRow("minimum below value")
            << "minimum" << 1.0 << 0.0 << 1.0 << 10.0 << 5.0 << 1 << 0;
        QTest::newRow("minimum above value")
            << "minimum" << 6.5 << 0.0 << 6.5 << 10.0 << 6.5 << 1 << 1;
        QTest::newRow("minimum above maximum")
            << "minimum" << 12.0 << 0.0 << 12.0 << 12.0 << 12.0 << 1 << 1;
        QTest::newRow("same minimum") << "minimum" << 0.0 << 0.0 << 0.0 << 10.0 << 5.0 << 0 << 0;
        QTest::newRow("maximum below value")
            << "maximum" << 2.5 << 0.0 << 0.0 << 2.5 << 2.5 << 1 << 1;
        QTest::newRow("maximum below minimum")
            << "maximum" << -1.0 << 0.0 << -1.0 << -1.0 << -1.0 << 1 << 1;
        QTest::newRow("range reversed") << "range" << 8.0 << 7.0 << 7.0 << 8.0 << 7.0 << 1 << 1;
        QTest::newRow("same range") << "range" << 0.0 << 10.0 << 0.0 << 10.0 << 5.0 << 0 << 0;
        QTest::newRow("NaN bound is refused") << "range" << std::numeric_limits<double>::quiet_NaN()
                                              << 1.0 << 0.0 << 10.0 << 5.0 << 0 << 0;
    }

    void rangeChanges()
    {
        QFETCH(QString, call);
        QFETCH(double, first);
        QFETCH(double, second);
        QFETCH(double, minimum);
        QFETCH(double, maximum);
        QFETCH(double, value);
        QFETCH(int, rangeSignals);
        QFETCH(int, valueSignals);
        QtDoublePropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setRange(property, 0.0, 10.0);
        manager.setValue(property, 5.0);
        QSignalSpy rangeSpy(&manager, &QtDoublePropertyManager::rangeChanged);
        QSignalSpy valueSpy(&manager, &QtDoublePropertyManager::valueChanged);
        if (call == QLatin1String("minimum"))
            manager.setMinimum(property, first);
        else if (call == QLatin1String("maximum"))
            manager.setMaximum(property, first);
        else
            manager.setRange(property, first, second);
        QCOMPARE(manager.minimum(property), minimum);
        QCOMPARE(manager.maximum(property), maximum);
        QCOMPARE(manager.value(property), value);
        QCOMPARE(rangeSpy.count(), rangeSignals);
        QCOMPARE(valueSpy.count(), valueSignals);
        if (rangeSignals == 1) {
            QCOMPARE(rangeSpy.at(0).at(1).toDouble(), minimum);
            QCOMPARE(rangeSpy.at(0).at(2).toDouble(), maximum);
        }
    }

    void singleStep_data()
    {
        QTest::addColumn<double>("step");
        QTest::addColumn<double>("expected");
        QTest::addColumn<int>("emitted");
        QTest::newRow("smaller") << 0.1 << 0.1 << 1;
        QTest::newRow("same") << 1.0 << 1.0 << 0;
        QTest::newRow("negative counts as zero") << -0.5 << 0.0 << 1;
    }

    void singleStep()
    {
        QFETCH(double, step);
        QFETCH(double, expected);
        QFETCH(int, emitted);
        QtDoublePropertyManager manager;
        QtProperty* property = manager.addProperty();
        QSignalSpy spy(&manager, &QtDoublePropertyManager::singleStepChanged);
        manager.setSingleStep(property, step);
        QCOMPARE(manager.singleStep(property), expected);
        QCOMPARE(spy.count(), emitted);
    }

    void decimals_data()
    {
        QTest::addColumn<int>("decimals");
        QTest::addColumn<int>("expected");
        QTest::addColumn<int>("emitted");
        QTest::newRow("more") << 4 << 4 << 1;
        QTest::newRow("same") << 2 << 2 << 0;
        QTest::newRow("none") << 0 << 0 << 1;
        QTest::newRow("negative counts as none") << -1 << 0 << 1;
        QTest::newRow("too many are capped") << 20 << 13 << 1;
    }

    void decimals()
    {
        QFETCH(int, decimals);
        QFETCH(int, expected);
        QFETCH(int, emitted);
        QtDoublePropertyManager manager;
        QtProperty* property = manager.addProperty();
        QSignalSpy spy(&manager, &QtDoublePropertyManager::decimalsChanged);
        QSignalSpy changedSpy(&manager, &QtAbstractPropertyManager::propertyChanged);
        manager.setDecimals(property, decimals);
        QCOMPARE(manager.decimals(property), expected);
        QCOMPARE(spy.count(), emitted);
        QCOMPARE(changedSpy.count(), emitted);
        if (emitted == 1)
            QCOMPARE(spy.at(0).at(1).toInt(), expected);
    }

    void valueText_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QString>("text");
        QTest::newRow("two decimals") << 3.14159 << 2 << "3.14";
        QTest::newRow("rounded up") << 2.675 << 1 << "2.7";
        QTest::newRow("no decimals") << 41.6 << 0 << "42";
        QTest::newRow("padded") << 1.5 << 4 << "1.5000";
        QTest::newRow("negative") << -0.125 << 3 << "-0.125";
        QTest::newRow("no group separator") << 1234567.5 << 1 << "1234567.5";
    }

    void valueText()
    {
        QFETCH(double, value);
        QFETCH(int, decimals);
        QFETCH(QString, text);
        QtDoublePropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setDecimals(property, decimals);
        manager.setValue(property, value);
        QCOMPARE(property->valueText(), text);
    }

    void readOnly()
    {
        QtDoublePropertyManager manager;
        QtProperty* property = manager.addProperty();
        QSignalSpy spy(&manager, &QtDoublePropertyManager::readOnlyChanged);
        manager.setReadOnly(property, true);
        manager.setReadOnly(property, true);
        QVERIFY(manager.isReadOnly(property));
        QCOMPARE(spy.count(), 1);
        manager.setReadOnly(property, false);
        QVERIFY(!manager.isReadOnly(property));
        QCOMPARE(spy.count(), 2);
        QCOMPARE(spy.at(1).at(1).toBool(), false);
    }

    void propertyOfAnotherManagerIsIgnored()
    {
        QtDoublePropertyManager manager;
        QtDoublePropertyManager other;
        QtProperty* foreign = other.addProperty();
        QSignalSpy spy(&manager, &QtDoublePropertyManager::decimalsChanged);
        manager.setDecimals(foreign, 5);
        manager.setValue(foreign, 2.0);
        QCOMPARE(spy.count(), 0);
        QCOMPARE(other.decimals(foreign), 2);
        QCOMPARE(other.value(foreign), 0.0);
    }
};

QTEST_MAIN(TestDoubleManager)

#include "tst_pb_doublemanager.moc"
