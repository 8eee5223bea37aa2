#include "sdk/scene.h"

#include "sdk/ditem.h"

namespace Containers {

Scene::Scene(QObject* parent)
    : QObject(parent)
{ }

Scene::~Scene() = default;

Script::DItem* Scene::poRootItem() const
{
    return m_poRootItem;
}

void Scene::setRootItem(Script::DItem* root)
{
    if (root == m_poRootItem)
        return;
    delete m_poRootItem;
    m_poRootItem = root;
    if (root)
        root->setParent(this);
    emit rootItemChanged();
}

Script::DItem* Scene::poFindItem(const QString& path) const
{
    return m_poRootItem ? m_poRootItem->poFindNode(path) : nullptr;
}

} // namespace Containers
