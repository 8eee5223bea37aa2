// Times the job tree of the dock on a large job: the host's fill, refreshItemVisiblity() and
// poFindItem() of the last node, each beside a plain QTreeWidget loop that sets the same roles
// on the same items, so that the cost of the plug-in's own work can be judged.
//
// Run it on the offscreen platform: QT_QPA_PLATFORM=offscreen bench_jobtree
#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "sdk/ditem.h"
#include "sdk/widgetdescriptor.h"

#include "dockenvironment.h"
#include "measures.h"

#include <QApplication>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

using Script::DItem;

namespace {

const int kRuns = 5;

struct Job
{
    std::unique_ptr<DItem> root;
    QString lastPath;
};

// A job of @p modules modules of @p nodesPerModule nodes, with the mix of kinds and states a
// real job has: inputs and outputs, hidden and unavailable nodes, a few out of range.
Job makeJob(int modules, int nodesPerModule)
{
    static const QString types[]
        = {"IDataBasicInt", "IDataBasicDouble", "IDataBasicBool", "IDataBasicString"};
    Job job;
    job.root = std::make_unique<DItem>(QStringLiteral("Job"), QStringLiteral("Job"));
    job.root->setProperty("IData.IsGuiVisible", true);
    int count = 0;
    for (int m = 0; m < modules; ++m) {
        const QString modulePath = QStringLiteral("Job.Module%1").arg(m);
        auto* module = new DItem(modulePath, QStringLiteral("Module"));
        module->setIconPath(QStringLiteral(":/images/Setting-3.svg"));
        module->setProperty("IData.IsGuiVisible", true);
        for (int n = 0; n < nodesPerModule; ++n, ++count) {
            const QString path = modulePath + QStringLiteral(".Node%1").arg(n);
            auto* node = new DItem(path, types[count % 4], DItem::IoType(count % 3));
            node->setProperty("IData.IsGuiVisible", count % 10 != 0);
            if (count % 50 == 0)
                node->setProperty("GUI.Unavailable", true);
            node->setOutOfRangeCounter(count % 97 == 0 ? 1 : 0);
            module->vAddChildNode(node);
            job.lastPath = path;
        }
        job.root->vAddChildNode(module);
    }
    return job;
}

void addItems(DItem* node, QTreeWidgetItem* parent, QTreeWidget* tree)
{
    auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(tree);
    item->setData(0, WidgetTreeView::NodeAddressRole,
                  QVariant::fromValue(reinterpret_cast<qint64>(node)));
    for (DItem* child : node->childNodes())
        addItems(child, item, tree);
}

DItem* nodeOf(const QTreeWidgetItem* item)
{
    return reinterpret_cast<DItem*>(item->data(0, WidgetTreeView::NodeAddressRole).toLongLong());
}

// What a host without the plug-in would do to show the same state: the same roles, the same
// values, set directly.
void plainRefresh(QTreeWidget& tree)
{
    for (QTreeWidgetItemIterator it(&tree); *it; ++it) {
        QTreeWidgetItem* item = *it;
        const DItem* node = nodeOf(item);
        QBrush brush(Qt::black);
        QString toolTip;
        if (node->ioType() == DItem::IoInput) {
            brush = QBrush(Qt::lightGray);
            toolTip = QStringLiteral("Input");
        } else if (node->ioType() == DItem::IoOutput) {
            brush = QBrush(Qt::darkGray);
            toolTip = QStringLiteral("Output");
        }
        item->setData(0, Qt::ForegroundRole, node->outOfRangeCounter() ? QBrush(Qt::red) : brush);
        item->setData(
            0, Qt::DisplayRole,
            QCoreApplication::translate("IData", node->unTranslatedName().toUtf8().constData()));
        item->setData(0, Qt::DecorationRole, QIcon(node->iconPath()));
        item->setData(0, Qt::ToolTipRole, toolTip);
        const bool visible = node->property("IData.IsGuiVisible").toBool();
        const bool unavailable = node->property("GUI.Unavailable").toBool();
        QFont font = item->font(0);
        font.setStyle(QFont::StyleNormal);
        if (!unavailable && visible)
            item->setFont(0, font);
        item->setHidden(unavailable || !visible);
    }
}

QTreeWidgetItem* plainFind(QTreeWidget& tree, const QString& path)
{
    for (QTreeWidgetItemIterator it(&tree); *it; ++it) {
        if (nodeOf(*it)->iDataPath() == path)
            return *it;
    }
    return nullptr;
}

double milliseconds(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    QCoreApplication::processEvents();
    return timer.nsecsElapsed() / 1e6;
}

struct Figures
{
    std::vector<double> fill, refresh, find, plainFill, plainRefresh, plainFind;
};

void runOnce(const Job& job, Figures& figures)
{
    WidgetModules::WidgetInterface* instance = WidgetTree::classDescriptor()->createFunction()();
    auto* dock = dynamic_cast<WidgetTree*>(instance);
    dock->resize(400, 800);
    dock->show();
    auto* tree = dock->findChild<WidgetTreeView*>();
    figures.fill.push_back(milliseconds([&] { addItems(job.root.get(), nullptr, tree); }));
    figures.refresh.push_back(milliseconds([&] { tree->refreshItemVisiblity(); }));
    QTreeWidgetItem* found = nullptr;
    figures.find.push_back(milliseconds([&] { found = dock->poFindItem(job.lastPath); }));
    if (!found || nodeOf(found)->iDataPath() != job.lastPath)
        std::fprintf(stderr, "poFindItem missed the last node\n");
    WidgetTree::classDescriptor()->destroyFunction()(instance);

    QTreeWidget plain;
    plain.resize(400, 800);
    plain.show();
    figures.plainFill.push_back(milliseconds([&] { addItems(job.root.get(), nullptr, &plain); }));
    figures.plainRefresh.push_back(milliseconds([&] { plainRefresh(plain); }));
    figures.plainFind.push_back(milliseconds([&] { plainFind(plain, job.lastPath); }));
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    prepareDockEnvironment(folder);

    std::printf("%-10s %-24s %12s %12s %8s\n", "nodes", "operation", "dock ms", "plain ms",
                "ratio");
    for (const int modules : {100, 1000}) {
        const Job job = makeJob(modules, 100);
        Figures figures;
        for (int run = 0; run < kRuns; ++run)
            runOnce(job, figures);
        const int nodes = modules * 100;
        auto row = [&](const char* name, const std::vector<double>& dock,
                       const std::vector<double>& plain) {
            std::printf("%-10d %-24s %12.2f %12.2f %8.2f\n", nodes, name, median(dock),
                        median(plain), median(dock) / median(plain));
        };
        row("fill by the host", figures.fill, figures.plainFill);
        row("refreshItemVisiblity", figures.refresh, figures.plainRefresh);
        row("poFindItem(last)", figures.find, figures.plainFind);
    }
    return 0;
}
