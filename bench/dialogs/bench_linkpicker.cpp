// Times the link picker's generateTree() on jobs of growing size: N linkable nodes in N / 10
// modules, and the same N nodes again as the nodes whose icons are shown, as the host hands
// them. Reports the median of five runs and the growth from one size to the next, which for an
// n log n build is a little above the growth of n.
//
// Run it on the offscreen platform: QT_QPA_PLATFORM=offscreen bench_linkpicker
#include "dialogs/widgetsetdynamicgeneric.h"
#include "sdk/ditem.h"
#include "ui_widgetsetdynamicgeneric.h"

#include "measures.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTreeWidget>

#include <cstdio>
#include <memory>
#include <vector>

using PropertyBrowser::Editors::WidgetSetDynamicGeneric;
using Script::DItem;

namespace {

const int kRuns = 5;

std::vector<std::unique_ptr<DItem>> makeNodes(int count)
{
    static const QString icons[]
        = {QStringLiteral(":/images/cs_origin.svg"), QStringLiteral(":/images/file_open.svg"),
           QStringLiteral(":/images/Setting-3.svg")};
    std::vector<std::unique_ptr<DItem>> nodes;
    nodes.reserve(count);
    for (int i = 0; i < count; ++i) {
        const QString path = QStringLiteral("Job.Module%1.Output%2").arg(i / 10).arg(i % 10);
        nodes.push_back(std::make_unique<DItem>(path, QStringLiteral("IDataBasicInt")));
        nodes.back()->setIconPath(icons[i % 3]);
    }
    return nodes;
}

double medianMs(int count)
{
    const std::vector<std::unique_ptr<DItem>> nodes = makeNodes(count);
    QList<DItem*> list;
    for (const auto& node : nodes)
        list.append(node.get());
    const QString linked = nodes.back()->iDataPath();
    std::vector<double> times;
    for (int run = 0; run < kRuns; ++run) {
        WidgetSetDynamicGeneric picker;
        QElapsedTimer timer;
        timer.start();
        picker.generateTree({list, list}, linked);
        times.push_back(timer.nsecsElapsed() / 1e6);
        if (picker.ui->m_poTreeWidget->selectedItems().size() != 1)
            std::fprintf(stderr, "the linked node was not selected\n");
    }
    return median(times);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    std::printf("generateTree(): N linkable nodes in N/10 modules, N icon nodes, median of %d\n",
                kRuns);
    std::printf("%8s %12s %12s\n", "N", "ms", "growth");
    double previous = 0.0;
    for (int count : {1000, 10000, 50000}) {
        const double ms = medianMs(count);
        if (previous > 0.0)
            std::printf("%8d %12.2f %11.2fx\n", count, ms, ms / previous);
        else
            std::printf("%8d %12.2f %12s\n", count, ms, "");
        previous = ms;
    }
    return 0;
}
