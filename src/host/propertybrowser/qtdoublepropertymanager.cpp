#include "qtdoublepropertymanager.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// The limits of QDoubleSpinBox::setDecimals(), so that editors show what the text shows.
constexpr int MaximumDecimals = 13;

} // namespace

QtDoublePropertyManager::QtDoublePropertyManager(QObject* parent)
    : QtAbstractPropertyManager(parent)
{ }

QtDoublePropertyManager::~QtDoublePropertyManager()
{
    // The base destructor can no longer reach uninitializeProperty() of this class.
    clear();
}

double QtDoublePropertyManager::value(const QtProperty* property) const
{
    return m_hData.value(property).dValue;
}

double QtDoublePropertyManager::minimum(const QtProperty* property) const
{
    return m_hData.value(property).dMinimum;
}

double QtDoublePropertyManager::maximum(const QtProperty* property) const
{
    return m_hData.value(property).dMaximum;
}

double QtDoublePropertyManager::singleStep(const QtProperty* property) const
{
    return m_hData.value(property).dSingleStep;
}

int QtDoublePropertyManager::decimals(const QtProperty* property) const
{
    return m_hData.value(property).iDecimals;
}

bool QtDoublePropertyManager::isReadOnly(const QtProperty* property) const
{
    return m_hData.value(property).bReadOnly;
}

void QtDoublePropertyManager::setValue(QtProperty* property, double value)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || std::isnan(value))
        return;
    const double clamped = std::clamp(value, it->dMinimum, it->dMaximum);
    if (clamped == it->dValue)
        return;
    it->dValue = clamped;
    emit propertyChanged(property);
    emit valueChanged(property, clamped);
}

void QtDoublePropertyManager::setMinimum(QtProperty* property, double minimum)
{
    const auto it = m_hData.constFind(property);
    if (it == m_hData.constEnd())
        return;
    applyRange(property, minimum, std::max(minimum, it->dMaximum));
}

void QtDoublePropertyManager::setMaximum(QtProperty* property, double maximum)
{
    const auto it = m_hData.constFind(property);
    if (it == m_hData.constEnd())
        return;
    applyRange(property, std::min(maximum, it->dMinimum), maximum);
}

void QtDoublePropertyManager::setRange(QtProperty* property, double minimum, double maximum)
{
    if (minimum > maximum)
        std::swap(minimum, maximum);
    applyRange(property, minimum, maximum);
}

void QtDoublePropertyManager::setSingleStep(QtProperty* property, double step)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || std::isnan(step))
        return;
    step = std::max(step, 0.0);
    if (step == it->dSingleStep)
        return;
    it->dSingleStep = step;
    emit singleStepChanged(property, step);
}

void QtDoublePropertyManager::setDecimals(QtProperty* property, int decimals)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end())
        return;
    decimals = std::clamp(decimals, 0, MaximumDecimals);
    if (decimals == it->iDecimals)
        return;
    it->iDecimals = decimals;
    // The value reads differently now, so views redraw it.
    emit propertyChanged(property);
    emit decimalsChanged(property, decimals);
}

void QtDoublePropertyManager::setReadOnly(QtProperty* property, bool readOnly)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || it->bReadOnly == readOnly)
        return;
    it->bReadOnly = readOnly;
    emit propertyChanged(property);
    emit readOnlyChanged(property, readOnly);
}

QString QtDoublePropertyManager::valueText(const QtProperty* property) const
{
    const auto it = m_hData.constFind(property);
    if (it == m_hData.constEnd())
        return QString();
    // Read as a double spin box shows it: the user's decimal point, no group separators.
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(it->dValue, 'f', it->iDecimals);
}

void QtDoublePropertyManager::initializeProperty(QtProperty* property)
{
    m_hData.insert(property, Data());
}

void QtDoublePropertyManager::uninitializeProperty(QtProperty* property)
{
    m_hData.remove(property);
}

void QtDoublePropertyManager::applyRange(QtProperty* property, double minimum, double maximum)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || std::isnan(minimum) || std::isnan(maximum)
        || (it->dMinimum == minimum && it->dMaximum == maximum))
        return;
    it->dMinimum = minimum;
    it->dMaximum = maximum;
    const double oldValue = it->dValue;
    it->dValue = std::clamp(oldValue, minimum, maximum);
    const double newValue = it->dValue;
    // Listeners of the range may change this manager, so nothing below reads through 'it'.
    emit rangeChanged(property, minimum, maximum);
    if (newValue == oldValue)
        return;
    emit propertyChanged(property);
    emit valueChanged(property, newValue);
}
