#include "dialogs/widgetsetnode.h"
#include "ui_widgetsetnode.h"

#include "testsupport.h"

#include <QLayout>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>

using PropertyBrowser::Editors::WidgetSetNode;

namespace {

// A tree like the link picker's: a group with two leaves, wired to the dialog the same way.
struct PickerTree
{
    explicit PickerTree(WidgetSetNode& dialog)
        : tree(&dialog)
        , group(&tree, QStringList {QStringLiteral("Job")})
        , leaf(&group, QStringList {QStringLiteral("Out")})
        , other(&group, QStringList {QStringLiteral("Other")})
    {
        QObject::connect(&tree, &QTreeWidget::itemSelectionChanged, &dialog,
                         &WidgetSetNode::okBtnState);
    }

    QTreeWidget tree;
    QTreeWidgetItem group;
    QTreeWidgetItem leaf;
    QTreeWidgetItem other;
};

// Notes the size of a page when its dialog is shown.
struct ShowWatcher : QObject
{
    explicit ShowWatcher(QWidget* watchedPage)
        : page(watchedPage)
    { }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Show)
            sizeAtShow = page->size();
        return false;
    }
    QWidget* page;
    QSize sizeAtShow;
};

} // namespace

class TestWidgetSetNode : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QTRY_VERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void form_data();
    void form();
    void startsOnTheManualPage();
    void manualPageNeverShowsReset();
    void linkedPageWaitsForALeaf();
    void linkedFlagIsSticky();
    void backToManualEnablesOk();
    void reportWithoutButtonChangeKeepsOk();
    void validationShowsWarning_data();
    void validationShowsWarning();
    void buttonsEndTheDialog_data();
    void buttonsEndTheDialog();
    void doubleClickAcceptsOnlyALeaf();
    void okBtnStateNeedsATreeSender();
    void handResizeLastsUntilThePageChanges();
    void centresThePageOnTheParentWindow();
};

void TestWidgetSetNode::form_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("linked") << "rbDynamicValue"
                            << "Linked Value";
    QTest::newRow("manual") << "rbLocalValue"
                            << "Manual Value";
    QTest::newRow("ok") << "m_OKBtn"
                        << "OK";
    QTest::newRow("cancel") << "m_CancelBtn"
                            << "Cancel";
    QTest::newRow("reset") << "m_ResetBtn"
                           << "Reset";
}

void TestWidgetSetNode::form()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    WidgetSetNode dialog;
    auto* button = dialog.findChild<QAbstractButton*>(name);
    QVERIFY(button);
    QCOMPARE(button->text(), text);
    QCOMPARE(dialog.objectName(), QStringLiteral("WidgetSetNode"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Set Item Value"));
    QCOMPARE(dialog.size(), QSize(315, 113));
    QCOMPARE(dialog.windowModality(), Qt::ApplicationModal);
    QVERIFY(!(dialog.windowFlags() & Qt::WindowContextHelpButtonHint));
    QCOMPARE(dialog.layout()->contentsMargins(), QMargins(4, 4, 4, 4));
    QCOMPARE(dialog.ui->pageLocal->layout()->sizeConstraint(), QLayout::SetMinAndMaxSize);
    QCOMPARE(dialog.ui->pageDynamic->layout()->sizeConstraint(), QLayout::SetMinAndMaxSize);
    QCOMPARE(dialog.ui->stackedWidget->indexOf(dialog.ui->pageLocal), 0);
    QCOMPARE(dialog.ui->stackedWidget->indexOf(dialog.ui->pageDynamic), 1);
    QCOMPARE(dialog.ui->lblWarning->minimumSize(), QSize(24, 23));
    QCOMPARE(dialog.ui->lblWarning->maximumSize(), QSize(25, 23));
    QVERIFY(!dialog.ui->lblWarning->pixmap(Qt::ReturnByValue).isNull());
}

void TestWidgetSetNode::startsOnTheManualPage()
{
    WidgetSetNode dialog;
    QCOMPARE(dialog.ui->stackedWidget->currentWidget(), dialog.ui->pageLocal);
    QVERIFY(dialog.ui->lblWarning->isHidden());
    QVERIFY(dialog.ui->m_ResetBtn->isHidden());
}

void TestWidgetSetNode::manualPageNeverShowsReset()
{
    WidgetSetNode dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    dialog.ui->rbLocalValue->setChecked(true);
    QVERIFY(!dialog.ui->m_ResetBtn->isVisible());
    dialog.ui->rbDynamicValue->setChecked(true);
    QVERIFY(dialog.ui->m_ResetBtn->isVisible());
    dialog.ui->rbLocalValue->setChecked(true);
    QVERIFY(!dialog.ui->m_ResetBtn->isVisible());
    QCOMPARE(dialog.ui->stackedWidget->currentWidget(), dialog.ui->pageLocal);
}

void TestWidgetSetNode::linkedPageWaitsForALeaf()
{
    WidgetSetNode dialog;
    PickerTree picker(dialog);
    dialog.ui->rbDynamicValue->setChecked(true);
    QCOMPARE(dialog.ui->stackedWidget->currentWidget(), dialog.ui->pageDynamic);
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
    QVERIFY(!dialog.ui->m_ResetBtn->isEnabled());
    picker.tree.setCurrentItem(&picker.group);
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
    picker.tree.setCurrentItem(&picker.leaf);
    QVERIFY(dialog.ui->m_OKBtn->isEnabled());
    // Reset follows only when the page is entered again.
    QVERIFY(!dialog.ui->m_ResetBtn->isEnabled());
    dialog.ui->rbLocalValue->setChecked(true);
    dialog.ui->rbDynamicValue->setChecked(true);
    QVERIFY(dialog.ui->m_ResetBtn->isEnabled());
    QVERIFY(dialog.ui->m_OKBtn->isEnabled());
}

void TestWidgetSetNode::linkedFlagIsSticky()
{
    WidgetSetNode dialog;
    PickerTree picker(dialog);
    dialog.ui->rbDynamicValue->setChecked(true);
    picker.tree.setCurrentItem(&picker.leaf);
    picker.tree.setCurrentItem(&picker.group);
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
    dialog.ui->rbLocalValue->setChecked(true);
    dialog.ui->rbDynamicValue->setChecked(true);
    QVERIFY(dialog.ui->m_ResetBtn->isEnabled());
    // The picker's report overrides it.
    dialog.onNodeLinked(false);
    dialog.ui->rbLocalValue->setChecked(true);
    dialog.ui->rbDynamicValue->setChecked(true);
    QVERIFY(!dialog.ui->m_ResetBtn->isEnabled());
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
}

void TestWidgetSetNode::backToManualEnablesOk()
{
    WidgetSetNode dialog;
    dialog.ui->rbLocalValue->setChecked(true);
    dialog.onValidationResult(false, QStringLiteral("Value outside of range"), true);
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
    QVERIFY(!dialog.ui->lblWarning->isHidden());
    dialog.ui->rbDynamicValue->setChecked(true);
    dialog.ui->rbLocalValue->setChecked(true);
    QVERIFY(dialog.ui->m_OKBtn->isEnabled());
    QVERIFY(!dialog.ui->lblWarning->isHidden());
    QCOMPARE(dialog.ui->lblWarning->toolTip(), QStringLiteral("Value outside of range"));
}

void TestWidgetSetNode::reportWithoutButtonChangeKeepsOk()
{
    WidgetSetNode dialog;
    dialog.onValidationResult(false, QStringLiteral("Min value is greater than Max."), false);
    QVERIFY(dialog.ui->m_OKBtn->isEnabled());
    QVERIFY(!dialog.ui->lblWarning->isHidden());
    QCOMPARE(dialog.ui->lblWarning->toolTip(), QStringLiteral("Min value is greater than Max."));
    dialog.onValidationResult(false, QString(), true);
    dialog.onValidationResult(true, QString(), false);
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
    QVERIFY(dialog.ui->lblWarning->isHidden());
    QCOMPARE(dialog.ui->lblWarning->toolTip(), QString());
}

void TestWidgetSetNode::validationShowsWarning_data()
{
    QTest::addColumn<bool>("valid");
    QTest::addColumn<bool>("changeOk");
    QTest::addColumn<bool>("okAfter");
    QTest::newRow("valid, decides") << true << true << true;
    QTest::newRow("invalid, decides") << false << true << false;
    QTest::newRow("valid, leaves OK") << true << false << false;
    QTest::newRow("invalid, leaves OK") << false << false << false;
}

void TestWidgetSetNode::validationShowsWarning()
{
    QFETCH(bool, valid);
    QFETCH(bool, changeOk);
    QFETCH(bool, okAfter);
    WidgetSetNode dialog;
    dialog.ui->m_OKBtn->setEnabled(false);
    dialog.onValidationResult(valid, QStringLiteral("why"), changeOk);
    QCOMPARE(dialog.ui->lblWarning->isHidden(), valid);
    QCOMPARE(dialog.ui->lblWarning->toolTip(), QStringLiteral("why"));
    QCOMPARE(dialog.ui->m_OKBtn->isEnabled(), okAfter);
}

void TestWidgetSetNode::buttonsEndTheDialog_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("resets");
    QTest::newRow("OK") << "m_OKBtn" << int(QDialog::Accepted) << 0;
    QTest::newRow("Cancel") << "m_CancelBtn" << int(QDialog::Rejected) << 0;
    QTest::newRow("Reset accepts") << "m_ResetBtn" << int(QDialog::Accepted) << 1;
}

void TestWidgetSetNode::buttonsEndTheDialog()
{
    QFETCH(QString, button);
    QFETCH(int, result);
    QFETCH(int, resets);
    WidgetSetNode dialog;
    dialog.ui->rbDynamicValue->setChecked(true);
    dialog.onNodeLinked(true);
    dialog.ui->rbLocalValue->setChecked(true);
    dialog.ui->rbDynamicValue->setChecked(true);
    QSignalSpy reset(&dialog, &WidgetSetNode::resetBtnClicked);
    auto* pressed = dialog.findChild<QAbstractButton*>(button);
    QVERIFY(pressed);
    int ended = -1;
    const TestSupport::ModalRun run = TestSupport::runModal(
        [&] { ended = dialog.exec(); }, [pressed](QDialog&) { pressed->click(); });
    QVERIFY(run.shown && !run.leftOpen);
    QCOMPARE(ended, result);
    QCOMPARE(reset.count(), resets);
}

void TestWidgetSetNode::doubleClickAcceptsOnlyALeaf()
{
    WidgetSetNode dialog;
    PickerTree picker(dialog);
    bool openAfterGroup = false;
    int ended = -1;
    const TestSupport::ModalRun run
        = TestSupport::runModal([&] { ended = dialog.exec(); },
                                [&](QDialog&) {
                                    picker.tree.setCurrentItem(&picker.group);
                                    dialog.treeItemDoubleClicked(&picker.tree);
                                    dialog.treeItemDoubleClicked(nullptr);
                                    openAfterGroup = dialog.isVisible();
                                    picker.tree.setCurrentItem(&picker.other);
                                    dialog.treeItemDoubleClicked(&picker.tree);
                                });
    QVERIFY(run.shown && !run.leftOpen);
    QVERIFY(openAfterGroup);
    QCOMPARE(ended, int(QDialog::Accepted));
}

void TestWidgetSetNode::okBtnStateNeedsATreeSender()
{
    WidgetSetNode dialog;
    dialog.ui->rbDynamicValue->setChecked(true);
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
    dialog.okBtnState();
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
    // A tree without a current item changes nothing either.
    QTreeWidget empty;
    connect(&empty, &QTreeWidget::itemSelectionChanged, &dialog, &WidgetSetNode::okBtnState);
    emit empty.itemSelectionChanged();
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
}

void TestWidgetSetNode::handResizeLastsUntilThePageChanges()
{
    WidgetSetNode dialog;
    auto* tall = new QWidget;
    tall->setMinimumSize(100, 300);
    dialog.ui->pageDynamic->layout()->addWidget(tall);
    // A fit lifts the maximum size to its own bound; until then it is Qt's default.
    QVERIFY(dialog.maximumSize() != QSize(1000000, 100000));
    // No page is checked yet, so only showing the dialog asks for a fit.
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QTRY_COMPARE(dialog.maximumSize(), QSize(1000000, 100000));
    const int localHeight = dialog.height();
    QCOMPARE(localHeight, dialog.minimumSizeHint().height());

    const QSize byHand(dialog.width() + 60, localHeight + 500);
    dialog.resize(byHand);
    QTRY_COMPARE(dialog.size(), byHand);
    // Nothing but a page change may undo it, however long the dialog stays as it is.
    QTest::qWait(100);
    QCOMPARE(dialog.size(), byHand);

    dialog.ui->rbDynamicValue->setChecked(true);
    QTRY_COMPARE(dialog.height(), dialog.minimumSizeHint().height());
    const int linkedHeight = dialog.height();
    QVERIFY(linkedHeight >= 300 && linkedHeight < byHand.height());
    QCOMPARE(dialog.width(), byHand.width());

    // The same again on the way back.
    const QSize again(byHand.width() + 40, linkedHeight + 200);
    dialog.resize(again);
    QTRY_COMPARE(dialog.size(), again);
    dialog.ui->rbLocalValue->setChecked(true);
    QTRY_COMPARE(dialog.height(), localHeight);
    QCOMPARE(dialog.width(), again.width());
}

void TestWidgetSetNode::centresThePageOnTheParentWindow()
{
    QWidget window;
    window.setGeometry(100, 80, 641, 481);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    auto* dialog = new WidgetSetNode(&window);
    dialog->ui->rbLocalValue->setChecked(true);
    // The page's size as the dialog appears; the fit that follows changes it.
    ShowWatcher watcher(dialog->ui->pageLocal);
    dialog->installEventFilter(&watcher);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    const QSize page = watcher.sizeAtShow;
    QVERIFY(page.isValid());
    const QPoint expected = window.frameGeometry().topLeft() + QPoint(320, 240)
        - QPoint((page.width() - 1) / 2, (page.height() - 1) / 2);
    QCOMPARE(dialog->pos(), expected);

    // Without a checked page nothing is moved.
    auto* unchecked = new WidgetSetNode(&window);
    unchecked->move(7, 9);
    unchecked->show();
    QVERIFY(QTest::qWaitForWindowExposed(unchecked));
    QCOMPARE(unchecked->pos(), QPoint(7, 9));
}

QTEST_MAIN(TestWidgetSetNode)
#include "tst_widgetsetnode.moc"
