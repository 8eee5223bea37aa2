#include "sdk/ditem.h"
#include "sdk/projectmode.h"
#include "sdk/scene.h"
#include "sdk/widgetdescriptor.h"
#include "sdk/widgetfactoryinterface.h"
#include "sdk/widgetinterface.h"
#include "sdk/widgetinterfaceconfig.h"

#include "testsupport.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <cstdint>
#include <cstring>

using Script::DItem;
using WidgetModules::WidgetDescriptor;
using WidgetModules::WidgetFactoryInterface;
using WidgetModules::WidgetInterface;
using WidgetModules::WidgetInterfaceConfig;

namespace {

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

WidgetDescriptor* sampleDescriptor();

// A plug-in widget as simple as can be: it counts the calls it gets.
class SampleWidget : public WidgetInterface
{
public:
    SampleWidget() { ++liveCount; }
    ~SampleWidget() override { --liveCount; }

    WidgetDescriptor* getModuleDescriptor() override { return sampleDescriptor(); }
    void showingWidget() override { ++m_iShowing; }

    static int liveCount;
    int m_iShowing = 0;
};

int SampleWidget::liveCount = 0;

WidgetInterface* createSample()
{
    return new SampleWidget;
}

void destroySample(WidgetInterface* widget)
{
    delete widget;
}

WidgetDescriptor* sampleDescriptor()
{
    static WidgetDescriptor descriptor(
        "Sample", wutils::PluginVersion(2, 1, 0, 77), &createSample, &destroySample, QIcon(),
        WidgetInterfaceConfig(Qt::RightDockWidgetArea, true, false, true, false, true));
    return &descriptor;
}

class SampleFactory : public WidgetFactoryInterface
{
public:
    WidgetInterface* poFindWidget(const std::string& name) const override
    {
        return name == "Sample" ? m_poWidget : nullptr;
    }
    QWidget* poDockHost() const override { return nullptr; }

    WidgetInterface* m_poWidget = nullptr;
};

} // namespace

class TestWidgetModules : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void sceneFindsNodesByPath()
    {
        Containers::Scene scene;
        QCOMPARE(scene.poRootItem(), nullptr);
        QCOMPARE(scene.poFindItem(QStringLiteral("Job")), nullptr);

        QSignalSpy changed(&scene, &Containers::Scene::rootItemChanged);
        auto* root = new DItem(QStringLiteral("Job"), QStringLiteral("IDataModule"));
        auto* module = new DItem(QStringLiteral("Job.Threshold"), QStringLiteral("IDataModule"));
        auto* value = new DItem(QStringLiteral("Job.Threshold.Min"),
                                QStringLiteral("IDataBasicInt"), DItem::IoInput);
        root->vAddChildNode(module);
        module->vAddChildNode(value);
        scene.setRootItem(root);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(root->parent(), &scene);
        QCOMPARE(scene.poRootItem(), root);
        QCOMPARE(scene.poFindItem(QStringLiteral("Job.Threshold.Min")), value);
        QCOMPARE(scene.poFindItem(QStringLiteral("Job.Threshold")), module);
        QCOMPARE(scene.poFindItem(QStringLiteral("Job.Threshold.Max")), nullptr);
    }

    void sceneReplacesAndDeletesTheFormerRoot()
    {
        Containers::Scene scene;
        QPointer<DItem> first = new DItem(QStringLiteral("A"), QStringLiteral("IDataModule"));
        scene.setRootItem(first);
        scene.setRootItem(new DItem(QStringLiteral("B"), QStringLiteral("IDataModule")));
        QVERIFY(first.isNull());
        QCOMPARE(scene.poFindItem(QStringLiteral("B"))->iDataPath(), QStringLiteral("B"));
        scene.setRootItem(nullptr);
        QCOMPARE(scene.poRootItem(), nullptr);
    }

    void configKeepsItsArguments_data()
    {
        QTest::addColumn<int>("area");
        QTest::addColumn<int>("flags");
        QTest::newRow("navigator") << int(Qt::LeftDockWidgetArea) << 0b00100;
        QTest::newRow("all set") << int(Qt::BottomDockWidgetArea) << 0b11111;
        QTest::newRow("none set") << int(Qt::TopDockWidgetArea) << 0;
        QTest::newRow("alternate") << int(Qt::RightDockWidgetArea) << 0b10101;
    }

    void configKeepsItsArguments()
    {
        QFETCH(int, area);
        QFETCH(int, flags);
        const auto bit = [flags](int i) {
            return (flags >> (4 - i) & 1) != 0;
        };
        const WidgetInterfaceConfig config(Qt::DockWidgetArea(area), bit(0), bit(1), bit(2), bit(3),
                                           bit(4));
        QCOMPARE(int(config.dockArea()), area);
        QCOMPARE(config.bFloatingAtStart(), bit(0));
        QCOMPARE(config.bHiddenAtStart(), bit(1));
        QCOMPARE(config.bListedInViewMenu(), bit(2));
        QCOMPARE(config.bTabbed(), bit(3));
        QCOMPARE(config.bFixedSize(), bit(4));
    }

    void descriptorKeepsItsArguments()
    {
        const WidgetDescriptor* descriptor = sampleDescriptor();
        QCOMPARE(descriptor->name(), std::string("Sample"));
        QCOMPARE(descriptor->version().major, 2);
        QCOMPARE(descriptor->version().minor, 1);
        QCOMPARE(descriptor->version().patch, 0);
        QCOMPARE(descriptor->version().build, 77);
        QVERIFY(descriptor->icon().isNull());
        QCOMPARE(descriptor->config().dockArea(), Qt::RightDockWidgetArea);
        QVERIFY(descriptor->config().bFloatingAtStart());
        QVERIFY(descriptor->config().bFixedSize());
        QVERIFY(descriptor->createFunction() == &createSample);
        QVERIFY(descriptor->destroyFunction() == &destroySample);
    }

    void descriptorMakesAndEndsInstances()
    {
        const WidgetDescriptor* descriptor = sampleDescriptor();
        WidgetInterface* widget = descriptor->poCreateInstance();
        QVERIFY(widget);
        QCOMPARE(SampleWidget::liveCount, 1);
        QCOMPARE(widget->getModuleDescriptor(), sampleDescriptor());
        descriptor->vDestroyInstance(widget);
        QCOMPARE(SampleWidget::liveCount, 0);
        descriptor->vDestroyInstance(nullptr);
        QCOMPARE(SampleWidget::liveCount, 0);
    }

    void descriptorWithoutFunctions()
    {
        const WidgetDescriptor empty("Empty", wutils::PluginVersion(), nullptr, nullptr, QIcon(),
                                     WidgetInterfaceConfig());
        QCOMPARE(empty.poCreateInstance(), nullptr);
        SampleWidget widget;
        empty.vDestroyInstance(&widget);
        QCOMPARE(SampleWidget::liveCount, 1);
    }

    void defaultConfigIsADockOnTheLeft()
    {
        const WidgetInterfaceConfig config;
        QCOMPARE(config.dockArea(), Qt::LeftDockWidgetArea);
        QVERIFY(!config.bFloatingAtStart());
        QVERIFY(!config.bHiddenAtStart());
        QVERIFY(config.bListedInViewMenu());
    }

    void interfaceKeepsItsResources()
    {
        SampleWidget widget;
        QCOMPARE(widget.poScene(), nullptr);
        QCOMPARE(widget.poProjectMode(), nullptr);
        QCOMPARE(widget.poWidgetFactory(), nullptr);

        Containers::Scene scene;
        Utils::ProjectMode mode;
        WidgetInterface& asInterface = widget;
        asInterface.setResources(&scene, &mode);
        QCOMPARE(widget.poScene(), &scene);
        QCOMPARE(widget.poProjectMode(), &mode);

        SampleFactory factory;
        factory.m_poWidget = &widget;
        asInterface.initialize(&factory);
        QCOMPARE(widget.poWidgetFactory(), &factory);
        QCOMPARE(widget.poWidgetFactory()->poFindWidget("Sample"), &asInterface);
        QCOMPARE(widget.poWidgetFactory()->poFindWidget("Other"), nullptr);

        asInterface.setResources(nullptr, nullptr);
        QCOMPARE(widget.poScene(), nullptr);
        QCOMPARE(widget.poProjectMode(), nullptr);
    }

    void interfaceDefaultsAndOverrides()
    {
        SampleWidget widget;
        WidgetInterface& asInterface = widget;
        QVERIFY(asInterface.isAGoodMomentToShow());
        asInterface.showingWidget();
        asInterface.showingWidget();
        QCOMPARE(widget.m_iShowing, 2);
        // The operations without override run the defaults, which change nothing.
        asInterface.shown();
        asInterface.hidingWidget();
        asInterface.updateWidget({QVariant(1), QVariant(QStringLiteral("x"))});
        QCOMPARE(widget.m_iShowing, 2);
        QCOMPARE(widget.poScene(), nullptr);
    }

    void interfaceOperationsKeepTheirOrder()
    {
#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
        // Slots 0 and 1 hold the two destructors of the Itanium ABI; the operations follow.
        const std::ptrdiff_t slot = static_cast<std::ptrdiff_t>(sizeof(void*));
        QCOMPARE(virtualTableOffset(&WidgetInterface::getModuleDescriptor), 2 * slot);
        QCOMPARE(virtualTableOffset(&WidgetInterface::setResources), 3 * slot);
        QCOMPARE(virtualTableOffset(&WidgetInterface::isAGoodMomentToShow), 4 * slot);
        QCOMPARE(virtualTableOffset(&WidgetInterface::showingWidget), 5 * slot);
        QCOMPARE(virtualTableOffset(&WidgetInterface::shown), 6 * slot);
        QCOMPARE(virtualTableOffset(&WidgetInterface::hidingWidget), 7 * slot);
        QCOMPARE(virtualTableOffset(&WidgetInterface::updateWidget), 8 * slot);
        QCOMPARE(virtualTableOffset(&WidgetInterface::initialize), 9 * slot);
        QCOMPARE(virtualTableOffset(&WidgetInterface::poScene), std::ptrdiff_t(-1));
#else
        QSKIP("The layout of member function pointers is only known for the x86 Itanium ABI.");
#endif
    }

    void interfaceIsDeletedThroughItsVirtualDestructor()
    {
        WidgetInterface* widget = createSample();
        QCOMPARE(SampleWidget::liveCount, 1);
        delete widget;
        QCOMPARE(SampleWidget::liveCount, 0);
    }
};

QTEST_MAIN(TestWidgetModules)
#include "tst_widgetmodules.moc"
