#ifndef PLUGINCOPY_H
#define PLUGINCOPY_H

#include <QString>
#include <QStringList>

/// Which build of the plug-in the workbench runs.
///
/// The workbench links the plug-in for its exported operations, as a host does, and loads it
/// again by path for its descriptor list. Loading a second build by path would put two copies
/// in the process, the workbench's own calls going to the linked one. So another build is made
/// the linked one: the program starts again with that file preloaded, and the dynamic loader
/// then takes it for the library of the same name that the program needs.
class PluginCopy
{
public:
    /// Makes @p path the one copy of the plug-in in this process: returns true when it is
    /// already, or when there is no such file (loading it then fails with its own message);
    /// otherwise starts the program again with @p argv and does not return, or returns false
    /// with the reason in @p error when that cannot be done.
    static bool bUseOnly(const QString& path, char** argv, QString* error);
    /// The file of the plug-in that the workbench is linked to, as loaded.
    static QString sLinkedFile();
    /// The file that holds the code at @p address.
    static QString sFileOf(const void* address);
    /// Every file of the plug-in mapped into this process.
    static QStringList loadedCopies();

    PluginCopy() = delete;
};

#endif
