#include "sdk/projectmode.h"

#include "testsupport.h"

#include <QSignalSpy>
#include <QTest>

using Utils::ProjectMode;

class TestProjectMode : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void startsWithoutFlags()
    {
        const ProjectMode mode;
        QCOMPARE(mode.projectMode(), 0);
        QVERIFY(!mode.contains(ProjectMode::Locked));
        QVERIFY(!mode.contains(0));
    }

    void flagNumbers()
    {
        QCOMPARE(int(ProjectMode::Locked), 1);
        QCOMPARE(int(ProjectMode::Released), 16);
        QCOMPARE(int(ProjectMode::EditingBlocked), 4096);
        QCOMPARE(int(ProjectMode::HardLocked), 65536);
    }

    void contains_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("flag");
        QTest::addColumn<bool>("expected");
        QTest::newRow("locked in locked") << 1 << 1 << true;
        QTest::newRow("released in locked") << 1 << 16 << false;
        QTest::newRow("locked and released") << 17 << 16 << true;
        QTest::newRow("hard lock with lock") << 65537 << 65536 << true;
        QTest::newRow("mask fully set") << 4097 << 4097 << true;
        QTest::newRow("mask half set") << 4096 << 4097 << false;
        QTest::newRow("zero flag") << 255 << 0 << false;
    }

    void contains()
    {
        QFETCH(int, mode);
        QFETCH(int, flag);
        QFETCH(bool, expected);
        ProjectMode projectMode;
        projectMode.setProjectMode(mode);
        QCOMPARE(projectMode.projectMode(), mode);
        QCOMPARE(projectMode.contains(flag), expected);
    }

    void modeChangedOnlyOnChange()
    {
        ProjectMode mode;
        QSignalSpy spy(&mode, &ProjectMode::modeChanged);
        mode.setProjectMode(1);
        QCOMPARE(spy.count(), 1);
        mode.setProjectMode(1);
        QCOMPARE(spy.count(), 1);
        mode.setProjectMode(17);
        QCOMPARE(spy.count(), 2);
        mode.setProjectMode(0);
        QCOMPARE(spy.count(), 3);
    }

    void readersSeeTheNewModeInTheSignal()
    {
        ProjectMode mode;
        int seen = -1;
        connect(&mode, &ProjectMode::modeChanged, this, [&] { seen = mode.projectMode(); });
        mode.setProjectMode(65536);
        QCOMPARE(seen, 65536);
    }
};

QTEST_MAIN(TestProjectMode)
#include "tst_projectmode.moc"
