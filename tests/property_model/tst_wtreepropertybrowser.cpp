#include "editors/baseeditor.h"
#include "property_model/intpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "property_model/widgetpropertycustomrenderer.h"
#include "property_model/wtreepropertybrowser.h"
#include "qtabstracteditorfactory.h"
#include "qtbrowseritem.h"
#include "qtpropertymanager.h"
#include "sdk/apptranslation.h"
#include "sdk/command.h"
#include "sdk/dialogautomation.h"
#include "sdk/ditem.h"
#include "sdk/visibilityinfo.h"
#include "sdk/wappsetting.h"
#include "sdk/wappsettings.h"

#include "../navigator/tabletranslator.h"
#include "showwidget.h"
#include "managertestsupport.h"
#include "testsupport.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QCursor>
#include <QFile>
#include <QHeaderView>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

// QSignalSpy keeps the arguments of the managers' and the browser's signals in QVariants.
Q_DECLARE_METATYPE(QtProperty*)
Q_DECLARE_METATYPE(QtBrowserItem*)

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;
using PropertyBrowser::Editors::BaseEditor;
using Command = VardeenDefs::PropertyEditor::Command;
using IoType = Script::DItem::IoType;

namespace {

const QString kGroup = QStringLiteral("PROPERTY_EDITOR");
const QString kSplitterKey = QStringLiteral("SplitterPos");
const QString kOfflineText = QStringLiteral("This property cannot be changed in offline mode.");

/// What the probe editors saw; it outlives the editors, which the browser may delete at once.
struct ProbeRecord
{
    int created = 0;
    int reads = 0;
    QStringList linkPaths;
    QList<QtProperty*> properties;
};

/// The smallest editor: it counts its reads and remembers the link paths it was asked to show.
class ProbeEditor : public BaseEditor
{
    Q_OBJECT

public:
    ProbeEditor(QWidget* parent, WidgetProperty* row, ProbeRecord* record)
        : BaseEditor(parent, row, TypeInt)
        , m_poRecord(record)
    { }

    void showLinkWidget(QString path) override
    {
        m_linkPath = path;
        if (m_poRecord)
            m_poRecord->linkPaths.append(path);
    }
    void readData() override
    {
        ++reads;
        if (m_poRecord)
            ++m_poRecord->reads;
    }

    int reads = 0;

private:
    ProbeRecord* m_poRecord;
};

/// A factory for integer rows that always makes a probe editor.
class ProbeFactory : public QtAbstractEditorFactory<QtIntPropertyManager>
{
public:
    explicit ProbeFactory(ProbeRecord* record)
        : QtAbstractEditorFactory<QtIntPropertyManager>(nullptr)
        , m_poRecord(record)
    { }

    using QtAbstractEditorFactory<QtIntPropertyManager>::createEditor;

protected:
    void connectPropertyManager(QtIntPropertyManager*) override { }
    QWidget* createEditor(QtIntPropertyManager*, QtProperty* property, QWidget* parent) override
    {
        ++m_poRecord->created;
        m_poRecord->properties.append(property);
        return new ProbeEditor(parent, dynamic_cast<WidgetProperty*>(property), m_poRecord);
    }
    void disconnectPropertyManager(QtIntPropertyManager*) override { }

private:
    ProbeRecord* m_poRecord;
};

QVariant addressOf(const Script::DItem* node)
{
    return QVariant::fromValue<qulonglong>(reinterpret_cast<quintptr>(node));
}

QStringList namesOf(const QList<QtProperty*>& properties)
{
    QStringList names;
    for (const QtProperty* property : properties)
        names << property->propertyName();
    return names;
}

/// The offline messages answered since the last clear of the dialog automation.
QList<Utils::DialogAutomation::Call> offlineMessages()
{
    QList<Utils::DialogAutomation::Call> result;
    const QList<Utils::DialogAutomation::Call> calls = Utils::DialogAutomation::calls();
    for (const Utils::DialogAutomation::Call& call : calls) {
        if (call.m_eKind == Utils::DialogAutomation::Info && !call.m_slTexts.isEmpty()
            && call.m_slTexts.first() == kOfflineText)
            result << call;
    }
    return result;
}

} // namespace

class TestWTreePropertyBrowser : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void constructionSetsUpTheTree();
    void destructionForgetsTheInstanceAndTheRows();
    void typeChoosesManager_data();
    void typeChoosesManager();
    void typeDecidesOverChildren_data();
    void typeDecidesOverChildren();
    void rowIsMappedBoundAndNamed();
    void inputsShowTheirChainBeforeTheName();
    void onlyTopLevelRowsJoinTheTree();
    void pointAxes_data();
    void pointAxes();
    void childrenAddedOnceInOrder();
    void childrenWithoutParentAreMappedOnly();
    void newRowsStartCollapsed();
    void updateRepaintsThroughEventLoop();
    void updateBindsNewNodeAndAddsLateChildren();
    void updateTranslatesNameAndSetsToolTip();
    void updateRefreshesEditorOfCurrentRowOnly();
    void updateOfUnknownNodeDoesNothing();
    void updateThenDeleteBeforeRepaint();
    void lookups();
    void browserItemOfRow();
    void propertyPaths();
    void orderUnchangedTouchesNothing();
    void orderMovesRowsKeepingExpansion();
    void orderLastItemStateWins_data();
    void orderLastItemStateWins();
    void visibility_data();
    void visibility();
    void visibilityCoversSubRowsAndShowsAgain();
    void highlightShowsSelectsAndFocuses();
    void highlightUnknownOrDetachedDoesNothing();
    void deleteRemovesRowFromTreeAndMap();
    void clearKeepsRowsWithManagers();
    void splitterRestoredWithGroup();
    void splitterWithoutGroup();
    void clearLeavesSettingWhenSplitterDidNotMove();
    void clearSavesMovedSplitter();
    void clearStopsEditing();
    void resizeMovesSplitterEveryThirdStep();
    void resizeOutsideInteractiveModeAccumulatesNothing();
    void nameIsDescriptionThenTranslatedSegment();
    void retranslateRefreshesRowsAndEditor();
    void editorCreationAllowed_data();
    void editorCreationAllowed();
    void editorCreationAllowedWithoutBrowser();
    void projectModeCursorAndEditor_data();
    void projectModeCursorAndEditor();
    void editorNotifications();
    void editorNotificationsWithoutBrowser();
    void managerSignalsReachBrowser_data();
    void managerSignalsReachBrowser();
    void valueEditTravelsAsPropertyEdited();
    void fileRequestsReachBrowser_data();
    void fileRequestsReachBrowser();
    void linkingWidgetGetsPath();
    void offlineMessage_data();
    void offlineMessage();
    void offlineMessageOncePerStoredPath();
    void offlineMessageThroughEditItem();

private:
    /// Makes the browser; with @p group the settings hold "PROPERTY_EDITOR" with @p position.
    WTreePropertyBrowser* makeBrowser(bool group = false, int position = 0);
    void deleteBrowser();
    /// A node owned by the test.
    Script::DItem* makeNode(const QString& path,
                            const QString& type = QStringLiteral("IDataBasicInt"),
                            IoType ioType = Script::DItem::IoNone,
                            const QString& description = QString());
    static void setChildren(Script::DItem* parent, const QList<Script::DItem*>& children);
    QTreeView* view() const { return m_poBrowser->findChild<QTreeView*>(); }
    /// A path for a camera row that no earlier test used, so the stored path never matches.
    static QString freshPath(const QString& stem);

    QPointer<WTreePropertyBrowser> m_poBrowser;
    QString m_sSettingsFile;
    std::vector<std::unique_ptr<Script::DItem>> m_lNodes;
    std::unique_ptr<TableTranslator> m_poTranslator;
    std::unique_ptr<ItemVisibility::VisibilityInfo> m_poVisibility;
};

void TestWTreePropertyBrowser::initTestCase()
{
    TestSupport::failOnWarnings();
    // Integer rows ask the host for state descriptions in their tool tips.
    WidgetProperty::m_ErrorDescription = [](int state) {
        return "state " + std::to_string(state);
    };
    Script::DItem::vRegisterMetaTypes();
    qRegisterMetaType<Command>();
    qRegisterMetaType<QtProperty*>();
    qRegisterMetaType<QtBrowserItem*>();
}

void TestWTreePropertyBrowser::init()
{
    Settings::WAppSettings::instance()->removeSetting(kGroup);
    Utils::DialogAutomation::clear();
    QVERIFY(Utils::DialogAutomation::bIsEnabled());
}

void TestWTreePropertyBrowser::cleanup()
{
    deleteBrowser();
    QVERIFY(!WTreePropertyBrowser::me);
    QVERIFY(WTreePropertyBrowser::wPropertyMapping.isEmpty());
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
    m_lNodes.clear();
    if (m_poTranslator) {
        QCoreApplication::removeTranslator(m_poTranslator.get());
        m_poTranslator.reset();
    }
    m_poVisibility.reset();
    Settings::WAppSettings::instance()->removeSetting(kGroup);
    Utils::DialogAutomation::clear();
    QVERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
             qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

WTreePropertyBrowser* TestWTreePropertyBrowser::makeBrowser(bool group, int position)
{
    if (group)
        Settings::WAppSettings::instance()->addSetting(kGroup)->setValueOf(kSplitterKey, position);
    m_poBrowser = new WTreePropertyBrowser(nullptr);
    m_poBrowser->resize(400, 300);
    return m_poBrowser;
}

void TestWTreePropertyBrowser::deleteBrowser()
{
    delete m_poBrowser;
    m_poBrowser = nullptr;
}

Script::DItem* TestWTreePropertyBrowser::makeNode(const QString& path, const QString& type,
                                                  IoType ioType, const QString& description)
{
    m_lNodes.push_back(std::make_unique<Script::DItem>(path, type, ioType));
    Script::DItem* node = m_lNodes.back().get();
    node->setProperty("IData.Description",
                      description.isEmpty() ? QStringLiteral("Desc ") + path : description);
    node->setProperty("IData.IsGuiVisible", true);
    return node;
}

void TestWTreePropertyBrowser::setChildren(Script::DItem* parent,
                                           const QList<Script::DItem*>& children)
{
    QVariantList list;
    for (const Script::DItem* child : children)
        list << (child ? addressOf(child) : QVariant::fromValue<qulonglong>(0));
    parent->setProperty("IData.Children", list);
}

QString TestWTreePropertyBrowser::freshPath(const QString& stem)
{
    static int counter = 0;
    return stem + QString::number(++counter);
}

// --- construction -------------------------------------------------------------------------

void TestWTreePropertyBrowser::constructionSetsUpTheTree()
{
    makeBrowser();
    QCOMPARE(WTreePropertyBrowser::me, m_poBrowser);
    QCOMPARE(m_poBrowser->objectName(), QStringLiteral("NavPropertyBrowser"));
    QVERIFY(m_poBrowser->rootIsDecorated());
    QCOMPARE(m_poBrowser->indentation(), 12);
    QCOMPARE(m_poBrowser->minimumSize(), QSize(180, 180));
    QCOMPARE(view()->iconSize(), QSize(20, 20));
    // The bar renderer belongs to the browser. It has no meta object of its own, so it is
    // found by its type.
    int renderers = 0;
    for (QObject* child : m_poBrowser->children()) {
        if (dynamic_cast<PropertyBrowser::WidgetPropertyCustomRenderer*>(child))
            ++renderers;
    }
    QCOMPARE(renderers, 1);

    // Rows are at least 26 pixels high, well above what the font asks for.
    Script::DItem* node = makeNode("Job.Tool.Value");
    m_poBrowser->createPropertyItem(*node, true);
    QVERIFY(showWidget(m_poBrowser));
    const QModelIndex index = view()->model()->index(0, 0);
    QTRY_VERIFY(view()->visualRect(index).isValid());
    QVERIFY2(view()->visualRect(index).height() >= 26,
             qPrintable(QString::number(view()->visualRect(index).height())));
}

void TestWTreePropertyBrowser::destructionForgetsTheInstanceAndTheRows()
{
    makeBrowser();
    Script::DItem* node = makeNode("Job.Tool.Value");
    QPointer<WidgetProperty> row = m_poBrowser->createPropertyItem(*node, true);
    QVERIFY(row);
    QCOMPARE(WTreePropertyBrowser::wPropertyMapping.size(), 1);
    deleteBrowser();
    QVERIFY(!WTreePropertyBrowser::me);
    QVERIFY(WTreePropertyBrowser::wPropertyMapping.isEmpty());
    // The rows went with their managers.
    QVERIFY(!row);
}

// --- row creation -------------------------------------------------------------------------

void TestWTreePropertyBrowser::typeChoosesManager_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("ioType");
    QTest::addColumn<QByteArray>("manager");

    const QByteArray ns("PropertyBrowser::Managers::");
    QTest::newRow("int") << "IDataBasicInt"
                         << "Job.T.A" << 0 << ns + "IntPropertyManager";
    QTest::newRow("int64") << "IDataBasicInt64"
                           << "Job.T.A" << 0 << ns + "Int64PropertyManager";
    QTest::newRow("image") << "IDataImage"
                           << "Job.T.A" << 0 << ns + "ImagePropertyManager";
    QTest::newRow("double") << "IDataBasicDouble"
                            << "Job.T.A" << 1 << ns + "DoublePropertyManager";
    QTest::newRow("bool") << "IDataBasicBool"
                          << "Job.T.A" << 0 << ns + "BoolPropertyManager";
    QTest::newRow("enum") << "IDataBasicEnum"
                          << "Job.T.A" << 0 << ns + "EnumPropertyManager";
    QTest::newRow("string") << "IDataBasicString"
                            << "Job.T.A" << 0 << ns + "StringPropertyManager";
    QTest::newRow("string in field set, setting")
        << "IDataBasicString"
        << "Job.Fielding.Set.Filter" << 0 << ns + "OcrFilterPropertyManager";
    QTest::newRow("string in field set, input")
        << "IDataBasicString"
        << "Job.Fielding.Set.Filter" << 1 << ns + "StringPropertyManager";
    QTest::newRow("string in field set, output")
        << "IDataBasicString"
        << "Job.Fielding.Set.Filter" << 2 << ns + "StringPropertyManager";
    QTest::newRow("string in other set")
        << "IDataBasicString"
        << "Job.Fielding.Sets.Filter" << 0 << ns + "StringPropertyManager";
    QTest::newRow("string without dot after set")
        << "IDataBasicString"
        << "Job.Fielding.Set" << 0 << ns + "StringPropertyManager";
    QTest::newRow("binary") << "IDataBinary"
                            << "Job.T.A" << 0 << ns + "BinaryPropertyManager";
    QTest::newRow("binary file") << "IDataBinaryFile"
                                 << "Job.T.A" << 0 << ns + "BinaryFilePropertyManager";
    QTest::newRow("point") << "IDataGeoPoint"
                           << "Job.T.A" << 0 << ns + "PointPropertyManager";
    QTest::newRow("module") << "IDataModule"
                            << "Job.T.A" << 0 << ns + "IDataPropertyManager";
    QTest::newRow("no type") << ""
                             << "Job.T.A" << 0 << ns + "IDataPropertyManager";
    QTest::newRow("case differs") << "idatabasicint"
                                  << "Job.T.A" << 0 << ns + "IDataPropertyManager";
    QTest::newRow("longer name") << "IDataBasicIntX"
                                 << "Job.T.A" << 0 << ns + "IDataPropertyManager";
}

void TestWTreePropertyBrowser::typeChoosesManager()
{
    QFETCH(QString, type);
    QFETCH(QString, path);
    QFETCH(int, ioType);
    QFETCH(QByteArray, manager);

    makeBrowser();
    Script::DItem* node = makeNode(path, type, static_cast<IoType>(ioType));
    if (type.isEmpty())
        node->setProperty("IData.Type", QVariant());
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    QVERIFY(row);
    QCOMPARE(QByteArray(row->propertyManager()->metaObject()->className()), manager);
}

void TestWTreePropertyBrowser::typeDecidesOverChildren_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("children");
    QTest::newRow("int") << "IDataBasicInt" << true;
    QTest::newRow("int64") << "IDataBasicInt64" << true;
    QTest::newRow("image") << "IDataImage" << false;
    QTest::newRow("double") << "IDataBasicDouble" << true;
    QTest::newRow("bool") << "IDataBasicBool" << true;
    QTest::newRow("enum") << "IDataBasicEnum" << true;
    QTest::newRow("string") << "IDataBasicString" << true;
    QTest::newRow("binary") << "IDataBinary" << false;
    QTest::newRow("binary file") << "IDataBinaryFile" << false;
    QTest::newRow("point") << "IDataGeoPoint" << false;
    QTest::newRow("unknown") << "IDataModule" << false;
}

void TestWTreePropertyBrowser::typeDecidesOverChildren()
{
    QFETCH(QString, type);
    QFETCH(bool, children);

    makeBrowser();
    Script::DItem* parent = makeNode("Job.T.Parent", type);
    Script::DItem* child = makeNode("Job.T.Parent.Child", "IDataBasicBool");
    setChildren(parent, {child});
    WidgetProperty* row = m_poBrowser->createPropertyItem(*parent, true);
    QVERIFY(row);
    QCOMPARE(row->subProperties().size(), children ? 1 : 0);
    QCOMPARE(m_poBrowser->propertyExists(child->iDataPath()), children);
    if (children)
        QCOMPARE(m_poBrowser->getWProperty(child->iDataPath())->node, child);
}

void TestWTreePropertyBrowser::rowIsMappedBoundAndNamed()
{
    makeBrowser();
    Script::DItem* node = makeNode("Job.Tool.Exposure", "IDataBasicDouble", Script::DItem::IoInput,
                                   QStringLiteral("Exposure time"));
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    QVERIFY(row);
    QCOMPARE(row->propertyName(), QStringLiteral("Exposure time"));
    QCOMPARE(row->node, node);
    QCOMPARE(row->nodePath, QStringLiteral("Job.Tool.Exposure"));
    QCOMPARE(WTreePropertyBrowser::wPropertyMapping.value("Job.Tool.Exposure"), row);
    QCOMPARE(WTreePropertyBrowser::wPropertyMapping.size(), 1);

    // A second row for the same path replaces the entry.
    Script::DItem* again = makeNode("Job.Tool.Exposure", "IDataBasicDouble");
    WidgetProperty* second = m_poBrowser->createPropertyItem(*again, true);
    QVERIFY(second && second != row);
    QCOMPARE(WTreePropertyBrowser::wPropertyMapping.value("Job.Tool.Exposure"), second);
    QCOMPARE(WTreePropertyBrowser::wPropertyMapping.size(), 1);
}

void TestWTreePropertyBrowser::inputsShowTheirChainBeforeTheName()
{
    makeBrowser();
    Script::DItem* open = makeNode("Job.T.Open", "IDataBasicInt", Script::DItem::IoInput);
    Script::DItem* closed = makeNode("Job.T.Closed", "IDataBasicDouble", Script::DItem::IoInput);
    closed->setLinked(true);
    Script::DItem* output = makeNode("Job.T.Output", "IDataBasicInt", Script::DItem::IoOutput);
    for (Script::DItem* node : {open, closed, output})
        QVERIFY(m_poBrowser->createPropertyItem(*node, true));
    const QAbstractItemModel* model = m_poBrowser->findChild<QTreeView*>()->model();
    auto pictureOf = [](const QVariant& decoration) {
        return decoration.value<QIcon>().pixmap(20, 20).toImage();
    };
    const QImage openChain = QIcon(QStringLiteral(":/images/chain_open.svg")).pixmap(20, 20).toImage();
    const QImage closedChain
        = QIcon(QStringLiteral(":/images/chain_closed.svg")).pixmap(20, 20).toImage();
    QVERIFY(!openChain.isNull() && openChain != closedChain);
    QCOMPARE(pictureOf(model->index(0, 0).data(Qt::DecorationRole)), openChain);
    QCOMPARE(pictureOf(model->index(1, 0).data(Qt::DecorationRole)), closedChain);
    // Only inputs take links, so only they show a chain.
    QVERIFY(!model->index(2, 0).data(Qt::DecorationRole).isValid());

    // The chain follows the node when the host refreshes the row.
    open->setLinked(true);
    m_poBrowser->updatePropertyItem(*open);
    QCOMPARE(pictureOf(model->index(0, 0).data(Qt::DecorationRole)), closedChain);
}

void TestWTreePropertyBrowser::onlyTopLevelRowsJoinTheTree()
{
    makeBrowser();
    Script::DItem* top = makeNode("Job.T.Top");
    Script::DItem* loose = makeNode("Job.T.Loose");
    WidgetProperty* topRow = m_poBrowser->createPropertyItem(*top, true);
    WidgetProperty* looseRow = m_poBrowser->createPropertyItem(*loose, false);
    QVERIFY(topRow && looseRow);
    QCOMPARE(m_poBrowser->properties(), QList<QtProperty*>() << topRow);
    QVERIFY(m_poBrowser->items(looseRow).isEmpty());
    QCOMPARE(m_poBrowser->getWProperty("Job.T.Loose"), looseRow);
}

void TestWTreePropertyBrowser::pointAxes_data()
{
    QTest::addColumn<bool>("x");
    QTest::addColumn<bool>("y");
    QTest::addColumn<bool>("z");
    QTest::addColumn<QStringList>("subRows");
    QTest::newRow("x y z") << true << true << true << QStringList({"X", "Y", "Z"});
    QTest::newRow("x y, no z: a plane point") << true << true << false << QStringList({"X", "Y"});
    QTest::newRow("y z, no x") << false << true << true << QStringList();
    QTest::newRow("x z, no y") << true << false << true << QStringList();
    QTest::newRow("x only") << true << false << false << QStringList();
    QTest::newRow("none") << false << false << false << QStringList();
}

void TestWTreePropertyBrowser::pointAxes()
{
    QFETCH(bool, x);
    QFETCH(bool, y);
    QFETCH(bool, z);
    QFETCH(QStringList, subRows);

    makeBrowser();
    Script::DItem* point = makeNode("Job.T.Point", "IDataGeoPoint");
    const char* keys[] = {"IDataGeoPoint.X", "IDataGeoPoint.Y", "IDataGeoPoint.Z"};
    const bool present[] = {x, y, z};
    QList<Script::DItem*> axes;
    for (int i = 0; i < 3; ++i) {
        const QString name = QString(QChar('X' + i));
        Script::DItem* axis
            = makeNode("Job.T.Point." + name, "IDataBasicDouble", Script::DItem::IoNone, name);
        axes << axis;
        if (present[i])
            point->setProperty(keys[i], addressOf(axis));
    }

    WidgetProperty* row = m_poBrowser->createPropertyItem(*point, true);
    QVERIFY(row);
    QCOMPARE(row->node, point);
    QCOMPARE(m_poBrowser->getWProperty("Job.T.Point"), row);
    QCOMPARE(namesOf(row->subProperties()), subRows);
    QCOMPARE(WTreePropertyBrowser::wPropertyMapping.size(), 1 + subRows.size());
    for (int i = 0; i < subRows.size(); ++i) {
        auto* sub = dynamic_cast<WidgetProperty*>(row->subProperties().at(i));
        QVERIFY(sub);
        QCOMPARE(sub->node, axes.at(i));
        QCOMPARE(m_poBrowser->getWProperty(axes.at(i)->iDataPath()), sub);
    }
    // The tree shows them below the point, in the same order.
    QtBrowserItem* item = m_poBrowser->topLevelItem(row);
    QVERIFY(item);
    QCOMPARE(item->children().size(), subRows.size());
    for (int i = 0; i < subRows.size(); ++i)
        QCOMPARE(item->children().at(i)->property(), row->subProperties().at(i));
}

void TestWTreePropertyBrowser::childrenAddedOnceInOrder()
{
    makeBrowser();
    Script::DItem* parent = makeNode("Job.T.P", "IDataBasicInt");
    Script::DItem* a = makeNode("Job.T.P.A", "IDataBasicInt", Script::DItem::IoNone, "A");
    Script::DItem* b = makeNode("Job.T.P.B", "IDataBasicBool", Script::DItem::IoNone, "B");
    Script::DItem* c = makeNode("Job.T.P.C", "IDataModule", Script::DItem::IoNone, "C");
    // A zero entry stands for no node and is passed over.
    setChildren(parent, {a, nullptr, b, c});
    WidgetProperty* row = m_poBrowser->createPropertyItem(*parent, true);
    QVERIFY(row);
    QCOMPARE(namesOf(row->subProperties()), QStringList({"A", "B", "C"}));
    QCOMPARE(m_poBrowser->getWProperty("Job.T.P.B")->node, b);
    QCOMPARE(WTreePropertyBrowser::wPropertyMapping.size(), 4);
    const int itemCount = m_poBrowser->topLevelItem(row)->children().size();
    QCOMPARE(itemCount, 3);

    // A second run finds every child mapped already.
    m_poBrowser->createChildrenNodes(*parent, row);
    QCOMPARE(namesOf(row->subProperties()), QStringList({"A", "B", "C"}));
    QCOMPARE(WTreePropertyBrowser::wPropertyMapping.size(), 4);
    QCOMPARE(m_poBrowser->topLevelItem(row)->children().size(), itemCount);

    // A late child is appended; the others stay as they are.
    Script::DItem* d = makeNode("Job.T.P.D", "IDataBasicInt", Script::DItem::IoNone, "D");
    setChildren(parent, {a, nullptr, b, c, d});
    m_poBrowser->createChildrenNodes(*parent, row);
    m_poBrowser->createChildrenNodes(*parent, row);
    QCOMPARE(namesOf(row->subProperties()), QStringList({"A", "B", "C", "D"}));
    QCOMPARE(WTreePropertyBrowser::wPropertyMapping.size(), 5);
}

void TestWTreePropertyBrowser::childrenWithoutParentAreMappedOnly()
{
    makeBrowser();
    Script::DItem* parent = makeNode("Job.T.P");
    Script::DItem* child = makeNode("Job.T.P.A");
    setChildren(parent, {child});
    m_poBrowser->createChildrenNodes(*parent, nullptr);
    WidgetProperty* row = m_poBrowser->getWProperty("Job.T.P.A");
    QVERIFY(row);
    QCOMPARE(row->node, child);
    QVERIFY(m_poBrowser->items(row).isEmpty());
    QVERIFY(!m_poBrowser->propertyExists("Job.T.P"));
}

void TestWTreePropertyBrowser::newRowsStartCollapsed()
{
    makeBrowser();
    Script::DItem* parent = makeNode("Job.T.P");
    Script::DItem* child = makeNode("Job.T.P.A");
    Script::DItem* grandChild = makeNode("Job.T.P.A.G");
    setChildren(parent, {child});
    setChildren(child, {grandChild});
    WidgetProperty* row = m_poBrowser->createPropertyItem(*parent, true);
    QtBrowserItem* item = m_poBrowser->topLevelItem(row);
    QVERIFY(item);
    QVERIFY(!m_poBrowser->isExpanded(item));
    QVERIFY(!view()->isExpanded(view()->model()->index(0, 0)));
    // A sub-row gets its item only when its parent joins the tree, after its own creation, so
    // it keeps the tree's default.
    QtBrowserItem* sub = item->children().value(0);
    QVERIFY(sub);
    QVERIFY(m_poBrowser->isExpanded(sub));
}

// --- update -------------------------------------------------------------------------------

void TestWTreePropertyBrowser::updateRepaintsThroughEventLoop()
{
    makeBrowser();
    Script::DItem* node = makeNode("Job.T.Value", "IDataBasicInt", Script::DItem::IoInput);
    node->setProperty("IDataNumeric.DynamicValue", 3);
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    m_poBrowser->updatePropertyItem(*node);
    QCoreApplication::processEvents();

    QSignalSpy changed(row->propertyManager(), &QtAbstractPropertyManager::propertyChanged);
    QSignalSpy itemData(view()->model(), &QAbstractItemModel::dataChanged);
    m_poBrowser->updatePropertyItem(*node);
    // Name and tool tip are as they were, so nothing was repainted yet.
    QCOMPARE(changed.count(), 0);
    QCOMPARE(itemData.count(), 0);
    QTRY_COMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).value<QtProperty*>(), static_cast<QtProperty*>(row));
    QVERIFY(itemData.count() >= 1);

    // A burst of updates repaints only after the caller returns.
    changed.clear();
    for (int i = 0; i < 3; ++i)
        m_poBrowser->updatePropertyItem(*node);
    QCOMPARE(changed.count(), 0);
    QTRY_COMPARE(changed.count(), 3);
}

void TestWTreePropertyBrowser::updateBindsNewNodeAndAddsLateChildren()
{
    makeBrowser();
    Script::DItem* first = makeNode("Job.T.Value", "IDataBasicInt");
    Script::DItem* early
        = makeNode("Job.T.Value.Early", "IDataBasicInt", Script::DItem::IoNone, "Early");
    setChildren(first, {early});
    WidgetProperty* row = m_poBrowser->createPropertyItem(*first, true);
    QCOMPARE(namesOf(row->subProperties()), QStringList({"Early"}));

    // The host hands a new node object for the same path, now with a late child.
    Script::DItem* second = makeNode("Job.T.Value", "IDataBasicInt");
    Script::DItem* late
        = makeNode("Job.T.Value.Late", "IDataBasicInt", Script::DItem::IoNone, "Late");
    setChildren(second, {early, late});
    m_poBrowser->updatePropertyItem(*second);
    QCOMPARE(row->node, second);
    QCOMPARE(m_poBrowser->getWProperty("Job.T.Value"), row);
    QCOMPARE(namesOf(row->subProperties()), QStringList({"Early", "Late"}));
    QCOMPARE(m_poBrowser->getWProperty("Job.T.Value.Late")->node, late);
    QCOMPARE(m_poBrowser->topLevelItem(row)->children().size(), 2);
    QCoreApplication::processEvents();
}

void TestWTreePropertyBrowser::updateTranslatesNameAndSetsToolTip()
{
    m_poTranslator = std::make_unique<TableTranslator>();
    m_poTranslator->add("IData", "Gain", "Verstaerkung");
    QCoreApplication::installTranslator(m_poTranslator.get());

    makeBrowser();
    Script::DItem* node = makeNode("Job.T.Gain", "IDataBasicInt", Script::DItem::IoInput, "Gain");
    node->setProperty("IDataNumeric.DynamicValue", 42);
    // Different limits: an ordinary value row, whose tool tip is its value.
    node->setProperty("IDataNumeric.LocalMin", 0);
    node->setProperty("IDataNumeric.LocalMax", 100);
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    QCOMPARE(row->propertyName(), QStringLiteral("Gain"));
    QVERIFY(row->toolTip().isEmpty());

    m_poBrowser->updatePropertyItem(*node);
    QCOMPARE(row->propertyName(), QStringLiteral("Verstaerkung"));
    auto* manager
        = dynamic_cast<PropertyBrowser::Managers::BasePropertyManager*>(row->propertyManager());
    QVERIFY(manager);
    QCOMPARE(row->toolTip(), manager->toolTipText(row));
    QCOMPARE(row->toolTip(), QStringLiteral("42"));

    // The tool tip follows the node at each update.
    node->setProperty("IDataNumeric.DynamicValue", 7);
    m_poBrowser->updatePropertyItem(*node);
    QCOMPARE(row->toolTip(), QStringLiteral("7"));
    QCoreApplication::processEvents();
}

void TestWTreePropertyBrowser::updateRefreshesEditorOfCurrentRowOnly()
{
    makeBrowser();
    Script::DItem* a = makeNode("Job.T.A");
    Script::DItem* b = makeNode("Job.T.B");
    WidgetProperty* rowA = m_poBrowser->createPropertyItem(*a, true);
    WidgetProperty* rowB = m_poBrowser->createPropertyItem(*b, true);
    ProbeRecord record;
    auto editor = std::make_unique<ProbeEditor>(nullptr, rowA, &record);
    WTreePropertyBrowser::notifyPropEditorCreated(editor.get());

    // Without a current row the editor is left alone.
    m_poBrowser->updatePropertyItem(*a);
    QCOMPARE(editor->reads, 0);

    m_poBrowser->setCurrentItem(m_poBrowser->topLevelItem(rowA));
    m_poBrowser->updatePropertyItem(*b);
    QCOMPARE(editor->reads, 0);
    m_poBrowser->updatePropertyItem(*a);
    QCOMPARE(editor->reads, 1);

    m_poBrowser->setCurrentItem(m_poBrowser->topLevelItem(rowB));
    m_poBrowser->updatePropertyItem(*a);
    QCOMPARE(editor->reads, 1);
    m_poBrowser->updatePropertyItem(*b);
    QCOMPARE(editor->reads, 2);

    editor.reset();
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
    QCoreApplication::processEvents();
}

void TestWTreePropertyBrowser::updateOfUnknownNodeDoesNothing()
{
    makeBrowser();
    Script::DItem* known = makeNode("Job.T.Known");
    m_poBrowser->createPropertyItem(*known, true);
    Script::DItem* unknown = makeNode("Job.T.Unknown");
    Script::DItem* child = makeNode("Job.T.Unknown.Child");
    setChildren(unknown, {child});
    m_poBrowser->updatePropertyItem(*unknown);
    QCOMPARE(WTreePropertyBrowser::wPropertyMapping.keys(), QStringList({"Job.T.Known"}));
    QCOMPARE(m_poBrowser->properties().size(), 1);
}

void TestWTreePropertyBrowser::updateThenDeleteBeforeRepaint()
{
    makeBrowser();
    Script::DItem* node = makeNode("Job.T.Value");
    QPointer<WidgetProperty> row = m_poBrowser->createPropertyItem(*node, true);
    QSignalSpy changed(row->propertyManager(), &QtAbstractPropertyManager::propertyChanged);
    m_poBrowser->updatePropertyItem(*node);
    changed.clear();
    m_poBrowser->deleteProperty("Job.T.Value");
    QVERIFY(!row);
    // The repaint went with the row.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QCOMPARE(changed.count(), 0);
}

// --- lookups ------------------------------------------------------------------------------

void TestWTreePropertyBrowser::lookups()
{
    makeBrowser();
    Script::DItem* node = makeNode("Job.T.Value");
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    QCOMPARE(m_poBrowser->getWProperty(QStringLiteral("Job.T.Value")), row);
    QCOMPARE(m_poBrowser->getWProperty(node), row);
    QVERIFY(!m_poBrowser->getWProperty(static_cast<const Script::DItem*>(nullptr)));
    QVERIFY(!m_poBrowser->getWProperty(QStringLiteral("Job.T.Other")));
    Script::DItem* other = makeNode("Job.T.Other");
    QVERIFY(!m_poBrowser->getWProperty(other));
    QVERIFY(!m_poBrowser->getWProperty(QString()));
    QVERIFY(m_poBrowser->propertyExists("Job.T.Value"));
    QVERIFY(!m_poBrowser->propertyExists("Job.T.Other"));
    // A lookup never adds an entry.
    QCOMPARE(WTreePropertyBrowser::wPropertyMapping.size(), 1);
}

void TestWTreePropertyBrowser::browserItemOfRow()
{
    makeBrowser();
    Script::DItem* top = makeNode("Job.T.Top");
    Script::DItem* loose = makeNode("Job.T.Loose");
    WidgetProperty* topRow = m_poBrowser->createPropertyItem(*top, true);
    WidgetProperty* looseRow = m_poBrowser->createPropertyItem(*loose, false);
    QtBrowserItem* item = m_poBrowser->getBrowserItem(*topRow);
    QVERIFY(item);
    QCOMPARE(item, m_poBrowser->items(topRow).first());
    QCOMPARE(item->property(), static_cast<QtProperty*>(topRow));
    QVERIFY(!m_poBrowser->getBrowserItem(*looseRow));
}

void TestWTreePropertyBrowser::propertyPaths()
{
    makeBrowser();
    Script::DItem* a = makeNode("Job.T.A");
    Script::DItem* b = makeNode("Job.T.B", "IDataBasicString");
    Script::DItem* c = makeNode("Job.T.C", "IDataModule");
    WidgetProperty* rowA = m_poBrowser->createPropertyItem(*a, true);
    m_poBrowser->createPropertyItem(*b, true);
    m_poBrowser->createPropertyItem(*c, true);
    Script::DItem* loose = makeNode("Job.T.Loose");
    m_poBrowser->createPropertyItem(*loose, false);
    QCOMPARE(m_poBrowser->getPropertyPaths(), QStringList({"Job.T.A", "Job.T.B", "Job.T.C"}));
    QCOMPARE(m_poBrowser->getPropertyPath(rowA), QStringLiteral("Job.T.A"));
    QVERIFY(m_poBrowser->getPropertyPath(nullptr).isEmpty());

    // Not a row of this tree: a plain property, and a row not yet bound to a node.
    QtStringPropertyManager plainManager;
    QtProperty* plain = plainManager.addProperty("Plain");
    QVERIFY(plain);
    QVERIFY(m_poBrowser->getPropertyPath(plain).isEmpty());
    PropertyBrowser::Managers::IntPropertyManager intManager;
    QtProperty* unbound = intManager.addProperty("Unbound");
    QVERIFY(dynamic_cast<WidgetProperty*>(unbound));
    QVERIFY(m_poBrowser->getPropertyPath(unbound).isEmpty());
}

// --- order --------------------------------------------------------------------------------

void TestWTreePropertyBrowser::orderUnchangedTouchesNothing()
{
    makeBrowser();
    Script::DItem* a = makeNode("Job.T.A");
    Script::DItem* a1 = makeNode("Job.T.A.One");
    Script::DItem* a11 = makeNode("Job.T.A.One.Leaf");
    Script::DItem* b = makeNode("Job.T.B");
    setChildren(a, {a1});
    setChildren(a1, {a11});
    WidgetProperty* rowA = m_poBrowser->createPropertyItem(*a, true);
    WidgetProperty* rowB = m_poBrowser->createPropertyItem(*b, true);
    QtBrowserItem* itemA = m_poBrowser->topLevelItem(rowA);
    QtBrowserItem* itemB = m_poBrowser->topLevelItem(rowB);
    QtBrowserItem* itemA1 = itemA->children().value(0);
    QVERIFY(itemA1);
    m_poBrowser->setExpanded(itemA, true);
    m_poBrowser->setExpanded(itemA1, false);

    m_poBrowser->setPropertyOrder({"Job.T.A", "Job.T.B"});
    // The very same items: nothing was moved, so nothing below was rebuilt.
    QCOMPARE(m_poBrowser->topLevelItems(), QList<QtBrowserItem*>({itemA, itemB}));
    QCOMPARE(itemA->children().value(0), itemA1);
    QVERIFY(m_poBrowser->isExpanded(itemA));
    QVERIFY(!m_poBrowser->isExpanded(itemA1));
    QVERIFY(!m_poBrowser->isExpanded(itemB));

    m_poBrowser->setPropertyOrder({});
    QCOMPARE(m_poBrowser->topLevelItems(), QList<QtBrowserItem*>({itemA, itemB}));
    QVERIFY(!m_poBrowser->isExpanded(itemA1));
}

void TestWTreePropertyBrowser::orderMovesRowsKeepingExpansion()
{
    makeBrowser();
    QList<WidgetProperty*> rows;
    for (const char* name : {"A", "B", "C", "D"}) {
        Script::DItem* node = makeNode(QStringLiteral("Job.T.") + name);
        Script::DItem* child = makeNode(QStringLiteral("Job.T.%1.Sub").arg(name));
        setChildren(node, {child});
        rows << m_poBrowser->createPropertyItem(*node, true);
    }
    // A and C open, B and D closed.
    m_poBrowser->setExpanded(m_poBrowser->topLevelItem(rows.at(0)), true);
    m_poBrowser->setExpanded(m_poBrowser->topLevelItem(rows.at(2)), true);

    const QStringList order({"Job.T.C", "Job.T.A", "Job.T.D", "Job.T.B"});
    m_poBrowser->setPropertyOrder(order);
    QCOMPARE(m_poBrowser->getPropertyPaths(), order);
    QCOMPARE(m_poBrowser->properties(),
             QList<QtProperty*>({rows.at(2), rows.at(0), rows.at(3), rows.at(1)}));
    QVERIFY(m_poBrowser->isExpanded(m_poBrowser->topLevelItem(rows.at(0))));
    QVERIFY(!m_poBrowser->isExpanded(m_poBrowser->topLevelItem(rows.at(1))));
    QVERIFY(m_poBrowser->isExpanded(m_poBrowser->topLevelItem(rows.at(2))));
    QVERIFY(!m_poBrowser->isExpanded(m_poBrowser->topLevelItem(rows.at(3))));
    // The view follows the browser.
    QVERIFY(view()->isExpanded(view()->model()->index(0, 0)));
    QVERIFY(view()->isExpanded(view()->model()->index(1, 0)));
    QVERIFY(!view()->isExpanded(view()->model()->index(2, 0)));
    QVERIFY(!view()->isExpanded(view()->model()->index(3, 0)));
}

void TestWTreePropertyBrowser::orderLastItemStateWins_data()
{
    QTest::addColumn<bool>("lastExpanded");
    QTest::newRow("last open, other closed") << true;
    QTest::newRow("last closed, other open") << false;
}

void TestWTreePropertyBrowser::orderLastItemStateWins()
{
    QFETCH(bool, lastExpanded);

    makeBrowser();
    Script::DItem* shared = makeNode("Job.T.Shared");
    Script::DItem* sharedChild = makeNode("Job.T.Shared.Sub");
    setChildren(shared, {sharedChild});
    Script::DItem* holder = makeNode("Job.T.Holder");
    setChildren(holder, {shared});
    WidgetProperty* holderRow = m_poBrowser->createPropertyItem(*holder, true);
    WidgetProperty* sharedRow = m_poBrowser->getWProperty("Job.T.Shared");
    QVERIFY(sharedRow);
    // The same row also at the top level: it now has two items.
    QVERIFY(m_poBrowser->addProperty(sharedRow));
    const QList<QtBrowserItem*> before = m_poBrowser->items(sharedRow);
    QCOMPARE(before.size(), 2);
    m_poBrowser->setExpanded(before.last(), lastExpanded);
    m_poBrowser->setExpanded(before.first(), !lastExpanded);

    // Only the shared row is named, so the holder and the item below it stay as they are.
    m_poBrowser->setPropertyOrder({"Job.T.Shared"});
    QCOMPARE(m_poBrowser->getPropertyPaths(), QStringList({"Job.T.Shared", "Job.T.Holder"}));
    const QList<QtBrowserItem*> after = m_poBrowser->items(sharedRow);
    QCOMPARE(after.size(), 2);
    for (QtBrowserItem* item : after)
        QCOMPARE(m_poBrowser->isExpanded(item), lastExpanded);
    QCOMPARE(m_poBrowser->topLevelItems().at(1), m_poBrowser->topLevelItem(holderRow));
}

// --- visibility ---------------------------------------------------------------------------

void TestWTreePropertyBrowser::visibility_data()
{
    QTest::addColumn<QVariant>("guiVisible");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QVariant>("unavailable");
    QTest::addColumn<bool>("hideSub");
    QTest::addColumn<bool>("visible");

    const QVariant none;
    QTest::newRow("visible node") << QVariant(true) << 0 << none << false << true;
    QTest::newRow("hidden node") << QVariant(false) << 0 << none << false << false;
    QTest::newRow("no visibility key") << none << 0 << none << false << false;
    QTest::newRow("hidden node, expert view") << QVariant(false) << 1 << none << false << true;
    QTest::newRow("no key, expert view") << none << 1 << none << false << true;
    QTest::newRow("hidden node, mode 2") << QVariant(false) << 2 << none << false << false;
    QTest::newRow("unavailable") << QVariant(true) << 0 << QVariant(true) << false << false;
    QTest::newRow("unavailable, expert view")
        << QVariant(true) << 1 << QVariant(true) << false << false;
    QTest::newRow("available") << QVariant(true) << 0 << QVariant(false) << false << true;
    QTest::newRow("hide sub property") << QVariant(true) << 1 << none << true << false;
    QTest::newRow("hide sub property false")
        << QVariant(false) << 1 << QVariant(false) << false << true;
}

void TestWTreePropertyBrowser::visibility()
{
    QFETCH(QVariant, guiVisible);
    QFETCH(int, mode);
    QFETCH(QVariant, unavailable);
    QFETCH(bool, hideSub);
    QFETCH(bool, visible);

    m_poVisibility = std::make_unique<ItemVisibility::VisibilityInfo>();
    ItemVisibility::VisibilityInfo::setInstance(m_poVisibility.get());
    m_poVisibility->setVisibilityMode(mode);

    makeBrowser();
    Script::DItem* node = makeNode("Job.T.Value");
    Script::DItem* other = makeNode("Job.T.Other");
    node->setProperty("IData.IsGuiVisible", guiVisible);
    node->setProperty("GUI.Unavailable", unavailable);
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    WidgetProperty* otherRow = m_poBrowser->createPropertyItem(*other, true);
    if (hideSub)
        row->setProperty("HideSubProperty", true);
    // The flag belongs on the row; on the node it means nothing.
    other->setProperty("HideSubProperty", true);
    m_poBrowser->setItemVisible(m_poBrowser->topLevelItem(row), !visible);

    m_poBrowser->refreshItemVisiblity();
    QCOMPARE(m_poBrowser->isItemVisible(m_poBrowser->topLevelItem(row)), visible);
    QVERIFY(m_poBrowser->isItemVisible(m_poBrowser->topLevelItem(otherRow)));
}

void TestWTreePropertyBrowser::visibilityCoversSubRowsAndShowsAgain()
{
    makeBrowser();
    Script::DItem* parent = makeNode("Job.T.P");
    Script::DItem* shown = makeNode("Job.T.P.Shown");
    Script::DItem* hidden = makeNode("Job.T.P.Hidden");
    hidden->setProperty("IData.IsGuiVisible", false);
    setChildren(parent, {shown, hidden});
    WidgetProperty* row = m_poBrowser->createPropertyItem(*parent, true);
    QtBrowserItem* item = m_poBrowser->topLevelItem(row);
    m_poBrowser->refreshItemVisiblity();
    QVERIFY(m_poBrowser->isItemVisible(item));
    QVERIFY(m_poBrowser->isItemVisible(item->children().at(0)));
    QVERIFY(!m_poBrowser->isItemVisible(item->children().at(1)));

    hidden->setProperty("IData.IsGuiVisible", true);
    parent->setProperty("GUI.Unavailable", true);
    m_poBrowser->refreshItemVisiblity();
    QVERIFY(!m_poBrowser->isItemVisible(item));
    QVERIFY(m_poBrowser->isItemVisible(item->children().at(1)));
}

// --- highlight and delete -----------------------------------------------------------------

void TestWTreePropertyBrowser::highlightShowsSelectsAndFocuses()
{
    makeBrowser();
    Script::DItem* a = makeNode("Job.T.A");
    Script::DItem* b = makeNode("Job.T.B");
    m_poBrowser->createPropertyItem(*a, true);
    WidgetProperty* rowB = m_poBrowser->createPropertyItem(*b, true);
    QtBrowserItem* itemB = m_poBrowser->topLevelItem(rowB);
    m_poBrowser->setItemVisible(itemB, false);
    m_poBrowser->show();
    QApplication::setActiveWindow(m_poBrowser);
    QVERIFY(QTest::qWaitForWindowActive(m_poBrowser));
    view()->clearFocus();
    QVERIFY(!view()->hasFocus());

    QSignalSpy current(m_poBrowser, &QtAbstractPropertyBrowser::currentItemChanged);
    m_poBrowser->highlightProperty("Job.T.B");
    QVERIFY(m_poBrowser->isItemVisible(itemB));
    QCOMPARE(m_poBrowser->currentItem(), itemB);
    QCOMPARE(current.count(), 1);
    QCOMPARE(view()->currentIndex().row(), 1);
    QVERIFY(view()->hasFocus());
}

void TestWTreePropertyBrowser::highlightUnknownOrDetachedDoesNothing()
{
    makeBrowser();
    Script::DItem* a = makeNode("Job.T.A");
    Script::DItem* loose = makeNode("Job.T.Loose");
    WidgetProperty* rowA = m_poBrowser->createPropertyItem(*a, true);
    m_poBrowser->createPropertyItem(*loose, false);
    QtBrowserItem* itemA = m_poBrowser->topLevelItem(rowA);
    m_poBrowser->setItemVisible(itemA, false);
    QSignalSpy current(m_poBrowser, &QtAbstractPropertyBrowser::currentItemChanged);
    m_poBrowser->highlightProperty("Job.T.Unknown");
    m_poBrowser->highlightProperty("Job.T.Loose");
    QCOMPARE(current.count(), 0);
    QVERIFY(!m_poBrowser->currentItem());
    QVERIFY(!m_poBrowser->isItemVisible(itemA));
}

void TestWTreePropertyBrowser::deleteRemovesRowFromTreeAndMap()
{
    makeBrowser();
    Script::DItem* a = makeNode("Job.T.A");
    Script::DItem* b = makeNode("Job.T.B");
    QPointer<WidgetProperty> rowA = m_poBrowser->createPropertyItem(*a, true);
    QPointer<WidgetProperty> rowB = m_poBrowser->createPropertyItem(*b, true);
    m_poBrowser->setCurrentItem(m_poBrowser->topLevelItem(rowA));

    m_poBrowser->deleteProperty("Job.T.A");
    QVERIFY(!rowA);
    QVERIFY(rowB);
    QCOMPARE(m_poBrowser->getPropertyPaths(), QStringList({"Job.T.B"}));
    QCOMPARE(WTreePropertyBrowser::wPropertyMapping.keys(), QStringList({"Job.T.B"}));
    QVERIFY(!m_poBrowser->currentItem());
    QCOMPARE(view()->model()->rowCount(), 1);

    // An unknown path changes nothing.
    m_poBrowser->deleteProperty("Job.T.A");
    m_poBrowser->deleteProperty("Job.T.Unknown");
    QVERIFY(rowB);
    QCOMPARE(m_poBrowser->getPropertyPaths(), QStringList({"Job.T.B"}));
}

// --- clear and splitter -------------------------------------------------------------------

void TestWTreePropertyBrowser::clearKeepsRowsWithManagers()
{
    makeBrowser();
    Script::DItem* a = makeNode("Job.T.A");
    Script::DItem* a1 = makeNode("Job.T.A.One");
    setChildren(a, {a1});
    QPointer<WidgetProperty> rowA = m_poBrowser->createPropertyItem(*a, true);
    QPointer<WidgetProperty> rowA1 = m_poBrowser->getWProperty("Job.T.A.One");
    QVERIFY(rowA1);
    m_poBrowser->clear();
    QVERIFY(m_poBrowser->topLevelItems().isEmpty());
    QVERIFY(m_poBrowser->getPropertyPaths().isEmpty());
    QVERIFY(WTreePropertyBrowser::wPropertyMapping.isEmpty());
    QCOMPARE(view()->model()->rowCount(), 0);
    QVERIFY(rowA);
    QVERIFY(rowA1);
    // The rows can be shown again.
    QVERIFY(m_poBrowser->addProperty(rowA));
    QCOMPARE(m_poBrowser->topLevelItem(rowA)->children().size(), 1);
    deleteBrowser();
    QVERIFY(!rowA);
    QVERIFY(!rowA1);
}

void TestWTreePropertyBrowser::splitterRestoredWithGroup()
{
    makeBrowser(true, 137);
    QCOMPARE(m_poBrowser->resizeMode(), QtTreePropertyBrowser::Interactive);
    QCOMPARE(m_poBrowser->splitterPosition(), 137);
    QCOMPARE(view()->header()->sectionResizeMode(0), QHeaderView::Interactive);
}

void TestWTreePropertyBrowser::splitterWithoutGroup()
{
    makeBrowser();
    QCOMPARE(m_poBrowser->resizeMode(), QtTreePropertyBrowser::ResizeToContents);
    m_poBrowser->setResizeMode(QtTreePropertyBrowser::Interactive);
    m_poBrowser->setSplitterPosition(123);
    m_poBrowser->saveSplitterPosition();
    m_poBrowser->clear();
    QVERIFY(!Settings::WAppSettings::instance()->find_setting(kGroup));
}

void TestWTreePropertyBrowser::clearLeavesSettingWhenSplitterDidNotMove()
{
    makeBrowser(true, 150);
    QCOMPARE(m_poBrowser->splitterPosition(), 150);
    Settings::WAppSetting* group = Settings::WAppSettings::instance()->find_setting(kGroup);
    QVERIFY(group);
    // A mark that only a write could replace.
    group->setValueOf(kSplitterKey, QStringLiteral("untouched"));
    m_poBrowser->clear();
    QCOMPARE(group->valueOf(kSplitterKey), QVariant(QStringLiteral("untouched")));
    m_poBrowser->saveSplitterPosition();
    QCOMPARE(group->valueOf(kSplitterKey), QVariant(QStringLiteral("untouched")));
}

void TestWTreePropertyBrowser::clearSavesMovedSplitter()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    m_sSettingsFile = dir.filePath(QStringLiteral("settings.ini"));
    QVERIFY(Settings::WAppSettings::instance()->open(m_sSettingsFile));
    makeBrowser(true, 150);
    Settings::WAppSetting* group = Settings::WAppSettings::instance()->find_setting(kGroup);
    m_poBrowser->setSplitterPosition(190);
    QCOMPARE(m_poBrowser->splitterPosition(), 190);
    m_poBrowser->clear();
    QCOMPARE(group->valueOf(kSplitterKey).toInt(), 190);

    // Saved once, the position counts as unchanged.
    group->setValueOf(kSplitterKey, QStringLiteral("untouched"));
    m_poBrowser->clear();
    QCOMPARE(group->valueOf(kSplitterKey), QVariant(QStringLiteral("untouched")));

    // Nothing reaches the file: the host saves the settings itself.
    QVERIFY(!QFile::exists(m_sSettingsFile));
}

void TestWTreePropertyBrowser::clearStopsEditing()
{
    makeBrowser();
    Script::DItem* node = makeNode("Job.T.A");
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    QSignalSpy editing(m_poBrowser, &WTreePropertyBrowser::editing);

    m_poBrowser->clear();
    QCOMPARE(editing.count(), 0);

    ProbeEditor editor(nullptr, row, nullptr);
    WTreePropertyBrowser::notifyPropEditorCreated(&editor);
    QCOMPARE(editing.count(), 1);
    m_poBrowser->clear();
    QCOMPARE(editing.count(), 2);
    QCOMPARE(editing.at(1).at(0).toBool(), false);
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
}

void TestWTreePropertyBrowser::resizeMovesSplitterEveryThirdStep()
{
    makeBrowser(true, 150);
    QCOMPARE(m_poBrowser->resizeMode(), QtTreePropertyBrowser::Interactive);
    QWidget window;
    window.resize(900, 400);
    m_poBrowser->setParent(&window);
    m_poBrowser->setGeometry(0, 0, 350, 300);
    m_poBrowser->show();
    QVERIFY(showWidget(&window));
    QCOMPARE(m_poBrowser->splitterPosition(), 150);

    // The accumulated factor lives on from earlier resizes: jump between two widths until the
    // splitter moves, which starts the count afresh.
    int width = 350;
    bool synced = false;
    for (int i = 0; i < 4 && !synced; ++i) {
        const int before = m_poBrowser->splitterPosition();
        width = width == 350 ? 700 : 350;
        m_poBrowser->resize(width, 300);
        QCOMPARE(m_poBrowser->width(), width);
        synced = m_poBrowser->splitterPosition() != before;
    }
    QVERIFY(synced);
    m_poBrowser->setSplitterPosition(150);

    // Now grow by 1 % (rounded up) at each step.
    float accu = 1.0f;
    QList<int> moves;
    for (int step = 1; step <= 9; ++step) {
        const int before = m_poBrowser->splitterPosition();
        const int next = int(std::ceil(width * 1.01));
        int expected = before;
        if (double(accu) >= 0.98 && double(accu) <= 1.02) {
            accu = float(next) / float(width) * accu;
        } else {
            expected = int(float(before) * accu);
            accu = 1.0f;
        }
        width = next;
        m_poBrowser->resize(width, 300);
        QCOMPARE(m_poBrowser->width(), width);
        QCOMPARE(m_poBrowser->splitterPosition(), expected);
        if (m_poBrowser->splitterPosition() != before)
            moves << step;
    }
    QCOMPARE(moves, QList<int>({3, 6, 9}));
    // Three moves of a little over 2 % each.
    QVERIFY2(m_poBrowser->splitterPosition() >= 158,
             qPrintable(QString::number(m_poBrowser->splitterPosition())));
    deleteBrowser();
}

void TestWTreePropertyBrowser::resizeOutsideInteractiveModeAccumulatesNothing()
{
    makeBrowser(true, 150);
    QWidget window;
    window.resize(900, 400);
    m_poBrowser->setParent(&window);
    m_poBrowser->setGeometry(0, 0, 350, 300);
    m_poBrowser->show();
    QVERIFY(showWidget(&window));

    int width = 350;
    bool synced = false;
    for (int i = 0; i < 4 && !synced; ++i) {
        const int before = m_poBrowser->splitterPosition();
        width = width == 350 ? 700 : 350;
        m_poBrowser->resize(width, 300);
        synced = m_poBrowser->splitterPosition() != before;
    }
    QVERIFY(synced);

    // Five steps of 1 % would carry the factor far out of its band, were they counted.
    m_poBrowser->setResizeMode(QtTreePropertyBrowser::Fixed);
    m_poBrowser->setSplitterPosition(150);
    for (int step = 0; step < 5; ++step) {
        width = int(std::ceil(width * 1.01));
        m_poBrowser->resize(width, 300);
        QCOMPARE(m_poBrowser->splitterPosition(), 150);
    }
    m_poBrowser->setResizeMode(QtTreePropertyBrowser::Interactive);
    m_poBrowser->setSplitterPosition(150);
    width = int(std::ceil(width * 1.01));
    m_poBrowser->resize(width, 300);
    QCOMPARE(m_poBrowser->splitterPosition(), 150);
    deleteBrowser();
}

// --- names --------------------------------------------------------------------------------

void TestWTreePropertyBrowser::nameIsDescriptionThenTranslatedSegment()
{
    makeBrowser();
    Script::DItem* exposure = makeNode("Job.Camera.Exposure", "IDataBasicDouble",
                                       Script::DItem::IoInput, "Exposure time in ms");
    Script::DItem* gain
        = makeNode("Job.Camera.Gain", "IDataBasicInt", Script::DItem::IoInput, "Gain factor");
    Script::DItem* sub
        = makeNode("Job.Camera.Gain.Limit", "IDataBasicInt", Script::DItem::IoNone, "Upper limit");
    setChildren(gain, {sub});
    WidgetProperty* exposureRow = m_poBrowser->createPropertyItem(*exposure, true);
    WidgetProperty* gainRow = m_poBrowser->createPropertyItem(*gain, true);
    WidgetProperty* subRow = m_poBrowser->getWProperty("Job.Camera.Gain.Limit");
    QCOMPARE(exposureRow->propertyName(), QStringLiteral("Exposure time in ms"));
    QCOMPARE(gainRow->propertyName(), QStringLiteral("Gain factor"));
    QCOMPARE(subRow->propertyName(), QStringLiteral("Upper limit"));

    m_poTranslator = std::make_unique<TableTranslator>();
    m_poTranslator->add("IData", "Exposure", "Belichtung");
    m_poTranslator->add("IData", "Limit", "Grenze");
    // Another context does not count.
    m_poTranslator->add("QObject", "Gain", "Wrong context");
    QCoreApplication::installTranslator(m_poTranslator.get());

    QTRY_COMPARE(exposureRow->propertyName(), QStringLiteral("Belichtung"));
    QCOMPARE(subRow->propertyName(), QStringLiteral("Grenze"));
    // Without a translation the segment itself is the name.
    QCOMPARE(gainRow->propertyName(), QStringLiteral("Gain"));
}

void TestWTreePropertyBrowser::retranslateRefreshesRowsAndEditor()
{
    makeBrowser();
    Script::DItem* a = makeNode("Job.T.Alpha", "IDataBasicInt", Script::DItem::IoNone, "Alpha");
    Script::DItem* b = makeNode("Job.T.Beta", "IDataBasicInt", Script::DItem::IoNone, "Beta");
    WidgetProperty* rowA = m_poBrowser->createPropertyItem(*a, true);
    m_poBrowser->createPropertyItem(*b, true);
    QSignalSpy changed(rowA->propertyManager(), &QtAbstractPropertyManager::propertyChanged);
    ProbeRecord record;
    ProbeEditor editor(nullptr, rowA, &record);

    // Names equal to the segments: every row is repainted all the same.
    m_poBrowser->retranslateWidget();
    QCOMPARE(changed.count(), 2);
    QCOMPARE(editor.reads, 0);

    WTreePropertyBrowser::notifyPropEditorCreated(&editor);
    m_poBrowser->retranslateWidget();
    QCOMPARE(changed.count(), 4);
    QCOMPARE(editor.reads, 1);
}

// --- project mode and editors -------------------------------------------------------------

void TestWTreePropertyBrowser::editorCreationAllowed_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("allowed");
    QTest::newRow("0") << 0 << true;
    QTest::newRow("0x1") << 0x1 << true;
    QTest::newRow("0x10") << 0x10 << true;
    QTest::newRow("0x1000") << 0x1000 << true;
    QTest::newRow("0x1001") << 0x1001 << false;
    QTest::newRow("0x1011") << 0x1011 << false;
    QTest::newRow("0x11001") << 0x11001 << false;
    QTest::newRow("0x10001") << 0x10001 << true;
    QTest::newRow("0x10000") << 0x10000 << true;
    QTest::newRow("all bits") << -1 << false;
}

void TestWTreePropertyBrowser::editorCreationAllowed()
{
    QFETCH(int, mode);
    QFETCH(bool, allowed);
    makeBrowser();
    m_poBrowser->onProjectModeChanged(mode);
    QCOMPARE(WTreePropertyBrowser::isEditorCreationAllowed(), allowed);
    m_poBrowser->onProjectModeChanged(0);
    QVERIFY(WTreePropertyBrowser::isEditorCreationAllowed());
}

void TestWTreePropertyBrowser::editorCreationAllowedWithoutBrowser()
{
    makeBrowser();
    m_poBrowser->onProjectModeChanged(0x1001);
    QVERIFY(!WTreePropertyBrowser::isEditorCreationAllowed());
    deleteBrowser();
    QVERIFY(WTreePropertyBrowser::isEditorCreationAllowed());
    // A new browser starts in mode 0.
    makeBrowser();
    QVERIFY(WTreePropertyBrowser::isEditorCreationAllowed());
}

void TestWTreePropertyBrowser::projectModeCursorAndEditor_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("cursor");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("0") << 0 << int(Qt::ForbiddenCursor) << true;
    QTest::newRow("0x10") << 0x10 << int(Qt::ArrowCursor) << true;
    QTest::newRow("0x1") << 0x1 << int(Qt::ForbiddenCursor) << true;
    QTest::newRow("0x1001") << 0x1001 << int(Qt::ForbiddenCursor) << false;
    QTest::newRow("0x1011") << 0x1011 << int(Qt::ArrowCursor) << false;
    QTest::newRow("0x1010") << 0x1010 << int(Qt::ArrowCursor) << true;
    QTest::newRow("0x11") << 0x11 << int(Qt::ArrowCursor) << true;
}

void TestWTreePropertyBrowser::projectModeCursorAndEditor()
{
    QFETCH(int, mode);
    QFETCH(int, cursor);
    QFETCH(bool, enabled);

    makeBrowser();
    // The opposite cursor first, so that the call must set it.
    m_poBrowser->setCursor(cursor == Qt::ArrowCursor ? Qt::ForbiddenCursor : Qt::ArrowCursor);
    m_poBrowser->onProjectModeChanged(mode);
    QCOMPARE(int(m_poBrowser->cursor().shape()), cursor);

    Script::DItem* node = makeNode("Job.T.A");
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    ProbeEditor editor(nullptr, row, nullptr);
    editor.setEnabled(!enabled);
    WTreePropertyBrowser::notifyPropEditorCreated(&editor);
    m_poBrowser->onProjectModeChanged(mode);
    QCOMPARE(editor.isEnabled(), enabled);
    QCOMPARE(WTreePropertyBrowser::isEditorCreationAllowed(), enabled);
    // Another mode turns the same editor the other way when the rule says so.
    m_poBrowser->onProjectModeChanged(enabled ? 0x1001 : 0);
    QCOMPARE(editor.isEnabled(), !enabled);
}

void TestWTreePropertyBrowser::editorNotifications()
{
    makeBrowser();
    Script::DItem* node = makeNode("Job.T.A");
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    ProbeEditor first(nullptr, row, nullptr);
    ProbeEditor second(nullptr, row, nullptr);
    QSignalSpy editing(m_poBrowser, &WTreePropertyBrowser::editing);

    WTreePropertyBrowser::notifyPropEditorCreated(&first);
    QCOMPARE(editing.count(), 1);
    QCOMPARE(editing.at(0).at(0).toBool(), true);
    QCOMPARE(WTreePropertyBrowser::propertyEditWidget, &first);
    WTreePropertyBrowser::notifyPropEditorCreated(&first);
    QCOMPARE(editing.count(), 1);

    // Another editor that is not the current one ends without a word.
    WTreePropertyBrowser::notifyPropEditorDestroyed(&second);
    QCOMPARE(editing.count(), 1);
    QCOMPARE(WTreePropertyBrowser::propertyEditWidget, &first);

    // A new editor takes over.
    WTreePropertyBrowser::notifyPropEditorCreated(&second);
    QCOMPARE(editing.count(), 2);
    QCOMPARE(editing.at(1).at(0).toBool(), true);
    QCOMPARE(WTreePropertyBrowser::propertyEditWidget, &second);

    WTreePropertyBrowser::notifyPropEditorDestroyed(&second);
    QCOMPARE(editing.count(), 3);
    QCOMPARE(editing.at(2).at(0).toBool(), false);
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
    WTreePropertyBrowser::notifyPropEditorDestroyed(&second);
    WTreePropertyBrowser::notifyPropEditorDestroyed(&first);
    QCOMPARE(editing.count(), 3);

    // Without an editor, a null one is no news.
    WTreePropertyBrowser::notifyPropEditorCreated(nullptr);
    QCOMPARE(editing.count(), 3);
}

void TestWTreePropertyBrowser::editorNotificationsWithoutBrowser()
{
    ProbeEditor editor(nullptr, nullptr, nullptr);
    WTreePropertyBrowser::notifyPropEditorCreated(&editor);
    QCOMPARE(WTreePropertyBrowser::propertyEditWidget, &editor);
    WTreePropertyBrowser::notifyPropEditorDestroyed(&editor);
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
}

// --- signals ------------------------------------------------------------------------------

void TestWTreePropertyBrowser::managerSignalsReachBrowser_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("ioType");
    QTest::newRow("int") << "IDataBasicInt"
                         << "Job.T.A" << 0;
    QTest::newRow("int64") << "IDataBasicInt64"
                           << "Job.T.A" << 0;
    QTest::newRow("double") << "IDataBasicDouble"
                            << "Job.T.A" << 0;
    QTest::newRow("bool") << "IDataBasicBool"
                          << "Job.T.A" << 0;
    QTest::newRow("string") << "IDataBasicString"
                            << "Job.T.A" << 0;
    QTest::newRow("image") << "IDataImage"
                           << "Job.T.A" << 0;
    QTest::newRow("enum") << "IDataBasicEnum"
                          << "Job.T.A" << 0;
    QTest::newRow("idata") << "IDataModule"
                           << "Job.T.A" << 0;
    QTest::newRow("binary") << "IDataBinary"
                            << "Job.T.A" << 0;
    QTest::newRow("binary file") << "IDataBinaryFile"
                                 << "Job.T.A" << 0;
    QTest::newRow("point") << "IDataGeoPoint"
                           << "Job.T.A" << 0;
    QTest::newRow("ocr filter") << "IDataBasicString"
                                << "Job.Fielding.Set.A" << 0;
}

void TestWTreePropertyBrowser::managerSignalsReachBrowser()
{
    QFETCH(QString, type);
    QFETCH(QString, path);
    QFETCH(int, ioType);

    makeBrowser();
    Script::DItem* node = makeNode(path, type, static_cast<IoType>(ioType));
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    QtAbstractPropertyManager* manager = row->propertyManager();
    QSignalSpy edited(m_poBrowser, &WTreePropertyBrowser::propertyEdited);
    QSignalSpy link(m_poBrowser, &WTreePropertyBrowser::linkClicked);
    QSignalSpy refresh(m_poBrowser, &WTreePropertyBrowser::refreshData);
    QSignalSpy editing(m_poBrowser, &WTreePropertyBrowser::editing);

    // Emitted as the managers emit them; a direct connection hands them on at once.
    QVERIFY(QMetaObject::invokeMethod(
        manager, "vPropertyEdited", Qt::DirectConnection, Q_ARG(QString, path),
        Q_ARG(VardeenDefs::PropertyEditor::Command, Command::SetLimits),
        Q_ARG(QVariant, QVariant(12)), Q_ARG(bool, false)));
    ManagerTest::verifyOnlyEdit(edited, path, Command::SetLimits, QVariant(12));
    QVERIFY(QMetaObject::invokeMethod(manager, "linkClicked", Qt::DirectConnection,
                                      Q_ARG(QString, "Job.Other.Out")));
    QCOMPARE(link.count(), 1);
    QCOMPARE(link.at(0).at(0).toString(), QStringLiteral("Job.Other.Out"));
    QVERIFY(QMetaObject::invokeMethod(manager, "refreshData", Qt::DirectConnection,
                                      Q_ARG(QString, path)));
    QCOMPARE(refresh.count(), 1);
    QCOMPARE(refresh.at(0).at(0).toString(), path);
    QCOMPARE(editing.count(), 0);
}

void TestWTreePropertyBrowser::valueEditTravelsAsPropertyEdited()
{
    makeBrowser();
    Script::DItem* node = makeNode("Job.T.Gain", "IDataBasicInt", Script::DItem::IoInput);
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    auto* manager
        = dynamic_cast<PropertyBrowser::Managers::IntPropertyManager*>(row->propertyManager());
    QVERIFY(manager);
    QSignalSpy edited(m_poBrowser, &WTreePropertyBrowser::propertyEdited);
    manager->setValue(row, 7);
    ManagerTest::verifyOnlyEdit(edited, "Job.T.Gain", Command::SetValue, QVariant(7));
}

void TestWTreePropertyBrowser::fileRequestsReachBrowser_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("save") << QByteArray("requestSaveToFile");
    QTest::newRow("load") << QByteArray("requestLoadFromFile");
    QTest::newRow("unload") << QByteArray("requestUnloadFile");
}

void TestWTreePropertyBrowser::fileRequestsReachBrowser()
{
    QFETCH(QByteArray, name);
    makeBrowser();
    Script::DItem* node = makeNode("Job.T.File", "IDataBinaryFile");
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    QSignalSpy save(m_poBrowser, &WTreePropertyBrowser::requestSaveToFile);
    QSignalSpy load(m_poBrowser, &WTreePropertyBrowser::requestLoadFromFile);
    QSignalSpy unload(m_poBrowser, &WTreePropertyBrowser::requestUnloadFile);
    QVERIFY(QMetaObject::invokeMethod(row->propertyManager(), name.constData(),
                                      Qt::DirectConnection, Q_ARG(QString, "Job.T.File")));
    QCOMPARE(save.count(), name == "requestSaveToFile" ? 1 : 0);
    QCOMPARE(load.count(), name == "requestLoadFromFile" ? 1 : 0);
    QCOMPARE(unload.count(), name == "requestUnloadFile" ? 1 : 0);
    QSignalSpy& hit = name == "requestSaveToFile" ? save
        : name == "requestLoadFromFile"           ? load
                                                  : unload;
    QCOMPARE(hit.at(0).at(0).toString(), QStringLiteral("Job.T.File"));
}

void TestWTreePropertyBrowser::linkingWidgetGetsPath()
{
    makeBrowser();
    Script::DItem* node = makeNode("Job.T.Gain", "IDataBasicInt", Script::DItem::IoInput);
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    ProbeRecord record;
    ProbeFactory factory(&record);
    auto* manager = static_cast<QtIntPropertyManager*>(row->propertyManager());
    m_poBrowser->setFactoryForManager<QtIntPropertyManager>(manager, &factory);
    QWidget parent;

    // An ordinary editor does not open the dialog.
    QPointer<QWidget> plain = m_poBrowser->createEditor(row, &parent);
    QVERIFY(plain);
    QCOMPARE(plain->parent(), &parent);
    QVERIFY(record.linkPaths.isEmpty());
    delete plain;

    m_poBrowser->showLinkingwidget(row, &parent, QStringLiteral("Job.Camera.Out"));
    QCOMPARE(record.created, 2);
    QCOMPARE(record.properties.last(), static_cast<QtProperty*>(row));
    QCOMPARE(record.linkPaths, QStringList({"Job.Camera.Out"}));
    // The editor only carried the dialog and is gone.
    QVERIFY(parent.findChildren<ProbeEditor*>().isEmpty());
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);

    // The flag does not outlive the call.
    QPointer<QWidget> after = m_poBrowser->createEditor(row, &parent);
    QVERIFY(after);
    QCOMPARE(record.linkPaths.size(), 1);
    delete after;
    QVERIFY(offlineMessages().isEmpty());
    deleteBrowser();
}

// --- offline message ----------------------------------------------------------------------

void TestWTreePropertyBrowser::offlineMessage_data()
{
    QTest::addColumn<QString>("stem");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("shown");
    QTest::newRow("camera") << "Job.Camera.Exposure" << 0 << true;
    QTest::newRow("3D map") << "Job.teMap3D.Scale" << 0 << true;
    QTest::newRow("camera, released") << "Job.Camera.Exposure" << 0x10 << true;
    QTest::newRow("camera, locked") << "Job.Camera.Exposure" << 0x1 << true;
    QTest::newRow("camera, offline bit") << "Job.Camera.Exposure" << 0x1000 << false;
    QTest::newRow("camera, no editing") << "Job.Camera.Exposure" << 0x1001 << false;
    QTest::newRow("other row") << "Job.Tool.Exposure" << 0 << false;
    QTest::newRow("lower case camera") << "Job.camera.Exposure" << 0 << false;
}

void TestWTreePropertyBrowser::offlineMessage()
{
    QFETCH(QString, stem);
    QFETCH(int, mode);
    QFETCH(bool, shown);

    makeBrowser();
    m_poBrowser->onProjectModeChanged(mode);
    Script::DItem* node = makeNode(freshPath(stem), "IDataBasicInt", Script::DItem::IoInput);
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    QWidget parent;
    QVERIFY(!m_poBrowser->createEditor(row, &parent));
    const QList<Utils::DialogAutomation::Call> messages = offlineMessages();
    QCOMPARE(Utils::DialogAutomation::calls().size(), messages.size());
    QCOMPARE(messages.size(), shown ? 1 : 0);
    if (shown) {
        QCOMPARE(messages.at(0).m_slTexts, QStringList({kOfflineText, QString(), QString()}));
        QCOMPARE(messages.at(0).m_poParent.data(), static_cast<QWidget*>(m_poBrowser));
    }
}

void TestWTreePropertyBrowser::offlineMessageOncePerStoredPath()
{
    makeBrowser();
    Script::DItem* camera
        = makeNode(freshPath("Job.Camera.Gain"), "IDataBasicInt", Script::DItem::IoInput);
    Script::DItem* map = makeNode(freshPath("Job.teMap3D.Zoom"), "IDataBasicInt");
    Script::DItem* tool = makeNode(freshPath("Job.Tool.Gain"), "IDataBasicInt");
    WidgetProperty* cameraRow = m_poBrowser->createPropertyItem(*camera, true);
    WidgetProperty* mapRow = m_poBrowser->createPropertyItem(*map, true);
    WidgetProperty* toolRow = m_poBrowser->createPropertyItem(*tool, true);
    QWidget parent;

    m_poBrowser->createEditor(cameraRow, &parent);
    QCOMPARE(offlineMessages().size(), 1);
    m_poBrowser->createEditor(cameraRow, &parent);
    QCOMPARE(offlineMessages().size(), 1);
    // Another row leaves the stored path alone.
    m_poBrowser->createEditor(toolRow, &parent);
    m_poBrowser->createEditor(cameraRow, &parent);
    QCOMPARE(offlineMessages().size(), 1);
    // In offline mode nothing is said and nothing is stored.
    m_poBrowser->onProjectModeChanged(0x1000);
    m_poBrowser->createEditor(mapRow, &parent);
    QCOMPARE(offlineMessages().size(), 1);
    m_poBrowser->onProjectModeChanged(0);
    m_poBrowser->createEditor(cameraRow, &parent);
    QCOMPARE(offlineMessages().size(), 1);
    // A different camera path is news, and so is the first one after it.
    m_poBrowser->createEditor(mapRow, &parent);
    QCOMPARE(offlineMessages().size(), 2);
    m_poBrowser->createEditor(mapRow, &parent);
    QCOMPARE(offlineMessages().size(), 2);
    m_poBrowser->createEditor(cameraRow, &parent);
    QCOMPARE(offlineMessages().size(), 3);

    // Called directly, the message keeps to the same rule; a null property has no path.
    m_poBrowser->showNonEditablePropInfoMsg(cameraRow, &parent);
    m_poBrowser->showNonEditablePropInfoMsg(nullptr, &parent);
    m_poBrowser->showNonEditablePropInfoMsg(toolRow, &parent);
    QCOMPARE(offlineMessages().size(), 3);
    m_poBrowser->showNonEditablePropInfoMsg(mapRow, &parent);
    QCOMPARE(offlineMessages().size(), 4);
    QCOMPARE(offlineMessages().last().m_poParent.data(), &parent);
    QCOMPARE(Utils::DialogAutomation::calls().size(), 4);
}

void TestWTreePropertyBrowser::offlineMessageThroughEditItem()
{
    makeBrowser();
    Script::DItem* camera
        = makeNode(freshPath("Job.Camera.Shutter"), "IDataBasicBool", Script::DItem::IoInput);
    Script::DItem* tool = makeNode(freshPath("Job.Tool.Shutter"), "IDataBasicBool");
    WidgetProperty* cameraRow = m_poBrowser->createPropertyItem(*camera, true);
    WidgetProperty* toolRow = m_poBrowser->createPropertyItem(*tool, true);
    QVERIFY(showWidget(m_poBrowser));

    m_poBrowser->editItem(m_poBrowser->topLevelItem(toolRow));
    QVERIFY(offlineMessages().isEmpty());
    QtBrowserItem* item = m_poBrowser->topLevelItem(cameraRow);
    m_poBrowser->editItem(item);
    QCOMPARE(offlineMessages().size(), 1);
    QCOMPARE(offlineMessages().at(0).m_poParent.data(), static_cast<QWidget*>(m_poBrowser));
    QVERIFY(!view()->indexWidget(view()->model()->index(0, 1)));
    QCOMPARE(m_poBrowser->currentItem(), item);
    m_poBrowser->editItem(item);
    QCOMPARE(offlineMessages().size(), 1);
}

QTEST_MAIN(TestWTreePropertyBrowser)
#include "tst_wtreepropertybrowser.moc"
