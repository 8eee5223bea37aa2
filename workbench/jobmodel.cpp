#include "jobmodel.h"

#include "jobindex.h"
#include "jobloader.h"
#include "modulecatalog.h"
#include "nodetypes.h"

#include "sdk/binaryitem.h"
#include "sdk/command.h"
#include "sdk/ditem.h"
#include "sdk/image.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QSaveFile>
#include <QSet>

#include <algorithm>
#include <functional>

using Script::DItem;
using namespace NodeTypes;
using Image = Script::GraphicItems::WImage::Image;
namespace Command = VardeenDefs::PropertyEditor;

namespace {

bool isOcrFilter(const DItem& node)
{
    return node.iDataType() == kString && node.ioType() == DItem::IoNone
        && node.iDataPath().contains(QLatin1String("Fielding.Set."));
}

// The two keys under which a value type keeps its effective and its local value.
struct ValueKeys
{
    const char* dynamicKey;
    const char* localKey;
};

ValueKeys valueKeys(const QString& type)
{
    if (isNumeric(type))
        return {"IDataNumeric.DynamicValue", "IDataNumeric.LocalValue"};
    if (type == kBool)
        return {"IDataBasicBool.DynamicValue", "IDataBasicBool.LocalValue"};
    if (type == kEnum)
        return {"IDataBasicEnum.DynamicStringnifiedValue", "IDataBasicEnum.LocalStringnifiedValue"};
    if (type == kString)
        return {"IDataBasicString.DynamicValue", "IDataBasicString.LocalValue"};
    return {nullptr, nullptr};
}

// The meta type that a value of @p type travels in.
int valueMetaType(const QString& type)
{
    if (type == kInt)
        return QMetaType::Int;
    if (type == kInt64)
        return QMetaType::LongLong;
    if (type == kDouble)
        return QMetaType::Double;
    if (type == kBool)
        return QMetaType::Bool;
    return QMetaType::QString;
}

// Orders two numbers of a node's type; 64-bit values are compared as integers, so that no
// precision is lost near the ends of their range.
bool lessThan(const QString& type, const QVariant& a, const QVariant& b)
{
    if (type == kDouble)
        return a.toDouble() < b.toDouble();
    return a.toLongLong() < b.toLongLong();
}

QVariant clamped(const DItem& node, const QVariant& value)
{
    const QVariant min = node.property("IDataNumeric.LocalMin");
    const QVariant max = node.property("IDataNumeric.LocalMax");
    const QString& type = node.iDataType();
    if (min.isValid() && lessThan(type, value, min))
        return min;
    if (max.isValid() && lessThan(type, max, value))
        return max;
    return value;
}

bool refuse(QString* error, const QString& why)
{
    if (error)
        *error = why;
    return false;
}

DItem* refused(QString* error, const QString& why)
{
    refuse(error, why);
    return nullptr;
}

} // namespace

JobModel::JobModel(QObject* parent)
    : QObject(parent)
{ }

JobModel::~JobModel() = default;

void JobModel::setJob(DItem* root)
{
    vForgetHistory();
    m_oScene.setRootItem(root);
    vIndex();
    vFollowLinks();
    emit structureChanged();
}

Containers::Scene* JobModel::poScene()
{
    return &m_oScene;
}

DItem* JobModel::poRoot() const
{
    return m_oScene.poRootItem();
}

DItem* JobModel::poNode(const QString& path) const
{
    return m_hNodes.value(path);
}

QList<DItem*> JobModel::nodes() const
{
    return m_hNodes.values();
}

void JobModel::vOutputsChanged(const QList<DItem*>& outputs)
{
    vFollowLinks();
    // Only outputs change in a run, and the linked values that follow them; the views leave
    // every other node, and an editor open on one, alone.
    emit nodesChanged(withFollowers(outputs));
}

QList<DItem*> JobModel::withFollowers(const QList<DItem*>& sources) const
{
    QList<DItem*> changed = sources;
    QSet<DItem*> reached(sources.begin(), sources.end());
    // Each pass reaches one more link down every chain; links never go round in a circle.
    for (bool grew = true; grew;) {
        grew = false;
        for (DItem* node : qAsConst(m_hNodes)) {
            if (reached.contains(node) || !node->isLinked()
                || !reached.contains(poNode(node->linkedPath())))
                continue;
            reached.insert(node);
            changed.append(node);
            grew = true;
        }
    }
    return changed;
}

void JobModel::vIndex()
{
    m_hNodes = jobIndex(poRoot());
}

void JobModel::vFollowLinks()
{
    QHash<QString, QStringList> linksTo;
    for (DItem* node : qAsConst(m_hNodes)) {
        if (node->isLinked())
            linksTo[node->linkedPath()].append(node->iDataPath());
    }
    for (DItem* node : qAsConst(m_hNodes)) {
        QStringList linkers = linksTo.value(node->iDataPath());
        std::sort(linkers.begin(), linkers.end());
        node->setProperty("IData.LinksToMe", linkers.isEmpty() ? QVariant() : QVariant(linkers));
    }

    // A linked value is its source's value; sources are settled first, so a chain of links
    // carries a value through in one pass. Cycles are refused when a link is made.
    QSet<DItem*> settled;
    std::function<void(DItem*)> settle = [&](DItem* node) {
        if (settled.contains(node))
            return;
        settled.insert(node);
        if (!node->isLinked())
            return;
        DItem* source = poNode(node->linkedPath());
        // A link into a deleted part of the job stays, in error, until an undo brings it back.
        node->setLinkError(!source);
        if (!source)
            return;
        settle(source);
        node->setLinkError(source->hasErrorState() || source->hasLinkError());
        const ValueKeys keys = valueKeys(node->iDataType());
        const ValueKeys sourceKeys = valueKeys(source->iDataType());
        if (keys.dynamicKey && sourceKeys.dynamicKey)
            node->setProperty(keys.dynamicKey, source->property(sourceKeys.dynamicKey));
        auto* image = qobject_cast<Image*>(node);
        auto* sourceImage = qobject_cast<Image*>(source);
        if (image && sourceImage)
            image->setQImage(sourceImage->sourceImage());
    };
    for (DItem* node : qAsConst(m_hNodes))
        settle(node);
}

bool JobModel::bApplyCommand(const QString& path, int command, const QVariant& params,
                             QString* error)
{
    DItem* node = poNode(path);
    if (!node)
        return refuse(error, QStringLiteral("no node at %1").arg(path));
    DItem* changed = nullptr;
    switch (command) {
    case Command::SetValue:
        changed = poSetValue(*node, params, error);
        break;
    case Command::SetLink:
        changed = bSetLink(*node, params.toString(), error) ? node : nullptr;
        break;
    case Command::SetLimits:
        changed = bSetLimits(*node, params, error) ? node : nullptr;
        break;
    case Command::SelectLink:
        // A preview of the candidate is a matter of the host's views; the job keeps nothing.
        return params.canConvert<QString>() || refuse(error, QStringLiteral("no path given"));
    default:
        return refuse(error, QStringLiteral("unknown command %1").arg(command));
    }
    if (!changed)
        return false;
    vFollowLinks();
    emit nodesChanged(withFollowers({changed}));
    return true;
}

DItem* JobModel::poSetValue(DItem& node, const QVariant& params, QString* error)
{
    const QString& type = node.iDataType();
    if (isOcrFilter(node)) {
        const QStringList filter = params.toStringList();
        if (params.userType() != QMetaType::QStringList || filter.size() != 2
            || filter.at(0).isEmpty() || filter.at(0).contains('.'))
            return refused(error, QStringLiteral("an OCR filter takes a name and a value"));
        // The filter's name is the last segment of its path; another name makes a new filter.
        DItem* target = &node;
        if (filter.at(0) != node.unTranslatedName()) {
            const QString parentPath = node.iDataPath().section('.', 0, -2);
            target = poNode(parentPath + '.' + filter.at(0));
            if (!target) {
                DItem* parent = poNode(parentPath);
                if (!parent)
                    return refused(error, QStringLiteral("no node at %1").arg(parentPath));
                target = new DItem(parentPath + '.' + filter.at(0), kString, DItem::IoNone);
                target->setEditable(true);
                target->setProperty("iIsEditable", true);
                target->setProperty("IData.IsGuiVisible", true);
                target->setProperty("IData.Description", filter.at(0));
                parent->vAddChildNode(target);
                m_hNodes.insert(target->iDataPath(), target);
                emit structureChanged();
            }
        }
        target->setProperty("IDataBasicString.DynamicValue", filter.at(1));
        target->setProperty("IDataBasicString.LocalValue", filter.at(1));
        return target;
    }

    if (auto* image = qobject_cast<Image*>(&node)) {
        if (params.userType() != QMetaType::QImage)
            return refused(error, QStringLiteral("an image takes a QImage"));
        image->setQImage(params.value<QImage>());
    } else if (auto* binary = qobject_cast<Script::BinaryItem*>(&node)) {
        if (type == kBinaryFile) {
            if (params.userType() != QMetaType::QVariantMap)
                return refused(error, QStringLiteral("a binary file takes a map"));
            const QVariantMap file = params.toMap();
            binary->setBinaryData(file.value(QStringLiteral("BinaryData")).toByteArray());
            for (const char* key : {"FileName", "Extension", "Description"})
                binary->setProperty(key, file.value(QLatin1String(key)).toString());
        } else {
            if (params.userType() != QMetaType::QByteArray)
                return refused(error, QStringLiteral("binary data takes a QByteArray"));
            binary->setBinaryData(params.toByteArray());
        }
    } else {
        const ValueKeys keys = valueKeys(type);
        if (!keys.localKey)
            return refused(error, QStringLiteral("a node of type %1 holds no value").arg(type));
        QVariant value = params;
        if (type == kEnum && params.userType() == QMetaType::Int)
            value = node.property("IDataBasicEnum.EnumList").toStringList().value(params.toInt());
        if (value.userType() != valueMetaType(type))
            return refused(error,
                           QStringLiteral("%1 does not take a value of type %2")
                               .arg(type, QString::fromLatin1(params.typeName())));
        if (type == kEnum
            && !node.property("IDataBasicEnum.EnumList").toStringList().contains(value.toString()))
            return refused(error,
                           QStringLiteral("%1 is not one of the choices").arg(value.toString()));
        if (isNumeric(type))
            value = clamped(node, value);
        node.setProperty(keys.localKey, value);
        node.setProperty(keys.dynamicKey, value);
    }
    // Setting a value on a linked node replaces the link.
    node.setLinked(false);
    node.setLinkedPath(QString());
    return &node;
}

bool JobModel::bSetLink(DItem& node, const QString& target, QString* error)
{
    if (!node.isLinkable())
        return refuse(error, QStringLiteral("%1 takes no link").arg(node.iDataPath()));
    if (target.isEmpty()) {
        node.setLinked(false);
        node.setLinkedPath(QString());
        node.setLinkError(false);
        const ValueKeys keys = valueKeys(node.iDataType());
        if (keys.dynamicKey)
            node.setProperty(keys.dynamicKey, node.property(keys.localKey));
        return true;
    }
    DItem* source = poNode(target);
    if (!source)
        return refuse(error, QStringLiteral("no node at %1").arg(target));
    if (!canTakeValueOf(node.iDataType(), source->iDataType()))
        return refuse(error,
                      QStringLiteral("%1 cannot take a value of type %2")
                          .arg(node.iDataPath(), source->iDataType()));
    if (bLinkChainReaches(*source, node, m_hNodes))
        return refuse(error, QStringLiteral("the link would go round in a circle"));
    node.setLinked(true);
    node.setLinkedPath(target);
    return true;
}

bool JobModel::bSetLimits(DItem& node, const QVariant& params, QString* error)
{
    const QString& type = node.iDataType();
    if (!isNumeric(type))
        return refuse(error, QStringLiteral("%1 has no limits").arg(node.iDataPath()));
    const QVariantMap limits = params.toMap();
    const QVariant min = limits.value(QStringLiteral("Min"));
    const QVariant max = limits.value(QStringLiteral("Max"));
    if (params.userType() != QMetaType::QVariantMap || min.userType() != valueMetaType(type)
        || max.userType() != valueMetaType(type))
        return refuse(error, QStringLiteral("limits are a map of \"Min\" and \"Max\" of the type"));
    if (lessThan(type, max, min))
        return refuse(error, QStringLiteral("the minimum lies above the maximum"));
    node.setProperty("IDataNumeric.LocalMin", min);
    node.setProperty("IDataNumeric.LocalMax", max);
    const QVariant local = clamped(node, node.property("IDataNumeric.LocalValue"));
    node.setProperty("IDataNumeric.LocalValue", local);
    if (!node.isLinked())
        node.setProperty("IDataNumeric.DynamicValue", local);
    return true;
}

bool JobModel::bRename(DItem* node, const QString& name, QString* error)
{
    if (!node || !m_hNodes.contains(node->iDataPath()))
        return refuse(error, QStringLiteral("no such node"));
    if (!node->isRenamingAllowed())
        return refuse(error, QStringLiteral("%1 cannot be renamed").arg(node->iDataPath()));
    const QString trimmed = name.trimmed();
    if (trimmed.isEmpty() || trimmed.contains('.'))
        return refuse(error, QStringLiteral("a name must not be empty nor hold \".\""));
    const QString oldPath = node->iDataPath();
    const int cut = oldPath.lastIndexOf('.');
    const QString newPath = (cut < 0 ? QString() : oldPath.left(cut + 1)) + trimmed;
    if (newPath == oldPath)
        return true;
    if (m_hNodes.contains(newPath))
        return refuse(error, QStringLiteral("%1 exists already").arg(newPath));

    // Every path at or below the node changes its prefix, and so do links that name them.
    auto moved = [&](const QString& path) {
        if (path == oldPath || path.startsWith(oldPath + '.'))
            return newPath + path.mid(oldPath.size());
        return path;
    };
    for (DItem* each : qAsConst(m_hNodes)) {
        each->setDataPath(moved(each->iDataPath()));
        if (each->isLinked())
            each->setLinkedPath(moved(each->linkedPath()));
    }
    node->setUnTranslatedName(trimmed);
    node->setProperty("IData.Description", trimmed);
    // A name taken back by an undo could now belong to another node.
    vForgetHistory();
    vIndex();
    vFollowLinks();
    emit structureChanged();
    return true;
}

bool JobModel::bDelete(const QString& path, QString* error)
{
    DItem* node = poNode(path);
    if (!node)
        return refuse(error, QStringLiteral("no node at %1").arg(path));
    auto* parent = qobject_cast<DItem*>(node->parent());
    if (!node->isDeletable() || !parent || !parent->childNodes().contains(node))
        return refuse(error, QStringLiteral("%1 cannot be deleted").arg(path));
    QList<DItem*> children = parent->childNodes();
    children.removeOne(node);
    vChange(parent, children);
    return true;
}

DItem* JobModel::poModule(const QString& path) const
{
    DItem* node = poNode(path);
    return node && poRoot() && node->parent() == poRoot() ? node : nullptr;
}

int JobModel::moduleIndexAfter(const QString& insertionPath) const
{
    if (!poRoot())
        return -1;
    if (insertionPath == poRoot()->iDataPath())
        return 0;
    const DItem* target = poModule(insertionPath);
    return target ? poRoot()->childNodes().indexOf(const_cast<DItem*>(target)) + 1 : -1;
}

bool JobModel::bCanPlace(const QString& moduleId, const QString& insertionPath, QString* why) const
{
    if (moduleIndexAfter(insertionPath) < 0)
        return refuse(why, QStringLiteral("%1 is no place for a module").arg(insertionPath));
    // A module comes by its path, or in copy mode by its name alone: the dock strips the
    // root's path before it asks.
    DItem* moved = poModule(moduleId);
    if (!moved && !moduleId.isEmpty())
        moved = poModule(poRoot()->iDataPath() + QLatin1Char('.') + moduleId);
    const ModuleCatalog::Entry* entry
        = moved ? ModuleCatalog::kindOf(*moved) : ModuleCatalog::find(moduleId);
    if (!moved && !entry)
        return refuse(why, QStringLiteral("%1 is no module and no kind of module").arg(moduleId));

    QList<DItem*> order;
    const int at = placeIndex(order, moved, insertionPath);
    auto isCamera = [](const DItem* module) {
        const ModuleCatalog::Entry* kind = ModuleCatalog::kindOf(*module);
        return kind && kind->acquisition;
    };
    const bool cameraBefore = std::any_of(order.cbegin(), order.cbegin() + at, isCamera);
    if (entry && entry->acquisition) {
        // The first camera would have other modules before it.
        if (at > 0 && !cameraBefore)
            return refuse(why, QStringLiteral("a camera must come before every other module"));
    } else if (!cameraBefore && std::any_of(order.cbegin() + at, order.cend(), isCamera)) {
        return refuse(why, QStringLiteral("nothing may come before the first camera"));
    }
    if (!moved && entry->unique) {
        const bool present = std::any_of(order.cbegin(), order.cend(), [entry](const DItem* m) {
            return ModuleCatalog::kindOf(*m) == entry;
        });
        if (present)
            return refuse(why, QStringLiteral("a job has one %1 module only").arg(entry->name));
    }
    return true;
}

int JobModel::placeIndex(QList<DItem*>& modules, const DItem* moved,
                         const QString& insertionPath) const
{
    // The list as a move leaves it; anything else is added to it as it is.
    modules = poRoot()->childNodes();
    int at = moduleIndexAfter(insertionPath);
    const int from = modules.indexOf(const_cast<DItem*>(moved));
    if (from >= 0) {
        modules.removeAt(from);
        if (from < at)
            --at;
    }
    return at;
}

QString JobModel::sFreeModuleName(const QString& base) const
{
    const QString prefix = poRoot()->iDataPath() + QLatin1Char('.');
    QString name = base;
    for (int number = 2; m_hNodes.contains(prefix + name); ++number)
        name = base + QString::number(number);
    return name;
}

QString JobModel::sInsertModule(const QString& kindId, const QString& insertionPath, QString* error)
{
    QString why;
    if (!poRoot() || !bCanPlace(kindId, insertionPath, &why)) {
        refuse(error, why.isEmpty() ? QStringLiteral("no job") : why);
        return QString();
    }
    const ModuleCatalog::Entry* entry = ModuleCatalog::find(kindId);
    if (!entry) {
        refuse(error, QStringLiteral("%1 is no kind of module").arg(kindId));
        return QString();
    }
    QJsonObject description = entry->nodes;
    description.insert(QStringLiteral("name"), sFreeModuleName(entry->name));
    DItem* module = JobLoader::poLoadModule(description, poRoot()->iDataPath(), error);
    if (!module)
        return QString();
    module->setParent(&m_oDetached);
    QList<DItem*> children = poRoot()->childNodes();
    children.insert(moduleIndexAfter(insertionPath), module);
    vChange(poRoot(), children);
    return module->iDataPath();
}

namespace {

// A copy of @p source and everything below it at @p path; links into the copied module at
// @p from go to the same nodes of the copy at @p to.
DItem* cloneNode(const DItem& source, const QString& path, const QString& from, const QString& to)
{
    DItem* copy = nullptr;
    if (const auto* image = qobject_cast<const Image*>(&source)) {
        auto* copiedImage = new Image(path, source.ioType());
        copiedImage->setQImage(image->sourceImage());
        copy = copiedImage;
    } else if (const auto* binary = qobject_cast<const Script::BinaryItem*>(&source)) {
        auto* copiedBinary = new Script::BinaryItem(path, source.iDataType(), source.ioType());
        copiedBinary->setBinaryData(binary->binaryData());
        copy = copiedBinary;
    } else {
        copy = new DItem(path, source.iDataType(), source.ioType());
    }
    // Lists of nodes name the original's; the job works them out again.
    static const QSet<QByteArray> kNotCopied {"IData.Children", "IData.LinksToMe",
                                              "IData.AcceptableLinks"};
    for (const QByteArray& key : source.dynamicPropertyNames()) {
        if (!kNotCopied.contains(key))
            copy->setProperty(key.constData(), source.property(key.constData()));
    }
    copy->setUnTranslatedName(path.section(QLatin1Char('.'), -1));
    copy->setErrorState(source.hasErrorState());
    copy->setInitialized(source.isInitialized());
    copy->setEditable(source.isEditable());
    copy->setDeletable(source.isDeletable());
    copy->setCopyable(source.isCopyable());
    copy->setDraggable(source.isDraggable());
    copy->setHidable(source.isHidable());
    copy->setRenamingAllowed(source.isRenamingAllowed());
    copy->setOutOfRangeCounter(source.outOfRangeCounter());
    copy->setIconPath(source.iconPath());
    copy->setLinkable(source.isLinkable());
    copy->setLinked(source.isLinked());
    const QString link = source.linkedPath();
    copy->setLinkedPath(link.startsWith(from + QLatin1Char('.')) ? to + link.mid(from.size())
                                                                 : link);
    copy->setLinkError(source.hasLinkError());
    for (const DItem* child : source.childNodes())
        copy->vAddChildNode(
            cloneNode(*child, path + child->iDataPath().mid(source.iDataPath().size()), from, to));
    return copy;
}

} // namespace

QString JobModel::sPasteModule(const QString& sourcePath, const QString& insertionPath,
                               QString* error)
{
    const DItem* source = poModule(sourcePath);
    if (!source || !source->isCopyable()) {
        refuse(error, QStringLiteral("%1 is no module that can be copied").arg(sourcePath));
        return QString();
    }
    // The copy is a new module of the same kind; the placing rules treat it as one.
    const ModuleCatalog::Entry* kind = ModuleCatalog::kindOf(*source);
    QString why;
    if (!bCanPlace(kind ? kind->id : sourcePath, insertionPath, &why)) {
        refuse(error, why);
        return QString();
    }
    const QString path
        = poRoot()->iDataPath() + QLatin1Char('.') + sFreeModuleName(source->unTranslatedName());
    DItem* copy = cloneNode(*source, path, sourcePath, path);
    copy->setProperty("IData.Description", copy->unTranslatedName());
    copy->setParent(&m_oDetached);
    QList<DItem*> children = poRoot()->childNodes();
    children.insert(moduleIndexAfter(insertionPath), copy);
    vChange(poRoot(), children);
    return path;
}

bool JobModel::bMoveModule(const QString& path, const QString& insertionPath, QString* error)
{
    DItem* module = poModule(path);
    if (!module)
        return refuse(error, QStringLiteral("%1 is no module").arg(path));
    if (!module->isDraggable())
        return refuse(error, QStringLiteral("%1 cannot be moved").arg(path));
    QString why;
    if (!bCanPlace(path, insertionPath, &why))
        return refuse(error, why);
    if (path == insertionPath)
        return true;
    QList<DItem*> children;
    children.insert(placeIndex(children, module, insertionPath), module);
    if (children != poRoot()->childNodes())
        vChange(poRoot(), children);
    return true;
}

void JobModel::vChange(DItem* parent, const QList<DItem*>& children)
{
    m_lUndo.append(Change {parent, parent->childNodes(), children});
    m_lRedo.clear();
    vApply(parent, children);
    emit undoStateChanged();
}

void JobModel::vApply(DItem* parent, const QList<DItem*>& children)
{
    // Views read what they keep of the nodes that leave before they go.
    emit aboutToDelete();
    for (DItem* child : parent->childNodes()) {
        if (!children.contains(child))
            child->setParent(&m_oDetached);
    }
    QVariantList addresses;
    for (DItem* child : children) {
        child->setParent(parent);
        addresses.append(QVariant::fromValue<qulonglong>(reinterpret_cast<quintptr>(child)));
    }
    parent->setProperty("IData.Children", addresses);
    vIndex();
    vFollowLinks();
    emit structureChanged();
}

void JobModel::vForgetHistory()
{
    m_lUndo.clear();
    m_lRedo.clear();
    qDeleteAll(m_oDetached.children());
    emit undoStateChanged();
}

bool JobModel::canUndo() const
{
    return !m_lUndo.isEmpty();
}

bool JobModel::canRedo() const
{
    return !m_lRedo.isEmpty();
}

bool JobModel::bUndo()
{
    if (m_lUndo.isEmpty())
        return false;
    const Change change = m_lUndo.takeLast();
    m_lRedo.append(change);
    vApply(change.parent, change.before);
    emit undoStateChanged();
    return true;
}

bool JobModel::bRedo()
{
    if (m_lRedo.isEmpty())
        return false;
    const Change change = m_lRedo.takeLast();
    m_lUndo.append(change);
    vApply(change.parent, change.after);
    emit undoStateChanged();
    return true;
}

bool JobModel::bSetVisible(const QString& path, bool visible)
{
    DItem* node = poNode(path);
    if (!node)
        return false;
    node->setProperty("IData.IsGuiVisible", visible);
    emit visibilityChanged();
    return true;
}

bool JobModel::bSetColorMarking(const QString& path, bool use)
{
    DItem* node = poNode(path);
    if (!node)
        return false;
    node->setProperty("IData.UseForColorMarking", use);
    emit nodesChanged({node});
    return true;
}

bool JobModel::bRefreshNode(const QString& path)
{
    DItem* node = poNode(path);
    if (!node)
        return false;
    vFollowLinks();
    if (node->isLinkable()) {
        // Offered are the nodes whose values this one can take, except itself and those that
        // follow it already; shown with icons are those nodes and the modules above them.
        Script::DItemListPair acceptable;
        QSet<DItem*> iconNodes;
        for (DItem* candidate : qAsConst(m_hNodes)) {
            if (candidate == node || candidate->ioType() == DItem::IoInput)
                continue;
            const bool compatible = canTakeValueOf(node->iDataType(), candidate->iDataType());
            if (!compatible || bLinkChainReaches(*candidate, *node, m_hNodes))
                continue;
            acceptable.first.append(candidate);
            for (QObject* up = candidate; qobject_cast<DItem*>(up); up = up->parent())
                iconNodes.insert(static_cast<DItem*>(up));
        }
        auto byPath = [](const DItem* a, const DItem* b) {
            return a->iDataPath() < b->iDataPath();
        };
        std::sort(acceptable.first.begin(), acceptable.first.end(), byPath);
        acceptable.second = iconNodes.values();
        std::sort(acceptable.second.begin(), acceptable.second.end(), byPath);
        node->setProperty("IData.AcceptableLinks", QVariant::fromValue(acceptable));
    }
    emit nodesChanged({node});
    return true;
}

bool JobModel::bLoadFile(const QString& path, const QString& filePath, QString* error)
{
    auto* binary = qobject_cast<Script::BinaryItem*>(poNode(path));
    if (!binary)
        return refuse(error, QStringLiteral("no binary node at %1").arg(path));
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(error, QStringLiteral("%1: %2").arg(filePath, file.errorString()));
    binary->setBinaryData(file.readAll());
    if (binary->iDataType() == kBinaryFile) {
        const QFileInfo info(filePath);
        binary->setProperty("FileName", info.fileName());
        binary->setProperty("Extension", info.suffix());
        binary->setProperty("Description", info.completeBaseName());
    }
    emit nodesChanged(withFollowers({binary}));
    return true;
}

bool JobModel::bSaveFile(const QString& path, const QString& filePath, QString* error)
{
    auto* binary = qobject_cast<Script::BinaryItem*>(poNode(path));
    if (!binary)
        return refuse(error, QStringLiteral("no binary node at %1").arg(path));
    QSaveFile file(filePath);
    if (!file.open(QIODevice::WriteOnly) || file.write(binary->binaryData()) < 0 || !file.commit())
        return refuse(error, QStringLiteral("%1: %2").arg(filePath, file.errorString()));
    return true;
}

bool JobModel::bUnloadFile(const QString& path, QString* error)
{
    auto* binary = qobject_cast<Script::BinaryItem*>(poNode(path));
    if (!binary)
        return refuse(error, QStringLiteral("no binary node at %1").arg(path));
    binary->setBinaryData(QByteArray());
    // A null file name is what shows "Not Loaded".
    for (const char* key : {"FileName", "Extension", "Description"})
        binary->setProperty(key, QVariant());
    emit nodesChanged(withFollowers({binary}));
    return true;
}
