#include "hostsettings.h"
#include "jobmodel.h"
#include "moduletoolbox.h"
#include "requestlog.h"
#include "samplejob.h"
#include "testsupport.h"
#include "workbenchprobe.h"
#include "workbenchwindow.h"

#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "property_model/wtreepropertybrowser.h"
#include "sdk/ditem.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QSplitter>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidgetItemIterator>

#include <memory>

using SampleJob::path;

/// A module given its place through the workbench, with the plug-in loaded as the host loads
/// it: dragged in from the tool box, copied by menu, copy mode and keys, and deleted and
/// brought back.
class TestModulePlacement : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void toolBoxDragInserts_data();
    void toolBoxDragInserts();
    void refusedPositionShowsNoPhantom_data();
    void refusedPositionShowsNoPhantom();
    void copyByMenuAndClick();
    void copyModeRefusesAPosition();
    void escapeLeavesCopyMode();
    void ctrlCThenCtrlV();
    void toolBoxInGerman();
    void copyPathAndValueFromTheBrowserMenu_data();
    void copyPathAndValueFromTheBrowserMenu();

private:
    WidgetTreeView& tree() const;
    QTreeWidgetItem* row(const QString& module) const;
    QStringList jobModules() const;
    QStringList treeModules() const;
    QTreeWidgetItem* phantom() const;
    std::unique_ptr<QMimeData> dragFromToolBox(const QString& name);
    bool sendDrag(QEvent::Type type, QPoint pos, const QMimeData& data);
    void moveMouse(QPoint pos);
    void clickAt(QPoint pos);
    bool copyByMenu(const QString& module);
    int requests(int id) const;

    QTemporaryDir m_oFolder;
    std::unique_ptr<WorkbenchWindow> m_poWindow;
};

void TestModulePlacement::initTestCase()
{
    TestSupport::failOnWarnings();
    QVERIFY(m_oFolder.isValid());
    openHostSettings(m_oFolder, false);
}

void TestModulePlacement::init()
{
    m_poWindow = std::make_unique<WorkbenchWindow>();
    QString error;
    QVERIFY2(m_poWindow->bLoadPlugin(QStringLiteral(PLUGIN_PATH), &error), qPrintable(error));
    QVERIFY2(m_poWindow->bOpenJob(WorkbenchWindow::sSampleJobPath(), &error), qPrintable(error));
    m_poWindow->resize(1200, 900);
    m_poWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_poWindow.get()));
    // Small rows and a tall tree, as a user drags the splitter, so that the whole list and
    // the space below it are in view.
    tree().setIconSize(QSize(16, 16));
    auto* splitter = m_poWindow->poNavigator()->findChild<QSplitter*>(QStringLiteral("splitter"));
    QVERIFY(splitter);
    splitter->setSizes({500, 300});
}

void TestModulePlacement::cleanup()
{
    m_poWindow.reset();
    QGuiApplication::restoreOverrideCursor();
    QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
}

WidgetTreeView& TestModulePlacement::tree() const
{
    return WorkbenchProbe::jobTree(*m_poWindow);
}

QTreeWidgetItem* TestModulePlacement::row(const QString& module) const
{
    return m_poWindow->poNavigator()->poFindItem(path(module));
}

QStringList TestModulePlacement::jobModules() const
{
    return WorkbenchProbe::moduleNames(m_poWindow->model());
}

QStringList TestModulePlacement::treeModules() const
{
    QStringList names;
    QTreeWidgetItem* root = tree().topLevelItem(0);
    for (int i = 0; i < root->childCount(); ++i)
        names << root->child(i)->text(0);
    return names;
}

QTreeWidgetItem* TestModulePlacement::phantom() const
{
    return WorkbenchProbe::previewRow(tree());
}

int TestModulePlacement::requests(int id) const
{
    return WorkbenchProbe::requestCount(*m_poWindow->poRequestLog(), id);
}

std::unique_ptr<QMimeData> TestModulePlacement::dragFromToolBox(const QString& name)
{
    auto* toolBox = m_poWindow->findChild<ModuleToolBox*>();
    const QList<QListWidgetItem*> found = toolBox->findItems(name, Qt::MatchExactly);
    if (found.size() != 1)
        return nullptr;
    QWidget* viewport = toolBox->viewport();
    const QPoint start = toolBox->visualItemRect(found.first()).center();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, start);
    // The list arms its drag on the first move and starts it once the pointer is far enough.
    const QPoint away = start + QPoint(0, QApplication::startDragDistance() + 6);
    for (const QPoint& at : {start + QPoint(0, 1), away}) {
        QMouseEvent move(QEvent::MouseMove, at, viewport->mapToGlobal(at), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
    }
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, away);
    // The offscreen platform ends the drag at once; the drag is deleted on the next turn of
    // the event loop, and what it carried is taken on to the job tree by hand.
    const QDrag* drag = toolBox->findChild<QDrag*>();
    if (!drag || !drag->mimeData())
        return nullptr;
    auto copy = std::make_unique<QMimeData>();
    for (const QString& format : drag->mimeData()->formats())
        copy->setData(format, drag->mimeData()->data(format));
    QTest::qWait(1);
    return copy;
}

bool TestModulePlacement::sendDrag(QEvent::Type type, QPoint pos, const QMimeData& data)
{
    QWidget* viewport = tree().viewport();
    if (type == QEvent::DragEnter) {
        QDragEnterEvent enter(pos, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(viewport, &enter);
        return enter.isAccepted();
    }
    if (type == QEvent::DragMove) {
        QDragMoveEvent move(pos, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
        return move.isAccepted();
    }
    QDropEvent drop(pos, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    drop.ignore();
    QApplication::sendEvent(viewport, &drop);
    return drop.isAccepted();
}

void TestModulePlacement::moveMouse(QPoint pos)
{
    QWidget* viewport = tree().viewport();
    QMouseEvent move(QEvent::MouseMove, pos, viewport->mapToGlobal(pos), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(viewport, &move);
}

void TestModulePlacement::clickAt(QPoint pos)
{
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, Qt::NoModifier, pos);
}

bool TestModulePlacement::copyByMenu(const QString& module)
{
    QTreeWidgetItem* item = row(module);
    if (!item)
        return false;
    tree().setCurrentItem(item);
    bool found = false;
    QTimer::singleShot(0, this, [&found] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (QAction* action : menu->actions()) {
            if (action->text() == QLatin1String("Copy &Module")) {
                found = true;
                // Chosen the way a user chooses it: the menu closes, then the entry fires.
                menu->setActiveAction(action);
                QTest::keyClick(menu, Qt::Key_Return);
                return;
            }
        }
        menu->close();
    });
    // The dock reads the event's position as a position in the tree.
    const QPoint pos = tree().visualItemRect(item).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, tree().viewport()->mapToGlobal(pos));
    QApplication::sendEvent(m_poWindow->poNavigator(), &event);
    QTest::qWait(1);
    return found;
}

void TestModulePlacement::toolBoxDragInserts_data()
{
    QTest::addColumn<QString>("dropOn");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("between two modules")
        << "Camera" << QStringList {"Camera", "BlobFinder",  "ImageFilter", "Locator",
                                    "OCR",    "Measurement", "Result"};
    QTest::newRow("on \"Add Module\"")
        << "add" << QStringList {"Camera",      "ImageFilter", "Locator",   "OCR",
                                 "Measurement", "Result",      "BlobFinder"};
    QTest::newRow("below the list")
        << "below" << QStringList {"Camera",      "ImageFilter", "Locator",   "OCR",
                                   "Measurement", "Result",      "BlobFinder"};
}

void TestModulePlacement::toolBoxDragInserts()
{
    QFETCH(QString, dropOn);
    QFETCH(QStringList, order);
    const std::unique_ptr<QMimeData> data = dragFromToolBox(QStringLiteral("BlobFinder"));
    QVERIFY(data);
    QCOMPARE(data->data(ModuleToolBox::kAddFormat), QByteArray("blobfinder@BlobFinder"));
    QVERIFY(data->hasImage());

    QVERIFY(sendDrag(QEvent::DragEnter, QPoint(10, 10), *data));
    // The tree shows its modules only; positions are reached row by row.
    QVERIFY(!row(QStringLiteral("Camera"))->isExpanded());
    QPoint target;
    if (dropOn == QLatin1String("add")) {
        target = tree().visualItemRect(m_poWindow->poNavigator()->poAddModuleItem()).center();
    } else if (dropOn == QLatin1String("below")) {
        target = tree().visualItemRect(m_poWindow->poNavigator()->poAddModuleItem()).bottomLeft()
            + QPoint(10, 30);
        QVERIFY2(tree().viewport()->rect().contains(target),
                 qPrintable(QStringLiteral("%1 below a list of height %2")
                                .arg(target.y())
                                .arg(tree().viewport()->height())));
        QVERIFY(!tree().itemAt(target));
    } else {
        target = tree().visualItemRect(row(dropOn)).center();
    }
    QVERIFY(sendDrag(QEvent::DragMove, target, *data));
    // The preview stands where the module will go, with the tool box's name.
    QVERIFY(phantom());
    QCOMPARE(phantom()->text(0), QStringLiteral("BlobFinder"));
    QCOMPARE(treeModules(), order);
    QCOMPARE(tree().topLevelItem(0)->indexOfChild(phantom()),
             order.indexOf(QStringLiteral("BlobFinder")));

    QVERIFY(sendDrag(QEvent::Drop, target, *data));
    QCOMPARE(jobModules(), order);
    QCOMPARE(requests(520), 1);
    QCOMPARE(requests(45), 1);
    // The tree is built again from the job, with the new module current.
    QTRY_COMPARE(treeModules(), order);
    QVERIFY(!phantom());
    QTRY_VERIFY(tree().currentItem());
    QCOMPARE(tree().currentItem(), row(QStringLiteral("BlobFinder")));
    QVERIFY(m_poWindow->model().poNode(path("BlobFinder.Threshold")));
}

void TestModulePlacement::refusedPositionShowsNoPhantom_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("over");
    QTest::newRow("before the camera") << "BlobFinder"
                                       << "";
    QTest::newRow("a second result module") << "Result"
                                            << "OCR";
}

void TestModulePlacement::refusedPositionShowsNoPhantom()
{
    QFETCH(QString, kind);
    QFETCH(QString, over);
    const QStringList before = jobModules();
    const std::unique_ptr<QMimeData> data = dragFromToolBox(kind);
    QVERIFY(data);
    QVERIFY(sendDrag(QEvent::DragEnter, QPoint(10, 10), *data));
    QTreeWidgetItem* item = over.isEmpty() ? tree().topLevelItem(0) : row(over);
    const QPoint target = tree().visualItemRect(item).center();
    QVERIFY(!sendDrag(QEvent::DragMove, target, *data));
    QVERIFY(!phantom());
    sendDrag(QEvent::Drop, target, *data);
    QCOMPARE(requests(520), 0);
    QCOMPARE(jobModules(), before);
    QVERIFY(!m_poWindow->model().canUndo());
}

void TestModulePlacement::copyByMenuAndClick()
{
    QVERIFY(copyByMenu(QStringLiteral("Locator")));
    QVERIFY(tree().isInCopyMode());
    moveMouse(tree().visualItemRect(row(QStringLiteral("OCR"))).center());
    QVERIFY(phantom());
    // The preview is named as the host names its modules, without the root's path.
    QCOMPARE(phantom()->text(0), QStringLiteral("Locator"));
    QCOMPARE(tree().topLevelItem(0)->indexOfChild(phantom()), 4);
    clickAt(tree().visualItemRect(phantom()).center());
    QVERIFY(!tree().isInCopyMode());
    const QStringList order {"Camera",   "ImageFilter", "Locator", "OCR",
                             "Locator2", "Measurement", "Result"};
    QCOMPARE(jobModules(), order);
    QCOMPARE(requests(531), 1);
    QTRY_COMPARE(treeModules(), order);
    QVERIFY(m_poWindow->model().poNode(path("Locator2.Position")));
}

void TestModulePlacement::copyModeRefusesAPosition()
{
    const QStringList before = jobModules();
    QVERIFY(copyByMenu(QStringLiteral("Locator")));
    // In front of the camera a module may not stand: no preview, and the click is not taken.
    moveMouse(tree().visualItemRect(tree().topLevelItem(0)).center());
    QVERIFY(!phantom());
    clickAt(tree().visualItemRect(tree().topLevelItem(0)).center());
    QVERIFY(tree().isInCopyMode());
    QCOMPARE(requests(531), 0);
    QCOMPARE(jobModules(), before);
    QTest::keyClick(&tree(), Qt::Key_Escape);
    QVERIFY(!tree().isInCopyMode());
}

void TestModulePlacement::escapeLeavesCopyMode()
{
    row(QStringLiteral("Camera"))->setExpanded(true);
    QVERIFY(copyByMenu(QStringLiteral("Locator")));
    moveMouse(tree().visualItemRect(row(QStringLiteral("OCR"))).center());
    QVERIFY(phantom());
    QVERIFY(!row(QStringLiteral("Camera"))->isExpanded());
    QTest::keyClick(&tree(), Qt::Key_Escape);
    QVERIFY(!tree().isInCopyMode());
    QVERIFY(!phantom());
    QVERIFY(row(QStringLiteral("Camera"))->isExpanded());
    QCOMPARE(requests(531), 0);
    QVERIFY(!m_poWindow->model().canUndo());
}

void TestModulePlacement::ctrlCThenCtrlV()
{
    QVERIFY(m_poWindow->bSelectNode(path("Locator")));
    tree().setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_poWindow.get()));
    QTRY_VERIFY(tree().hasFocus());
    QTest::keyClick(&tree(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(requests(531), 0);
    QVERIFY(m_poWindow->bSelectNode(path("Measurement")));
    QTest::keyClick(&tree(), Qt::Key_V, Qt::ControlModifier);
    const QStringList order {"Camera",      "ImageFilter", "Locator", "OCR",
                             "Measurement", "Locator2",    "Result"};
    QCOMPARE(jobModules(), order);
    QTRY_COMPARE(treeModules(), order);
    // The tree was built anew; the mark is still on the module, and the copy is current.
    QTRY_COMPARE(tree().currentItem(), row(QStringLiteral("Locator2")));
    QTest::keyClick(&tree(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(jobModules().mid(5, 2), (QStringList {"Locator2", "Locator3"}));
    QCOMPARE(requests(531), 2);
}

void TestModulePlacement::toolBoxInGerman()
{
    QVERIFY(m_poWindow->bSetLanguage(QStringLiteral("de")));
    auto* toolBox = m_poWindow->findChild<ModuleToolBox*>();
    QTRY_COMPARE(toolBox->item(0)->text(), QStringLiteral("Kamera"));
    QCOMPARE(toolBox->item(5)->toolTip(), QStringLiteral("Ergebnis: eines je Job"));
    QCOMPARE(
        m_poWindow->findChild<QDockWidget*>(QStringLiteral("moduleToolBoxDock"))->windowTitle(),
        QStringLiteral("Module"));
    QCOMPARE(m_poWindow->findChild<QAction*>(QStringLiteral("undoAction"))->text(),
             QStringLiteral("&Rückgängig"));
    // The drag carries the job's own name; the dock translates it for the preview.
    const std::unique_ptr<QMimeData> data = dragFromToolBox(QStringLiteral("Blobsuche"));
    QVERIFY(data);
    QCOMPARE(data->data(ModuleToolBox::kAddFormat), QByteArray("blobfinder@BlobFinder"));
    QVERIFY(sendDrag(QEvent::DragEnter, QPoint(10, 10), *data));
    QVERIFY(sendDrag(QEvent::DragMove, tree().visualItemRect(row(QStringLiteral("OCR"))).center(),
                     *data));
    QCOMPARE(phantom()->text(0), QStringLiteral("Blobsuche"));
    QVERIFY(m_poWindow->bSetLanguage(QStringLiteral("en")));
    QTRY_COMPARE(toolBox->item(0)->text(), QStringLiteral("Camera"));
}

void TestModulePlacement::copyPathAndValueFromTheBrowserMenu_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::newRow("path") << "&Copy Node Path to Clipboard"
                          << "copyNodePath" << path("Camera.Exposure");
    QTest::newRow("value") << "Copy Node Value to Clipboard"
                           << "copyNodeValue"
                           << "1200";
}

void TestModulePlacement::copyPathAndValueFromTheBrowserMenu()
{
    QFETCH(QString, entry);
    QFETCH(QString, format);
    QFETCH(QString, text);
    // The menus copy in the expert view only.
    m_poWindow->findChild<QAction*>(QStringLiteral("expertViewAction"))->setChecked(true);
    QVERIFY(m_poWindow->bSelectNode(path("Camera")));
    auto* browser = m_poWindow->poNavigator()->findChild<PropertyBrowser::WTreePropertyBrowser*>();
    auto* view = browser->findChild<QAbstractItemView*>();
    const int row = browser->getPropertyPaths().indexOf(path("Camera.Exposure"));
    QVERIFY(row >= 0);
    const QPoint at = view->visualRect(view->model()->index(row, 0)).center();
    QTest::mouseClick(view->viewport(), Qt::RightButton, Qt::NoModifier, at);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QAction* chosen = nullptr;
    for (QAction* action : menu->actions()) {
        if (action->text() == entry)
            chosen = action;
    }
    menu->close();
    QVERIFY(chosen);
    chosen->trigger();
    // Read back in the same process, in all three forms.
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    QVERIFY(data);
    QCOMPARE(QString::fromLatin1(data->data(format)), text);
    QCOMPARE(QString::fromLatin1(data->data(QStringLiteral("text/plain"))), text);
    QCOMPARE(QGuiApplication::clipboard()->text(), text);
}

QTEST_MAIN(TestModulePlacement)
#include "tst_moduleplacement.moc"
