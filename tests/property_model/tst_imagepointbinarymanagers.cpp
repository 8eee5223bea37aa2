#include "navigator/ditemnavpainter.h"
#include "property_model/binaryfilepropertymanager.h"
#include "property_model/binarypropertymanager.h"
#include "property_model/imagepropertymanager.h"
#include "property_model/pointpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "sdk/binaryitem.h"
#include "sdk/ditem.h"
#include "sdk/image.h"

#include "../propertybrowser/propertymetatype.h"
#include "managertestsupport.h"
#include "testsupport.h"

#include <QSignalSpy>
#include <QTest>

#include <limits>
#include <memory>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::Managers::BasePropertyManager;
using PropertyBrowser::Managers::BinaryFilePropertyManager;
using PropertyBrowser::Managers::BinaryPropertyManager;
using PropertyBrowser::Managers::ImagePropertyManager;
using PropertyBrowser::Managers::PointPropertyManager;
using Script::GraphicItems::WImage::Image;
using Command = VardeenDefs::PropertyEditor::Command;

using ManagerTest::Chain;
using ManagerTest::chainImage;
using ManagerTest::iconImage;
using ManagerTest::verifyOnlyEdit;

namespace {

enum class Kind { Image, Point, Binary, BinaryFile };

// One manager of each kind behind one face, so that a table row can name the kind.
struct Fixture
{
    explicit Fixture(Kind kind)
    {
        switch (kind) {
        case Kind::Image:
            node = std::make_unique<Image>(QStringLiteral("Job.Camera.Picture"));
            manager = std::make_unique<ImagePropertyManager>();
            break;
        case Kind::Point:
            node = std::make_unique<Script::DItem>(QStringLiteral("Job.Locator.Center"),
                                                   QStringLiteral("IDataGeoPoint"));
            for (const char* axis : {"X", "Y", "Z"}) {
                auto* axisNode = new Script::DItem(QStringLiteral("Job.Locator.Center.") + axis,
                                                   QStringLiteral("IDataBasicDouble"),
                                                   Script::DItem::IoNone, node.get());
                node->setProperty(qPrintable(QStringLiteral("IDataGeoPoint.") + axis),
                                  qlonglong(reinterpret_cast<quintptr>(axisNode)));
                axes.append(axisNode);
            }
            setAxes(12345.678, -2.0, 0.0);
            manager = std::make_unique<PointPropertyManager>();
            break;
        case Kind::Binary:
            node = std::make_unique<Script::BinaryItem>(QStringLiteral("Job.Serial.Bytes"),
                                                        QStringLiteral("IDataBinary"));
            manager = std::make_unique<BinaryPropertyManager>();
            break;
        case Kind::BinaryFile:
            node = std::make_unique<Script::BinaryItem>(QStringLiteral("Job.Model.File"),
                                                        QStringLiteral("IDataBinaryFile"));
            node->setProperty("FileName", QStringLiteral("part.dxf"));
            manager = std::make_unique<BinaryFilePropertyManager>();
            break;
        }
        property = manager->addProperty(QStringLiteral("Row"));
        dynamic_cast<WidgetProperty*>(property)->setData(*node);
        base = dynamic_cast<BasePropertyManager*>(manager.get());
    }

    void setAxes(double x, double y, double z)
    {
        axes.at(0)->setProperty("IDataNumeric.DynamicValue", x);
        axes.at(1)->setProperty("IDataNumeric.DynamicValue", y);
        axes.at(2)->setProperty("IDataNumeric.DynamicValue", z);
    }

    std::unique_ptr<Script::DItem> node;
    QList<Script::DItem*> axes;
    std::unique_ptr<QtAbstractPropertyManager> manager;
    BasePropertyManager* base = nullptr;
    QtProperty* property = nullptr;
};

} // namespace

Q_DECLARE_METATYPE(Kind)

class TestImagePointBinaryManagers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void nodeStates_data();
    void nodeStates();
    void binaryFileWithoutNameIsNotLoaded_data();
    void binaryFileWithoutNameIsNotLoaded();
    void imageChannelIcon_data();
    void imageChannelIcon();
    void pointAxisText_data();
    void pointAxisText();
    void pointWithoutAxesShowsZeros();
    void createPropertyMakesRows_data();
    void createPropertyMakesRows();
    void nullPropertyIsHarmless();

    void setValueImage();
    void setValueBinary();
    void setValueBinaryFile();
    void setValuePointSendsNothing();
    void setLink_data();
    void setLink();
    void selectLinkImage_data();
    void selectLinkImage();
};

void TestImagePointBinaryManagers::initTestCase()
{
    TestSupport::failOnWarnings();
    qRegisterMetaType<QtProperty*>();
    qRegisterMetaType<Command>();
    ManagerTest::verifyChainImagesDiffer();
}

void TestImagePointBinaryManagers::cleanup()
{
    QVERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
             qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

void TestImagePointBinaryManagers::nodeStates_data()
{
    QTest::addColumn<Kind>("kind");
    ManagerTest::addNodeStateColumns();
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<Chain>("chain");

    const QColor black(Qt::black);
    const QColor red(Qt::red);
    const QColor gray(Qt::darkGray);
    const QString notLinked = QStringLiteral("Not Linked");
    const QString source = QStringLiteral("Source");
    const QString fileName = QStringLiteral("part.dxf");
    const QString point = QStringLiteral("[12345.68, -2.00, 0.00]");
    const QString error = QStringLiteral("Error");
    const QString notAvailable = QStringLiteral("Not Available");

    // The expected text of one state for the image, point, binary and binary file rows.
    struct Texts
    {
        QString image;
        QString point;
        QString binary;
    };
    auto add = [&](const char* state, int ioType, bool linkable, bool linked, bool linkError,
                   bool errorState, bool initialized, int outOfRange, const Texts& texts,
                   const QColor& color, Chain chain) {
        const struct
        {
            Kind kind;
            const char* name;
            QString text;
        } kinds[] = {{Kind::Image, "image", texts.image},
                     {Kind::Point, "point", texts.point},
                     {Kind::Binary, "binary", texts.binary},
                     {Kind::BinaryFile, "binary file", fileName}};
        for (const auto& k : kinds) {
            QTest::addRow("%s: %s", k.name, state)
                << k.kind << ioType << linkable << linked << linkError << errorState << initialized
                << outOfRange << k.text << color << chain;
        }
    };
    // The painter says "Not Linked" of a linkable input of a type that is not basic.
    add("input, not linkable", 1, false, false, false, false, false, 0,
        {QString(), point, notLinked}, black, Chain::Open);
    add("input, not linkable, out of range", 1, false, false, false, false, false, 2,
        {QString(), point, notLinked}, red, Chain::Open);
    add("input, linkable, not linked", 1, true, false, false, false, false, 0,
        {notLinked, notLinked, notLinked}, black, Chain::Open);
    add("input, linked", 1, true, true, false, false, false, 0, {source, source, source}, black,
        Chain::Closed);
    add("input, linked, link error", 1, true, true, true, false, false, 0, {source, source, source},
        red, Chain::Closed);
    add("input, linked, not linkable", 1, false, true, false, false, false, 0,
        {QString(), QString(), notLinked}, black, Chain::Closed);
    add("output, error", 2, true, false, false, true, false, 0, {error, error, error}, red,
        Chain::None);
    add("output, error and not initialised", 2, true, false, false, true, true, 0,
        {error, error, error}, red, Chain::None);
    add("output, not initialised", 2, true, false, false, false, true, 0,
        {notAvailable, notAvailable, notAvailable}, gray, Chain::None);
    add("output, linkable, value", 2, true, false, false, false, false, 0,
        {notLinked, point, QString()}, black, Chain::None);
    add("output, not linkable, out of range", 2, false, false, false, false, false, 1,
        {QString(), point, QString()}, red, Chain::None);
    add("setting", 0, false, false, false, false, false, 0, {QString(), point, QString()}, black,
        Chain::None);
    add("setting, linkable, linked", 0, true, true, false, false, false, 0,
        {source, source, source}, black, Chain::None);
}

void TestImagePointBinaryManagers::nodeStates()
{
    QFETCH(Kind, kind);
    QFETCH(QString, text);
    QFETCH(QColor, color);
    QFETCH(Chain, chain);

    Fixture f(kind);
    ManagerTest::applyNodeState(*f.node);

    QCOMPARE(f.property->valueText(), text);
    QCOMPARE(f.base->valueText(f.property), text);
    QCOMPARE(f.base->toolTipText(f.property), text);
    QCOMPARE(DItemNavPainter(*f.node).getTextColor(), color);
    QCOMPARE(iconImage(f.base->propertyIcon(f.property)), chainImage(chain));
    QVERIFY(f.base->valueIcon(f.property).isNull());
    QVERIFY(f.property->valueIcon().isNull());
}

void TestImagePointBinaryManagers::binaryFileWithoutNameIsNotLoaded_data()
{
    QTest::addColumn<QVariant>("fileName");
    QTest::addColumn<QString>("text");
    QTest::newRow("missing") << QVariant() << QStringLiteral("Not Loaded");
    QTest::newRow("null string") << QVariant(QString()) << QStringLiteral("Not Loaded");
    QTest::newRow("empty string") << QVariant(QStringLiteral("")) << QString();
    QTest::newRow("name") << QVariant(QStringLiteral("a.hdev")) << QStringLiteral("a.hdev");
}

void TestImagePointBinaryManagers::binaryFileWithoutNameIsNotLoaded()
{
    QFETCH(QVariant, fileName);
    QFETCH(QString, text);
    Fixture f(Kind::BinaryFile);
    f.node->setProperty("FileName", fileName);
    QCOMPARE(f.base->valueText(f.property), text);
    // The painter is not asked, so an output in error still shows its file.
    f.node->setIoType(Script::DItem::IoOutput);
    f.node->setErrorState(true);
    QCOMPARE(f.base->valueText(f.property), text);
}

void TestImagePointBinaryManagers::imageChannelIcon_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<int>("linkMode");
    QTest::addColumn<int>("channels");
    QTest::addColumn<int>("linkedChannels");
    QTest::addColumn<Chain>("chain");
    QTest::newRow("per channel, 0 of 3") << 2 << 1 << 3 << 0 << Chain::Open;
    QTest::newRow("per channel, 1 of 3") << 2 << 1 << 3 << 1 << Chain::Open;
    QTest::newRow("per channel, 2 of 3") << 2 << 1 << 3 << 2 << Chain::Partial;
    QTest::newRow("per channel, 3 of 3") << 0 << 1 << 3 << 3 << Chain::Closed;
    QTest::newRow("per channel, 4 of 4, input") << 1 << 1 << 4 << 4 << Chain::Open;
    QTest::newRow("per channel, 4 of 4, output") << 2 << 1 << 4 << 4 << Chain::None;
    QTest::newRow("whole image, 3 of 3, output") << 2 << 0 << 3 << 3 << Chain::None;
    QTest::newRow("whole image, 3 of 3, input") << 1 << 0 << 3 << 3 << Chain::Open;
    QTest::newRow("not allowed, 2 of 3, input") << 1 << 2 << 3 << 2 << Chain::Open;
}

void TestImagePointBinaryManagers::imageChannelIcon()
{
    QFETCH(int, ioType);
    QFETCH(int, linkMode);
    QFETCH(int, channels);
    QFETCH(int, linkedChannels);
    QFETCH(Chain, chain);
    Fixture f(Kind::Image);
    auto* image = static_cast<Image*>(f.node.get());
    image->setIoType(static_cast<Script::DItem::IoType>(ioType));
    image->setLinkMode(static_cast<Image::LinkMode>(linkMode));
    for (int i = 0; i < channels; ++i)
        image->poAddChannel(QStringLiteral("C%1").arg(i))->setLinked(i < linkedChannels);
    QCOMPARE(image->linkedChannelCount(), linkedChannels);
    QCOMPARE(iconImage(f.base->propertyIcon(f.property)), chainImage(chain));
    QVERIFY(f.base->valueIcon(f.property).isNull());
}

void TestImagePointBinaryManagers::pointAxisText_data()
{
    QTest::addColumn<double>("x");
    QTest::addColumn<double>("y");
    QTest::addColumn<double>("z");
    QTest::addColumn<QString>("text");
    QTest::newRow("fixed") << 1.5 << -2.25 << 0.004 << QStringLiteral("[1.50, -2.25, 0.00]");
    QTest::newRow("no group separator")
        << 1234567.891 << -99999999.0 << 99999999.0
        << QStringLiteral("[1234567.89, -99999999.00, 99999999.00]");
    QTest::newRow("exponent on one axis")
        << 1.0 << 100000000.0 << 3.0 << QStringLiteral("[1.00, 1.0000e+08, 3.00]");
    QTest::newRow("negative exponent")
        << -123456789.0 << 0.0 << 0.0 << QStringLiteral("[-1.2346e+08, 0.00, 0.00]");
}

void TestImagePointBinaryManagers::pointAxisText()
{
    QFETCH(double, x);
    QFETCH(double, y);
    QFETCH(double, z);
    QFETCH(QString, text);
    Fixture f(Kind::Point);
    f.setAxes(x, y, z);
    // The system locale must not leak into the row.
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const QString shown = f.base->valueText(f.property);
    QLocale::setDefault(QLocale::c());
    QCOMPARE(shown, text);
}

void TestImagePointBinaryManagers::pointWithoutAxesShowsZeros()
{
    Fixture f(Kind::Point);
    f.node->setProperty("IDataGeoPoint.Z", QVariant());
    QCOMPARE(f.base->valueText(f.property), QStringLiteral("[0.00, 0.00, 0.00]"));
}

void TestImagePointBinaryManagers::createPropertyMakesRows_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::newRow("image") << Kind::Image;
    QTest::newRow("point") << Kind::Point;
    QTest::newRow("binary") << Kind::Binary;
    QTest::newRow("binary file") << Kind::BinaryFile;
}

void TestImagePointBinaryManagers::createPropertyMakesRows()
{
    QFETCH(Kind, kind);
    Fixture f(kind);
    QVERIFY(dynamic_cast<WidgetProperty*>(f.property));
    std::unique_ptr<QtProperty> created(f.base->createProperty());
    auto* row = dynamic_cast<WidgetProperty*>(created.get());
    QVERIFY(row);
    QVERIFY(!row->node);
    QCOMPARE(created->propertyManager(), f.manager.get());
    QCOMPARE(f.base->valueText(created.get()), QString());
    QVERIFY(f.base->propertyIcon(created.get()).isNull());
}

void TestImagePointBinaryManagers::nullPropertyIsHarmless()
{
    for (Kind kind : {Kind::Image, Kind::Point, Kind::Binary, Kind::BinaryFile}) {
        Fixture f(kind);
        QCOMPARE(f.base->valueText(nullptr), QString());
        QVERIFY(f.base->valueIcon(nullptr).isNull());
        QVERIFY(f.base->propertyIcon(nullptr).isNull());
    }
    ImagePropertyManager images;
    QSignalSpy spy(&images, &ImagePropertyManager::vPropertyEdited);
    images.setValue(nullptr, QImage(2, 2, QImage::Format_Grayscale8));
    QCOMPARE(spy.count(), 0);
}

void TestImagePointBinaryManagers::setValueImage()
{
    Fixture f(Kind::Image);
    auto* manager = static_cast<ImagePropertyManager*>(f.manager.get());
    QSignalSpy spy(manager, &ImagePropertyManager::vPropertyEdited);
    QImage mask(4, 3, QImage::Format_Grayscale8);
    mask.fill(Qt::white);
    mask.setPixel(1, 1, qRgb(0, 0, 0));
    manager->setValue(f.property, mask);
    verifyOnlyEdit(spy, QStringLiteral("Job.Camera.Picture"), VardeenDefs::PropertyEditor::SetValue,
                   QVariant(mask));
}

void TestImagePointBinaryManagers::setValueBinary()
{
    Fixture f(Kind::Binary);
    auto* manager = static_cast<BinaryPropertyManager*>(f.manager.get());
    QSignalSpy spy(manager, &BinaryPropertyManager::vPropertyEdited);
    const QByteArray bytes("\x00\x01\xff", 3);
    manager->setValue(f.property, bytes);
    verifyOnlyEdit(spy, QStringLiteral("Job.Serial.Bytes"), VardeenDefs::PropertyEditor::SetValue,
                   QVariant(bytes));
}

void TestImagePointBinaryManagers::setValueBinaryFile()
{
    Fixture f(Kind::BinaryFile);
    auto* manager = static_cast<BinaryFilePropertyManager*>(f.manager.get());
    QSignalSpy spy(manager, &BinaryFilePropertyManager::vPropertyEdited);
    const QByteArray bytes("0\nSECTION\n", 10);
    manager->setValue(f.property, bytes, QStringLiteral("part.dxf"), QStringLiteral("dxf"),
                      QStringLiteral("Drawing"));
    QMap<QString, QVariant> expected;
    expected.insert(QStringLiteral("BinaryData"), bytes);
    expected.insert(QStringLiteral("FileName"), QStringLiteral("part.dxf"));
    expected.insert(QStringLiteral("Extension"), QStringLiteral("dxf"));
    expected.insert(QStringLiteral("Description"), QStringLiteral("Drawing"));
    verifyOnlyEdit(spy, QStringLiteral("Job.Model.File"), VardeenDefs::PropertyEditor::SetValue,
                   QVariant(expected));
    const QVariantMap sent = spy.at(0).at(2).toMap();
    QCOMPARE(sent.size(), 4);
    QCOMPARE(sent.value(QStringLiteral("BinaryData")).userType(), int(QMetaType::QByteArray));
    QCOMPARE(sent.value(QStringLiteral("FileName")).userType(), int(QMetaType::QString));
}

void TestImagePointBinaryManagers::setValuePointSendsNothing()
{
    Fixture f(Kind::Point);
    auto* manager = static_cast<PointPropertyManager*>(f.manager.get());
    QSignalSpy spy(manager, &PointPropertyManager::vPropertyEdited);
    manager->setValue(f.property, QStringLiteral("[1, 2, 3]"));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(manager->valueText(f.property), QStringLiteral("[12345.68, -2.00, 0.00]"));
}

void TestImagePointBinaryManagers::setLink_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("linkPath");
    const struct
    {
        Kind kind;
        const char* name;
    } kinds[] = {{Kind::Image, "image"},
                 {Kind::Point, "point"},
                 {Kind::Binary, "binary"},
                 {Kind::BinaryFile, "binary file"}};
    for (const auto& k : kinds) {
        QTest::addRow("%s, link", k.name) << k.kind << QStringLiteral("Job.Other.Source");
        QTest::addRow("%s, unlink", k.name) << k.kind << QString();
    }
}

void TestImagePointBinaryManagers::setLink()
{
    QFETCH(Kind, kind);
    QFETCH(QString, linkPath);
    Fixture f(kind);
    QSignalSpy spy(
        f.manager.get(),
        SIGNAL(vPropertyEdited(QString, VardeenDefs::PropertyEditor::Command, QVariant, bool)));
    QVERIFY(spy.isValid());
    const QString path = QStringLiteral("Job.Any.Node");
    bool accepted = false;
    switch (kind) {
    case Kind::Image:
        accepted = static_cast<ImagePropertyManager*>(f.manager.get())->setLink(path, linkPath);
        break;
    case Kind::Point:
        accepted = static_cast<PointPropertyManager*>(f.manager.get())->setLink(path, linkPath);
        break;
    case Kind::Binary:
        accepted = static_cast<BinaryPropertyManager*>(f.manager.get())->setLink(path, linkPath);
        break;
    case Kind::BinaryFile:
        accepted
            = static_cast<BinaryFilePropertyManager*>(f.manager.get())->setLink(path, linkPath);
        break;
    }
    QVERIFY(accepted);
    verifyOnlyEdit(spy, path, VardeenDefs::PropertyEditor::SetLink, QVariant(linkPath));
}

void TestImagePointBinaryManagers::selectLinkImage_data()
{
    QTest::addColumn<QString>("linkPath");
    QTest::newRow("channel") << QStringLiteral("Job.Camera.Picture.Red");
    QTest::newRow("take back") << QString();
}

void TestImagePointBinaryManagers::selectLinkImage()
{
    QFETCH(QString, linkPath);
    Fixture f(Kind::Image);
    auto* manager = static_cast<ImagePropertyManager*>(f.manager.get());
    QSignalSpy spy(manager, &ImagePropertyManager::vPropertyEdited);
    QVERIFY(manager->selectLink(QStringLiteral("Job.Camera.Picture"), linkPath));
    verifyOnlyEdit(spy, QStringLiteral("Job.Camera.Picture"),
                   VardeenDefs::PropertyEditor::SelectLink, QVariant(linkPath));
}

QTEST_MAIN(TestImagePointBinaryManagers)
#include "tst_imagepointbinarymanagers.moc"
