#include "qtenumpropertymanager.h"

namespace {

// QIcon has no equality; two icons are the same when they share their data.
bool sameIcons(const QMap<int, QIcon>& first, const QMap<int, QIcon>& second)
{
    if (first.size() != second.size())
        return false;
    for (auto it = first.constBegin(), other = second.constBegin(); it != first.constEnd();
         ++it, ++other) {
        if (it.key() != other.key() || it.value().cacheKey() != other.value().cacheKey())
            return false;
    }
    return true;
}

} // namespace

QtEnumPropertyManager::QtEnumPropertyManager(QObject* parent)
    : QtAbstractPropertyManager(parent)
{ }

QtEnumPropertyManager::~QtEnumPropertyManager()
{
    // The base destructor can no longer reach uninitializeProperty() of this class.
    clear();
}

int QtEnumPropertyManager::value(const QtProperty* property) const
{
    return m_hData.value(property).iValue;
}

QStringList QtEnumPropertyManager::enumNames(const QtProperty* property) const
{
    return m_hData.value(property).oNames;
}

QMap<int, QIcon> QtEnumPropertyManager::enumIcons(const QtProperty* property) const
{
    return m_hData.value(property).oIcons;
}

void QtEnumPropertyManager::setValue(QtProperty* property, int value)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || value < 0 || value >= it->oNames.size() || value == it->iValue)
        return;
    it->iValue = value;
    emit propertyChanged(property);
    emit valueChanged(property, value);
}

void QtEnumPropertyManager::setEnumNames(QtProperty* property, const QStringList& names)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || it->oNames == names)
        return;
    const int oldValue = it->iValue;
    it->oNames = names;
    it->iValue = names.isEmpty() ? -1 : 0;
    const int newValue = it->iValue;
    // Listeners may change this manager, so nothing below reads through 'it'.
    emit enumNamesChanged(property, names);
    emit propertyChanged(property);
    if (newValue != oldValue)
        emit valueChanged(property, newValue);
}

void QtEnumPropertyManager::setEnumIcons(QtProperty* property, const QMap<int, QIcon>& icons)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || sameIcons(it->oIcons, icons))
        return;
    it->oIcons = icons;
    emit enumIconsChanged(property, icons);
    emit propertyChanged(property);
}

QString QtEnumPropertyManager::valueText(const QtProperty* property) const
{
    const Data data = m_hData.value(property);
    return data.oNames.value(data.iValue);
}

QIcon QtEnumPropertyManager::valueIcon(const QtProperty* property) const
{
    const Data data = m_hData.value(property);
    return data.oIcons.value(data.iValue);
}

void QtEnumPropertyManager::initializeProperty(QtProperty* property)
{
    m_hData.insert(property, Data());
}

void QtEnumPropertyManager::uninitializeProperty(QtProperty* property)
{
    m_hData.remove(property);
}
