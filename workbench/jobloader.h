#ifndef JOBLOADER_H
#define JOBLOADER_H

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <functional>

namespace Script {
class DItem;
}

/// Builds a job, a tree of host nodes, from its JSON description.
///
/// The format is told in the README. A job file comes from outside the process, so every
/// field is checked: a wrong document gives an error text and no job, never a half-built one.
class JobLoader
{
public:
    /// Returns the root node of the job described by @p json, owned by the caller, or null
    /// with the reason in @p error.
    static Script::DItem* poLoad(const QByteArray& json, QString* error);

    /// The path of every job's root, as the host names it: a module's path is this, a full
    /// stop and the module's name.
    static const QString kRootPath;

    /// Told how far a load has come, in percent, rising to 100 at the end.
    using Progress = std::function<void(int percent)>;

    /// Reads the file at @p path and loads it as poLoad() does, telling @p progress as it goes.
    static Script::DItem* poLoadFile(const QString& path, QString* error,
                                     const Progress& progress = Progress());

    /// Builds the module described by @p module below the node at @p parentPath, with its
    /// nodes; returns it, owned by the caller, or null with the reason in @p error. Links are
    /// not checked: they may point anywhere in the job it joins.
    static Script::DItem* poLoadModule(const QJsonObject& module, const QString& parentPath,
                                       QString* error);

    JobLoader() = delete;
};

#endif
