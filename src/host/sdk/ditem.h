#ifndef SDK_DITEM_H
#define SDK_DITEM_H

#include "sdk/sdkglobal.h"

#include <QList>
#include <QMetaType>
#include <QObject>
#include <QPair>
#include <QPointF>
#include <QString>
#include <QVector>

namespace Script {

/// One node of a job: a module, a setting, an input or an output.
///
/// The fixed facts of a node are reached through the operations below; everything else (values,
/// limits, hints) lives in dynamic properties that readers fetch with QObject::property() and
/// that the host writes with QObject::setProperty(). A key the node does not have reads as an
/// invalid QVariant.
class SDK_EXPORT DItem : public QObject
{
    Q_OBJECT

public:
    /// Kind of node: a setting of its module, an input or an output.
    enum IoType { IoNone = 0, IoInput = 1, IoOutput = 2 };
    Q_ENUM(IoType)

    // Readers built against the host call these four through the virtual table, so they come
    // first and in this order; new virtual operations may only be added after them.

    /// Whether the node's value comes from another node through a link.
    virtual bool isLinked() const;
    /// Whether the node can take a link at all.
    virtual bool isLinkable() const;
    /// Whether the node that this one is linked to is in error.
    virtual bool hasLinkError() const;
    /// Path of the node that this one is linked to; empty when it is not linked.
    virtual QString linkedPath() const;

    /// Makes a node without path, type or name: a setting (IoNone) that nobody may change.
    explicit DItem(QObject* parent = nullptr);
    /// Makes a node at @p path, named after the last segment of the path, of type @p type
    /// (also stored under the dynamic key "IData.Type") and of kind @p ioType.
    DItem(const QString& path, const QString& type, IoType ioType = IoNone,
          QObject* parent = nullptr);
    ~DItem() override;

    /// The node's path: names joined by ".".
    QString const& iDataPath() const;
    /// The node's type name, such as "IDataBasicInt".
    QString const& iDataType() const;
    /// Whether the node is a setting, an input or an output.
    IoType ioType() const;
    /// Whether an output is in error.
    bool hasErrorState() const;
    /// Whether an output still waits for its first value ("Not Available" while true).
    bool isInitialized() const;
    /// Whether the node's value may be edited.
    bool isEditable() const;
    /// Whether the user may delete the node.
    bool isDeletable() const;
    /// Whether the user may copy the node's module.
    bool isCopyable() const;
    /// Whether the user may drag the node.
    bool isDraggable() const;
    /// Whether the user may hide the node.
    bool isHidable() const;
    /// Whether the user may rename the node.
    bool isRenamingAllowed() const;
    /// How often the node has gone out of range; 0 when it is in range.
    int outOfRangeCounter() const;
    /// The node's name before translation.
    QString const& unTranslatedName() const;
    /// Resource path of the node's icon.
    QString iconPath() const;

    /// Sets the path that iDataPath() returns.
    void setDataPath(const QString& path);
    /// Sets the type name and mirrors it into the dynamic key "IData.Type"; clear that key with
    /// setProperty("IData.Type", QVariant()) to model a node that lacks it.
    void setDataType(const QString& type);
    /// Sets the kind that ioType() returns.
    void setIoType(IoType ioType);
    /// Sets the error state of an output.
    void setErrorState(bool error);
    /// Sets the flag that isInitialized() returns.
    void setInitialized(bool initialized);
    /// Sets whether the value may be edited.
    void setEditable(bool editable);
    /// Sets whether the node may be deleted.
    void setDeletable(bool deletable);
    /// Sets whether the node's module may be copied.
    void setCopyable(bool copyable);
    /// Sets whether the node may be dragged.
    void setDraggable(bool draggable);
    /// Sets whether the node may be hidden.
    void setHidable(bool hidable);
    /// Sets whether the node may be renamed.
    void setRenamingAllowed(bool allowed);
    /// Sets the out-of-range counter.
    void setOutOfRangeCounter(int count);
    /// Sets the untranslated name.
    void setUnTranslatedName(const QString& name);
    /// Sets the icon's resource path.
    void setIconPath(const QString& path);
    /// Sets whether the node is linked; see also setLinkedPath().
    void setLinked(bool linked);
    /// Sets whether the node may take a link.
    void setLinkable(bool linkable);
    /// Sets whether the linked node is in error.
    void setLinkError(bool error);
    /// Sets the path of the linked node.
    void setLinkedPath(const QString& path);

    /// Makes @p child a child node of this one: this node takes ownership of it and lists its
    /// address under the dynamic key "IData.Children", as readers of the tree expect.
    void vAddChildNode(DItem* child);
    /// Takes @p child out of "IData.Children" and deletes it; does nothing for a node that is
    /// not a child of this one. Readers hold the addresses of that key, so a node must leave it
    /// before it goes.
    void vDeleteChildNode(DItem* child);
    /// The child nodes, in the order in which they were added; deleted ones are left out.
    QList<DItem*> childNodes() const;
    /// Returns the node at @p path among this node and its descendants, or null.
    DItem* poFindNode(const QString& path);

    /// Registers the node types with Qt's meta-type system so that they travel in QVariant and
    /// queued signals. The library does it when it is loaded; calling it again does nothing.
    static void vRegisterMetaTypes();

private:
    QString m_sDataPath;
    QString m_sDataType;
    IoType m_eIoType = IoNone;
    bool m_bErrorState = false;
    bool m_bInitialized = false;
    bool m_bEditable = false;
    bool m_bDeletable = false;
    bool m_bCopyable = false;
    bool m_bDraggable = false;
    bool m_bHidable = false;
    bool m_bRenamingAllowed = false;
    int m_iOutOfRangeCounter = 0;
    QString m_sUnTranslatedName;
    QString m_sIconPath;
    bool m_bLinked = false;
    bool m_bLinkable = false;
    bool m_bLinkError = false;
    QString m_sLinkedPath;
};

/// The two lists of nodes that a link picker offers, as carried under "IData.AcceptableLinks".
using DItemListPair = QPair<QList<DItem*>, QList<DItem*>>;

} // namespace Script

// Pointers to QObject classes and Qt's containers of declared types are known to the meta-type
// system already; a pointer to const is not, and needs its own declaration.
Q_DECLARE_METATYPE(const Script::DItem*)

#endif
