#include "plugincopy.h"

#include "navigator/widgettree.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <dlfcn.h>
#include <unistd.h>

namespace {

// Set for the second start, so that a preload the loader did not honour ends in a message
// rather than in starting again and again.
const char kRestarted[] = "PROPERTYWIDGETS_WORKBENCH_RESTARTED";

QString canonical(const QString& path)
{
    return QFileInfo(path).canonicalFilePath();
}

// The files mapped into this process whose names start with @p prefix, once each.
QStringList mappedFiles(const QString& prefix)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly))
        return {};
    QSet<QString> files;
    for (const QByteArray& line : maps.readAll().split('\n')) {
        const int slash = line.indexOf('/');
        if (slash < 0)
            continue;
        const QString file = QFile::decodeName(line.mid(slash));
        if (QFileInfo(file).fileName().startsWith(prefix))
            files.insert(canonical(file));
    }
    QStringList list = files.values();
    list.sort();
    return list;
}

} // namespace

bool PluginCopy::bUseOnly(const QString& path, char** argv, QString* error)
{
    const bool restarted = qEnvironmentVariableIsSet(kRestarted);
    if (restarted) {
        // Nothing that this process starts should inherit the preload.
        qunsetenv(kRestarted);
        qunsetenv("LD_PRELOAD");
    }
    const QString wanted = canonical(path);
    if (wanted.isEmpty() || wanted == canonical(sLinkedFile()))
        return true;
    if (restarted) {
        *error = QStringLiteral("%1 cannot stand in for %2: the dynamic loader kept the linked "
                                "library, so the file is no build of the plug-in, whose "
                                "library name is libpropertyWidgets.so.1")
                     .arg(wanted, sLinkedFile());
        return false;
    }
    // A sanitizer build needs its runtime first among the libraries, before the plug-in.
    QStringList preload = mappedFiles(QStringLiteral("libasan"));
    preload << wanted;
    if (qEnvironmentVariableIsSet("LD_PRELOAD"))
        preload << qEnvironmentVariable("LD_PRELOAD");
    qputenv("LD_PRELOAD", QFile::encodeName(preload.join(QLatin1Char(':'))));
    qputenv(kRestarted, "1");
    execv("/proc/self/exe", argv);
    *error = QStringLiteral("cannot start again with %1: %2").arg(wanted, qt_error_string(errno));
    return false;
}

QString PluginCopy::sLinkedFile()
{
    return sFileOf(reinterpret_cast<const void*>(&oWidgetDescriptorList));
}

QString PluginCopy::sFileOf(const void* address)
{
    Dl_info info {};
    if (!dladdr(address, &info) || !info.dli_fname)
        return QString();
    return canonical(QFile::decodeName(info.dli_fname));
}

QStringList PluginCopy::loadedCopies()
{
    return mappedFiles(QStringLiteral("libpropertyWidgets"));
}
