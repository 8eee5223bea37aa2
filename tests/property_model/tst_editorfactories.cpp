#include "property_model/binaryeditorfactory.h"
#include "property_model/binaryfileeditorfactory.h"
#include "property_model/binaryfilepropertymanager.h"
#include "property_model/binarypropertymanager.h"
#include "property_model/booleditorfactory.h"
#include "property_model/boolpropertymanager.h"
#include "property_model/creationrules.h"
#include "property_model/doubleeditorfactory.h"
#include "property_model/doublepropertymanager.h"
#include "property_model/enumeditorfactory.h"
#include "property_model/enumpropertymanager.h"
#include "property_model/idataeditorfactory.h"
#include "property_model/idatapropertymanager.h"
#include "property_model/imageeditorfactory.h"
#include "property_model/imagepropertymanager.h"
#include "property_model/int64editorfactory.h"
#include "property_model/int64propertymanager.h"
#include "property_model/inteditorfactory.h"
#include "property_model/intpropertymanager.h"
#include "property_model/ocrfiltereditorfactory.h"
#include "property_model/ocrfilterpropertymanager.h"
#include "property_model/pointeditorfactory.h"
#include "property_model/pointpropertymanager.h"
#include "property_model/stringeditorfactory.h"
#include "property_model/stringpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "qtabstracteditorfactory.h"
#include "qtbrowseritem.h"
#include "qtpropertymanager.h"
#include "sdk/dialogautomation.h"
#include "sdk/ditem.h"

#include "showwidget.h"
#include "testsupport.h"

#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTreeView>

#include <functional>
#include <memory>
#include <string>
#include <vector>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;
using PropertyBrowser::EditorFactories::CreationRules;
namespace Managers = PropertyBrowser::Managers;
namespace Factories = PropertyBrowser::EditorFactories;

namespace {

/// What one factory did with one row of its own manager.
struct FactoryAnswer
{
    bool paired = false;
    QWidget* editor = nullptr;
};

/// Makes @p Factory and @p Manager, pairs them, and asks the factory for the editor of a row of
/// @p node, which the most permissive node state allows in every respect.
template<class Factory, class Manager, class PairedManager>
FactoryAnswer askFactory(const Script::DItem& node, QWidget* parent)
{
    Manager manager;
    Factory factory;
    factory.addPropertyManager(static_cast<PairedManager*>(&manager));
    auto* row = dynamic_cast<WidgetProperty*>(manager.addProperty(QStringLiteral("Row")));
    FactoryAnswer answer;
    if (!row)
        return answer;
    row->setData(node);
    answer.paired = factory.propertyManager(row) == static_cast<PairedManager*>(&manager);
    answer.editor = factory.createEditor(row, parent);
    return answer;
}

/// A factory for integer rows written as the row types' factories are meant to be: an editor
/// only when the project mode allows editing and the node may be edited.
class RuleFollowingFactory : public QtAbstractEditorFactory<QtIntPropertyManager>
{
public:
    RuleFollowingFactory()
        : QtAbstractEditorFactory<QtIntPropertyManager>(nullptr)
    { }

    int asked = 0;

protected:
    void connectPropertyManager(QtIntPropertyManager*) override { }
    QWidget* createEditor(QtIntPropertyManager*, QtProperty* property, QWidget* parent) override
    {
        ++asked;
        if (!CreationRules::allowed() || !CreationRules::editable(property))
            return nullptr;
        return new QLineEdit(parent);
    }
    void disconnectPropertyManager(QtIntPropertyManager*) override { }
};

} // namespace

using FactoryProbe = std::function<FactoryAnswer(const Script::DItem&, QWidget*)>;
Q_DECLARE_METATYPE(FactoryProbe)

class TestEditorFactories : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void allowedFollowsProjectMode_data();
    void allowedFollowsProjectMode();
    void allowedWithoutBrowser();
    void editableAndLimits_data();
    void editableAndLimits();
    void rulesForPropertiesThatAreNoRows();
    void factoriesAnswerAnEditableRow_data();
    void factoriesAnswerAnEditableRow();
    void noEditorWhenModeForbidsEditing_data();
    void noEditorWhenModeForbidsEditing();
    void ruleFollowingFactoryThroughBrowser_data();
    void ruleFollowingFactoryThroughBrowser();

private:
    WTreePropertyBrowser* makeBrowser();
    Script::DItem* makeNode(const QString& path, const QString& type,
                            Script::DItem::IoType ioType = Script::DItem::IoInput);

    QPointer<WTreePropertyBrowser> m_poBrowser;
    std::vector<std::unique_ptr<Script::DItem>> m_lNodes;
};

void TestEditorFactories::initTestCase()
{
    TestSupport::failOnWarnings();
    // The offline message must answer at once, also when the test runs outside ctest.
    Utils::DialogAutomation::setEnabled(true);
    WidgetProperty::m_ErrorDescription = [](int state) {
        return "state " + std::to_string(state);
    };
}

void TestEditorFactories::cleanup()
{
    delete m_poBrowser;
    QVERIFY(!WTreePropertyBrowser::me);
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
    m_lNodes.clear();
    Utils::DialogAutomation::clear();
    QVERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
             qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

WTreePropertyBrowser* TestEditorFactories::makeBrowser()
{
    m_poBrowser = new WTreePropertyBrowser(nullptr);
    m_poBrowser->resize(400, 400);
    return m_poBrowser;
}

Script::DItem* TestEditorFactories::makeNode(const QString& path, const QString& type,
                                             Script::DItem::IoType ioType)
{
    m_lNodes.push_back(std::make_unique<Script::DItem>(path, type, ioType));
    Script::DItem* node = m_lNodes.back().get();
    node->setProperty("IData.Description", path.mid(path.lastIndexOf('.') + 1));
    node->setProperty("IData.IsGuiVisible", true);
    return node;
}

void TestEditorFactories::allowedFollowsProjectMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("allowed");
    QTest::newRow("0") << 0 << true;
    QTest::newRow("locked") << 0x1 << true;
    QTest::newRow("editing blocked") << 0x1000 << true;
    QTest::newRow("both") << 0x1001 << false;
    QTest::newRow("both and released") << 0x1011 << false;
    QTest::newRow("hard locked") << 0x10000 << true;
    QTest::newRow("hard locked and locked") << 0x10001 << true;
}

void TestEditorFactories::allowedFollowsProjectMode()
{
    QFETCH(int, mode);
    QFETCH(bool, allowed);
    makeBrowser();
    QVERIFY(CreationRules::allowed());
    m_poBrowser->onProjectModeChanged(mode);
    QCOMPARE(CreationRules::allowed(), allowed);
}

void TestEditorFactories::allowedWithoutBrowser()
{
    QVERIFY(!WTreePropertyBrowser::me);
    QVERIFY(CreationRules::allowed());
}

void TestEditorFactories::editableAndLimits_data()
{
    QTest::addColumn<QVariant>("editableValue");
    QTest::addColumn<QVariant>("limitsValue");
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("limits");

    const QVariant none;
    QTest::newRow("neither key") << none << none << false << false;
    QTest::newRow("editable") << QVariant(true) << none << true << false;
    QTest::newRow("limits") << none << QVariant(true) << false << true;
    QTest::newRow("both") << QVariant(true) << QVariant(true) << true << true;
    QTest::newRow("both false") << QVariant(false) << QVariant(false) << false << false;
    QTest::newRow("as text") << QVariant(QStringLiteral("true")) << QVariant(QStringLiteral("1"))
                             << true << true;
    QTest::newRow("as numbers") << QVariant(1) << QVariant(0) << true << false;
    QTest::newRow("false as text")
        << QVariant(QStringLiteral("false")) << QVariant(QStringLiteral("0")) << false << false;
}

void TestEditorFactories::editableAndLimits()
{
    QFETCH(QVariant, editableValue);
    QFETCH(QVariant, limitsValue);
    QFETCH(bool, editable);
    QFETCH(bool, limits);

    Script::DItem* node = makeNode("Job.T.Value", "IDataBasicInt");
    node->setProperty("iIsEditable", editableValue);
    node->setProperty("IDataNumeric.LimitsEditable", limitsValue);
    // The node's own flag is another matter: the rules read the dynamic keys.
    node->setEditable(!editable);
    Managers::IntPropertyManager manager;
    auto* row = dynamic_cast<WidgetProperty*>(manager.addProperty("Value"));
    QVERIFY(row);
    row->setData(*node);
    QCOMPARE(CreationRules::editable(row), editable);
    QCOMPARE(CreationRules::limits(row), limits);
}

void TestEditorFactories::rulesForPropertiesThatAreNoRows()
{
    QVERIFY(!CreationRules::editable(nullptr));
    QVERIFY(!CreationRules::limits(nullptr));
    QtIntPropertyManager plainManager;
    QtProperty* plain = plainManager.addProperty("Plain");
    QVERIFY(plain);
    QVERIFY(!CreationRules::editable(plain));
    QVERIFY(!CreationRules::limits(plain));
    // A row that has no node yet.
    Managers::IntPropertyManager manager;
    QtProperty* unbound = manager.addProperty("Unbound");
    QVERIFY(dynamic_cast<WidgetProperty*>(unbound));
    QVERIFY(!CreationRules::editable(unbound));
    QVERIFY(!CreationRules::limits(unbound));
}

void TestEditorFactories::factoriesAnswerAnEditableRow_data()
{
    QTest::addColumn<FactoryProbe>("probe");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("editor");

    QTest::newRow("int") << FactoryProbe(
        askFactory<Factories::IntEditorFactory, Managers::IntPropertyManager, QtIntPropertyManager>)
                         << "IDataBasicInt"
                         << "IntPropertyEditor";
    QTest::newRow("int64") << FactoryProbe(
        askFactory<Factories::Int64EditorFactory, Managers::Int64PropertyManager,
                   Managers::Int64PropertyManager>)
                           << "IDataBasicInt64"
                           << "Int64PropertyEditor";
    QTest::newRow("double") << FactoryProbe(
        askFactory<Factories::DoubleEditorFactory, Managers::DoublePropertyManager,
                   QtDoublePropertyManager>)
                            << "IDataBasicDouble"
                            << "DoublePropertyEditor";
    QTest::newRow("bool") << FactoryProbe(
        askFactory<Factories::BoolEditorFactory, Managers::BoolPropertyManager,
                   QtBoolPropertyManager>)
                          << "IDataBasicBool"
                          << "BoolPropertyEditor";
    QTest::newRow("enum") << FactoryProbe(
        askFactory<Factories::EnumEditorFactory, Managers::EnumPropertyManager,
                   QtEnumPropertyManager>)
                          << "IDataBasicEnum"
                          << "EnumPropertyEditor";
    QTest::newRow("string") << FactoryProbe(
        askFactory<Factories::StringEditorFactory, Managers::StringPropertyManager,
                   QtStringPropertyManager>)
                            << "IDataBasicString" << QString();
    QTest::newRow("image") << FactoryProbe(
        askFactory<Factories::ImageEditorFactory, Managers::ImagePropertyManager,
                   QtStringPropertyManager>)
                           << "IDataImage" << QString();
    QTest::newRow("idata") << FactoryProbe(
        askFactory<Factories::IDataEditorFactory, Managers::IDataPropertyManager,
                   QtStringPropertyManager>)
                           << "IDataModule" << QString();
    QTest::newRow("point") << FactoryProbe(
        askFactory<Factories::PointEditorFactory, Managers::PointPropertyManager,
                   QtStringPropertyManager>)
                           << "IDataGeoPoint" << QString();
    QTest::newRow("binary") << FactoryProbe(
        askFactory<Factories::BinaryEditorFactory, Managers::BinaryPropertyManager,
                   QtStringPropertyManager>)
                            << "IDataBinary" << QString();
    QTest::newRow("binary file") << FactoryProbe(
        askFactory<Factories::BinaryFileEditorFactory, Managers::BinaryFilePropertyManager,
                   QtStringPropertyManager>)
                                 << "IDataBinaryFile" << QString();
    QTest::newRow("ocr filter") << FactoryProbe(
        askFactory<Factories::OcrFilterEditorFactory, Managers::OcrFilterPropertyManager,
                   QtStringPropertyManager>)
                                << "IDataBasicString" << QString();
}

void TestEditorFactories::factoriesAnswerAnEditableRow()
{
    QFETCH(FactoryProbe, probe);
    QFETCH(QString, type);
    QFETCH(QString, editor);

    // Everything speaks for an editor: a browser in mode 0 and an editable node.
    makeBrowser();
    QVERIFY(CreationRules::allowed());
    Script::DItem* node = makeNode("Job.T.Value", type);
    node->setProperty("iIsEditable", true);
    node->setProperty("IDataNumeric.LimitsEditable", true);
    node->setEditable(true);
    QWidget parent;
    const FactoryAnswer answer = probe(*node, &parent);
    // The factory knows the row's manager, so the null is its own decision.
    QVERIFY(answer.paired);
    if (editor.isEmpty()) {
        // The row types without an in-row editor stay read only.
        QVERIFY(!answer.editor);
        QVERIFY(parent.findChildren<QWidget*>().isEmpty());
    } else {
        QVERIFY(answer.editor);
        QCOMPARE(answer.editor->objectName(), editor);
        QCOMPARE(answer.editor->parentWidget(), &parent);
    }
}

void TestEditorFactories::noEditorWhenModeForbidsEditing_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("path");
    QTest::newRow("int") << "IDataBasicInt"
                         << "Job.Camera.A";
    QTest::newRow("int64") << "IDataBasicInt64"
                           << "Job.Camera.A";
    QTest::newRow("double") << "IDataBasicDouble"
                            << "Job.Camera.A";
    QTest::newRow("bool") << "IDataBasicBool"
                          << "Job.Camera.A";
    QTest::newRow("enum") << "IDataBasicEnum"
                          << "Job.Camera.A";
    QTest::newRow("string") << "IDataBasicString"
                            << "Job.Camera.A";
    QTest::newRow("image") << "IDataImage"
                           << "Job.Camera.A";
    QTest::newRow("idata") << "IDataModule"
                           << "Job.Camera.A";
    QTest::newRow("point") << "IDataGeoPoint"
                           << "Job.Camera.A";
    QTest::newRow("binary") << "IDataBinary"
                            << "Job.Camera.A";
    QTest::newRow("binary file") << "IDataBinaryFile"
                                 << "Job.Camera.A";
    QTest::newRow("ocr filter") << "IDataBasicString"
                                << "Job.Fielding.Set.Camera";
}

void TestEditorFactories::noEditorWhenModeForbidsEditing()
{
    QFETCH(QString, type);
    QFETCH(QString, path);

    makeBrowser();
    m_poBrowser->onProjectModeChanged(0x1001);
    Script::DItem* node = makeNode(path, type, Script::DItem::IoNone);
    node->setProperty("iIsEditable", true);
    node->setEditable(true);
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    QVERIFY(row);
    QWidget parent;
    QVERIFY(!m_poBrowser->createEditor(row, &parent));
    QVERIFY(parent.findChildren<QWidget*>().isEmpty());

    // Through the tree as a click opens it.
    QVERIFY(showWidget(m_poBrowser));
    QtBrowserItem* item = m_poBrowser->topLevelItem(row);
    m_poBrowser->editItem(item);
    QCOMPARE(m_poBrowser->currentItem(), item);
    auto* view = m_poBrowser->findChild<QTreeView*>();
    QVERIFY(!view->indexWidget(view->model()->index(0, 1)));
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
    // The mode has the offline bit, so not even the camera message shows.
    QVERIFY(Utils::DialogAutomation::calls().isEmpty());
}

void TestEditorFactories::ruleFollowingFactoryThroughBrowser_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("editableNode");
    QTest::addColumn<bool>("editor");
    QTest::newRow("mode 0") << 0 << true << true;
    QTest::newRow("locked") << 0x1 << true << true;
    QTest::newRow("editing blocked") << 0x1000 << true << true;
    QTest::newRow("both bits") << 0x1001 << true << false;
    QTest::newRow("both bits and released") << 0x1011 << true << false;
    QTest::newRow("node not editable") << 0 << false << false;
}

void TestEditorFactories::ruleFollowingFactoryThroughBrowser()
{
    QFETCH(int, mode);
    QFETCH(bool, editableNode);
    QFETCH(bool, editor);

    makeBrowser();
    m_poBrowser->onProjectModeChanged(mode);
    Script::DItem* node = makeNode("Job.Tool.Gain", "IDataBasicInt");
    node->setProperty("iIsEditable", editableNode);
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    RuleFollowingFactory factory;
    m_poBrowser->setFactoryForManager<QtIntPropertyManager>(
        static_cast<QtIntPropertyManager*>(row->propertyManager()), &factory);

    QVERIFY(showWidget(m_poBrowser));
    m_poBrowser->editItem(m_poBrowser->topLevelItem(row));
    QCOMPARE(factory.asked, 1);
    auto* view = m_poBrowser->findChild<QTreeView*>();
    QWidget* opened = view->indexWidget(view->model()->index(0, 1));
    QCOMPARE(opened != nullptr, editor);
    if (opened)
        QVERIFY(qobject_cast<QLineEdit*>(opened));
    delete m_poBrowser;
}

QTEST_MAIN(TestEditorFactories)
#include "tst_editorfactories.moc"
