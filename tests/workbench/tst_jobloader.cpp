#include "jobindex.h"
#include "jobloader.h"
#include "testsupport.h"

#include "sdk/binaryitem.h"
#include "sdk/ditem.h"
#include "sdk/image.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

using Script::DItem;

namespace {

std::unique_ptr<DItem> load(const QString& fileName)
{
    QString error;
    std::unique_ptr<DItem> root(JobLoader::poLoadFile(fileName, &error));
    if (!root)
        qInfo("%s", qPrintable(error));
    return root;
}

// The node that a point names by address under "IDataGeoPoint.<axis>".
DItem* axisNode(const DItem& point, const char* axis)
{
    const QVariant address = point.property(QByteArray("IDataGeoPoint.") + axis);
    return address.isValid() ? reinterpret_cast<DItem*>(address.toLongLong()) : nullptr;
}

} // namespace

class TestJobLoader : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void sampleJobHasEveryNodeType_data();
    void sampleJobHasEveryNodeType();
    void sampleJobValues();
    void sampleJobStates();
    void pointAxesAreNodesOfThePoint();
    void imagesAndBinaries();
    void examplesLoad_data();
    void examplesLoad();
    void refusesWrongDocuments_data();
    void refusesWrongDocuments();
    void acceptsWhatAHostHolds_data();
    void acceptsWhatAHostHolds();
    void missingFile();
    void largeFileReportsProgress();
    void linkChainsEnd_data();
    void linkChainsEnd();
};

void TestJobLoader::initTestCase()
{
    TestSupport::failOnWarnings();
}

void TestJobLoader::sampleJobHasEveryNodeType_data()
{
    QTest::addColumn<QString>("type");
    const char* const types[]
        = {"IDataBasicInt",   "IDataBasicInt64",  "IDataBasicDouble", "IDataBasicBool",
           "IDataBasicEnum",  "IDataBasicString", "IDataImage",       "IDataBinary",
           "IDataBinaryFile", "IDataGeoPoint",    "IDataFilterMatrix"};
    for (const char* type : types)
        QTest::newRow(type) << QString::fromLatin1(type);
}

void TestJobLoader::sampleJobHasEveryNodeType()
{
    QFETCH(QString, type);
    const auto root = load(WORKBENCH_DIR "/jobs/sample-job.json");
    QVERIFY(root);
    bool found = false;
    for (const DItem* module : root->childNodes()) {
        for (const DItem* node : module->childNodes())
            found = found || node->iDataType() == type;
    }
    QVERIFY2(found, qPrintable(type));
}

void TestJobLoader::sampleJobValues()
{
    const auto root = load(WORKBENCH_DIR "/jobs/sample-job.json");
    QVERIFY(root);
    // The job hangs below the host's root and shows its own name.
    QCOMPARE(root->iDataPath(), QStringLiteral("Module Application"));
    QCOMPARE(root->unTranslatedName(), QStringLiteral("BottleInspection"));
    QCOMPARE(root->childNodes().size(), 6);

    const DItem* exposure = root->poFindNode(QStringLiteral("Module Application.Camera.Exposure"));
    QVERIFY(exposure);
    QCOMPARE(exposure->ioType(), DItem::IoInput);
    QCOMPARE(exposure->property("IDataNumeric.DynamicValue"), QVariant(1200));
    QCOMPARE(exposure->property("IDataNumeric.LocalValue"), QVariant(1200));
    QCOMPARE(exposure->property("IDataNumeric.LocalMin"), QVariant(10));
    QCOMPARE(exposure->property("IDataNumeric.LocalStep"), QVariant(10));
    QCOMPARE(exposure->property("IDataNumeric.DynamicMax"), QVariant(100000.0));
    QCOMPARE(exposure->property("IData.NumericDynamic"), QVariant(true));
    // The first value a user touches is edited in its row like any input.
    QCOMPARE(exposure->property("IDataNumeric.LimitsEditable"), QVariant(false));
    QCOMPARE(exposure->property("iIsEditable"), QVariant(true));
    // A measurement's tolerance is where limits are what the user edits.
    const DItem* tolerance
        = root->poFindNode(QStringLiteral("Module Application.Measurement.Tolerance"));
    QCOMPARE(tolerance->ioType(), DItem::IoOutput);
    QCOMPARE(tolerance->property("IDataNumeric.LimitsEditable"), QVariant(true));
    QCOMPARE(tolerance->property("IDataNumeric.LocalMax"), QVariant(0.2));

    // 64-bit values come from texts so that no digit is lost on the way through JSON.
    const DItem* counter
        = root->poFindNode(QStringLiteral("Module Application.Measurement.Counter"));
    QVERIFY(counter);
    QCOMPARE(counter->property("IDataNumeric.LocalMin"),
             QVariant(std::numeric_limits<qlonglong>::min()));
    QCOMPARE(counter->property("IDataNumeric.LocalMax"),
             QVariant(std::numeric_limits<qlonglong>::max()));
    const DItem* frames
        = root->poFindNode(QStringLiteral("Module Application.Camera.FrameCounter"));
    QCOMPARE(frames->property("IDataNumeric.DynamicValue"), QVariant(qlonglong(4294967301)));

    const DItem* trigger
        = root->poFindNode(QStringLiteral("Module Application.Camera.TriggerMode"));
    QCOMPARE(trigger->property("IDataBasicEnum.EnumList").toStringList(),
             QStringList({"Free Run", "Hardware", "Software"}));
    QCOMPARE(trigger->property("IDataBasicEnum.DynamicStringnifiedValue"), QVariant("Hardware"));
    QCOMPARE(trigger->property("IDataBasicEnum.LocalStringnifiedValue"), QVariant("Hardware"));

    const DItem* pattern = root->poFindNode(QStringLiteral("Module Application.OCR.Pattern"));
    QCOMPARE(pattern->property("IDataBasicString.DynamicValue"),
             QVariant(QStringLiteral("LOT\t^[A-Z]{2}\\d{4}$")));
    const DItem* found = root->poFindNode(QStringLiteral("Module Application.Locator.Found"));
    QCOMPARE(found->property("IDataBasicBool.DynamicValue"), QVariant(true));
    QCOMPARE(found->property("IDataBasicBool.ActionReply"), QVariant("Bottle found"));
    QVERIFY(root->poFindNode(QStringLiteral("Module Application.OCR.Fielding.Set.CharFilter")));
}

void TestJobLoader::sampleJobStates()
{
    const auto root = load(WORKBENCH_DIR "/jobs/sample-job.json");
    QVERIFY(root);
    const DItem* camera = root->poFindNode(QStringLiteral("Module Application.Camera"));
    QVERIFY(camera->isDeletable() && camera->isCopyable() && camera->isDraggable());
    QVERIFY(camera->isRenamingAllowed());
    QCOMPARE(camera->iconPath(), QStringLiteral(":/workbench/icons/camera.svg"));
    // A module without an icon of its own gets the host's.
    QCOMPARE(root->poFindNode(QStringLiteral("Module Application.Locator"))->iconPath(),
             QStringLiteral(":/images/Setting-3.svg"));
    // The one Result module cannot be copied.
    QVERIFY(!root->poFindNode(QStringLiteral("Module Application.Result"))->isCopyable());

    const DItem* input
        = root->poFindNode(QStringLiteral("Module Application.ImageFilter.InputImage"));
    QVERIFY(input->isLinkable() && input->isLinked());
    QCOMPARE(input->linkedPath(), QStringLiteral("Module Application.Camera.Image"));

    const DItem* ocrConfidence
        = root->poFindNode(QStringLiteral("Module Application.Measurement.OcrConfidence"));
    QVERIFY(ocrConfidence->isLinked());
    QCOMPARE(ocrConfidence->linkedPath(), QStringLiteral("Module Application.OCR.Confidence"));
    const DItem* confidence = root->poFindNode(QStringLiteral("Module Application.OCR.Confidence"));
    QVERIFY(confidence->hasErrorState());
    QVERIFY(!confidence->isEditable());
    // "Not Available" is what the host's inverted flag means.
    const DItem* temperature
        = root->poFindNode(QStringLiteral("Module Application.Camera.Temperature"));
    QVERIFY(temperature->isInitialized());
    const DItem* score = root->poFindNode(QStringLiteral("Module Application.Locator.Score"));
    QCOMPARE(score->outOfRangeCounter(), 3);
    const DItem* offset = root->poFindNode(QStringLiteral("Module Application.Measurement.Offset"));
    QCOMPARE(offset->property("IData.IsGuiVisible"), QVariant(false));
    const DItem* debug = root->poFindNode(QStringLiteral("Module Application.Measurement.Debug"));
    QCOMPARE(debug->property("GUI.Unavailable"), QVariant(true));
    const DItem* device = root->poFindNode(QStringLiteral("Module Application.Camera.DeviceId"));
    QCOMPARE(device->property("iIsEditable"), QVariant(false));
}

void TestJobLoader::pointAxesAreNodesOfThePoint()
{
    const auto root = load(WORKBENCH_DIR "/jobs/sample-job.json");
    QVERIFY(root);
    DItem* position = root->poFindNode(QStringLiteral("Module Application.Locator.Position"));
    QVERIFY(position);
    const DItem* x = axisNode(*position, "X");
    const DItem* y = axisNode(*position, "Y");
    QVERIFY(x && y && axisNode(*position, "Z"));
    QCOMPARE(x->parent(), position);
    QCOMPARE(x->iDataPath(), QStringLiteral("Module Application.Locator.Position.X"));
    QCOMPARE(x->property("IDataNumeric.DynamicValue").toDouble(), 312.5);
    QCOMPARE(y->property("IDataNumeric.DynamicValue").toDouble(), 188.25);
    // The axes are reached through the point only, not as children of the tree.
    QVERIFY(position->childNodes().isEmpty());

    const DItem* reference
        = root->poFindNode(QStringLiteral("Module Application.Measurement.Reference"));
    QVERIFY(axisNode(*reference, "X"));
    QVERIFY(!axisNode(*reference, "Z"));
}

void TestJobLoader::imagesAndBinaries()
{
    const auto root = load(WORKBENCH_DIR "/jobs/sample-job.json");
    QVERIFY(root);
    auto* image = qobject_cast<Script::GraphicItems::WImage::Image*>(
        root->poFindNode(QStringLiteral("Module Application.Camera.Image")));
    QVERIFY(image);
    QCOMPARE(image->qImage().size(), QSize(160, 120));
    QCOMPARE(image->channelList().size(), 3);
    QCOMPARE(image->channelList().at(1)->iDataPath(),
             QStringLiteral("Module Application.Camera.Image.Green"));

    auto* calibration = qobject_cast<Script::BinaryItem*>(
        root->poFindNode(QStringLiteral("Module Application.OCR.Calibration")));
    QVERIFY(calibration);
    QCOMPARE(calibration->binaryData(), QByteArray::fromHex("00010203040506070809"));
    auto* model = qobject_cast<Script::BinaryItem*>(
        root->poFindNode(QStringLiteral("Module Application.Locator.Model")));
    QVERIFY(model);
    QCOMPARE(model->iDataType(), QStringLiteral("IDataBinaryFile"));
    QCOMPARE(model->property("FileName"), QVariant("bottle_neck.dxf"));
    QCOMPARE(model->property("IData.Type.ExtraInfo"), QVariant("DXFModel"));
    QVERIFY(model->binaryData().startsWith("0\nSECTION"));
}

void TestJobLoader::examplesLoad_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("root");
    QTest::addColumn<int>("modules");
    QTest::newRow("label check") << "label-check.json"
                                 << "LabelCheck" << 2;
    QTest::newRow("gap measurement") << "gap-measurement.json"
                                     << "GapMeasurement" << 2;
}

void TestJobLoader::examplesLoad()
{
    QFETCH(QString, file);
    QFETCH(QString, root);
    QFETCH(int, modules);
    const auto job = load(QStringLiteral(WORKBENCH_DIR "/examples/") + file);
    QVERIFY(job);
    QCOMPARE(job->unTranslatedName(), root);
    QCOMPARE(job->childNodes().size(), modules);
}

void TestJobLoader::refusesWrongDocuments_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");

    const QByteArray job = R"({"name":"J","modules":[{"name":"M","nodes":[%1]}]})";
    auto node = [&](const char* text) {
        return QByteArray(job).replace("%1", text);
    };

    QTest::newRow("not JSON") << QByteArray("{\"name\":") << "not valid JSON";
    QTest::newRow("a list") << QByteArray("[]") << "must be a JSON object";
    QTest::newRow("no modules") << QByteArray(R"({"name":"J"})") << "\"modules\" must be a list";
    QTest::newRow("job name with a dot")
        << QByteArray(R"({"name":"J.K","modules":[]})") << "job needs a name";
    QTest::newRow("module without name")
        << QByteArray(R"({"name":"J","modules":[{}]})") << "every node needs a name";
    QTest::newRow("module not an object")
        << QByteArray(R"({"name":"J","modules":[3]})") << "a module must be an object";
    QTest::newRow("two modules of one name")
        << QByteArray(R"({"name":"J","modules":[{"name":"M"},{"name":"M"}]})")
        << "two modules are named M";
    QTest::newRow("two nodes of one name")
        << node(R"({"name":"A"},{"name":"A"})") << "Module Application.M: two nodes are named A";
    QTest::newRow("unknown key") << node(R"({"name":"A","vlaue":1})")
                                 << "Module Application.M.A: unknown key";
    QTest::newRow("wrong io") << node(R"({"name":"A","io":"both"})") << "\"io\" must be";
    QTest::newRow("flag not a bool") << node(R"({"name":"A","error":1})") << "true or false";
    QTest::newRow("int with a fraction")
        << node(R"({"name":"A","type":"IDataBasicInt","value":1.5})") << "whole number";
    QTest::newRow("int too large")
        << node(R"({"name":"A","type":"IDataBasicInt","value":2147483648})") << "whole number";
    QTest::newRow("int64 text not a number")
        << node(R"({"name":"A","type":"IDataBasicInt64","value":"12a"})") << "64-bit integer";
    QTest::newRow("min above max")
        << node(R"({"name":"A","type":"IDataBasicDouble","min":2,"max":1})") << "above";
    QTest::newRow("step of zero") << node(R"({"name":"A","type":"IDataBasicInt","step":0})")
                                  << "\"step\" must be positive";
    QTest::newRow("dynamic range half given")
        << node(R"({"name":"A","type":"IDataBasicInt","dynamicMin":0})") << "go together";
    QTest::newRow("enum without choices")
        << node(R"({"name":"A","type":"IDataBasicEnum"})") << "needs \"choices\"";
    QTest::newRow("enum value not a choice")
        << node(R"({"name":"A","type":"IDataBasicEnum","choices":["a"],"value":"b"})")
        << "one of the choices";
    QTest::newRow("value on a generic node")
        << node(R"({"name":"A","type":"IDataPlan","value":1})") << "holds no value";
    QTest::newRow("link on a node that takes none")
        << node(R"({"name":"A","io":"output","link":"Module Application.M.B"})") << "not linkable";
    QTest::newRow("negative out-of-range count")
        << node(R"({"name":"A","outOfRange":-1})") << "\"outOfRange\" must be a count";
    QTest::newRow("bad base64") << node(R"({"name":"A","type":"IDataBinary","base64":"@@@"})")
                                << "not valid base64";
    QTest::newRow("image too large")
        << node(R"({"name":"A","type":"IDataImage","image":{"width":5000,"height":2}})")
        << "from 1 to 4096";
    QTest::newRow("bad link mode")
        << node(R"({"name":"A","type":"IDataImage","linkMode":7})") << "must be 0, 1 or 2";
    QTest::newRow("channel name with a dot")
        << node(R"({"name":"A","type":"IDataImage","channels":["R.G"]})") << "channel needs";
    QTest::newRow("properties not an object")
        << node(R"({"name":"A","properties":[1]})") << "must be an object";

    QTest::newRow("JSON error on line 3")
        << QByteArray("{\n  \"name\": \"J\",\n  \"modules\": [}\n") << "line 3, column 15";
    QTest::newRow("JSON error after letters beyond ASCII")
        << QByteArray("{\"name\": \"Größe\" \"x\"}") << "line 1, column 18";
    QTest::newRow("64-bit number beyond 2^53 as a JSON number")
        << node(R"({"name":"A","type":"IDataBasicInt64","max":9223372036854775807})")
        << "write it as a decimal text";

    const char* input = R"({"name":"A","type":"IDataBasicInt","io":"input","linkable":true,"link":"%2"})";
    auto linked = [&](const char* target, const char* more = "") {
        return node((QByteArray(input).replace("%2", target) + more).constData());
    };
    QTest::newRow("link to a node that does not exist")
        << linked("Module Application.M.Nothing")
        << "Module Application.M.A: the link goes to Module Application.M.Nothing, which the job "
           "does not have";
    QTest::newRow("link to itself") << linked("Module Application.M.A")
                                    << "Module Application.M.A: the node is linked to itself";
    QTest::newRow("link between incompatible types")
        << linked("Module Application.M.S",
                  R"(,{"name":"S","type":"IDataBasicString","io":"output"})")
        << "a node of type IDataBasicInt cannot be linked to Module Application.M.S of type "
           "IDataBasicString";
    QTest::newRow("links in a circle") << linked(
        "Module Application.M.B",
        R"(,{"name":"B","type":"IDataBasicInt","io":"input","linkable":true,"link":"Module Application.M.C"})"
        R"(,{"name":"C","type":"IDataBasicDouble","io":"input","linkable":true,"link":"Module Application.M.A"})")
                                       << "go round in a circle";
    QTest::newRow("int local below min")
        << node(R"({"name":"A","type":"IDataBasicInt","value":5,"min":10,"max":20})")
        << "Module Application.M.A: the local value 5 lies outside \"min\" 10 .. \"max\" 20";
    QTest::newRow("double local above max")
        << node(R"({"name":"A","type":"IDataBasicDouble","value":1,"local":2.5,"max":2})")
        << "the local value 2.5 lies outside";
    QTest::newRow("int64 local one above a max near 2^63")
        << node(R"({"name":"A","type":"IDataBasicInt64","local":"9223372036854775807",)"
                R"("max":"9223372036854775806"})")
        << "the local value 9223372036854775807 lies outside";
    QTest::newRow("output's explicit local out of range")
        << node(R"({"name":"A","type":"IDataBasicInt","io":"output","value":5,"local":50,"max":20})")
        << "the local value 50 lies outside";
}

void TestJobLoader::acceptsWhatAHostHolds_data()
{
    QTest::addColumn<QByteArray>("nodes");

    QTest::newRow("output measured beyond its limits")
        << QByteArray(R"({"name":"A","type":"IDataBasicInt","io":"output","value":500,"min":0,"max":20})");
    QTest::newRow("local on its limits")
        << QByteArray(R"({"name":"A","type":"IDataBasicInt64","local":"-9223372036854775808",)"
                      R"("min":"-9223372036854775808","max":"9223372036854775807"})");
    QTest::newRow("link forwards in the file and a chain of links") << QByteArray(
        R"({"name":"A","type":"IDataBasicInt","io":"input","link":"Module Application.M.B"},)"
        R"({"name":"B","type":"IDataBasicDouble","io":"input","link":"Module Application.M.C"},)"
        R"({"name":"C","type":"IDataBasicInt","io":"output"})");
    QTest::newRow("link to a point's axis") << QByteArray(
        R"({"name":"A","type":"IDataBasicDouble","io":"input","link":"Module Application.M.P.X"},)"
        R"({"name":"P","type":"IDataGeoPoint","io":"output","x":1,"y":2})");
}

void TestJobLoader::acceptsWhatAHostHolds()
{
    QFETCH(QByteArray, nodes);
    const QByteArray json
        = QByteArray(R"({"name":"J","modules":[{"name":"M","nodes":[%1]}]})").replace("%1", nodes);
    QString problem;
    std::unique_ptr<DItem> root(JobLoader::poLoad(json, &problem));
    QVERIFY2(root, qPrintable(problem));
    QVERIFY(problem.isEmpty());
}

void TestJobLoader::refusesWrongDocuments()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, error);
    QString problem = QStringLiteral("untouched");
    std::unique_ptr<DItem> root(JobLoader::poLoad(json, &problem));
    QVERIFY(!root);
    QVERIFY2(problem.contains(error), qPrintable(problem));
}

void TestJobLoader::missingFile()
{
    QString problem;
    std::unique_ptr<DItem> root(
        JobLoader::poLoadFile(QStringLiteral("/nonexistent/job.json"), &problem));
    QVERIFY(!root);
    QVERIFY2(problem.startsWith(QStringLiteral("/nonexistent/job.json: ")), qPrintable(problem));
}

void TestJobLoader::largeFileReportsProgress()
{
    // 10 MB in one text value: read in parts, each part told, then parsing and building.
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("large.json"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QString text(10 << 20, QLatin1Char('t'));
    file.write(R"({"name":"J","modules":[{"name":"M","nodes":[{"name":"S",)"
               R"("type":"IDataBasicString","value":")");
    file.write(text.toLatin1());
    file.write(R"("}]}]})");
    file.close();

    QList<int> told;
    QString error;
    std::unique_ptr<DItem> root(
        JobLoader::poLoadFile(path, &error, [&told](int percent) { told.append(percent); }));
    QVERIFY2(root, qPrintable(error));
    QVERIFY2(told.size() >= 4, qPrintable(QString::number(told.size())));
    QVERIFY(std::is_sorted(told.begin(), told.end()));
    QCOMPARE(told.last(), 100);
    QVERIFY(told.first() < 50);
    QCOMPARE(root->poFindNode(QStringLiteral("Module Application.M.S"))
                 ->property("IDataBasicString.LocalValue"),
             QVariant(text));

    // A document that is refused ends its progress too.
    told.clear();
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"name\": 3}");
    file.close();
    root.reset(JobLoader::poLoadFile(path, &error, [&told](int percent) { told.append(percent); }));
    QVERIFY(!root);
    QVERIFY2(error.startsWith(path + QStringLiteral(": ")), qPrintable(error));
    QCOMPARE(told.last(), 100);
}

void TestJobLoader::linkChainsEnd_data()
{
    QTest::addColumn<QStringList>("links");
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("reaches");
    // Each entry "x>y" links x to y; the walk starts at "a".
    QTest::newRow("itself") << QStringList() << "a" << true;
    QTest::newRow("along the chain") << QStringList({"a>b", "b>c"}) << "c" << true;
    QTest::newRow("chain that ends first") << QStringList({"a>b"}) << "c" << false;
    QTest::newRow("link to a node that is gone") << QStringList({"a>gone"}) << "c" << false;
    QTest::newRow("a circle elsewhere ends the walk")
        << QStringList({"a>b", "b>c", "c>b"}) << "d" << true;
}

void TestJobLoader::linkChainsEnd()
{
    QFETCH(QStringList, links);
    QFETCH(QString, target);
    QFETCH(bool, reaches);
    QHash<QString, DItem*> nodes;
    std::vector<std::unique_ptr<DItem>> owned;
    for (const char* name : {"a", "b", "c", "d"}) {
        owned.push_back(std::make_unique<DItem>(QString::fromLatin1(name),
                                                QStringLiteral("IDataBasicInt")));
        nodes.insert(owned.back()->iDataPath(), owned.back().get());
    }
    for (const QString& link : links) {
        DItem* from = nodes.value(link.section('>', 0, 0));
        from->setLinked(true);
        from->setLinkedPath(link.section('>', 1));
    }
    QCOMPARE(bLinkChainReaches(*nodes.value("a"), *nodes.value(target), nodes), reaches);
}

QTEST_GUILESS_MAIN(TestJobLoader)
#include "tst_jobloader.moc"
