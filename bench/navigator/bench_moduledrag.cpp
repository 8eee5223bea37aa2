// Times a tool-box drag over the job tree that crosses every module, one drag move per row, as
// the plug-in handles it: the position found, the host asked, the preview row moved. The host
// answers at once, so its own work is left out. Also counts the preview rows made per gesture.
//
// Run it on the offscreen platform: QT_QPA_PLATFORM=offscreen bench_moduledrag
#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "sdk/ditem.h"

#include "dockenvironment.h"
#include "measures.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QElapsedTimer>
#include <QMimeData>
#include <QSet>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

using Script::DItem;

namespace {

const int kRuns = 5;

struct Result
{
    double perMove = 0;
    double enter = 0;
    double leave = 0;
    int phantoms = 0;
    int moves = 0;
};

QTreeWidgetItem* phantomOf(QTreeWidgetItem* root)
{
    for (int i = 0; i < root->childCount(); ++i) {
        if (root->child(i)->data(0, WidgetTreeView::PhantomRole).isValid())
            return root->child(i);
    }
    return nullptr;
}

Result runOnce(int modules)
{
    auto root = std::make_unique<DItem>(QStringLiteral("Job"), QStringLiteral("Job"));
    WidgetTree dock(nullptr, {});
    dock.resize(400, 800);
    dock.show();
    // The host allows every position, at once.
    QObject::connect(
        &dock, &WidgetTree::treeReq, &dock,
        [](WRequest<QVariant> request, QVariant& reply) {
            if (request.id == 35)
                reply = true;
        },
        Qt::DirectConnection);
    auto* tree = dock.findChild<WidgetTreeView*>();
    auto* rootItem = new QTreeWidgetItem(tree);
    rootItem->setData(0, WidgetTreeView::NodeAddressRole,
                      QVariant::fromValue(reinterpret_cast<qint64>(root.get())));
    for (int m = 0; m < modules; ++m) {
        auto* module = new DItem(QStringLiteral("Job.Module%1").arg(m), QStringLiteral("Module"));
        module->setIconPath(QStringLiteral(":/images/Setting-3.svg"));
        root->vAddChildNode(module);
        auto* item = new QTreeWidgetItem(rootItem);
        item->setData(0, WidgetTreeView::NodeAddressRole,
                      QVariant::fromValue(reinterpret_cast<qint64>(module)));
        item->setText(0, module->unTranslatedName());
        for (int n = 0; n < 3; ++n)
            new QTreeWidgetItem(item, QStringList(QStringLiteral("Value%1").arg(n)));
    }
    tree->addTopLevelItem(dock.poAddModuleItem());
    rootItem->setExpanded(true);
    QCoreApplication::processEvents();

    QMimeData data;
    data.setData(WidgetTreeView::kAddFormat, "blobfinder@BlobFinder");
    QWidget* viewport = tree->viewport();
    Result result;
    QElapsedTimer timer;
    timer.start();
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &enter);
    result.enter = timer.nsecsElapsed() / 1e6;

    QSet<QTreeWidgetItem*> phantoms;
    qint64 moving = 0;
    for (int m = 0; m < modules; ++m) {
        // Where the pointer would be over the module; finding it is the harness's work.
        QTreeWidgetItem* target = rootItem->child(m);
        if (target == phantomOf(rootItem))
            target = rootItem->child(m + 1);
        tree->scrollToItem(target);
        const QPoint pos = tree->visualItemRect(target).center();
        QDragMoveEvent move(pos, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        timer.restart();
        QApplication::sendEvent(viewport, &move);
        moving += timer.nsecsElapsed();
        ++result.moves;
        if (QTreeWidgetItem* phantom = phantomOf(rootItem))
            phantoms.insert(phantom);
    }
    result.perMove = moving / 1e6 / result.moves;
    result.phantoms = phantoms.size();
    timer.restart();
    QDragLeaveEvent leave;
    QApplication::sendEvent(viewport, &leave);
    result.leave = timer.nsecsElapsed() / 1e6;
    tree->takeTopLevelItem(tree->indexOfTopLevelItem(dock.poAddModuleItem()));
    return result;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    prepareDockEnvironment(folder);

    std::printf("%-8s %14s %12s %12s %10s\n", "modules", "ms per move", "enter ms", "leave ms",
                "phantoms");
    std::vector<int> sizes {100, 1000, 10000};
    // A smaller set for a quick look: bench_moduledrag 100 1000
    if (argc > 1) {
        sizes.clear();
        for (int i = 1; i < argc; ++i)
            sizes.push_back(std::atoi(argv[i]));
    }
    for (const int modules : sizes) {
        std::vector<double> perMove, enter, leave;
        int phantoms = 0;
        for (int run = 0; run < kRuns; ++run) {
            const Result result = runOnce(modules);
            perMove.push_back(result.perMove);
            enter.push_back(result.enter);
            leave.push_back(result.leave);
            phantoms = qMax(phantoms, result.phantoms);
        }
        std::printf("%-8d %14.4f %12.2f %12.2f %10d\n", modules, median(perMove), median(enter),
                    median(leave), phantoms);
        std::fflush(stdout);
    }
    return 0;
}
