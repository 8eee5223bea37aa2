#ifndef MODULECATALOG_H
#define MODULECATALOG_H

#include <QJsonObject>
#include <QList>
#include <QString>

/// The kinds of module the workbench's tool box offers, and what a new one holds.
class ModuleCatalog
{
public:
    /// One kind of module.
    struct Entry
    {
        QString id; ///< What the tool box's drag carries; never translated.
        QString name; ///< The name of a new module, made unique in the job.
        QString icon; ///< Resource path of the icon.
        bool acquisition = false; ///< Takes images: nothing may come before the first one.
        bool unique = false; ///< A job holds at most one.
        QJsonObject nodes; ///< The new module's description in the job format, without name.
    };

    /// Every kind, in the order the tool box lists them.
    static const QList<Entry>& entries();
    /// The kind with @p id, or null.
    static const Entry* find(const QString& id);
    /// The kind of @p module, read from its key, or null for a module of no kind listed here.
    static const Entry* kindOf(const QObject& module);
    /// The dynamic key under which a module keeps the id of its kind.
    static const char* const kTypeKey;

    ModuleCatalog() = delete;
};

#endif
