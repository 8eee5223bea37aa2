// The workbench: a stand-in host application that loads the navigator plug-in, holds a job and
// answers the plug-in's requests, so that the dock can be seen and tried as a user meets it.
#include "workbenchwindow.h"

#include "jobrunner.h"
#include "plugincopy.h"
#include "sdk/ditem.h"

#include "sdk/wappsetting.h"
#include "sdk/wappsettings.h"
#include "sdk/wmessagebox.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QQuickWindow>
#include <QStandardPaths>
#include <QTimer>

#include <cstdio>
#include <memory>
#include <vector>

namespace {

// The dock reads these groups as it is made, so they exist before it, with their defaults.
void prepareSettings()
{
    Settings::WAppSettings* settings = Settings::WAppSettings::instance();
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
    QDir().mkpath(folder);
    settings->open(folder + QStringLiteral("/workbench.ini"));
    Settings::WAppSetting* windows = settings->addSetting(QStringLiteral("SHOW_WINDOWS"));
    for (const char* key : {"ShowWelcomePage", "ShowAssistantSettingsSaved"}) {
        if (!windows->valueOf(QLatin1String(key), QVariant()).isValid())
            windows->setValueOf(QLatin1String(key), true);
    }
    // Until the user moves it, the splitter leaves the names room for a usual name.
    Settings::WAppSetting* editor = settings->addSetting(QStringLiteral("PROPERTY_EDITOR"));
    if (!editor->valueOf(QStringLiteral("SplitterPos"), QVariant()).isValid())
        editor->setValueOf(QStringLiteral("SplitterPos"), 220);
}

QtMessageHandler defaultHandler = nullptr;

// Without a display the platform says, each time a window is shown, that it cannot pass on size
// hints; that is no news to someone who chose it, and it would bury what matters.
void quietOffscreenHandler(QtMsgType type, const QMessageLogContext& context,
                           const QString& message)
{
    if (type == QtWarningMsg
        && message.startsWith(QLatin1String("This plugin does not support propagateSizeHints()")))
        return;
    defaultHandler(type, context, message);
}

int fail(const QString& message)
{
    std::fprintf(stderr, "workbench: %s\n", qPrintable(message));
    return 1;
}

} // namespace

int main(int argc, char* argv[])
{
    // The arguments as given, for a start again: the application takes out those it reads.
    std::vector<char*> arguments(argv, argv + argc + 1);
    QApplication application(argc, argv);
    // Without a display there is no OpenGL for the Qt Quick parts of the dock.
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
        defaultHandler = qInstallMessageHandler(quietOffscreenHandler);
    }
    QApplication::setApplicationName(QStringLiteral("workbench"));
    QApplication::setOrganizationName(QStringLiteral("PropertyWidgets"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Plays the host application around the Job Tree plug-in."));
    parser.addHelpOption();
    const QCommandLineOption jobOption(QStringLiteral("job"),
                                       QStringLiteral("Opens the job file <file> (JSON)."),
                                       QStringLiteral("file"));
    const QCommandLineOption languageOption(
        QStringLiteral("lang"), QStringLiteral("Shows the texts in <language>: en or de."),
        QStringLiteral("language"), QStringLiteral("en"));
    const QCommandLineOption screenshotOption(
        QStringLiteral("screenshot"),
        QStringLiteral(
            "Saves a picture of the window to <file> once the job is shown, then exits."),
        QStringLiteral("file"));
    const QCommandLineOption selectOption(
        QStringLiteral("select"),
        QStringLiteral("Selects the node at <path> (default with --screenshot: the first module)."),
        QStringLiteral("path"));
    const QCommandLineOption runOption(QStringLiteral("run"),
                                       QStringLiteral("Starts the job running."));
    const QCommandLineOption editOption(
        QStringLiteral("edit"),
        QStringLiteral("Opens the editor of the value at <path> (its module is selected)."),
        QStringLiteral("path"));
    const QCommandLineOption dialogOption(
        QStringLiteral("dialog"),
        QStringLiteral("Opens the value dialog of the value at <path> (its module is selected)."),
        QStringLiteral("path"));
    // The plug-in of the same build or installation by default; the environment or the command
    // line may name another. Qt itself takes "-plugin", hence the longer name.
    const QString defaultPlugin = qEnvironmentVariableIsSet("PROPERTYWIDGETS_PLUGIN")
        ? qEnvironmentVariable("PROPERTYWIDGETS_PLUGIN")
        : QApplication::applicationDirPath() + QStringLiteral("/../lib/libpropertyWidgets.so");
    const QCommandLineOption pluginOption(
        QStringLiteral("plugin-path"),
        QStringLiteral("Loads the plug-in from <path> (default: $PROPERTYWIDGETS_PLUGIN, or the "
                       "library beside this program)."),
        QStringLiteral("path"), defaultPlugin);
    const QCommandLineOption whichOption(
        QStringLiteral("which-plugin"),
        QStringLiteral("Prints the file of the plug-in that answers, and every copy of it in "
                       "the process, then exits."));
    parser.addOptions({jobOption, languageOption, screenshotOption, selectOption, runOption,
                       editOption, dialogOption, pluginOption, whichOption});
    parser.process(application);

    QString error;
    if (!PluginCopy::bUseOnly(parser.value(pluginOption), arguments.data(), &error))
        return fail(error);
    prepareSettings();
    auto windowOwner = std::make_unique<WorkbenchWindow>();
    WorkbenchWindow& window = *windowOwner;
    if (!window.bLoadPlugin(parser.value(pluginOption), &error))
        return fail(error);
    if (parser.isSet(whichOption)) {
        std::printf("plug-in: %s\n", qPrintable(window.sPluginFile()));
        for (const QString& copy : PluginCopy::loadedCopies())
            std::printf("copy: %s\n", qPrintable(copy));
        return 0;
    }
    const QString job
        = parser.isSet(jobOption) ? parser.value(jobOption) : WorkbenchWindow::sSampleJobPath();
    if (!window.bOpenJob(job, &error))
        return fail(error);
    const QString language = parser.value(languageOption);
    if (language != QLatin1String("en") && !window.bSetLanguage(language))
        return fail(QStringLiteral("no translation for \"%1\"").arg(language));

    // A value to edit is shown among the values of its module.
    const QString valuePath
        = parser.isSet(dialogOption) ? parser.value(dialogOption) : parser.value(editOption);
    QString selection = parser.value(selectOption);
    if (selection.isEmpty() && !valuePath.isEmpty())
        selection = valuePath.section(QLatin1Char('.'), 0, -2);
    if (selection.isEmpty() && parser.isSet(screenshotOption)) {
        const QList<Script::DItem*> modules = window.model().poRoot()->childNodes();
        if (!modules.isEmpty())
            selection = modules.first()->iDataPath();
    }
    if (!selection.isEmpty() && !window.bSelectNode(selection))
        return fail(QStringLiteral("the job has no node \"%1\"").arg(selection));
    if (parser.isSet(runOption))
        window.runner().setRunning(true);

    window.show();
    if (!valuePath.isEmpty()) {
        const bool dialog = parser.isSet(dialogOption);
        // Once the window is up, as a click of the user would come.
        QTimer::singleShot(0, &window, [&window, valuePath, dialog] {
            QString problem;
            if (!window.bOpenEditor(valuePath, dialog, &problem)) {
                fail(problem);
                QApplication::exit(1);
            }
        });
    }
    if (parser.isSet(screenshotOption)) {
        const QString file = parser.value(screenshotOption);
        // Qt Quick parts render on the next frames; half a second lets them settle.
        QTimer::singleShot(500, &window, [&window, file] {
            const bool saved = window.picture().save(file);
            if (!saved)
                std::fprintf(stderr, "workbench: cannot write %s\n", qPrintable(file));
            QApplication::exit(saved ? 0 : 1);
        });
    }
    const int result = application.exec();
    // The dock writes its settings as it ends; like the real host, the workbench saves them
    // once everything is closed.
    windowOwner.reset();
    Settings::WAppSettings::instance()->save();
    return result;
}
