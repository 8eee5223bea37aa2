// Times the dock's property tree the way the host drives it, on a shown tree: the fill after a
// new selection, a burst of value updates, one repaint of a screenful of rows, and the heap a
// row keeps. The fill is timed step by step at three sizes, with the growth from size to size,
// so that a step whose cost grows faster than the number of rows stands out.
//
// Run it by hand from a release build: QT_QPA_PLATFORM=offscreen bench_propertytree
// Arguments pick parts (fill, burst, paint, memory; all by default) and, after -n, the fill and
// memory sizes instead of 1000 10000 50000, for a profiler on one part at one size.

#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "sdk/ditem.h"
#include "sdk/wappsetting.h"
#include "sdk/wappsettings.h"

#include "allocationcounter.h"
#include "measures.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QTextStream>
#include <QTreeView>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace {

using PropertyBrowser::WTreePropertyBrowser;
using Script::DItem;

const int kRuns = 5;
const int kBurstRows = 10000;
const int kPaintRows = 40;
const int kPaintSamples = 21;
// Guards the event loop against a repaint that keeps posting itself; far above what is needed.
const int kMaxPasses = 1000;

double msSince(const QElapsedTimer& timer)
{
    return timer.nsecsElapsed() / 1e6;
}

/// The value nodes of one selection, in the host's order, with their paths.
struct Nodes
{
    std::vector<std::unique_ptr<DItem>> nodes;
    QStringList paths;
};

/// Which value types the nodes cycle through.
enum class Mix {
    /// int, double, bool, string, int64, enum; the numeric ones with value bars, every row
    /// editable so that every value cell has its button; one row in ten hidden.
    AllTypes,
    /// int, double, int64, all with bars and buttons, all shown.
    NumericOnly,
};

/// Gives @p node the keys that make its row show a bar with a dynamic range.
void setBar(DItem& node, const QVariant& minimum, const QVariant& maximum, const QVariant& value)
{
    node.setProperty("IData.IsNumeric", true);
    node.setProperty("IData.NumericDynamic", true);
    node.setProperty("IDataNumeric.DynamicMin", minimum);
    node.setProperty("IDataNumeric.DynamicMax", maximum);
    node.setProperty("IDataNumeric.DynamicValue", value);
    node.setProperty("IDataNumeric.LocalMin", minimum);
    node.setProperty("IDataNumeric.LocalMax", maximum);
}

/// @p count value nodes of the mix.
Nodes makeNodes(int count, Mix mix)
{
    static const char* const allTypes[]
        = {"IDataBasicInt",    "IDataBasicDouble", "IDataBasicBool",
           "IDataBasicString", "IDataBasicInt64",  "IDataBasicEnum"};
    static const char* const numericTypes[]
        = {"IDataBasicInt", "IDataBasicDouble", "IDataBasicInt64"};
    Nodes result;
    result.nodes.reserve(count);
    result.paths.reserve(count);
    for (int i = 0; i < count; ++i) {
        const QString type
            = QLatin1String(mix == Mix::AllTypes ? allTypes[i % 6] : numericTypes[i % 3]);
        const QString path = QStringLiteral("Job.Module%1.Value%2").arg(i / 100).arg(i);
        // Every third row an output: outputs show bars as well as inputs do.
        const DItem::IoType io = i % 3 == 2 ? DItem::IoOutput : DItem::IoInput;
        auto node = std::make_unique<DItem>(path, type, io);
        node->setProperty("IData.Description", QStringLiteral("Value %1").arg(i));
        node->setProperty("IData.IsGuiVisible", mix == Mix::NumericOnly || i % 10 != 0);
        node->setProperty("iIsEditable", true);
        if (type == QLatin1String("IDataBasicInt"))
            setBar(*node, 0, 1000, i % 1000);
        else if (type == QLatin1String("IDataBasicDouble"))
            setBar(*node, 0.0, 10.0, (i % 100) / 10.0);
        else if (type == QLatin1String("IDataBasicInt64"))
            setBar(*node, Q_INT64_C(0), Q_INT64_C(10000000000), qint64(i) * 1000);
        else if (type == QLatin1String("IDataBasicBool"))
            node->setProperty("IDataBasicBool.DynamicValue", i % 2 == 0);
        else if (type == QLatin1String("IDataBasicString"))
            node->setProperty("IDataBasicString.DynamicValue", QStringLiteral("Serial %1").arg(i));
        else
            node->setProperty("IDataBasicEnum.DynamicStringnifiedValue",
                              i % 2 ? QStringLiteral("Median") : QStringLiteral("Mean"));
        result.paths.append(path);
        result.nodes.push_back(std::move(node));
    }
    return result;
}

/// What the host changes in a node before it asks for the row's update.
void changeValue(DItem& node, int i)
{
    const QString type = node.iDataType();
    if (type == QLatin1String("IDataBasicBool")) {
        node.setProperty("IDataBasicBool.DynamicValue",
                         !node.property("IDataBasicBool.DynamicValue").toBool());
    } else if (type == QLatin1String("IDataBasicString")) {
        node.setProperty("IDataBasicString.DynamicValue", QStringLiteral("Changed %1").arg(i));
    } else if (type == QLatin1String("IDataBasicEnum")) {
        node.setProperty("IDataBasicEnum.DynamicStringnifiedValue", QStringLiteral("Maximum"));
    } else {
        const QVariant value = node.property("IDataNumeric.DynamicValue");
        if (type == QLatin1String("IDataBasicDouble"))
            node.setProperty("IDataNumeric.DynamicValue", value.toDouble() + 0.5);
        else if (type == QLatin1String("IDataBasicInt64"))
            node.setProperty("IDataNumeric.DynamicValue", value.toLongLong() + 1);
        else
            node.setProperty("IDataNumeric.DynamicValue", value.toInt() + 1);
    }
}

/// Counts the paint events of one widget.
class PaintCounter : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++count;
        return QObject::eventFilter(watched, event);
    }
};

/// A shown property tree, as the dock has it, with a paint counter on its viewport and a count
/// of the model's dataChanged() signals.
struct Fixture
{
    Fixture()
        : browser(new WTreePropertyBrowser(nullptr))
    {
        view = browser->findChild<QTreeView*>();
        view->viewport()->installEventFilter(&paints);
        QObject::connect(view->model(), &QAbstractItemModel::dataChanged,
                         [this] { ++dataChanges; });
        browser->resize(600, 800);
        browser->show();
        settle();
    }
    ~Fixture() { destroy(); }

    void destroy()
    {
        delete browser;
        browser = nullptr;
    }

    /// The host's fill: every value at the top level, in the reverse of the node order.
    void fill(const Nodes& nodes)
    {
        browser->clear();
        for (const auto& node : nodes.nodes)
            browser->createPropertyItem(*node, true);
        browser->setPropertyOrder(reversed(nodes.paths));
        browser->refreshItemVisiblity();
    }

    /// Runs the event loop until three passes in a row neither paint nor change a row: the view
    /// lays its rows out on a timer, and paints after that. Returns the number of passes.
    int settle()
    {
        int passes = 0;
        int quiet = 0;
        while (quiet < 3 && passes < kMaxPasses) {
            const int paintsBefore = paints.count;
            const long changesBefore = dataChanges;
            QCoreApplication::processEvents();
            ++passes;
            quiet = paints.count == paintsBefore && dataChanges == changesBefore ? quiet + 1 : 0;
        }
        return passes;
    }

    static QStringList reversed(const QStringList& paths)
    {
        QStringList result(paths);
        std::reverse(result.begin(), result.end());
        return result;
    }

    WTreePropertyBrowser* browser;
    QTreeView* view = nullptr;
    PaintCounter paints;
    long dataChanges = 0;
};

// ---- 1. Fill --------------------------------------------------------------------------------

const char* const kFillSteps[]
    = {"clear() of the previous fill",    "createPropertyItem() x N", "setPropertyOrder(reversed)",
       "refreshItemVisiblity()",          "event loop until idle",    "total",
       "deleting the tree (not in total)"};
const int kFillStepCount = 7;
// The figure the fill's target is for.
const int kFillTotal = 5;

/// Milliseconds of each fill step and of the whole fill of @p count rows, median of the runs.
/// The tree holds a fill of the same nodes before, as it does when the host fills it again.
std::vector<double> fillTimes(int count)
{
    const Nodes nodes = makeNodes(count, Mix::AllTypes);
    const QStringList order = Fixture::reversed(nodes.paths);
    std::vector<std::vector<double>> samples(kFillStepCount);
    for (int run = 0; run < kRuns; ++run) {
        Fixture fixture;
        fixture.fill(nodes);
        fixture.settle();

        WTreePropertyBrowser* browser = fixture.browser;
        double step[kFillStepCount] = {};
        QElapsedTimer total;
        QElapsedTimer timer;
        total.start();
        timer.start();
        browser->clear();
        step[0] = msSince(timer);
        timer.restart();
        for (const auto& node : nodes.nodes)
            browser->createPropertyItem(*node, true);
        step[1] = msSince(timer);
        timer.restart();
        browser->setPropertyOrder(order);
        step[2] = msSince(timer);
        timer.restart();
        browser->refreshItemVisiblity();
        step[3] = msSince(timer);
        timer.restart();
        fixture.settle();
        step[4] = msSince(timer);
        step[5] = msSince(total);
        // A fill that went wrong would time something else; say so rather than print figures.
        if (browser->getPropertyPaths() != order)
            qFatal("the fill of %d rows did not end in the requested order", count);

        // The dock's tree goes with the rows of its last fill still shown.
        timer.restart();
        fixture.destroy();
        step[6] = msSince(timer);
        for (int s = 0; s < kFillStepCount; ++s)
            samples[s].push_back(step[s]);
    }
    std::vector<double> result;
    for (const std::vector<double>& stepSamples : samples)
        result.push_back(median(stepSamples));
    return result;
}

// ---- 2. Burst -------------------------------------------------------------------------------

struct BurstFigures
{
    double updateCallsMs = 0.0;
    double eventLoopMs = 0.0;
    double totalMs = 0.0;
    int passes = 0;
    int maxPaintsInPass = 0;
    int paints = 0;
    bool allRepaintsRan = false;
};

/// updatePropertyItem() for every row after the host changed every value, then the event loop
/// pass by pass until every deferred repaint has run and the view has painted.
BurstFigures burstOnce(const Nodes& nodes)
{
    Fixture fixture;
    fixture.fill(nodes);
    fixture.settle();
    for (int i = 0; i < int(nodes.nodes.size()); ++i)
        changeValue(*nodes.nodes[i], i);

    BurstFigures figures;
    const int paintsBefore = fixture.paints.count;
    QElapsedTimer total;
    QElapsedTimer timer;
    total.start();
    timer.start();
    for (const auto& node : nodes.nodes)
        fixture.browser->updatePropertyItem(*node);
    figures.updateCallsMs = msSince(timer);
    // Each deferred repaint tells the model once that its row changed; whatever the calls
    // themselves changed is counted before.
    const long deferredDone = fixture.dataChanges + long(nodes.nodes.size());
    timer.restart();
    int quiet = 0;
    while (figures.passes < kMaxPasses) {
        const int paintsBeforePass = fixture.paints.count;
        const long changesBeforePass = fixture.dataChanges;
        QCoreApplication::processEvents();
        ++figures.passes;
        const int paintsInPass = fixture.paints.count - paintsBeforePass;
        figures.maxPaintsInPass = std::max(figures.maxPaintsInPass, paintsInPass);
        figures.allRepaintsRan = fixture.dataChanges >= deferredDone;
        // Done once every repaint ran and a pass brought neither paints nor changes.
        const bool quietPass = paintsInPass == 0 && fixture.dataChanges == changesBeforePass;
        quiet = quietPass ? quiet + 1 : 0;
        if (figures.allRepaintsRan && quiet > 0)
            break;
    }
    figures.eventLoopMs = msSince(timer);
    figures.totalMs = msSince(total);
    figures.paints = fixture.paints.count - paintsBefore;
    return figures;
}

// ---- 3. Paint -------------------------------------------------------------------------------

struct PaintFigures
{
    double repaintMs = 0.0;
    double grabMs = 0.0;
    int rowsShown = 0;
    int rowHeight = 0;
};

/// The number of rows whose rectangle meets the viewport.
int rowsShown(QTreeView* view)
{
    const QRect area = view->viewport()->rect();
    int rows = 0;
    for (QModelIndex index = view->indexAt(QPoint(1, 1)); index.isValid();
         index = view->indexBelow(index)) {
        if (!view->visualRect(index).intersects(area))
            break;
        ++rows;
    }
    return rows;
}

/// One synchronous repaint and one grab() of a viewport exactly kPaintRows rows high, median
/// of the runs; the first paint of each run, which fills the caches, is not counted.
PaintFigures paintTimes(Mix mix)
{
    const Nodes nodes = makeNodes(1000, mix);
    std::vector<double> repaints;
    std::vector<double> grabs;
    PaintFigures figures;
    for (int run = 0; run < kRuns; ++run) {
        Fixture fixture;
        fixture.fill(nodes);
        fixture.settle();
        QWidget* viewport = fixture.view->viewport();
        const int rowHeight
            = fixture.view->visualRect(fixture.view->indexAt(QPoint(1, 1))).height();
        fixture.browser->resize(
            600, fixture.browser->height() + kPaintRows * rowHeight - viewport->height());
        fixture.settle();
        figures.rowHeight = rowHeight;
        figures.rowsShown = rowsShown(fixture.view);

        // A single paint takes a few milliseconds, short enough for another process to spoil
        // it: each run gives the median of several.
        viewport->repaint();
        std::vector<double> runRepaints;
        for (int sample = 0; sample < kPaintSamples; ++sample) {
            const int paintsBefore = fixture.paints.count;
            QElapsedTimer timer;
            timer.start();
            viewport->repaint();
            runRepaints.push_back(msSince(timer));
            if (fixture.paints.count != paintsBefore + 1)
                qFatal("repaint() did not paint the viewport once");
        }
        repaints.push_back(median(runRepaints));

        viewport->grab();
        std::vector<double> runGrabs;
        for (int sample = 0; sample < kPaintSamples; ++sample) {
            QElapsedTimer timer;
            timer.start();
            const QPixmap picture = viewport->grab();
            runGrabs.push_back(msSince(timer));
            if (picture.isNull())
                qFatal("grab() gave no picture");
        }
        grabs.push_back(median(runGrabs));
    }
    figures.repaintMs = median(repaints);
    figures.grabMs = median(grabs);
    return figures;
}

// ---- 4. Memory ------------------------------------------------------------------------------

struct MemoryFigures
{
    double bytesPerRow = 0.0;
    double allocationsPerRow = 0.0;
    double refillBytesPerRow = 0.0;
};

/// Heap bytes and blocks that a fill of @p count rows into an empty tree leaves allocated, and
/// the bytes by which a second fill of the same nodes grows the heap, median of the runs. The
/// nodes are the host's and made before.
MemoryFigures memoryPerRow(int count)
{
    const Nodes nodes = makeNodes(count, Mix::AllTypes);
    std::vector<double> bytes;
    std::vector<double> blocks;
    std::vector<double> refillBytes;
    for (int run = 0; run < kRuns; ++run) {
        Fixture fixture;
        const size_t before = heapInUse();
        const long allocationsBefore = allocationCount();
        fixture.fill(nodes);
        fixture.settle();
        const size_t afterFill = heapInUse();
        bytes.push_back((double(afterFill) - double(before)) / count);
        blocks.push_back(double(allocationCount() - allocationsBefore) / count);
        fixture.fill(nodes);
        fixture.settle();
        refillBytes.push_back((double(heapInUse()) - double(afterFill)) / count);
    }
    return {median(bytes), allocationCount() < 0 ? -1.0 : median(blocks), median(refillBytes)};
}

QString cell(double value, int width = 12, int precision = 2)
{
    return QStringLiteral("%1").arg(value, width, 'f', precision);
}

QString label(const QString& text)
{
    return QStringLiteral("%1").arg(text, -36);
}

QString verdict(bool met)
{
    return met ? QStringLiteral("met") : QStringLiteral("MISSED");
}

void reportFill(QTextStream& out, const std::vector<int>& sizes, bool defaultSizes)
{
    std::vector<std::vector<double>> fills;
    for (int n : sizes)
        fills.push_back(fillTimes(n));
    out << "1. Fill of N rows (int, double, bool, string, int64, enum; bars on the numeric ones)\n";
    out << label(QStringLiteral("step [ms]"));
    for (int n : sizes)
        out << QStringLiteral("%1").arg(QStringLiteral("N = %1").arg(n), 12);
    if (defaultSizes)
        out << QStringLiteral("%1%2").arg("10k / 1k", 12).arg("50k / 10k", 12);
    out << '\n';
    for (int s = 0; s < kFillStepCount; ++s) {
        out << label(QLatin1String(kFillSteps[s]));
        for (const std::vector<double>& fill : fills)
            out << cell(fill[s]);
        // Linear growth gives 10 and 5; quadratic growth 100 and 25.
        if (defaultSizes)
            out << cell(fills[1][s] / std::max(fills[0][s], 1e-6), 12, 1)
                << cell(fills[2][s] / std::max(fills[1][s], 1e-6), 12, 1);
        out << '\n';
    }
    if (defaultSizes)
        out << "   target: whole fill of 10000 rows under 300 ms: "
            << verdict(fills[1][kFillTotal] < 300.0) << '\n';
    out << '\n';
}

void reportBurst(QTextStream& out)
{
    std::vector<BurstFigures> bursts;
    const Nodes nodes = makeNodes(kBurstRows, Mix::AllTypes);
    for (int run = 0; run < kRuns; ++run)
        bursts.push_back(burstOnce(nodes));
    auto burstMedian = [&bursts](double BurstFigures::*field) {
        std::vector<double> values;
        for (const BurstFigures& burst : bursts)
            values.push_back(burst.*field);
        return median(values);
    };
    int maxPaintsInPass = 0;
    int minPaints = bursts.front().paints;
    int maxPaints = bursts.front().paints;
    int maxPasses = 0;
    bool allRepaintsRan = true;
    for (const BurstFigures& burst : bursts) {
        maxPaintsInPass = std::max(maxPaintsInPass, burst.maxPaintsInPass);
        minPaints = std::min(minPaints, burst.paints);
        maxPaints = std::max(maxPaints, burst.paints);
        maxPasses = std::max(maxPasses, burst.passes);
        allRepaintsRan = allRepaintsRan && burst.allRepaintsRan;
    }
    const double total = burstMedian(&BurstFigures::totalMs);
    out << "2. Burst: updatePropertyItem() on " << kBurstRows
        << " rows, then the event loop until every deferred repaint ran\n";
    out << label(QStringLiteral("updatePropertyItem() calls [ms]"))
        << cell(burstMedian(&BurstFigures::updateCallsMs)) << '\n';
    out << label(QStringLiteral("event loop [ms]")) << cell(burstMedian(&BurstFigures::eventLoopMs))
        << '\n';
    out << label(QStringLiteral("total [ms]")) << cell(total) << '\n';
    out << label(QStringLiteral("event-loop passes (most of the runs)"))
        << QStringLiteral("%1").arg(maxPasses, 12) << '\n';
    out << label(QStringLiteral("viewport paints (fewest..most)"))
        << QStringLiteral("%1").arg(QStringLiteral("%1..%2").arg(minPaints).arg(maxPaints), 12)
        << '\n';
    out << label(QStringLiteral("most paints in one pass"))
        << QStringLiteral("%1").arg(maxPaintsInPass, 12) << '\n';
    out << label(QStringLiteral("every deferred repaint ran"))
        << QStringLiteral("%1").arg(allRepaintsRan ? "yes" : "NO", 12) << '\n';
    out << "   target: under 100 ms per " << kBurstRows << " updates: " << verdict(total < 100.0)
        << "; at most one paint per pass: " << verdict(maxPaintsInPass <= 1) << "\n\n";
}

void reportPaint(QTextStream& out)
{
    const PaintFigures numeric = paintTimes(Mix::NumericOnly);
    const PaintFigures mixed = paintTimes(Mix::AllTypes);
    out << "3. One full repaint of the viewport, " << kPaintRows << " rows high (row height "
        << numeric.rowHeight << " px)\n";
    out << label(QStringLiteral("rows"))
        << QStringLiteral("%1%2%3\n").arg("shown", 12).arg("repaint() ms", 14).arg("grab() ms", 12);
    out << label(QStringLiteral("all with bars and buttons"))
        << QStringLiteral("%1").arg(numeric.rowsShown, 12) << cell(numeric.repaintMs, 14, 3)
        << cell(numeric.grabMs, 12, 3) << '\n';
    out << label(QStringLiteral("all types, half with bars"))
        << QStringLiteral("%1").arg(mixed.rowsShown, 12) << cell(mixed.repaintMs, 14, 3)
        << cell(mixed.grabMs, 12, 3) << '\n';
    out << "   target: one repaint of 40 rows with bars and buttons under 4 ms: "
        << verdict(numeric.repaintMs < 4.0) << "\n\n";
}

void reportMemory(QTextStream& out, const std::vector<int>& sizes)
{
    std::vector<MemoryFigures> memory;
    for (int n : sizes)
        memory.push_back(memoryPerRow(n));
    out << "4. Heap per row: kept by a fill into an empty tree, and added by filling it again\n";
    out << label(QString());
    for (int n : sizes)
        out << QStringLiteral("%1").arg(QStringLiteral("N = %1").arg(n), 12);
    out << '\n' << label(QStringLiteral("bytes per row"));
    for (const MemoryFigures& figures : memory)
        out << cell(figures.bytesPerRow, 12, 0);
    out << '\n' << label(QStringLiteral("heap blocks allocated per row"));
    for (const MemoryFigures& figures : memory)
        out << cell(figures.allocationsPerRow, 12, 1);
    out << '\n' << label(QStringLiteral("growth per row of a second fill"));
    for (const MemoryFigures& figures : memory)
        out << cell(figures.refillBytesPerRow, 12, 0);
    out << "\n\n";
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    // The host knows the tree's settings group, so the name column is interactive as in the
    // dock; and it describes module states for the integer tool tips.
    Settings::WAppSettings::instance()
        ->addSetting(QStringLiteral("PROPERTY_EDITOR"))
        ->setValueOf(QStringLiteral("SplitterPos"), 250);
    PropertyBrowser::WidgetProperty::m_ErrorDescription = [](int state) {
        return "State " + std::to_string(state);
    };

    QStringList parts;
    std::vector<int> sizes;
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    for (int a = 0; a < arguments.size(); ++a) {
        if (arguments[a] == QLatin1String("-n")) {
            while (a + 1 < arguments.size() && arguments[a + 1].toInt() > 0)
                sizes.push_back(arguments[++a].toInt());
        } else {
            parts.append(arguments[a]);
        }
    }
    if (parts.isEmpty())
        parts = QStringList {"fill", "burst", "paint", "memory"};
    const bool defaultSizes = sizes.empty();
    if (defaultSizes)
        sizes = {1000, 10000, 50000};

    QTextStream out(stdout);
    out << "Property tree, shown 600x800, median of " << kRuns << " runs\n\n";
    out.flush();
    if (parts.contains(QLatin1String("fill")))
        reportFill(out, sizes, defaultSizes);
    out.flush();
    if (parts.contains(QLatin1String("burst")))
        reportBurst(out);
    out.flush();
    if (parts.contains(QLatin1String("paint")))
        reportPaint(out);
    out.flush();
    if (parts.contains(QLatin1String("memory")))
        reportMemory(out, sizes);
    return 0;
}
