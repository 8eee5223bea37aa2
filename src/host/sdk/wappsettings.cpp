#include "sdk/wappsettings.h"

#include "sdk/wappsetting.h"

#include <QFileInfo>
#include <QSettings>

namespace Settings {

WAppSettings::WAppSettings() = default;

WAppSettings::~WAppSettings() = default;

WAppSettings* WAppSettings::instance()
{
    static WAppSettings settings;
    return &settings;
}

bool WAppSettings::open(const QString& filePath)
{
    m_sFilePath = filePath;
    m_bUnsavedChanges = false;
    std::map<QString, QVariantMap> read;
    bool ok = true;
    if (QFileInfo::exists(filePath)) {
        QSettings file(filePath, QSettings::IniFormat);
        ok = file.status() == QSettings::NoError && QFileInfo(filePath).isReadable();
        if (ok) {
            for (const QString& group : file.childGroups()) {
                file.beginGroup(group);
                QVariantMap& values = read[group];
                for (const QString& key : file.allKeys())
                    values.insert(key, file.value(key));
                file.endGroup();
            }
        }
    }
    for (auto it = m_mapGroups.begin(); it != m_mapGroups.end();) {
        if (read.count(it->first) == 0)
            it = m_mapGroups.erase(it);
        else
            ++it;
    }
    for (auto& entry : read)
        addSetting(entry.first)->m_mapValues = entry.second;
    m_bUnsavedChanges = false;
    return ok;
}

QString const& WAppSettings::filePath() const
{
    return m_sFilePath;
}

WAppSetting* WAppSettings::find_setting(const QString& group) const
{
    const auto it = m_mapGroups.find(group);
    return it == m_mapGroups.end() ? nullptr : it->second.get();
}

WAppSetting* WAppSettings::addSetting(const QString& group)
{
    if (WAppSetting* existing = find_setting(group))
        return existing;
    auto* setting = new WAppSetting(this, group);
    m_mapGroups.emplace(group, std::unique_ptr<WAppSetting>(setting));
    m_bUnsavedChanges = true;
    return setting;
}

void WAppSettings::removeSetting(const QString& group)
{
    if (m_mapGroups.erase(group) > 0)
        m_bUnsavedChanges = true;
}

QStringList WAppSettings::groups() const
{
    QStringList names;
    for (const auto& entry : m_mapGroups)
        names.append(entry.first);
    return names;
}

bool WAppSettings::save()
{
    if (m_sFilePath.isEmpty())
        return false;
    QSettings file(m_sFilePath, QSettings::IniFormat);
    // QSettings writes a temporary file and renames it over the old one; requiring that, rather
    // than letting it fall back to writing in place, is what keeps the file whole in a crash.
    file.setAtomicSyncRequired(true);
    file.clear();
    for (const auto& entry : m_mapGroups) {
        file.beginGroup(entry.first);
        const QVariantMap& values = entry.second->m_mapValues;
        for (auto it = values.constBegin(); it != values.constEnd(); ++it)
            file.setValue(it.key(), it.value());
        file.endGroup();
    }
    file.sync();
    if (file.status() != QSettings::NoError)
        return false;
    m_bUnsavedChanges = false;
    return true;
}

bool WAppSettings::bHasUnsavedChanges() const
{
    return m_bUnsavedChanges;
}

void WAppSettings::vMarkChanged()
{
    m_bUnsavedChanges = true;
}

} // namespace Settings
