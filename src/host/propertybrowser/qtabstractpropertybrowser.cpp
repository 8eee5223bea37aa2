#include "qtabstractpropertybrowser.h"

#include "qtabstractpropertymanager.h"
#include "qtbrowseritem.h"
#include "qtbrowseritemmodel.h"
#include "qtproperty.h"

#include <algorithm>

QtAbstractPropertyBrowser::QtAbstractPropertyBrowser(QWidget* parent)
    : QWidget(parent)
    , m_poRoot(new QtBrowserItem(this, nullptr, nullptr))
{
    m_poModel = new QtBrowserItemModel(m_poRoot, this);
}

QtAbstractPropertyBrowser::~QtAbstractPropertyBrowser()
{
    for (auto it = m_hFactories.cbegin(); it != m_hFactories.cend(); ++it)
        releaseFactory(it.value(), it.key(), true);
    // No view may read the items once they are gone, so the model goes first. Subclasses are
    // destroyed already, so the items go without being announced.
    delete m_poModel;
    m_poModel = nullptr;
    destroyItem(m_poRoot);
}

QList<QtProperty*> QtAbstractPropertyBrowser::properties() const
{
    QList<QtProperty*> result;
    const int count = m_poRoot->m_lChildren.size();
    result.reserve(count);
    for (int row = 0; row < count; ++row)
        result.append(m_poRoot->m_lChildren.at(row)->m_poProperty);
    return result;
}

QList<QtBrowserItem*> QtAbstractPropertyBrowser::items(QtProperty* property) const
{
    // The hash gives the items of one key newest first; callers get them as they were made.
    QList<QtBrowserItem*> list = m_hItems.values(property);
    std::reverse(list.begin(), list.end());
    return list;
}

QtBrowserItem* QtAbstractPropertyBrowser::topLevelItem(QtProperty* property) const
{
    return childItem(m_poRoot, property);
}

QList<QtBrowserItem*> QtAbstractPropertyBrowser::topLevelItems() const
{
    return m_poRoot->m_lChildren.toList();
}

void QtAbstractPropertyBrowser::clear()
{
    if (m_poRoot->m_lChildren.isEmpty())
        return;
    for (int row = 0; row < m_poRoot->m_lChildren.size(); ++row)
        announceRemoval(m_poRoot->m_lChildren.at(row));
    setCurrentItem(nullptr);
    // One reset instead of a removal per row: the views drop their rows in one go.
    m_poModel->resetItems([this] {
        const QList<QtBrowserItem*> topLevel = m_poRoot->takeChildren();
        for (QtBrowserItem* item : topLevel)
            destroyItem(item);
    });
}

void QtAbstractPropertyBrowser::unsetFactoryForManager(QtAbstractPropertyManager* manager)
{
    const auto it = m_hFactories.find(manager);
    if (it == m_hFactories.end())
        return;
    const QPointer<QtAbstractEditorFactoryBase> factory = it.value();
    m_hFactories.erase(it);
    disconnect(manager, &QObject::destroyed, this, &QtAbstractPropertyBrowser::onManagerDestroyed);
    releaseFactory(factory, manager, true);
}

QtBrowserItem* QtAbstractPropertyBrowser::currentItem() const
{
    return m_poCurrentItem;
}

void QtAbstractPropertyBrowser::setCurrentItem(QtBrowserItem* item)
{
    if (item == m_poCurrentItem)
        return;
    m_poCurrentItem = item;
    emit currentItemChanged(item);
}

QtBrowserItem* QtAbstractPropertyBrowser::addProperty(QtProperty* property)
{
    if (!property || topLevelItem(property))
        return nullptr;
    const QtBrowserItemList& topLevel = m_poRoot->m_lChildren;
    return createItem(property, m_poRoot, topLevel.isEmpty() ? nullptr : topLevel.last());
}

QtBrowserItem* QtAbstractPropertyBrowser::insertProperty(QtProperty* property,
                                                         QtProperty* afterProperty)
{
    if (!property || topLevelItem(property))
        return nullptr;
    return createItem(property, m_poRoot, afterProperty ? topLevelItem(afterProperty) : nullptr);
}

void QtAbstractPropertyBrowser::removeProperty(QtProperty* property)
{
    if (QtBrowserItem* item = topLevelItem(property))
        removeItem(item);
}

QWidget* QtAbstractPropertyBrowser::createEditor(QtProperty* property, QWidget* parent)
{
    if (!property)
        return nullptr;
    QtAbstractEditorFactoryBase* factory = m_hFactories.value(property->propertyManager());
    return factory ? factory->createEditor(property, parent) : nullptr;
}

QtBrowserItemModel* QtAbstractPropertyBrowser::itemModel() const
{
    return m_poModel;
}

bool QtAbstractPropertyBrowser::addFactory(QtAbstractPropertyManager* manager,
                                           QtAbstractEditorFactoryBase* factory)
{
    if (!manager || !factory)
        return false;
    const auto it = m_hFactories.constFind(manager);
    if (it != m_hFactories.cend() && it.value() == factory)
        return false;
    unsetFactoryForManager(manager);
    m_hFactories.insert(manager, factory);
    ++factory->m_hBrowserUses[manager];
    // The pairing must not outlive the manager: a new one at the same address is a stranger.
    connect(manager, &QObject::destroyed, this, &QtAbstractPropertyBrowser::onManagerDestroyed);
    return true;
}

void QtAbstractPropertyBrowser::releaseFactory(QtAbstractEditorFactoryBase* factory,
                                               QtAbstractPropertyManager* manager, bool breakAtZero)
{
    if (!factory)
        return;
    const auto it = factory->m_hBrowserUses.find(manager);
    if (it == factory->m_hBrowserUses.end() || --it.value() > 0)
        return;
    factory->m_hBrowserUses.erase(it);
    if (breakAtZero)
        factory->breakConnection(manager);
}

QtBrowserItem* QtAbstractPropertyBrowser::createItem(QtProperty* property, QtBrowserItem* parent,
                                                     QtBrowserItem* afterItem)
{
    auto* item = new QtBrowserItem(this, property, parent);
    m_hItems.insert(property, item);
    QtAbstractPropertyManager* manager = property->propertyManager();
    if (m_hManagerItemCounts[manager]++ == 0) {
        connect(manager, &QtAbstractPropertyManager::propertyInserted, this,
                &QtAbstractPropertyBrowser::onPropertyInserted);
        connect(manager, &QtAbstractPropertyManager::propertyChanged, this,
                &QtAbstractPropertyBrowser::onPropertyChanged);
        connect(manager, &QtAbstractPropertyManager::propertyRemoved, this,
                &QtAbstractPropertyBrowser::onPropertyRemoved);
        connect(manager, &QtAbstractPropertyManager::propertyDestroyed, this,
                &QtAbstractPropertyBrowser::onPropertyDestroyed);
    }
    const int row = afterItem ? parent->rowOf(afterItem) + 1 : 0;
    m_poModel->insertItem(parent, row, item);
    itemInserted(item, afterItem);
    QtBrowserItem* previous = nullptr;
    for (QtProperty* subProperty : property->subProperties())
        previous = createItem(subProperty, item, previous);
    return item;
}

void QtAbstractPropertyBrowser::removeItem(QtBrowserItem* item)
{
    announceRemoval(item);
    for (QtBrowserItem* current = m_poCurrentItem; current; current = current->m_poParent) {
        if (current == item) {
            setCurrentItem(nullptr);
            break;
        }
    }
    m_poModel->detachItem(item);
    destroyItem(item);
}

void QtAbstractPropertyBrowser::announceRemoval(QtBrowserItem* item)
{
    for (int row = 0; row < item->m_lChildren.size(); ++row)
        announceRemoval(item->m_lChildren.at(row));
    itemRemoved(item);
}

void QtAbstractPropertyBrowser::destroyItem(QtBrowserItem* item)
{
    for (int row = 0; row < item->m_lChildren.size(); ++row)
        destroyItem(item->m_lChildren.at(row));
    if (QtProperty* property = item->m_poProperty) {
        m_hItems.remove(property, item);
        QtAbstractPropertyManager* manager = property->propertyManager();
        const auto it = m_hManagerItemCounts.find(manager);
        if (--it.value() == 0) {
            m_hManagerItemCounts.erase(it);
            disconnect(manager, &QtAbstractPropertyManager::propertyInserted, this,
                       &QtAbstractPropertyBrowser::onPropertyInserted);
            disconnect(manager, &QtAbstractPropertyManager::propertyChanged, this,
                       &QtAbstractPropertyBrowser::onPropertyChanged);
            disconnect(manager, &QtAbstractPropertyManager::propertyRemoved, this,
                       &QtAbstractPropertyBrowser::onPropertyRemoved);
            disconnect(manager, &QtAbstractPropertyManager::propertyDestroyed, this,
                       &QtAbstractPropertyBrowser::onPropertyDestroyed);
        }
    }
    delete item;
}

QtBrowserItem* QtAbstractPropertyBrowser::childItem(QtBrowserItem* parent,
                                                    QtProperty* property) const
{
    // A property has few items, so looking through them beats scanning the siblings.
    for (auto it = m_hItems.constFind(property); it != m_hItems.cend() && it.key() == property;
         ++it) {
        if (it.value()->m_poParent == parent)
            return it.value();
    }
    return nullptr;
}

void QtAbstractPropertyBrowser::onPropertyInserted(QtProperty* property, QtProperty* parent,
                                                   QtProperty* after)
{
    // The list is copied: creating items below may add items of the parent property.
    const QList<QtBrowserItem*> parentItems = items(parent);
    for (QtBrowserItem* parentItem : parentItems) {
        QtBrowserItem* afterItem = after ? childItem(parentItem, after) : nullptr;
        createItem(property, parentItem, afterItem);
    }
}

void QtAbstractPropertyBrowser::onPropertyChanged(QtProperty* property)
{
    for (auto it = m_hItems.constFind(property); it != m_hItems.cend() && it.key() == property;
         ++it) {
        m_poModel->itemChanged(it.value());
        itemChanged(it.value());
    }
}

void QtAbstractPropertyBrowser::onPropertyRemoved(QtProperty* property, QtProperty* parent)
{
    const QList<QtBrowserItem*> parentItems = items(parent);
    for (QtBrowserItem* parentItem : parentItems) {
        if (QtBrowserItem* item = childItem(parentItem, property))
            removeItem(item);
    }
}

void QtAbstractPropertyBrowser::onPropertyDestroyed(QtProperty* property)
{
    // Its items below parents went with propertyRemoved(); only the top-level one can remain.
    removeProperty(property);
}

void QtAbstractPropertyBrowser::onManagerDestroyed(QObject* manager)
{
    // The manager is half destroyed: compare addresses as QObject and cast nothing down.
    for (auto it = m_hFactories.begin(); it != m_hFactories.end(); ++it) {
        QtAbstractPropertyManager* key = it.key();
        if (static_cast<QObject*>(key) == manager) {
            // The factory forgets the manager itself through its own destroyed() connection.
            releaseFactory(it.value(), key, false);
            m_hFactories.erase(it);
            return;
        }
    }
}
