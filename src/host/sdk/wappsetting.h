#ifndef SDK_WAPPSETTING_H
#define SDK_WAPPSETTING_H

#include "sdk/sdkglobal.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantMap>

namespace Settings {

class WAppSettings;

/// One group of the application's settings: named values that WAppSettings keeps in its file.
///
/// Changes stay in memory until WAppSettings::save(). A value read back from the file has the
/// type the file gives it: numbers and truth values come back as text, which converts with
/// toInt() or toBool() as before.
class SDK_EXPORT WAppSetting
{
public:
    /// The group's name.
    QString const& name() const;
    /// The value of @p key, or @p def when the group has no such key.
    QVariant valueOf(const QString& key, const QVariant& def = QVariant()) const;
    /// Sets the value of @p key; an invalid @p value removes the key.
    void setValueOf(const QString& key, const QVariant& value);
    /// Whether the group has a value for @p key.
    bool contains(const QString& key) const;
    /// The keys of the group, sorted.
    QStringList keys() const;

    WAppSetting(const WAppSetting&) = delete;
    WAppSetting& operator=(const WAppSetting&) = delete;

private:
    friend class WAppSettings;
    WAppSetting(WAppSettings* owner, const QString& name);

    WAppSettings* m_poOwner;
    QString m_sName;
    QVariantMap m_mapValues;
};

} // namespace Settings

#endif
