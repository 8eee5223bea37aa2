#ifndef WORKBENCHPROBE_H
#define WORKBENCHPROBE_H

#include "jobmodel.h"
#include "requestlog.h"
#include "workbenchwindow.h"

#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "sdk/ditem.h"

#include <QStringList>
#include <QVariant>

/// What the workbench's tests read of its window: the job tree, the job's modules, the preview
/// row of a gesture and the requests the host received.
namespace WorkbenchProbe {

/// The job tree of the dock in @p window.
inline WidgetTreeView& jobTree(const WorkbenchWindow& window)
{
    return *window.poNavigator()->findChild<WidgetTreeView*>();
}

/// The names of the job's modules, in their order.
inline QStringList moduleNames(const JobModel& model)
{
    QStringList names;
    for (const Script::DItem* module : model.poRoot()->childNodes())
        names << module->unTranslatedName();
    return names;
}

/// The row that previews a module's place in @p tree, or null.
inline QTreeWidgetItem* previewRow(const WidgetTreeView& tree)
{
    QTreeWidgetItem* root = tree.topLevelItem(0);
    for (int i = 0; root && i < root->childCount(); ++i) {
        if (root->child(i)->data(0, WidgetTreeView::PhantomRole) == QVariant("Phantom"))
            return root->child(i);
    }
    return nullptr;
}

/// How many requests with @p id the host received.
inline int requestCount(const RequestLog& log, int id)
{
    int found = 0;
    for (int row = 0; row < log.count(); ++row)
        found += log.requestId(row) == id ? 1 : 0;
    return found;
}

} // namespace WorkbenchProbe

#endif
