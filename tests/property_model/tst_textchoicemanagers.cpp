#include "navigator/ditemnavpainter.h"
#include "property_model/boolpropertymanager.h"
#include "property_model/enumpropertymanager.h"
#include "property_model/idatapropertymanager.h"
#include "property_model/ocrfilterpropertymanager.h"
#include "property_model/stringpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

#include "../navigator/tabletranslator.h"
#include "../propertybrowser/propertymetatype.h"
#include "managertestsupport.h"
#include "testsupport.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::Managers::BasePropertyManager;
using PropertyBrowser::Managers::BoolPropertyManager;
using PropertyBrowser::Managers::EnumPropertyManager;
using PropertyBrowser::Managers::IDataPropertyManager;
using PropertyBrowser::Managers::OcrFilterPropertyManager;
using PropertyBrowser::Managers::StringPropertyManager;
using Command = VardeenDefs::PropertyEditor::Command;

using ManagerTest::Chain;
using ManagerTest::chainImage;
using ManagerTest::iconImage;
using ManagerTest::verifyEdit;
using ManagerTest::verifyOnlyEdit;

namespace {

enum class Kind { String, Bool, Enum, IData, OcrFilter };
enum class Check { None, Checked, Unchecked };

const QString iTab = QStringLiteral("a\tb");
const QString iTabShown = QStringLiteral("a") + QChar(0x2409) + QStringLiteral("b");

// One manager of each kind behind one face, so that a table row can name the kind.
struct Fixture
{
    explicit Fixture(Kind kind)
    {
        switch (kind) {
        case Kind::String:
            node = std::make_unique<Script::DItem>(QStringLiteral("Job.Serial.Text"),
                                                   QStringLiteral("IDataBasicString"));
            node->setProperty("IDataBasicString.DynamicValue", iTab);
            manager = std::make_unique<StringPropertyManager>();
            break;
        case Kind::Bool:
            node = std::make_unique<Script::DItem>(QStringLiteral("Job.Serial.Open"),
                                                   QStringLiteral("IDataBasicBool"));
            node->setProperty("IDataBasicBool.DynamicValue", true);
            node->setProperty("IDataBasicBool.ActionReply", QStringLiteral("Done"));
            manager = std::make_unique<BoolPropertyManager>();
            break;
        case Kind::Enum:
            node = std::make_unique<Script::DItem>(QStringLiteral("Job.Filter.Type"),
                                                   QStringLiteral("IDataBasicEnum"));
            node->setProperty("IDataBasicEnum.DynamicStringnifiedValue", QStringLiteral("Median"));
            manager = std::make_unique<EnumPropertyManager>();
            break;
        case Kind::IData:
            node = std::make_unique<Script::DItem>(QStringLiteral("Job.Robot.Pose"),
                                                   QStringLiteral("IDataPose"));
            manager = std::make_unique<IDataPropertyManager>();
            break;
        case Kind::OcrFilter:
            node = std::make_unique<Script::DItem>(QStringLiteral("Job.Fielding.Set.Chars"),
                                                   QStringLiteral("IDataBasicString"));
            node->setProperty("IDataBasicString.DynamicValue", iTab);
            manager = std::make_unique<OcrFilterPropertyManager>();
            break;
        }
        property = manager->addProperty(QStringLiteral("Row"));
        dynamic_cast<WidgetProperty*>(property)->setData(*node);
        base = dynamic_cast<BasePropertyManager*>(manager.get());
    }

    std::unique_ptr<Script::DItem> node;
    std::unique_ptr<QtAbstractPropertyManager> manager;
    BasePropertyManager* base = nullptr;
    QtProperty* property = nullptr;
};

QImage checkImage(Check check)
{
    switch (check) {
    case Check::Checked:
        return iconImage(QIcon(QStringLiteral(":/images/checkbox_checked.svg")));
    case Check::Unchecked:
        return iconImage(QIcon(QStringLiteral(":/images/checkbox_unchecked.svg")));
    case Check::None:
        break;
    }
    return QImage();
}

} // namespace

Q_DECLARE_METATYPE(Kind)
Q_DECLARE_METATYPE(Check)

class TestTextChoiceManagers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void nodeStates_data();
    void nodeStates();
    void boolValueFalseShowsUncheckedMark();
    void boolNotAvailableOutputHasNoCheckMark();
    void stringShowsSymbolsAndCutsAtNul();
    void enumCutsAtNul();
    void textsAreTranslated();
    void ocrFilterTextIsNeitherMappedNorTranslated();
    void enumValueOfLinkedNode_data();
    void enumValueOfLinkedNode();
    void valuesReadTheNode();
    void createPropertyMakesRows_data();
    void createPropertyMakesRows();
    void nullPropertyIsHarmless();

    void setValueString();
    void setValueBool_data();
    void setValueBool();
    void setValueEnumWithoutMatrixSendsOne();
    void setValueEnumWithMatrixSendsTwo();
    void setValueOcrFilter();
    void setValueThatSendsNothing();
    void setLink_data();
    void setLink();
    void ocrFilterCannotBeLinked();

private:
    TableTranslator m_oTranslator;
};

void TestTextChoiceManagers::initTestCase()
{
    TestSupport::failOnWarnings();
    qRegisterMetaType<QtProperty*>();
    qRegisterMetaType<Command>();
    ManagerTest::verifyChainImagesDiffer();
}

void TestTextChoiceManagers::cleanup()
{
    QCoreApplication::removeTranslator(&m_oTranslator);
    QVERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
             qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

void TestTextChoiceManagers::nodeStates_data()
{
    QTest::addColumn<Kind>("kind");
    ManagerTest::addNodeStateColumns();
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<Chain>("chain");
    QTest::addColumn<Check>("check");

    const QColor black(Qt::black);
    const QColor red(Qt::red);
    const QColor gray(Qt::darkGray);
    const QString source = QStringLiteral("Source");
    const struct
    {
        Kind kind;
        const char* name;
        QString value;
    } kinds[] = {{Kind::String, "string", iTabShown},
                 {Kind::Bool, "bool", QStringLiteral("Done")},
                 {Kind::Enum, "enum", QStringLiteral("Median")},
                 {Kind::IData, "idata", QString()},
                 {Kind::OcrFilter, "ocr filter", iTab}};
    for (const auto& k : kinds) {
        auto row = [&](const char* state) {
            return &(QTest::newRow(qPrintable(
                         QStringLiteral("%1: %2").arg(QLatin1String(k.name), QLatin1String(state))))
                     << k.kind);
        };
        const bool isBool = k.kind == Kind::Bool;
        const Check shown = isBool ? Check::Checked : Check::None;
        // Of these types only the generic one is not a basic type, so only it is "Not Linked".
        const QString notLinked = k.kind == Kind::IData ? QStringLiteral("Not Linked") : k.value;
        // The filter row shows its value even when it is linked; the others show nothing.
        const QString linkedValue = k.kind == Kind::OcrFilter ? k.value : QString();

        *row("input, not linkable") << 1 << false << false << false << false << false << 0
                                    << k.value << black << Chain::Open << shown;
        *row("input, not linkable, out of range") << 1 << false << false << false << false << false
                                                  << 2 << k.value << red << Chain::Open << shown;
        *row("input, linkable, not linked") << 1 << true << false << false << false << false << 0
                                            << notLinked << black << Chain::Open << shown;
        *row("input, linked") << 1 << true << true << false << false << false << 0 << source
                              << black << Chain::Closed << Check::None;
        *row("input, linked, link error") << 1 << true << true << true << false << false << 0
                                          << source << red << Chain::Closed << Check::None;
        *row("input, linked, not linkable") << 1 << false << true << false << false << false << 0
                                            << linkedValue << black << Chain::Closed << Check::None;
        *row("output, error") << 2 << false << false << false << true << false << 0
                              << QStringLiteral("Error") << red << Chain::None << Check::None;
        *row("output, error and not initialised")
            << 2 << false << false << false << true << true << 0 << QStringLiteral("Error") << red
            << Chain::None << Check::None;
        *row("output, not initialised")
            << 2 << false << false << false << false << true << 0 << QStringLiteral("Not Available")
            << gray << Chain::None << Check::None;
        *row("output, value") << 2 << true << false << false << false << false << 0 << k.value
                              << black << Chain::None << shown;
        *row("output, out of range") << 2 << false << false << false << false << false << 1
                                     << k.value << red << Chain::None << shown;
        *row("setting") << 0 << false << false << false << false << false << 0 << k.value << black
                        << Chain::None << shown;
        *row("setting, linkable, linked") << 0 << true << true << false << false << false << 0
                                          << source << black << Chain::None << Check::None;
    }
}

void TestTextChoiceManagers::nodeStates()
{
    QFETCH(Kind, kind);
    QFETCH(QString, text);
    QFETCH(QColor, color);
    QFETCH(Chain, chain);
    QFETCH(Check, check);

    Fixture f(kind);
    ManagerTest::applyNodeState(*f.node);

    QCOMPARE(f.property->valueText(), text);
    QCOMPARE(f.base->valueText(f.property), text);
    QCOMPARE(f.base->toolTipText(f.property), text);
    QCOMPARE(DItemNavPainter(*f.node).getTextColor(), color);
    QCOMPARE(iconImage(f.base->propertyIcon(f.property)), chainImage(chain));
    QCOMPARE(iconImage(f.base->valueIcon(f.property)), checkImage(check));
    QCOMPARE(iconImage(f.property->valueIcon()), checkImage(check));
}

void TestTextChoiceManagers::boolValueFalseShowsUncheckedMark()
{
    Fixture f(Kind::Bool);
    f.node->setProperty("IDataBasicBool.DynamicValue", false);
    QCOMPARE(iconImage(f.base->valueIcon(f.property)), checkImage(Check::Unchecked));
    QVERIFY(checkImage(Check::Unchecked) != checkImage(Check::Checked));
    f.node->setProperty("IDataBasicBool.DynamicValue", QVariant());
    QCOMPARE(iconImage(f.base->valueIcon(f.property)), checkImage(Check::Unchecked));
}

void TestTextChoiceManagers::boolNotAvailableOutputHasNoCheckMark()
{
    Fixture f(Kind::Bool);
    f.node->setIoType(Script::DItem::IoOutput);
    f.node->setInitialized(true);
    QCOMPARE(f.base->valueText(f.property), QStringLiteral("Not Available"));
    QVERIFY(f.base->valueIcon(f.property).isNull());
    f.node->setInitialized(false);
    QCOMPARE(f.base->valueText(f.property), QStringLiteral("Done"));
    QCOMPARE(iconImage(f.base->valueIcon(f.property)), checkImage(Check::Checked));
}

void TestTextChoiceManagers::stringShowsSymbolsAndCutsAtNul()
{
    Fixture f(Kind::String);
    f.node->setProperty("IDataBasicString.DynamicValue", QStringLiteral("OK\r\n"));
    QCOMPARE(f.base->valueText(f.property), QStringLiteral("OK") + QChar(0x240D) + QChar(0x240A));
    f.node->setProperty("IDataBasicString.DynamicValue",
                        QStringLiteral("ab") + QChar(0) + QStringLiteral("\x01"));
    QCOMPARE(f.base->valueText(f.property), QStringLiteral("ab"));
    f.node->setProperty("IDataBasicString.DynamicValue", QString(QChar(0)));
    QCOMPARE(f.base->valueText(f.property), QString());
}

void TestTextChoiceManagers::enumCutsAtNul()
{
    Fixture f(Kind::Enum);
    f.node->setProperty("IDataBasicEnum.DynamicStringnifiedValue",
                        QStringLiteral("Mean") + QChar(0) + QStringLiteral("junk"));
    QCOMPARE(f.base->valueText(f.property), QStringLiteral("Mean"));
}

void TestTextChoiceManagers::textsAreTranslated()
{
    m_oTranslator.add(QStringLiteral("IData"), QStringLiteral("Done"), QStringLiteral("Fertig"));
    m_oTranslator.add(QStringLiteral("IData"), QStringLiteral("Median"), QStringLiteral("Zentral"));
    m_oTranslator.add(QStringLiteral("IData"), QStringLiteral("Red"), QStringLiteral("Rot"));
    QCoreApplication::installTranslator(&m_oTranslator);
    Fixture text(Kind::String);
    text.node->setProperty("IDataBasicString.DynamicValue", QStringLiteral("Red"));
    QCOMPARE(text.base->valueText(text.property), QStringLiteral("Rot"));
    Fixture check(Kind::Bool);
    QCOMPARE(check.base->valueText(check.property), QStringLiteral("Fertig"));
    Fixture choice(Kind::Enum);
    QCOMPARE(choice.base->valueText(choice.property), QStringLiteral("Zentral"));
    Fixture filter(Kind::OcrFilter);
    filter.node->setProperty("IDataBasicString.DynamicValue", QStringLiteral("Red"));
    QCOMPARE(filter.base->valueText(filter.property), QStringLiteral("Red"));
}

void TestTextChoiceManagers::ocrFilterTextIsNeitherMappedNorTranslated()
{
    Fixture f(Kind::OcrFilter);
    const QString raw = QStringLiteral("x") + QChar(0) + QStringLiteral("\x1b");
    f.node->setProperty("IDataBasicString.DynamicValue", raw);
    QCOMPARE(f.base->valueText(f.property), raw);
    QCOMPARE(static_cast<OcrFilterPropertyManager*>(f.manager.get())->value(f.property), raw);
}

void TestTextChoiceManagers::enumValueOfLinkedNode_data()
{
    QTest::addColumn<bool>("linked");
    QTest::addColumn<QString>("linkedPath");
    QTest::addColumn<QString>("value");
    QTest::newRow("not linked") << false << QStringLiteral("Job.Other.Kind")
                                << QStringLiteral("Median");
    QTest::newRow("linked") << true << QStringLiteral("Job.Other.Kind") << QStringLiteral("Kind");
    QTest::newRow("linked, trailing dot") << true << QStringLiteral("Job.Other.") << QString();
    QTest::newRow("linked, one segment")
        << true << QStringLiteral("Kind") << QStringLiteral("Kind");
    QTest::newRow("linked, empty path") << true << QString() << QString();
}

void TestTextChoiceManagers::enumValueOfLinkedNode()
{
    QFETCH(bool, linked);
    QFETCH(QString, linkedPath);
    QFETCH(QString, value);
    Fixture f(Kind::Enum);
    f.node->setLinkable(true);
    f.node->setLinked(linked);
    f.node->setLinkedPath(linkedPath);
    QCOMPARE(static_cast<EnumPropertyManager*>(f.manager.get())->value(f.property), value);
}

void TestTextChoiceManagers::valuesReadTheNode()
{
    Fixture text(Kind::String);
    QCOMPARE(static_cast<StringPropertyManager*>(text.manager.get())->value(text.property), iTab);
    Fixture check(Kind::Bool);
    auto* boolManager = static_cast<BoolPropertyManager*>(check.manager.get());
    QCOMPARE(boolManager->value(check.property), true);
    check.node->setProperty("IDataBasicBool.DynamicValue", false);
    QCOMPARE(boolManager->value(check.property), false);
    Fixture generic(Kind::IData);
    generic.node->setProperty("IDataBasicString.DynamicValue", iTab);
    QCOMPARE(static_cast<IDataPropertyManager*>(generic.manager.get())->value(generic.property),
             QString());
}

void TestTextChoiceManagers::createPropertyMakesRows_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::newRow("string") << Kind::String;
    QTest::newRow("bool") << Kind::Bool;
    QTest::newRow("enum") << Kind::Enum;
    QTest::newRow("idata") << Kind::IData;
    QTest::newRow("ocr filter") << Kind::OcrFilter;
}

void TestTextChoiceManagers::createPropertyMakesRows()
{
    QFETCH(Kind, kind);
    Fixture f(kind);
    QVERIFY(dynamic_cast<WidgetProperty*>(f.property));
    std::unique_ptr<QtProperty> created(f.base->createProperty());
    auto* row = dynamic_cast<WidgetProperty*>(created.get());
    QVERIFY(row);
    QVERIFY(!row->node);
    QCOMPARE(created->propertyManager(), f.manager.get());
    // A row that is not bound to a node yet shows nothing.
    QCOMPARE(f.base->valueText(created.get()), QString());
    QVERIFY(f.base->valueIcon(created.get()).isNull());
    QVERIFY(f.base->propertyIcon(created.get()).isNull());
}

void TestTextChoiceManagers::nullPropertyIsHarmless()
{
    for (Kind kind : {Kind::String, Kind::Bool, Kind::Enum, Kind::IData, Kind::OcrFilter}) {
        Fixture f(kind);
        QCOMPARE(f.base->valueText(nullptr), QString());
        QVERIFY(f.base->valueIcon(nullptr).isNull());
    }
    StringPropertyManager strings;
    QSignalSpy spy(&strings, &StringPropertyManager::vPropertyEdited);
    strings.setValue(nullptr, QStringLiteral("x"));
    QCOMPARE(spy.count(), 0);
}

void TestTextChoiceManagers::setValueString()
{
    Fixture f(Kind::String);
    auto* manager = static_cast<StringPropertyManager*>(f.manager.get());
    QSignalSpy spy(manager, &StringPropertyManager::vPropertyEdited);
    manager->setValue(f.property, QStringLiteral("go") + QChar(0x240D) + QChar(0x241D));
    verifyOnlyEdit(spy, QStringLiteral("Job.Serial.Text"), VardeenDefs::PropertyEditor::SetValue,
                   QVariant(QStringLiteral("go\r") + QChar(28)));
    // Nothing is stored: the row shows the node until the host has applied the edit.
    QCOMPARE(manager->valueText(f.property), iTabShown);
}

void TestTextChoiceManagers::setValueBool_data()
{
    QTest::addColumn<bool>("value");
    QTest::newRow("true") << true;
    QTest::newRow("false") << false;
}

void TestTextChoiceManagers::setValueBool()
{
    QFETCH(bool, value);
    Fixture f(Kind::Bool);
    auto* manager = static_cast<BoolPropertyManager*>(f.manager.get());
    QSignalSpy spy(manager, &BoolPropertyManager::vPropertyEdited);
    manager->setValue(f.property, value);
    verifyOnlyEdit(spy, QStringLiteral("Job.Serial.Open"), VardeenDefs::PropertyEditor::SetValue,
                   QVariant(value));
}

void TestTextChoiceManagers::setValueEnumWithoutMatrixSendsOne()
{
    Fixture f(Kind::Enum);
    f.node->setProperty("IDataModFilter.FilterMatrixPath", QStringLiteral("Job.Filter.Matrix"));
    auto* manager = static_cast<EnumPropertyManager*>(f.manager.get());
    QSignalSpy spy(manager, &EnumPropertyManager::vPropertyEdited);
    manager->setValue(f.property, QVariant(QStringLiteral("Mean")), QVariant());
    verifyOnlyEdit(spy, QStringLiteral("Job.Filter.Type"), VardeenDefs::PropertyEditor::SetValue,
                   QVariant(QStringLiteral("Mean")));
    manager->setValue(f.property, QVariant(2));
    QCOMPARE(spy.count(), 2);
    verifyEdit(spy, 1, QStringLiteral("Job.Filter.Type"), VardeenDefs::PropertyEditor::SetValue,
               QVariant(2));
}

void TestTextChoiceManagers::setValueEnumWithMatrixSendsTwo()
{
    Fixture f(Kind::Enum);
    f.node->setProperty("IDataModFilter.FilterMatrixPath", QStringLiteral("Job.Filter.Matrix"));
    auto* manager = static_cast<EnumPropertyManager*>(f.manager.get());
    QSignalSpy spy(manager, &EnumPropertyManager::vPropertyEdited);
    const QVariant matrix(QVariantList({1, QVariant(), 3}));
    manager->setValue(f.property, QVariant(QStringLiteral("Sharpen")), matrix);
    QCOMPARE(spy.count(), 2);
    verifyEdit(spy, 0, QStringLiteral("Job.Filter.Type"), VardeenDefs::PropertyEditor::SetValue,
               QVariant(QStringLiteral("Sharpen")));
    verifyEdit(spy, 1, QStringLiteral("Job.Filter.Matrix"), VardeenDefs::PropertyEditor::SetValue,
               matrix);
}

void TestTextChoiceManagers::setValueOcrFilter()
{
    Fixture f(Kind::OcrFilter);
    auto* manager = static_cast<OcrFilterPropertyManager*>(f.manager.get());
    QSignalSpy spy(manager, &OcrFilterPropertyManager::vPropertyEdited);
    manager->setValue(f.property, QStringLiteral("Digits"), QStringLiteral("0-9"));
    verifyOnlyEdit(spy, QStringLiteral("Job.Fielding.Set.Chars"),
                   VardeenDefs::PropertyEditor::SetValue,
                   QVariant(QStringList({QStringLiteral("Digits"), QStringLiteral("0-9")})));
}

void TestTextChoiceManagers::setValueThatSendsNothing()
{
    QString text = QStringLiteral("x");
    Fixture generic(Kind::IData);
    auto* idata = static_cast<IDataPropertyManager*>(generic.manager.get());
    QSignalSpy idataSpy(idata, &IDataPropertyManager::vPropertyEdited);
    idata->setValue(generic.property, text);
    QCOMPARE(idataSpy.count(), 0);
    Fixture filter(Kind::OcrFilter);
    auto* ocr = static_cast<OcrFilterPropertyManager*>(filter.manager.get());
    QSignalSpy ocrSpy(ocr, &OcrFilterPropertyManager::vPropertyEdited);
    ocr->setValue(filter.property, text);
    QCOMPARE(ocrSpy.count(), 0);
    QCOMPARE(text, QStringLiteral("x"));
}

void TestTextChoiceManagers::setLink_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("linkPath");
    for (Kind kind : {Kind::String, Kind::Bool, Kind::Enum, Kind::IData}) {
        const char* name = kind == Kind::String ? "string"
            : kind == Kind::Bool                ? "bool"
            : kind == Kind::Enum                ? "enum"
                                                : "idata";
        QTest::addRow("%s, link", name) << kind << QStringLiteral("Job.Other.Source");
        QTest::addRow("%s, unlink", name) << kind << QString();
    }
}

void TestTextChoiceManagers::setLink()
{
    QFETCH(Kind, kind);
    QFETCH(QString, linkPath);
    Fixture f(kind);
    QSignalSpy spy(
        f.manager.get(),
        SIGNAL(vPropertyEdited(QString, VardeenDefs::PropertyEditor::Command, QVariant, bool)));
    QVERIFY(spy.isValid());
    bool accepted = false;
    const QString path = QStringLiteral("Job.Any.Node");
    switch (kind) {
    case Kind::String:
        accepted = static_cast<StringPropertyManager*>(f.manager.get())->setLink(path, linkPath);
        break;
    case Kind::Bool:
        accepted = static_cast<BoolPropertyManager*>(f.manager.get())->setLink(path, linkPath);
        break;
    case Kind::Enum:
        accepted = static_cast<EnumPropertyManager*>(f.manager.get())->setLink(path, linkPath);
        break;
    case Kind::IData:
        accepted = static_cast<IDataPropertyManager*>(f.manager.get())->setLink(path, linkPath);
        break;
    case Kind::OcrFilter:
        break;
    }
    QVERIFY(accepted);
    // The empty path goes out as a string, not as an invalid variant: it clears the link.
    verifyOnlyEdit(spy, path, VardeenDefs::PropertyEditor::SetLink,
                   QVariant(linkPath.isNull() ? QStringLiteral("") : linkPath));
}

void TestTextChoiceManagers::ocrFilterCannotBeLinked()
{
    Fixture f(Kind::OcrFilter);
    auto* manager = static_cast<OcrFilterPropertyManager*>(f.manager.get());
    QSignalSpy spy(manager, &OcrFilterPropertyManager::vPropertyEdited);
    QVERIFY(!manager->setLink(QStringLiteral("Job.Fielding.Set.Chars"),
                              QStringLiteral("Job.Other.Source")));
    QVERIFY(!manager->setLink(QStringLiteral("Job.Fielding.Set.Chars"), QString()));
    QCOMPARE(spy.count(), 0);
}

QTEST_MAIN(TestTextChoiceManagers)
#include "tst_textchoicemanagers.moc"
