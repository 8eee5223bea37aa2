#ifndef SDK_SCENE_H
#define SDK_SCENE_H

#include "sdk/sdkglobal.h"

#include <QObject>
#include <QPointer>
#include <QString>

namespace Script {
class DItem;
}

namespace Containers {

/// The nodes of the job that is open: a tree of Script::DItem under one root, found by path.
class SDK_EXPORT Scene : public QObject
{
    Q_OBJECT

public:
    /// Makes an empty scene, without root node.
    explicit Scene(QObject* parent = nullptr);
    ~Scene() override;

    /// The root node of the job, or null for an empty scene.
    Script::DItem* poRootItem() const;
    /// Replaces the root node; the scene takes ownership of @p root and deletes the former one.
    void setRootItem(Script::DItem* root);
    /// Returns the node at @p path, searching the root and its child nodes, or null.
    Script::DItem* poFindItem(const QString& path) const;

signals:
    /// The root node was replaced.
    void rootItemChanged();

private:
    QPointer<Script::DItem> m_poRootItem;
};

} // namespace Containers

#endif
