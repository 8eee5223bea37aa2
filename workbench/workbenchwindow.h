#ifndef WORKBENCHWINDOW_H
#define WORKBENCHWINDOW_H

#include "jobmodel.h"

#include "sdk/projectmode.h"
#include "sdk/visibilityinfo.h"

#include <QImage>
#include <QLibrary>
#include <QList>
#include <QMainWindow>

class JobHost;
class JobRunner;
class QAction;
class QDockWidget;
class QLabel;
class QMenu;
class QTranslator;
class RequestLog;
class WidgetTree;

namespace WidgetModules {
class WidgetDescriptor;
} // namespace WidgetModules

/// The workbench's main window: it plays the host application around the plug-in's dock.
///
/// The dock comes only through the plug-in's exported descriptor list, found with QLibrary,
/// and goes through the descriptor's destroy function, as in the real host.
class WorkbenchWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// How long a job may take to open before its progress is shown, in milliseconds.
    static constexpr int kProgressDelayMs = 500;

    /// The resource path of the sample job that the workbench embeds.
    static QString sSampleJobPath();

    /// Makes the window with an empty job and no dock yet.
    explicit WorkbenchWindow(QWidget* parent = nullptr);
    ~WorkbenchWindow() override;

    /// Loads the plug-in at @p path and docks its navigator. Returns false with the reason in
    /// @p error when the library, its entry or its "Navigator" descriptor is missing.
    bool bLoadPlugin(const QString& path, QString* error);
    /// Replaces the job by the tree under @p root, which the window takes over.
    void setJob(Script::DItem* root);
    /// Opens the job file at @p path, showing its progress when that takes a while; on failure
    /// keeps the job and says why in @p error.
    bool bOpenJob(const QString& path, QString* error);
    /// Selects the node at @p path in the job tree, which shows its values below; false when
    /// the job has no such node.
    bool bSelectNode(const QString& path);
    /// Opens the in-row editor of the value at @p path, as a click on its row does, or with
    /// @p dialog its value dialog, which has closed again on return; false with the reason in
    /// @p error when no row, no editor or no dialog is there.
    bool bOpenEditor(const QString& path, bool dialog, QString* error);
    /// The window as it looks, with a dialog that is open over it.
    QImage picture();
    /// Switches the texts of the window and of the plug-in to @p language ("en" or "de").
    bool bSetLanguage(const QString& language);

    /// The file of the plug-in whose descriptor made the dock, or empty before bLoadPlugin().
    QString sPluginFile() const;
    /// The plug-in's dock widget, or null before bLoadPlugin().
    WidgetTree* poNavigator() const;
    /// The job.
    JobModel& model();
    /// The list of requests received.
    RequestLog* poRequestLog() const;
    /// What makes the job's outputs move while it runs.
    JobRunner& runner();

protected:
    void changeEvent(QEvent* event) override;

private:
    void vCreateMenus();
    void vRetranslate();
    void vOnDockVisibility(bool visible);
    void vOpenJobFromDialog();
    void vApplyProjectFlags();

    JobModel m_oModel;
    Utils::ProjectMode m_oProjectMode;
    ItemVisibility::VisibilityInfo m_oVisibility;
    QLibrary m_oPlugin;
    WidgetModules::WidgetDescriptor* m_poDescriptor = nullptr;
    WidgetTree* m_poNavigator = nullptr;
    QDockWidget* m_poDock = nullptr;
    QDockWidget* m_poToolBoxDock = nullptr;
    RequestLog* m_poLog = nullptr;
    QLabel* m_poCameraState = nullptr;
    JobHost* m_poHost = nullptr;
    JobRunner* m_poRunner = nullptr;
    bool m_bDockHidden = true;
    bool m_bShowingAnnounced = false;
    QList<QTranslator*> m_lstTranslators;

    QMenu* m_poFileMenu = nullptr;
    QMenu* m_poViewMenu = nullptr;
    QMenu* m_poLanguageMenu = nullptr;
    QMenu* m_poProjectMenu = nullptr;
    QMenu* m_poJobMenu = nullptr;
    QMenu* m_poEditMenu = nullptr;
    QAction* m_poUndoAction = nullptr;
    QAction* m_poRedoAction = nullptr;
    QAction* m_poRunAction = nullptr;
    QAction* m_poOpenAction = nullptr;
    QAction* m_poSampleAction = nullptr;
    QAction* m_poQuitAction = nullptr;
    QAction* m_poExpertAction = nullptr;
    QAction* m_poEnglishAction = nullptr;
    QAction* m_poGermanAction = nullptr;
    QList<QAction*> m_lstProjectFlagActions;
};

#endif
