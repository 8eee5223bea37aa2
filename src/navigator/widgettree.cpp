#include "navigator/widgettree.h"

#include "controls/disabledlookstyle.h"
#include "controls/forcestyle.h"
#include "navigator/widgettreeview.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "sdk/apptranslation.h"
#include "sdk/ditem.h"
#include "sdk/element.h"
#include "sdk/projectmode.h"
#include "sdk/visibilityinfo.h"
#include "sdk/wappsetting.h"
#include "sdk/wappsettings.h"
#include "sdk/widgetdescriptor.h"
#include "sdk/widgetinterfaceconfig.h"
#include "sdk/wmessagebox.h"
#include "ui_widgettree.h"

#include <QAbstractItemDelegate>
#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWidget>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QToolTip>
#include <QTreeWidgetItemIterator>

QTreeWidgetItem* gSelectedTreeItem = nullptr;

namespace {

// A refused name is cleared rather than reset, so that no earlier name comes back.
const QString currentName;

const QString kShowWindows = QStringLiteral("SHOW_WINDOWS");
const QString kShowWelcomePage = QStringLiteral("ShowWelcomePage");
const QString kDontBlockMe = QStringLiteral("DONT_BLOCK_ME");

// The host answers within 25 seconds and holds the sender until then.
const int kRequestTimeout = 25000;
// Keys of the request parameters the host reads.
const int kParamKey = 953;
// Locked look and hard lock together forbid editing nodes; either alone does not.
const int kNoEditingMode = 0x1001;
const int kNodePathKey = 956;
// Keys of a paste or move: the module, the row it goes after, and where relative to that row.
const int kSourceKey = 625;
const int kInsertionKey = 626;
const int kPlacementKey = 627;
const QString kAfter = QStringLiteral("after");

// The pages of "editorAssistantPlaceHolder"; other code selects them by these numbers.
const int kEditorPage = 0;
const int kAssistantPage = 1;
const int kWelcomePage = 2;

const QDockWidget::DockWidgetFeatures kAllDockFeatures(QDockWidget::DockWidgetClosable
                                                       | QDockWidget::DockWidgetMovable
                                                       | QDockWidget::DockWidgetFloatable);

} // namespace

extern "C" std::vector<WidgetModules::WidgetDescriptor*>* oWidgetDescriptorList()
{
    static std::vector<WidgetModules::WidgetDescriptor*> descriptors;
    descriptors.push_back(WidgetTree::classDescriptor());
    return &descriptors;
}

bool bInvalidItemName(const QString& name)
{
    static const QRegularExpression forbidden(QStringLiteral("[?\"\\\\/<>*|:.]"));
    return forbidden.match(name).hasMatch();
}

WidgetTree::WidgetTree(QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , tree(nullptr)
    , propertyBrowser(nullptr)
    , assistantWidget(new QQuickWidget)
    , ui(new Ui_NavigatorWidgetLayout)
    , copiedItem(nullptr)
    , actionDelete(nullptr)
    , actionDeleteProperty(nullptr)
    , actionRename(nullptr)
    , actionVisible(nullptr)
    , actionUseColor(nullptr)
    , actionCopyPath(nullptr)
    , actionCopyModule(nullptr)
    , actionCopyValue(nullptr)
    , disabledStyle(new DisabledLookStyle(nullptr))
    , editingCount(0)
    , projectModeValue(0)
    , welcomeOkButton(nullptr)
    , showWelcomePage(false)
    , fileType(FileTypeNone)
    , hiddenWithFile(false)
    , addModuleItem(QTreeWidgetItem::Type)
{
    ui->setupUi(this);

    tree = new WidgetTreeView(this);
    tree->setIconSize(QSize(24, 48));
    tree->setAnimated(true);
    tree->setHeaderHidden(true);
    tree->viewport()->setAcceptDrops(true);
    tree->setDropIndicatorShown(true);
    propertyBrowser = new PropertyBrowser::WTreePropertyBrowser(this);
    ui->treePlaceHolder->layout()->addWidget(tree);
    ui->propEditorPlaceHolder->layout()->addWidget(propertyBrowser);

    // The assistants' QML files use the type; registering again for each dock costs nothing.
    qmlRegisterUncreatableType<Assistant::Element>(
        "Element", 1, 0, "Element", QStringLiteral("Element type object cannot be created."));

    assistantWidget->setResizeMode(QQuickWidget::SizeRootObjectToView);
    ui->scrollArea->setWidget(assistantWidget);

    addModuleItem.setData(0, Qt::DisplayRole, QObject::tr("Add Module"));
    addModuleItem.setData(0, WidgetTreeView::AddModuleItemRole, QStringLiteral("AddModuleItem"));
    addModuleItem.setData(0, Qt::DecorationRole, QIcon(QStringLiteral(":/images/Setting-3.svg")));

    connectWidgets();
    createAndConnectActions();

    // The host creates the group before any dock; without it the page is not shown.
    const Settings::WAppSetting* group
        = Settings::WAppSettings::instance()->find_setting(kShowWindows);
    showWelcomePage = group && group->valueOf(kShowWelcomePage, QVariant()).toBool();
}

WidgetTree::~WidgetTree()
{
    cleanup();
    if (!showWelcomePage) {
        if (Settings::WAppSetting* group
            = Settings::WAppSettings::instance()->find_setting(kShowWindows))
            group->setValueOf(kShowWelcomePage, false);
    }
    delete actionDelete;
    delete actionDeleteProperty;
    delete actionRename;
    delete actionVisible;
    delete actionUseColor;
    delete actionCopyPath;
    delete actionCopyModule;
    delete actionCopyValue;
    delete disabledStyle;
    delete assistantWidget;
}

WidgetModules::WidgetDescriptor* WidgetTree::classDescriptor()
{
    static WidgetModules::WidgetDescriptor descriptor(
        std::string("Navigator"), wutils::PluginVersion(1, 0, 0, 22780),
        &WidgetTree::poCreateInstance, &WidgetTree::vDestroyInstance, QIcon(QString()),
        WidgetModules::WidgetInterfaceConfig(Qt::LeftDockWidgetArea, false, false, true, false,
                                             false));
    return &descriptor;
}

WidgetModules::WidgetInterface* WidgetTree::poCreateInstance()
{
    return new WidgetTree(nullptr, {});
}

void WidgetTree::vDestroyInstance(WidgetModules::WidgetInterface* instance)
{
    if (!instance)
        return;
    delete instance;
}

WidgetModules::WidgetDescriptor* WidgetTree::getModuleDescriptor()
{
    return classDescriptor();
}

void WidgetTree::connectWidgets()
{
    connect(tree, &QTreeWidget::itemSelectionChanged, this, &WidgetTree::treeReqSlot,
            Qt::UniqueConnection);
    connect(tree->itemDelegate(), &QAbstractItemDelegate::closeEditor, this,
            &WidgetTree::vClosedEditor, Qt::UniqueConnection);
    connect(tree, &QTreeWidget::itemChanged, this, &WidgetTree::itemWasChanged);
    connect(tree, &WidgetTreeView::showToolBox, this, &WidgetTree::showToolBox);
    connect(tree, &WidgetTreeView::doEditModule, this, &WidgetTree::renameCurrentItem);
    connect(tree, &WidgetTreeView::checkTreeItem, this, &WidgetTree::checkTreeItem,
            Qt::UniqueConnection);
    connect(tree, &WidgetTreeView::insertNewItem, this, &WidgetTree::insertNewItem,
            Qt::UniqueConnection);
    connect(tree, &WidgetTreeView::pasteItem, this, &WidgetTree::pasteItem, Qt::UniqueConnection);
    connect(tree, &WidgetTreeView::moveItem, this, &WidgetTree::moveItem, Qt::UniqueConnection);

    // Edits, link clicks and the editing state go to the host before the browser goes on.
    using Browser = PropertyBrowser::WTreePropertyBrowser;
    connect(propertyBrowser, &Browser::propertyEdited, this, &WidgetTree::vNodePropertyEdited,
            Qt::DirectConnection);
    connect(propertyBrowser, &Browser::linkClicked, this, &WidgetTree::vLinkClicked,
            Qt::DirectConnection);
    connect(propertyBrowser, &Browser::editing, this, &WidgetTree::setEditingState,
            Qt::DirectConnection);
    connect(propertyBrowser, &Browser::refreshData, this, &WidgetTree::requestDataRefresh,
            Qt::DirectConnection);
    connect(propertyBrowser, &Browser::mouseEventSignal, this,
            &WidgetTree::vPropertyEditorMouseEvent);
    connect(propertyBrowser, &Browser::requestSaveToFile, this, &WidgetTree::requestSaveToFile);
    connect(propertyBrowser, &Browser::requestLoadFromFile, this, &WidgetTree::requestLoadFromFile);
    connect(propertyBrowser, &Browser::requestUnloadFile, this, &WidgetTree::requestUnloadFile);

    // The pages come from the host's resources; a page or button it lacks is simply not wired.
    QQuickItem* welcomeRoot = ui->welcomeAssistant->rootObject();
    welcomeOkButton
        = welcomeRoot ? welcomeRoot->findChild<QObject*>(QStringLiteral("okBtn")) : nullptr;
    if (welcomeRoot && welcomeOkButton) {
        connect(welcomeRoot, SIGNAL(qmlCloseSignal()), this, SLOT(welcomeAssistantHandler()));
        connect(welcomeOkButton, SIGNAL(clicked()), this, SLOT(welcomeAssistantHandler()));
    }
    QQuickItem* startRoot = ui->startAssistantQML->rootObject();
    if (!startRoot)
        return;
    if (QObject* button = startRoot->findChild<QObject*>(QStringLiteral("showAssistantBtn")))
        connect(button, SIGNAL(clicked()), this, SLOT(displayAssistant()));
    connect(startRoot, SIGNAL(displayToolTip()), this, SLOT(onDisplayToolTip()));
}

void WidgetTree::createAndConnectActions()
{
    const QIcon deleteIcon(QStringLiteral(":/images/edit_delete_all(2).svg"));
    actionDelete = new QAction(deleteIcon, QObject::tr("&Delete"), nullptr);
    actionDeleteProperty = new QAction(deleteIcon, QObject::tr("&Delete"), nullptr);
    actionRename = new QAction(QObject::tr("&Rename"), nullptr);
    actionVisible = new QAction(QObject::tr("&Visible"), nullptr);
    actionVisible->setCheckable(true);
    actionUseColor = new QAction(QObject::tr("&Use Value for Color Feedback"), nullptr);
    actionUseColor->setCheckable(true);
    actionCopyPath = new QAction(QObject::tr("&Copy Node Path to Clipboard"), nullptr);
    actionCopyModule = new QAction(QObject::tr("Copy &Module"), nullptr);
    actionCopyValue = new QAction(QObject::tr("Copy Node Value to Clipboard"), nullptr);

    connect(actionDelete, &QAction::triggered, this, &WidgetTree::deleteCurrentItem);
    connect(actionDeleteProperty, &QAction::triggered, this, &WidgetTree::deleteProperty);
    connect(actionRename, &QAction::triggered, this, &WidgetTree::renameCurrentItem);
    connect(actionVisible, &QAction::toggled, this, &WidgetTree::changeItemVisibility);
    connect(actionUseColor, &QAction::toggled, this, &WidgetTree::changeUseColorVal);
    connect(actionCopyPath, &QAction::triggered, this, &WidgetTree::copyItemPath);
    connect(actionCopyValue, &QAction::triggered, this, &WidgetTree::copyItemValue);
    connect(actionCopyModule, &QAction::triggered, this, &WidgetTree::copyItemAction);
}

void WidgetTree::resetActionTexts()
{
    actionDelete->setText(QObject::tr("&Delete"));
    actionDeleteProperty->setText(QObject::tr("&Delete"));
    actionRename->setText(QObject::tr("&Rename"));
    actionVisible->setText(QObject::tr("&Visible"));
    actionUseColor->setText(tr("&Use Value for Color Feedback"));
    actionCopyPath->setText(tr("&Copy Node Path to Clipboard"));
    actionCopyModule->setText(tr("Copy &Module"));
    actionCopyValue->setText(tr("Copy Node Value to Clipboard"));
}

QVariant WidgetTree::sendRequest(int category, int id, const WParam<QVariant>& param,
                                 QVariant reply)
{
    const WRequest<QVariant> request(category, id, param, WaitOnReply, kRequestTimeout);
    // The host fills the reply before the emission returns.
    emit treeReq(request, reply);
    return reply;
}

void WidgetTree::showingWidget()
{
    const Utils::ProjectMode* mode = poProjectMode();
    if (!mode)
        return;
    connect(mode, &Utils::ProjectMode::modeChanged, this, &WidgetTree::onProjectModeChanged,
            Qt::UniqueConnection);
    // Hidden with a file open: the page was chosen for that file already.
    if (hiddenWithFile)
        return;
    onProjectModeChanged();
    if (!ItemVisibility::VisibilityInfo::instance()->isNormalView()
        || (fileType != FileTypeGuidedJob && fileType != FileTypeGuidedTemplate))
        return;
    if (showWelcomePage)
        showWelcome();
    else
        displayAssistant();
}

void WidgetTree::shown()
{
    // The welcome page is meant to be read where it is, so the dock may not move or close.
    if (isWelcomeAssistantOn())
        setParentFeatures(QDockWidget::NoDockWidgetFeatures);
}

void WidgetTree::hidingWidget()
{
    if (const Utils::ProjectMode* mode = poProjectMode())
        disconnect(mode, &Utils::ProjectMode::modeChanged, this, &WidgetTree::onProjectModeChanged);
    if (fileType != FileTypeNone)
        hiddenWithFile = true;
}

void WidgetTree::cleanup()
{
    // The "Add Module" row is a member: clearing the job's rows must not delete it.
    if (QTreeWidgetItem* holder = addModuleItem.parent())
        holder->removeChild(&addModuleItem);
    else if (addModuleItem.treeWidget() == tree)
        tree->takeTopLevelItem(tree->indexOfTopLevelItem(&addModuleItem));
    tree->clear();
    disconnect();
    fileType = FileTypeNone;
    hiddenWithFile = false;
}

void WidgetTree::setParentFeatures(QDockWidget::DockWidgetFeatures features)
{
    if (auto* dock = qobject_cast<QDockWidget*>(parentWidget()))
        dock->setFeatures(features);
}

void WidgetTree::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslateWidget();
}

void WidgetTree::retranslateWidget()
{
    setWindowTitle(QCoreApplication::translate("NavigatorWidgetLayout", "  Project Window"));
    retranslateTree(tree->topLevelItem(0));
    if (QWidget* holder = parentWidget())
        holder->setWindowTitle(QObject::tr("Job Tree"));
    resetActionTexts();
    addModuleItem.setData(0, Qt::DisplayRole, QObject::tr("Add Module"));
    // Any write of "forceTranslate" makes a page read its translated texts again.
    if (QQuickItem* root = ui->welcomeAssistant->rootObject())
        root->setProperty("forceTranslate", QStringLiteral(" "));
    if (QQuickItem* root = ui->startAssistantQML->rootObject())
        root->setProperty("forceTranslate", QStringLiteral(" "));
    emit retranslate();
}

QTreeWidgetItem* WidgetTree::poFindItem(const QString& path) const
{
    if (path.isEmpty())
        return nullptr;
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        QTreeWidgetItem* item = *it;
        if (WidgetTreeView::bHoldsNoNode(*item))
            continue;
        const Script::DItem* node = tree->getDItem(*item);
        if (node && node->iDataPath() == path)
            return item;
    }
    return nullptr;
}

QList<QTreeWidgetItem*> WidgetTree::selectedTreeItems() const
{
    return tree->selectedItems();
}

void WidgetTree::clearTreeSelection()
{
    tree->clearSelection();
}

void WidgetTree::showDefaultLinkWidget(const QString& nodePath, const QString& link)
{
    if (nodePath.isEmpty())
        return;
    if (PropertyBrowser::WidgetProperty* row = propertyBrowser->getWProperty(nodePath))
        propertyBrowser->showLinkingwidget(row, this, link);
}

void WidgetTree::retranslateTree(QTreeWidgetItem* item)
{
    if (!item)
        return;
    // A row without a node keeps its texts; its children are still translated.
    if (const Script::DItem* node = tree->getDItem(*item)) {
        const QString name = App::getTranslatedName(node->unTranslatedName());
        item->setData(0, Qt::DisplayRole, name);
        item->setData(0, Qt::ToolTipRole, name);
    }
    for (int i = 0; i < item->childCount(); ++i)
        retranslateTree(item->child(i));
}

QTreeWidgetItem* WidgetTree::poAddModuleItem()
{
    return &addModuleItem;
}

void WidgetTree::treeReqSlot()
{
    // The "Add Module" row holds no node: there is nothing to show for it.
    if (addModuleItem.isSelected()) {
        propertyBrowser->clear();
        return;
    }
    // The host reads the selection itself, so the request carries nothing.
    sendRequest(0, 9, WParam<QVariant>(), QVariant());
}

void WidgetTree::vNodePropertyEdited(const QString& nodePath,
                                     VardeenDefs::PropertyEditor::Command cmd,
                                     const QVariant& params, bool preview)
{
    const QVariantList edit {nodePath, static_cast<int>(cmd), params, preview};
    sendRequest(0, 34, WParam<QVariant>(edit, kParamKey), kDontBlockMe);
}

void WidgetTree::vLinkClicked(const QString& path)
{
    sendRequest(0, 36, WParam<QVariant>(path, kParamKey), QVariant());
}

void WidgetTree::showToolBox()
{
    sendRequest(0, 50, WParam<QVariant>(), QVariant());
}

void WidgetTree::onDisplayToolTip()
{
    sendRequest(0, 51, WParam<QVariant>(), QVariant());
}

void WidgetTree::requestDataRefresh(const QString& nodePath)
{
    sendRequest(0, 43, WParam<QVariant>(nodePath, kNodePathKey), kDontBlockMe);
}

void WidgetTree::requestSaveToFile(const QString& nodePath)
{
    sendRequest(0, 563, WParam<QVariant>(nodePath, kNodePathKey), kDontBlockMe);
}

void WidgetTree::requestLoadFromFile(const QString& nodePath)
{
    sendRequest(0, 564, WParam<QVariant>(nodePath, kNodePathKey), kDontBlockMe);
}

void WidgetTree::requestUnloadFile(const QString& nodePath)
{
    sendRequest(0, 565, WParam<QVariant>(nodePath, kNodePathKey), kDontBlockMe);
}

void WidgetTree::setEditingState(bool editing)
{
    // Only the outermost change means something to the host; nested ones go out as -1.
    int id = -1;
    if (editing) {
        if (editingCount == 0)
            id = 39;
        ++editingCount;
    } else {
        --editingCount;
        if (editingCount == 0)
            id = 40;
    }
    sendRequest(0, id, WParam<QVariant>(), kDontBlockMe);
}

void WidgetTree::vPropertyEditorMouseEvent(QMouseEvent* event, QtBrowserItem* browserItem)
{
    if (!browserItem)
        return;
    if (event->button() == Qt::RightButton) {
        const ItemVisibility::VisibilityInfo* visibility
            = ItemVisibility::VisibilityInfo::instance();
        const Script::DItem* node = PropertyBrowser::WidgetProperty::poNode(browserItem->property());
        if (!visibility || visibility->isNormalView() || !isNodeEditingAllowed() || !node)
            return;
        auto* menu = new QMenu(propertyBrowser);
        addCopyActions(*menu, *node);
        if (node->property("iDeletable").toBool()
            && !node->iDataPath().contains(QLatin1String("Add New")))
            menu->addAction(actionDeleteProperty);
        addVisibleAction(*menu, *node, *visibility);
        addUseColorAction(*menu, *node);
        menu->popup(event->globalPos());
        return;
    }
    // One press opens the row's editor.
    if (event->button() == Qt::LeftButton && event->type() == QEvent::MouseButtonPress)
        propertyBrowser->editItem(browserItem);
}

void WidgetTree::addCopyActions(QMenu& menu, const Script::DItem& node)
{
    actionCopyPath->setData(node.iDataPath());
    menu.addAction(actionCopyPath);
    if (nodeIsBasicType(node)) {
        actionCopyValue->setData(extractStringFromBasicNode(node));
        menu.addAction(actionCopyValue);
    }
}

void WidgetTree::addVisibleAction(QMenu& menu, const Script::DItem& node,
                                  const ItemVisibility::VisibilityInfo& visibility)
{
    actionVisible->setData(node.iDataPath());
    menu.addAction(actionVisible);
    // Showing the node's state is no request to change it.
    const QSignalBlocker blocker(actionVisible);
    actionVisible->setChecked(visibility.isVisible(node.iDataPath()));
}

void WidgetTree::addUseColorAction(QMenu& menu, const Script::DItem& node)
{
    if (node.ioType() != Script::DItem::IoOutput)
        return;
    actionUseColor->setData(QVariant::fromValue(&node));
    menu.addAction(actionUseColor);
    // Signals stay on: changeUseColorVal() finds the value equal and sends nothing.
    actionUseColor->setChecked(node.property("IData.UseForColorMarking").toBool());
}

bool WidgetTree::isNodeEditingAllowed() const
{
    // Only the two flags together forbid; either alone still allows.
    return (projectModeValue & kNoEditingMode) != kNoEditingMode;
}

void WidgetTree::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    QTreeWidgetItem* item = tree->currentItem();
    if (!item || WidgetTreeView::bHoldsNoNode(*item))
        return;
    // The position is taken as it comes, in this widget's coordinates: a menu opens only on
    // the row that is current already.
    if (tree->itemAt(event->pos()) != item || !isNodeEditingAllowed())
        return;
    const Script::DItem* node = tree->getDItem(*item);
    if (!node)
        return;
    // Kept until the tree goes, as the menus of the tree always were.
    auto* menu = new QMenu(tree);
    resetActionTexts();
    const ItemVisibility::VisibilityInfo* visibility = ItemVisibility::VisibilityInfo::instance();
    if (visibility && !visibility->isNormalView()) {
        addCopyActions(*menu, *node);
        if (node->isHidable())
            addVisibleAction(*menu, *node, *visibility);
    }
    if (node->isRenamingAllowed())
        menu->addAction(actionRename);
    if (node->isDeletable())
        menu->addAction(actionDelete);
    if (node->isCopyable())
        menu->addAction(actionCopyModule);
    addUseColorAction(*menu, *node);
    if (!tree->isInCopyMode())
        menu->exec(event->globalPos());
}

void WidgetTree::keyPressEvent(QKeyEvent* event)
{
    const bool allowed = isNodeEditingAllowed() && tree->hasFocus();
    const bool ctrlOnly = event->modifiers() == Qt::ControlModifier;
    if (event->key() == Qt::Key_Delete && allowed) {
        deleteCurrentItem();
        return;
    }
    if (event->key() == Qt::Key_C && ctrlOnly && allowed && !tree->isInCopyMode()) {
        copyItem(false);
        return;
    }
    if (event->key() == Qt::Key_V && ctrlOnly && allowed && !tree->isInCopyMode()) {
        if (markedItem()) {
            QTreeWidgetItem* current = tree->currentItem();
            // On "Add Module", as for a drop there, the copy goes after the last module.
            if (current && WidgetTreeView::bHoldsNoNode(*current))
                current = tree->getItemAtPosOrLast(QPoint(-1, -1));
            const Script::DItem* target = current ? tree->getDItem(*current) : nullptr;
            if (target)
                pasteItem(copiedPath, target->iDataPath());
            return;
        }
    }
    QWidget::keyPressEvent(event);
}

QTreeWidgetItem* WidgetTree::markedItem()
{
    // The host may build the rows anew at any time: the mark is on the node, its row is found
    // when it is needed.
    copiedItem = poFindItem(copiedPath);
    return copiedItem;
}

bool WidgetTree::checkTreeItem(const QString& moduleID, const QString& insertionPath)
{
    // In this mode no position is offered at all, and the view keeps what it showed last.
    if (projectModeValue & Utils::ProjectMode::Locked)
        return false;
    const bool result
        = sendRequest(0, 35, WParam<QVariant>(QVariantList {moduleID, insertionPath}, kParamKey),
                      QVariant(false))
              .toBool();
    tree->setValidationResult(result);
    return result;
}

void WidgetTree::insertNewItem(const QString& moduleID, const QString& insertionPath,
                               QString moduleName)
{
    if (!checkTreeItem(moduleID, insertionPath))
        return;
    const QVariant left = sendRequest(
        500, 520, WParam<QVariant>(QVariantList {moduleID, insertionPath}, kParamKey), QVariant());
    tree->restoreTreeView();
    sendRequest(0, 45, WParam<QVariant>(moduleName, kParamKey), left);
}

void WidgetTree::pasteItem(const QString& moduleID, const QString& insertionPath)
{
    if (!checkTreeItem(moduleID, insertionPath))
        return;
    QTreeWidgetItem* marked = markedItem();
    const Script::DItem* source = marked ? tree->getDItem(*marked) : nullptr;
    // Nothing marked, or the marked module is gone: there is nothing to paste.
    if (!source)
        return;
    sendPlacement(531, source->iDataPath(), insertionPath);
}

void WidgetTree::sendPlacement(int id, const QString& module, const QString& insertionPath)
{
    WRequest<QVariant> request(500, id, WParam<QVariant>(module, kSourceKey), WaitOnReply,
                               kRequestTimeout);
    request.addParam(WParam<QVariant>(insertionPath, kInsertionKey));
    request.addParam(WParam<QVariant>(kAfter, kPlacementKey));
    QVariant reply;
    emit treeReq(request, reply);
}

void WidgetTree::moveItem(const QString& moduleID, const QString& insertionPath)
{
    if (!checkTreeItem(moduleID, insertionPath) || moduleID == insertionPath)
        return;
    sendPlacement(532, moduleID, insertionPath);

    // The tree shows the move at once, whenever the host rebuilds it.
    QTreeWidgetItem* top = tree->topLevelItem(0);
    if (!top)
        return;
    int from = -1;
    int to = -1;
    for (int i = 0; i < top->childCount(); ++i) {
        const QTreeWidgetItem* child = top->child(i);
        const Script::DItem* node = tree->getDItem(*child);
        if (!node)
            continue;
        if (from < 0 && node->iDataPath() == moduleID)
            from = i;
        if (to < 0 && node->iDataPath() == insertionPath)
            to = i;
    }
    const QSignalBlocker blocker(tree);
    if (from < 0)
        return;
    // The target is not corrected for the removal of the moved row, and the first row counts as
    // the second; only an index past the end is brought back, or the row would be lost.
    const int target = (to == 0 ? 1 : to) + 1;
    QTreeWidgetItem* moved = top->takeChild(from);
    top->insertChild(qMin(target, top->childCount()), moved);
    tree->clearSelection();
    moved->setSelected(true);
    tree->setCurrentItem(moved);
}

void WidgetTree::copyItem(bool byMouse)
{
    QTreeWidgetItem* item = tree->currentItem();
    const Script::DItem* node = item ? tree->getDItem(*item) : nullptr;
    // Without a current module there is nothing to copy.
    if (!node || !node->isCopyable())
        return;
    copiedItem = item;
    copiedPath = node->iDataPath();
    if (byMouse)
        tree->enterCopyMode(node->iDataPath(), QIcon(node->iconPath()));
}

void WidgetTree::copyItemAction()
{
    copyItem(true);
}

void WidgetTree::deleteCurrentItem()
{
    QTreeWidgetItem* item = tree->currentItem();
    if (item == &addModuleItem) {
        Utils::WMessageBox::warning(tr("The item is not deletable !"), QString(), nullptr);
        return;
    }
    const Script::DItem* node = item ? tree->getDItem(*item) : nullptr;
    if (!node)
        return;
    // No test of isDeletable(): the host's answer decides.
    sendRequest(500, 521, WParam<QVariant>(QVariantList {node->iDataPath()}, kParamKey),
                QVariant());
    if (node->iDataPath() == copiedPath) {
        copiedItem = nullptr;
        copiedPath.clear();
    }
}

void WidgetTree::deleteProperty()
{
    QtBrowserItem* item = propertyBrowser->currentItem();
    QtProperty* property = item ? item->property() : nullptr;
    if (!property)
        return;
    sendRequest(500, 521,
                WParam<QVariant>(QVariantList {propertyBrowser->getPropertyPath(property)},
                                 kParamKey),
                QVariant());
}

void WidgetTree::changeItemVisibility(bool visible)
{
    // The data serves one toggle; the next menu sets it anew.
    const QString path = actionVisible->data().toString();
    actionVisible->setData(QString());
    sendRequest(0, 528, WParam<QVariant>(QVariantList {path, visible}, kParamKey), QVariant());
}

void WidgetTree::changeUseColorVal(bool use)
{
    const auto* node = actionUseColor->data().value<const Script::DItem*>();
    if (!node || node->property("IData.UseForColorMarking").toBool() == use)
        return;
    sendRequest(0, 556, WParam<QVariant>(QVariantList {node->iDataPath(), use}, kParamKey),
                QVariant());
}

void WidgetTree::copyItemPath()
{
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setText(actionCopyPath->data().toString(), QClipboard::Clipboard);
    putOnClipboard(QStringLiteral("copyNodePath"),
                   clipboard->mimeData()->data(QStringLiteral("text/plain")));
}

void WidgetTree::copyItemValue()
{
    const QString value = actionCopyValue->data().toString();
    QGuiApplication::clipboard()->setText(value, QClipboard::Clipboard);
    // The bytes of the text the action carries, the value, not of its label.
    putOnClipboard(QStringLiteral("copyNodeValue"), value.toLatin1());
}

void WidgetTree::putOnClipboard(const QString& format, const QByteArray& bytes)
{
    auto* data = new QMimeData;
    data->setData(format, bytes);
    data->setData(QStringLiteral("text/plain"), bytes);
    // The clipboard takes the data over.
    QGuiApplication::clipboard()->setMimeData(data);
}

void WidgetTree::renameCurrentItem()
{
    QTreeWidgetItem* item = tree->currentItem();
    if (!item)
        return;
    const Script::DItem* node = tree->getDItem(*item);
    if (!node || !node->isRenamingAllowed())
        return;
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    setEditingState(true);
    setFocus(Qt::OtherFocusReason);
    gSelectedTreeItem = item;
    tree->editItem(item, 0);
}

void WidgetTree::itemWasChanged(QTreeWidgetItem* item, int column)
{
    Q_UNUSED(column)
    bool renamed = false;
    {
        const QSignalBlocker blocker(this);
        renamed = gSelectedTreeItem == item;
    }
    if (!renamed)
        return;
    gSelectedTreeItem = nullptr;
    setEditingState(false);
}

void WidgetTree::vClosedEditor()
{
    QTreeWidgetItem* item = tree->currentItem();
    if (!item)
        return;
    const QString text = item->data(0, Qt::DisplayRole).toString();
    const bool invalid = bInvalidItemName(text);
    const bool empty = text.trimmed().isEmpty();
    if (!invalid && !empty) {
        // The host renames the node behind the item whose address it gets.
        const QVariantList address {static_cast<qint64>(reinterpret_cast<quintptr>(item))};
        sendRequest(500, 522, WParam<QVariant>(address, kParamKey), QVariant());
        return;
    }
    item->setData(0, Qt::DisplayRole, currentName);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    tree->editItem(item, 0);
    const QString message = empty
        ? tr("Node name cannot be empty!")
        : tr("A module name cannot contain any of the following characters : ")
            + QStringLiteral("\n\t ? \"  /  \\  <  >  *  |  :  . ");
    QToolTip::showText(QCursor::pos(), message);
}

void WidgetTree::onProjectModeChanged()
{
    const Utils::ProjectMode* mode = poProjectMode();
    if (!mode)
        return;
    projectModeValue = mode->projectMode();
    propertyBrowser->onProjectModeChanged(projectModeValue);
    if (mode->contains(Utils::ProjectMode::Locked)) {
        if (QTreeWidgetItem* item = tree->currentItem())
            tree->closePersistentEditor(item, 0);
        // The dock must look inactive in every state while it still takes input.
        QPalette palette = QApplication::palette();
        palette.setCurrentColorGroup(QPalette::Disabled);
        for (int role = QPalette::WindowText; role <= QPalette::AlternateBase; ++role) {
            const auto colorRole = static_cast<QPalette::ColorRole>(role);
            palette.setBrush(colorRole, palette.brush(colorRole));
        }
        palette.setBrush(QPalette::ToolTipBase, palette.brush(QPalette::ToolTipBase));
        palette.setBrush(QPalette::ToolTipText, palette.brush(QPalette::ToolTipText));
        forceStyle(this, palette, disabledStyle, true);
        ui->startAssistantQML->setEnabled(false);
        if (QQuickItem* root = ui->startAssistantQML->rootObject())
            root->setEnabled(false);
        ui->editorWidget->setCursor(Qt::ForbiddenCursor);
    }
    if (mode->contains(Utils::ProjectMode::HardLocked)) {
        tree->setEnabled(false);
        propertyBrowser->setEnabled(false);
        ui->treePlaceHolder->setCursor(Qt::ForbiddenCursor);
        ui->editorWidget->setCursor(Qt::ForbiddenCursor);
        return;
    }
    if (mode->contains(Utils::ProjectMode::Released)) {
        forceStyle(this, QApplication::palette(), QApplication::style(), true);
        if (assistantWidget->isVisible())
            setAssistantVisibility(false, true);
        ui->editorAssistantPlaceHolder->setCurrentIndex(kEditorPage);
        ui->treePlaceHolder->setCursor(Qt::ArrowCursor);
        tree->setEnabled(true);
        ui->startAssistantQML->setEnabled(true);
        if (QQuickItem* root = ui->startAssistantQML->rootObject())
            root->setEnabled(true);
        propertyBrowser->setEnabled(true);
        ui->editorWidget->setCursor(Qt::ArrowCursor);
    }
}

void WidgetTree::onFileTypeChanged(AppSpecifficFileType type)
{
    fileType = type;
}

void WidgetTree::onViewModeChanged(bool normalView)
{
    if (!isWelcomeAssistantOn() || normalView)
        return;
    ui->editorAssistantPlaceHolder->setCurrentIndex(kEditorPage);
    ui->treePlaceHolder->setCursor(Qt::ArrowCursor);
    tree->setEnabled(true);
    emit enableToolbox(true);
    emit welcomePageVisible(false);
}

bool WidgetTree::isWelcomeAssistantOn() const
{
    return ui->editorAssistantPlaceHolder->currentIndex() == kWelcomePage;
}

bool WidgetTree::isAssistantVisible() const
{
    return assistantWidget->isVisible() || isWelcomeAssistantOn();
}

void WidgetTree::showStartAssistantButton(bool show)
{
    ui->startAssistantQML->setVisible(show);
}

void WidgetTree::showWelcome()
{
    ui->editorAssistantPlaceHolder->setCurrentIndex(kWelcomePage);
    tree->setEnabled(false);
    ui->treePlaceHolder->setCursor(Qt::ForbiddenCursor);
    emit enableToolbox(false);
    emit welcomePageVisible(true);
}

void WidgetTree::displayAssistant()
{
    setAssistantVisibility(true, true);
}

void WidgetTree::setAssistantVisibility(bool visibility, bool makeRequest)
{
    if (!visibility && !makeRequest) {
        closeAssistant();
        return;
    }
    if (visibility && (!makeRequest || assistantWidget->isVisible())) {
        openAssistant();
        return;
    }
    // The host loads or unloads the module's assistant; true in the reply means it failed.
    const QVariant reply
        = sendRequest(0, 47, WParam<QVariant>(visibility, kParamKey), QVariant(false));
    if (reply.toBool())
        showAssistantErrors();
    else if (visibility)
        openAssistant();
    else
        closeAssistant();
}

void WidgetTree::closeAssistant()
{
    if (QQuickItem* root = assistantWidget->rootObject())
        disconnect(root, SIGNAL(qmlCloseSignal()), this, SLOT(setAssistantVisibility()));
    ui->editorAssistantPlaceHolder->setCurrentIndex(kEditorPage);
    tree->setEnabled(true);
    setParentFeatures(kAllDockFeatures);
    emit assistantWidgetVisible(false);
}

void WidgetTree::openAssistant()
{
    if (QQuickItem* root = assistantWidget->rootObject())
        connect(root, SIGNAL(qmlCloseSignal()), this, SLOT(setAssistantVisibility()));
    assistantWidget->show();
    ui->editorAssistantPlaceHolder->setCurrentIndex(kAssistantPage);
    setParentFeatures(QDockWidget::NoDockWidgetFeatures);
    emit assistantWidgetVisible(true);
}

void WidgetTree::showAssistantErrors()
{
    // The host sets a busy cursor while it loads the assistant.
    QGuiApplication::restoreOverrideCursor();
    const QList<QQmlError> errors = assistantWidget->errors();
    if (errors.isEmpty())
        return;
    QString text;
    for (const QQmlError& error : errors)
        text += error.toString() + QLatin1Char('\n');
    Utils::WMessageBox::warning(tr("Error loading the assistant of the module !"), text, this);
}

void WidgetTree::welcomeAssistantHandler()
{
    const bool byOkButton = welcomeOkButton && sender() == welcomeOkButton;
    if (byOkButton) {
        QQuickItem* root = ui->welcomeAssistant->rootObject();
        QObject* checkBox = root ? root->findChild<QObject*>(QStringLiteral("checkBox")) : nullptr;
        // A ticked box ends the page for good.
        if (checkBox)
            showWelcomePage = !checkBox->property("checked").toBool();
    }
    ui->editorAssistantPlaceHolder->setCurrentIndex(kEditorPage);
    if (!showWelcomePage) {
        if (Settings::WAppSetting* group
            = Settings::WAppSettings::instance()->find_setting(kShowWindows))
            group->setValueOf(kShowWelcomePage, false);
        Settings::WAppSettings::instance()->save();
    }
    tree->setEnabled(true);
    ui->treePlaceHolder->setCursor(Qt::ArrowCursor);
    emit enableToolbox(true);
    emit welcomePageVisible(false);
    // Pressing OK moves on to the module assistant; closing just gives the dock back.
    if (byOkButton)
        displayAssistant();
    else
        setParentFeatures(kAllDockFeatures);
}

void WidgetTree::enableAssistantContainer(bool enable)
{
    QQuickItem* root = assistantWidget->rootObject();
    if (!root || ui->assistantPlaceHolder->isEnabled() == enable || root->isEnabled() == enable)
        return;
    ui->assistantPlaceHolder->setEnabled(enable);
    root->setEnabled(enable);
}

void WidgetTree::onAssistantSizeChanged(const QSize& size)
{
    // The scroll area shows scroll bars once the assistant is larger than the page.
    assistantWidget->setMinimumSize(size);
}

void WidgetTree::qmlSettingsSavedInfo()
{
    static const QString key = QStringLiteral("ShowAssistantSettingsSaved");
    static bool showInfo = [] {
        const Settings::WAppSetting* group
            = Settings::WAppSettings::instance()->find_setting(kShowWindows);
        return group && group->valueOf(key, QVariant()).toBool();
    }();
    if (!showInfo)
        return;
    showInfo = !Utils::WMessageBox::infoWithOption(tr("All settings saved."),
                                                   tr("Don't show this message again"), QString(),
                                                   QApplication::activeWindow(), QString());
    if (showInfo)
        return;
    if (Settings::WAppSetting* group
        = Settings::WAppSettings::instance()->find_setting(kShowWindows)) {
        group->setValueOf(key, false);
        Settings::WAppSettings::instance()->save();
    }
}

bool WidgetTree::nodeIsBasicType(const Script::DItem& node)
{
    static const QStringList basicTypes
        = {QStringLiteral("IDataBasicBool"), QStringLiteral("IDataBasicDouble"),
           QStringLiteral("IDataBasicInt"), QStringLiteral("IDataBasicInt64"),
           QStringLiteral("IDataBasicString")};
    return basicTypes.contains(node.iDataType());
}

QString WidgetTree::extractStringFromBasicNode(const Script::DItem& node)
{
    // The order differs from the one of the shown text on purpose: an output that is both
    // waiting and in error copies as "Not Available".
    if (node.ioType() == Script::DItem::IoOutput && node.isInitialized())
        return tr("Not Available");
    if (node.ioType() == Script::DItem::IoOutput && node.hasErrorState())
        return tr("Error");
    if (node.ioType() == Script::DItem::IoInput && node.hasLinkError())
        return tr("Error");
    const QString& type = node.iDataType();
    if (type == QLatin1String("IDataBasicBool"))
        return node.property("IDataBasicBool.DynamicValue").toString();
    if (type == QLatin1String("IDataBasicDouble"))
        return QString::number(node.property("IDataNumeric.DynamicValue").toDouble(), 'f', 4);
    if (type == QLatin1String("IDataBasicInt"))
        return QString::number(node.property("IDataNumeric.DynamicValue").toInt());
    if (type == QLatin1String("IDataBasicInt64"))
        return QString::number(node.property("IDataNumeric.DynamicValue").toLongLong());
    if (type == QLatin1String("IDataBasicString"))
        return node.property("IDataBasicString.DynamicValue").toString();
    return QString();
}
