#include "qteditorfactory.h"
#include "qtpropertymanager.h"
#include "qttreepropertybrowser.h"
#include "showwidget.h"
#include "testsupport.h"
#include "tinyfactory.h"

#include <QPointer>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QTreeView>

namespace {

/// What a test destroys, in the order it destroys them.
enum class Part { Manager, Factory, Browser };

} // namespace

Q_DECLARE_METATYPE(QList<Part>)

class TestLifetime : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void destructionOrder_data();
    void destructionOrder();
    void destructionOrderOfTypedParts_data();
    void destructionOrderOfTypedParts();
    void unsetEndsPairingWithTheLastBrowser();
    void replacingAFactoryUnpairsTheOldOne();
    void managerGoneForgetsPairing();
    void browsersAreIndependent();
    void clearDeletesPropertiesOnce();
};

void TestLifetime::initTestCase()
{
    TestSupport::failOnWarnings();
}

void TestLifetime::cleanup()
{
    QVERIFY2(TestSupport::liveTopLevelWidgets().isEmpty(),
             qPrintable(TestSupport::liveTopLevelWidgets().join(", ")));
}

void TestLifetime::destructionOrder_data()
{
    QTest::addColumn<QList<Part>>("order");
    QTest::addColumn<bool>("editorOpen");

    const QList<QPair<const char*, QList<Part>>> orders {
        {"manager, factory, browser", {Part::Manager, Part::Factory, Part::Browser}},
        {"manager, browser, factory", {Part::Manager, Part::Browser, Part::Factory}},
        {"factory, manager, browser", {Part::Factory, Part::Manager, Part::Browser}},
        {"factory, browser, manager", {Part::Factory, Part::Browser, Part::Manager}},
        {"browser, manager, factory", {Part::Browser, Part::Manager, Part::Factory}},
        {"browser, factory, manager", {Part::Browser, Part::Factory, Part::Manager}},
    };
    for (const auto& order : orders) {
        QTest::newRow(order.first) << order.second << false;
        QTest::newRow(qPrintable(QString(order.first) + ", editor open")) << order.second << true;
    }
}

namespace {

/// Destroys a browser, a manager of type @p Manager and a factory of type @p Factory in
/// @p order, after showing a group and a property in two places, perhaps with its editor of
/// type @p Editor open. Nothing is unset or removed first: each must cope with the others going.
template<class Manager, class Factory, class Editor>
void destroyInOrder(const QList<Part>& order, bool editorOpen)
{
    auto* browser = new QtTreePropertyBrowser;
    auto* manager = new Manager;
    auto* factory = new Factory;
    browser->setFactoryForManager(manager, factory);
    QtProperty* group = manager->addProperty("group");
    QtProperty* child = manager->addProperty("child");
    group->addSubProperty(child);
    browser->addProperty(group);
    browser->addProperty(child);
    QVERIFY(showWidget(browser));
    if (editorOpen) {
        browser->editItem(browser->topLevelItem(child));
        QVERIFY(browser->findChild<Editor*>());
    }

    QPointer<QtTreePropertyBrowser> browserAlive = browser;
    QPointer<Factory> factoryAlive = factory;
    for (Part part : order) {
        switch (part) {
        case Part::Manager:
            delete manager;
            manager = nullptr;
            if (browserAlive) {
                QVERIFY(browser->topLevelItems().isEmpty());
                // The browser still paints and clears without the manager.
                browser->grab();
                browser->clear();
            }
            if (factoryAlive)
                QVERIFY(factory->propertyManagers().isEmpty());
            break;
        case Part::Factory:
            delete factory;
            factory = nullptr;
            if (browserAlive) {
                browser->grab();
                if (manager) {
                    // No factory, no editor; and no crash looking for one.
                    browser->editItem(browser->topLevelItem(child));
                    QVERIFY(!browser->findChild<Editor*>());
                }
            }
            break;
        case Part::Browser:
            delete browser;
            browser = nullptr;
            if (factoryAlive)
                QVERIFY(factory->propertyManagers().isEmpty());
            if (manager) {
                // The manager's signals reach nobody dangling.
                manager->setValue(child, 3);
                group->addSubProperty(manager->addProperty("late"));
            }
            break;
        }
        QCoreApplication::processEvents();
    }
    QVERIFY(!browserAlive);
    QVERIFY(!factoryAlive);
}

} // namespace

void TestLifetime::destructionOrder()
{
    QFETCH(QList<Part>, order);
    QFETCH(bool, editorOpen);
    destroyInOrder<TinyManager, TinyFactory, QSpinBox>(order, editorOpen);
}

void TestLifetime::destructionOrderOfTypedParts_data()
{
    destructionOrder_data();
}

void TestLifetime::destructionOrderOfTypedParts()
{
    // The same with the library's own integer manager and slider factory.
    QFETCH(QList<Part>, order);
    QFETCH(bool, editorOpen);
    destroyInOrder<QtIntPropertyManager, QtSliderFactory, QSlider>(order, editorOpen);
}

void TestLifetime::unsetEndsPairingWithTheLastBrowser()
{
    TinyManager manager;
    TinyFactory factory;
    QtTreePropertyBrowser first;
    QtTreePropertyBrowser second;
    first.setFactoryForManager(&manager, &factory);
    second.setFactoryForManager(&manager, &factory);
    QCOMPARE(factory.m_lConnected, QList<TinyManager*>({&manager}));
    QCOMPARE(factory.propertyManagers(), QSet<TinyManager*>({&manager}));

    first.unsetFactoryForManager(&manager);
    QCOMPARE(factory.propertyManagers(), QSet<TinyManager*>({&manager}));
    QVERIFY(factory.m_lDisconnected.isEmpty());
    second.unsetFactoryForManager(&manager);
    QVERIFY(factory.propertyManagers().isEmpty());
    QCOMPARE(factory.m_lDisconnected, QList<TinyManager*>({&manager}));

    // Pairing again works, and unsetting twice is harmless.
    first.setFactoryForManager(&manager, &factory);
    QCOMPARE(factory.m_lConnected.size(), 2);
    first.unsetFactoryForManager(&manager);
    first.unsetFactoryForManager(&manager);
    QCOMPARE(factory.m_lDisconnected.size(), 2);
}

void TestLifetime::replacingAFactoryUnpairsTheOldOne()
{
    TinyManager manager;
    TinyFactory oldFactory;
    TinyFactory newFactory;
    QtTreePropertyBrowser browser;
    browser.setFactoryForManager(&manager, &oldFactory);
    browser.setFactoryForManager(&manager, &oldFactory);
    QCOMPARE(oldFactory.m_lConnected.size(), 1);
    browser.setFactoryForManager(&manager, &newFactory);
    QVERIFY(oldFactory.propertyManagers().isEmpty());
    QCOMPARE(newFactory.propertyManagers(), QSet<TinyManager*>({&manager}));

    // Editors now come from the new factory.
    oldFactory.setDeclining(true);
    QtBrowserItem* item = browser.addProperty(manager.addProperty("p"));
    QVERIFY(showWidget(&browser));
    browser.editItem(item);
    QVERIFY(browser.findChild<QSpinBox*>());
}

void TestLifetime::managerGoneForgetsPairing()
{
    TinyFactory factory;
    QtTreePropertyBrowser browser;
    auto* manager = new TinyManager;
    browser.setFactoryForManager(manager, &factory);
    delete manager;
    QVERIFY(factory.propertyManagers().isEmpty());

    // A new manager, perhaps at the same address, starts unpaired in this browser.
    auto* next = new TinyManager;
    QtBrowserItem* item = browser.addProperty(next->addProperty("p"));
    QVERIFY(showWidget(&browser));
    browser.editItem(item);
    QVERIFY(!browser.findChild<QSpinBox*>());
    browser.setFactoryForManager(next, &factory);
    browser.editItem(item);
    QVERIFY(browser.findChild<QSpinBox*>());
    delete next;
    QVERIFY(browser.topLevelItems().isEmpty());
}

void TestLifetime::browsersAreIndependent()
{
    TinyManager manager;
    TinyFactory factory;
    QtProperty* property = manager.addProperty("p");
    auto* paired = new QtTreePropertyBrowser;
    QtTreePropertyBrowser unpaired;
    paired->setFactoryForManager(&manager, &factory);
    paired->addProperty(property);
    QtBrowserItem* item = unpaired.addProperty(property);
    QVERIFY(showWidget(&unpaired));
    unpaired.editItem(item);
    QVERIFY(!unpaired.findChild<QSpinBox*>());

    delete paired;
    manager.setValue(property, 12);
    QCOMPARE(unpaired.findChild<QTreeView*>()->model()->index(0, 1).data().toString(),
             QString("12"));
}

void TestLifetime::clearDeletesPropertiesOnce()
{
    // A property that deletes another of the same manager while it goes, as a row deletes
    // its sub-rows: the manager's teardown must not visit the deleted one again.
    class Owner : public QtProperty
    {
    public:
        explicit Owner(QtAbstractPropertyManager* manager)
            : QtProperty(manager)
        { }
        ~Owner() override { delete m_poOwned; }
        QtProperty* m_poOwned = nullptr;
    };
    class OwnerManager : public TinyManager
    {
    protected:
        QtProperty* createProperty() override { return new Owner(this); }
    };

    OwnerManager manager;
    auto* first = static_cast<Owner*>(manager.addProperty("first"));
    QtProperty* second = manager.addProperty("second");
    first->m_poOwned = second;
    QtTreePropertyBrowser browser;
    browser.addProperty(first);
    browser.addProperty(second);
    manager.clear();
    QVERIFY(manager.properties().isEmpty());
    QVERIFY(browser.topLevelItems().isEmpty());
}

QTEST_MAIN(TestLifetime)
#include "tst_pb_lifetime.moc"
