#include "jobfixture.h"
#include "requestrecorder.h"

#include "navigator/widgettree.h"
#include "navigator/widgettreeview.h"
#include "sdk/ditem.h"
#include "sdk/projectmode.h"

#include "showwidget.h"
#include "testsupport.h"

#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QRandomGenerator>
#include <QSet>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

namespace {

const QString kRoot = QStringLiteral("Module Application");

QString modulePath(const QString& name)
{
    return kRoot + QLatin1Char('.') + name;
}

std::unique_ptr<QMimeData> addPayload(const QByteArray& payload)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(WidgetTreeView::kAddFormat, payload);
    return data;
}

// The value of the parameter with @p key of a recorded request.
QVariant paramOf(const RecordedRequest& request, int key)
{
    for (const auto& param : request.params) {
        if (param.second == key)
            return param.first;
    }
    return QVariant();
}

} // namespace

/// The gestures of the job tree that give a module its place: a tool-box drag, a module's own
/// drag, copy mode, and the host's answer on every position on the way.
class TestWidgetTreeViewGestures : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void init();
    void cleanup();

    void toolBoxDragPreviewsThePosition();
    void refusedPositionShowsNoPhantom();
    void dropInsertsAfterTheTarget_data();
    void dropInsertsAfterTheTarget();
    void finalRefusalLeavesTheTreeCollapsed();
    void dragWithNeitherFormat();
    void dragWithBothFormatsFromElsewhere();
    void copyModeIgnoresToolBoxDrags();
    void flagOneRefusesWithoutAsking();
    void moveItem_data();
    void moveItem();
    void pressArmsADragOnlyOnMovableModules_data();
    void pressArmsADragOnlyOnMovableModules();
    void movePayloadFromElsewhereIsNoMove();
    void pressesOnTheAddModuleRow();
    void copyModeFollowsThePointer();
    void copyModeRefusedPressIsIgnored();
    void escapeLeavesCopyMode();
    void payloadsFromOtherProgramsNeverCrash();

private:
    QTreeWidgetItem* module(const QString& name) const;
    QStringList moduleOrder() const;
    QTreeWidgetItem* phantom() const;
    QPoint centreOf(QTreeWidgetItem* item) const;
    bool sendDrag(QEvent::Type type, QPoint pos, const QMimeData& data,
                  Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction);
    QList<int> changeIds() const;
    RecordedRequest lastOf(int id) const;
    QDrag* startOwnDrag(QTreeWidgetItem* item);

    std::unique_ptr<WidgetTree> m_poWidget;
    std::unique_ptr<JobFixture> m_poJob;
    std::unique_ptr<RequestRecorder> m_poHost;
    Utils::ProjectMode m_oProjectMode;
    WidgetTreeView* m_poView = nullptr;
    // Insertion paths the host refuses.
    QSet<QString> m_oRefused;
    bool m_bRefuseAll = false;
};

void TestWidgetTreeViewGestures::init()
{
    m_poWidget = std::make_unique<WidgetTree>(nullptr, Qt::WindowFlags());
    m_oProjectMode.setProjectMode(0);
    m_poWidget->setResources(nullptr, &m_oProjectMode);
    m_poWidget->showingWidget();
    m_poView = m_poWidget->findChild<WidgetTreeView*>();
    // Small rows, so that the whole list and the space below it fit in the view.
    m_poView->setIconSize(QSize(16, 16));
    m_poJob = std::make_unique<JobFixture>(m_poView);
    for (const QString name : {"A", "B", "C", "D"}) {
        QTreeWidgetItem* item = m_poJob->add(m_poJob->rootItem(), modulePath(name));
        Script::DItem* node = JobFixture::nodeOf(item);
        node->setDraggable(true);
        node->setCopyable(true);
        m_poJob->add(item, modulePath(name) + QStringLiteral(".Value"));
    }
    m_poView->addTopLevelItem(m_poWidget->poAddModuleItem());
    m_poView->expandAll();
    m_poWidget->resize(400, 900);
    QVERIFY(showWidget(m_poWidget.get()));
    m_oRefused.clear();
    m_bRefuseAll = false;
    m_poHost = std::make_unique<RequestRecorder>(m_poWidget.get());
    m_poHost->answerWith(35, [this](const RecordedRequest& request) {
        const QString path = paramOf(request, 953).toList().value(1).toString();
        return QVariant(!path.isEmpty() && !m_bRefuseAll && !m_oRefused.contains(path));
    });
}

void TestWidgetTreeViewGestures::cleanup()
{
    m_poHost.reset();
    m_poView->takeTopLevelItem(m_poView->indexOfTopLevelItem(m_poWidget->poAddModuleItem()));
    m_poWidget.reset();
    m_poJob.reset();
    QGuiApplication::restoreOverrideCursor();
    QVERIFY(!QGuiApplication::overrideCursor());
    QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
}

QTreeWidgetItem* TestWidgetTreeViewGestures::module(const QString& name) const
{
    QTreeWidgetItem* root = m_poJob->rootItem();
    for (int i = 0; i < root->childCount(); ++i) {
        const Script::DItem* node = m_poView->getDItem(*root->child(i));
        if (node && node->iDataPath() == modulePath(name))
            return root->child(i);
    }
    return nullptr;
}

QStringList TestWidgetTreeViewGestures::moduleOrder() const
{
    QStringList order;
    QTreeWidgetItem* root = m_poJob->rootItem();
    for (int i = 0; i < root->childCount(); ++i) {
        const Script::DItem* node = m_poView->getDItem(*root->child(i));
        order << (node ? node->unTranslatedName() : QStringLiteral("<phantom>"));
    }
    return order;
}

QTreeWidgetItem* TestWidgetTreeViewGestures::phantom() const
{
    QTreeWidgetItem* root = m_poJob->rootItem();
    for (int i = 0; i < root->childCount(); ++i) {
        if (root->child(i)->data(0, WidgetTreeView::PhantomRole) == QVariant("Phantom"))
            return root->child(i);
    }
    return nullptr;
}

QPoint TestWidgetTreeViewGestures::centreOf(QTreeWidgetItem* item) const
{
    return m_poView->visualItemRect(item).center();
}

bool TestWidgetTreeViewGestures::sendDrag(QEvent::Type type, QPoint pos, const QMimeData& data,
                                          Qt::DropActions actions)
{
    QWidget* viewport = m_poView->viewport();
    if (type == QEvent::DragLeave) {
        QDragLeaveEvent leave;
        QApplication::sendEvent(viewport, &leave);
        return leave.isAccepted();
    }
    if (type == QEvent::DragEnter) {
        QDragEnterEvent enter(pos, actions, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(viewport, &enter);
        return enter.isAccepted();
    }
    if (type == QEvent::DragMove) {
        QDragMoveEvent move(pos, actions, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
        return move.isAccepted();
    }
    QDropEvent drop(pos, actions, &data, Qt::LeftButton, Qt::NoModifier);
    drop.ignore();
    QApplication::sendEvent(viewport, &drop);
    return drop.isAccepted();
}

RecordedRequest TestWidgetTreeViewGestures::lastOf(int id) const
{
    const QList<RecordedRequest>& sent = m_poHost->requests();
    for (auto it = sent.crbegin(); it != sent.crend(); ++it) {
        if (it->id == id)
            return *it;
    }
    return RecordedRequest {-1, -1, WaitOnNothing, 0, {}, {}};
}

QList<int> TestWidgetTreeViewGestures::changeIds() const
{
    // A selection going with a gesture is what the host reads anyway; it changes nothing.
    QList<int> ids = m_poHost->ids();
    ids.removeAll(9);
    return ids;
}

void TestWidgetTreeViewGestures::toolBoxDragPreviewsThePosition()
{
    // Modules with icons are taller than the root without one.
    for (const QString name : {"A", "B", "C", "D"})
        module(name)->setIcon(0, QIcon(QStringLiteral(":/images/Setting-3.svg")));
    const int moduleRowHeight = m_poView->visualItemRect(module("B")).height();
    QVERIFY(m_poView->visualItemRect(m_poJob->rootItem()).height() < moduleRowHeight);
    m_poView->setCurrentItem(module("A"));
    m_poHost->clear();
    const auto data = addPayload("Type7@Blob Finder");
    QVERIFY(sendDrag(QEvent::DragEnter, centreOf(module("B")), *data));
    // The tree shows its modules only, with nothing selected.
    QVERIFY(!module("A")->isExpanded());
    QVERIFY(m_poView->selectedItems().isEmpty());

    QVERIFY(sendDrag(QEvent::DragMove, centreOf(module("B")), *data));
    QCOMPARE(m_poHost->ids(), QList<int> {35});
    QCOMPARE(paramOf(lastOf(35), 953).toList(), (QVariantList {"Type7", modulePath("B")}));
    QTreeWidgetItem* preview = phantom();
    QVERIFY(preview);
    QCOMPARE(moduleOrder(), (QStringList {"A", "B", "<phantom>", "C", "D"}));
    QCOMPARE(preview->text(0), QStringLiteral("Blob Finder"));
    QCOMPARE(preview->font(0).weight(), int(QFont::Bold));
    QCOMPARE(m_poView->currentItem(), preview);
    QVERIFY(m_poView->styleSheet().contains(QLatin1String("rgba(0, 0, 0, 25%)")));
    // The module rows are measured as one while the preview moves, as high as a module's row.
    QVERIFY(m_poView->uniformRowHeights());
    QCOMPARE(m_poView->visualItemRect(module("B")).height(), moduleRowHeight);
    QCOMPARE(m_poView->visualItemRect(m_poJob->rootItem()).height(), moduleRowHeight);

    // The preview follows the pointer; it is the same row all the way.
    QVERIFY(sendDrag(QEvent::DragMove, centreOf(module("D")), *data));
    QCOMPARE(moduleOrder(), (QStringList {"A", "B", "C", "D", "<phantom>"}));
    QVERIFY(sendDrag(QEvent::DragMove, centreOf(module("A")), *data));
    QCOMPARE(moduleOrder(), (QStringList {"A", "<phantom>", "B", "C", "D"}));
    QCOMPARE(phantom(), preview);
    // Over the preview itself the target stays where it was.
    QVERIFY(sendDrag(QEvent::DragMove, centreOf(preview), *data));
    QCOMPARE(paramOf(lastOf(35), 953).toList().value(1).toString(), modulePath("A"));

    sendDrag(QEvent::DragLeave, QPoint(), *data);
    QVERIFY(!phantom());
    QVERIFY(module("A")->isExpanded());
    QVERIFY(m_poView->styleSheet().isEmpty());
    QVERIFY(!m_poView->uniformRowHeights());
    QCOMPARE(m_poView->visualItemRect(module("B")).height(), moduleRowHeight);
}

void TestWidgetTreeViewGestures::refusedPositionShowsNoPhantom()
{
    m_oRefused.insert(modulePath("C"));
    const auto data = addPayload("Type7@Blob Finder");
    QVERIFY(sendDrag(QEvent::DragEnter, centreOf(module("B")), *data));
    QVERIFY(sendDrag(QEvent::DragMove, centreOf(module("B")), *data));
    QTreeWidgetItem* preview = phantom();
    QVERIFY(preview);
    // The refused move is not accepted, and the preview leaves the tree.
    QVERIFY(!sendDrag(QEvent::DragMove, centreOf(module("C")), *data));
    QVERIFY(!phantom());
    QVERIFY(!m_poView->currentItem());
    // Allowed again: the same preview comes back, and the move is taken.
    QVERIFY(sendDrag(QEvent::DragMove, centreOf(module("D")), *data));
    QCOMPARE(phantom(), preview);
    QCOMPARE(moduleOrder(), (QStringList {"A", "B", "C", "D", "<phantom>"}));
    sendDrag(QEvent::DragLeave, QPoint(), *data);
}

void TestWidgetTreeViewGestures::dropInsertsAfterTheTarget_data()
{
    QTest::addColumn<QString>("dropOn");
    QTest::addColumn<QString>("insertedAfter");
    QTest::newRow("between B and C") << "B"
                                     << "B";
    QTest::newRow("on \"Add Module\": after the last module") << "add"
                                                              << "D";
    QTest::newRow("below the list: after the last module") << "below"
                                                           << "D";
    QTest::newRow("on the phantom: the row above it") << "phantom"
                                                      << "B";
}

void TestWidgetTreeViewGestures::dropInsertsAfterTheTarget()
{
    QFETCH(QString, dropOn);
    QFETCH(QString, insertedAfter);
    const auto data = addPayload("Type7@Blob Finder");
    QVERIFY(sendDrag(QEvent::DragEnter, centreOf(module("B")), *data));
    QVERIFY(sendDrag(QEvent::DragMove, centreOf(module("B")), *data));
    QPoint pos = centreOf(module("B"));
    if (dropOn == QLatin1String("add")) {
        pos = centreOf(m_poWidget->poAddModuleItem());
    } else if (dropOn == QLatin1String("below")) {
        pos = m_poView->visualItemRect(m_poWidget->poAddModuleItem()).bottomLeft() + QPoint(5, 20);
        QVERIFY(m_poView->viewport()->rect().contains(pos));
        QVERIFY(!m_poView->itemAt(pos));
    } else if (dropOn == QLatin1String("phantom")) {
        pos = centreOf(phantom());
        QCOMPARE(m_poView->itemAt(pos), phantom());
    }
    m_poHost->clear();
    QVERIFY(sendDrag(QEvent::Drop, pos, *data));
    QCOMPARE(changeIds(), (QList<int> {35, 520, 45}));
    QCOMPARE(lastOf(520).category, 500);
    QCOMPARE(paramOf(lastOf(520), 953).toList(),
             (QVariantList {"Type7", modulePath(insertedAfter)}));
    QCOMPARE(paramOf(lastOf(45), 953).toString(), QStringLiteral("Blob Finder"));
    // The view is itself again once the host has answered.
    QVERIFY(!phantom());
    QVERIFY(module("A")->isExpanded());
    QVERIFY(m_poView->styleSheet().isEmpty());
}

void TestWidgetTreeViewGestures::finalRefusalLeavesTheTreeCollapsed()
{
    const auto data = addPayload("Type7@Blob Finder");
    QVERIFY(sendDrag(QEvent::DragEnter, centreOf(module("B")), *data));
    QVERIFY(sendDrag(QEvent::DragMove, centreOf(module("B")), *data));
    // The host changes its mind before the drop.
    m_oRefused.insert(modulePath("B"));
    m_poHost->clear();
    sendDrag(QEvent::Drop, centreOf(module("B")), *data);
    QCOMPARE(changeIds(), QList<int> {35});
    QVERIFY(!phantom());
    QVERIFY(!module("A")->isExpanded());
    m_poView->restore(nullptr);
    QVERIFY(module("A")->isExpanded());
}

void TestWidgetTreeViewGestures::dragWithNeitherFormat()
{
    QMimeData data;
    data.setText(QStringLiteral("Type7@Blob Finder"));
    data.setData(QStringLiteral("application/x-other"), "Module Application.B");
    m_poHost->clear();
    QVERIFY(!sendDrag(QEvent::DragEnter, centreOf(module("B")), data));
    // Collapsed, and nothing will undo it: a refused enter is followed by no leave.
    QVERIFY(!module("A")->isExpanded());
    QVERIFY(m_poHost->requests().isEmpty());
    QVERIFY(!phantom());
    QVERIFY(m_poView->styleSheet().isEmpty());
    m_poView->restore(nullptr);
    QVERIFY(module("A")->isExpanded());
}

void TestWidgetTreeViewGestures::dragWithBothFormatsFromElsewhere()
{
    auto data = addPayload("Type7@Blob Finder");
    data->setData(WidgetTreeView::kMoveFormat, modulePath("D").toUtf8());
    QVERIFY(sendDrag(QEvent::DragEnter, centreOf(module("B")), *data));
    QVERIFY(sendDrag(QEvent::DragMove, centreOf(module("B")), *data));
    // From another program it can only be an insertion.
    QCOMPARE(paramOf(lastOf(35), 953).toList().value(0).toString(), QStringLiteral("Type7"));
    QCOMPARE(phantom()->text(0), QStringLiteral("Blob Finder"));
    m_poHost->clear();
    QVERIFY(sendDrag(QEvent::Drop, centreOf(module("B")), *data));
    QCOMPARE(changeIds(), (QList<int> {35, 520, 45}));
    QCOMPARE(moduleOrder(), (QStringList {"A", "B", "C", "D"}));
}

void TestWidgetTreeViewGestures::copyModeIgnoresToolBoxDrags()
{
    m_poView->setCurrentItem(module("B"));
    QVERIFY(QMetaObject::invokeMethod(m_poWidget.get(), "copyItemAction"));
    QVERIFY(m_poView->isInCopyMode());
    m_poHost->clear();
    const auto data = addPayload("Type7@Blob Finder");
    QVERIFY(!sendDrag(QEvent::DragEnter, centreOf(module("C")), *data));
    QVERIFY(m_poHost->requests().isEmpty());
    QVERIFY(m_poView->isInCopyMode());
    m_poView->restore(nullptr);
}

void TestWidgetTreeViewGestures::flagOneRefusesWithoutAsking()
{
    const auto data = addPayload("Type7@Blob Finder");
    QVERIFY(sendDrag(QEvent::DragEnter, centreOf(module("B")), *data));
    QVERIFY(sendDrag(QEvent::DragMove, centreOf(module("B")), *data));
    QTreeWidgetItem* preview = phantom();
    QVERIFY(preview);
    m_oProjectMode.setProjectMode(Utils::ProjectMode::Locked);
    m_poHost->clear();
    sendDrag(QEvent::DragMove, centreOf(module("D")), *data);
    // No question, no answer: the last state stays.
    QVERIFY(m_poHost->requests().isEmpty());
    QCOMPARE(phantom(), preview);
    QCOMPARE(moduleOrder(), (QStringList {"A", "B", "<phantom>", "C", "D"}));
    sendDrag(QEvent::DragLeave, QPoint(), *data);
}

void TestWidgetTreeViewGestures::moveItem_data()
{
    QTest::addColumn<QString>("moved");
    QTest::addColumn<QString>("after");
    QTest::addColumn<bool>("sent");
    QTest::addColumn<QStringList>("order");
    QTest::newRow("onto itself: asked, not sent")
        << "B" << modulePath("B") << false << QStringList {"A", "B", "C", "D"};
    QTest::newRow("onto the first row: the first counts as the second")
        << "D" << modulePath("A") << true << QStringList {"A", "B", "D", "C"};
    QTest::newRow("an unknown path: to the front")
        << "D" << modulePath("X") << true << QStringList {"D", "A", "B", "C"};
    QTest::newRow("after the last")
        << "B" << modulePath("D") << true << QStringList {"A", "C", "D", "B"};
    QTest::newRow("down: the index is not corrected for the removal")
        << "A" << modulePath("B") << true << QStringList {"B", "C", "A", "D"};
}

void TestWidgetTreeViewGestures::moveItem()
{
    QFETCH(QString, moved);
    QFETCH(QString, after);
    QFETCH(bool, sent);
    QFETCH(QStringList, order);
    m_poHost->clear();
    emit m_poView->moveItem(modulePath(moved), after);
    QCOMPARE(m_poHost->ids(), sent ? (QList<int> {35, 532}) : QList<int> {35});
    if (sent) {
        const RecordedRequest request = lastOf(532);
        QCOMPARE(request.category, 500);
        QCOMPARE(paramOf(request, 625).toString(), modulePath(moved));
        QCOMPARE(paramOf(request, 626).toString(), after);
        QCOMPARE(paramOf(request, 627).toString(), QStringLiteral("after"));
        QCOMPARE(m_poView->currentItem(), module(moved));
        QCOMPARE(m_poView->selectedItems(), QList<QTreeWidgetItem*> {module(moved)});
    }
    QCOMPARE(moduleOrder(), order);
}

QDrag* TestWidgetTreeViewGestures::startOwnDrag(QTreeWidgetItem* item)
{
    QWidget* viewport = m_poView->viewport();
    const QPoint start = centreOf(item);
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, start);
    const QPoint away = start + QPoint(QApplication::startDragDistance() + 4, 0);
    QMouseEvent move(QEvent::MouseMove, away, viewport->mapToGlobal(away), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &move);
    // The offscreen platform ends a drag at once; its object lives until the next turn of the
    // event loop.
    return m_poView->findChild<QDrag*>();
}

void TestWidgetTreeViewGestures::pressArmsADragOnlyOnMovableModules_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<bool>("drag");
    QTest::newRow("a movable module") << "module" << true;
    QTest::newRow("a value below a module") << "value" << false;
    QTest::newRow("a module that may not move") << "fixed" << false;
    QTest::newRow("the root") << "root" << false;
}

void TestWidgetTreeViewGestures::pressArmsADragOnlyOnMovableModules()
{
    QFETCH(QString, row);
    QFETCH(bool, drag);
    QTreeWidgetItem* item = module("B");
    if (row == QLatin1String("value"))
        item = module("B")->child(0);
    if (row == QLatin1String("root"))
        item = m_poJob->rootItem();
    if (row == QLatin1String("fixed"))
        JobFixture::nodeOf(item)->setDraggable(false);
    // A value may say it moves too: only a module's row is ever dragged.
    JobFixture::nodeOf(module("B")->child(0))->setDraggable(true);
    JobFixture::nodeOf(m_poJob->rootItem())->setDraggable(true);
    QDrag* started = startOwnDrag(item);
    QCOMPARE(started != nullptr, drag);
    if (started) {
        QCOMPARE(started->mimeData()->formats(), QStringList {WidgetTreeView::kMoveFormat});
        QCOMPARE(started->mimeData()->data(WidgetTreeView::kMoveFormat), modulePath("B").toUtf8());
        QCOMPARE(started->supportedActions(), Qt::DropActions(Qt::MoveAction));
    }
    QTest::mouseRelease(m_poView->viewport(), Qt::LeftButton);
    QTest::qWait(1);
    QVERIFY(!m_poView->findChild<QDrag*>());
}

void TestWidgetTreeViewGestures::movePayloadFromElsewhereIsNoMove()
{
    QMimeData data;
    data.setData(WidgetTreeView::kMoveFormat, modulePath("D").toUtf8());
    QVERIFY(sendDrag(QEvent::DragEnter, centreOf(module("B")), data));
    QVERIFY(sendDrag(QEvent::DragMove, centreOf(module("B")), data));
    // Checked and previewed as a move of D...
    QCOMPARE(paramOf(lastOf(35), 953).toList(), (QVariantList {modulePath("D"), modulePath("B")}));
    QCOMPARE(phantom()->text(0), QStringLiteral("D"));
    m_poHost->clear();
    // ...but only this view's own drag moves a module.
    QVERIFY(!sendDrag(QEvent::Drop, centreOf(module("B")), data));
    QVERIFY(changeIds().isEmpty());
    QCOMPARE(moduleOrder(), (QStringList {"A", "B", "C", "D"}));
    QVERIFY(module("A")->isExpanded());
}

void TestWidgetTreeViewGestures::pressesOnTheAddModuleRow()
{
    QSignalSpy toolBox(m_poView, &WidgetTreeView::showToolBox);
    m_poView->setCurrentItem(module("A"));
    QWidget* viewport = m_poView->viewport();
    // A right press there is taken and does nothing; elsewhere it is the view's.
    QTest::mousePress(viewport, Qt::RightButton, Qt::NoModifier,
                      centreOf(m_poWidget->poAddModuleItem()));
    QCOMPARE(m_poView->currentItem(), module("A"));
    QCOMPARE(toolBox.count(), 0);
    QTest::mouseRelease(viewport, Qt::RightButton);
    QTest::mousePress(viewport, Qt::RightButton, Qt::NoModifier, centreOf(module("C")));
    QCOMPARE(m_poView->currentItem(), module("C"));
    QTest::mouseRelease(viewport, Qt::RightButton);
    m_poHost->clear();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier,
                      centreOf(m_poWidget->poAddModuleItem()));
    QCOMPARE(toolBox.count(), 1);
    QCOMPARE(m_poHost->ids(), QList<int> {50});
    QCOMPARE(m_poView->currentItem(), module("C"));
    QTest::mouseRelease(viewport, Qt::LeftButton);
}

void TestWidgetTreeViewGestures::copyModeFollowsThePointer()
{
    QWidget* viewport = m_poView->viewport();
    m_poView->setCurrentItem(module("B"));
    m_poHost->clear();
    QVERIFY(QMetaObject::invokeMethod(m_poWidget.get(), "copyItemAction"));
    QVERIFY(m_poView->isInCopyMode());
    // The first position is asked at once, with the module's name.
    QCOMPARE(m_poHost->ids().value(0), 35);
    QCOMPARE(paramOf(m_poHost->requests().first(), 953).toList().value(0).toString(),
             QStringLiteral("B"));
    QVERIFY(!module("A")->isExpanded());

    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(m_poView, &enter);
    QVERIFY(QGuiApplication::overrideCursor());
    QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::DragCopyCursor);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(m_poView, &leave);
    QVERIFY(!QGuiApplication::overrideCursor());

    QMouseEvent move(QEvent::MouseMove, centreOf(module("C")),
                     viewport->mapToGlobal(centreOf(module("C"))), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(viewport, &move);
    QCOMPARE(paramOf(lastOf(35), 953).toList(), (QVariantList {"B", modulePath("C")}));
    QVERIFY(phantom());
    QCOMPARE(phantom()->text(0), QStringLiteral("B"));
    QCOMPARE(moduleOrder(), (QStringList {"A", "B", "C", "<phantom>", "D"}));

    m_poHost->clear();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, centreOf(phantom()));
    QCOMPARE(changeIds(), (QList<int> {35, 531}));
    const RecordedRequest paste = lastOf(531);
    QCOMPARE(paste.category, 500);
    QCOMPARE(paramOf(paste, 625).toString(), modulePath("B"));
    QCOMPARE(paramOf(paste, 626).toString(), modulePath("C"));
    QCOMPARE(paramOf(paste, 627).toString(), QStringLiteral("after"));
    QVERIFY(!m_poView->isInCopyMode());
    QVERIFY(!phantom());
    QVERIFY(module("A")->isExpanded());
    QTest::mouseRelease(viewport, Qt::LeftButton);
}

void TestWidgetTreeViewGestures::copyModeRefusedPressIsIgnored()
{
    QWidget* viewport = m_poView->viewport();
    m_oRefused.insert(modulePath("C"));
    m_poView->setCurrentItem(module("B"));
    QVERIFY(QMetaObject::invokeMethod(m_poWidget.get(), "copyItemAction"));
    QMouseEvent move(QEvent::MouseMove, centreOf(module("C")),
                     viewport->mapToGlobal(centreOf(module("C"))), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(viewport, &move);
    QVERIFY(!phantom());
    m_poHost->clear();
    QMouseEvent press(QEvent::MouseButtonPress, centreOf(module("C")),
                      viewport->mapToGlobal(centreOf(module("C"))), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(viewport, &press);
    QVERIFY(!press.isAccepted());
    QVERIFY(m_poHost->requests().isEmpty());
    QVERIFY(m_poView->isInCopyMode());
    m_poView->restore(nullptr);
}

void TestWidgetTreeViewGestures::escapeLeavesCopyMode()
{
    m_poView->setCurrentItem(module("B"));
    QVERIFY(QMetaObject::invokeMethod(m_poWidget.get(), "copyItemAction"));
    QMouseEvent move(QEvent::MouseMove, centreOf(module("C")),
                     m_poView->viewport()->mapToGlobal(centreOf(module("C"))), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(m_poView->viewport(), &move);
    QVERIFY(phantom());
    QVERIFY(!module("A")->isExpanded());
    m_poHost->clear();
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(m_poView, &escape);
    QVERIFY(escape.isAccepted());
    QVERIFY(!m_poView->isInCopyMode());
    QVERIFY(!phantom());
    QVERIFY(module("A")->isExpanded());
    QVERIFY(m_poView->styleSheet().isEmpty());
    // The copied module is not made current again.
    QVERIFY(m_poView->currentItem() != module("B"));
    // Nothing is sent: leaving copy mode is no change of the job.
    QVERIFY(changeIds().isEmpty());
}

void TestWidgetTreeViewGestures::payloadsFromOtherProgramsNeverCrash()
{
    QRandomGenerator random(20261125);
    // Bytes that matter to the readers: the separator, NUL, a full stop, and broken UTF-8.
    const QByteArray special("@@\0.\xff\xfe\xc3\x80", 8);
    auto payload = [&random, &special](int round) {
        if (round % 25000 == 7)
            return QByteArray(1 << 20, round % 2 ? '@' : 'x');
        QByteArray bytes;
        const int length = random.bounded(40);
        for (int i = 0; i < length; ++i) {
            const quint32 pick = random.bounded(4u);
            bytes.append(pick == 0 ? special.at(random.bounded(special.size()))
                                   : char(random.bounded(256)));
        }
        return bytes;
    };
    const QList<QPoint> places {centreOf(module("A")), centreOf(module("D")),
                                centreOf(m_poWidget->poAddModuleItem()), QPoint(3, 890),
                                QPoint(-5, -5)};
    int drops = 0;
    int asked = 0;
    for (int round = 0; round < 100000; ++round) {
        // Restoring the tree relays out all of it and reads no payload, so it is done now and
        // then; a drop ends what the application delivers, so every payload enters anew.
        if (round % 100 == 0)
            m_poView->restore(nullptr);
        QMimeData data;
        const quint32 formats = random.bounded(3u);
        if (formats != 1)
            data.setData(WidgetTreeView::kAddFormat, payload(round));
        if (formats != 0)
            data.setData(WidgetTreeView::kMoveFormat, payload(round));
        const QPoint place = places.at(random.bounded(places.size()));
        // Mostly refused: an allowed position restyles the whole view and reads no more of
        // the payload, so a few of them cover that path.
        m_bRefuseAll = random.bounded(100u) != 0;
        sendDrag(QEvent::DragEnter, place, data);
        sendDrag(QEvent::DragMove, place, data);
        drops += sendDrag(QEvent::Drop, place, data) ? 1 : 0;
        // A module's move handler gets what another program may put in a move payload.
        emit m_poView->moveItem(WidgetTreeView::payloadText(data, WidgetTreeView::kMoveFormat),
                                modulePath(QStringLiteral("B")));
        asked += m_poHost->ids().contains(35) ? 1 : 0;
        m_poHost->clear();
    }
    m_poView->restore(nullptr);
    // The payloads reached the handlers: most rounds asked the host about a position.
    QVERIFY2(asked > 60000, qPrintable(QString::number(asked)));
    // The rows are all there, each once, whatever was thrown at them.
    QStringList order = moduleOrder();
    order.sort();
    QCOMPARE(order, (QStringList {"A", "B", "C", "D"}));
    QVERIFY(drops > 0);
}

QTEST_MAIN(TestWidgetTreeViewGestures)
#include "tst_widgettreeview_gestures.moc"
