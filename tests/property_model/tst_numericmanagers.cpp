#include "navigator/ditemnavpainter.h"
#include "property_model/doublepropertymanager.h"
#include "property_model/int64propertymanager.h"
#include "property_model/intpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

#include "../navigator/tabletranslator.h"
#include "../propertybrowser/propertymetatype.h"
#include "managertestsupport.h"
#include "testsupport.h"

#include <QLocale>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <limits>
#include <memory>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::Managers::DoublePropertyManager;
using PropertyBrowser::Managers::Int64PropertyManager;
using PropertyBrowser::Managers::IntPropertyManager;
using Command = VardeenDefs::PropertyEditor::Command;

using ManagerTest::Chain;
using ManagerTest::chainImage;
using ManagerTest::iconImage;
using ManagerTest::verifyOnlyEdit;

namespace {

enum class Kind { Int, Int64, Double };

// One manager of each kind behind one face, so that a table row can name the kind.
struct Fixture
{
    explicit Fixture(Kind kind)
    {
        const QString type = kind == Kind::Int ? QStringLiteral("IDataBasicInt")
            : kind == Kind::Int64              ? QStringLiteral("IDataBasicInt64")
                                               : QStringLiteral("IDataBasicDouble");
        node = std::make_unique<Script::DItem>(QStringLiteral("Job.Blob.Area"), type);
        if (kind == Kind::Int) {
            manager = std::make_unique<IntPropertyManager>();
            node->setProperty("IDataNumeric.DynamicValue", 42);
        } else if (kind == Kind::Int64) {
            manager = std::make_unique<Int64PropertyManager>();
            node->setProperty("IDataNumeric.DynamicValue", Q_INT64_C(5000000000));
        } else {
            manager = std::make_unique<DoublePropertyManager>();
            node->setProperty("IDataNumeric.DynamicValue", 1234.5);
        }
        property = manager->addProperty(QStringLiteral("Area"));
        dynamic_cast<WidgetProperty*>(property)->setData(*node);
        base = dynamic_cast<PropertyBrowser::Managers::BasePropertyManager*>(manager.get());
    }

    std::unique_ptr<Script::DItem> node;
    std::unique_ptr<QtAbstractPropertyManager> manager;
    PropertyBrowser::Managers::BasePropertyManager* base = nullptr;
    QtProperty* property = nullptr;
};

} // namespace

Q_DECLARE_METATYPE(Kind)

class TestNumericManagers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void nodeStates_data();
    void nodeStates();
    void doubleText_data();
    void doubleText();
    void doubleToolTip_data();
    void doubleToolTip();
    void integerToolTip_data();
    void integerToolTip();
    void stateTextStopsAtNul();
    void unassignedStateDescriptionThrows();
    void readsLocalLimitsAndDynamicValue_data();
    void readsLocalLimitsAndDynamicValue();
    void decimalsIgnoresItsArgument();
    void createPropertyMakesRows_data();
    void createPropertyMakesRows();

    void setValueInteger();
    void setValueDouble_data();
    void setValueDouble();
    void setLink_data();
    void setLink();
    void setLimits_data();
    void setLimits();
};

void TestNumericManagers::initTestCase()
{
    TestSupport::failOnWarnings();
    qRegisterMetaType<QtProperty*>();
    qRegisterMetaType<Command>();
    ManagerTest::verifyChainImagesDiffer();
    // The run with a German system proves nothing unless the system locale really is German.
    if (qEnvironmentVariable("LC_ALL").startsWith(QLatin1String("de")))
        QCOMPARE(QLocale::system().decimalPoint(), QLatin1Char(','));
}

void TestNumericManagers::cleanup()
{
    WidgetProperty::m_ErrorDescription = nullptr;
    QLocale::setDefault(QLocale::system());
    QVERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
             qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

void TestNumericManagers::nodeStates_data()
{
    QTest::addColumn<Kind>("kind");
    ManagerTest::addNodeStateColumns();
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<Chain>("chain");

    const QColor black(Qt::black);
    const QColor red(Qt::red);
    const QColor gray(Qt::darkGray);
    const struct
    {
        Kind kind;
        const char* name;
        QString value;
    } kinds[] = {{Kind::Int, "int", QStringLiteral("42")},
                 {Kind::Int64, "int64", QStringLiteral("5000000000")},
                 {Kind::Double, "double", QStringLiteral("1234.5000")}};
    for (const auto& k : kinds) {
        auto row = [&](const char* state) {
            return &(QTest::newRow(qPrintable(
                         QStringLiteral("%1: %2").arg(QLatin1String(k.name), QLatin1String(state))))
                     << k.kind);
        };
        *row("input, not linkable") << 1 << false << false << false << false << false << 0
                                    << k.value << black << Chain::Open;
        *row("input, not linkable, out of range")
            << 1 << false << false << false << false << false << 2 << k.value << red << Chain::Open;
        *row("input, linkable, not linked, out of range")
            << 1 << true << false << false << false << false << 3 << k.value << black
            << Chain::Open;
        *row("input, linked") << 1 << true << true << false << false << false << 0
                              << QStringLiteral("Source") << black << Chain::Closed;
        *row("input, linked, link error") << 1 << true << true << true << false << false << 0
                                          << QStringLiteral("Source") << red << Chain::Closed;
        *row("input, linked, out of range") << 1 << true << true << false << false << false << 7
                                            << QStringLiteral("Source") << black << Chain::Closed;
        // A link the node may not take gives no painter text; only the double row hides the
        // value of a linked node.
        *row("input, linked, not linkable")
            << 1 << false << true << false << false << false << 0
            << (k.kind == Kind::Double ? QString() : k.value) << black << Chain::Closed;
        *row("output, error") << 2 << false << false << false << true << false << 0
                              << QStringLiteral("Error") << red << Chain::None;
        *row("output, error and not initialised")
            << 2 << false << false << false << true << true << 0 << QStringLiteral("Error") << red
            << Chain::None;
        *row("output, not initialised") << 2 << false << false << false << false << true << 0
                                        << QStringLiteral("Not Available") << gray << Chain::None;
        *row("output, value") << 2 << true << false << false << false << false << 0 << k.value
                              << black << Chain::None;
        *row("output, out of range")
            << 2 << false << false << false << false << false << 1 << k.value << red << Chain::None;
        *row("setting") << 0 << false << false << false << false << false << 0 << k.value << black
                        << Chain::None;
        *row("setting, linkable, linked") << 0 << true << true << false << false << false << 0
                                          << QStringLiteral("Source") << black << Chain::None;
    }
}

void TestNumericManagers::nodeStates()
{
    QFETCH(Kind, kind);
    QFETCH(QString, text);
    QFETCH(QColor, color);
    QFETCH(Chain, chain);

    Fixture f(kind);
    ManagerTest::applyNodeState(*f.node);

    QCOMPARE(f.property->valueText(), text);
    QCOMPARE(f.base->valueText(f.property), text);
    QCOMPARE(DItemNavPainter(*f.node).getTextColor(), color);
    QCOMPARE(iconImage(f.base->propertyIcon(f.property)), chainImage(chain));
    QVERIFY(f.base->valueIcon(f.property).isNull());
    QVERIFY(f.property->valueIcon().isNull());
}

void TestNumericManagers::doubleText_data()
{
    QTest::addColumn<bool>("german");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");

    const struct
    {
        const char* name;
        double value;
        const char* text;
    } rows[] = {
        {"zero", 0.0, "0.0000"},
        {"1234.5 without separator", 1234.5, "1234.5000"},
        {"negative millions", -1234567.125, "-1234567.1250"},
        {"rounded to four decimals", 2.71828, "2.7183"},
        {"limit stays fixed", 99999999.0, "99999999.0000"},
        {"next double above the limit",
         std::nextafter(99999999.0, std::numeric_limits<double>::infinity()), "1.0000e+08"},
        {"negative beyond the limit", -2.5e9, "-2.5000e+09"},
        {"tiny", 1e-9, "0.0000"},
    };
    for (bool german : {false, true}) {
        for (const auto& r : rows) {
            QTest::newRow(qPrintable(QStringLiteral("%1%2").arg(
                QLatin1String(r.name), german ? QStringLiteral(", German default") : QString())))
                << german << r.value << QString::fromLatin1(r.text);
        }
    }
}

void TestNumericManagers::doubleText()
{
    QFETCH(bool, german);
    QFETCH(double, value);
    QFETCH(QString, text);
    if (german)
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    Fixture f(Kind::Double);
    f.node->setProperty("IDataNumeric.DynamicValue", value);
    QCOMPARE(f.property->valueText(), text);
}

void TestNumericManagers::doubleToolTip_data()
{
    QTest::addColumn<bool>("german");
    QTest::addColumn<bool>("linked");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");

    for (bool german : {false, true}) {
        const QString suffix = german ? QStringLiteral(", German default") : QString();
        QTest::newRow(qPrintable(QStringLiteral("1234.5") + suffix))
            << german << false << 1234.5 << QStringLiteral("1234.5000");
        QTest::newRow(qPrintable(QStringLiteral("below a thousand") + suffix))
            << german << false << 999.5 << QStringLiteral("999.5000");
        QTest::newRow(qPrintable(QStringLiteral("minus a thousand") + suffix))
            << german << false << -1000.0 << QStringLiteral("-1000.0000");
        QTest::newRow(qPrintable(QStringLiteral("beyond the text limit stays fixed") + suffix))
            << german << false << 1e9 << QStringLiteral("1000000000.0000");
        QTest::newRow(qPrintable(QStringLiteral("linked node shows its number") + suffix))
            << german << true << 12.0 << QStringLiteral("12.0000");
    }
}

void TestNumericManagers::doubleToolTip()
{
    QFETCH(bool, german);
    QFETCH(bool, linked);
    QFETCH(double, value);
    QFETCH(QString, text);
    if (german)
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    Fixture f(Kind::Double);
    f.node->setIoType(Script::DItem::IoInput);
    f.node->setLinkable(true);
    f.node->setLinked(linked);
    f.node->setLinkedPath(QStringLiteral("Job.Other.Source"));
    f.node->setProperty("IDataNumeric.DynamicValue", value);
    QCOMPARE(f.base->toolTipText(f.property), text);
}

void TestNumericManagers::integerToolTip_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<QString>("toolTip");

    for (Kind kind : {Kind::Int, Kind::Int64}) {
        const QString name
            = kind == Kind::Int ? QStringLiteral("int: ") : QStringLiteral("int64: ");
        QTest::newRow(qPrintable(name + QStringLiteral("plain row shows its value text")))
            << kind << QStringLiteral("Threshold") << QVariant(3) << 0 << 10 << QStringLiteral("3");
        QTest::newRow(qPrintable(name + QStringLiteral("Module State in description")))
            << kind << QStringLiteral("The Module State now") << QVariant(3) << 0 << 10
            << QStringLiteral("Zustand 3");
        QTest::newRow(qPrintable(name + QStringLiteral("lower-case module state is plain")))
            << kind << QStringLiteral("module state") << QVariant(3) << 0 << 10
            << QStringLiteral("3");
        QTest::newRow(qPrintable(name + QStringLiteral("equal limits make a state row")))
            << kind << QStringLiteral("Threshold") << QVariant(2) << 5 << 5
            << QStringLiteral("state 2");
    }
    QTest::newRow("int64: state number cut to int")
        << Kind::Int64 << QStringLiteral("Module State") << QVariant(Q_INT64_C(4294967297)) << 0
        << 0 << QStringLiteral("state 1");
}

void TestNumericManagers::integerToolTip()
{
    QFETCH(Kind, kind);
    QFETCH(QString, description);
    QFETCH(QVariant, value);
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(QString, toolTip);

    TableTranslator translator;
    translator.add(QStringLiteral("IData"), QStringLiteral("state 3"), QStringLiteral("Zustand 3"));
    QVERIFY(QCoreApplication::installTranslator(&translator));
    WidgetProperty::m_ErrorDescription = [](int state) {
        return "state " + std::to_string(state);
    };
    Fixture f(kind);
    f.node->setProperty("IData.Description", description);
    f.node->setProperty("IDataNumeric.DynamicValue", value);
    f.node->setProperty("IDataNumeric.LocalMin", minimum);
    f.node->setProperty("IDataNumeric.LocalMax", maximum);
    const QString result = f.base->toolTipText(f.property);
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(result, toolTip);
}

void TestNumericManagers::stateTextStopsAtNul()
{
    WidgetProperty::m_ErrorDescription = [](int) {
        return std::string("Ready\0junk", 10);
    };
    Fixture f(Kind::Int);
    f.node->setProperty("IData.Description", QStringLiteral("Module State"));
    QCOMPARE(f.base->toolTipText(f.property), QStringLiteral("Ready"));
}

void TestNumericManagers::unassignedStateDescriptionThrows()
{
    for (Kind kind : {Kind::Int, Kind::Int64}) {
        Fixture f(kind);
        f.node->setProperty("IData.Description", QStringLiteral("Module State"));
        QVERIFY_EXCEPTION_THROWN(f.base->toolTipText(f.property), std::bad_function_call);
    }
}

void TestNumericManagers::readsLocalLimitsAndDynamicValue_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::newRow("int") << Kind::Int;
    QTest::newRow("int64") << Kind::Int64;
    QTest::newRow("double") << Kind::Double;
}

void TestNumericManagers::readsLocalLimitsAndDynamicValue()
{
    QFETCH(Kind, kind);
    Fixture f(kind);
    f.node->setProperty("IDataNumeric.DynamicValue", 7);
    f.node->setProperty("IDataNumeric.LocalValue", 99);
    f.node->setProperty("IDataNumeric.LocalMin", -3);
    f.node->setProperty("IDataNumeric.LocalMax", 12);
    f.node->setProperty("IDataNumeric.LocalStep", 2);
    f.node->setProperty("IDataNumeric.DynamicMin", -1000);
    f.node->setProperty("IDataNumeric.DynamicMax", 1000);
    const auto check = [&](auto* manager) {
        QCOMPARE(static_cast<double>(manager->value(f.property)), 7.0);
        QCOMPARE(static_cast<double>(manager->minimum(f.property)), -3.0);
        QCOMPARE(static_cast<double>(manager->maximum(f.property)), 12.0);
        QCOMPARE(static_cast<double>(manager->singleStep(f.property)), 2.0);
    };
    if (kind == Kind::Int)
        check(static_cast<IntPropertyManager*>(f.manager.get()));
    else if (kind == Kind::Int64)
        check(static_cast<Int64PropertyManager*>(f.manager.get()));
    else
        check(static_cast<DoublePropertyManager*>(f.manager.get()));
    // Each read goes to the node, so a change shows at once.
    f.node->setProperty("IDataNumeric.DynamicValue", 8);
    QCOMPARE(f.property->valueText(),
             kind == Kind::Double ? QStringLiteral("8.0000") : QStringLiteral("8"));
}

void TestNumericManagers::decimalsIgnoresItsArgument()
{
    Fixture f(Kind::Double);
    auto* manager = static_cast<DoublePropertyManager*>(f.manager.get());
    f.node->setProperty("IDataNumeric.Decimals", 2);
    QCOMPARE(manager->decimals(f.property), 4);
    QCOMPARE(manager->decimals(nullptr), 4);
}

void TestNumericManagers::createPropertyMakesRows_data()
{
    readsLocalLimitsAndDynamicValue_data();
}

void TestNumericManagers::createPropertyMakesRows()
{
    QFETCH(Kind, kind);
    Fixture f(kind);
    QtProperty* created = f.base->createProperty();
    auto* row = dynamic_cast<WidgetProperty*>(created);
    QVERIFY(row);
    QCOMPARE(created->propertyManager(), f.manager.get());
    // A row that is not bound yet shows nothing rather than reading a node that is not there.
    QCOMPARE(f.base->valueText(created), QString());
    QVERIFY(f.base->propertyIcon(created).isNull());
    delete created;
    QCOMPARE(f.base->valueText(nullptr), QString());
}

void TestNumericManagers::setValueInteger()
{
    IntPropertyManager intManager;
    Int64PropertyManager int64Manager;
    Script::DItem node(QStringLiteral("Job.Blob.Count"), QStringLiteral("IDataBasicInt"));
    node.setProperty("IDataNumeric.LocalMin", 0);
    node.setProperty("IDataNumeric.LocalMax", 10);
    QtProperty* intRow = intManager.addProperty();
    QtProperty* int64Row = int64Manager.addProperty();
    dynamic_cast<WidgetProperty*>(intRow)->setData(node);
    dynamic_cast<WidgetProperty*>(int64Row)->setData(node);

    QSignalSpy intSpy(&intManager, &IntPropertyManager::vPropertyEdited);
    intManager.setValue(intRow, -5);
    verifyOnlyEdit(intSpy, QStringLiteral("Job.Blob.Count"), Command::SetValue, QVariant(-5));

    QSignalSpy int64Spy(&int64Manager, &Int64PropertyManager::vPropertyEdited);
    int64Manager.setValue(int64Row, Q_INT64_C(-9000000000));
    verifyOnlyEdit(int64Spy, QStringLiteral("Job.Blob.Count"), Command::SetValue,
                   QVariant::fromValue(Q_INT64_C(-9000000000)));
}

void TestNumericManagers::setValueDouble_data()
{
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("sent");

    QTest::newRow("below minimum sends minimum") << 0.0 << 10.0 << -5.0 << 0.0;
    QTest::newRow("inside") << 0.0 << 10.0 << 2.5 << 2.5;
    QTest::newRow("above maximum") << 0.0 << 10.0 << 15.0 << 10.0;
    QTest::newRow("equal to maximum") << 0.0 << 10.0 << 10.0 << 10.0;
    QTest::newRow("NaN sends minimum") << 1.0 << 10.0 << std::nan("") << 1.0;
    QTest::newRow("reversed limits, value above maximum") << 10.0 << 0.0 << 5.0 << 0.0;
    QTest::newRow("reversed limits, value below both") << 10.0 << 0.0 << -5.0 << 10.0;
}

void TestNumericManagers::setValueDouble()
{
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, value);
    QFETCH(double, sent);
    Fixture f(Kind::Double);
    f.node->setProperty("IDataNumeric.LocalMin", minimum);
    f.node->setProperty("IDataNumeric.LocalMax", maximum);
    auto* manager = static_cast<DoublePropertyManager*>(f.manager.get());
    QSignalSpy spy(manager, &DoublePropertyManager::vPropertyEdited);
    manager->setValue(f.property, value);
    verifyOnlyEdit(spy, QStringLiteral("Job.Blob.Area"), Command::SetValue, QVariant(sent));
    // Nothing is kept: the row still shows what the node says.
    QCOMPARE(f.property->valueText(), QStringLiteral("1234.5000"));
}

void TestNumericManagers::setLink_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("linkPath");
    for (Kind kind : {Kind::Int, Kind::Int64, Kind::Double}) {
        const char* name = kind == Kind::Int ? "int" : kind == Kind::Int64 ? "int64" : "double";
        QTest::addRow("%s: link", name) << kind << QStringLiteral("Job.Other.Source");
        QTest::addRow("%s: empty path clears the link", name) << kind << QString();
    }
}

void TestNumericManagers::setLink()
{
    QFETCH(Kind, kind);
    QFETCH(QString, linkPath);
    Fixture f(kind);
    QSignalSpy spy(
        f.manager.get(),
        SIGNAL(vPropertyEdited(QString, VardeenDefs::PropertyEditor::Command, QVariant, bool)));
    QVERIFY(spy.isValid());
    bool accepted = false;
    if (kind == Kind::Int)
        accepted = static_cast<IntPropertyManager*>(f.manager.get())
                       ->setLink(QStringLiteral("Job.Any.Node"), linkPath);
    else if (kind == Kind::Int64)
        accepted = static_cast<Int64PropertyManager*>(f.manager.get())
                       ->setLink(QStringLiteral("Job.Any.Node"), linkPath);
    else
        accepted = static_cast<DoublePropertyManager*>(f.manager.get())
                       ->setLink(QStringLiteral("Job.Any.Node"), linkPath);
    QVERIFY(accepted);
    verifyOnlyEdit(spy, QStringLiteral("Job.Any.Node"), Command::SetLink,
                   QVariant(linkPath.isNull() ? QStringLiteral("") : linkPath));
}

void TestNumericManagers::setLimits_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QVariant>("minimum");
    QTest::addColumn<QVariant>("maximum");
    QTest::newRow("int") << Kind::Int << QVariant(-4) << QVariant(9);
    QTest::newRow("int, minimum above maximum") << Kind::Int << QVariant(20) << QVariant(3);
    QTest::newRow("int64") << Kind::Int64 << QVariant::fromValue(Q_INT64_C(-6000000000))
                           << QVariant::fromValue(Q_INT64_C(7000000000));
    QTest::newRow("int64, minimum above maximum")
        << Kind::Int64 << QVariant::fromValue(Q_INT64_C(8)) << QVariant::fromValue(Q_INT64_C(1));
    QTest::newRow("double") << Kind::Double << QVariant(-0.5) << QVariant(2.25);
    QTest::newRow("double, minimum above maximum")
        << Kind::Double << QVariant(3.0) << QVariant(-3.0);
}

void TestNumericManagers::setLimits()
{
    QFETCH(Kind, kind);
    QFETCH(QVariant, minimum);
    QFETCH(QVariant, maximum);
    Fixture f(kind);
    QSignalSpy spy(
        f.manager.get(),
        SIGNAL(vPropertyEdited(QString, VardeenDefs::PropertyEditor::Command, QVariant, bool)));
    QVERIFY(spy.isValid());
    if (kind == Kind::Int)
        static_cast<IntPropertyManager*>(f.manager.get())
            ->setLimits(f.property, minimum.toInt(), maximum.toInt());
    else if (kind == Kind::Int64)
        static_cast<Int64PropertyManager*>(f.manager.get())
            ->setLimits(f.property, minimum.toLongLong(), maximum.toLongLong());
    else
        static_cast<DoublePropertyManager*>(f.manager.get())
            ->setLimits(f.property, minimum.toDouble(), maximum.toDouble());
    QVariantMap limits;
    limits.insert(QStringLiteral("Min"), minimum);
    limits.insert(QStringLiteral("Max"), maximum);
    verifyOnlyEdit(spy, QStringLiteral("Job.Blob.Area"), Command::SetLimits, limits);
    const QVariantMap sent = spy.at(0).at(2).toMap();
    QCOMPARE(sent.value(QStringLiteral("Min")).userType(), minimum.userType());
    QCOMPARE(sent.value(QStringLiteral("Max")).userType(), maximum.userType());
}

QTEST_MAIN(TestNumericManagers)
#include "tst_numericmanagers.moc"
