#include "qtstringpropertymanager.h"

QtStringPropertyManager::QtStringPropertyManager(QObject* parent)
    : QtAbstractPropertyManager(parent)
{ }

QtStringPropertyManager::~QtStringPropertyManager()
{
    // The base destructor can no longer reach uninitializeProperty() of this class.
    clear();
}

QString QtStringPropertyManager::value(const QtProperty* property) const
{
    return m_hData.value(property).oValue;
}

QRegExp QtStringPropertyManager::regExp(const QtProperty* property) const
{
    return m_hData.value(property).oRegExp;
}

QLineEdit::EchoMode QtStringPropertyManager::echoMode(const QtProperty* property) const
{
    return m_hData.value(property).eEchoMode;
}

bool QtStringPropertyManager::isReadOnly(const QtProperty* property) const
{
    return m_hData.value(property).bReadOnly;
}

void QtStringPropertyManager::setValue(QtProperty* property, const QString& value)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || it->oValue == value)
        return;
    // An invalid expression checks nothing rather than refusing everything.
    if (it->oRegExp.isValid() && !it->oRegExp.exactMatch(value))
        return;
    it->oValue = value;
    emit propertyChanged(property);
    emit valueChanged(property, value);
}

void QtStringPropertyManager::setRegExp(QtProperty* property, const QRegExp& regExp)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || it->oRegExp == regExp)
        return;
    it->oRegExp = regExp;
    emit regExpChanged(property, regExp);
}

void QtStringPropertyManager::setEchoMode(QtProperty* property, QLineEdit::EchoMode echoMode)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || it->eEchoMode == echoMode)
        return;
    it->eEchoMode = echoMode;
    emit propertyChanged(property);
    emit echoModeChanged(property, echoMode);
}

void QtStringPropertyManager::setReadOnly(QtProperty* property, bool readOnly)
{
    const auto it = m_hData.find(property);
    if (it == m_hData.end() || it->bReadOnly == readOnly)
        return;
    it->bReadOnly = readOnly;
    emit propertyChanged(property);
    emit readOnlyChanged(property, readOnly);
}

QString QtStringPropertyManager::valueText(const QtProperty* property) const
{
    return m_hData.value(property).oValue;
}

void QtStringPropertyManager::initializeProperty(QtProperty* property)
{
    m_hData.insert(property, Data());
}

void QtStringPropertyManager::uninitializeProperty(QtProperty* property)
{
    m_hData.remove(property);
}
