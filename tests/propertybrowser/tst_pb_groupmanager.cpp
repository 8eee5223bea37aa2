#include "qtgrouppropertymanager.h"
#include "qtintpropertymanager.h"
#include "qtproperty.h"

#include "testsupport.h"

#include <QTest>

class TestGroupManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void groupHasNoValue()
    {
        QtGroupPropertyManager manager;
        QtProperty* group = manager.addProperty(QStringLiteral("Geometry"));
        QCOMPARE(group->propertyName(), QStringLiteral("Geometry"));
        QVERIFY(!group->hasValue());
        QVERIFY(group->valueText().isEmpty());
        QVERIFY(group->valueIcon().isNull());
    }

    void groupGathersPropertiesOfOtherManagers()
    {
        QtGroupPropertyManager groups;
        QtIntPropertyManager ints;
        QtProperty* group = groups.addProperty(QStringLiteral("Size"));
        QtProperty* width = ints.addProperty(QStringLiteral("Width"));
        QtProperty* height = ints.addProperty(QStringLiteral("Height"));
        group->addSubProperty(width);
        group->addSubProperty(height);
        QCOMPARE(group->subProperties(), (QList<QtProperty*> {width, height}));
        ints.setValue(width, 640);
        QVERIFY(width->hasValue());
        QCOMPARE(width->valueText(), QStringLiteral("640"));
    }

    void clearDestroysGroups()
    {
        QtGroupPropertyManager manager;
        manager.addProperty();
        manager.addProperty();
        QCOMPARE(manager.properties().size(), 2);
        manager.clear();
        QVERIFY(manager.properties().isEmpty());
    }
};

QTEST_MAIN(TestGroupManager)

#include "tst_pb_groupmanager.moc"
