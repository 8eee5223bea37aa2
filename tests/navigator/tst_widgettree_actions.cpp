#include "jobfixture.h"
#include "requestrecorder.h"

#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "qtbrowseritem.h"
#include "sdk/dialogautomation.h"
#include "sdk/ditem.h"
#include "sdk/projectmode.h"
#include "sdk/visibilityinfo.h"

#include "showwidget.h"
#include "testsupport.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

Q_DECLARE_METATYPE(QtBrowserItem*)

using PropertyBrowser::WTreePropertyBrowser;
using ItemVisibility::VisibilityInfo;

namespace {

const QString kCamera = QStringLiteral("Module Application.Camera");
const QString kLight = QStringLiteral("Module Application.Light");

std::unique_ptr<WidgetTree> makeTree()
{
    return std::make_unique<WidgetTree>(nullptr, Qt::WindowFlags());
}

// The texts of a menu's entries, in their order.
QStringList textsOf(const QList<QAction*>& entries)
{
    QStringList texts;
    for (const QAction* action : entries)
        texts << action->text();
    return texts;
}

// Switches the view mode for the life of the guard.
auto viewMode(VisibilityInfo::VisibilityMode mode)
{
    VisibilityInfo* visibility = VisibilityInfo::instance();
    visibility->setVisibilityMode(mode);
    return qScopeGuard(
        [visibility] { visibility->setVisibilityMode(VisibilityInfo::NormalView); });
}

} // namespace

class TestWidgetTreeActions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        qRegisterMetaType<QtBrowserItem*>();
        // A message box is answered at once and recorded, never waited for.
        Utils::DialogAutomation::setEnabled(true);
    }
    void init();
    void cleanup();

    void treeMenuEntries_data();
    void treeMenuEntries();
    void menuOnlyOnTheCurrentRow();
    void noMenuWhenEditingIsForbidden_data();
    void noMenuWhenEditingIsForbidden();
    void noMenuOnTheAddModuleRow();
    void visibilityEntrySendsOnce();
    void colourEntrySendsOnlyAChange();
    void copyPathAndValue_data();
    void copyPathAndValue();
    void deleteKey_data();
    void deleteKey();
    void deleteOnTheAddModuleRowWarns();
    void viewKeys();
    void copyModuleEntryEntersCopyMode();
    void ctrlCThenCtrlVPastes();
    void ctrlShiftCIsNoCopy();
    void ctrlVWithoutAMarkIsNotTaken();
    void deletingTheMarkedModuleClearsTheMark();
    void markSurvivesARebuildOfTheRows();
    void browserMenu_data();
    void browserMenu();
    void browserMenuDeletesTheProperty();

private:
    /// What a context menu event did: whether the dock took it, and the entries of the menu
    /// that came up, which is closed again; none when no menu came up.
    struct MenuRun
    {
        bool accepted = false;
        QList<QAction*> entries;
    };

    /// Sends the tree's context menu event at @p item, which becomes current unless
    /// @p current says otherwise.
    MenuRun openTreeMenu(QTreeWidgetItem* item, QTreeWidgetItem* current = nullptr);
    /// The texts of the entries of the tree's menu at the current @p item.
    QStringList treeMenuAt(QTreeWidgetItem* item) { return textsOf(openTreeMenu(item).entries); }
    /// Sends a right press on the browser's @p item; the menu does not block, and is closed
    /// again once its entries are read.
    QList<QAction*> openBrowserMenu(QtBrowserItem* item);
    /// A node row below the root, made current.
    QTreeWidgetItem* addNode(const QString& path, Script::DItem::IoType ioType,
                             const QString& type = QStringLiteral("IDataBasicInt"));
    /// Two copyable modules, Camera and Light, with the tree focused and Camera current.
    void addTwoModules();
    /// Sends @p key with @p modifiers to the focused tree; returns whether anyone took it.
    bool press(int key, Qt::KeyboardModifiers modifiers);

    std::unique_ptr<WidgetTree> m_poWidget;
    std::unique_ptr<JobFixture> m_poJob;
    std::unique_ptr<RequestRecorder> m_poHost;
    Utils::ProjectMode m_oProjectMode;
    WidgetTreeView* m_poView = nullptr;
};

void TestWidgetTreeActions::init()
{
    m_poWidget = makeTree();
    m_oProjectMode.setProjectMode(0);
    m_poWidget->setResources(nullptr, &m_oProjectMode);
    // The dock follows the project mode from its first showing on.
    m_poWidget->showingWidget();
    m_poView = m_poWidget->findChild<WidgetTreeView*>();
    m_poJob = std::make_unique<JobFixture>(m_poView);
    m_poView->addTopLevelItem(m_poWidget->poAddModuleItem());
    m_poWidget->resize(400, 600);
    QVERIFY(showWidget(m_poWidget.get()));
    m_poHost = std::make_unique<RequestRecorder>(m_poWidget.get());
}

void TestWidgetTreeActions::cleanup()
{
    m_poHost.reset();
    // The "Add Module" row belongs to the dock, not to the tree.
    m_poView->takeTopLevelItem(m_poView->indexOfTopLevelItem(m_poWidget->poAddModuleItem()));
    m_poWidget.reset();
    m_poJob.reset();
    QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
}

QTreeWidgetItem* TestWidgetTreeActions::addNode(const QString& path,
                                                Script::DItem::IoType ioType,
                                                const QString& type)
{
    QTreeWidgetItem* item = m_poJob->add(m_poJob->rootItem(), path, ioType, type);
    m_poView->expandAll();
    m_poView->setCurrentItem(item);
    // What a selection sends is not what these tests look at.
    m_poHost->clear();
    return item;
}

TestWidgetTreeActions::MenuRun TestWidgetTreeActions::openTreeMenu(QTreeWidgetItem* item,
                                                                    QTreeWidgetItem* current)
{
    m_poView->setCurrentItem(current ? current : item);
    m_poHost->clear();
    // The position is read in the dock's coordinates; the view sits at the dock's top left.
    const QPoint pos = m_poView->visualItemRect(item).center();
    MenuRun run;
    // Runs inside the menu's own loop when one came up; the menu is closed before anything is
    // checked, so that no failure leaves it waiting.
    QTimer::singleShot(0, this, [&run] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            run.entries = menu->actions();
            menu->close();
        }
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, m_poWidget->mapToGlobal(pos));
    event.ignore();
    QApplication::sendEvent(m_poWidget.get(), &event);
    run.accepted = event.isAccepted();
    // Without a menu the timer is still due; it must find nothing then.
    QTest::qWait(1);
    return run;
}

QList<QAction*> TestWidgetTreeActions::openBrowserMenu(QtBrowserItem* item)
{
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(50, 50), Qt::RightButton,
                      Qt::RightButton, Qt::NoModifier);
    if (!QMetaObject::invokeMethod(m_poWidget.get(), "vPropertyEditorMouseEvent",
                                   Q_ARG(QMouseEvent*, &press), Q_ARG(QtBrowserItem*, item)))
        return {};
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu)
        return {};
    const QList<QAction*> entries = menu->actions();
    menu->close();
    return entries;
}

void TestWidgetTreeActions::treeMenuEntries_data()
{
    QTest::addColumn<bool>("expert");
    QTest::addColumn<int>("ioType");
    QTest::addColumn<QString>("type");
    QTest::addColumn<bool>("allowed");
    QTest::addColumn<QStringList>("entries");

    const QStringList all {"&Copy Node Path to Clipboard", "Copy Node Value to Clipboard",
                           "&Visible", "&Rename", "&Delete", "Copy &Module"};
    const QString colour = QStringLiteral("&Use Value for Color Feedback");
    QTest::newRow("expert view, input of a plain value")
        << true << int(Script::DItem::IoInput) << "IDataBasicInt" << true << all;
    QTest::newRow("expert view, output: the colour entry last")
        << true << int(Script::DItem::IoOutput) << "IDataBasicDouble" << true
        << all + QStringList {colour};
    QTest::newRow("expert view, a choice has no value to copy")
        << true << int(Script::DItem::IoInput) << "IDataBasicEnum" << true
        << QStringList {all.at(0), all.at(2), all.at(3), all.at(4), all.at(5)};
    QTest::newRow("normal view: no path, value or visibility")
        << false << int(Script::DItem::IoOutput) << "IDataBasicInt" << true
        << QStringList {all.at(3), all.at(4), all.at(5), colour};
    QTest::newRow("a node that allows nothing has an empty menu")
        << true << int(Script::DItem::IoInput) << "IDataBasicInt" << false
        << QStringList {all.at(0), all.at(1)};
}

void TestWidgetTreeActions::treeMenuEntries()
{
    QFETCH(bool, expert);
    QFETCH(int, ioType);
    QFETCH(QString, type);
    QFETCH(bool, allowed);
    QFETCH(QStringList, entries);
    const auto mode = viewMode(expert ? VisibilityInfo::ExpertView : VisibilityInfo::NormalView);
    QTreeWidgetItem* item
        = addNode(kCamera, static_cast<Script::DItem::IoType>(ioType), type);
    Script::DItem* node = JobFixture::nodeOf(item);
    node->setHidable(allowed);
    node->setRenamingAllowed(allowed);
    node->setDeletable(allowed);
    node->setCopyable(allowed);
    QCOMPARE(treeMenuAt(item), entries);
}

void TestWidgetTreeActions::menuOnlyOnTheCurrentRow()
{
    const auto mode = viewMode(VisibilityInfo::ExpertView);
    QTreeWidgetItem* camera = addNode(kCamera, Script::DItem::IoInput);
    QTreeWidgetItem* light = addNode(QStringLiteral("Module Application.Light"),
                                     Script::DItem::IoInput);
    // A right click on a row that is not current opens nothing, and is taken all the same.
    const MenuRun notCurrent = openTreeMenu(light, camera);
    QVERIFY(notCurrent.accepted);
    QVERIFY(notCurrent.entries.isEmpty());
    const MenuRun current = openTreeMenu(light);
    QVERIFY(current.accepted);
    QVERIFY(!current.entries.isEmpty());
}

void TestWidgetTreeActions::noMenuWhenEditingIsForbidden_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("menu");
    QTest::newRow("no flags") << 0 << true;
    QTest::newRow("locked look alone") << 4096 << true;
    QTest::newRow("flag 1 alone") << 1 << true;
    QTest::newRow("both together") << 4097 << false;
}

void TestWidgetTreeActions::noMenuWhenEditingIsForbidden()
{
    QFETCH(int, mode);
    QFETCH(bool, menu);
    const auto view = viewMode(VisibilityInfo::ExpertView);
    m_oProjectMode.setProjectMode(mode);
    QCOMPARE(m_poWidget->isNodeEditingAllowed(), menu);
    QTreeWidgetItem* item = addNode(kCamera, Script::DItem::IoInput);
    QCOMPARE(!treeMenuAt(item).isEmpty(), menu);
}

void TestWidgetTreeActions::noMenuOnTheAddModuleRow()
{
    const auto view = viewMode(VisibilityInfo::ExpertView);
    addNode(kCamera, Script::DItem::IoInput);
    QCOMPARE(treeMenuAt(m_poWidget->poAddModuleItem()), QStringList());
}

void TestWidgetTreeActions::visibilityEntrySendsOnce()
{
    const auto view = viewMode(VisibilityInfo::ExpertView);
    QTreeWidgetItem* item = addNode(kCamera, Script::DItem::IoInput);
    JobFixture::nodeOf(item)->setHidable(true);
    QAction* visible = openTreeMenu(item).entries.value(2);
    QVERIFY(visible && visible->text() == QLatin1String("&Visible"));
    // Opening the menu set the check without a request.
    QVERIFY(visible->isChecked());
    QVERIFY(m_poHost->requests().isEmpty());
    visible->toggle();
    QCOMPARE(m_poHost->ids(), QList<int> {528});
    QCOMPARE(m_poHost->requests().first().category, 0);
    QCOMPARE(m_poHost->requests().first().params.first().first.toList(),
             (QVariantList {kCamera, false}));
    // The path served one toggle; another goes out without it.
    visible->toggle();
    QCOMPARE(m_poHost->requests().last().params.first().first.toList(),
             (QVariantList {QString(), true}));
}

void TestWidgetTreeActions::colourEntrySendsOnlyAChange()
{
    QTreeWidgetItem* item = addNode(kCamera, Script::DItem::IoOutput);
    JobFixture::nodeOf(item)->setProperty("IData.UseForColorMarking", true);
    const QList<QAction*> entries = openTreeMenu(item).entries;
    QVERIFY(!entries.isEmpty());
    QAction* colour = entries.last();
    QCOMPARE(colour->text(), QStringLiteral("&Use Value for Color Feedback"));
    QVERIFY(colour->isChecked());
    // Checking it from the node's state sent nothing: the value was the node's own.
    QVERIFY(m_poHost->requests().isEmpty());
    colour->setChecked(false);
    QCOMPARE(m_poHost->ids(), QList<int> {556});
    QCOMPARE(m_poHost->requests().first().params.first().first.toList(),
             (QVariantList {kCamera, false}));
}

void TestWidgetTreeActions::copyPathAndValue_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("path") << 0 << "copyNodePath" << kCamera;
    QTest::newRow("value") << 1 << "copyNodeValue" << "-42";
}

void TestWidgetTreeActions::copyPathAndValue()
{
    QFETCH(int, entry);
    QFETCH(QString, format);
    QFETCH(QString, text);
    const auto view = viewMode(VisibilityInfo::ExpertView);
    QTreeWidgetItem* item = addNode(kCamera, Script::DItem::IoInput);
    JobFixture::nodeOf(item)->setProperty("IDataNumeric.DynamicValue", -42);
    QAction* action = openTreeMenu(item).entries.value(entry);
    QVERIFY(action);
    action->trigger();
    // Read back in the same process, in all three forms.
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data);
    QCOMPARE(QString::fromLatin1(data->data(format)), text);
    QCOMPARE(QString::fromLatin1(data->data(QStringLiteral("text/plain"))), text);
    QCOMPARE(QGuiApplication::clipboard()->text(), text);
    QVERIFY(m_poHost->requests().isEmpty());
}

void TestWidgetTreeActions::deleteKey_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("sent");
    QTest::newRow("allowed") << 0 << true;
    QTest::newRow("editing forbidden") << 4097 << false;
}

void TestWidgetTreeActions::deleteKey()
{
    QFETCH(int, mode);
    QFETCH(bool, sent);
    m_oProjectMode.setProjectMode(mode);
    // Not deletable by its flag: the host's answer decides, so the request goes all the same.
    addNode(kCamera, Script::DItem::IoInput);
    m_poView->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_poWidget.get()));
    QTRY_VERIFY(m_poView->hasFocus());
    QTest::keyClick(m_poView, Qt::Key_Delete);
    QCOMPARE(m_poHost->ids(), sent ? QList<int> {521} : QList<int>());
    if (sent) {
        QCOMPARE(m_poHost->requests().first().category, 500);
        QCOMPARE(m_poHost->requests().first().params.first().first.toList(),
                 QVariantList {kCamera});
    }
}

void TestWidgetTreeActions::deleteOnTheAddModuleRowWarns()
{
    m_poView->setCurrentItem(m_poWidget->poAddModuleItem());
    m_poView->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_poWidget.get()));
    Utils::DialogAutomation::clear();
    QTest::keyClick(m_poView, Qt::Key_Delete);
    QVERIFY(m_poHost->requests().isEmpty());
    const QList<Utils::DialogAutomation::Call> calls = Utils::DialogAutomation::calls();
    QCOMPARE(calls.size(), 1);
    QCOMPARE(calls.first().m_eKind, Utils::DialogAutomation::Warning);
    QVERIFY(calls.first().m_slTexts.contains(QStringLiteral("The item is not deletable !")));
}

void TestWidgetTreeActions::viewKeys()
{
    QTreeWidgetItem* item = addNode(kCamera, Script::DItem::IoInput);
    QSignalSpy rename(m_poView, &WidgetTreeView::doEditModule);
    QSignalSpy toolBox(m_poView, &WidgetTreeView::showToolBox);
    QTest::keyClick(m_poView, Qt::Key_F2);
    QCOMPARE(rename.count(), 1);
    // Return on a node is the view's own; on the "Add Module" row it asks for the tool box.
    QTest::keyClick(m_poView, Qt::Key_Return);
    QCOMPARE(toolBox.count(), 0);
    m_poView->setCurrentItem(m_poWidget->poAddModuleItem());
    QTest::keyClick(m_poView, Qt::Key_Return);
    QTest::keyClick(m_poView, Qt::Key_Enter);
    QCOMPARE(toolBox.count(), 2);
    QCOMPARE(m_poHost->ids(), (QList<int> {50, 50}));
    // Escape outside copy mode stays the view's.
    m_poView->setCurrentItem(item);
    QTest::keyClick(m_poView, Qt::Key_Escape);
    QCOMPARE(m_poView->currentItem(), item);
}

void TestWidgetTreeActions::browserMenu_data()
{
    QTest::addColumn<bool>("expert");
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("ioType");
    QTest::addColumn<QStringList>("entries");
    const QString value = QStringLiteral("Module Application.Camera.Gain");
    QTest::newRow("normal view: no menu")
        << false << value << int(Script::DItem::IoInput) << QStringList();
    QTest::newRow("input")
        << true << value << int(Script::DItem::IoInput)
        << QStringList {"&Copy Node Path to Clipboard", "Copy Node Value to Clipboard", "&Delete",
                        "&Visible"};
    QTest::newRow("output: the colour entry last")
        << true << value << int(Script::DItem::IoOutput)
        << QStringList {"&Copy Node Path to Clipboard", "Copy Node Value to Clipboard", "&Delete",
                        "&Visible", "&Use Value for Color Feedback"};
    QTest::newRow("a path with \"Add New\" is not deleted")
        << true << QStringLiteral("Module Application.Camera.Add New Gain")
        << int(Script::DItem::IoInput)
        << QStringList {"&Copy Node Path to Clipboard", "Copy Node Value to Clipboard",
                        "&Visible"};
}

void TestWidgetTreeActions::browserMenu()
{
    QFETCH(bool, expert);
    QFETCH(QString, path);
    QFETCH(int, ioType);
    QFETCH(QStringList, entries);
    const auto mode = viewMode(expert ? VisibilityInfo::ExpertView : VisibilityInfo::NormalView);
    Script::DItem node(path, QStringLiteral("IDataBasicDouble"),
                       static_cast<Script::DItem::IoType>(ioType));
    node.setProperty("iDeletable", true);
    auto* browser = m_poWidget->findChild<WTreePropertyBrowser*>();
    browser->createPropertyItem(node, true);
    // The menu does not block: it is open when the call returns, and a right click opens no
    // editor.
    QCOMPARE(textsOf(openBrowserMenu(browser->topLevelItems().first())), entries);
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
    QVERIFY(m_poHost->requests().isEmpty());
    browser->clear();
}

void TestWidgetTreeActions::browserMenuDeletesTheProperty()
{
    const auto mode = viewMode(VisibilityInfo::ExpertView);
    const QString path = QStringLiteral("Module Application.Camera.Gain");
    Script::DItem node(path, QStringLiteral("IDataBasicDouble"), Script::DItem::IoInput);
    node.setProperty("iDeletable", true);
    auto* browser = m_poWidget->findChild<WTreePropertyBrowser*>();
    browser->createPropertyItem(node, true);
    QtBrowserItem* item = browser->topLevelItems().first();
    browser->setCurrentItem(item);
    QAction* remove = openBrowserMenu(item).value(2);
    QVERIFY(remove && remove->text() == QLatin1String("&Delete"));
    remove->trigger();
    QCOMPARE(m_poHost->ids(), QList<int> {521});
    QCOMPARE(m_poHost->requests().first().category, 500);
    QCOMPARE(m_poHost->requests().first().params.first().first.toList(), QVariantList {path});
    browser->clear();
}

void TestWidgetTreeActions::addTwoModules()
{
    for (const QString& path : {kCamera, kLight}) {
        Script::DItem* node = JobFixture::nodeOf(addNode(path, Script::DItem::IoNone));
        node->setCopyable(true);
        node->setDeletable(true);
    }
    m_poView->setCurrentItem(m_poWidget->poFindItem(kCamera));
    m_poView->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_poWidget.get()));
    QTRY_VERIFY(m_poView->hasFocus());
    m_poHost->clear();
}

bool TestWidgetTreeActions::press(int key, Qt::KeyboardModifiers modifiers)
{
    // Sent as the application sends it: to the focused view, then up its parents while ignored.
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(m_poView, &event);
    return event.isAccepted();
}

void TestWidgetTreeActions::copyModuleEntryEntersCopyMode()
{
    addTwoModules();
    QAction* copy = nullptr;
    for (QAction* entry : openTreeMenu(m_poWidget->poFindItem(kCamera)).entries) {
        if (entry->text() == QLatin1String("Copy &Module"))
            copy = entry;
    }
    QVERIFY(copy);
    copy->trigger();
    QVERIFY(m_poView->isInCopyMode());
    // The first position is asked at once.
    QCOMPARE(m_poHost->ids().value(0), 35);
    m_poView->restore(nullptr);
}

void TestWidgetTreeActions::ctrlCThenCtrlVPastes()
{
    addTwoModules();
    m_poHost->answer(35, true);
    QVERIFY(press(Qt::Key_C, Qt::ControlModifier));
    // A mark only: nothing is asked or shown.
    QVERIFY(m_poHost->requests().isEmpty());
    QVERIFY(!m_poView->isInCopyMode());
    m_poView->setCurrentItem(m_poWidget->poFindItem(kLight));
    m_poHost->clear();
    QVERIFY(press(Qt::Key_V, Qt::ControlModifier));
    QList<int> ids = m_poHost->ids();
    QCOMPARE(ids, (QList<int> {35, 531}));
    const RecordedRequest& paste = m_poHost->requests().last();
    QCOMPARE(paste.category, 500);
    QCOMPARE(paste.params.value(0), qMakePair(QVariant(kCamera), 625));
    QCOMPARE(paste.params.value(1), qMakePair(QVariant(kLight), 626));
    QCOMPARE(paste.params.value(2), qMakePair(QVariant(QStringLiteral("after")), 627));
    // The mark stays: a second paste goes out as well.
    m_poHost->clear();
    QVERIFY(press(Qt::Key_V, Qt::ControlModifier));
    QCOMPARE(m_poHost->ids(), (QList<int> {35, 531}));
}

void TestWidgetTreeActions::ctrlShiftCIsNoCopy()
{
    addTwoModules();
    m_poHost->answer(35, true);
    press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    m_poView->setCurrentItem(m_poWidget->poFindItem(kLight));
    m_poHost->clear();
    QVERIFY(!press(Qt::Key_V, Qt::ControlModifier));
    QVERIFY(m_poHost->requests().isEmpty());
}

void TestWidgetTreeActions::ctrlVWithoutAMarkIsNotTaken()
{
    addTwoModules();
    m_poHost->answer(35, true);
    // Nobody takes the key, so it goes on to the dock's parents.
    QVERIFY(!press(Qt::Key_V, Qt::ControlModifier));
    QVERIFY(m_poHost->requests().isEmpty());
}

void TestWidgetTreeActions::deletingTheMarkedModuleClearsTheMark()
{
    addTwoModules();
    m_poHost->answer(35, true);
    QVERIFY(press(Qt::Key_C, Qt::ControlModifier));
    QVERIFY(press(Qt::Key_Delete, Qt::NoModifier));
    QCOMPARE(m_poHost->ids(), QList<int> {521});
    m_poView->setCurrentItem(m_poWidget->poFindItem(kLight));
    m_poHost->clear();
    QVERIFY(!press(Qt::Key_V, Qt::ControlModifier));
    QVERIFY(m_poHost->requests().isEmpty());
}

void TestWidgetTreeActions::markSurvivesARebuildOfTheRows()
{
    addTwoModules();
    m_poHost->answer(35, true);
    QVERIFY(press(Qt::Key_C, Qt::ControlModifier));
    // The host builds the rows anew: the marked row is gone, its node is not.
    QTreeWidgetItem* camera = m_poWidget->poFindItem(kCamera);
    const QVariant address = camera->data(0, WidgetTreeView::NodeAddressRole);
    delete camera;
    auto* again = new QTreeWidgetItem(m_poJob->rootItem());
    again->setData(0, WidgetTreeView::NodeAddressRole, address);
    m_poView->setCurrentItem(m_poWidget->poFindItem(kLight));
    m_poHost->clear();
    QVERIFY(press(Qt::Key_V, Qt::ControlModifier));
    QCOMPARE(m_poHost->ids(), (QList<int> {35, 531}));
    QCOMPARE(m_poHost->requests().last().params.value(0), qMakePair(QVariant(kCamera), 625));
}

QTEST_MAIN(TestWidgetTreeActions)
#include "tst_widgettree_actions.moc"
