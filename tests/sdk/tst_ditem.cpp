#include "sdk/appfiletype.h"
#include "sdk/command.h"
#include "sdk/ditem.h"
#include "sdk/image.h"

#include "testsupport.h"

#include <QMetaEnum>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>

using Script::DItem;
using Script::DItemListPair;
using VardeenDefs::PropertyEditor::Command;

namespace {

// A node whose link state is computed, as a host's own node classes do.
class ComputedLinkNode : public DItem
{
public:
    using DItem::DItem;
    bool isLinked() const override { return true; }
    bool isLinkable() const override { return true; }
    bool hasLinkError() const override { return true; }
    QString linkedPath() const override { return QStringLiteral("Job.Camera.Image"); }
};

// Reaches QObject's last virtual operation, which is protected.
struct QObjectProbe : QObject
{
    static auto lastQObjectVirtual() { return &QObjectProbe::disconnectNotify; }
};

// The byte offset of a virtual member function in the virtual table, read from its pointer
// as the Itanium C++ ABI of x86 lays it out (1 + offset); -1 for a non-virtual function.
template<typename MemberFunction>
std::ptrdiff_t virtualTableOffset(MemberFunction function)
{
    struct Representation
    {
        std::uintptr_t m_iPointer;
        std::ptrdiff_t m_iAdjustment;
    } representation;
    static_assert(sizeof(MemberFunction) == sizeof(Representation), "unexpected layout");
    std::memcpy(&representation, &function, sizeof representation);
    if ((representation.m_iPointer & 1) == 0)
        return -1;
    return static_cast<std::ptrdiff_t>(representation.m_iPointer - 1);
}

using BoolSetter = void (DItem::*)(bool);
using BoolGetter = bool (DItem::*)() const;

struct BoolFlag
{
    const char* m_sName;
    BoolSetter m_poSetter;
    BoolGetter m_poGetter;
};

const BoolFlag boolFlags[] = {
    {"hasErrorState", &DItem::setErrorState, &DItem::hasErrorState},
    {"isInitialized", &DItem::setInitialized, &DItem::isInitialized},
    {"isEditable", &DItem::setEditable, &DItem::isEditable},
    {"isDeletable", &DItem::setDeletable, &DItem::isDeletable},
    {"isCopyable", &DItem::setCopyable, &DItem::isCopyable},
    {"isDraggable", &DItem::setDraggable, &DItem::isDraggable},
    {"isHidable", &DItem::setHidable, &DItem::isHidable},
    {"isRenamingAllowed", &DItem::setRenamingAllowed, &DItem::isRenamingAllowed},
    {"isLinked", &DItem::setLinked, &DItem::isLinked},
    {"isLinkable", &DItem::setLinkable, &DItem::isLinkable},
    {"hasLinkError", &DItem::setLinkError, &DItem::hasLinkError},
};

} // namespace

class TestDItem : public QObject
{
    Q_OBJECT

signals:
    void pairSent(const QPair<QList<Script::DItem*>, QList<Script::DItem*>>& pair);

public slots:
    void receivePair(const QPair<QList<Script::DItem*>, QList<Script::DItem*>>& pair)
    {
        m_oReceivedPair = pair;
    }
    void receiveConstNode(const Script::DItem* node) { m_poReceivedConstNode = node; }
    void receiveCommand(VardeenDefs::PropertyEditor::Command command)
    {
        m_eReceivedCommand = command;
    }

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void isAQObjectWithItsOwnMetaObject()
    {
        DItem node;
        QVERIFY(node.metaObject()->inherits(&QObject::staticMetaObject));
        QCOMPARE(QString::fromLatin1(node.metaObject()->className()),
                 QStringLiteral("Script::DItem"));
        QCOMPARE(node.metaObject()->superClass(), &QObject::staticMetaObject);
    }

    void linkOperationsAreVirtual()
    {
        const ComputedLinkNode computed;
        const DItem& asNode = computed;
        QVERIFY(asNode.isLinked());
        QVERIFY(asNode.isLinkable());
        QVERIFY(asNode.hasLinkError());
        QCOMPARE(asNode.linkedPath(), QStringLiteral("Job.Camera.Image"));

        // The stored values of the base stay untouched and unused by the override.
        QVERIFY(!computed.DItem::isLinked());
        QVERIFY(computed.DItem::linkedPath().isEmpty());
    }

    void linkOperationsComeFirstInTheVirtualTable()
    {
#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
        const std::ptrdiff_t slot = static_cast<std::ptrdiff_t>(sizeof(void*));
        const std::ptrdiff_t lastOfQObject = virtualTableOffset(QObjectProbe::lastQObjectVirtual());
        QVERIFY(lastOfQObject >= 0);
        QCOMPARE(virtualTableOffset(&DItem::isLinked), lastOfQObject + slot);
        QCOMPARE(virtualTableOffset(&DItem::isLinkable), lastOfQObject + 2 * slot);
        QCOMPARE(virtualTableOffset(&DItem::hasLinkError), lastOfQObject + 3 * slot);
        QCOMPARE(virtualTableOffset(&DItem::linkedPath), lastOfQObject + 4 * slot);
        // The other operations are plain functions, outside the table.
        QCOMPARE(virtualTableOffset(&DItem::ioType), std::ptrdiff_t(-1));
        QCOMPARE(virtualTableOffset(&DItem::iDataPath), std::ptrdiff_t(-1));
#else
        QSKIP("The layout of member function pointers is only known for the x86 Itanium ABI.");
#endif
    }

    void defaultNode()
    {
        const DItem node;
        QVERIFY(node.iDataPath().isEmpty());
        QVERIFY(node.iDataType().isEmpty());
        QCOMPARE(node.ioType(), DItem::IoNone);
        QCOMPARE(node.outOfRangeCounter(), 0);
        QVERIFY(node.unTranslatedName().isEmpty());
        QVERIFY(node.iconPath().isEmpty());
        QVERIFY(node.linkedPath().isEmpty());
        for (const BoolFlag& flag : boolFlags)
            QVERIFY2(!(node.*flag.m_poGetter)(), flag.m_sName);
        QVERIFY(!node.property("IData.Type").isValid());
    }

    void pathConstructor()
    {
        const DItem node(QStringLiteral("Job.Threshold.MinGray"), QStringLiteral("IDataBasicInt"),
                         DItem::IoInput);
        QCOMPARE(node.iDataPath(), QStringLiteral("Job.Threshold.MinGray"));
        QCOMPARE(node.unTranslatedName(), QStringLiteral("MinGray"));
        QCOMPARE(node.iDataType(), QStringLiteral("IDataBasicInt"));
        QCOMPARE(node.property("IData.Type").toString(), QStringLiteral("IDataBasicInt"));
        QCOMPARE(node.ioType(), DItem::IoInput);
        QCOMPARE(int(node.ioType()), 1);
    }

    void ioTypeNumbers()
    {
        QCOMPARE(int(DItem::IoNone), 0);
        QCOMPARE(int(DItem::IoInput), 1);
        QCOMPARE(int(DItem::IoOutput), 2);
        DItem node;
        node.setIoType(DItem::IoOutput);
        QCOMPARE(node.ioType(), DItem::IoOutput);
        QCOMPARE(sizeof(node.ioType()), sizeof(qint32));
    }

    void boolFlag_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(sizeof boolFlags / sizeof boolFlags[0]); ++i)
            QTest::newRow(boolFlags[i].m_sName) << i;
    }

    void boolFlag()
    {
        QFETCH(int, index);
        const BoolFlag& flag = boolFlags[index];
        DItem node;
        (node.*flag.m_poSetter)(true);
        QVERIFY((node.*flag.m_poGetter)());
        // Setting one flag leaves every other one alone.
        for (const BoolFlag& other : boolFlags) {
            if (&other != &flag)
                QVERIFY2(!(node.*other.m_poGetter)(), other.m_sName);
        }
        (node.*flag.m_poSetter)(false);
        QVERIFY(!(node.*flag.m_poGetter)());
    }

    void textAndNumberSetters()
    {
        DItem node;
        node.setDataPath(QStringLiteral("Job.Blob.Area"));
        node.setUnTranslatedName(QStringLiteral("Area"));
        node.setIconPath(QStringLiteral(":/images/omniSpect.svg"));
        node.setLinkedPath(QStringLiteral("Job.Other.Area"));
        node.setOutOfRangeCounter(3);
        QCOMPARE(node.iDataPath(), QStringLiteral("Job.Blob.Area"));
        QCOMPARE(node.unTranslatedName(), QStringLiteral("Area"));
        QCOMPARE(node.iconPath(), QStringLiteral(":/images/omniSpect.svg"));
        QCOMPARE(node.linkedPath(), QStringLiteral("Job.Other.Area"));
        QCOMPARE(node.outOfRangeCounter(), 3);
        // The path is held, not copied per call: the reference stays the same object.
        QCOMPARE(&node.iDataPath(), &node.iDataPath());
    }

    void setDataTypeMirrorsTheTypeKey()
    {
        DItem node;
        node.setDataType(QStringLiteral("IDataBasicDouble"));
        QCOMPARE(node.iDataType(), QStringLiteral("IDataBasicDouble"));
        QCOMPARE(node.property("IData.Type").toString(), QStringLiteral("IDataBasicDouble"));
        node.setProperty("IData.Type", QVariant());
        QVERIFY(!node.property("IData.Type").isValid());
        QCOMPARE(node.iDataType(), QStringLiteral("IDataBasicDouble"));
    }

    void dynamicProperties_data()
    {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QVariant>("value");
        QTest::newRow("int") << QByteArray("IDataNumeric.DynamicValue") << QVariant(42);
        QTest::newRow("int64") << QByteArray("IDataNumeric.LocalMax")
                               << QVariant(Q_INT64_C(9000000000));
        QTest::newRow("double") << QByteArray("IDataNumeric.LocalStep") << QVariant(0.25);
        QTest::newRow("bool") << QByteArray("IDataBasicBool.DynamicValue") << QVariant(true);
        QTest::newRow("string") << QByteArray("IDataBasicString.LocalValue")
                                << QVariant(QStringLiteral("text"));
        QTest::newRow("list") << QByteArray("IDataBasicEnum.EnumList")
                              << QVariant(QStringList {QStringLiteral("A"), QStringLiteral("B")});
    }

    void dynamicProperties()
    {
        QFETCH(QByteArray, key);
        QFETCH(QVariant, value);
        DItem node;
        node.setProperty(key.constData(), value);
        QCOMPARE(node.property(key.constData()), value);
        QVERIFY(node.dynamicPropertyNames().contains(key));
    }

    void missingKeyReadsAsInvalid()
    {
        const DItem node;
        const QVariant missing = node.property("IData.Description");
        QVERIFY(!missing.isValid());
        QCOMPARE(missing.toBool(), false);
        QCOMPARE(missing.toInt(), 0);
        QVERIFY(missing.toString().isEmpty());
        QVERIFY(missing.toList().isEmpty());
    }

    void childNodes()
    {
        DItem root(QStringLiteral("Job"), QStringLiteral("IDataModule"));
        auto* first = new DItem(QStringLiteral("Job.A"), QStringLiteral("IDataBasicInt"));
        auto* second = new DItem(QStringLiteral("Job.B"), QStringLiteral("IDataModule"));
        auto* grandChild = new DItem(QStringLiteral("Job.B.C"), QStringLiteral("IDataBasicBool"));
        root.vAddChildNode(first);
        root.vAddChildNode(second);
        second->vAddChildNode(grandChild);

        QCOMPARE(first->parent(), &root);
        QCOMPARE(root.childNodes(), (QList<DItem*> {first, second}));
        const QVariantList addresses = root.property("IData.Children").toList();
        QCOMPARE(addresses.size(), 2);
        QCOMPARE(addresses.at(0).toULongLong(), qulonglong(reinterpret_cast<quintptr>(first)));
        QCOMPARE(root.poFindNode(QStringLiteral("Job.B.C")), grandChild);
        QCOMPARE(root.poFindNode(QStringLiteral("Job")), &root);
        QCOMPARE(root.poFindNode(QStringLiteral("Job.X")), nullptr);

        delete first;
        QCOMPARE(root.childNodes(), QList<DItem*> {second});
        QCOMPARE(root.poFindNode(QStringLiteral("Job.A")), nullptr);
    }

    void deleteChildNodeLeavesTheChildrenKey()
    {
        DItem root(QStringLiteral("Job"), QStringLiteral("IDataModule"));
        auto* first = new DItem(QStringLiteral("Job.A"), QStringLiteral("IDataBasicInt"));
        auto* second = new DItem(QStringLiteral("Job.B"), QStringLiteral("IDataBasicInt"));
        root.vAddChildNode(first);
        root.vAddChildNode(second);
        QPointer<DItem> watched(first);

        DItem stranger(QStringLiteral("Other"), QStringLiteral("IDataModule"));
        stranger.vDeleteChildNode(second);
        QCOMPARE(root.childNodes(), (QList<DItem*> {first, second}));

        root.vDeleteChildNode(first);
        QVERIFY(watched.isNull());
        const QVariantList addresses = root.property("IData.Children").toList();
        QCOMPARE(addresses.size(), 1);
        QCOMPARE(addresses.at(0).toULongLong(), qulonglong(reinterpret_cast<quintptr>(second)));
        root.vDeleteChildNode(nullptr);
        QCOMPARE(root.childNodes(), QList<DItem*> {second});
    }

    void addChildNodeRefusesNullAndItself()
    {
        DItem root;
        root.vAddChildNode(nullptr);
        root.vAddChildNode(&root);
        QVERIFY(root.childNodes().isEmpty());
        QVERIFY(!root.property("IData.Children").isValid());
    }

    void metaTypesAreRegisteredByName_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("id");
        QTest::newRow("node") << QByteArray("Script::DItem*") << qMetaTypeId<DItem*>();
        QTest::newRow("const node")
            << QByteArray("const Script::DItem*") << qMetaTypeId<const DItem*>();
        QTest::newRow("list") << QByteArray("QList<Script::DItem*>")
                              << qMetaTypeId<QList<DItem*>>();
        QTest::newRow("pair") << QByteArray("QPair<QList<Script::DItem*>,QList<Script::DItem*> >")
                              << qMetaTypeId<DItemListPair>();
        QTest::newRow("image") << QByteArray("Script::GraphicItems::WImage::Image*")
                               << qMetaTypeId<Script::GraphicItems::WImage::Image*>();
        QTest::newRow("points") << QByteArray("QVector<QPointF>")
                                << qMetaTypeId<QVector<QPointF>>();
        QTest::newRow("command") << QByteArray("VardeenDefs::PropertyEditor::Command")
                                 << qMetaTypeId<Command>();
        QTest::newRow("file type")
            << QByteArray("AppSpecifficFileType") << qMetaTypeId<AppSpecifficFileType>();
    }

    void metaTypesAreRegisteredByName()
    {
        QFETCH(QByteArray, name);
        QFETCH(int, id);
        QCOMPARE(QMetaType::type(QMetaObject::normalizedType(name.constData())), id);
        QVERIFY(id != QMetaType::UnknownType);
    }

    void nodePointerTravelsInVariant()
    {
        DItem node(QStringLiteral("Job.A"), QStringLiteral("IDataBasicInt"));
        const QVariant held = QVariant::fromValue(&node);
        QCOMPARE(held.value<DItem*>(), &node);
        QCOMPARE(held.value<QObject*>(), static_cast<QObject*>(&node));

        const QVariant asObject = QVariant::fromValue<QObject*>(&node);
        QCOMPARE(asObject.value<DItem*>(), &node);
        QObject other;
        QCOMPARE(QVariant::fromValue(&other).value<DItem*>(), nullptr);
    }

    void constNodePointerTravelsInVariant()
    {
        DItem node(QStringLiteral("Job.A"), QStringLiteral("IDataBasicInt"));
        const DItem* constNode = &node;
        QCOMPARE(QVariant::fromValue(constNode).value<const DItem*>(), constNode);
        QCOMPARE(QVariant::fromValue(&node).value<const DItem*>(), constNode);
        QCOMPARE(QVariant::fromValue<QObject*>(&node).value<const DItem*>(), constNode);
    }

    void nodeListTravelsInVariant()
    {
        DItem a, b;
        const QList<DItem*> nodes {&a, &b};
        QCOMPARE(QVariant::fromValue(nodes).value<QList<DItem*>>(), nodes);
        const QVariantList objects {QVariant::fromValue<QObject*>(&a), QVariant::fromValue(&b)};
        QCOMPARE(QVariant(objects).value<QList<DItem*>>(), nodes);
    }

    void nodeListPairTravelsInVariant()
    {
        DItem a, b, c;
        const DItemListPair pair(QList<DItem*> {&a, &b}, QList<DItem*> {&c});
        const QVariant held = QVariant::fromValue(pair);
        QCOMPARE(held.value<DItemListPair>(), pair);

        const QVariantList lists {QVariantList {QVariant::fromValue(&a), QVariant::fromValue(&b)},
                                  QVariantList {QVariant::fromValue<QObject*>(&c)}};
        QVariant converted(lists);
        QVERIFY(converted.canConvert<DItemListPair>());
        QCOMPARE(converted.value<DItemListPair>(), pair);
    }

    void imagePointerTravelsInVariant()
    {
        using Script::GraphicItems::WImage::Image;
        Image image(QStringLiteral("Job.Camera.Image"));
        const QVariant held = QVariant::fromValue(&image);
        QCOMPARE(held.value<Image*>(), &image);
        QCOMPARE(qobject_cast<Image*>(held.value<QObject*>()), &image);
        QCOMPARE(QVariant::fromValue<QObject*>(&image).value<Image*>(), &image);
        QCOMPARE(QVariant::fromValue<DItem*>(&image).value<Image*>(), &image);
        DItem plain;
        QCOMPARE(QVariant::fromValue(&plain).value<Image*>(), nullptr);
    }

    void pointsTravelInVariant()
    {
        const QVector<QPointF> points {QPointF(1.5, 2), QPointF(-3, 4.25)};
        QCOMPARE(QVariant::fromValue(points).value<QVector<QPointF>>(), points);
        const QVariantList list {QPointF(1.5, 2), QPointF(-3, 4.25)};
        QCOMPARE(QVariant(list).value<QVector<QPointF>>(), points);
        const QList<QPointF> pointList = points.toList();
        QCOMPARE(QVariant::fromValue(pointList).value<QVector<QPointF>>(), points);
    }

    void commandNumbersAndNames()
    {
        QCOMPARE(int(VardeenDefs::PropertyEditor::SetLink), 1);
        QCOMPARE(int(VardeenDefs::PropertyEditor::SelectLink), 3);
        QCOMPARE(int(VardeenDefs::PropertyEditor::SetValue), 4);
        QCOMPARE(int(VardeenDefs::PropertyEditor::SetLimits), 5);
        const QMetaEnum names = QMetaEnum::fromType<Command>();
        QCOMPARE(QByteArray(names.valueToKey(VardeenDefs::PropertyEditor::SelectLink)),
                 QByteArray("SelectLink"));
        QCOMPARE(names.keyToValue("SetLimits"), 5);
        QVERIFY(names.valueToKey(0) != nullptr);
        QVERIFY(names.valueToKey(2) != nullptr);
    }

    void commandTravelsInVariant()
    {
        const QVariant held = QVariant::fromValue(VardeenDefs::PropertyEditor::SetLimits);
        QCOMPARE(held.value<Command>(), VardeenDefs::PropertyEditor::SetLimits);
        QCOMPARE(held.toInt(), 5);
        QCOMPARE(QVariant(4).value<Command>(), VardeenDefs::PropertyEditor::SetValue);
    }

    void fileTypeTravelsInVariant()
    {
        QCOMPARE(int(FileTypeNone), 0);
        QCOMPARE(int(FileTypeGuidedJob), 5);
        QCOMPARE(int(FileTypeGuidedTemplate), 6);
        QCOMPARE(QVariant::fromValue(FileTypeGuidedTemplate).value<AppSpecifficFileType>(),
                 FileTypeGuidedTemplate);
    }

    void nodeTypesTravelInQueuedCalls()
    {
        DItem a, b;
        const DItemListPair pair(QList<DItem*> {&a}, QList<DItem*> {&b});
        // Q_ARG cannot take a type with a comma; the argument names the type as moc spells it.
        QVERIFY(QMetaObject::invokeMethod(
            this, "receivePair", Qt::QueuedConnection,
            QGenericArgument("QPair<QList<Script::DItem*>,QList<Script::DItem*> >", &pair)));
        QVERIFY(QMetaObject::invokeMethod(this, "receiveConstNode", Qt::QueuedConnection,
                                          Q_ARG(const Script::DItem*, &a)));
        QVERIFY(QMetaObject::invokeMethod(
            this, "receiveCommand", Qt::QueuedConnection,
            Q_ARG(VardeenDefs::PropertyEditor::Command, VardeenDefs::PropertyEditor::SetLink)));
        QTRY_COMPARE(m_oReceivedPair, pair);
        QTRY_COMPARE(m_poReceivedConstNode, static_cast<const DItem*>(&a));
        QTRY_COMPARE(m_eReceivedCommand, VardeenDefs::PropertyEditor::SetLink);
    }

    void nodeTypesTravelInQueuedSignals()
    {
        DItem a;
        const DItemListPair pair(QList<DItem*> {&a}, QList<DItem*>());
        connect(this, &TestDItem::pairSent, this, &TestDItem::receivePair, Qt::QueuedConnection);
        QSignalSpy spy(this, &TestDItem::pairSent);
        m_oReceivedPair = DItemListPair();
        emit pairSent(pair);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).value<DItemListPair>(), pair);
        QTRY_COMPARE(m_oReceivedPair, pair);
        disconnect(this, &TestDItem::pairSent, this, &TestDItem::receivePair);
    }

private:
    DItemListPair m_oReceivedPair;
    const DItem* m_poReceivedConstNode = nullptr;
    Command m_eReceivedCommand = VardeenDefs::PropertyEditor::NoCommand;
};

QTEST_MAIN(TestDItem)
#include "tst_ditem.moc"
