// Times valueText() of each manager and the painter's two questions, per call, so that later
// changes to the paint path can be judged. Run it by hand from a release build.

#include "navigator/ditemnavpainter.h"
#include "property_model/binaryfilepropertymanager.h"
#include "property_model/binarypropertymanager.h"
#include "property_model/boolpropertymanager.h"
#include "property_model/doublepropertymanager.h"
#include "property_model/enumpropertymanager.h"
#include "property_model/idatapropertymanager.h"
#include "property_model/imagepropertymanager.h"
#include "property_model/int64propertymanager.h"
#include "property_model/intpropertymanager.h"
#include "property_model/ocrfilterpropertymanager.h"
#include "property_model/pointpropertymanager.h"
#include "property_model/stringpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

#include "allocationcounter.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTextStream>

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>


namespace {

constexpr int iCalls = 100000;

// One timed case: a manager, its row and the node behind it.
struct Case
{
    QString name;
    std::unique_ptr<QtAbstractPropertyManager> manager;
    std::unique_ptr<Script::DItem> node;
    QtProperty* property = nullptr;
};

// A node of @p type holding @p value under @p key, shown by a fresh row of @p manager.
Case makeCase(const QString& name, QtAbstractPropertyManager* manager, const QString& type,
              const char* key, const QVariant& value)
{
    Case c;
    c.name = name;
    c.manager.reset(manager);
    c.node = std::make_unique<Script::DItem>(QStringLiteral("Job.Bench.Value"), type,
                                             Script::DItem::IoInput);
    c.node->setProperty(key, value);
    c.property = manager->addProperty(name);
    dynamic_cast<PropertyBrowser::WidgetProperty*>(c.property)->setData(*c.node);
    return c;
}

// Gives the point of @p c its three axis nodes, owned by the point node.
Case withPointAxes(Case c)
{
    const double values[] = {12.5, -3.25, 100000000.0};
    const char* keys[] = {"IDataGeoPoint.X", "IDataGeoPoint.Y", "IDataGeoPoint.Z"};
    for (int axis = 0; axis < 3; ++axis) {
        auto* axisNode = new Script::DItem(QStringLiteral("Job.Bench.Value.Axis"),
                                           QStringLiteral("IDataBasicDouble"),
                                           Script::DItem::IoNone, c.node.get());
        axisNode->setProperty("IDataNumeric.DynamicValue", values[axis]);
        c.node->setProperty(keys[axis], qlonglong(reinterpret_cast<quintptr>(axisNode)));
    }
    return c;
}

// Nanoseconds and heap blocks per call of @p call, as text.
QString perCall(const std::function<int()>& call)
{
    int sink = 0;
    const long allocationsBefore = allocationCount();
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < iCalls; ++i)
        sink += call();
    const double elapsed = static_cast<double>(timer.nsecsElapsed());
    const long allocations = allocationCount() - allocationsBefore;
    // The sum keeps the compiler from dropping the calls.
    const double nanoseconds = sink == -1 ? 0.0 : elapsed / iCalls;
    return QStringLiteral("%1 ns, %2 allocations")
        .arg(nanoseconds, 0, 'f', 1)
        .arg(allocationsBefore < 0 ? QStringLiteral("?")
                                   : QString::number(double(allocations) / iCalls, 'f', 2));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    using namespace PropertyBrowser::Managers;

    // One line per manager type.
    std::vector<Case> cases;
    cases.push_back(makeCase(QStringLiteral("IntPropertyManager"), new IntPropertyManager,
                             QStringLiteral("IDataBasicInt"), "IDataNumeric.DynamicValue", 123456));
    cases.push_back(makeCase(QStringLiteral("Int64PropertyManager"), new Int64PropertyManager,
                             QStringLiteral("IDataBasicInt64"), "IDataNumeric.DynamicValue",
                             QVariant::fromValue(Q_INT64_C(5000000000))));
    cases.push_back(makeCase(QStringLiteral("DoublePropertyManager"), new DoublePropertyManager,
                             QStringLiteral("IDataBasicDouble"), "IDataNumeric.DynamicValue",
                             1234.5));
    cases.push_back(makeCase(QStringLiteral("StringPropertyManager"), new StringPropertyManager,
                             QStringLiteral("IDataBasicString"), "IDataBasicString.DynamicValue",
                             QStringLiteral("Serial\r\n")));
    cases.push_back(makeCase(QStringLiteral("BoolPropertyManager"), new BoolPropertyManager,
                             QStringLiteral("IDataBasicBool"), "IDataBasicBool.ActionReply",
                             QStringLiteral("Done")));
    cases.push_back(makeCase(QStringLiteral("EnumPropertyManager"), new EnumPropertyManager,
                             QStringLiteral("IDataBasicEnum"),
                             "IDataBasicEnum.DynamicStringnifiedValue", QStringLiteral("Median")));
    cases.push_back(makeCase(QStringLiteral("IDataPropertyManager"), new IDataPropertyManager,
                             QStringLiteral("IDataPose"), "IData.Description",
                             QStringLiteral("Pose")));
    cases.push_back(makeCase(QStringLiteral("OcrFilterPropertyManager"),
                             new OcrFilterPropertyManager, QStringLiteral("IDataBasicString"),
                             "IDataBasicString.DynamicValue", QStringLiteral("0-9")));
    cases.push_back(makeCase(QStringLiteral("ImagePropertyManager"), new ImagePropertyManager,
                             QStringLiteral("IDataImage"), "IData.Description",
                             QStringLiteral("Picture")));
    cases.push_back(withPointAxes(
        makeCase(QStringLiteral("PointPropertyManager"), new PointPropertyManager,
                 QStringLiteral("IDataGeoPoint"), "IData.Description", QStringLiteral("Center"))));
    cases.push_back(makeCase(QStringLiteral("BinaryPropertyManager"), new BinaryPropertyManager,
                             QStringLiteral("IDataBinary"), "IData.Description",
                             QStringLiteral("Bytes")));
    cases.push_back(makeCase(QStringLiteral("BinaryFilePropertyManager"),
                             new BinaryFilePropertyManager, QStringLiteral("IDataBinaryFile"),
                             "FileName", QStringLiteral("part.dxf")));

    QTextStream out(stdout);
    out << "valueText(), " << iCalls << " calls each, per call\n";
    for (const Case& c : cases) {
        const QtProperty* property = c.property;
        out << "  " << c.name << ": "
            << perCall([property] { return property->valueText().size(); }) << '\n';
    }

    Script::DItem plain(QStringLiteral("Job.Bench.Plain"), QStringLiteral("IDataBasicInt"),
                        Script::DItem::IoInput);
    plain.setLinkable(true);
    Script::DItem linked(QStringLiteral("Job.Bench.Linked"), QStringLiteral("IDataBasicInt"),
                         Script::DItem::IoInput);
    linked.setLinkable(true);
    linked.setLinked(true);
    linked.setLinkedPath(QStringLiteral("Job.Source.Area"));
    out << "DItemNavPainter, per call\n";
    out << "  getValueText(), no text: "
        << perCall([&plain] { return DItemNavPainter(plain).getValueText() ? 1 : 0; }) << '\n';
    out << "  getValueText(), linked: "
        << perCall([&linked] { return DItemNavPainter(linked).getValueText() ? 1 : 0; }) << '\n';
    out << "  getTextColor(): "
        << perCall([&linked] { return DItemNavPainter(linked).getTextColor().red(); }) << '\n';
    return 0;
}
