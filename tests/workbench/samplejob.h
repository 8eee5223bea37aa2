#ifndef SAMPLEJOB_H
#define SAMPLEJOB_H

#include <QString>

/// The paths of the workbench's embedded sample job.
namespace SampleJob {

/// The job's root.
inline QString root()
{
    return QStringLiteral("Module Application");
}

/// The path of @p relative below the root, or the root's own for an empty text.
inline QString path(const QString& relative)
{
    return relative.isEmpty() ? root() : root() + QLatin1Char('.') + relative;
}

} // namespace SampleJob

#endif
