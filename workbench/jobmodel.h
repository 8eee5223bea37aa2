#ifndef JOBMODEL_H
#define JOBMODEL_H

#include "sdk/scene.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <QVariant>

namespace Script {
class DItem;
}

/// The workbench's job: its nodes, and the host's answers to the plug-in's change requests.
///
/// Every change goes through here, so that the rules a host keeps hold everywhere: a node
/// found by path in constant time, linked values that follow their source, "IData.LinksToMe"
/// kept up to date, a local value that stays within its limits.
class JobModel : public QObject
{
    Q_OBJECT

public:
    /// Makes a model without a job.
    explicit JobModel(QObject* parent = nullptr);
    ~JobModel() override;

    /// Replaces the job by the tree under @p root; the model takes ownership.
    void setJob(Script::DItem* root);
    /// The scene that holds the job, as the plug-in receives it.
    Containers::Scene* poScene();
    /// The job's root node, or null.
    Script::DItem* poRoot() const;
    /// The node at @p path, or null.
    Script::DItem* poNode(const QString& path) const;
    /// Every node of the job, in no particular order.
    QList<Script::DItem*> nodes() const;
    /// The running job changed the values of @p outputs: linked values follow, and the views
    /// refresh those nodes and the linked ones.
    void vOutputsChanged(const QList<Script::DItem*>& outputs);

    /// Applies an edit command of the plug-in to the node at @p path. On refusal returns false
    /// and says why in @p error; nothing is changed then.
    bool bApplyCommand(const QString& path, int command, const QVariant& params, QString* error);
    /// Renames @p node; the paths below it and the links to them follow.
    bool bRename(Script::DItem* node, const QString& name, QString* error);
    /// Deletes the node at @p path with everything below it. Links to it stay and show a link
    /// error; an undo brings the node back and the links work again.
    bool bDelete(const QString& path, QString* error);

    /// Whether the module @p moduleId, a kind of the module catalogue or the path of a module,
    /// may stand after @p insertionPath, the job's root (the front) or one of its modules. The
    /// rules are the README's; on refusal @p why says which one.
    bool bCanPlace(const QString& moduleId, const QString& insertionPath, QString* why) const;
    /// Inserts a new module of the catalogue's kind @p kindId after @p insertionPath, under a
    /// name not taken yet; returns its path, or an empty text with the reason in @p error.
    QString sInsertModule(const QString& kindId, const QString& insertionPath, QString* error);
    /// Inserts a copy of the module at @p sourcePath after @p insertionPath: its nodes and
    /// values, under a free name, with links inside it pointing into the copy. Returns the
    /// copy's path, or an empty text with the reason in @p error.
    QString sPasteModule(const QString& sourcePath, const QString& insertionPath, QString* error);
    /// Moves the module at @p path after @p insertionPath.
    bool bMoveModule(const QString& path, const QString& insertionPath, QString* error);

    /// Whether there is a structural change to take back, or one taken back to do again.
    bool canUndo() const;
    bool canRedo() const;
    /// Takes back the last insertion, copy, move or deletion; false when there is none.
    bool bUndo();
    /// Does the last change taken back again; false when there is none.
    bool bRedo();
    /// Shows or hides the node at @p path in the normal view.
    bool bSetVisible(const QString& path, bool visible);
    /// Marks whether the node at @p path gives the colour feedback.
    bool bSetColorMarking(const QString& path, bool use);
    /// Brings the node at @p path up to date before an editor opens on it: its linked value
    /// and the nodes it may be linked to ("IData.AcceptableLinks").
    bool bRefreshNode(const QString& path);

    /// Reads the file at @p filePath into the binary node at @p path.
    bool bLoadFile(const QString& path, const QString& filePath, QString* error);
    /// Writes the bytes of the binary node at @p path to the file at @p filePath.
    bool bSaveFile(const QString& path, const QString& filePath, QString* error);
    /// Empties the binary node at @p path.
    bool bUnloadFile(const QString& path, QString* error);

signals:
    /// The values or states of @p nodes changed, those of the nodes linked to them included;
    /// no other node changed.
    void nodesChanged(const QList<Script::DItem*>& nodes);
    /// Which nodes the normal view shows changed; views show and hide their rows again.
    void visibilityChanged();
    /// Nodes were renamed or deleted; views that hold nodes must build them again.
    void structureChanged();
    /// Nodes are about to be deleted: what views want to keep of them must be read now.
    void aboutToDelete();
    /// What undo and redo can do changed.
    void undoStateChanged();

private:
    // The children of a node before and after a structural change; the nodes it takes out stay
    // alive for an undo.
    struct Change
    {
        Script::DItem* parent;
        QList<Script::DItem*> before;
        QList<Script::DItem*> after;
    };

    void vApply(Script::DItem* parent, const QList<Script::DItem*>& children);
    void vChange(Script::DItem* parent, const QList<Script::DItem*>& children);
    void vForgetHistory();
    int moduleIndexAfter(const QString& insertionPath) const;
    int placeIndex(QList<Script::DItem*>& modules, const Script::DItem* moved,
                   const QString& insertionPath) const;
    QString sFreeModuleName(const QString& base) const;
    Script::DItem* poModule(const QString& path) const;
    Script::DItem* poSetValue(Script::DItem& node, const QVariant& params, QString* error);
    bool bSetLink(Script::DItem& node, const QString& target, QString* error);
    bool bSetLimits(Script::DItem& node, const QVariant& params, QString* error);
    void vIndex();
    void vFollowLinks();
    QList<Script::DItem*> withFollowers(const QList<Script::DItem*>& sources) const;

    Containers::Scene m_oScene;
    QHash<QString, Script::DItem*> m_hNodes;
    QList<Change> m_lUndo;
    QList<Change> m_lRedo;
    // Owns the nodes that a change took out of the job, until the job goes.
    QObject m_oDetached;
};

#endif
