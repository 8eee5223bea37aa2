#include "qtproperty.h"

#include "qtabstractpropertymanager.h"

QtProperty::QtProperty(QtAbstractPropertyManager* manager)
    : m_poManager(manager)
{ }

QtProperty::~QtProperty()
{
    // Browsers drop the items below each parent first, then every remaining item on
    // propertyDestroyed(); the links go last so that handlers still see the structure.
    for (QtProperty* parent : qAsConst(m_lParents))
        emit parent->m_poManager->propertyRemoved(this, parent);
    m_poManager->propertyGone(this);
    for (QtProperty* child : qAsConst(m_lSubProperties))
        child->m_lParents.removeOne(this);
    for (QtProperty* parent : qAsConst(m_lParents))
        parent->m_lSubProperties.removeOne(this);
}

QList<QtProperty*> QtProperty::subProperties() const
{
    return m_lSubProperties;
}

QtAbstractPropertyManager* QtProperty::propertyManager() const
{
    return m_poManager;
}

QString QtProperty::toolTip() const
{
    return m_sToolTip;
}

QString QtProperty::statusTip() const
{
    return m_sStatusTip;
}

QString QtProperty::whatsThis() const
{
    return m_sWhatsThis;
}

QString QtProperty::propertyName() const
{
    return m_sName;
}

bool QtProperty::isEnabled() const
{
    return m_bEnabled;
}

bool QtProperty::isModified() const
{
    return m_bModified;
}

bool QtProperty::hasValue() const
{
    return m_poManager->hasValue(this);
}

QIcon QtProperty::valueIcon() const
{
    return m_poManager->valueIcon(this);
}

QIcon QtProperty::propertyIcon() const
{
    return m_poManager->propertyIcon(this);
}

QString QtProperty::valueText() const
{
    return m_poManager->valueText(this);
}

void QtProperty::setToolTip(const QString& text)
{
    if (m_sToolTip == text)
        return;
    m_sToolTip = text;
    propertyChanged();
}

void QtProperty::setStatusTip(const QString& text)
{
    if (m_sStatusTip == text)
        return;
    m_sStatusTip = text;
    propertyChanged();
}

void QtProperty::setWhatsThis(const QString& text)
{
    if (m_sWhatsThis == text)
        return;
    m_sWhatsThis = text;
    propertyChanged();
}

void QtProperty::setPropertyName(const QString& text)
{
    if (m_sName == text)
        return;
    m_sName = text;
    propertyChanged();
}

void QtProperty::setEnabled(bool enable)
{
    if (m_bEnabled == enable)
        return;
    m_bEnabled = enable;
    propertyChanged();
}

void QtProperty::setModified(bool modified)
{
    if (m_bModified == modified)
        return;
    m_bModified = modified;
    propertyChanged();
}

void QtProperty::addSubProperty(QtProperty* property)
{
    insertSubProperty(property, m_lSubProperties.isEmpty() ? nullptr : m_lSubProperties.last());
}

void QtProperty::insertSubProperty(QtProperty* property, QtProperty* afterProperty)
{
    if (!property || property->m_lParents.contains(this) || isSelfOrAncestor(property))
        return;
    int position = 0;
    if (afterProperty) {
        // Appending is by far the most common case; look at the end before scanning.
        if (!m_lSubProperties.isEmpty() && m_lSubProperties.last() == afterProperty)
            position = m_lSubProperties.size();
        else
            position = m_lSubProperties.indexOf(afterProperty) + 1;
        if (position == 0)
            afterProperty = nullptr;
    }
    m_lSubProperties.insert(position, property);
    property->m_lParents.append(this);
    emit m_poManager->propertyInserted(property, this, afterProperty);
}

void QtProperty::removeSubProperty(QtProperty* property)
{
    if (!property || !property->m_lParents.removeOne(this))
        return;
    m_lSubProperties.removeOne(property);
    emit m_poManager->propertyRemoved(property, this);
}

void QtProperty::propertyChanged()
{
    emit m_poManager->propertyChanged(this);
}

bool QtProperty::isSelfOrAncestor(const QtProperty* property) const
{
    if (property == this)
        return true;
    for (const QtProperty* parent : m_lParents) {
        if (parent->isSelfOrAncestor(property))
            return true;
    }
    return false;
}
