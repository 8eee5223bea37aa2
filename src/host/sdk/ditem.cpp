#include "sdk/ditem.h"

#include "sdk/appfiletype.h"
#include "sdk/command.h"
#include "sdk/image.h"

#include <QSet>
#include <QVariant>
#include <QVariantList>

#include <mutex>

namespace Script {

namespace {

// A list written by a script or a settings file arrives as a QVariantList of objects; readers
// ask for a typed list of nodes, so the conversion is offered once for all of them.
QList<DItem*> nodeListFromVariants(const QVariantList& variants)
{
    QList<DItem*> nodes;
    nodes.reserve(variants.size());
    for (const QVariant& entry : variants)
        nodes.append(qobject_cast<DItem*>(entry.value<QObject*>()));
    return nodes;
}

} // namespace

DItem::DItem(QObject* parent)
    : QObject(parent)
{
    vRegisterMetaTypes();
}

DItem::DItem(const QString& path, const QString& type, IoType ioType, QObject* parent)
    : QObject(parent)
    , m_sDataPath(path)
    , m_eIoType(ioType)
    , m_sUnTranslatedName(path.mid(path.lastIndexOf(QLatin1Char('.')) + 1))
{
    vRegisterMetaTypes();
    setDataType(type);
}

DItem::~DItem() = default;

bool DItem::isLinked() const
{
    return m_bLinked;
}

bool DItem::isLinkable() const
{
    return m_bLinkable;
}

bool DItem::hasLinkError() const
{
    return m_bLinkError;
}

QString DItem::linkedPath() const
{
    return m_sLinkedPath;
}

QString const& DItem::iDataPath() const
{
    return m_sDataPath;
}

QString const& DItem::iDataType() const
{
    return m_sDataType;
}

DItem::IoType DItem::ioType() const
{
    return m_eIoType;
}

bool DItem::hasErrorState() const
{
    return m_bErrorState;
}

bool DItem::isInitialized() const
{
    return m_bInitialized;
}

bool DItem::isEditable() const
{
    return m_bEditable;
}

bool DItem::isDeletable() const
{
    return m_bDeletable;
}

bool DItem::isCopyable() const
{
    return m_bCopyable;
}

bool DItem::isDraggable() const
{
    return m_bDraggable;
}

bool DItem::isHidable() const
{
    return m_bHidable;
}

bool DItem::isRenamingAllowed() const
{
    return m_bRenamingAllowed;
}

int DItem::outOfRangeCounter() const
{
    return m_iOutOfRangeCounter;
}

QString const& DItem::unTranslatedName() const
{
    return m_sUnTranslatedName;
}

QString DItem::iconPath() const
{
    return m_sIconPath;
}

void DItem::setDataPath(const QString& path)
{
    m_sDataPath = path;
}

void DItem::setDataType(const QString& type)
{
    m_sDataType = type;
    setProperty("IData.Type", type);
}

void DItem::setIoType(IoType ioType)
{
    m_eIoType = ioType;
}

void DItem::setErrorState(bool error)
{
    m_bErrorState = error;
}

void DItem::setInitialized(bool initialized)
{
    m_bInitialized = initialized;
}

void DItem::setEditable(bool editable)
{
    m_bEditable = editable;
}

void DItem::setDeletable(bool deletable)
{
    m_bDeletable = deletable;
}

void DItem::setCopyable(bool copyable)
{
    m_bCopyable = copyable;
}

void DItem::setDraggable(bool draggable)
{
    m_bDraggable = draggable;
}

void DItem::setHidable(bool hidable)
{
    m_bHidable = hidable;
}

void DItem::setRenamingAllowed(bool allowed)
{
    m_bRenamingAllowed = allowed;
}

void DItem::setOutOfRangeCounter(int count)
{
    m_iOutOfRangeCounter = count;
}

void DItem::setUnTranslatedName(const QString& name)
{
    m_sUnTranslatedName = name;
}

void DItem::setIconPath(const QString& path)
{
    m_sIconPath = path;
}

void DItem::setLinked(bool linked)
{
    m_bLinked = linked;
}

void DItem::setLinkable(bool linkable)
{
    m_bLinkable = linkable;
}

void DItem::setLinkError(bool error)
{
    m_bLinkError = error;
}

void DItem::setLinkedPath(const QString& path)
{
    m_sLinkedPath = path;
}

void DItem::vAddChildNode(DItem* child)
{
    if (!child || child == this)
        return;
    child->setParent(this);
    QVariantList children = property("IData.Children").toList();
    children.append(QVariant::fromValue<qulonglong>(reinterpret_cast<quintptr>(child)));
    setProperty("IData.Children", children);
}

void DItem::vDeleteChildNode(DItem* child)
{
    if (!child || child->parent() != this)
        return;
    const qulonglong address = reinterpret_cast<quintptr>(child);
    QVariantList children = property("IData.Children").toList();
    children.removeAll(QVariant::fromValue(address));
    setProperty("IData.Children", children);
    delete child;
}

QList<DItem*> DItem::childNodes() const
{
    // The key is the host's record of the tree; a child deleted since only remains there as an
    // address, so only addresses that are still our children count.
    const QList<DItem*> children = findChildren<DItem*>(QString(), Qt::FindDirectChildrenOnly);
    const QSet<DItem*> liveChildren(children.cbegin(), children.cend());
    QList<DItem*> nodes;
    for (const QVariant& entry : property("IData.Children").toList()) {
        auto* node = reinterpret_cast<DItem*>(static_cast<quintptr>(entry.toULongLong()));
        if (node && liveChildren.contains(node))
            nodes.append(node);
    }
    return nodes;
}

DItem* DItem::poFindNode(const QString& path)
{
    if (m_sDataPath == path)
        return this;
    for (DItem* child : childNodes()) {
        if (DItem* found = child->poFindNode(path))
            return found;
    }
    return nullptr;
}

void DItem::vRegisterMetaTypes()
{
    static std::once_flag once;
    std::call_once(once, [] {
        qRegisterMetaType<DItem*>("Script::DItem*");
        qRegisterMetaType<const DItem*>("const Script::DItem*");
        qRegisterMetaType<QList<DItem*>>("QList<Script::DItem*>");
        qRegisterMetaType<DItemListPair>("QPair<QList<Script::DItem*>,QList<Script::DItem*> >");
        qRegisterMetaType<GraphicItems::WImage::Image*>("Script::GraphicItems::WImage::Image*");
        qRegisterMetaType<QVector<QPointF>>("QVector<QPointF>");
        qRegisterMetaType<QList<QPair<QString, QString>>>("QList<QPair<QString,QString> >");
        qRegisterMetaType<VardeenDefs::PropertyEditor::Command>(
            "VardeenDefs::PropertyEditor::Command");
        qRegisterMetaType<AppSpecifficFileType>("AppSpecifficFileType");

        // A reader that wants a pointer to const must get it from whatever pointer the host
        // stored.
        QMetaType::registerConverter<DItem*, const DItem*>(
            [](DItem* node) -> const DItem* { return node; });
        QMetaType::registerConverter<QObject*, const DItem*>(
            [](QObject* object) -> const DItem* { return qobject_cast<DItem*>(object); });
        QMetaType::registerConverter<QVariantList, QList<DItem*>>(&nodeListFromVariants);
        QMetaType::registerConverter<QVariantList, DItemListPair>([](const QVariantList& lists) {
            DItemListPair pair;
            if (!lists.isEmpty())
                pair.first = nodeListFromVariants(lists.at(0).toList());
            if (lists.size() > 1)
                pair.second = nodeListFromVariants(lists.at(1).toList());
            return pair;
        });
        QMetaType::registerConverter<QVariantList, QVector<QPointF>>([](const QVariantList& list) {
            QVector<QPointF> points;
            points.reserve(list.size());
            for (const QVariant& entry : list)
                points.append(entry.toPointF());
            return points;
        });
        QMetaType::registerConverter<QList<QPointF>, QVector<QPointF>>(
            [](const QList<QPointF>& list) { return list.toVector(); });
    });
}

// Readers may unpack a QVariant before the first node exists, so the types are known as soon
// as the library is loaded.
static void registerSdkMetaTypesAtLoad()
{
    DItem::vRegisterMetaTypes();
}
Q_CONSTRUCTOR_FUNCTION(registerSdkMetaTypesAtLoad)

} // namespace Script
