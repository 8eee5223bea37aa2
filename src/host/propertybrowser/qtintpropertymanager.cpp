#include "qtintpropertymanager.h"

#include <algorithm>
#include <utility>

QtIntPropertyManager::QtIntPropertyManager(QObject* parent)
    : QtAbstractPropertyManager(parent)
{ }

QtIntPropertyManager::~QtIntPropertyManager()
{
    // The base destructor can no longer reach uninitializeProperty() of this class.
    clear();
}

int QtIntPropertyManager::value(const QtProperty* property) const
{
    return m_hData.value(property).iValue;
}

int QtIntPropertyManager::minimum(const QtProperty* property) const
{
    return m_hData.value(property).iMinimum;
}

int QtIntPropertyManager::maximum(const QtProperty* property) const
{
    return m_hData.value(property).iMaximum;
}

int QtIntPropertyManager::singleStep(const QtProperty* property) const
{
    return m_hData.value(property).iSingleStep;
}

bool QtIntPropertyManager::isReadOnly(const QtProperty* property) const
{
    return m_hData.value(property).bReadOnly;
}

void QtIntPropertyManager::setValue(QtProperty* property, int value)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end())
        return;
    const int clamped = std::clamp(value, it->iMinimum, it->iMaximum);
    if (clamped == it->iValue)
        return;
    it->iValue = clamped;
    emit propertyChanged(property);
    emit valueChanged(property, clamped);
}

void QtIntPropertyManager::setMinimum(QtProperty* property, int minimum)
{
    const auto it = m_hData.constFind(property);
    if (it == m_hData.constEnd())
        return;
    applyRange(property, minimum, std::max(minimum, it->iMaximum));
}

void QtIntPropertyManager::setMaximum(QtProperty* property, int maximum)
{
    const auto it = m_hData.constFind(property);
    if (it == m_hData.constEnd())
        return;
    applyRange(property, std::min(maximum, it->iMinimum), maximum);
}

void QtIntPropertyManager::setRange(QtProperty* property, int minimum, int maximum)
{
    if (minimum > maximum)
        std::swap(minimum, maximum);
    applyRange(property, minimum, maximum);
}

void QtIntPropertyManager::setSingleStep(QtProperty* property, int step)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end())
        return;
    step = std::max(step, 0);
    if (step == it->iSingleStep)
        return;
    it->iSingleStep = step;
    emit singleStepChanged(property, step);
}

void QtIntPropertyManager::setReadOnly(QtProperty* property, bool readOnly)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || it->bReadOnly == readOnly)
        return;
    it->bReadOnly = readOnly;
    emit propertyChanged(property);
    emit readOnlyChanged(property, readOnly);
}

QString QtIntPropertyManager::valueText(const QtProperty* property) const
{
    const auto it = m_hData.constFind(property);
    return it == m_hData.constEnd() ? QString() : QString::number(it->iValue);
}

void QtIntPropertyManager::initializeProperty(QtProperty* property)
{
    m_hData.insert(property, Data());
}

void QtIntPropertyManager::uninitializeProperty(QtProperty* property)
{
    m_hData.remove(property);
}

void QtIntPropertyManager::applyRange(QtProperty* property, int minimum, int maximum)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || (it->iMinimum == minimum && it->iMaximum == maximum))
        return;
    it->iMinimum = minimum;
    it->iMaximum = maximum;
    const int oldValue = it->iValue;
    it->iValue = std::clamp(oldValue, minimum, maximum);
    const int newValue = it->iValue;
    // Listeners of the range may change this manager, so nothing below reads through 'it'.
    emit rangeChanged(property, minimum, maximum);
    if (newValue == oldValue)
        return;
    emit propertyChanged(property);
    emit valueChanged(property, newValue);
}
