#include "sdk/visibilityinfo.h"

#include "testsupport.h"

#include <QSignalSpy>
#include <QTest>

using ItemVisibility::VisibilityInfo;

class TestVisibilityInfo : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup()
    {
        VisibilityInfo::setInstance(nullptr);
        QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    }

    void thereIsAlwaysAnInstance()
    {
        VisibilityInfo* first = VisibilityInfo::instance();
        QVERIFY(first);
        QCOMPARE(VisibilityInfo::instance(), first);
        QVERIFY(first->isNormalView());
        QCOMPARE(first->getVisibilityMode(), 0);
    }

    void hostInstallsItsOwn()
    {
        VisibilityInfo* fallback = VisibilityInfo::instance();
        {
            VisibilityInfo own;
            QCOMPARE(VisibilityInfo::instance(), fallback);
            VisibilityInfo::setInstance(&own);
            QCOMPARE(VisibilityInfo::instance(), &own);
        }
        // An installed instance that ends is uninstalled with it.
        QCOMPARE(VisibilityInfo::instance(), fallback);
    }

    void viewMode_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("normal");
        QTest::newRow("normal") << int(VisibilityInfo::NormalView) << true;
        QTest::newRow("expert") << int(VisibilityInfo::ExpertView) << false;
    }

    void viewMode()
    {
        QFETCH(int, mode);
        QFETCH(bool, normal);
        VisibilityInfo info;
        info.setVisibilityMode(mode);
        QCOMPARE(info.getVisibilityMode(), mode);
        QCOMPARE(info.isNormalView(), normal);
    }

    void modeChangeIsSignalled()
    {
        VisibilityInfo info;
        QSignalSpy spy(&info, &VisibilityInfo::visibilityModeChanged);
        info.setVisibilityMode(1);
        info.setVisibilityMode(1);
        info.setVisibilityMode(0);
        QCOMPARE(spy.count(), 2);
        QCOMPARE(spy.at(0).at(0).toInt(), 1);
        QCOMPARE(spy.at(1).at(0).toInt(), 0);
    }

    void nodesAreVisibleUntilHidden()
    {
        VisibilityInfo info;
        const QString path = QStringLiteral("Job.Threshold.Min");
        QVERIFY(info.isVisible(path));
        info.setVisible(path, false);
        QVERIFY(!info.isVisible(path));
        QVERIFY(info.isVisible(QStringLiteral("Job.Threshold.Max")));
        info.setVisible(path, true);
        QVERIFY(info.isVisible(path));
    }
};

QTEST_MAIN(TestVisibilityInfo)
#include "tst_visibilityinfo.moc"
