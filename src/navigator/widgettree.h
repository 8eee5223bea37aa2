#ifndef WIDGETTREE_H
#define WIDGETTREE_H

#include "sdk/appfiletype.h"
#include "sdk/command.h"
#include "sdk/widgetinterface.h"
#include "wutils/wrequest.h"

#include <QDockWidget>
#include <QList>
#include <QMetaType>
#include <QPointer>
#include <QString>
#include <QTreeWidgetItem>
#include <QVariant>
#include <QWidget>

#include <memory>
#include <vector>

class DisabledLookStyle;
class QAction;
class QMouseEvent;
class QtBrowserItem;
class QMenu;
class QQuickWidget;
class Ui_NavigatorWidgetLayout;
class WidgetTreeView;

namespace ItemVisibility {
class VisibilityInfo;
}

namespace Script {
class DItem;
}

namespace PropertyBrowser {
class WTreePropertyBrowser;
}

namespace WidgetModules {
class WidgetDescriptor;
}

// Requests travel by value in treeReq and in the QVariant-based machinery of the host.
Q_DECLARE_METATYPE(WRequest<QVariant>)

/// The plug-in's list of widget descriptors. Each call appends the navigator's descriptor, so
/// the list grows by one entry per call. The host resolves it by name with QLibrary.
extern "C" std::vector<WidgetModules::WidgetDescriptor*>* oWidgetDescriptorList();

/// The item whose name is being edited in the job tree, from the start of a rename until its
/// text changes; null otherwise.
extern QTreeWidgetItem* gSelectedTreeItem;

/// Whether @p name holds a character that a node name must not have: ? " \ / < > * | : or a
/// full stop.
bool bInvalidItemName(const QString& name);

/// The navigator dock's top widget: the job tree above, the property browser or an assistant
/// below. Every user action leaves it as a request on treeReq; it changes no job data itself.
class WidgetTree : public QWidget, public WidgetModules::WidgetInterface
{
    Q_OBJECT

public:
    /// Builds the whole dock, without scene and without project mode.
    WidgetTree(QWidget* parent, Qt::WindowFlags flags);
    /// Stores the dismissal of the welcome page and ends the widget.
    ~WidgetTree() override;

    /// The navigator's descriptor, made on the first call.
    static WidgetModules::WidgetDescriptor* classDescriptor();
    /// Makes a navigator for the host; the descriptor's create function.
    static WidgetModules::WidgetInterface* poCreateInstance();
    /// Ends a navigator made by poCreateInstance(); null is ignored.
    static void vDestroyInstance(WidgetModules::WidgetInterface* instance);

    /// The navigator's descriptor.
    WidgetModules::WidgetDescriptor* getModuleDescriptor() override;
    /// Applies the project mode and chooses between the welcome page, the module assistant
    /// and nothing, as the dock is about to appear.
    void showingWidget() override;
    /// Locks the dock in place while the welcome page is on.
    void shown() override;
    /// Stops following the project mode as the dock goes.
    void hidingWidget() override;

    /// Empties the tree, drops every connection of this object's signals and forgets the file
    /// type.
    void cleanup();
    /// Sets the features of the dock that holds this widget; does nothing without one.
    void setParentFeatures(QDockWidget::DockWidgetFeatures features);

    /// The row of the node at @p path, or null; the "Add Module" and preview rows are skipped.
    QTreeWidgetItem* poFindItem(const QString& path) const;
    /// The selected rows of the tree.
    QList<QTreeWidgetItem*> selectedTreeItems() const;
    /// Clears the tree's selection.
    void clearTreeSelection();
    /// Opens the value dialog of the row of the node at @p nodePath on its link page, with
    /// @p link preselected; nothing happens for a node without a row.
    void showDefaultLinkWidget(const QString& nodePath, const QString& link);
    /// Sets the translated name as the text and tool tip of @p item and its descendants.
    void retranslateTree(QTreeWidgetItem* item);

    /// Whether @p node holds a plain value that can be copied as text: a bool, double, int,
    /// 64-bit int or string node. Enumerations are left out on purpose.
    static bool nodeIsBasicType(const Script::DItem& node);
    /// The text that "Copy Node Value to Clipboard" puts on the clipboard for @p node; the states
    /// "Not Available" and "Error" come before the value, and other types give an empty text.
    static QString extractStringFromBasicNode(const Script::DItem& node);
    /// The "Add Module" row, for the host to place in the tree outside the job root's subtree.
    QTreeWidgetItem* poAddModuleItem();

    /// Whether the project mode lets the user change nodes: false only with both the locked
    /// look and the hard lock set.
    bool isNodeEditingAllowed() const;

    /// Whether the module assistant or the welcome page is showing.
    bool isAssistantVisible() const;
    /// Whether the welcome page is showing.
    bool isWelcomeAssistantOn() const;
    /// Shows or hides the strip that starts the module assistant.
    void showStartAssistantButton(bool show);

signals:
    /// A request to the host; the host answers in @p reply before the emission returns, so
    /// every connection must be direct.
    void treeReq(WRequest<QVariant> request, QVariant& reply);
    /// The texts were translated again.
    void retranslate();
    /// Asks the host to enable or disable its tool box of modules.
    void enableToolbox(bool enable);
    /// The welcome page appeared or went.
    void welcomePageVisible(bool visible);
    /// The module assistant appeared or went.
    void assistantWidgetVisible(bool visible);

public slots:
    /// Leaves the welcome page when the host leaves the normal view.
    void onViewModeChanged(bool normalView);
    /// Opens or closes the module assistant, asking the host to load or unload it when
    /// @p makeRequest is true.
    void setAssistantVisibility(bool visibility = false, bool makeRequest = true);
    /// Enables or disables the module assistant's page and its QML root.
    void enableAssistantContainer(bool enable);

protected:
    /// Translates the dock again on a change of language.
    void changeEvent(QEvent* event) override;
    /// The tree's menu for the current row: copy path and value, visibility (expert view),
    /// rename, delete and colour feedback, as the node allows.
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Delete asks the host to delete the current node, Ctrl+C marks the current module for
    /// copying, and Ctrl+V asks to paste the marked module after the current one.
    void keyPressEvent(QKeyEvent* event) override;

private slots:
    void vNodePropertyEdited(const QString& nodePath, VardeenDefs::PropertyEditor::Command cmd,
                             const QVariant& params = QVariant(), bool preview = false);
    void onProjectModeChanged();
    void onFileTypeChanged(AppSpecifficFileType type);
    void vClosedEditor();
    void onAssistantSizeChanged(const QSize& size);
    void welcomeAssistantHandler();
    void displayAssistant();
    void onDisplayToolTip();
    void vLinkClicked(const QString& path);
    void setEditingState(bool editing);
    void vPropertyEditorMouseEvent(QMouseEvent* event, QtBrowserItem* browserItem);
    void requestDataRefresh(const QString& nodePath);
    void requestSaveToFile(const QString& nodePath);
    void requestLoadFromFile(const QString& nodePath);
    void requestUnloadFile(const QString& nodePath);
    void renameCurrentItem();
    void deleteCurrentItem();
    void deleteProperty();
    void changeItemVisibility(bool visible);
    void changeUseColorVal(bool use);
    void copyItemPath();
    void copyItemValue();
    void itemWasChanged(QTreeWidgetItem* item, int column);
    void treeReqSlot();
    bool checkTreeItem(const QString& moduleID, const QString& insertionPath);
    void insertNewItem(const QString& moduleID, const QString& insertionPath,
                       QString moduleName = QString());
    void pasteItem(const QString& moduleID, const QString& insertionPath);
    void moveItem(const QString& moduleID, const QString& insertionPath);
    void copyItem(bool byMouse);
    void copyItemAction();
    void showToolBox();
    void qmlSettingsSavedInfo();

private:
    void connectWidgets();
    void createAndConnectActions();
    void retranslateWidget();
    void resetActionTexts();
    void addCopyActions(QMenu& menu, const Script::DItem& node);
    void addVisibleAction(QMenu& menu, const Script::DItem& node,
                          const ItemVisibility::VisibilityInfo& visibility);
    void addUseColorAction(QMenu& menu, const Script::DItem& node);
    static void putOnClipboard(const QString& format, const QByteArray& bytes);
    QTreeWidgetItem* markedItem();
    void sendPlacement(int id, const QString& module, const QString& insertionPath);
    QVariant sendRequest(int category, int id, const WParam<QVariant>& param, QVariant reply);
    void showWelcome();
    void openAssistant();
    void closeAssistant();
    void showAssistantErrors();

    WidgetTreeView* tree;
    PropertyBrowser::WTreePropertyBrowser* propertyBrowser;
    QQuickWidget* assistantWidget;
    std::unique_ptr<Ui_NavigatorWidgetLayout> ui;
    QTreeWidgetItem* copiedItem;
    // The path of the marked module, of which copiedItem is the row found last.
    QString copiedPath;
    QAction* actionDelete;
    QAction* actionDeleteProperty;
    QAction* actionRename;
    QAction* actionVisible;
    QAction* actionUseColor;
    QAction* actionCopyPath;
    QAction* actionCopyModule;
    QAction* actionCopyValue;
    DisabledLookStyle* disabledStyle;
    int editingCount;
    int projectModeValue;
    QPointer<QObject> welcomeOkButton;
    bool showWelcomePage;
    AppSpecifficFileType fileType;
    bool hiddenWithFile;
    QTreeWidgetItem addModuleItem;
};

#endif
