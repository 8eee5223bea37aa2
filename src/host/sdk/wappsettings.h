#ifndef SDK_WAPPSETTINGS_H
#define SDK_WAPPSETTINGS_H

#include "sdk/sdkglobal.h"

#include <QString>
#include <QStringList>

#include <map>
#include <memory>

namespace Settings {

class WAppSetting;

/// The application's settings: named groups of values, kept in an INI file that the host
/// chooses with open().
///
/// Changes live in memory until save(), which replaces the file in one step: a crash at any
/// moment leaves either the former file or the new one, never a mix, and loses at most what was
/// not saved. Nothing is written without save(), not even when the object ends.
class SDK_EXPORT WAppSettings
{
public:
    /// Makes settings without groups and without file.
    WAppSettings();
    ~WAppSettings();

    /// The application's settings, made on first use without file.
    static WAppSettings* instance();

    /// Reads the groups of the INI file at @p filePath and makes it the file that save() writes.
    /// Groups already made keep their objects and take the file's values; groups the file lacks
    /// are dropped. A file that does not exist yet gives no groups. Returns false when the file
    /// exists but cannot be read; the path is kept in any case.
    bool open(const QString& filePath);
    /// The path of the settings file; empty before open().
    QString const& filePath() const;

    /// The group named @p group, or null when there is none.
    WAppSetting* find_setting(const QString& group) const;
    /// The group named @p group, made empty if there is none yet.
    WAppSetting* addSetting(const QString& group);
    /// Drops the group named @p group; a pointer to it must not be used afterwards.
    void removeSetting(const QString& group);
    /// The names of the groups, sorted.
    QStringList groups() const;

    /// Writes every group to the file, replacing it in one step. Returns false without a file or
    /// when it cannot be written, and then leaves the file as it was.
    bool save();
    /// Whether a value or a group changed since the last open() or save().
    bool bHasUnsavedChanges() const;

    WAppSettings(const WAppSettings&) = delete;
    WAppSettings& operator=(const WAppSettings&) = delete;

private:
    friend class WAppSetting;
    void vMarkChanged();

    QString m_sFilePath;
    std::map<QString, std::unique_ptr<WAppSetting>> m_mapGroups;
    bool m_bUnsavedChanges = false;
};

} // namespace Settings

#endif
