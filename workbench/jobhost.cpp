#include "jobhost.h"

#include "jobmodel.h"
#include "requestlog.h"

#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "sdk/ditem.h"
#include "sdk/filedialog.h"
#include "sdk/filedialogprovider.h"
#include "sdk/visibilityinfo.h"
#include "sdk/wmessagebox.h"

#include <QCursor>
#include <QQuickWidget>
#include <QScrollArea>
#include <QSet>
#include <QTimer>
#include <QToolTip>
#include <QTreeWidgetItemIterator>

using Script::DItem;

namespace {

// Parameter keys of the requests.
const int kKeyValue = 953;
const int kKeyPath = 956;
const int kKeySource = 625;
const int kKeyInsertion = 626;

QVariant paramValue(const WRequest<QVariant>& request, int key)
{
    for (const WParam<QVariant>& param : request) {
        if (param.second == key)
            return param.first;
    }
    return QVariant();
}

QString nodePath(const QTreeWidgetItem* item, const WidgetTreeView& tree)
{
    const DItem* node = item ? tree.getDItem(*item) : nullptr;
    return node ? node->iDataPath() : QString();
}

// The host's words for the states of a module; the plug-in translates them in the "IData" context.
std::string sStateDescription(int state)
{
    switch (state) {
    case 0:
        return "OK";
    case 1:
        return "Not Executed";
    case 2:
        return "Error";
    default:
        return "Unknown State";
    }
}

QTreeWidgetItem* addNodeItem(DItem* node, QTreeWidgetItem* parent, QTreeWidget* tree)
{
    auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(tree);
    item->setData(0, WidgetTreeView::NodeAddressRole,
                  QVariant::fromValue(reinterpret_cast<qint64>(node)));
    for (DItem* child : node->childNodes())
        addNodeItem(child, item, tree);
    return item;
}

} // namespace

JobHost::JobHost(JobModel& model, RequestLog& log, QObject* parent)
    : QObject(parent)
    , m_oModel(model)
    , m_oLog(log)
{
    connect(&m_oModel, &JobModel::nodesChanged, this, &JobHost::vRefreshNodes);
    connect(&m_oModel, &JobModel::visibilityChanged, this, &JobHost::vRefreshVisibility);
    connect(&m_oModel, &JobModel::structureChanged, this, &JobHost::vOnStructureChanged);
    connect(&m_oModel, &JobModel::aboutToDelete, this, &JobHost::vRememberTree);
}

void JobHost::vAttach(WidgetTree* dock)
{
    PropertyBrowser::WidgetProperty::m_ErrorDescription = &sStateDescription;
    m_poDock = dock;
    // The sender reads the reply as soon as the emission returns, so the call must be direct.
    connect(dock, &WidgetTree::treeReq, this, &JobHost::vOnTreeReq, Qt::DirectConnection);
    connect(ItemVisibility::VisibilityInfo::instance(),
            &ItemVisibility::VisibilityInfo::visibilityModeChanged, this,
            &JobHost::vOnViewModeChanged, Qt::UniqueConnection);
    vFillTree();
}

WidgetTreeView* JobHost::poTree() const
{
    return m_poDock ? m_poDock->findChild<WidgetTreeView*>() : nullptr;
}

PropertyBrowser::WTreePropertyBrowser* JobHost::poBrowser() const
{
    // The browser makes itself known; it is the dock's own while the dock lives.
    PropertyBrowser::WTreePropertyBrowser* browser = PropertyBrowser::WTreePropertyBrowser::me;
    return m_poDock && browser && m_poDock->isAncestorOf(browser) ? browser : nullptr;
}

void JobHost::vShowSelection()
{
    PropertyBrowser::WTreePropertyBrowser* browser = poBrowser();
    WidgetTreeView* tree = poTree();
    if (!browser || !tree)
        return;
    browser->clear();
    const QList<QTreeWidgetItem*> selected = m_poDock->selectedTreeItems();
    const DItem* node = selected.isEmpty() ? nullptr : tree->getDItem(*selected.first());
    if (!node)
        return;
    // A module shows its values; a single value shows itself.
    QList<const DItem*> values;
    for (const DItem* child : node->childNodes())
        values.append(child);
    if (values.isEmpty())
        values.append(node);
    QStringList order;
    for (const DItem* value : qAsConst(values)) {
        // A new row carries the job's own name; the update translates it and sets its tool tip.
        if (browser->createPropertyItem(*value, true)) {
            browser->updatePropertyItem(*value);
            order.append(value->iDataPath());
        }
    }
    browser->setPropertyOrder(order);
    browser->refreshItemVisiblity();
}

void JobHost::vOnStructureChanged()
{
    // The rows may hold nodes that are gone; they must not be painted again. The selection
    // fills the tree anew once the tree is rebuilt.
    if (PropertyBrowser::WTreePropertyBrowser* browser = poBrowser())
        browser->clear();
    vScheduleFill();
}

void JobHost::vScheduleFill()
{
    // Structure changes arrive while the plug-in is still inside the request that caused
    // them; its items must live until that returns, so the tree is rebuilt afterwards.
    if (m_bFillPending)
        return;
    m_bFillPending = true;
    QTimer::singleShot(0, this, [this] {
        // A direct fill in between has done the work already.
        if (m_bFillPending)
            vFillTree();
    });
}

void JobHost::vRememberTree()
{
    WidgetTreeView* tree = poTree();
    if (!tree || m_oRemembered)
        return;
    TreeState state;
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        if ((*it)->isExpanded())
            state.expanded.insert(nodePath(*it, *tree));
    }
    state.current = nodePath(tree->currentItem(), *tree);
    state.firstFill = tree->topLevelItemCount() == 0;
    m_oRemembered = state;
}

void JobHost::vFillTree()
{
    m_bFillPending = false;
    WidgetTreeView* tree = poTree();
    if (!tree)
        return;
    // After a deletion the rows point to freed nodes: their state was read before.
    vRememberTree();
    TreeState state = *m_oRemembered;
    m_oRemembered.reset();
    if (!m_sCurrentAfterFill.isEmpty())
        state.current = m_sCurrentAfterFill;
    m_sCurrentAfterFill.clear();

    vClearTree();
    if (DItem* root = m_oModel.poRoot()) {
        addNodeItem(root, nullptr, tree);
        tree->addTopLevelItem(m_poDock->poAddModuleItem());
        tree->refreshItemVisiblity();
    }
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        const QString path = nodePath(*it, *tree);
        if (state.expanded.contains(path) || (state.firstFill && *it == tree->topLevelItem(0)))
            (*it)->setExpanded(true);
        if (!state.current.isEmpty() && path == state.current)
            tree->setCurrentItem(*it);
    }
}

void JobHost::vDropJob()
{
    // What was remembered of the old job's tree means nothing for the next one.
    m_oRemembered.reset();
    if (PropertyBrowser::WTreePropertyBrowser* browser = poBrowser())
        browser->clear();
    vClearTree();
}

void JobHost::vClearTree()
{
    WidgetTreeView* tree = poTree();
    if (!tree)
        return;
    // The "Add Module" row belongs to the dock; it must leave the tree before the tree deletes
    // its items.
    const int addModuleIndex = tree->indexOfTopLevelItem(m_poDock->poAddModuleItem());
    if (addModuleIndex >= 0)
        tree->takeTopLevelItem(addModuleIndex);
    const QSignalBlocker blocker(tree);
    tree->clear();
}

void JobHost::vRefreshNodes(const QList<DItem*>& nodes)
{
    // The job tree shows no value, so only the property tree has rows to bring up to date.
    PropertyBrowser::WTreePropertyBrowser* browser = poBrowser();
    if (!browser)
        return;
    for (const DItem* node : nodes)
        browser->updatePropertyItem(*node);
}

void JobHost::vRefreshVisibility()
{
    if (WidgetTreeView* tree = poTree())
        tree->refreshItemVisiblity();
    if (PropertyBrowser::WTreePropertyBrowser* browser = poBrowser())
        browser->refreshItemVisiblity();
}

void JobHost::vOnViewModeChanged(int mode)
{
    vRefreshVisibility();
    if (m_poDock)
        m_poDock->onViewModeChanged(mode == ItemVisibility::VisibilityInfo::NormalView);
}

void JobHost::vOnTreeReq(WRequest<QVariant> request, QVariant& reply)
{
    const QVariant given = reply;
    const QString outcome = sHandle(request, reply);
    m_oLog.vAppend(request, given, outcome);
    emit statusMessage(outcome);
}

QString JobHost::sHandle(const WRequest<QVariant>& request, QVariant& reply)
{
    const QVariant value = paramValue(request, kKeyValue);
    const QString path = paramValue(request, kKeyPath).toString();
    switch (request.id) {
    case 9: {
        vShowSelection();
        const QList<QTreeWidgetItem*> selected = m_poDock->selectedTreeItems();
        const QString selectedPath
            = selected.isEmpty() ? QString() : nodePath(selected.first(), *poTree());
        return selectedPath.isEmpty() ? tr("Nothing selected")
                                      : tr("Selected %1").arg(selectedPath);
    }
    case 34:
        return sEdit(value.toList());
    case 36:
        return sSelectLinked(value.toString());
    case 39:
        return tr("Editing started");
    case 40:
        return tr("Editing ended");
    case -1:
        return tr("Editing continues");
    case 43:
        return m_oModel.bRefreshNode(path) ? tr("Refreshed %1").arg(path)
                                           : tr("No node at %1").arg(path);
    case 47:
        return sAssistant(value.toBool(), reply);
    case 35: {
        const QVariantList values = value.toList();
        QString why;
        const bool allowed
            = m_oModel.bCanPlace(values.value(0).toString(), values.value(1).toString(), &why);
        reply = allowed;
        return allowed ? tr("Position allowed") : tr("Position refused: %1").arg(why);
    }
    case 45:
        // The module the last insertion made becomes current once the tree is rebuilt.
        m_sCurrentAfterFill = m_sInserted;
        return tr("Inserted %1").arg(value.toString());
    case 50:
        emit toolBoxRequested();
        return tr("Tool box shown");
    case 520: {
        const QVariantList values = value.toList();
        QString error;
        m_sInserted = m_oModel.sInsertModule(values.value(0).toString(), values.value(1).toString(),
                                             &error);
        return m_sInserted.isEmpty() ? tr("Not inserted: %1").arg(error)
                                     : tr("New module %1").arg(m_sInserted);
    }
    case 531: {
        QString error;
        const QString copy
            = m_oModel.sPasteModule(paramValue(request, kKeySource).toString(),
                                    paramValue(request, kKeyInsertion).toString(), &error);
        if (copy.isEmpty())
            return tr("Not copied: %1").arg(error);
        m_sCurrentAfterFill = copy;
        return tr("Copied to %1").arg(copy);
    }
    case 532: {
        const QString moved = paramValue(request, kKeySource).toString();
        QString error;
        if (!m_oModel.bMoveModule(moved, paramValue(request, kKeyInsertion).toString(), &error))
            return tr("Not moved: %1").arg(error);
        m_sCurrentAfterFill = moved;
        return tr("Moved %1").arg(moved);
    }
    case 51:
        return sShowAssistantHelp();
    case 521: {
        const QString target = value.toList().value(0).toString();
        QString error;
        if (!m_oModel.bDelete(target, &error))
            return tr("Not deleted: %1").arg(error);
        return tr("Deleted %1").arg(target);
    }
    case 522:
        return sRename(value.toList());
    case 528: {
        const QVariantList values = value.toList();
        const bool visible = values.value(1).toBool();
        return m_oModel.bSetVisible(values.value(0).toString(), visible)
            ? (visible ? tr("Shown") : tr("Hidden"))
            : tr("No such node");
    }
    case 556: {
        const QVariantList values = value.toList();
        return m_oModel.bSetColorMarking(values.value(0).toString(), values.value(1).toBool())
            ? tr("Colour marking changed")
            : tr("No such node");
    }
    case 563:
    case 564:
    case 565:
        return sFileRequest(request.id, path);
    default:
        return tr("Not handled by the workbench");
    }
}

QString JobHost::sEdit(const QVariantList& values)
{
    if (values.size() != 4)
        return tr("Refused: an edit carries path, command, parameters and preview");
    const QString path = values.at(0).toString();
    QString error;
    if (!m_oModel.bApplyCommand(path, values.at(1).toInt(), values.at(2), &error))
        return tr("Refused: %1").arg(error);
    return tr("Applied to %1").arg(path);
}

QString JobHost::sRename(const QVariantList& values)
{
    WidgetTreeView* tree = poTree();
    // The item comes as an address; only an item that is in the tree now is believed.
    const qint64 address = values.value(0).toLongLong();
    QTreeWidgetItem* item = nullptr;
    for (QTreeWidgetItemIterator it(tree); *it && !item; ++it) {
        if (reinterpret_cast<qint64>(*it) == address)
            item = *it;
    }
    DItem* node = item ? tree->getDItem(*item) : nullptr;
    if (!node)
        return tr("Refused: no such item");
    QString error;
    if (!m_oModel.bRename(node, item->text(0), &error)) {
        tree->refreshTreeItemState(*item);
        Utils::WMessageBox::warning(tr("The name was not changed."), error, m_poDock);
        return tr("Refused: %1").arg(error);
    }
    return tr("Renamed to %1").arg(node->iDataPath());
}

QString JobHost::sSelectLinked(const QString& path)
{
    // Selecting sends a request of its own; it goes after this one has returned.
    QTimer::singleShot(0, this, [this, path] {
        if (!m_poDock)
            return;
        if (QTreeWidgetItem* item = m_poDock->poFindItem(path))
            poTree()->setCurrentItem(item);
    });
    return tr("Showing %1").arg(path);
}

QString JobHost::sFileRequest(int id, const QString& path)
{
    DItem* node = m_oModel.poNode(path);
    if (!node)
        return tr("No node at %1").arg(path);
    QString error;
    if (id == 565) {
        return m_oModel.bUnloadFile(path, &error) ? tr("Unloaded %1").arg(path)
                                                  : tr("Refused: %1").arg(error);
    }
    const auto filters = node->property("FileExtensions").value<QList<QPair<QString, QString>>>();
    const FileDialogProvider provider(FileDialogProvider::createCommonUrls(false, false, false),
                                      filters, -1);
    FileDialog dialog(provider, m_poDock);
    const QUrl url = id == 564
        ? dialog.getOpenFileUrl()
        : dialog.getSaveFileUrl(FileDialog::AcceptSave, node->property("FileName").toString());
    if (url.isEmpty() || !url.isLocalFile())
        return tr("Cancelled");
    const bool done = id == 564 ? m_oModel.bLoadFile(path, url.toLocalFile(), &error)
                                : m_oModel.bSaveFile(path, url.toLocalFile(), &error);
    if (!done) {
        Utils::WMessageBox::warning(tr("The file could not be used."), error, m_poDock);
        return tr("Refused: %1").arg(error);
    }
    return (id == 564 ? tr("Loaded %1") : tr("Saved %1")).arg(url.toLocalFile());
}

QString JobHost::sAssistantHelp()
{
    return tr("<b>Module assistant</b><br>Select a module in the job tree, then click "
              "<i>Start Assistant</i>: the assistant takes the place of the property tree and "
              "walks you through the module's inputs, one at a time, and what its outputs "
              "mean.<br>Close it with its own <i>Close</i> button to edit values again.");
}

QString JobHost::sShowAssistantHelp()
{
    // The help goes where the user just clicked, as a tool tip of the dock.
    QToolTip::showText(QCursor::pos(), sAssistantHelp(), m_poDock);
    return tr("Help for the assistant shown");
}

QString JobHost::sAssistant(bool visible, QVariant& reply)
{
    auto* area = m_poDock->findChild<QScrollArea*>(QStringLiteral("scrollArea"));
    auto* assistant = area ? qobject_cast<QQuickWidget*>(area->widget()) : nullptr;
    if (!assistant) {
        reply = true;
        return tr("No place for an assistant");
    }
    m_bAssistantWanted = visible;
    if (!visible) {
        // A close comes from inside a handler of the assistant's own QML, which must not be
        // destroyed before the handler returns; the assistant is unloaded afterwards, unless
        // it was asked back meanwhile.
        QTimer::singleShot(0, assistant, [this, assistant] {
            if (!m_bAssistantWanted)
                assistant->setSource(QUrl());
        });
        reply = false;
        return tr("Assistant closed");
    }
    assistant->setSource(QUrl(QStringLiteral("qrc:/workbench/qml/ModuleAssistant.qml")));
    // The reply says whether loading failed.
    reply = assistant->status() == QQuickWidget::Error;
    return tr("Assistant loaded");
}
