#include "jobloader.h"
#include "jobmodel.h"
#include "modulecatalog.h"

#include "sdk/command.h"
#include "sdk/ditem.h"
#include "sdk/image.h"

#include "samplejob.h"
#include "testsupport.h"

#include <QMap>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using Script::DItem;
namespace Command = VardeenDefs::PropertyEditor;

using SampleJob::path;

/// The host's side of a module's place: the rules it answers with, and the insertions,
/// copies, moves and deletions it applies and takes back.
class TestModuleChanges : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void init();
    void cleanup() { m_poModel.reset(); }

    void catalogue();
    void placingRules_data();
    void placingRules();
    void insertMakesANewModule();
    void insertRefusesWhatTheRulesRefuse();
    void pasteCopiesTheWholeModule();
    void pasteRefusesTheOneOfItsKind();
    void move_data();
    void move();
    void deleteLeavesLinksInError();
    void undoAndRedoEveryChange();
    void aRenameEndsTheHistory();

private:
    QStringList modules() const;

    std::unique_ptr<JobModel> m_poModel;
    const QStringList m_oStart {"Camera", "ImageFilter", "Locator", "OCR", "Measurement", "Result"};
};

void TestModuleChanges::init()
{
    QString error;
    DItem* root
        = JobLoader::poLoadFile(QStringLiteral(WORKBENCH_DIR "/jobs/sample-job.json"), &error);
    QVERIFY2(root, qPrintable(error));
    m_poModel = std::make_unique<JobModel>();
    m_poModel->setJob(root);
}

QStringList TestModuleChanges::modules() const
{
    QStringList names;
    for (const DItem* module : m_poModel->poRoot()->childNodes())
        names << module->unTranslatedName();
    return names;
}

void TestModuleChanges::catalogue()
{
    const QList<ModuleCatalog::Entry>& entries = ModuleCatalog::entries();
    QVERIFY(entries.size() >= 6);
    for (const ModuleCatalog::Entry& entry : entries) {
        QVERIFY(!entry.id.contains(QLatin1Char('@')));
        QVERIFY(!entry.icon.isEmpty());
        // Every kind builds, with nodes.
        QJsonObject description = entry.nodes;
        description.insert(QStringLiteral("name"), entry.name);
        QString error;
        std::unique_ptr<DItem> module(
            JobLoader::poLoadModule(description, SampleJob::root(), &error));
        QVERIFY2(module, qPrintable(error));
        QVERIFY(!module->childNodes().isEmpty());
        QCOMPARE(module->property(ModuleCatalog::kTypeKey).toString(), entry.id);
        QCOMPARE(ModuleCatalog::find(entry.id), &entry);
    }
    QVERIFY(!ModuleCatalog::find(QStringLiteral("nothing")));
}

void TestModuleChanges::placingRules_data()
{
    QTest::addColumn<QString>("module");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("refusal");

    QTest::newRow("a new module after the camera") << "blobfinder" << path("Camera") << "";
    QTest::newRow("a new module at the end") << "ocrreader" << path("Result") << "";
    QTest::newRow("nothing before the first camera")
        << "blobfinder" << path("") << "nothing may come before the first camera";
    QTest::newRow("a second camera in front") << "camera" << path("") << "";
    QTest::newRow("a second camera further down") << "camera" << path("OCR") << "";
    QTest::newRow("one result module only")
        << "result" << path("Measurement") << "a job has one Result module only";
    QTest::newRow("no such kind") << "toaster" << path("Camera") << "no module and no kind";
    QTest::newRow("only after the job or a module")
        << "blobfinder" << path("Camera.Exposure") << "no place for a module";
    QTest::newRow("an empty place") << "blobfinder"
                                    << ""
                                    << "no place for a module";
    QTest::newRow("moving the camera behind another module")
        << path("Camera") << path("ImageFilter") << "a camera must come before every other module";
    QTest::newRow("moving a module in front of the camera")
        << path("Locator") << path("") << "nothing may come before the first camera";
    QTest::newRow("moving the result module") << path("Result") << path("Camera") << "";
    QTest::newRow("moving the camera onto itself") << path("Camera") << path("Camera") << "";
    QTest::newRow("a module by its name alone, as copy mode asks")
        << "Locator" << path("OCR") << "";
    QTest::newRow("by its name alone in front of the camera")
        << "Locator" << path("") << "nothing may come before the first camera";
}

void TestModuleChanges::placingRules()
{
    QFETCH(QString, module);
    QFETCH(QString, after);
    QFETCH(QString, refusal);
    QString why;
    QCOMPARE(m_poModel->bCanPlace(module, after, &why), refusal.isEmpty());
    QVERIFY2(why.contains(refusal), qPrintable(why));
}

void TestModuleChanges::insertMakesANewModule()
{
    QSignalSpy structure(m_poModel.get(), &JobModel::structureChanged);
    QString error;
    QCOMPARE(m_poModel->sInsertModule(QStringLiteral("blobfinder"), path("Camera"), &error),
             path("BlobFinder"));
    // A second one gets a name of its own.
    QCOMPARE(m_poModel->sInsertModule(QStringLiteral("blobfinder"), path("Camera"), &error),
             path("BlobFinder2"));
    QCOMPARE(modules(),
             (QStringList {"Camera", "BlobFinder2", "BlobFinder", "ImageFilter", "Locator", "OCR",
                           "Measurement", "Result"}));
    QCOMPARE(structure.count(), 2);
    const DItem* threshold = m_poModel->poNode(path("BlobFinder2.Threshold"));
    QVERIFY(threshold);
    QCOMPARE(threshold->property("IDataNumeric.LocalValue").toInt(), 128);
    const DItem* module = m_poModel->poNode(path("BlobFinder2"));
    QVERIFY(module->isDeletable() && module->isCopyable() && module->isDraggable());
    QCOMPARE(module->iconPath(), QStringLiteral(":/workbench/icons/blob.svg"));
    // At the front goes only a camera.
    QCOMPARE(m_poModel->sInsertModule(QStringLiteral("camera"), path(""), &error), path("Camera2"));
    QCOMPARE(modules().first(), QStringLiteral("Camera2"));
}

void TestModuleChanges::insertRefusesWhatTheRulesRefuse()
{
    QSignalSpy structure(m_poModel.get(), &JobModel::structureChanged);
    QString error;
    QVERIFY(m_poModel->sInsertModule(QStringLiteral("result"), path("Camera"), &error).isEmpty());
    QVERIFY(error.contains(QLatin1String("one Result module only")));
    QVERIFY(m_poModel->sInsertModule(QStringLiteral("blobfinder"), path(""), &error).isEmpty());
    QCOMPARE(structure.count(), 0);
    QVERIFY(!m_poModel->canUndo());
}

void TestModuleChanges::pasteCopiesTheWholeModule()
{
    QString error;
    // A link inside the module, and one that leaves it.
    QVERIFY2(m_poModel->bApplyCommand(path("Measurement.Offset"), Command::SetLink,
                                      path("Measurement.Diameter"), &error),
             qPrintable(error));
    QCOMPARE(m_poModel->sPasteModule(path("Measurement"), path("Result"), &error),
             path("Measurement2"));
    QCOMPARE(modules().last(), QStringLiteral("Measurement2"));
    const DItem* copy = m_poModel->poNode(path("Measurement2"));
    const DItem* original = m_poModel->poNode(path("Measurement"));
    QCOMPARE(copy->childNodes().size(), original->childNodes().size());
    QCOMPARE(copy->unTranslatedName(), QStringLiteral("Measurement2"));
    QCOMPARE(m_poModel->poNode(path("Measurement2.Offset"))->linkedPath(),
             path("Measurement2.Diameter"));
    QCOMPARE(m_poModel->poNode(path("Measurement2.OcrConfidence"))->linkedPath(),
             path("OCR.Confidence"));
    QCOMPARE(m_poModel->poNode(path("Measurement2.Tolerance"))->property("IDataNumeric.LocalMax"),
             m_poModel->poNode(path("Measurement.Tolerance"))->property("IDataNumeric.LocalMax"));
    // The copy is itself a source now, and the original keeps its own followers.
    QCOMPARE(m_poModel->poNode(path("Measurement2.Diameter"))->property("IData.LinksToMe"),
             QVariant(QStringList {path("Measurement2.Offset")}));
    QCOMPARE(m_poModel->poNode(path("Measurement.Diameter"))->property("IData.LinksToMe"),
             QVariant(QStringList {path("Measurement.Offset")}));

    // Images come along as pictures of their own.
    QCOMPARE(m_poModel->sPasteModule(path("Camera"), path("Camera"), &error), path("Camera2"));
    const auto* image = qobject_cast<const Script::GraphicItems::WImage::Image*>(
        m_poModel->poNode(path("Camera2.Image")));
    const auto* source = qobject_cast<const Script::GraphicItems::WImage::Image*>(
        m_poModel->poNode(path("Camera.Image")));
    QVERIFY(image && source);
    QCOMPARE(image->sourceImage(), source->sourceImage());
}

void TestModuleChanges::pasteRefusesTheOneOfItsKind()
{
    QString error;
    QVERIFY(m_poModel->sPasteModule(path("Result"), path("Camera"), &error).isEmpty());
    QVERIFY2(error.contains(QLatin1String("no module that can be copied")), qPrintable(error));
    QVERIFY(m_poModel->sPasteModule(path("Camera.Exposure"), path("Camera"), &error).isEmpty());
    QVERIFY(m_poModel->sPasteModule(path("Locator"), path(""), &error).isEmpty());
    QVERIFY(error.contains(QLatin1String("before the first camera")));
    QCOMPARE(modules().size(), 6);
}

void TestModuleChanges::move_data()
{
    QTest::addColumn<QString>("module");
    QTest::addColumn<QString>("after");
    QTest::addColumn<bool>("moved");
    QTest::addColumn<QStringList>("order");
    const QStringList unchanged = m_oStart;
    QTest::newRow("down") << "ImageFilter"
                          << "OCR" << true << QStringList {"Camera",      "Locator",     "OCR",
                                                           "ImageFilter", "Measurement", "Result"};
    QTest::newRow("up") << "Result"
                        << "Camera" << true << QStringList {"Camera",  "Result", "ImageFilter",
                                                            "Locator", "OCR",    "Measurement"};
    QTest::newRow("to the end") << "Camera"
                                << "Result" << false << unchanged;
    QTest::newRow("onto itself") << "OCR"
                                 << "OCR" << true << unchanged;
    QTest::newRow("after the one before it") << "OCR"
                                             << "Locator" << true << unchanged;
    QTest::newRow("no module") << "Camera.Exposure"
                               << "OCR" << false << unchanged;
}

void TestModuleChanges::move()
{
    QFETCH(QString, module);
    QFETCH(QString, after);
    QFETCH(bool, moved);
    QFETCH(QStringList, order);
    QString error;
    QCOMPARE(m_poModel->bMoveModule(path(module), path(after), &error), moved);
    QCOMPARE(modules(), order);
    // Only a real change can be taken back.
    QCOMPARE(m_poModel->canUndo(), order != m_oStart);
}

void TestModuleChanges::deleteLeavesLinksInError()
{
    QString error;
    const QString reference = path("Measurement.Reference");
    QVERIFY(!m_poModel->poNode(reference)->hasLinkError());
    auto linkStates = [this, &reference] {
        QMap<QString, QPair<QString, bool>> states;
        for (const DItem* node : m_poModel->nodes()) {
            if (node->iDataPath() != reference)
                states.insert(node->iDataPath(), {node->linkedPath(), node->hasLinkError()});
        }
        return states;
    };
    auto before = linkStates();
    QVERIFY(m_poModel->bDelete(path("Locator"), &error));
    QVERIFY(m_poModel->poNode(reference)->isLinked());
    QCOMPARE(m_poModel->poNode(reference)->linkedPath(), path("Locator.Position"));
    QVERIFY(m_poModel->poNode(reference)->hasLinkError());
    // Nothing else changed.
    for (const QString& gone : before.keys()) {
        if (gone.startsWith(path("Locator")))
            before.remove(gone);
    }
    QCOMPARE(linkStates(), before);
    QCOMPARE(modules().size(), 5);
}

void TestModuleChanges::undoAndRedoEveryChange()
{
    QSignalSpy history(m_poModel.get(), &JobModel::undoStateChanged);
    const QStringList start = modules();
    QString error;
    QVERIFY(
        !m_poModel->sInsertModule(QStringLiteral("edgemeasure"), path("Camera"), &error).isEmpty());
    const QStringList inserted = modules();
    QVERIFY(!m_poModel->sPasteModule(path("OCR"), path("Result"), &error).isEmpty());
    const QStringList pasted = modules();
    QVERIFY(m_poModel->bMoveModule(path("Result"), path("Camera"), &error));
    const QStringList moved = modules();
    DItem* locator = m_poModel->poNode(path("Locator"));
    QVERIFY(m_poModel->bDelete(path("Locator"), &error));
    const QStringList deleted = modules();
    QVERIFY(history.count() >= 4);

    QVERIFY(m_poModel->bUndo());
    QCOMPARE(modules(), moved);
    // The very node comes back, with its nodes and values.
    QCOMPARE(m_poModel->poNode(path("Locator")), locator);
    QVERIFY(m_poModel->poNode(path("Locator.Position")));
    QVERIFY(!m_poModel->poNode(path("Measurement.Reference"))->hasLinkError());
    QVERIFY(m_poModel->bUndo());
    QCOMPARE(modules(), pasted);
    QVERIFY(m_poModel->bUndo());
    QCOMPARE(modules(), inserted);
    QVERIFY(m_poModel->bUndo());
    QCOMPARE(modules(), start);
    QVERIFY(!m_poModel->poNode(path("EdgeMeasure.Contrast")));
    QVERIFY(!m_poModel->bUndo());

    QVERIFY(m_poModel->bRedo());
    QCOMPARE(modules(), inserted);
    QVERIFY(m_poModel->poNode(path("EdgeMeasure.Contrast")));
    QVERIFY(m_poModel->bRedo());
    QVERIFY(m_poModel->bRedo());
    QVERIFY(m_poModel->bRedo());
    QCOMPARE(modules(), deleted);
    QVERIFY(!m_poModel->bRedo());

    // A new change after an undo drops what could have been done again.
    QVERIFY(m_poModel->bUndo());
    QVERIFY(m_poModel->canRedo());
    QVERIFY(m_poModel->bMoveModule(path("OCR"), path("Camera"), &error));
    QVERIFY(!m_poModel->canRedo());
}

void TestModuleChanges::aRenameEndsTheHistory()
{
    QString error;
    QVERIFY(m_poModel->bDelete(path("Locator"), &error));
    QVERIFY(m_poModel->canUndo());
    // The deleted module's name is free again; once taken, it could not come back.
    QVERIFY(m_poModel->bRename(m_poModel->poNode(path("OCR")), QStringLiteral("Locator"), &error));
    QVERIFY(!m_poModel->canUndo());
    QVERIFY(!m_poModel->bUndo());
    QCOMPARE(modules().count(QStringLiteral("Locator")), 1);
}

QTEST_MAIN(TestModuleChanges)
#include "tst_modulechanges.moc"
