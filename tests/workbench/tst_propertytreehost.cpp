#include "hostsettings.h"
#include "jobmodel.h"
#include "jobrunner.h"
#include "requestlog.h"
#include "testsupport.h"
#include "workbenchprobe.h"
#include "workbenchwindow.h"

#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "property_model/doublepropertymanager.h"
#include "property_model/intpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "qtbrowseritem.h"
#include "sdk/dialogautomation.h"
#include "sdk/ditem.h"
#include "sdk/wappsetting.h"
#include "sdk/wappsettings.h"

#include <QAbstractItemView>
#include <QAction>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;

namespace {

const QString kCamera = QStringLiteral("Module Application.Camera");
const QString kExposure = QStringLiteral("Module Application.Camera.Exposure");
const QString kTemperature = QStringLiteral("Module Application.Camera.Temperature");
const QString kMeasurement = QStringLiteral("Module Application.Measurement");
// Hidden in the normal view.
const QString kOffset = QStringLiteral("Module Application.Measurement.Offset");

} // namespace

/// The property tree as the host drives it: the workbench's host logic with the plug-in loaded
/// from its file, as the real host loads it.
class TestPropertyTreeHost : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void selectingAModuleFillsTheRows();
    void selectingAValueShowsItAlone();
    void addModuleRowEmptiesTheTree();
    void anEditTravelsToTheHostAndBack();
    void aPressOnAValueAsksForAnEditor();
    void splitterIsSavedAndRestoredByANewDock();
    void languageChangeNamesRowsByTheirPaths();
    void runningJobMovesTheOutputs();
    void renamingAModuleRefillsTheRows();
    void expertViewShowsHiddenRowsAtOnce();

private:
    void openWindow();
    WTreePropertyBrowser& browser();
    bool select(const QString& path);
    int requestsWithId(int id) const;

    QTemporaryDir m_oFolder;
    std::unique_ptr<WorkbenchWindow> m_poWindow;
};

void TestPropertyTreeHost::initTestCase()
{
    TestSupport::failOnWarnings();
    // The dock's message boxes are answered here, not left to a person.
    Utils::DialogAutomation::setEnabled(true);
    QVERIFY(m_oFolder.isValid());
    openHostSettings(m_oFolder, false)->setValueOf(QStringLiteral("SplitterPos"), 150);
}

void TestPropertyTreeHost::init()
{
    Utils::DialogAutomation::clear();
    openWindow();
}

void TestPropertyTreeHost::openWindow()
{
    m_poWindow = std::make_unique<WorkbenchWindow>();
    QString error;
    QVERIFY2(m_poWindow->bLoadPlugin(QStringLiteral(PLUGIN_PATH), &error), qPrintable(error));
    QVERIFY2(m_poWindow->bOpenJob(WorkbenchWindow::sSampleJobPath(), &error), qPrintable(error));
    m_poWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_poWindow.get()));
}

void TestPropertyTreeHost::cleanup()
{
    m_poWindow.reset();
    QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    QVERIFY(!WTreePropertyBrowser::me);
}

WTreePropertyBrowser& TestPropertyTreeHost::browser()
{
    return *m_poWindow->poNavigator()->findChild<WTreePropertyBrowser*>();
}

bool TestPropertyTreeHost::select(const QString& path)
{
    return m_poWindow->bSelectNode(path);
}

int TestPropertyTreeHost::requestsWithId(int id) const
{
    return WorkbenchProbe::requestCount(*m_poWindow->poRequestLog(), id);
}

void TestPropertyTreeHost::selectingAModuleFillsTheRows()
{
    QCOMPARE(browser().objectName(), QStringLiteral("NavPropertyBrowser"));
    QVERIFY(browser().topLevelItems().isEmpty());
    QVERIFY(select(kCamera));

    QStringList expected;
    for (const Script::DItem* value : m_poWindow->model().poNode(kCamera)->childNodes())
        expected.append(value->iDataPath());
    QCOMPARE(browser().getPropertyPaths(), expected);
    WidgetProperty* exposure = browser().getWProperty(kExposure);
    QVERIFY(exposure);
    QCOMPARE(exposure->propertyName(), QStringLiteral("Exposure Time [us]"));
    QCOMPARE(exposure->valueText(), QStringLiteral("1200"));
    QCOMPARE(browser().getWProperty(kTemperature)->valueText(), QStringLiteral("Not Available"));
    // Each row is shown, starts collapsed and belongs to the dock's browser.
    QtBrowserItem* item = browser().getBrowserItem(*exposure);
    QVERIFY(item);
    QVERIFY(browser().isItemVisible(item));
    QVERIFY(!browser().isExpanded(item));
}

void TestPropertyTreeHost::selectingAValueShowsItAlone()
{
    QVERIFY(select(kExposure));
    QCOMPARE(browser().getPropertyPaths(), QStringList {kExposure});
}

void TestPropertyTreeHost::addModuleRowEmptiesTheTree()
{
    QVERIFY(select(kCamera));
    QVERIFY(!browser().topLevelItems().isEmpty());
    const int selections = requestsWithId(9);
    auto* tree = m_poWindow->poNavigator()->findChild<WidgetTreeView*>();
    tree->setCurrentItem(m_poWindow->poNavigator()->poAddModuleItem());
    QVERIFY(browser().topLevelItems().isEmpty());
    QVERIFY(WTreePropertyBrowser::wPropertyMapping.isEmpty());
    // The row holds no node, so the host is not asked.
    QCOMPARE(requestsWithId(9), selections);
}

void TestPropertyTreeHost::anEditTravelsToTheHostAndBack()
{
    QVERIFY(select(kCamera));
    WidgetProperty* exposure = browser().getWProperty(kExposure);
    auto* manager
        = dynamic_cast<PropertyBrowser::Managers::IntPropertyManager*>(exposure->propertyManager());
    QVERIFY(manager);
    QSignalSpy changed(exposure, &QObject::destroyed);
    const int edits = requestsWithId(34);
    manager->setValue(exposure, 1300);

    QCOMPARE(requestsWithId(34), edits + 1);
    const RequestLog* log = m_poWindow->poRequestLog();
    QCOMPARE(log->rowTexts(log->count() - 1).value(5), QStringLiteral("Applied to ") + kExposure);
    QCOMPARE(m_poWindow->model().poNode(kExposure)->property("IDataNumeric.DynamicValue").toInt(),
             1300);
    // The host refreshed the row it had: the same row now shows what the node says.
    QCOMPARE(browser().getWProperty(kExposure), exposure);
    QCOMPARE(exposure->valueText(), QStringLiteral("1300"));
    QCOMPARE(changed.count(), 0);
}

void TestPropertyTreeHost::aPressOnAValueAsksForAnEditor()
{
    QVERIFY(select(kCamera));
    auto* view = browser().findChild<QAbstractItemView*>();
    QVERIFY(view);
    const QStringList paths = browser().getPropertyPaths();
    const QModelIndex exposure = view->model()->index(paths.indexOf(kExposure), 1);
    const QModelIndex temperature = view->model()->index(paths.indexOf(kTemperature), 1);
    QCOMPARE(view->model()->data(exposure).toString(), QStringLiteral("1200"));
    QList<QtBrowserItem*> pressedItems;
    connect(&browser(), &QtTreePropertyBrowser::mouseEventSignal, this,
            [&pressedItems](QMouseEvent* event, QtBrowserItem* pressed) {
                if (event->type() == QEvent::MouseButtonPress)
                    pressedItems.append(pressed);
            });

    // An editable row opens its editor, which tells the host that editing started.
    const int started = requestsWithId(39);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(exposure).center());
    QtBrowserItem* item = browser().getBrowserItem(*browser().getWProperty(kExposure));
    QCOMPARE(pressedItems, QList<QtBrowserItem*> {item});
    QCOMPARE(browser().currentItem(), item);
    QVERIFY(view->findChild<QWidget*>(QStringLiteral("IntPropertyEditor")));
    QTRY_COMPARE(requestsWithId(39), started + 1);
    QVERIFY(Utils::DialogAutomation::calls().isEmpty());

    // An output without an editor is read only; a camera row says once why.
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(temperature).center());
    const QList<Utils::DialogAutomation::Call> calls = Utils::DialogAutomation::calls();
    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls.first().m_eKind, Utils::DialogAutomation::Info);
    QCOMPARE(calls.first().m_slTexts.value(0),
             QStringLiteral("This property cannot be changed in offline mode."));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(temperature).center());
    QCOMPARE(Utils::DialogAutomation::calls().size(), 1);
}

void TestPropertyTreeHost::splitterIsSavedAndRestoredByANewDock()
{
    Settings::WAppSetting* group
        = Settings::WAppSettings::instance()->find_setting(QStringLiteral("PROPERTY_EDITOR"));
    QVERIFY(group);
    const int saved = group->valueOf(QStringLiteral("SplitterPos")).toInt();
    QCOMPARE(browser().resizeMode(), QtTreePropertyBrowser::Interactive);
    QCOMPARE(browser().splitterPosition(), saved);

    QVERIFY(select(kCamera));
    const int moved = saved + 37;
    browser().setSplitterPosition(moved);
    // The position is saved when the rows are replaced.
    QVERIFY(select(QStringLiteral("Module Application.Locator")));
    QCOMPARE(group->valueOf(QStringLiteral("SplitterPos")).toInt(), moved);

    m_poWindow.reset();
    openWindow();
    QCOMPARE(browser().splitterPosition(), moved);
}

void TestPropertyTreeHost::languageChangeNamesRowsByTheirPaths()
{
    QVERIFY(select(kCamera));
    WidgetProperty* exposure = browser().getWProperty(kExposure);
    QCOMPARE(exposure->propertyName(), QStringLiteral("Exposure Time [us]"));
    QVERIFY(m_poWindow->bSetLanguage(QStringLiteral("de")));
    // The host's catalogue gives the names with their units.
    QTRY_COMPARE(exposure->propertyName(), QStringLiteral("Belichtungszeit [µs]"));
    QCOMPARE(browser().getWProperty(kTemperature)->propertyName(),
             QStringLiteral("Sensortemperatur [°C]"));
    QVERIFY(m_poWindow->bSetLanguage(QStringLiteral("en")));
    // From now on the name is the path's last segment, no longer the description.
    QTRY_COMPARE(exposure->propertyName(), QStringLiteral("Exposure"));
}

void TestPropertyTreeHost::runningJobMovesTheOutputs()
{
    QVERIFY(select(kCamera));
    WidgetProperty* temperature = browser().getWProperty(kTemperature);
    QCOMPARE(temperature->valueText(), QStringLiteral("Not Available"));
    JobRunner& runner = m_poWindow->runner();
    QSignalSpy running(&runner, &JobRunner::runningChanged);
    runner.setRunning(true);
    QCOMPARE(running.count(), 1);
    // After a few cycles the output has left its unavailable state.
    QTRY_VERIFY(temperature->valueText() != QStringLiteral("Not Available"));
    runner.setRunning(false);
    QCOMPARE(running.count(), 2);

    // One more cycle: the row shows the new value or the error, exactly as the node says.
    const Script::DItem* node = m_poWindow->model().poNode(kTemperature);
    runner.vStep();
    const QString shown = temperature->valueText();
    if (node->hasErrorState()) {
        QCOMPARE(shown, QStringLiteral("Error"));
    } else {
        auto* manager = dynamic_cast<PropertyBrowser::Managers::DoublePropertyManager*>(
            temperature->propertyManager());
        QVERIFY(manager);
        const QLocale locale = temperature->locale();
        const double value = node->property("IDataNumeric.DynamicValue").toDouble();
        QCOMPARE(shown,
                 locale.toString(value, 'f', manager->decimals(temperature))
                     .remove(locale.groupSeparator()));
    }
}

void TestPropertyTreeHost::renamingAModuleRefillsTheRows()
{
    QVERIFY(select(kCamera));
    const QString path = QStringLiteral("Module Application.Camera");
    QString error;
    QVERIFY(m_poWindow->model().bRename(m_poWindow->model().poNode(path),
                                        QStringLiteral("LineCamera"), &error));
    // The rows of the old paths went at once; the tree, rebuilt, shows the module again.
    QVERIFY(!browser().getWProperty(kExposure));
    QTRY_VERIFY(browser().getWProperty(QStringLiteral("Module Application.LineCamera.Exposure")));
}

void TestPropertyTreeHost::expertViewShowsHiddenRowsAtOnce()
{
    QVERIFY(select(kMeasurement));
    QtBrowserItem* offset = browser().getBrowserItem(*browser().getWProperty(kOffset));
    QVERIFY(offset);
    QVERIFY(!browser().isItemVisible(offset));
    QTreeWidgetItem* offsetItem = m_poWindow->poNavigator()->poFindItem(kOffset);
    QVERIFY(offsetItem);
    QVERIFY(offsetItem->isHidden());
    auto* expert = m_poWindow->findChild<QAction*>(QStringLiteral("expertViewAction"));
    QVERIFY(expert);
    const int selections = requestsWithId(9);

    expert->trigger();
    // Both trees show the hidden value at once, the job tree in italics; nothing was selected
    // again.
    QVERIFY(browser().isItemVisible(offset));
    QVERIFY(!offsetItem->isHidden());
    QVERIFY(offsetItem->font(0).italic());
    QCOMPARE(requestsWithId(9), selections);

    expert->trigger();
    QVERIFY(!browser().isItemVisible(offset));
    QVERIFY(offsetItem->isHidden());
}

QTEST_MAIN(TestPropertyTreeHost)
#include "tst_propertytreehost.moc"
