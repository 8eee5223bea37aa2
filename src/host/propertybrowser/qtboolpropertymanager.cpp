#include "qtboolpropertymanager.h"

#include "qtcheckboxiconengine.h"

QtBoolPropertyManager::QtBoolPropertyManager(QObject* parent)
    : QtAbstractPropertyManager(parent)
    , m_oCheckedIcon(new QtCheckBoxIconEngine(true))
    , m_oUncheckedIcon(new QtCheckBoxIconEngine(false))
{ }

QtBoolPropertyManager::~QtBoolPropertyManager()
{
    // The base destructor can no longer reach uninitializeProperty() of this class.
    clear();
}

bool QtBoolPropertyManager::value(const QtProperty* property) const
{
    return m_hData.value(property).bValue;
}

bool QtBoolPropertyManager::textVisible(const QtProperty* property) const
{
    return m_hData.value(property).bTextVisible;
}

void QtBoolPropertyManager::setValue(QtProperty* property, bool value)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || it->bValue == value)
        return;
    it->bValue = value;
    emit propertyChanged(property);
    emit valueChanged(property, value);
}

void QtBoolPropertyManager::setTextVisible(QtProperty* property, bool textVisible)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || it->bTextVisible == textVisible)
        return;
    it->bTextVisible = textVisible;
    emit propertyChanged(property);
    emit textVisibleChanged(property, textVisible);
}

QString QtBoolPropertyManager::valueText(const QtProperty* property) const
{
    const auto it = m_hData.constFind(property);
    if (it == m_hData.constEnd() || !it->bTextVisible)
        return QString();
    return it->bValue ? tr("True") : tr("False");
}

QIcon QtBoolPropertyManager::valueIcon(const QtProperty* property) const
{
    const auto it = m_hData.constFind(property);
    if (it == m_hData.constEnd())
        return QIcon();
    return it->bValue ? m_oCheckedIcon : m_oUncheckedIcon;
}

void QtBoolPropertyManager::initializeProperty(QtProperty* property)
{
    m_hData.insert(property, Data());
}

void QtBoolPropertyManager::uninitializeProperty(QtProperty* property)
{
    m_hData.remove(property);
}
