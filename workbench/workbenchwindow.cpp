#include "workbenchwindow.h"

#include "jobhost.h"
#include "moduletoolbox.h"
#include "jobloader.h"
#include "jobrunner.h"
#include "plugincopy.h"
#include "requestlog.h"

#include "editors/baseeditor.h"
#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "sdk/ditem.h"
#include "sdk/filedialog.h"
#include "sdk/filedialogprovider.h"
#include "sdk/metrics.h"
#include "sdk/widgetdescriptor.h"
#include "sdk/widgetinterface.h"
#include "sdk/wmessagebox.h"

#include <QActionGroup>
#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QEvent>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QProgressDialog>
#include <QStatusBar>
#include <QTabWidget>
#include <QTimer>
#include <QToolBar>
#include <QTranslator>

#include <memory>
#include <vector>

namespace {

using DescriptorList = std::vector<WidgetModules::WidgetDescriptor*>* (*)();

// The flags of the project mode that change what the dock lets the user do, with their labels.
struct ProjectFlag
{
    Utils::ProjectMode::Flag flag;
    const char* label;
};

const ProjectFlag kProjectFlags[] = {
    {Utils::ProjectMode::Locked, QT_TRANSLATE_NOOP("WorkbenchWindow", "Locked look")},
    {Utils::ProjectMode::Released, QT_TRANSLATE_NOOP("WorkbenchWindow", "Released")},
    {Utils::ProjectMode::EditingBlocked, QT_TRANSLATE_NOOP("WorkbenchWindow", "Editing blocked")},
    {Utils::ProjectMode::HardLocked, QT_TRANSLATE_NOOP("WorkbenchWindow", "Hard lock")},
};

// A flag's name with its number, so that the number the dock reads can be followed.
QString flagText(const ProjectFlag& flag)
{
    return QStringLiteral("%1 (%2)")
        .arg(QCoreApplication::translate("WorkbenchWindow", flag.label))
        .arg(int(flag.flag));
}

} // namespace

const int WorkbenchWindow::kProgressDelayMs;

QString WorkbenchWindow::sSampleJobPath()
{
    return QStringLiteral(":/workbench/jobs/sample-job.json");
}

WorkbenchWindow::WorkbenchWindow(QWidget* parent)
    : QMainWindow(parent)
    , m_poLog(new RequestLog(this))
{
    setObjectName(QStringLiteral("WorkbenchWindow"));
    ItemVisibility::VisibilityInfo::setInstance(&m_oVisibility);
    App::Metrics::setMainWindow(this);
    m_oProjectMode.setProjectMode(Utils::ProjectMode::Released);

    auto* tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("centralTabs"));
    tabs->addTab(m_poLog, QString());
    setCentralWidget(tabs);
    m_poHost = new JobHost(m_oModel, *m_poLog, this);
    m_poRunner = new JobRunner(m_oModel, this);
    connect(m_poHost, &JobHost::statusMessage, this,
            [this](const QString& text) { statusBar()->showMessage(text, 5000); });

    // The workbench drives no camera; saying so makes sense of the dock's offline message on
    // camera values.
    m_poCameraState = new QLabel(this);
    m_poCameraState->setObjectName(QStringLiteral("cameraStateLabel"));
    statusBar()->addPermanentWidget(m_poCameraState);

    vCreateMenus();
    vRetranslate();
    resize(1100, 760);
}

WorkbenchWindow::~WorkbenchWindow()
{
    // The dock reports its hiding while the window's base is destroyed; this part is gone then.
    if (m_poDock)
        m_poDock->disconnect(this);
    if (m_poNavigator) {
        if (!m_bDockHidden)
            m_poNavigator->hidingWidget();
        // The plug-in made the widget, so the plug-in ends it, before the dock would.
        m_poDock->setWidget(nullptr);
        m_poDescriptor->destroyFunction()(m_poNavigator);
    }
    for (QTranslator* translator : qAsConst(m_lstTranslators))
        QCoreApplication::removeTranslator(translator);
    qDeleteAll(m_lstTranslators);
}

bool WorkbenchWindow::bLoadPlugin(const QString& path, QString* error)
{
    m_oPlugin.setFileName(path);
    if (!m_oPlugin.load()) {
        *error = m_oPlugin.errorString();
        return false;
    }
    auto list = reinterpret_cast<DescriptorList>(m_oPlugin.resolve("oWidgetDescriptorList"));
    if (!list) {
        *error = tr("%1 has no widget descriptor list.").arg(path);
        return false;
    }
    for (WidgetModules::WidgetDescriptor* descriptor : *list()) {
        if (descriptor && descriptor->name() == "Navigator")
            m_poDescriptor = descriptor;
    }
    if (!m_poDescriptor) {
        *error = tr("%1 offers no navigator.").arg(path);
        return false;
    }
    WidgetModules::WidgetInterface* instance = m_poDescriptor->createFunction()();
    m_poNavigator = dynamic_cast<WidgetTree*>(instance);
    if (!m_poNavigator) {
        *error = tr("The navigator of %1 is not the widget this workbench knows.").arg(path);
        m_poDescriptor->destroyFunction()(instance);
        return false;
    }
    m_poDock = new QDockWidget(this);
    m_poDock->setObjectName(QStringLiteral("jobTreeDock"));
    m_poDock->setWidget(m_poNavigator);
    addDockWidget(Qt::LeftDockWidgetArea, m_poDock);
    resizeDocks({m_poDock}, {430}, Qt::Horizontal);
    m_poToolBoxDock = new QDockWidget(this);
    m_poToolBoxDock->setObjectName(QStringLiteral("moduleToolBoxDock"));
    m_poToolBoxDock->setWidget(new ModuleToolBox(m_poToolBoxDock));
    addDockWidget(Qt::RightDockWidgetArea, m_poToolBoxDock);
    connect(m_poHost, &JobHost::toolBoxRequested, m_poToolBoxDock, [this] {
        m_poToolBoxDock->show();
        m_poToolBoxDock->raise();
        m_poToolBoxDock->widget()->setFocus();
    });
    connect(m_poDock, &QDockWidget::visibilityChanged, this, &WorkbenchWindow::vOnDockVisibility);
    m_poNavigator->setResources(m_oModel.poScene(), &m_oProjectMode);
    m_poHost->vAttach(m_poNavigator);
    // The dock is about to appear with the window.
    m_poNavigator->showingWidget();
    m_bShowingAnnounced = true;
    vRetranslate();
    return true;
}

void WorkbenchWindow::vOnDockVisibility(bool visible)
{
    if (!m_poNavigator || visible != m_bDockHidden)
        return;
    m_bDockHidden = !visible;
    if (!visible) {
        m_poNavigator->hidingWidget();
        return;
    }
    // The first showing was announced when the dock was made; later ones are announced here.
    if (!m_bShowingAnnounced)
        m_poNavigator->showingWidget();
    m_bShowingAnnounced = false;
    m_poNavigator->shown();
}

void WorkbenchWindow::setJob(Script::DItem* root)
{
    m_poHost->vDropJob();
    m_oModel.setJob(root);
    m_poHost->vFillTree();
    setWindowFilePath(root ? root->iDataPath() : QString());
}

bool WorkbenchWindow::bOpenJob(const QString& path, QString* error)
{
    // Shown only when the load takes longer than half a second; a small job opens unseen.
    QProgressDialog progress(tr("Opening %1...").arg(QFileInfo(path).fileName()), QString(), 0,
                             100, isVisible() ? this : nullptr);
    progress.setObjectName(QStringLiteral("openJobProgress"));
    progress.setWindowTitle(tr("Open Job"));
    progress.setWindowModality(Qt::ApplicationModal);
    progress.setMinimumDuration(kProgressDelayMs);
    progress.setAutoReset(false);
    progress.setValue(0);
    Script::DItem* root = JobLoader::poLoadFile(
        path, error, [&progress](int percent) { progress.setValue(qMin(percent, 99)); });
    if (root)
        setJob(root);
    progress.setValue(100);
    return root != nullptr;
}

bool WorkbenchWindow::bSelectNode(const QString& path)
{
    QTreeWidgetItem* item = m_poNavigator ? m_poNavigator->poFindItem(path) : nullptr;
    if (!item)
        return false;
    m_poHost->poTree()->setCurrentItem(item);
    return true;
}

bool WorkbenchWindow::bOpenEditor(const QString& path, bool dialog, QString* error)
{
    PropertyBrowser::WTreePropertyBrowser* browser = m_poHost->poBrowser();
    PropertyBrowser::WidgetProperty* row = browser ? browser->getWProperty(path) : nullptr;
    QtBrowserItem* item = row ? browser->getBrowserItem(*row) : nullptr;
    if (!item) {
        *error = tr("the property tree shows no value \"%1\"").arg(path);
        return false;
    }
    if (dialog) {
        // The dialog runs in a loop of its own; a check queued now runs inside that loop if a
        // dialog came up, and only after the return if none did.
        auto shown = std::make_shared<bool>(false);
        QTimer::singleShot(0, this, [shown] {
            QWidget* modal = QApplication::activeModalWidget();
            *shown = modal && modal->inherits("PropertyBrowser::Editors::WidgetSetNode");
        });
        // The dock's own way to the dialog; it returns when the dialog closes.
        m_poNavigator->showDefaultLinkWidget(path, QString());
        if (!*shown)
            *error = tr("the value \"%1\" has no value dialog").arg(path);
        return *shown;
    }
    browser->editItem(item);
    if (!browser->findChild<PropertyBrowser::Editors::BaseEditor*>()) {
        *error = tr("the value \"%1\" has no editor").arg(path);
        return false;
    }
    return true;
}

QImage WorkbenchWindow::picture()
{
    QImage image = grab().toImage();
    // A modal dialog is a window of its own; it is drawn where it stands over this one.
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
        QPainter painter(&image);
        painter.drawPixmap(dialog->frameGeometry().topLeft() - frameGeometry().topLeft(),
                           dialog->grab());
    }
    return image;
}

void WorkbenchWindow::vOpenJobFromDialog()
{
    const FileDialogProvider provider(FileDialogProvider::createCommonUrls(false, false, true),
                                      {{tr("Job files"), QStringLiteral("*.json")}}, 0);
    FileDialog dialog(provider, this);
    const QUrl url = dialog.getOpenFileUrl();
    if (url.isEmpty())
        return;
    QString error;
    if (!bOpenJob(url.toLocalFile(), &error))
        Utils::WMessageBox::warning(tr("The job could not be opened."), error, this);
}

bool WorkbenchWindow::bSetLanguage(const QString& language)
{
    for (QTranslator* translator : qAsConst(m_lstTranslators))
        QCoreApplication::removeTranslator(translator);
    qDeleteAll(m_lstTranslators);
    m_lstTranslators.clear();
    bool complete = true;
    if (language != QLatin1String("en")) {
        // The plug-in's texts, the host's, and the names in the sample jobs.
        const QStringList catalogs
            = {QStringLiteral(":/i18n/propertyWidgets_%1.qm"),
               QStringLiteral(":/i18n/workbench_%1.qm"), QStringLiteral(":/i18n/jobnames_%1.qm")};
        for (const QString& catalog : catalogs) {
            auto* translator = new QTranslator;
            if (translator->load(catalog.arg(language))) {
                QCoreApplication::installTranslator(translator);
                m_lstTranslators.append(translator);
            } else {
                delete translator;
                complete = false;
            }
        }
        // Qt's own texts (buttons of the standard dialogs) when the system has them.
        auto* qtTexts = new QTranslator;
        if (qtTexts->load(QStringLiteral("qtbase_") + language,
                          QLibraryInfo::location(QLibraryInfo::TranslationsPath))) {
            QCoreApplication::installTranslator(qtTexts);
            m_lstTranslators.append(qtTexts);
        } else {
            delete qtTexts;
        }
    }
    m_poEnglishAction->setChecked(language == QLatin1String("en"));
    m_poGermanAction->setChecked(language == QLatin1String("de"));
    return complete;
}

QString WorkbenchWindow::sPluginFile() const
{
    return m_poDescriptor
        ? PluginCopy::sFileOf(reinterpret_cast<const void*>(m_poDescriptor->createFunction()))
        : QString();
}

WidgetTree* WorkbenchWindow::poNavigator() const
{
    return m_poNavigator;
}

JobModel& WorkbenchWindow::model()
{
    return m_oModel;
}

RequestLog* WorkbenchWindow::poRequestLog() const
{
    return m_poLog;
}

JobRunner& WorkbenchWindow::runner()
{
    return *m_poRunner;
}

void WorkbenchWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        vRetranslate();
}

void WorkbenchWindow::vCreateMenus()
{
    m_poFileMenu = menuBar()->addMenu(QString());
    m_poOpenAction = m_poFileMenu->addAction(QString(), this, &WorkbenchWindow::vOpenJobFromDialog,
                                             QKeySequence::Open);
    m_poSampleAction = m_poFileMenu->addAction(QString(), this, [this] {
        QString error;
        bOpenJob(sSampleJobPath(), &error);
    });
    m_poFileMenu->addSeparator();
    m_poQuitAction = m_poFileMenu->addAction(QString(), this, &QWidget::close, QKeySequence::Quit);

    // Structural changes of the job are the host's to take back; the dock keeps no history.
    m_poEditMenu = menuBar()->addMenu(QString());
    m_poUndoAction = m_poEditMenu->addAction(QString(), &m_oModel, &JobModel::bUndo,
                                             QKeySequence(Qt::CTRL | Qt::Key_Z));
    m_poUndoAction->setObjectName(QStringLiteral("undoAction"));
    m_poRedoAction = m_poEditMenu->addAction(QString(), &m_oModel, &JobModel::bRedo,
                                             QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    m_poRedoAction->setObjectName(QStringLiteral("redoAction"));
    auto followHistory = [this] {
        m_poUndoAction->setEnabled(m_oModel.canUndo());
        m_poRedoAction->setEnabled(m_oModel.canRedo());
    };
    connect(&m_oModel, &JobModel::undoStateChanged, this, followHistory);
    followHistory();

    m_poViewMenu = menuBar()->addMenu(QString());
    m_poExpertAction = m_poViewMenu->addAction(QString());
    m_poExpertAction->setObjectName(QStringLiteral("expertViewAction"));
    m_poExpertAction->setCheckable(true);
    // The host follows the mode wherever it is switched.
    connect(m_poExpertAction, &QAction::toggled, this, [this](bool expert) {
        m_oVisibility.setVisibilityMode(expert ? ItemVisibility::VisibilityInfo::ExpertView
                                               : ItemVisibility::VisibilityInfo::NormalView);
    });
    m_poLanguageMenu = m_poViewMenu->addMenu(QString());
    auto* languages = new QActionGroup(this);
    m_poEnglishAction = m_poLanguageMenu->addAction(QStringLiteral("English"));
    m_poGermanAction = m_poLanguageMenu->addAction(QStringLiteral("Deutsch"));
    for (QAction* action : {m_poEnglishAction, m_poGermanAction}) {
        action->setCheckable(true);
        languages->addAction(action);
    }
    m_poEnglishAction->setChecked(true);
    connect(m_poEnglishAction, &QAction::triggered, this, [this] { bSetLanguage("en"); });
    connect(m_poGermanAction, &QAction::triggered, this, [this] { bSetLanguage("de"); });

    m_poJobMenu = menuBar()->addMenu(QString());
    m_poRunAction = m_poJobMenu->addAction(QString());
    m_poRunAction->setCheckable(true);
    m_poRunAction->setShortcut(Qt::Key_F5);
    connect(m_poRunAction, &QAction::toggled, m_poRunner, &JobRunner::setRunning);
    connect(m_poRunner, &JobRunner::runningChanged, m_poRunAction, &QAction::setChecked);
    QToolBar* tools = addToolBar(QString());
    tools->setObjectName(QStringLiteral("jobToolBar"));
    tools->setMovable(false);
    tools->addAction(m_poRunAction);

    m_poProjectMenu = menuBar()->addMenu(QString());
    for (const ProjectFlag& flag : kProjectFlags) {
        QAction* action = m_poProjectMenu->addAction(QString());
        action->setCheckable(true);
        action->setChecked(m_oProjectMode.contains(flag.flag));
        action->setData(int(flag.flag));
        connect(action, &QAction::toggled, this, &WorkbenchWindow::vApplyProjectFlags);
        m_lstProjectFlagActions.append(action);
    }
}

void WorkbenchWindow::vApplyProjectFlags()
{
    int mode = 0;
    QStringList names;
    for (int i = 0; i < m_lstProjectFlagActions.size(); ++i) {
        const QAction* action = m_lstProjectFlagActions.at(i);
        if (!action->isChecked())
            continue;
        mode |= action->data().toInt();
        names << flagText(kProjectFlags[i]);
    }
    m_oProjectMode.setProjectMode(mode);
    // The dock reads only the number; the names say what it is made of.
    statusBar()->showMessage(
        tr("Project mode %1: %2")
            .arg(mode)
            .arg(names.isEmpty() ? tr("no flags") : names.join(QStringLiteral(", "))),
        5000);
}

void WorkbenchWindow::vRetranslate()
{
    setWindowTitle(tr("Workbench"));
    m_poCameraState->setText(tr("Camera: offline"));
    m_poCameraState->setToolTip(tr("The workbench has no camera. The camera module's values are "
                                   "shown as the job holds them, and changes that need the camera "
                                   "are refused, as in offline mode."));
    if (auto* tabs = qobject_cast<QTabWidget*>(centralWidget()))
        tabs->setTabText(0, tr("Requests"));
    if (m_poDock)
        m_poDock->setWindowTitle(QCoreApplication::translate("QObject", "Job Tree"));
    m_poFileMenu->setTitle(tr("&File"));
    m_poOpenAction->setText(tr("&Open Job..."));
    m_poSampleAction->setText(tr("&Sample Job"));
    m_poQuitAction->setText(tr("&Quit"));
    m_poViewMenu->setTitle(tr("&View"));
    m_poExpertAction->setText(tr("&Expert View"));
    m_poLanguageMenu->setTitle(tr("&Language"));
    m_poJobMenu->setTitle(tr("&Job"));
    m_poRunAction->setText(tr("&Run"));
    m_poEditMenu->setTitle(tr("&Edit"));
    m_poUndoAction->setText(tr("&Undo"));
    m_poRedoAction->setText(tr("&Redo"));
    if (m_poToolBoxDock)
        m_poToolBoxDock->setWindowTitle(tr("Modules"));
    m_poRunAction->setToolTip(tr("Runs the job: its outputs change several times a second (F5)"));
    m_poProjectMenu->setTitle(tr("&Project"));
    for (int i = 0; i < m_lstProjectFlagActions.size(); ++i)
        m_lstProjectFlagActions.at(i)->setText(flagText(kProjectFlags[i]));
}
