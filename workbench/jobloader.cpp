#include "jobloader.h"

#include "jobindex.h"
#include "nodetypes.h"

#include "sdk/binaryitem.h"
#include "sdk/ditem.h"
#include "sdk/image.h"

#include <QColor>
#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QSet>

#include <cmath>
#include <limits>
#include <memory>

using Script::DItem;
using namespace NodeTypes;

namespace {

// Every key a node object may hold; an unknown one is refused so that a misspelt key is
// reported instead of being ignored in silence.
const QSet<QString> kNodeKeys = {"name",
                                 "type",
                                 "io",
                                 "description",
                                 "icon",
                                 "value",
                                 "local",
                                 "min",
                                 "max",
                                 "step",
                                 "dynamicMin",
                                 "dynamicMax",
                                 "limitsEditable",
                                 "choices",
                                 "reply",
                                 "x",
                                 "y",
                                 "z",
                                 "image",
                                 "linkMode",
                                 "channels",
                                 "text",
                                 "base64",
                                 "fileName",
                                 "extension",
                                 "fileDescription",
                                 "link",
                                 "linkable",
                                 "linkError",
                                 "error",
                                 "notAvailable",
                                 "outOfRange",
                                 "editable",
                                 "deletable",
                                 "copyable",
                                 "draggable",
                                 "hidable",
                                 "renamable",
                                 "visible",
                                 "unavailable",
                                 "properties",
                                 "nodes"};

// Builds the nodes of one document; the first problem found is kept in m_sError.
class JobBuilder
{
    Q_DECLARE_TR_FUNCTIONS(JobLoader)

public:
    std::unique_ptr<DItem> poJob(const QJsonObject& job);
    std::unique_ptr<DItem> poModule(const QJsonObject& module, const QString& parentPath)
    {
        m_sWhere = parentPath;
        return poNode(module, parentPath, true);
    }
    bool bCheckLinks(DItem* root);
    QString m_sError;

private:
    std::unique_ptr<DItem> poNode(const QJsonObject& object, const QString& parentPath,
                                  bool isModule);
    std::unique_ptr<DItem> poMakeNode(const QString& type, const QString& path,
                                      DItem::IoType ioType);
    bool bApplyValue(DItem& node, const QJsonObject& object);
    bool bApplyNumeric(DItem& node, const QJsonObject& object);
    bool bCheckLocalRange(const DItem& node, const QVariant& local, const QVariant& min,
                          const QVariant& max);
    bool bApplyPoint(DItem& node, const QJsonObject& object);
    bool bApplyImage(Script::GraphicItems::WImage::Image& image, const QJsonObject& object);
    bool bApplyBinary(Script::BinaryItem& item, const QJsonObject& object);
    bool bApplyState(DItem& node, const QJsonObject& object, bool isModule);
    bool bNumber(const QJsonObject& object, const QString& key, const QString& type,
                 QVariant* value);
    bool bFlag(const QJsonObject& object, const QString& key, bool defaultValue, bool* value);
    bool bText(const QJsonObject& object, const QString& key, QString* value);
    bool bFail(const QString& what);
    std::unique_ptr<DItem> poFail(const QString& what);

    QString m_sWhere;
};

bool JobBuilder::bFail(const QString& what)
{
    if (m_sError.isEmpty())
        m_sError = m_sWhere.isEmpty() ? what : m_sWhere + QStringLiteral(": ") + what;
    return false;
}

std::unique_ptr<DItem> JobBuilder::poFail(const QString& what)
{
    bFail(what);
    return nullptr;
}

bool JobBuilder::bText(const QJsonObject& object, const QString& key, QString* value)
{
    const QJsonValue field = object.value(key);
    if (field.isUndefined())
        return true;
    if (!field.isString())
        return bFail(tr("\"%1\" must be a text").arg(key));
    *value = field.toString();
    return true;
}

bool JobBuilder::bFlag(const QJsonObject& object, const QString& key, bool defaultValue,
                       bool* value)
{
    const QJsonValue field = object.value(key);
    *value = defaultValue;
    if (field.isUndefined())
        return true;
    if (!field.isBool())
        return bFail(tr("\"%1\" must be true or false").arg(key));
    *value = field.toBool();
    return true;
}

// A number of the row type: a 32-bit integer, a 64-bit integer (also as a decimal text, since
// JSON numbers lose digits beyond 2^53) or a double.
bool JobBuilder::bNumber(const QJsonObject& object, const QString& key, const QString& type,
                         QVariant* value)
{
    const QJsonValue field = object.value(key);
    if (field.isUndefined())
        return true;
    if (type == kInt64 && field.isString()) {
        bool ok = false;
        const qlonglong number = field.toString().toLongLong(&ok);
        if (!ok)
            return bFail(tr("\"%1\" is not a 64-bit integer").arg(key));
        *value = number;
        return true;
    }
    if (!field.isDouble())
        return bFail(tr("\"%1\" must be a number").arg(key));
    const double number = field.toDouble();
    if (type == kDouble) {
        *value = number;
        return true;
    }
    if (type == kInt64 && std::fabs(number) >= 9007199254740992.0) {
        return bFail(tr("\"%1\" is too large for a JSON number, which keeps only 53 bits:"
                                    " write it as a decimal text, such as \"9223372036854775807\"")
                         .arg(key));
    }
    const double limit = type == kInt ? 2147483648.0 : 9007199254740992.0;
    if (number != std::trunc(number) || number < -limit || number >= limit)
        return bFail(tr("\"%1\" must be a whole number that fits the type").arg(key));
    if (type == kInt)
        *value = static_cast<int>(number);
    else
        *value = static_cast<qlonglong>(number);
    return true;
}

std::unique_ptr<DItem> JobBuilder::poJob(const QJsonObject& job)
{
    QString name;
    if (!bText(job, QStringLiteral("name"), &name))
        return nullptr;
    if (name.isEmpty() || name.contains('.'))
        return poFail(tr("the job needs a name without \".\""));
    // Every job hangs below the host's root, whose path begins every module's path; the job's
    // own name is what the root shows.
    auto root = std::make_unique<DItem>(JobLoader::kRootPath, QStringLiteral("Job"), DItem::IoNone);
    root->setUnTranslatedName(name);
    root->setProperty("IData.Description", name);
    root->setProperty("IData.IsGuiVisible", true);
    const QJsonValue modules = job.value(QStringLiteral("modules"));
    if (!modules.isArray())
        return poFail(tr("\"modules\" must be a list"));
    QSet<QString> names;
    for (const QJsonValue& module : modules.toArray()) {
        m_sWhere = JobLoader::kRootPath;
        if (!module.isObject())
            return poFail(tr("a module must be an object"));
        std::unique_ptr<DItem> node = poNode(module.toObject(), JobLoader::kRootPath, true);
        if (!node)
            return nullptr;
        m_sWhere = JobLoader::kRootPath;
        if (names.contains(node->unTranslatedName()))
            return poFail(tr("two modules are named %1").arg(node->unTranslatedName()));
        names.insert(node->unTranslatedName());
        root->vAddChildNode(node.release());
    }
    return root;
}

std::unique_ptr<DItem> JobBuilder::poMakeNode(const QString& type, const QString& path,
                                              DItem::IoType ioType)
{
    if (type == kImage)
        return std::make_unique<Script::GraphicItems::WImage::Image>(path, ioType);
    if (type == kBinary || type == kBinaryFile)
        return std::make_unique<Script::BinaryItem>(path, type, ioType);
    return std::make_unique<DItem>(path, type, ioType);
}

std::unique_ptr<DItem> JobBuilder::poNode(const QJsonObject& object, const QString& parentPath,
                                          bool isModule)
{
    QString name;
    if (!bText(object, QStringLiteral("name"), &name))
        return nullptr;
    if (name.isEmpty() || name.contains('.'))
        return poFail(tr("every node needs a name without \".\""));
    const QString path = parentPath + '.' + name;
    m_sWhere = path;
    for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
        if (!kNodeKeys.contains(it.key()))
            return poFail(tr("unknown key \"%1\"").arg(it.key()));
    }

    QString type = isModule ? QStringLiteral("Module") : QString();
    QString io = QStringLiteral("setting");
    if (!bText(object, QStringLiteral("type"), &type) || !bText(object, QStringLiteral("io"), &io))
        return nullptr;
    static const QStringList ioNames
        = {QStringLiteral("setting"), QStringLiteral("input"), QStringLiteral("output")};
    const int ioIndex = ioNames.indexOf(io);
    if (ioIndex < 0)
        return poFail(tr("\"io\" must be setting, input or output"));

    std::unique_ptr<DItem> node = poMakeNode(type, path, DItem::IoType(ioIndex));
    if (!bApplyState(*node, object, isModule) || !bApplyValue(*node, object))
        return nullptr;

    const QJsonValue children = object.value(QStringLiteral("nodes"));
    if (!children.isUndefined() && !children.isArray())
        return poFail(tr("\"nodes\" must be a list"));
    QSet<QString> names;
    for (const QJsonValue& child : children.toArray()) {
        m_sWhere = path;
        if (!child.isObject())
            return poFail(tr("a node must be an object"));
        std::unique_ptr<DItem> childNode = poNode(child.toObject(), path, false);
        if (!childNode)
            return nullptr;
        m_sWhere = path;
        if (names.contains(childNode->unTranslatedName()))
            return poFail(
                tr("two nodes are named %1").arg(childNode->unTranslatedName()));
        names.insert(childNode->unTranslatedName());
        node->vAddChildNode(childNode.release());
    }
    return node;
}

bool JobBuilder::bApplyState(DItem& node, const QJsonObject& object, bool isModule)
{
    const bool input = node.ioType() == DItem::IoInput;
    const bool output = node.ioType() == DItem::IoOutput;
    QString description = node.unTranslatedName();
    QString icon = isModule ? QStringLiteral(":/images/Setting-3.svg") : QString();
    QString link;
    bool linkable, linkError, error, notAvailable, editable, deletable, copyable, draggable,
        hidable, renamable, visible, unavailable;
    if (!bText(object, QStringLiteral("description"), &description)
        || !bText(object, QStringLiteral("icon"), &icon)
        || !bText(object, QStringLiteral("link"), &link)
        || !bFlag(object, QStringLiteral("linkable"), input, &linkable)
        || !bFlag(object, QStringLiteral("linkError"), false, &linkError)
        || !bFlag(object, QStringLiteral("error"), false, &error)
        || !bFlag(object, QStringLiteral("notAvailable"), false, &notAvailable)
        || !bFlag(object, QStringLiteral("editable"), !output && !isModule, &editable)
        || !bFlag(object, QStringLiteral("deletable"), isModule, &deletable)
        || !bFlag(object, QStringLiteral("copyable"), isModule, &copyable)
        || !bFlag(object, QStringLiteral("draggable"), isModule, &draggable)
        || !bFlag(object, QStringLiteral("hidable"), !isModule, &hidable)
        || !bFlag(object, QStringLiteral("renamable"), isModule, &renamable)
        || !bFlag(object, QStringLiteral("visible"), true, &visible)
        || !bFlag(object, QStringLiteral("unavailable"), false, &unavailable))
        return false;
    const QJsonValue outOfRange = object.value(QStringLiteral("outOfRange"));
    if (!outOfRange.isUndefined() && (!outOfRange.isDouble() || outOfRange.toInt(-1) < 0))
        return bFail(tr("\"outOfRange\" must be a count"));
    if (!link.isEmpty() && !linkable)
        return bFail(tr("a node that is not linkable cannot have a link"));

    node.setProperty("IData.Description", description);
    node.setIconPath(icon);
    node.setLinkable(linkable);
    node.setLinked(!link.isEmpty());
    node.setLinkedPath(link);
    node.setLinkError(linkError);
    node.setErrorState(error);
    // The host's flag reads the other way round: true means no value has come yet.
    node.setInitialized(notAvailable);
    node.setOutOfRangeCounter(outOfRange.toInt(0));
    node.setEditable(editable);
    node.setProperty("iIsEditable", editable);
    node.setDeletable(deletable);
    node.setProperty("iDeletable", deletable);
    node.setCopyable(copyable);
    node.setDraggable(draggable);
    node.setHidable(hidable);
    node.setRenamingAllowed(renamable);
    node.setProperty("IData.IsGuiVisible", visible);
    if (unavailable)
        node.setProperty("GUI.Unavailable", true);

    const QJsonValue properties = object.value(QStringLiteral("properties"));
    if (properties.isUndefined())
        return true;
    if (!properties.isObject())
        return bFail(tr("\"properties\" must be an object"));
    const QVariantMap raw = properties.toObject().toVariantMap();
    for (auto it = raw.constBegin(); it != raw.constEnd(); ++it)
        node.setProperty(it.key().toUtf8().constData(), it.value());
    return true;
}

bool JobBuilder::bApplyValue(DItem& node, const QJsonObject& object)
{
    const QString& type = node.iDataType();
    if (isNumeric(type))
        return bApplyNumeric(node, object);
    if (type == kPoint)
        return bApplyPoint(node, object);
    if (auto* image = qobject_cast<Script::GraphicItems::WImage::Image*>(&node))
        return bApplyImage(*image, object);
    if (auto* binary = qobject_cast<Script::BinaryItem*>(&node))
        return bApplyBinary(*binary, object);

    const QJsonValue value = object.value(QStringLiteral("value"));
    const QJsonValue local = object.value(QStringLiteral("local"));
    if (type == kBool) {
        bool dynamicValue, localValue;
        QString reply;
        if (!bFlag(object, QStringLiteral("value"), false, &dynamicValue)
            || !bFlag(object, QStringLiteral("local"), dynamicValue, &localValue)
            || !bText(object, QStringLiteral("reply"), &reply))
            return false;
        node.setProperty("IDataBasicBool.DynamicValue", dynamicValue);
        node.setProperty("IDataBasicBool.LocalValue", localValue);
        if (!reply.isEmpty())
            node.setProperty("IDataBasicBool.ActionReply", reply);
        return true;
    }
    if (type == kEnum) {
        const QJsonValue choices = object.value(QStringLiteral("choices"));
        if (!choices.isArray())
            return bFail(tr("an enumeration needs \"choices\""));
        QStringList list;
        for (const QJsonValue& choice : choices.toArray()) {
            if (!choice.isString())
                return bFail(tr("every choice must be a text"));
            list << choice.toString();
        }
        QString dynamicValue = list.value(0);
        if (!bText(object, QStringLiteral("value"), &dynamicValue))
            return false;
        QString localValue = dynamicValue;
        if (!bText(object, QStringLiteral("local"), &localValue))
            return false;
        if (!list.contains(dynamicValue) || !list.contains(localValue))
            return bFail(tr("the value must be one of the choices"));
        node.setProperty("IDataBasicEnum.EnumList", list);
        node.setProperty("IDataBasicEnum.DynamicStringnifiedValue", dynamicValue);
        node.setProperty("IDataBasicEnum.LocalStringnifiedValue", localValue);
        return true;
    }
    if (type == kString) {
        QString dynamicValue;
        if (!bText(object, QStringLiteral("value"), &dynamicValue))
            return false;
        QString localValue = dynamicValue;
        if (!bText(object, QStringLiteral("local"), &localValue))
            return false;
        node.setProperty("IDataBasicString.DynamicValue", dynamicValue);
        node.setProperty("IDataBasicString.LocalValue", localValue);
        return true;
    }
    if (!value.isUndefined() || !local.isUndefined())
        return bFail(tr("a node of type \"%1\" holds no value").arg(type));
    return true;
}

bool JobBuilder::bApplyNumeric(DItem& node, const QJsonObject& object)
{
    const QString& type = node.iDataType();
    QVariant value(0), local, min, max, step, dynamicMin, dynamicMax;
    if (type == kInt64)
        value = qlonglong(0);
    else if (type == kDouble)
        value = 0.0;
    bool limitsEditable;
    if (!bNumber(object, QStringLiteral("value"), type, &value)
        || !bNumber(object, QStringLiteral("local"), type, &local)
        || !bNumber(object, QStringLiteral("min"), type, &min)
        || !bNumber(object, QStringLiteral("max"), type, &max)
        || !bNumber(object, QStringLiteral("step"), type, &step)
        || !bNumber(object, QStringLiteral("dynamicMin"), kDouble, &dynamicMin)
        || !bNumber(object, QStringLiteral("dynamicMax"), kDouble, &dynamicMax)
        || !bFlag(object, QStringLiteral("limitsEditable"), false, &limitsEditable))
        return false;
    if (min.isValid() && max.isValid() && min.toDouble() > max.toDouble())
        return bFail(tr("\"min\" lies above \"max\""));
    if (step.isValid() && step.toDouble() <= 0)
        return bFail(tr("\"step\" must be positive"));
    if (dynamicMin.isValid() != dynamicMax.isValid())
        return bFail(tr("\"dynamicMin\" and \"dynamicMax\" go together"));
    // The host keeps a local value within its limits, so a job holding one outside is broken.
    // An output's value is what the last run measured and may lie anywhere: it is shown out of
    // range, and only a local value written out for an output is checked.
    const bool output = node.ioType() == DItem::IoOutput;
    if ((local.isValid() || !output) && !bCheckLocalRange(node, local.isValid() ? local : value, min, max))
        return false;

    node.setProperty("IData.IsNumeric", true);
    node.setProperty("IData.NumericDynamic", dynamicMin.isValid());
    node.setProperty("IDataNumeric.DynamicValue", value);
    node.setProperty("IDataNumeric.LocalValue", local.isValid() ? local : value);
    node.setProperty("IDataNumeric.LimitsEditable", limitsEditable);
    if (min.isValid())
        node.setProperty("IDataNumeric.LocalMin", min);
    if (max.isValid())
        node.setProperty("IDataNumeric.LocalMax", max);
    if (step.isValid())
        node.setProperty("IDataNumeric.LocalStep", step);
    if (dynamicMin.isValid()) {
        node.setProperty("IDataNumeric.DynamicMin", dynamicMin);
        node.setProperty("IDataNumeric.DynamicMax", dynamicMax);
    }
    return true;
}

bool JobBuilder::bCheckLocalRange(const DItem& node, const QVariant& local, const QVariant& min,
                                  const QVariant& max)
{
    // 64-bit numbers are compared as such: as doubles, neighbours beyond 2^53 would be equal.
    const bool int64 = node.iDataType() == kInt64;
    auto below = [int64](const QVariant& a, const QVariant& b) {
        return int64 ? a.toLongLong() < b.toLongLong() : a.toDouble() < b.toDouble();
    };
    if ((min.isValid() && below(local, min)) || (max.isValid() && below(max, local))) {
        return bFail(tr("the local value %1 lies outside \"min\" %2 .. \"max\" %3")
                         .arg(local.toString(), min.isValid() ? min.toString() : QStringLiteral("-"),
                              max.isValid() ? max.toString() : QStringLiteral("-")));
    }
    return true;
}

bool JobBuilder::bApplyPoint(DItem& node, const QJsonObject& object)
{
    static const char* const axes[] = {"X", "Y", "Z"};
    for (const char* axis : axes) {
        QVariant value;
        if (!bNumber(object, QString::fromLatin1(axis).toLower(), kDouble, &value))
            return false;
        if (!value.isValid())
            continue;
        // The axes are nodes of their own that belong to the point; the point names them by
        // address, as the host does.
        auto* axisNode = new DItem(node.iDataPath() + '.' + QLatin1String(axis), kDouble,
                                   node.ioType(), &node);
        axisNode->setProperty("IData.Description", QString::fromLatin1(axis));
        axisNode->setProperty("IData.IsGuiVisible", true);
        axisNode->setProperty("IData.IsNumeric", true);
        axisNode->setProperty("IDataNumeric.DynamicValue", value);
        axisNode->setProperty("IDataNumeric.LocalValue", value);
        axisNode->setEditable(node.isEditable());
        axisNode->setProperty("iIsEditable", node.isEditable());
        node.setProperty(QByteArray("IDataGeoPoint.") + axis,
                         QVariant::fromValue(reinterpret_cast<qint64>(axisNode)));
    }
    return true;
}

bool JobBuilder::bApplyImage(Script::GraphicItems::WImage::Image& image, const QJsonObject& object)
{
    const QJsonValue size = object.value(QStringLiteral("image"));
    if (!size.isUndefined()) {
        const QJsonObject described = size.toObject();
        const int width = described.value(QStringLiteral("width")).toInt(0);
        const int height = described.value(QStringLiteral("height")).toInt(0);
        if (width <= 0 || height <= 0 || width > 4096 || height > 4096)
            return bFail(tr("\"image\" needs a width and height from 1 to 4096"));
        const QColor color(described.value(QStringLiteral("color")).toString());
        // A soft gradient with a few shapes, so that previews show something to look at.
        QImage picture(width, height, QImage::Format_RGB32);
        QPainter painter(&picture);
        QLinearGradient gradient(0, 0, width, height);
        gradient.setColorAt(0, color.isValid() ? color.darker(250) : Qt::black);
        gradient.setColorAt(1, color.isValid() ? color : Qt::gray);
        painter.fillRect(picture.rect(), gradient);
        painter.setPen(QPen(Qt::white, 2));
        painter.drawEllipse(QPoint(width / 2, height / 2), width / 4, height / 4);
        painter.drawRect(width / 8, height / 8, width / 5, height / 5);
        painter.end();
        image.setQImage(picture);
    }
    const QJsonValue mode = object.value(QStringLiteral("linkMode"));
    if (!mode.isUndefined()) {
        const int linkMode = mode.toInt(-1);
        if (linkMode < 0 || linkMode > 2)
            return bFail(tr("\"linkMode\" must be 0, 1 or 2"));
        image.setLinkMode(Script::GraphicItems::WImage::Image::LinkMode(linkMode));
    }
    const QJsonValue channels = object.value(QStringLiteral("channels"));
    if (!channels.isUndefined() && !channels.isArray())
        return bFail(tr("\"channels\" must be a list"));
    for (const QJsonValue& channel : channels.toArray()) {
        if (!channel.isString() || channel.toString().isEmpty() || channel.toString().contains('.'))
            return bFail(tr("a channel needs a name without \".\""));
        image.poAddChannel(channel.toString())->setLinkable(true);
    }
    return true;
}

bool JobBuilder::bApplyBinary(Script::BinaryItem& item, const QJsonObject& object)
{
    QString text, base64, fileName, extension, description;
    if (!bText(object, QStringLiteral("text"), &text)
        || !bText(object, QStringLiteral("base64"), &base64)
        || !bText(object, QStringLiteral("fileName"), &fileName)
        || !bText(object, QStringLiteral("extension"), &extension)
        || !bText(object, QStringLiteral("fileDescription"), &description))
        return false;
    if (!text.isEmpty() && !base64.isEmpty())
        return bFail(tr("give either \"text\" or \"base64\""));
    const auto decoded = QByteArray::fromBase64Encoding(base64.toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return bFail(tr("\"base64\" is not valid base64"));
    item.setBinaryData(text.isEmpty() ? *decoded : text.toUtf8());
    if (!fileName.isEmpty()) {
        item.setProperty("FileName", fileName);
        item.setProperty("Extension", extension);
        item.setProperty("Description", description);
    }
    return true;
}

// Links are checked once the whole job stands, since a link may point forwards in the file.
bool JobBuilder::bCheckLinks(DItem* root)
{
    const QHash<QString, DItem*> nodes = jobIndex(root);
    for (DItem* node : nodes) {
        if (!node->isLinked())
            continue;
        m_sWhere = node->iDataPath();
        const QString& target = node->linkedPath();
        const DItem* source = nodes.value(target);
        if (!source)
            return bFail(tr("the link goes to %1, which the job does not have").arg(target));
        if (source == node)
            return bFail(tr("the node is linked to itself"));
        if (!canTakeValueOf(node->iDataType(), source->iDataType())) {
            return bFail(tr("a node of type %1 cannot be linked to %2 of type %3")
                             .arg(node->iDataType(), target, source->iDataType()));
        }
        if (bLinkChainReaches(*source, *node, nodes))
            return bFail(tr("the links go round in a circle through %1").arg(target));
    }
    return true;
}

// Where a parse error lies, as an editor shows it: line and column from 1, the column counted
// in characters. The parser's offset lies just past the character that broke the document, so
// callers pass the offset before it.
QString textPosition(const QByteArray& json, int offset)
{
    offset = qBound(0, offset, json.size());
    const int lineStart = json.lastIndexOf('\n', offset - 1) + 1;
    const int line = json.left(lineStart).count('\n') + 1;
    const int column = QString::fromUtf8(json.constData() + lineStart, offset - lineStart).size() + 1;
    return QCoreApplication::translate("JobLoader", "line %1, column %2").arg(line).arg(column);
}

// Parses @p json, which it empties as soon as it is no longer needed: a large job then does not
// hold its text, its parsed document and its nodes all at once.
Script::DItem* poLoadText(QByteArray& json, QString* error, const JobLoader::Progress& progress)
{
    QJsonParseError parseError;
    QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    QString problem;
    std::unique_ptr<DItem> root;
    if (parseError.error != QJsonParseError::NoError) {
        problem = QCoreApplication::translate("JobLoader", "not valid JSON at %1: %2")
                      .arg(textPosition(json, parseError.offset - 1), parseError.errorString());
    } else if (!document.isObject()) {
        problem = QCoreApplication::translate("JobLoader", "a job must be a JSON object");
    } else {
        json = QByteArray();
        if (progress)
            progress(75);
        JobBuilder builder;
        const QJsonObject job = document.object();
        document = QJsonDocument();
        root = builder.poJob(job);
        if (root && !builder.bCheckLinks(root.get()))
            root.reset();
        problem = builder.m_sError;
    }
    if (progress)
        progress(100);
    if (error)
        *error = root ? QString() : problem;
    return root.release();
}

} // namespace

Script::DItem* JobLoader::poLoad(const QByteArray& json, QString* error)
{
    QByteArray text = json;
    return poLoadText(text, error, Progress());
}

const QString JobLoader::kRootPath = QStringLiteral("Module Application");

Script::DItem* JobLoader::poLoadModule(const QJsonObject& module, const QString& parentPath,
                                       QString* error)
{
    JobBuilder builder;
    std::unique_ptr<DItem> node = builder.poModule(module, parentPath);
    if (error)
        *error = node ? QString() : builder.m_sError;
    return node.release();
}

Script::DItem* JobLoader::poLoadFile(const QString& path, QString* error,
                                     const Progress& progress)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(path, file.errorString());
        return nullptr;
    }
    // Read in parts, so that a large file shows how far it has come; reading is the first half.
    const qint64 kPart = 4 << 20;
    const qint64 size = file.size();
    QByteArray json;
    if (size > 0 && size < std::numeric_limits<int>::max())
        json.reserve(int(size));
    while (!file.atEnd()) {
        const QByteArray part = file.read(kPart);
        if (part.isEmpty())
            break;
        json.append(part);
        if (progress && size > 0)
            progress(int(qMin<qint64>(50, qint64(json.size()) * 50 / size)));
    }
    if (file.error() != QFileDevice::NoError) {
        if (error)
            *error = QStringLiteral("%1: %2").arg(path, file.errorString());
        return nullptr;
    }
    file.close();
    QString problem;
    Script::DItem* root = poLoadText(json, &problem, progress);
    if (error)
        *error = root ? QString() : QStringLiteral("%1: %2").arg(path, problem);
    return root;
}
