#include "jobloader.h"
#include "jobmodel.h"
#include "jobrunner.h"
#include "testsupport.h"

#include "sdk/ditem.h"

#include <QSignalSpy>
#include <QTest>

using Script::DItem;

namespace {

// Outputs of each numeric type, an input linked to one of them, and values the runner must
// leave alone.
const char* const kJob = R"({
  "name": "Job",
  "modules": [
    { "name": "Source", "nodes": [
        { "name": "Int", "type": "IDataBasicInt", "io": "output", "value": 50,
          "dynamicMin": 0, "dynamicMax": 100 },
        { "name": "Big", "type": "IDataBasicInt64", "io": "output", "value": "500",
          "dynamicMin": 0, "dynamicMax": 1000 },
        { "name": "Double", "type": "IDataBasicDouble", "io": "output", "value": 0.5,
          "dynamicMin": 0, "dynamicMax": 1, "notAvailable": true },
        { "name": "Text", "type": "IDataBasicString", "io": "output", "value": "abc" }
    ] },
    { "name": "Sink", "nodes": [
        { "name": "Double", "type": "IDataBasicDouble", "io": "input", "value": 0.25,
          "link": "Module Application.Source.Double" },
        { "name": "Own", "type": "IDataBasicInt", "io": "input", "value": 3,
          "dynamicMin": 0, "dynamicMax": 10 }
    ] }
  ]
})";

} // namespace

class TestJobRunner : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void startsStopped();
    void startAndStopAreReported();
    void aStepMovesOnlyNumericOutputs();
    void valuesKeepTheirType();
    void outputsStayInOrNearTheirRange();
    void errorsAndExcursionsHappen();
    void linkedInputsFollow();
    void runningStepsByItself();

private:
    JobModel m_oModel;
};

void TestJobRunner::initTestCase()
{
    TestSupport::failOnWarnings();
}

void TestJobRunner::init()
{
    QString error;
    DItem* root = JobLoader::poLoad(QByteArray(kJob), &error);
    QVERIFY2(root, qPrintable(error));
    m_oModel.setJob(root);
}

void TestJobRunner::startsStopped()
{
    JobRunner runner(m_oModel);
    QVERIFY(!runner.isRunning());
}

void TestJobRunner::startAndStopAreReported()
{
    JobRunner runner(m_oModel);
    QSignalSpy running(&runner, &JobRunner::runningChanged);
    runner.setRunning(true);
    runner.setRunning(true);
    QVERIFY(runner.isRunning());
    runner.setRunning(false);
    runner.setRunning(false);
    QVERIFY(!runner.isRunning());
    QCOMPARE(running.count(), 2);
    QCOMPARE(running.at(0).at(0).toBool(), true);
    QCOMPARE(running.at(1).at(0).toBool(), false);
}

void TestJobRunner::aStepMovesOnlyNumericOutputs()
{
    JobRunner runner(m_oModel);
    QSignalSpy changed(&m_oModel, &JobModel::nodesChanged);
    DItem* unavailable = m_oModel.poNode(QStringLiteral("Module Application.Source.Double"));
    QVERIFY(unavailable->isInitialized());
    runner.vStep();
    QCOMPARE(changed.count(), 1);
    QVERIFY(!unavailable->isInitialized());
    // The three numeric outputs and the input linked to one of them; nothing else.
    QStringList paths;
    for (const DItem* node : changed.first().first().value<QList<DItem*>>())
        paths.append(node->iDataPath());
    paths.sort();
    QCOMPARE(paths,
             (QStringList {"Module Application.Sink.Double", "Module Application.Source.Big",
                           "Module Application.Source.Double", "Module Application.Source.Int"}));
    for (int i = 0; i < 20; ++i)
        runner.vStep();
    QCOMPARE(changed.count(), 21);
    QCOMPARE(m_oModel.poNode(QStringLiteral("Module Application.Sink.Own"))
                 ->property("IDataNumeric.DynamicValue"),
             QVariant(3));
    QCOMPARE(m_oModel.poNode(QStringLiteral("Module Application.Source.Text"))
                 ->property("IDataBasicString.DynamicValue"),
             QVariant(QStringLiteral("abc")));
    QVERIFY(m_oModel.poNode(QStringLiteral("Module Application.Source.Int"))
                ->property("IDataNumeric.DynamicValue")
            != QVariant(50));
}

void TestJobRunner::valuesKeepTheirType()
{
    JobRunner runner(m_oModel);
    for (int i = 0; i < 10; ++i)
        runner.vStep();
    const auto typeOf = [this](const char* path) {
        return m_oModel.poNode(QLatin1String(path))
            ->property("IDataNumeric.DynamicValue")
            .userType();
    };
    QCOMPARE(typeOf("Module Application.Source.Int"), int(QMetaType::Int));
    QCOMPARE(typeOf("Module Application.Source.Big"), int(QMetaType::LongLong));
    QCOMPARE(typeOf("Module Application.Source.Double"), int(QMetaType::Double));
}

void TestJobRunner::outputsStayInOrNearTheirRange()
{
    JobRunner runner(m_oModel);
    const DItem* node = m_oModel.poNode(QStringLiteral("Module Application.Source.Int"));
    for (int i = 0; i < 300; ++i) {
        runner.vStep();
        const int value = node->property("IDataNumeric.DynamicValue").toInt();
        // Inside the range, or exactly a tenth of it beyond one end.
        QVERIFY2((value >= 0 && value <= 100) || value == -10 || value == 110,
                 qPrintable(QString::number(value)));
    }
}

void TestJobRunner::errorsAndExcursionsHappen()
{
    JobRunner runner(m_oModel);
    const DItem* node = m_oModel.poNode(QStringLiteral("Module Application.Source.Int"));
    int errors = 0;
    int outside = 0;
    for (int i = 0; i < 300; ++i) {
        runner.vStep();
        errors += node->hasErrorState() ? 1 : 0;
        const int value = node->property("IDataNumeric.DynamicValue").toInt();
        outside += value < 0 || value > 100 ? 1 : 0;
    }
    // A few per cent each, and never all of the time.
    QVERIFY2(errors > 0 && errors < 60, qPrintable(QString::number(errors)));
    QVERIFY2(outside > 0 && outside < 80, qPrintable(QString::number(outside)));
}

void TestJobRunner::linkedInputsFollow()
{
    JobRunner runner(m_oModel);
    runner.vStep();
    const QVariant source = m_oModel.poNode(QStringLiteral("Module Application.Source.Double"))
                                ->property("IDataNumeric.DynamicValue");
    QCOMPARE(m_oModel.poNode(QStringLiteral("Module Application.Sink.Double"))
                 ->property("IDataNumeric.DynamicValue"),
             source);
}

void TestJobRunner::runningStepsByItself()
{
    JobRunner runner(m_oModel);
    QSignalSpy changed(&m_oModel, &JobModel::nodesChanged);
    runner.setRunning(true);
    QTRY_VERIFY_WITH_TIMEOUT(changed.count() >= 2, 5 * JobRunner::kIntervalMs + 2000);
    runner.setRunning(false);
    QVERIFY(!runner.isRunning());
}

QTEST_MAIN(TestJobRunner)
#include "tst_jobrunner.moc"
