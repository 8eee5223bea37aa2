#include "jobfixture.h"
#include "tabletranslator.h"

#include "navigator/containers.h"
#include "navigator/widgettreeview.h"
#include "sdk/visibilityinfo.h"

#include "testsupport.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>

namespace {

// Counts the tool tip events that reach it.
class ToolTipCounter : public QLabel
{
public:
    int m_iToolTips = 0;
    int m_iOthers = 0;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ToolTip)
            ++m_iToolTips;
        else if (event->type() == QEvent::User)
            ++m_iOthers;
        return QLabel::event(event);
    }
};

void sendToolTipAndUserEvent(QWidget* target)
{
    QHelpEvent toolTip(QEvent::ToolTip, QPoint(1, 1), target->mapToGlobal(QPoint(1, 1)));
    QCoreApplication::sendEvent(target, &toolTip);
    QEvent user(QEvent::User);
    QCoreApplication::sendEvent(target, &user);
}

} // namespace

class TestWidgetTreeView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        // The first refreshed row gives the default text colour for the whole process.
        WidgetTreeView view;
        JobFixture job(&view);
        job.rootItem()->setForeground(0, QBrush(Qt::blue));
        view.refreshTreeItemState(*job.rootItem());
    }

    void cleanup()
    {
        ItemVisibility::VisibilityInfo::instance()->setVisibilityMode(
            ItemVisibility::VisibilityInfo::NormalView);
        QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    }

    void construction()
    {
        WidgetTreeView view;
        QCOMPARE(view.minimumSize(), QSize(180, 180));
        QCOMPARE(view.editTriggers(),
                 QAbstractItemView::EditTriggers(QAbstractItemView::EditKeyPressed));
        QCOMPARE(view.verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
        QVERIFY(view.dragEnabled());
        QVERIFY(view.hasMouseTracking());
        QVERIFY(!view.isInCopyMode());
    }

    void moduleRecordKeys_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        QTest::newRow("position") << QString::fromStdString(Containers::MODULE_POS) << "M_POSITION";
        QTest::newRow("licence") << QString::fromStdString(Containers::MODULE_LINFO)
                                 << "M_LICENSE_INFO";
        QTest::newRow("name") << QString::fromStdString(Containers::MODULE_NAME) << "M_NAME";
        QTest::newRow("friendly name")
            << QString::fromStdString(Containers::MODULE_FNAME) << "M_FRIENDLY_NAME";
        QTest::newRow("icon") << QString::fromStdString(Containers::MODULE_ICONPATH)
                              << "M_ICON_PATH";
        QTest::newRow("description") << QString::fromStdString(Containers::MODULE_DESC) << "M_DESC";
        QTest::newRow("group") << QString::fromStdString(Containers::MODULE_GROUP) << "M_GROUP";
        QTest::newRow("tool box") << QString::fromStdString(Containers::MODULE_TOOLBOX)
                                  << "M_TOOLBOX";
    }

    void moduleRecordKeys()
    {
        QFETCH(QString, key);
        QFETCH(QString, value);
        QCOMPARE(key, value);
    }

    void getDItem_data()
    {
        QTest::addColumn<QVariant>("address");
        QTest::addColumn<bool>("useNode");
        QTest::addColumn<quintptr>("expected");
        QTest::newRow("64-bit integer") << QVariant() << true << quintptr(0);
        QTest::newRow("number as text")
            << QVariant(QStringLiteral("4096")) << false << quintptr(4096);
        QTest::newRow("unsigned 64-bit") << QVariant(qulonglong(8192)) << false << quintptr(8192);
        QTest::newRow("no address") << QVariant() << false << quintptr(0);
        QTest::newRow("text that is no number")
            << QVariant(QStringLiteral("Camera")) << false << quintptr(0);
    }

    void getDItem()
    {
        QFETCH(QVariant, address);
        QFETCH(bool, useNode);
        QFETCH(quintptr, expected);
        WidgetTreeView view;
        Script::DItem node(QStringLiteral("Module Application.Camera"),
                           QStringLiteral("IDataModule"));
        QTreeWidgetItem item;
        if (useNode) {
            address = QVariant(static_cast<qint64>(reinterpret_cast<quintptr>(&node)));
            expected = reinterpret_cast<quintptr>(&node);
        }
        item.setData(0, WidgetTreeView::NodeAddressRole, address);
        QCOMPARE(reinterpret_cast<quintptr>(view.getDItem(item)), expected);
    }

    void refreshTreeItemState_data()
    {
        QTest::addColumn<int>("ioType");
        QTest::addColumn<int>("outOfRange");
        QTest::addColumn<QColor>("colour");
        QTest::addColumn<QString>("toolTip");
        QTest::newRow("setting") << 0 << 0 << QColor(Qt::blue) << QString();
        QTest::newRow("input") << 1 << 0 << QColor(Qt::lightGray) << "Input";
        QTest::newRow("output") << 2 << 0 << QColor(Qt::darkGray) << "Output";
        QTest::newRow("setting out of range") << 0 << 1 << QColor(Qt::red) << QString();
        QTest::newRow("input out of range") << 1 << 3 << QColor(Qt::red) << "Input";
        QTest::newRow("output out of range") << 2 << -1 << QColor(Qt::red) << "Output";
    }

    void refreshTreeItemState()
    {
        QFETCH(int, ioType);
        QFETCH(int, outOfRange);
        QFETCH(QColor, colour);
        QFETCH(QString, toolTip);
        WidgetTreeView view;
        JobFixture job(&view);
        QTreeWidgetItem* item = job.add(job.rootItem(), QStringLiteral("Module Application.Gain"),
                                        static_cast<Script::DItem::IoType>(ioType));
        JobFixture::nodeOf(item)->setOutOfRangeCounter(outOfRange);
        item->setText(0, QStringLiteral("stale"));
        view.refreshTreeItemState(*item);
        const QBrush brush = item->foreground(0);
        QCOMPARE(brush.style(), Qt::SolidPattern);
        QCOMPARE(brush.color(), colour);
        QCOMPARE(item->toolTip(0), toolTip);
        QCOMPARE(item->text(0), QStringLiteral("Gain"));
        QVERIFY(item->icon(0).isNull());
    }

    void refreshTranslatesNameIconAndToolTip()
    {
        WidgetTreeView view;
        JobFixture job(&view);
        QTreeWidgetItem* item = job.add(job.rootItem(), QStringLiteral("Module Application.Gain"),
                                        Script::DItem::IoInput);
        JobFixture::nodeOf(item)->setIconPath(QStringLiteral(":/images/Setting-3.svg"));
        TableTranslator translator;
        translator.add(QStringLiteral("IData"), QStringLiteral("Gain"),
                       QStringLiteral("Verstärkung"));
        translator.add(QStringLiteral("WidgetTreeView"), QStringLiteral("Input"),
                       QStringLiteral("In"));
        translator.add(QStringLiteral("IData"), QStringLiteral("In"), QStringLiteral("Eingang"));
        QCoreApplication::installTranslator(&translator);
        view.refreshTreeItemState(*item);
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(item->text(0), QStringLiteral("Verstärkung"));
        QCOMPARE(item->toolTip(0), QStringLiteral("Eingang"));
        QVERIFY(!item->icon(0).isNull());
    }

    void refreshItemVisiblity_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<QVariant>("guiVisible");
        QTest::addColumn<QVariant>("unavailable");
        QTest::addColumn<bool>("hidden");
        QTest::addColumn<bool>("italic");
        const QVariant unset;
        QTest::newRow("visible") << 0 << QVariant(true) << unset << false << false;
        QTest::newRow("visible, expert") << 1 << QVariant(true) << unset << false << false;
        QTest::newRow("unavailable wins") << 0 << QVariant(true) << QVariant(true) << true << false;
        QTest::newRow("unavailable wins, expert")
            << 1 << QVariant(true) << QVariant(true) << true << false;
        QTest::newRow("available") << 0 << QVariant(true) << QVariant(false) << false << false;
        QTest::newRow("not visible, normal") << 0 << QVariant(false) << unset << true << false;
        QTest::newRow("not visible, expert") << 1 << QVariant(false) << unset << false << true;
        QTest::newRow("no key, expert") << 1 << unset << unset << false << true;
        QTest::newRow("no key, other mode") << 2 << unset << unset << true << false;
    }

    void refreshItemVisiblity()
    {
        QFETCH(int, mode);
        QFETCH(QVariant, guiVisible);
        QFETCH(QVariant, unavailable);
        QFETCH(bool, hidden);
        QFETCH(bool, italic);
        ItemVisibility::VisibilityInfo::instance()->setVisibilityMode(mode);
        WidgetTreeView view;
        JobFixture job(&view);
        QTreeWidgetItem* item = job.add(job.rootItem(), QStringLiteral("Module Application.Gain"));
        Script::DItem* node = JobFixture::nodeOf(item);
        node->setProperty("IData.IsGuiVisible", guiVisible);
        node->setProperty("GUI.Unavailable", unavailable);
        // Start from the opposite look, so that every outcome is a change.
        item->setHidden(!hidden);
        QFont font = item->font(0);
        font.setItalic(!italic);
        item->setFont(0, font);
        auto* addModule = new QTreeWidgetItem;
        addModule->setText(0, QStringLiteral("Add Module"));
        addModule->setData(0, WidgetTreeView::AddModuleItemRole, QStringLiteral("AddModuleItem"));
        view.addTopLevelItem(addModule);
        QTreeWidgetItem* phantom
            = job.add(job.rootItem(), QStringLiteral("Module Application.New"));
        phantom->setData(0, WidgetTreeView::PhantomRole, QStringLiteral("Phantom"));
        phantom->setText(0, QStringLiteral("preview"));
        JobFixture::nodeOf(phantom)->setProperty("GUI.Unavailable", true);
        // A row without a node is passed over.
        job.rootItem()->setData(0, WidgetTreeView::NodeAddressRole, QVariant());
        job.rootItem()->setText(0, QStringLiteral("holder"));

        view.refreshItemVisiblity();

        QCOMPARE(item->isHidden(), hidden);
        if (!hidden)
            QCOMPARE(item->font(0).italic(), italic);
        QCOMPARE(item->text(0), QStringLiteral("Gain"));
        QVERIFY(!addModule->isHidden());
        QCOMPARE(addModule->text(0), QStringLiteral("Add Module"));
        QVERIFY(!phantom->isHidden());
        QCOMPARE(phantom->text(0), QStringLiteral("preview"));
        QCOMPARE(job.rootItem()->text(0), QStringLiteral("holder"));
    }

    void expandableState()
    {
        WidgetTreeView view;
        JobFixture job(&view);
        QTreeWidgetItem* camera
            = job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        QTreeWidgetItem* exposure
            = job.add(camera, QStringLiteral("Module Application.Camera.Exposure"));
        job.add(exposure, QStringLiteral("Module Application.Camera.Exposure.Auto"));
        QTreeWidgetItem* light
            = job.add(job.rootItem(), QStringLiteral("Module Application.Light"));
        job.add(light, QStringLiteral("Module Application.Light.Power"));
        view.expandAll();
        light->setExpanded(false);

        view.vSetTreeExpandableState(nullptr, true);
        view.vSetTreeExpandableState(view.invisibleRootItem(), true);
        view.collapseAll();
        view.vSetTreeExpandableState(view.invisibleRootItem(), false);

        QVERIFY(job.rootItem()->isExpanded());
        QVERIFY(camera->isExpanded());
        QVERIFY(exposure->isExpanded());
        QVERIFY(!light->isExpanded());
    }

    void showOnlyModulesThenRestore()
    {
        WidgetTreeView view;
        view.setAnimated(true);
        JobFixture job(&view);
        QTreeWidgetItem* camera
            = job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        QTreeWidgetItem* exposure
            = job.add(camera, QStringLiteral("Module Application.Camera.Exposure"));
        job.add(exposure, QStringLiteral("Module Application.Camera.Exposure.Auto"));
        QTreeWidgetItem* light
            = job.add(job.rootItem(), QStringLiteral("Module Application.Light"));
        view.expandAll();

        view.showOnlyModules();
        QVERIFY(!view.isAnimated());
        QVERIFY(job.rootItem()->isExpanded());
        QVERIFY(!camera->isExpanded());
        QVERIFY(!exposure->isExpanded());

        view.restore(light);
        QVERIFY(view.isAnimated());
        QVERIFY(camera->isExpanded());
        QVERIFY(exposure->isExpanded());
        QCOMPARE(view.currentItem(), light);

        // The record was emptied: a second restore expands nothing that was collapsed since.
        camera->setExpanded(false);
        view.restore(nullptr);
        QVERIFY(!camera->isExpanded());
        QCOMPARE(view.currentItem(), light);
    }

    void showOnlyModulesOnEmptyTree()
    {
        WidgetTreeView view;
        view.setAnimated(true);
        view.showOnlyModules();
        QVERIFY(!view.isAnimated());
        view.restoreTreeView();
        QVERIFY(view.isAnimated());
        QCOMPARE(view.currentItem(), nullptr);
    }

    void copyModeSwallowsToolTips()
    {
        WidgetTreeView view;
        JobFixture job(&view);
        QTreeWidgetItem* camera
            = job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        job.add(job.rootItem(), QStringLiteral("Module Application.Light"));
        view.expandAll();
        view.resize(300, 300);
        view.setCurrentItem(camera);
        // The pointer rests in the empty space below the rows.
        QCursor::setPos(view.viewport()->mapToGlobal(QPoint(5, 250)));
        ToolTipCounter label;
        QSignalSpy checks(&view, &WidgetTreeView::checkTreeItem);

        view.enterCopyMode(QStringLiteral("Module Application.Camera"), QIcon());
        QVERIFY(view.isInCopyMode());
        QVERIFY(camera->isSelected());
        // The first position is checked at once; away from the rows it is after the last one.
        QCOMPARE(checks.count(), 1);
        QCOMPARE(checks.first().at(0).toString(), QStringLiteral("Camera"));
        QCOMPARE(checks.first().at(1).toString(), QStringLiteral("Module Application.Light"));
        sendToolTipAndUserEvent(&label);
        QCOMPARE(label.m_iToolTips, 0);
        QCOMPARE(label.m_iOthers, 1);

        view.restore(nullptr);
        QVERIFY(!view.isInCopyMode());
        sendToolTipAndUserEvent(&label);
        QCOMPARE(label.m_iToolTips, 1);
        QCOMPARE(label.m_iOthers, 2);
    }

    void destroyedViewStopsFiltering()
    {
        ToolTipCounter label;
        {
            WidgetTreeView view;
            JobFixture job(&view);
            job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
            view.enterCopyMode(QStringLiteral("Module Application.Camera"), QIcon());
            QVERIFY(view.isInCopyMode());
        }
        sendToolTipAndUserEvent(&label);
        QCOMPARE(label.m_iToolTips, 1);
    }

    void lastModuleStandsForEmptySpace()
    {
        WidgetTreeView view;
        QCOMPARE(view.getItemAtPosOrLast(QPoint(5, 5)), nullptr);
        JobFixture job(&view);
        QCOMPARE(view.getItemAtPosOrLast(QPoint(5, 170)), nullptr);
        job.add(job.rootItem(), QStringLiteral("Module Application.Camera"));
        QTreeWidgetItem* light
            = job.add(job.rootItem(), QStringLiteral("Module Application.Light"));
        auto* addModule = new QTreeWidgetItem;
        addModule->setData(0, WidgetTreeView::AddModuleItemRole, QStringLiteral("AddModuleItem"));
        view.addTopLevelItem(addModule);
        view.expandAll();
        view.resize(300, 300);
        QCOMPARE(view.getItemAtPosOrLast(QPoint(5, 280)), light);
        QCOMPARE(view.getItemAtPosOrLast(view.visualItemRect(addModule).center()), light);
        QCOMPARE(view.getItemAtPosOrLast(view.visualItemRect(job.rootItem()).center()),
                 job.rootItem());
    }
};

QTEST_MAIN(TestWidgetTreeView)
#include "tst_widgettreeview.moc"
