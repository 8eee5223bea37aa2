#include "propertymetatype.h"
#include "qtintpropertymanager.h"

#include "testsupport.h"

#include <QSignalSpy>
#include <QTest>

#include <limits>

namespace {

constexpr int IntMax = std::numeric_limits<int>::max();

} // namespace

class TestIntManager : public QObject
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
        QtIntPropertyManager manager;
        QtProperty* property = manager.addProperty(QStringLiteral("count"));
        QCOMPARE(property->propertyName(), QStringLiteral("count"));
        QCOMPARE(property->propertyManager(), &manager);
        QCOMPARE(manager.value(property), 0);
        QCOMPARE(manager.minimum(property), -IntMax);
        QCOMPARE(manager.maximum(property), IntMax);
        QCOMPARE(manager.singleStep(property), 1);
        QCOMPARE(manager.isReadOnly(property), false);
        QVERIFY(property->hasValue());
        QCOMPARE(property->valueText(), QStringLiteral("0"));
    }

    void setValue_data()
    {
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("expected");
        QTest::addColumn<int>("emitted");
        QTest::newRow("inside") << 0 << 10 << 4 << 4 << 1;
        QTest::newRow("at minimum") << 0 << 10 << 0 << 0 << 0;
        QTest::newRow("at maximum") << 0 << 10 << 10 << 10 << 1;
        QTest::newRow("below is clamped") << 2 << 10 << -5 << 2 << 0;
        QTest::newRow("above is clamped") << 0 << 10 << 99 << 10 << 1;
        QTest::newRow("negative range") << -20 << -10 << -15 << -15 << 1;
        QTest::newRow("lowest int")
            << -IntMax << IntMax << std::numeric_limits<int>::min() << -IntMax << 1;
    }

    void setValue()
    {
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(int, value);
        QFETCH(int, expected);
        QFETCH(int, emitted);
        QtIntPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setRange(property, minimum, maximum);
        const int before = manager.value(property);
        QSignalSpy valueSpy(&manager, &QtIntPropertyManager::valueChanged);
        QSignalSpy changedSpy(&manager, &QtAbstractPropertyManager::propertyChanged);
        manager.setValue(property, value);
        QCOMPARE(manager.value(property), expected);
        QCOMPARE(valueSpy.count(), emitted);
        QCOMPARE(changedSpy.count(), emitted);
        QCOMPARE(expected != before, emitted == 1);
        if (emitted == 1) {
            QCOMPARE(valueSpy.at(0).at(0).value<QtProperty*>(), property);
            QCOMPARE(valueSpy.at(0).at(1).toInt(), expected);
            QCOMPARE(changedSpy.at(0).at(0).value<QtProperty*>(), property);
        }
    }

    void setSameValueEmitsNothing()
    {
        QtIntPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setValue(property, 7);
        QSignalSpy valueSpy(&manager, &QtIntPropertyManager::valueChanged);
        QSignalSpy changedSpy(&manager, &QtAbstractPropertyManager::propertyChanged);
        manager.setValue(property, 7);
        QCOMPARE(valueSpy.count(), 0);
        QCOMPARE(changedSpy.count(), 0);
    }

    void rangeChanges_data()
    {
        QTest::addColumn<QString>("call");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("second");
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("rangeSignals");
        QTest::addColumn<int>("valueSignals");
        // Every row starts from the range [0, 100] with the value 50.
        QTest::newRow("minimum below value") << "minimum" << 10 << 0 << 10 << 100 << 50 << 1 << 0;
        QTest::newRow("minimum above value") << "minimum" << 60 << 0 << 60 << 100 << 60 << 1 << 1;
        QTest::newRow("minimum above maximum")
            << "minimum" << 150 << 0 << 150 << 150 << 150 << 1 << 1;
        QTest::newRow("same minimum") << "minimum" << 0 << 0 << 0 << 100 << 50 << 0 << 0;
        QTest::newRow("maximum above value") << "maximum" << 80 << 0 << 0 << 80 << 50 << 1 << 0;
        QTest::newRow("maximum below value") << "maximum" << 40 << 0 << 0 << 40 << 40 << 1 << 1;
        QTest::newRow("maximum below minimum") << "maximum" << -5 << 0 << -5 << -5 << -5 << 1 << 1;
        QTest::newRow("same maximum") << "maximum" << 100 << 0 << 0 << 100 << 50 << 0 << 0;
        QTest::newRow("range around value") << "range" << 20 << 70 << 20 << 70 << 50 << 1 << 0;
        QTest::newRow("range above value") << "range" << 60 << 70 << 60 << 70 << 60 << 1 << 1;
        QTest::newRow("range below value") << "range" << 1 << 3 << 1 << 3 << 3 << 1 << 1;
        QTest::newRow("range reversed") << "range" << 70 << 60 << 60 << 70 << 60 << 1 << 1;
        QTest::newRow("same range") << "range" << 0 << 100 << 0 << 100 << 50 << 0 << 0;
        QTest::newRow("single point") << "range" << 5 << 5 << 5 << 5 << 5 << 1 << 1;
    }

    void rangeChanges()
    {
        QFETCH(QString, call);
        QFETCH(int, first);
        QFETCH(int, second);
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(int, value);
        QFETCH(int, rangeSignals);
        QFETCH(int, valueSignals);
        QtIntPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setRange(property, 0, 100);
        manager.setValue(property, 50);
        QSignalSpy rangeSpy(&manager, &QtIntPropertyManager::rangeChanged);
        QSignalSpy valueSpy(&manager, &QtIntPropertyManager::valueChanged);
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
            QCOMPARE(rangeSpy.at(0).at(1).toInt(), minimum);
            QCOMPARE(rangeSpy.at(0).at(2).toInt(), maximum);
        }
        if (valueSignals == 1)
            QCOMPARE(valueSpy.at(0).at(1).toInt(), value);
    }

    void singleStep_data()
    {
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("expected");
        QTest::addColumn<int>("emitted");
        QTest::newRow("larger") << 5 << 5 << 1;
        QTest::newRow("same") << 1 << 1 << 0;
        QTest::newRow("zero") << 0 << 0 << 1;
        QTest::newRow("negative counts as zero") << -3 << 0 << 1;
    }

    void singleStep()
    {
        QFETCH(int, step);
        QFETCH(int, expected);
        QFETCH(int, emitted);
        QtIntPropertyManager manager;
        QtProperty* property = manager.addProperty();
        QSignalSpy spy(&manager, &QtIntPropertyManager::singleStepChanged);
        manager.setSingleStep(property, step);
        QCOMPARE(manager.singleStep(property), expected);
        QCOMPARE(spy.count(), emitted);
        if (emitted == 1)
            QCOMPARE(spy.at(0).at(1).toInt(), expected);
    }

    void readOnly()
    {
        QtIntPropertyManager manager;
        QtProperty* property = manager.addProperty();
        QSignalSpy spy(&manager, &QtIntPropertyManager::readOnlyChanged);
        manager.setReadOnly(property, false);
        QCOMPARE(spy.count(), 0);
        manager.setReadOnly(property, true);
        QVERIFY(manager.isReadOnly(property));
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(1).toBool(), true);
        manager.setReadOnly(property, true);
        QCOMPARE(spy.count(), 1);
        // Read-only binds editors, not the program.
        manager.setValue(property, 3);
        QCOMPARE(manager.value(property), 3);
    }

    void valueText_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("zero") << 0 << "0";
        QTest::newRow("positive") << 1234567 << "1234567";
        QTest::newRow("negative") << -42 << "-42";
        QTest::newRow("largest") << IntMax << "2147483647";
    }

    void valueText()
    {
        QFETCH(int, value);
        QFETCH(QString, text);
        QtIntPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setValue(property, value);
        QCOMPARE(property->valueText(), text);
    }

    void propertiesAreIndependent()
    {
        QtIntPropertyManager manager;
        QtProperty* first = manager.addProperty();
        QtProperty* second = manager.addProperty();
        manager.setRange(first, 0, 10);
        manager.setValue(first, 8);
        QCOMPARE(manager.value(second), 0);
        QCOMPARE(manager.maximum(second), IntMax);
    }

    void propertyOfAnotherManagerIsIgnored()
    {
        QtIntPropertyManager manager;
        QtIntPropertyManager other;
        QtProperty* foreign = other.addProperty();
        other.setValue(foreign, 9);
        QSignalSpy valueSpy(&manager, &QtIntPropertyManager::valueChanged);
        QSignalSpy rangeSpy(&manager, &QtIntPropertyManager::rangeChanged);
        manager.setValue(foreign, 5);
        manager.setRange(foreign, 1, 2);
        QCOMPARE(valueSpy.count(), 0);
        QCOMPARE(rangeSpy.count(), 0);
        QCOMPARE(manager.value(foreign), 0);
        QCOMPARE(other.value(foreign), 9);
        QCOMPARE(other.maximum(foreign), IntMax);
    }

    void deletedPropertyIsForgotten()
    {
        QtIntPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setValue(property, 12);
        QSignalSpy destroyedSpy(&manager, &QtAbstractPropertyManager::propertyDestroyed);
        delete property;
        QCOMPARE(destroyedSpy.count(), 1);
        QVERIFY(manager.properties().isEmpty());
        // Only the address is looked up: the data went with the property.
        QCOMPARE(manager.value(property), 0);
    }

    void destroyingManagerDestroysProperties()
    {
        auto* manager = new QtIntPropertyManager;
        manager->addProperty();
        manager->addProperty();
        QSignalSpy destroyedSpy(manager, &QtAbstractPropertyManager::propertyDestroyed);
        delete manager;
        QCOMPARE(destroyedSpy.count(), 2);
    }
};

QTEST_MAIN(TestIntManager)

#include "tst_pb_intmanager.moc"
