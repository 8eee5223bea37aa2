#include "qtabstractpropertymanager.h"

#include "qtproperty.h"

namespace {

/// The property class a manager creates unless it makes its own.
class QtPlainProperty : public QtProperty
{
public:
    explicit QtPlainProperty(QtAbstractPropertyManager* manager)
        : QtProperty(manager)
    { }
};

} // namespace

QtAbstractPropertyManager::QtAbstractPropertyManager(QObject* parent)
    : QObject(parent)
{ }

QtAbstractPropertyManager::~QtAbstractPropertyManager()
{
    clear();
}

QSet<QtProperty*> QtAbstractPropertyManager::properties() const
{
    return m_hProperties;
}

void QtAbstractPropertyManager::clear() const
{
    // Each deletion unlinks the property from the front; a handler that deletes other
    // properties of this manager unlinks them too, so nothing is visited twice.
    while (m_poFirst)
        delete m_poFirst;
}

QtProperty* QtAbstractPropertyManager::addProperty(const QString& name)
{
    QtProperty* property = createProperty();
    if (!property)
        return nullptr;
    property->setPropertyName(name);
    m_hProperties.insert(property);
    property->m_poPreviousInManager = m_poLast;
    if (m_poLast)
        m_poLast->m_poNextInManager = property;
    else
        m_poFirst = property;
    m_poLast = property;
    initializeProperty(property);
    return property;
}

bool QtAbstractPropertyManager::hasValue(const QtProperty*) const
{
    return true;
}

QIcon QtAbstractPropertyManager::valueIcon(const QtProperty*) const
{
    return QIcon();
}

QIcon QtAbstractPropertyManager::propertyIcon(const QtProperty*) const
{
    return QIcon();
}

QString QtAbstractPropertyManager::valueText(const QtProperty*) const
{
    return QString();
}

void QtAbstractPropertyManager::uninitializeProperty(QtProperty*) { }

QtProperty* QtAbstractPropertyManager::createProperty()
{
    return new QtPlainProperty(this);
}

void QtAbstractPropertyManager::propertyGone(QtProperty* property)
{
    // A property made by createProperty() but never added was never announced.
    if (!m_hProperties.contains(property))
        return;
    emit propertyDestroyed(property);
    uninitializeProperty(property);
    m_hProperties.remove(property);
    QtProperty* previous = property->m_poPreviousInManager;
    QtProperty* next = property->m_poNextInManager;
    (previous ? previous->m_poNextInManager : m_poFirst) = next;
    (next ? next->m_poPreviousInManager : m_poLast) = previous;
}
