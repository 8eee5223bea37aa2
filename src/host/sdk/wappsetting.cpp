#include "sdk/wappsetting.h"

#include "sdk/wappsettings.h"

namespace Settings {

WAppSetting::WAppSetting(WAppSettings* owner, const QString& name)
    : m_poOwner(owner)
    , m_sName(name)
{ }

QString const& WAppSetting::name() const
{
    return m_sName;
}

QVariant WAppSetting::valueOf(const QString& key, const QVariant& def) const
{
    return m_mapValues.value(key, def);
}

void WAppSetting::setValueOf(const QString& key, const QVariant& value)
{
    const bool changed
        = value.isValid() ? m_mapValues.value(key) != value || !contains(key) : contains(key);
    if (!changed)
        return;
    if (value.isValid())
        m_mapValues.insert(key, value);
    else
        m_mapValues.remove(key);
    m_poOwner->vMarkChanged();
}

bool WAppSetting::contains(const QString& key) const
{
    return m_mapValues.contains(key);
}

QStringList WAppSetting::keys() const
{
    return m_mapValues.keys();
}

} // namespace Settings
