// Opens jobs holding one text value of 1, 10 and 50 MB in the workbench, selects its module so
// that the row is built and painted, and reports the time and the heap that the job added.
#include "measures.h"
#include "workbenchwindow.h"

#include "sdk/wappsettings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdio>

#include <sys/resource.h>

namespace {

QString writeJob(const QTemporaryDir& folder, int megabytes)
{
    const QString path = folder.filePath(QStringLiteral("job%1.json").arg(megabytes));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return QString();
    file.write(R"({"name":"Big","modules":[{"name":"M","nodes":[)"
               R"({"name":"Text","type":"IDataBasicString","io":"input","value":")");
    // A line of readable words, repeated: shaping cost depends on the script, so a text a user
    // would write is measured rather than one repeated letter.
    const QByteArray line = "The quick brown fox jumps over the lazy dog 0123456789. ";
    const qint64 bytes = qint64(megabytes) << 20;
    for (qint64 written = 0; written < bytes; written += line.size())
        file.write(line);
    file.write(R"("}]}]})");
    return path;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    // The dock's Qt Quick parts have no OpenGL without a display.
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    QTemporaryDir folder;
    Settings::WAppSettings::instance()->open(folder.filePath(QStringLiteral("settings.ini")));
    Settings::WAppSettings::instance()->addSetting(QStringLiteral("PROPERTY_EDITOR"));
    Settings::WAppSettings::instance()->addSetting(QStringLiteral("SHOW_WINDOWS"));
    QTextStream out(stdout);
    out << "size    open+select+paint    heap kept    kept / size    peak RSS of the process\n";
    for (int megabytes : {1, 10, 50}) {
        const QString path = writeJob(folder, megabytes);
        WorkbenchWindow window;
        QString error;
        if (!window.bLoadPlugin(QStringLiteral(PLUGIN_PATH), &error)) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return 1;
        }
        window.resize(1100, 760);
        window.show();
        QApplication::processEvents();
        const std::size_t heapBefore = heapInUse();
        QElapsedTimer timer;
        timer.start();
        if (!window.bOpenJob(path, &error) || !window.bSelectNode(QStringLiteral("Big.M"))) {
            std::fprintf(stderr, "%s\n", qPrintable(error));
            return 1;
        }
        window.grab();
        const double seconds = timer.nsecsElapsed() / 1e9;
        const double added = double(heapInUse() - heapBefore);
        // The largest job comes last, so the peak so far is its peak.
        rusage usage {};
        getrusage(RUSAGE_SELF, &usage);
        out << QStringLiteral("%1 MB  %2 s              %3 MB     %4           %5 MB\n")
                   .arg(megabytes, 2)
                   .arg(seconds, 0, 'f', 2)
                   .arg(added / (1 << 20), 6, 'f', 1)
                   .arg(added / (qint64(megabytes) << 20), 0, 'f', 2)
                   .arg(usage.ru_maxrss / 1024);
        out.flush();
    }
    return 0;
}
