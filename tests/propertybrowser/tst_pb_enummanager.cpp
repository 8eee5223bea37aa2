#include "propertymetatype.h"
#include "qtenumpropertymanager.h"

#include "testsupport.h"

#include <QPixmap>
#include <QSignalSpy>
#include <QTest>

namespace {

QIcon filledIcon(const QColor& color)
{
    QPixmap pixmap(8, 8);
    pixmap.fill(color);
    return QIcon(pixmap);
}

const QStringList Colours {QStringLiteral("Red"), QStringLiteral("Green"), QStringLiteral("Blue")};

} // namespace

class TestEnumManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        qRegisterMetaType<QtProperty*>();
        qRegisterMetaType<QMap<int, QIcon>>();
    }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void newPropertyHasNoNames()
    {
        QtEnumPropertyManager manager;
        QtProperty* property = manager.addProperty(QStringLiteral("mode"));
        QCOMPARE(manager.value(property), -1);
        QVERIFY(manager.enumNames(property).isEmpty());
        QVERIFY(manager.enumIcons(property).isEmpty());
        QVERIFY(property->valueText().isEmpty());
        QVERIFY(property->valueIcon().isNull());
    }

    void valueWithoutNamesIsRefused()
    {
        QtEnumPropertyManager manager;
        QtProperty* property = manager.addProperty();
        QSignalSpy spy(&manager, &QtEnumPropertyManager::valueChanged);
        manager.setValue(property, 0);
        QCOMPARE(manager.value(property), -1);
        QCOMPARE(spy.count(), 0);
    }

    void setEnumNames()
    {
        QtEnumPropertyManager manager;
        QtProperty* property = manager.addProperty();
        QSignalSpy namesSpy(&manager, &QtEnumPropertyManager::enumNamesChanged);
        QSignalSpy valueSpy(&manager, &QtEnumPropertyManager::valueChanged);
        QSignalSpy changedSpy(&manager, &QtAbstractPropertyManager::propertyChanged);
        manager.setEnumNames(property, Colours);
        QCOMPARE(manager.enumNames(property), Colours);
        QCOMPARE(manager.value(property), 0);
        QCOMPARE(property->valueText(), QStringLiteral("Red"));
        QCOMPARE(namesSpy.count(), 1);
        QCOMPARE(namesSpy.at(0).at(0).value<QtProperty*>(), property);
        QCOMPARE(namesSpy.at(0).at(1).toStringList(), Colours);
        QCOMPARE(valueSpy.count(), 1);
        QCOMPARE(valueSpy.at(0).at(1).toInt(), 0);
        QCOMPARE(changedSpy.count(), 1);

        manager.setEnumNames(property, Colours);
        QCOMPARE(namesSpy.count(), 1);
        QCOMPARE(valueSpy.count(), 1);
        QCOMPARE(changedSpy.count(), 1);
    }

    void newNamesResetTheValue_data()
    {
        QTest::addColumn<int>("before");
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<int>("after");
        QTest::addColumn<int>("valueSignals");
        QTest::newRow("from last to first") << 2 << QStringList {"A", "B", "C", "D"} << 0 << 1;
        QTest::newRow("first stays first") << 0 << QStringList {"A"} << 0 << 0;
        QTest::newRow("no names left") << 1 << QStringList() << -1 << 1;
    }

    void newNamesResetTheValue()
    {
        QFETCH(int, before);
        QFETCH(QStringList, names);
        QFETCH(int, after);
        QFETCH(int, valueSignals);
        QtEnumPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setEnumNames(property, Colours);
        manager.setValue(property, before);
        QSignalSpy namesSpy(&manager, &QtEnumPropertyManager::enumNamesChanged);
        QSignalSpy valueSpy(&manager, &QtEnumPropertyManager::valueChanged);
        manager.setEnumNames(property, names);
        QCOMPARE(manager.value(property), after);
        QCOMPARE(namesSpy.count(), 1);
        QCOMPARE(valueSpy.count(), valueSignals);
        QCOMPARE(property->valueText(), names.value(after));
    }

    void setValue_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("expected");
        QTest::addColumn<int>("emitted");
        QTest::addColumn<QString>("text");
        QTest::newRow("second") << 1 << 1 << 1 << "Green";
        QTest::newRow("last") << 2 << 2 << 1 << "Blue";
        QTest::newRow("same") << 0 << 0 << 0 << "Red";
        QTest::newRow("past the end") << 3 << 0 << 0 << "Red";
        QTest::newRow("negative") << -1 << 0 << 0 << "Red";
    }

    void setValue()
    {
        QFETCH(int, value);
        QFETCH(int, expected);
        QFETCH(int, emitted);
        QFETCH(QString, text);
        QtEnumPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setEnumNames(property, Colours);
        QSignalSpy valueSpy(&manager, &QtEnumPropertyManager::valueChanged);
        QSignalSpy changedSpy(&manager, &QtAbstractPropertyManager::propertyChanged);
        manager.setValue(property, value);
        QCOMPARE(manager.value(property), expected);
        QCOMPARE(valueSpy.count(), emitted);
        QCOMPARE(changedSpy.count(), emitted);
        QCOMPARE(property->valueText(), text);
        if (emitted == 1)
            QCOMPARE(valueSpy.at(0).at(1).toInt(), expected);
    }

    void iconsFollowTheValue()
    {
        QtEnumPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setEnumNames(property, Colours);
        const QMap<int, QIcon> icons {{0, filledIcon(Qt::red)}, {2, filledIcon(Qt::blue)}};
        QSignalSpy iconsSpy(&manager, &QtEnumPropertyManager::enumIconsChanged);
        QSignalSpy changedSpy(&manager, &QtAbstractPropertyManager::propertyChanged);
        manager.setEnumIcons(property, icons);
        QCOMPARE(iconsSpy.count(), 1);
        QCOMPARE(changedSpy.count(), 1);
        QCOMPARE(manager.enumIcons(property).keys(), icons.keys());
        QCOMPARE(property->valueIcon().cacheKey(), icons.value(0).cacheKey());
        manager.setValue(property, 1);
        QVERIFY(property->valueIcon().isNull());
        manager.setValue(property, 2);
        QCOMPARE(property->valueIcon().cacheKey(), icons.value(2).cacheKey());

        manager.setEnumIcons(property, icons);
        QCOMPARE(iconsSpy.count(), 1);
        // Same indexes, another picture: a change.
        manager.setEnumIcons(property, {{0, filledIcon(Qt::red)}, {2, filledIcon(Qt::blue)}});
        QCOMPARE(iconsSpy.count(), 2);
        manager.setEnumIcons(property, {});
        QCOMPARE(iconsSpy.count(), 3);
        QVERIFY(property->valueIcon().isNull());
    }

    void propertyOfAnotherManagerIsIgnored()
    {
        QtEnumPropertyManager manager;
        QtEnumPropertyManager other;
        QtProperty* foreign = other.addProperty();
        QSignalSpy spy(&manager, &QtEnumPropertyManager::enumNamesChanged);
        manager.setEnumNames(foreign, Colours);
        QCOMPARE(spy.count(), 0);
        QVERIFY(other.enumNames(foreign).isEmpty());
    }
};

QTEST_MAIN(TestEnumManager)

#include "tst_pb_enummanager.moc"
