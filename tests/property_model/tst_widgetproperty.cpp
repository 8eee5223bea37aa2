#include "property_model/intpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "qtpropertymanager.h"
#include "sdk/binaryitem.h"
#include "sdk/ditem.h"

#include "../propertybrowser/propertymetatype.h"
#include "testsupport.h"

#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <limits>

using PropertyBrowser::WidgetProperty;

class TestWidgetProperty : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void setDataBindsNodeAndCopiesPath();
    void refreshAsksBrowsersToRepaint();
    void localeIsFixedUnderAnySystemLocale();
    void variantToValReadsEachRowType();
    void displayBar_data();
    void displayBar();
    void pointReadsItsThreeAxes();
    void pointWithMissingZGivesThreeZeros();
    void filterValueLimits();
    void kernelSize_data();
    void kernelSize();
    void binaryBytesOfViewerKinds_data();
    void binaryBytesOfViewerKinds();
    void binaryBytesOfMaskAreEmptyAndNeedNoBinaryItem();
    void errorDescriptionStartsUnassigned();
    void rowAndNodeOfAProperty();
    void nodeAtReadsAnAddress();
    void numberText_data();
    void numberText();

private:
    PropertyBrowser::Managers::IntPropertyManager m_oManager;
};

void TestWidgetProperty::initTestCase()
{
    TestSupport::failOnWarnings();
    qRegisterMetaType<QtProperty*>();
}

void TestWidgetProperty::cleanup()
{
    m_oManager.clear();
    QVERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
             qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

void TestWidgetProperty::setDataBindsNodeAndCopiesPath()
{
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty(QStringLiteral("Area")));
    QVERIFY(row);
    QVERIFY(!row->node);
    QVERIFY(row->nodePath.isEmpty());
    QCOMPARE(row->parent(), nullptr);
    QCOMPARE(row->propertyManager(), &m_oManager);

    Script::DItem node(QStringLiteral("Job.Blob.Area"), QStringLiteral("IDataBasicInt"));
    row->setData(node);
    QCOMPARE(row->node, &node);
    QCOMPARE(row->nodePath, QStringLiteral("Job.Blob.Area"));
    // The path is a copy taken at binding time.
    node.setDataPath(QStringLiteral("Job.Blob.Renamed"));
    QCOMPARE(row->nodePath, QStringLiteral("Job.Blob.Area"));
}

void TestWidgetProperty::refreshAsksBrowsersToRepaint()
{
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty(QStringLiteral("Area")));
    QVERIFY(row);
    QSignalSpy changed(&m_oManager, &QtAbstractPropertyManager::propertyChanged);
    row->refresh();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).value<QtProperty*>(), static_cast<QtProperty*>(row));
}

void TestWidgetProperty::localeIsFixedUnderAnySystemLocale()
{
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty());
    QVERIFY(row);
    const QLocale previous;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const QLocale locale = row->locale();
    QLocale::setDefault(previous);
    QCOMPARE(locale.language(), QLocale::English);
    QCOMPARE(locale.country(), QLocale::UnitedStates);
    QCOMPARE(locale.decimalPoint(), QLatin1Char('.'));
    QCOMPARE(locale.toString(1234.5, 'f', 4).remove(locale.groupSeparator()),
             QStringLiteral("1234.5000"));
}

void TestWidgetProperty::variantToValReadsEachRowType()
{
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty());
    QVERIFY(row);
    QCOMPARE(row->variantToVal<int>(QVariant(QStringLiteral("42"))), 42);
    QCOMPARE(row->variantToVal<long>(QVariant(Q_INT64_C(5000000000))), 5000000000L);
    QCOMPARE(row->variantToVal<double>(QVariant(2.5)), 2.5);
    QCOMPARE(row->variantToVal<int>(QVariant()), 0);
}

void TestWidgetProperty::displayBar_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<QVariant>("isNumeric");
    QTest::addColumn<QVariant>("numericDynamic");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<bool>("dynamic");

    QTest::newRow("numeric input") << 1 << QVariant(true) << QVariant(false) << true << false;
    QTest::newRow("numeric output, dynamic")
        << 2 << QVariant(true) << QVariant(true) << true << true;
    QTest::newRow("numeric setting") << 0 << QVariant(true) << QVariant(true) << false << true;
    QTest::newRow("no IsNumeric key, dynamic")
        << 1 << QVariant() << QVariant(true) << false << true;
    QTest::newRow("neither key") << 2 << QVariant() << QVariant() << false << false;
}

void TestWidgetProperty::displayBar()
{
    QFETCH(int, ioType);
    QFETCH(QVariant, isNumeric);
    QFETCH(QVariant, numericDynamic);
    QFETCH(bool, shown);
    QFETCH(bool, dynamic);

    Script::DItem node(QStringLiteral("Job.A.B"), QStringLiteral("IDataBasicInt"),
                       static_cast<Script::DItem::IoType>(ioType));
    node.setProperty("IData.IsNumeric", isNumeric);
    node.setProperty("IData.NumericDynamic", numericDynamic);
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty());
    QVERIFY(row);
    row->setData(node);
    QCOMPARE(row->numeric_DisplayBar(), std::make_pair(shown, dynamic));
}

void TestWidgetProperty::pointReadsItsThreeAxes()
{
    Script::DItem point(QStringLiteral("Job.P"), QStringLiteral("IDataGeoPoint"));
    Script::DItem x(QStringLiteral("Job.P.X"), QStringLiteral("IDataBasicDouble"));
    Script::DItem y(QStringLiteral("Job.P.Y"), QStringLiteral("IDataBasicDouble"));
    Script::DItem z(QStringLiteral("Job.P.Z"), QStringLiteral("IDataBasicDouble"));
    x.setProperty("IDataNumeric.DynamicValue", 1.5);
    y.setProperty("IDataNumeric.DynamicValue", -2);
    z.setProperty("IDataNumeric.DynamicValue", QStringLiteral("3.25"));
    point.setProperty("IDataGeoPoint.X", QVariant::fromValue(reinterpret_cast<qlonglong>(&x)));
    // Another integer type is converted to a 64-bit one.
    point.setProperty("IDataGeoPoint.Y", QVariant::fromValue(reinterpret_cast<qulonglong>(&y)));
    point.setProperty("IDataGeoPoint.Z", QString::number(reinterpret_cast<qlonglong>(&z)));
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty());
    QVERIFY(row);
    row->setData(point);
    QCOMPARE(row->point_DynamicValue(), (std::vector<double> {1.5, -2.0, 3.25}));
}

void TestWidgetProperty::pointWithMissingZGivesThreeZeros()
{
    Script::DItem point(QStringLiteral("Job.P"), QStringLiteral("IDataGeoPoint"));
    Script::DItem x(QStringLiteral("Job.P.X"), QStringLiteral("IDataBasicDouble"));
    Script::DItem y(QStringLiteral("Job.P.Y"), QStringLiteral("IDataBasicDouble"));
    x.setProperty("IDataNumeric.DynamicValue", 4.0);
    y.setProperty("IDataNumeric.DynamicValue", 5.0);
    point.setProperty("IDataGeoPoint.X", QVariant::fromValue(reinterpret_cast<qlonglong>(&x)));
    point.setProperty("IDataGeoPoint.Y", QVariant::fromValue(reinterpret_cast<qlonglong>(&y)));
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty());
    QVERIFY(row);
    row->setData(point);
    QCOMPARE(row->point_DynamicValue(), (std::vector<double> {0.0, 0.0, 0.0}));
    // A Z that is no number counts as missing too.
    point.setProperty("IDataGeoPoint.Z", QStringLiteral("none"));
    QCOMPARE(row->point_DynamicValue(), (std::vector<double> {0.0, 0.0, 0.0}));
}

void TestWidgetProperty::filterValueLimits()
{
    Script::DItem node(QStringLiteral("Job.F.Type"), QStringLiteral("IDataBasicEnum"));
    node.setProperty("IDataModFilter.KernelValMin", -8);
    node.setProperty("IDataModFilter.KernelValMax", QStringLiteral("12"));
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty());
    QVERIFY(row);
    row->setData(node);
    QCOMPARE(row->filterMatrix_ValueLimits(), std::make_pair(-8, 12));
}

void TestWidgetProperty::kernelSize_data()
{
    QTest::addColumn<QVariant>("text");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");

    QTest::newRow("lower x") << QVariant(QStringLiteral("3x5")) << 3 << 5;
    QTest::newRow("capital X") << QVariant(QStringLiteral("7X9")) << 7 << 9;
    QTest::newRow("three parts") << QVariant(QStringLiteral("3x3x3")) << 0 << 0;
    QTest::newRow("one part") << QVariant(QStringLiteral("3")) << 0 << 0;
    QTest::newRow("empty second part") << QVariant(QStringLiteral("3x")) << 3 << 0;
    QTest::newRow("missing key") << QVariant() << 0 << 0;
}

void TestWidgetProperty::kernelSize()
{
    QFETCH(QVariant, text);
    QFETCH(int, first);
    QFETCH(int, second);
    Script::DItem node(QStringLiteral("Job.F.Type"), QStringLiteral("IDataBasicEnum"));
    node.setProperty("IDataModFilter.KernelSize", text);
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty());
    QVERIFY(row);
    row->setData(node);
    QCOMPARE(row->filterMatrix_KernelSize(), std::make_pair(first, second));
}

void TestWidgetProperty::binaryBytesOfViewerKinds_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("bytes");
    QTest::newRow("DXFModel") << QStringLiteral("DXFModel") << true;
    QTest::newRow("ScriptViewer") << QStringLiteral("ScriptViewer") << true;
    QTest::newRow("lower-case kind") << QStringLiteral("dxfmodel") << false;
    QTest::newRow("no kind") << QString() << false;
}

void TestWidgetProperty::binaryBytesOfViewerKinds()
{
    QFETCH(QString, kind);
    QFETCH(bool, bytes);
    Script::BinaryItem node(QStringLiteral("Job.File.Data"));
    node.setBinaryData(QByteArray("\x01\x02\x03", 3));
    node.setProperty("IData.Type.ExtraInfo", kind);
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty());
    QVERIFY(row);
    row->setData(node);
    QCOMPARE(row->binary_byteArray(), bytes ? QByteArray("\x01\x02\x03", 3) : QByteArray());
}

void TestWidgetProperty::binaryBytesOfMaskAreEmptyAndNeedNoBinaryItem()
{
    Script::DItem node(QStringLiteral("Job.Mask"), QStringLiteral("IDataImage"));
    node.setProperty("IData.Type.ExtraInfo", QStringLiteral("ImageMask"));
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty());
    QVERIFY(row);
    row->setData(node);
    QVERIFY(row->binary_byteArray().isEmpty());
    // A plain node wrongly marked as a viewer kind gives no bytes either, rather than a bad cast.
    node.setProperty("IData.Type.ExtraInfo", QStringLiteral("DXFModel"));
    QVERIFY(row->binary_byteArray().isEmpty());
}

void TestWidgetProperty::errorDescriptionStartsUnassigned()
{
    QVERIFY(!WidgetProperty::m_ErrorDescription);
}

void TestWidgetProperty::rowAndNodeOfAProperty()
{
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty());
    QVERIFY(row);
    QtProperty* property = row;
    QCOMPARE(WidgetProperty::poRow(property), row);
    QCOMPARE(WidgetProperty::poRow(static_cast<QtProperty const*>(property)), row);
    QVERIFY(!WidgetProperty::poNode(property));
    Script::DItem node(QStringLiteral("Job.N"), QStringLiteral("IDataBasicInt"));
    row->setData(node);
    QCOMPARE(WidgetProperty::poNode(property), &node);

    // A property of the browser library that is no row has neither.
    QtIntPropertyManager plain;
    QtProperty* other = plain.addProperty();
    QVERIFY(!WidgetProperty::poRow(other));
    QVERIFY(!WidgetProperty::poNode(other));
    QVERIFY(!WidgetProperty::poRow(static_cast<QtProperty*>(nullptr)));
    QVERIFY(!WidgetProperty::poNode(nullptr));
}

void TestWidgetProperty::nodeAtReadsAnAddress()
{
    Script::DItem node(QStringLiteral("Job.N"), QStringLiteral("IDataBasicInt"));
    const qlonglong address = reinterpret_cast<qlonglong>(&node);
    QCOMPARE(WidgetProperty::poNodeAt(QVariant::fromValue(address)), &node);
    // Other forms of the number are converted to a 64-bit integer.
    QCOMPARE(WidgetProperty::poNodeAt(QVariant::fromValue(static_cast<qulonglong>(address))),
             &node);
    QCOMPARE(WidgetProperty::poNodeAt(QString::number(address)), &node);
    QVERIFY(!WidgetProperty::poNodeAt(QVariant()));
    QVERIFY(!WidgetProperty::poNodeAt(QVariant::fromValue(qlonglong(0))));
    QVERIFY(!WidgetProperty::poNodeAt(QStringLiteral("Job.N")));
}

void TestWidgetProperty::numberText_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("text");
    QTest::newRow("no group separator") << 1234567.5 << 4 << "1234567.5000";
    QTest::newRow("two decimals") << -1234.567 << 2 << "-1234.57";
    QTest::newRow("at the limit") << 99999999.0 << 4 << "99999999.0000";
    QTest::newRow("just above the limit")
        << std::nextafter(99999999.0, std::numeric_limits<double>::infinity()) << 2 << "1.0000e+08";
    QTest::newRow("below the negative limit") << -123456789.0 << 4 << "-1.2346e+08";
}

void TestWidgetProperty::numberText()
{
    QFETCH(double, value);
    QFETCH(int, decimals);
    QFETCH(QString, text);
    auto* row = dynamic_cast<WidgetProperty*>(m_oManager.addProperty());
    QVERIFY(row);
    QCOMPARE(row->numberText(value, decimals), text);
}

QTEST_MAIN(TestWidgetProperty)
#include "tst_widgetproperty.moc"
