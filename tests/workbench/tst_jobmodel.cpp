#include "jobloader.h"
#include "jobmodel.h"
#include "testsupport.h"

#include "sdk/binaryitem.h"
#include "sdk/command.h"
#include "sdk/ditem.h"
#include "sdk/image.h"

#include <QImage>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using Script::DItem;
namespace Command = VardeenDefs::PropertyEditor;

namespace {

// A small job with one node of each kind the model treats on its own.
const char* const kJob = R"({
  "name": "Job",
  "modules": [
    { "name": "Source", "nodes": [
        { "name": "Int", "type": "IDataBasicInt", "io": "output", "value": 7 },
        { "name": "Double", "type": "IDataBasicDouble", "io": "output", "value": 1.5 },
        { "name": "Text", "type": "IDataBasicString", "io": "output", "value": "abc" },
        { "name": "Picture", "type": "IDataImage", "io": "output",
          "image": { "width": 8, "height": 4 } }
    ] },
    { "name": "Sink", "nodes": [
        { "name": "Int", "type": "IDataBasicInt", "io": "input", "value": 3, "local": 3,
          "min": 0, "max": 10, "step": 1 },
        { "name": "Big", "type": "IDataBasicInt64", "io": "input", "value": "5",
          "min": "-9223372036854775808", "max": "9223372036854775807" },
        { "name": "Double", "type": "IDataBasicDouble", "io": "input", "value": 0.5 },
        { "name": "Bool", "type": "IDataBasicBool", "io": "input", "value": false },
        { "name": "Choice", "type": "IDataBasicEnum", "io": "input",
          "choices": ["a", "b", "c"], "value": "a" },
        { "name": "Text", "type": "IDataBasicString", "io": "input", "value": "x" },
        { "name": "Picture", "type": "IDataImage", "io": "input" },
        { "name": "Bytes", "type": "IDataBinary", "io": "setting", "text": "old" },
        { "name": "File", "type": "IDataBinaryFile", "io": "setting" },
        { "name": "Fixed", "type": "IDataBasicInt", "io": "setting", "value": 1 },
        { "name": "Fielding", "type": "Group", "nodes": [
            { "name": "Set", "type": "Group", "nodes": [
                { "name": "A", "type": "IDataBasicString", "value": "1" } ] } ] }
    ] }
  ]
})";

} // namespace

class TestJobModel : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void setValue_data();
    void setValue();
    void setValueRefusesWrongTypes_data();
    void setValueRefusesWrongTypes();
    void setValueReplacesALink();
    void imagesAndBinaries();
    void linksFollowTheirSource();
    void anEditReportsTheNodeAndItsFollowers();
    void linkRefusals_data();
    void linkRefusals();
    void clearingALinkRestoresTheLocalValue();
    void linkErrorFollowsTheSource();
    void limits();
    void ocrFilters();
    void renameMovesPathsAndLinks();
    void renameRefusals_data();
    void renameRefusals();
    void deleteTakesTheNodeOutOfItsParent();
    void visibilityAndColorMarking();
    void acceptableLinks();
    void files();

private:
    JobModel* m_poModel = nullptr;
};

void TestJobModel::initTestCase()
{
    TestSupport::failOnWarnings();
}

void TestJobModel::init()
{
    QString error;
    DItem* root = JobLoader::poLoad(kJob, &error);
    QVERIFY2(root, qPrintable(error));
    m_poModel = new JobModel;
    m_poModel->setJob(root);
}

void TestJobModel::cleanup()
{
    delete m_poModel;
    m_poModel = nullptr;
}

void TestJobModel::setValue_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QVariant>("params");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("int") << "Module Application.Sink.Int" << QVariant(9)
                         << QByteArray("IDataNumeric.LocalValue") << QVariant(9);
    QTest::newRow("int clamped to the maximum")
        << "Module Application.Sink.Int" << QVariant(11) << QByteArray("IDataNumeric.DynamicValue")
        << QVariant(10);
    QTest::newRow("int clamped to the minimum")
        << "Module Application.Sink.Int" << QVariant(-1) << QByteArray("IDataNumeric.LocalValue")
        << QVariant(0);
    QTest::newRow("int64 at its top")
        << "Module Application.Sink.Big" << QVariant(qlonglong(9223372036854775807LL))
        << QByteArray("IDataNumeric.DynamicValue") << QVariant(qlonglong(9223372036854775807LL));
    QTest::newRow("double") << "Module Application.Sink.Double" << QVariant(2.25)
                            << QByteArray("IDataNumeric.DynamicValue") << QVariant(2.25);
    QTest::newRow("bool") << "Module Application.Sink.Bool" << QVariant(true)
                          << QByteArray("IDataBasicBool.LocalValue") << QVariant(true);
    QTest::newRow("enum by text") << "Module Application.Sink.Choice" << QVariant("c")
                                  << QByteArray("IDataBasicEnum.DynamicStringnifiedValue")
                                  << QVariant("c");
    QTest::newRow("enum by index")
        << "Module Application.Sink.Choice" << QVariant(1)
        << QByteArray("IDataBasicEnum.LocalStringnifiedValue") << QVariant("b");
    QTest::newRow("string") << "Module Application.Sink.Text" << QVariant("hello\tworld")
                            << QByteArray("IDataBasicString.DynamicValue")
                            << QVariant("hello\tworld");
}

void TestJobModel::setValue()
{
    QFETCH(QString, path);
    QFETCH(QVariant, params);
    QFETCH(QByteArray, key);
    QFETCH(QVariant, expected);
    QSignalSpy changed(m_poModel, &JobModel::nodesChanged);
    QString error;
    QVERIFY2(m_poModel->bApplyCommand(path, Command::SetValue, params, &error), qPrintable(error));
    QCOMPARE(m_poModel->poNode(path)->property(key.constData()), expected);
    // Nothing follows the node, so it is the one node the views refresh.
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().value<QList<DItem*>>(),
             QList<DItem*> {m_poModel->poNode(path)});
}

void TestJobModel::setValueRefusesWrongTypes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QVariant>("params");

    QTest::newRow("int given a double") << "Module Application.Sink.Int" << QVariant(1.0);
    QTest::newRow("int64 given an int") << "Module Application.Sink.Big" << QVariant(1);
    QTest::newRow("double given a text") << "Module Application.Sink.Double" << QVariant("1");
    QTest::newRow("enum given an unknown choice")
        << "Module Application.Sink.Choice" << QVariant("z");
    QTest::newRow("image given bytes")
        << "Module Application.Sink.Picture" << QVariant(QByteArray("x"));
    QTest::newRow("binary given a text") << "Module Application.Sink.Bytes" << QVariant("x");
    QTest::newRow("binary file given bytes")
        << "Module Application.Sink.File" << QVariant(QByteArray("x"));
    QTest::newRow("a node without value") << "Module Application.Sink" << QVariant(1);
    QTest::newRow("no such node") << "Module Application.Nowhere" << QVariant(1);
}

void TestJobModel::setValueRefusesWrongTypes()
{
    QFETCH(QString, path);
    QFETCH(QVariant, params);
    QSignalSpy changed(m_poModel, &JobModel::nodesChanged);
    QString error;
    QVERIFY(!m_poModel->bApplyCommand(path, Command::SetValue, params, &error));
    QVERIFY(!error.isEmpty());
    QCOMPARE(changed.count(), 0);
}

void TestJobModel::setValueReplacesALink()
{
    QString error;
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetLink,
                                     "Module Application.Source.Int", &error));
    DItem* sink = m_poModel->poNode("Module Application.Sink.Int");
    QVERIFY(sink->isLinked());
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetValue, 3, &error));
    QVERIFY(!sink->isLinked());
    QVERIFY(sink->linkedPath().isEmpty());
    QCOMPARE(sink->property("IDataNumeric.DynamicValue"), QVariant(3));
}

void TestJobModel::imagesAndBinaries()
{
    QString error;
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Picture", Command::SetValue, picture,
                                     &error));
    auto* image = qobject_cast<Script::GraphicItems::WImage::Image*>(
        m_poModel->poNode("Module Application.Sink.Picture"));
    QCOMPARE(image->qImage(), picture);

    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Bytes", Command::SetValue,
                                     QByteArray("new"), &error));
    auto* bytes
        = qobject_cast<Script::BinaryItem*>(m_poModel->poNode("Module Application.Sink.Bytes"));
    QCOMPARE(bytes->binaryData(), QByteArray("new"));

    const QVariantMap file {{"BinaryData", QByteArray("DXF")},
                            {"FileName", "part.dxf"},
                            {"Extension", "dxf"},
                            {"Description", "A part"}};
    QVERIFY(
        m_poModel->bApplyCommand("Module Application.Sink.File", Command::SetValue, file, &error));
    auto* loaded
        = qobject_cast<Script::BinaryItem*>(m_poModel->poNode("Module Application.Sink.File"));
    QCOMPARE(loaded->binaryData(), QByteArray("DXF"));
    QCOMPARE(loaded->property("FileName"), QVariant("part.dxf"));
    QCOMPARE(loaded->property("Description"), QVariant("A part"));

    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Picture", Command::SetLink,
                                     "Module Application.Source.Picture", &error));
    QCOMPARE(image->qImage().size(), QSize(8, 4));
}

void TestJobModel::linksFollowTheirSource()
{
    QString error;
    QVERIFY2(m_poModel->bApplyCommand("Module Application.Sink.Double", Command::SetLink,
                                      "Module Application.Source.Int", &error),
             qPrintable(error));
    DItem* sink = m_poModel->poNode("Module Application.Sink.Double");
    QCOMPARE(sink->linkedPath(), QStringLiteral("Module Application.Source.Int"));
    QCOMPARE(sink->property("IDataNumeric.DynamicValue").toInt(), 7);
    QCOMPARE(m_poModel->poNode("Module Application.Source.Int")
                 ->property("IData.LinksToMe")
                 .toStringList(),
             QStringList("Module Application.Sink.Double"));

    // A chain carries the value through, and a change of the source reaches its end.
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetLink,
                                     "Module Application.Sink.Double", &error));
    // The running job changes the source; the next applied change settles the links again.
    m_poModel->poNode("Module Application.Source.Int")->setProperty("IDataNumeric.DynamicValue", 8);
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Text", Command::SetValue,
                                     QVariant("y"), &error));
    QCOMPARE(m_poModel->poNode("Module Application.Sink.Int")
                 ->property("IDataNumeric.DynamicValue")
                 .toInt(),
             8);
}

void TestJobModel::anEditReportsTheNodeAndItsFollowers()
{
    QString error;
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Double", Command::SetLink,
                                     "Module Application.Source.Int", &error));
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetLink,
                                     "Module Application.Sink.Double", &error));
    QSignalSpy changed(m_poModel, &JobModel::nodesChanged);
    QSignalSpy visibility(m_poModel, &JobModel::visibilityChanged);
    QVERIFY(
        m_poModel->bApplyCommand("Module Application.Source.Int", Command::SetValue, 9, &error));
    QCOMPARE(changed.count(), 1);
    // The whole chain, source first; the other outputs of the module are left alone.
    QCOMPARE(changed.first().first().value<QList<DItem*>>(),
             (QList<DItem*> {m_poModel->poNode("Module Application.Source.Int"),
                             m_poModel->poNode("Module Application.Sink.Double"),
                             m_poModel->poNode("Module Application.Sink.Int")}));
    QCOMPARE(m_poModel->poNode("Module Application.Sink.Int")
                 ->property("IDataNumeric.DynamicValue")
                 .toInt(),
             9);
    QCOMPARE(visibility.count(), 0);
}

void TestJobModel::linkRefusals_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("error");

    QTest::newRow("missing source") << "Module Application.Sink.Int"
                                    << "Module Application.Nowhere"
                                    << "no node at";
    QTest::newRow("other type") << "Module Application.Sink.Bool"
                                << "Module Application.Source.Int"
                                << "cannot take";
    QTest::newRow("to itself") << "Module Application.Sink.Int"
                               << "Module Application.Sink.Int"
                               << "circle";
    QTest::newRow("not linkable") << "Module Application.Source.Int"
                                  << "Module Application.Sink.Int"
                                  << "takes no link";
}

void TestJobModel::linkRefusals()
{
    QFETCH(QString, path);
    QFETCH(QString, target);
    QFETCH(QString, error);
    QString problem;
    QVERIFY(!m_poModel->bApplyCommand(path, Command::SetLink, target, &problem));
    QVERIFY2(problem.contains(error), qPrintable(problem));
    QVERIFY(!m_poModel->poNode(path)->isLinked());
}

void TestJobModel::clearingALinkRestoresTheLocalValue()
{
    QString error;
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetLink,
                                     "Module Application.Source.Int", &error));
    DItem* sink = m_poModel->poNode("Module Application.Sink.Int");
    QCOMPARE(sink->property("IDataNumeric.DynamicValue"), QVariant(7));
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetLink, QString(),
                                     &error));
    QVERIFY(!sink->isLinked());
    QCOMPARE(sink->property("IDataNumeric.DynamicValue"), QVariant(3));
    QVERIFY(
        !m_poModel->poNode("Module Application.Source.Int")->property("IData.LinksToMe").isValid());

    // Around a circle: Int follows Double, so Double may not follow Int.
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetLink,
                                     "Module Application.Sink.Double", &error));
    QVERIFY(!m_poModel->bApplyCommand("Module Application.Sink.Double", Command::SetLink,
                                      "Module Application.Sink.Int", &error));
    QVERIFY(error.contains("circle"));
}

void TestJobModel::linkErrorFollowsTheSource()
{
    QString error;
    DItem* source = m_poModel->poNode("Module Application.Source.Text");
    source->setErrorState(true);
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Text", Command::SetLink,
                                     "Module Application.Source.Text", &error));
    QVERIFY(m_poModel->poNode("Module Application.Sink.Text")->hasLinkError());
    source->setErrorState(false);
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetValue, 1, &error));
    QVERIFY(!m_poModel->poNode("Module Application.Sink.Text")->hasLinkError());
    QCOMPARE(m_poModel->poNode("Module Application.Sink.Text")
                 ->property("IDataBasicString.DynamicValue"),
             QVariant("abc"));
}

void TestJobModel::limits()
{
    QString error;
    const QVariantMap limits {{"Min", 4}, {"Max", 6}};
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetLimits, limits,
                                     &error));
    DItem* sink = m_poModel->poNode("Module Application.Sink.Int");
    QCOMPARE(sink->property("IDataNumeric.LocalMin"), QVariant(4));
    QCOMPARE(sink->property("IDataNumeric.LocalMax"), QVariant(6));
    QCOMPARE(sink->property("IDataNumeric.LocalValue"), QVariant(4));
    QCOMPARE(sink->property("IDataNumeric.DynamicValue"), QVariant(4));

    QVERIFY(!m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetLimits,
                                      QVariantMap {{"Min", 6}, {"Max", 4}}, &error));
    QVERIFY(!m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetLimits,
                                      QVariantMap {{"Min", 1.0}, {"Max", 4.0}}, &error));
    QVERIFY(!m_poModel->bApplyCommand("Module Application.Sink.Text", Command::SetLimits, limits,
                                      &error));
    QCOMPARE(sink->property("IDataNumeric.LocalMin"), QVariant(4));

    const QVariantMap wide {{"Min", qlonglong(-9223372036854775807LL - 1)},
                            {"Max", qlonglong(-9223372036854775807LL)}};
    QVERIFY(
        m_poModel->bApplyCommand("Module Application.Sink.Big", Command::SetLimits, wide, &error));
    QCOMPARE(m_poModel->poNode("Module Application.Sink.Big")->property("IDataNumeric.LocalValue"),
             QVariant(qlonglong(-9223372036854775807LL)));
}

void TestJobModel::ocrFilters()
{
    QSignalSpy structure(m_poModel, &JobModel::structureChanged);
    QSignalSpy changed(m_poModel, &JobModel::nodesChanged);
    QString error;
    const QString filter = QStringLiteral("Module Application.Sink.Fielding.Set.A");
    QVERIFY(
        m_poModel->bApplyCommand(filter, Command::SetValue, QStringList {"A", "digits"}, &error));
    QCOMPARE(m_poModel->poNode(filter)->property("IDataBasicString.DynamicValue"),
             QVariant("digits"));
    QCOMPARE(structure.count(), 0);

    QVERIFY(
        m_poModel->bApplyCommand(filter, Command::SetValue, QStringList {"B", "letters"}, &error));
    DItem* added = m_poModel->poNode("Module Application.Sink.Fielding.Set.B");
    QVERIFY(added);
    QCOMPARE(added->property("IDataBasicString.LocalValue"), QVariant("letters"));
    QCOMPARE(structure.count(), 1);
    // The filter that took the value is the changed one, not the row that was edited.
    QCOMPARE(changed.last().first().value<QList<DItem*>>(), QList<DItem*> {added});
    QVERIFY(!m_poModel->bApplyCommand(filter, Command::SetValue, QStringList {"A"}, &error));
}

void TestJobModel::renameMovesPathsAndLinks()
{
    QString error;
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetLink,
                                     "Module Application.Source.Int", &error));
    QSignalSpy structure(m_poModel, &JobModel::structureChanged);
    DItem* source = m_poModel->poNode("Module Application.Source");
    QVERIFY2(m_poModel->bRename(source, QStringLiteral("  Camera "), &error), qPrintable(error));
    QCOMPARE(structure.count(), 1);
    QCOMPARE(source->iDataPath(), QStringLiteral("Module Application.Camera"));
    QCOMPARE(source->unTranslatedName(), QStringLiteral("Camera"));
    QVERIFY(!m_poModel->poNode("Module Application.Source.Int"));
    QCOMPARE(m_poModel->poNode("Module Application.Camera.Int")->iDataPath(),
             QStringLiteral("Module Application.Camera.Int"));
    QCOMPARE(m_poModel->poNode("Module Application.Sink.Int")->linkedPath(),
             QStringLiteral("Module Application.Camera.Int"));
    // A name that only starts like the old one keeps its path.
    QCOMPARE(m_poModel->poNode("Module Application.Sink")->iDataPath(),
             QStringLiteral("Module Application.Sink"));
}

void TestJobModel::renameRefusals_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("error");
    QTest::newRow("blank") << "Module Application.Sink"
                           << "   "
                           << "must not be empty";
    QTest::newRow("dot") << "Module Application.Sink"
                         << "a.b"
                         << "must not be empty";
    QTest::newRow("taken") << "Module Application.Sink"
                           << "Source"
                           << "exists already";
    QTest::newRow("not renamable") << "Module Application.Sink.Int"
                                   << "Other"
                                   << "cannot be renamed";
}

void TestJobModel::renameRefusals()
{
    QFETCH(QString, path);
    QFETCH(QString, name);
    QFETCH(QString, error);
    QString problem;
    QVERIFY(!m_poModel->bRename(m_poModel->poNode(path), name, &problem));
    QVERIFY2(problem.contains(error), qPrintable(problem));
    QVERIFY(m_poModel->poNode(path));
}

void TestJobModel::deleteTakesTheNodeOutOfItsParent()
{
    QString error;
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Int", Command::SetLink,
                                     "Module Application.Source.Int", &error));
    DItem* root = m_poModel->poRoot();
    QVERIFY(m_poModel->bDelete("Module Application.Source", &error));
    QVERIFY(!m_poModel->poNode("Module Application.Source"));
    QVERIFY(!m_poModel->poNode("Module Application.Source.Int"));
    QCOMPARE(root->property("IData.Children").toList().size(), 1);
    // The link into the deleted module stays, in error.
    QVERIFY(m_poModel->poNode("Module Application.Sink.Int")->isLinked());
    QVERIFY(m_poModel->poNode("Module Application.Sink.Int")->hasLinkError());

    QVERIFY(!m_poModel->bDelete("Module Application.Sink.Int", &error));
    QVERIFY(error.contains("cannot be deleted"));
    QVERIFY(!m_poModel->bDelete("Module Application", &error));
}

void TestJobModel::visibilityAndColorMarking()
{
    QSignalSpy visibility(m_poModel, &JobModel::visibilityChanged);
    QSignalSpy changed(m_poModel, &JobModel::nodesChanged);
    QVERIFY(m_poModel->bSetVisible("Module Application.Sink.Int", false));
    QCOMPARE(m_poModel->poNode("Module Application.Sink.Int")->property("IData.IsGuiVisible"),
             QVariant(false));
    QVERIFY(m_poModel->bSetColorMarking("Module Application.Sink.Int", true));
    QCOMPARE(m_poModel->poNode("Module Application.Sink.Int")->property("IData.UseForColorMarking"),
             QVariant(true));
    QVERIFY(!m_poModel->bSetVisible("Module Application.None", true));
    QCOMPARE(visibility.count(), 1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().value<QList<DItem*>>(),
             QList<DItem*> {m_poModel->poNode("Module Application.Sink.Int")});
}

void TestJobModel::acceptableLinks()
{
    QString error;
    QVERIFY(m_poModel->bApplyCommand("Module Application.Sink.Double", Command::SetLink,
                                     "Module Application.Sink.Int", &error));
    QVERIFY(m_poModel->bRefreshNode("Module Application.Sink.Int"));
    const auto pair = m_poModel->poNode("Module Application.Sink.Int")
                          ->property("IData.AcceptableLinks")
                          .value<Script::DItemListPair>();
    QStringList offered;
    for (const DItem* node : pair.first)
        offered << node->iDataPath();
    // Numbers of any kind that are not inputs; the double follows the node and would close a
    // circle, so it is left out.
    QCOMPARE(offered,
             QStringList({"Module Application.Sink.Fixed", "Module Application.Source.Double",
                          "Module Application.Source.Int"}));
    QStringList shown;
    for (const DItem* node : pair.second)
        shown << node->iDataPath();
    QCOMPARE(shown,
             QStringList({"Module Application", "Module Application.Sink",
                          "Module Application.Sink.Fixed", "Module Application.Source",
                          "Module Application.Source.Double", "Module Application.Source.Int"}));

    QVERIFY(m_poModel->bRefreshNode("Module Application.Sink.Bool"));
    QVERIFY(m_poModel->poNode("Module Application.Sink.Bool")
                ->property("IData.AcceptableLinks")
                .value<Script::DItemListPair>()
                .first.isEmpty());
    QVERIFY(!m_poModel->bRefreshNode("Module Application.None"));
}

void TestJobModel::files()
{
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    const QString source = folder.filePath("model.dxf");
    QFile file(source);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("0\nEOF\n");
    file.close();

    QString error;
    QVERIFY2(m_poModel->bLoadFile("Module Application.Sink.File", source, &error),
             qPrintable(error));
    auto* binary
        = qobject_cast<Script::BinaryItem*>(m_poModel->poNode("Module Application.Sink.File"));
    QCOMPARE(binary->binaryData(), QByteArray("0\nEOF\n"));
    QCOMPARE(binary->property("FileName"), QVariant("model.dxf"));
    QCOMPARE(binary->property("Extension"), QVariant("dxf"));

    const QString copy = folder.filePath("copy.dxf");
    QVERIFY(m_poModel->bSaveFile("Module Application.Sink.File", copy, &error));
    QFile written(copy);
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), QByteArray("0\nEOF\n"));

    QVERIFY(m_poModel->bUnloadFile("Module Application.Sink.File", &error));
    QVERIFY(binary->binaryData().isEmpty());
    QVERIFY(binary->property("FileName").isNull());

    QVERIFY(
        !m_poModel->bLoadFile("Module Application.Sink.File", folder.filePath("missing"), &error));
    QVERIFY(error.contains("missing"));
    QVERIFY(!m_poModel->bSaveFile("Module Application.Sink.Int", copy, &error));
    QVERIFY(!m_poModel->bSaveFile("Module Application.Sink.File", folder.filePath("no/such/dir/x"),
                                  &error));
}

QTEST_GUILESS_MAIN(TestJobModel)
#include "tst_jobmodel.moc"
