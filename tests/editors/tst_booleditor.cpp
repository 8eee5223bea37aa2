#include "dialogs/widgetsetnode.h"
#include "editors/booleditor.h"
#include "property_model/booleditorfactory.h"
#include "property_model/boolpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "qtbrowseritem.h"
#include "sdk/ditem.h"
#include "ui_widgetsetnode.h"

#include "../navigator/tabletranslator.h"
#include "../property_model/managertestsupport.h"
#include "../propertybrowser/propertymetatype.h"
#include "editortestsupport.h"
#include "testsupport.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPointer>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <memory>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;
using PropertyBrowser::Editors::BaseEditor;
using PropertyBrowser::Editors::BoolEditor;
using PropertyBrowser::Editors::WidgetSetNode;
using PropertyBrowser::Managers::BoolPropertyManager;
using Command = VardeenDefs::PropertyEditor::Command;
using IoType = Script::DItem::IoType;
using ManagerTest::verifyOnlyEdit;
using namespace EditorTestSupport;

namespace {

const QString kPath = QStringLiteral("Job.Light.Strobe");

/// Lets the event loop run until every timer of @p ms or less that is running now has fired.
void letTimersFire(int ms)
{
    QObject context;
    bool fired = false;
    QTimer::singleShot(ms, &context, [&fired] { fired = true; });
    QTRY_VERIFY(fired);
}

/// Clicks @p box on its indicator, where a person clicks it; the box may be far wider.
void clickCheckBox(QCheckBox* box)
{
    QStyleOptionButton option;
    option.initFrom(box);
    const QRect indicator
        = box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box);
    QTest::mouseClick(box, Qt::LeftButton, {}, indicator.center());
}

/// Makes the open dialog hold something to send: another link target on the link page when
/// @p linkPage holds, else the other truth value on the value page.
void changeChoice(WidgetSetNode& dialog, bool linkPage)
{
    if (linkPage) {
        pickLinkTarget(dialog, QStringLiteral("Job.Trigger.Armed"));
    } else {
        QTest::mouseClick(dialog.ui->rbLocalValue, Qt::LeftButton);
        QCheckBox* box = localPanel<QCheckBox>(dialog);
        QVERIFY(box);
        clickCheckBox(box);
    }
}

/// One bool row with its node and its editor, inside a host that catches the keys the editor
/// passes on.
struct Fixture : RowFixture<BoolPropertyManager, BoolEditor>
{
    explicit Fixture(IoType ioType)
        : RowFixture(kPath, QStringLiteral("IDataBasicBool"), ioType, new BoolPropertyManager)
    {
        node.setProperty("IDataBasicBool.DynamicValue", false);
        node.setProperty("IDataBasicBool.LocalValue", false);
        node.setProperty("IDataBasicBool.ActionReply", QStringLiteral("Off"));
        node.setProperty("iIsEditable", true);
        bind(QStringLiteral("Strobe"), {"Job.Camera.Ready", "Job.Trigger.Armed"});
    }

    QCheckBox* checkBox() const { return directChild<QCheckBox>(editor); }
};

} // namespace

class TestBoolEditor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void constructionSetsUpRow();
    void readData_data();
    void readData();
    void outputClearsTextOnly();
    void outputAtConstruction();
    void mouseToggleCommitsAfterDelay();
    void spaceTogglesAndPassesOn();
    void otherKeysOnlyPassOn();
    void commitTakesStateNotArgument();
    void twoTogglesWithinDelaySendTwoCommits();
    void deletedEditorSendsNothing();
    void linkClickReachesManager();

    void dialogShowsNode_data();
    void dialogShowsNode();
    void dialogCommitRule_data();
    void dialogCommitRule();
    void dialogKeepsHeldValue();
    void dialogLinksPickedNode();
    void dialogResetClearsLink();
    void dialogCancelSendsNothing_data();
    void dialogCancelSendsNothing();
    void editorDroppedWhileDialogRuns_data();
    void editorDroppedWhileDialogRuns();
    void noDialogForOutput_data();
    void noDialogForOutput();
    void showLinkWidgetPreselects();

    void factory_data();
    void factory();
    void factoryRefusesOtherProperties();
    void toggledThroughBrowser();

private:
    std::unique_ptr<TableTranslator> m_poTranslator;
};

void TestBoolEditor::initTestCase()
{
    initEditorTestCase();
    Script::DItem::vRegisterMetaTypes();
    qRegisterMetaType<Command>();
    qRegisterMetaType<QtProperty*>();
}

void TestBoolEditor::cleanup()
{
    if (m_poTranslator) {
        QCoreApplication::removeTranslator(m_poTranslator.get());
        m_poTranslator.reset();
    }
    verifyNothingLeftOpen();
}

// --- the row ------------------------------------------------------------------------------

void TestBoolEditor::constructionSetsUpRow()
{
    Fixture f(Script::DItem::IoInput);
    BoolEditor* editor = f.makeEditor();
    QCOMPARE(editor->objectName(), QStringLiteral("BoolPropertyEditor"));
    QCOMPARE(EditorPeek::typeOf(*editor), BaseEditor::TypeBool);
    QCOMPARE(int(EditorPeek::typeOf(*editor)), 1);
    QCheckBox* box = f.checkBox();
    QVERIFY(box);
    QCOMPARE(box->focusPolicy(), Qt::NoFocus);
    QVERIFY(!editor->focusProxy());

    auto* layout = qobject_cast<QHBoxLayout*>(editor->layout());
    QVERIFY(layout);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins(4, 0, 0, 0));
    QCOMPARE(layout->count(), 3);
    QVERIFY(qobject_cast<QLabel*>(layout->itemAt(0)->widget()));
    QCOMPARE(layout->itemAt(1)->widget(), static_cast<QWidget*>(box));
    QCOMPARE(layout->itemAt(2)->widget(), static_cast<QWidget*>(f.browseButton()));
    letTimersFire(30);
    QCOMPARE(f.edits->count(), 0);
}

void TestBoolEditor::readData_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("dynamicValue");
    QTest::newRow("setting, true") << 0 << true;
    QTest::newRow("setting, false") << 0 << false;
    QTest::newRow("input, true") << 1 << true;
    QTest::newRow("input, false") << 1 << false;
}

void TestBoolEditor::readData()
{
    QFETCH(int, ioType);
    QFETCH(bool, dynamicValue);
    m_poTranslator = std::make_unique<TableTranslator>();
    m_poTranslator->add(QStringLiteral("IData"), QStringLiteral("Flash"), QStringLiteral("Blitz"));
    QCoreApplication::installTranslator(m_poTranslator.get());

    Fixture f(static_cast<IoType>(ioType));
    f.node.setProperty("IDataBasicBool.DynamicValue", dynamicValue);
    f.node.setProperty("IDataBasicBool.LocalValue", !dynamicValue);
    f.node.setProperty("IDataBasicBool.ActionReply", QStringLiteral("Flash"));
    QSignalSpy repaints(f.manager.get(), &QtAbstractPropertyManager::propertyChanged);
    f.makeEditor();
    QCheckBox* box = f.checkBox();
    // The row shows the effective value, with the node's reply, translated.
    QCOMPARE(box->isChecked(), dynamicValue);
    QCOMPARE(box->text(), QStringLiteral("Blitz"));
    QCOMPARE(box->toolTip(), QStringLiteral("Blitz"));
    QVERIFY(box->isEnabled());
    QVERIFY(!f.browseButton()->isHidden());
    QVERIFY(f.browseButton()->isEnabled());
    // The row is told to repaint.
    QCOMPARE(repaints.count(), 1);
    QCOMPARE(repaints.at(0).at(0).value<QtProperty*>(), static_cast<QtProperty*>(f.row));
    // Filling the box sends nothing, not even later.
    letTimersFire(30);
    QCOMPARE(f.edits->count(), 0);
}

void TestBoolEditor::outputClearsTextOnly()
{
    Fixture f(Script::DItem::IoNone);
    f.node.setProperty("IDataBasicBool.DynamicValue", true);
    f.makeEditor();
    QCheckBox* box = f.checkBox();
    QVERIFY(box->isChecked());
    QCOMPARE(box->text(), QStringLiteral("Off"));
    QSignalSpy repaints(f.manager.get(), &QtAbstractPropertyManager::propertyChanged);

    f.node.setIoType(Script::DItem::IoOutput);
    f.node.setProperty("IDataBasicBool.DynamicValue", false);
    f.node.setProperty("IDataBasicBool.ActionReply", QStringLiteral("Changed"));
    f.editor->refreshEditorData();
    QCOMPARE(box->text(), QString());
    QVERIFY(box->isChecked());
    QCOMPARE(box->toolTip(), QStringLiteral("Off"));
    QCOMPARE(repaints.count(), 0);
    letTimersFire(30);
    QCOMPARE(f.edits->count(), 0);
}

void TestBoolEditor::outputAtConstruction()
{
    Fixture f(Script::DItem::IoOutput);
    f.node.setProperty("IDataBasicBool.DynamicValue", true);
    f.makeEditor();
    QVERIFY(!f.checkBox()->isChecked());
    QCOMPARE(f.checkBox()->text(), QString());
    QCOMPARE(f.checkBox()->toolTip(), QString());
}

void TestBoolEditor::mouseToggleCommitsAfterDelay()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QCheckBox* box = f.checkBox();
    clickCheckBox(box);
    QVERIFY(box->isChecked());
    // The commit waits for its timer.
    QCOMPARE(f.edits->count(), 0);
    QTRY_COMPARE(f.edits->count(), 1);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, true);

    clickCheckBox(box);
    QTRY_COMPARE(f.edits->count(), 2);
    ManagerTest::verifyEdit(*f.edits, 1, kPath, Command::SetValue, false);
}

void TestBoolEditor::spaceTogglesAndPassesOn()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QTest::keyClick(f.editor, Qt::Key_Space);
    QVERIFY(f.checkBox()->isChecked());
    // The key goes on to the parent as ignored.
    QCOMPARE(f.host->keys, 1);
    QTRY_COMPARE(f.edits->count(), 1);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, true);
}

void TestBoolEditor::otherKeysOnlyPassOn()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QTest::keyClick(f.editor, Qt::Key_A);
    QTest::keyClick(f.editor, Qt::Key_Return);
    QVERIFY(!f.checkBox()->isChecked());
    QCOMPARE(f.host->keys, 2);
    letTimersFire(30);
    QCOMPARE(f.edits->count(), 0);
}

void TestBoolEditor::commitTakesStateNotArgument()
{
    Fixture f(Script::DItem::IoInput);
    f.node.setProperty("IDataBasicBool.DynamicValue", true);
    f.makeEditor();
    QVERIFY(f.checkBox()->isChecked());
    f.editor->delayedCommit(false);
    QTRY_COMPARE(f.edits->count(), 1);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, true);
}

void TestBoolEditor::twoTogglesWithinDelaySendTwoCommits()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QCheckBox* box = f.checkBox();
    // Both clicks land before the event loop runs again, so well within 10 ms of each other.
    clickCheckBox(box);
    clickCheckBox(box);
    QVERIFY(!box->isChecked());
    QTRY_COMPARE(f.edits->count(), 2);
    // Each timer sends what is held when it fires: the last state, twice.
    ManagerTest::verifyEdit(*f.edits, 0, kPath, Command::SetValue, false);
    ManagerTest::verifyEdit(*f.edits, 1, kPath, Command::SetValue, false);
    letTimersFire(30);
    QCOMPARE(f.edits->count(), 2);
}

void TestBoolEditor::deletedEditorSendsNothing()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    clickCheckBox(f.checkBox());
    delete f.editor;
    letTimersFire(30);
    QCOMPARE(f.edits->count(), 0);
}

void TestBoolEditor::linkClickReachesManager()
{
    Fixture f(Script::DItem::IoInput);
    f.link(QStringLiteral("Job.Camera.Ready"));
    f.makeEditor();
    QCOMPARE(f.editor->mode(), BaseEditor::ModeLinked);
    QSignalSpy clicks(f.manager.get(), &BoolPropertyManager::linkClicked);
    auto* label = directChild<QLabel>(f.editor);
    QVERIFY(label);
    emit label->linkActivated(QStringLiteral("Job.Camera.Ready"));
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(clicks.at(0).at(0).toString(), QStringLiteral("Job.Camera.Ready"));
}

// --- the value dialog ---------------------------------------------------------------------

void TestBoolEditor::dialogShowsNode_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("localValue");
    QTest::newRow("setting, true") << 0 << true;
    QTest::newRow("setting, false") << 0 << false;
    QTest::newRow("input, true") << 1 << true;
}

void TestBoolEditor::dialogShowsNode()
{
    QFETCH(int, ioType);
    QFETCH(bool, localValue);
    Fixture f(static_cast<IoType>(ioType));
    // The page shows the local value, not the effective one.
    f.node.setProperty("IDataBasicBool.LocalValue", localValue);
    f.node.setProperty("IDataBasicBool.DynamicValue", !localValue);
    f.showEditor();
    QSignalSpy refreshes(f.manager.get(), &BoolPropertyManager::refreshData);
    const bool input = ioType == 1;
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Strobe"));
        QCOMPARE(dialog.parentWidget(), static_cast<QWidget*>(f.editor));
        QCheckBox* box = localPanel<QCheckBox>(dialog);
        QVERIFY(box);
        QCOMPARE(box->text(), QStringLiteral("Output Value"));
        QCOMPARE(box->isChecked(), localValue);
        QCOMPARE(dialog.ui->grpNodeValueType->isVisible(), input);
        QCOMPARE(dialog.ui->rbDynamicValue->isChecked(), input);
        QCOMPARE(dialog.ui->rbLocalValue->isChecked(), !input);
        // Only an input asks the host to bring it up to date.
        QCOMPARE(refreshes.count(), input ? 1 : 0);
        if (input)
            QCOMPARE(refreshes.at(0).at(0).toString(), kPath);
        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    letTimersFire(30);
    QCOMPARE(f.edits->count(), 0);
}

void TestBoolEditor::dialogCommitRule_data()
{
    QTest::addColumn<bool>("linked");
    QTest::addColumn<bool>("localValue");
    QTest::addColumn<bool>("chosen");
    QTest::addColumn<bool>("sends");
    QTest::newRow("unlinked, same value") << false << true << true << false;
    QTest::newRow("unlinked, same false") << false << false << false << false;
    QTest::newRow("unlinked, other value") << false << false << true << true;
    // The same value on a linked node replaces the link.
    QTest::newRow("linked, same value") << true << true << true << true;
    QTest::newRow("linked, other value") << true << true << false << true;
}

void TestBoolEditor::dialogCommitRule()
{
    QFETCH(bool, linked);
    QFETCH(bool, localValue);
    QFETCH(bool, chosen);
    QFETCH(bool, sends);

    Fixture f(Script::DItem::IoInput);
    if (linked)
        f.link(QStringLiteral("Job.Camera.Ready"));
    f.node.setProperty("IDataBasicBool.LocalValue", localValue);
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QTest::mouseClick(dialog.ui->rbLocalValue, Qt::LeftButton);
        QVERIFY(dialog.ui->rbLocalValue->isChecked());
        QCheckBox* box = localPanel<QCheckBox>(dialog);
        QVERIFY(box);
        if (box->isChecked() != chosen)
            clickCheckBox(box);
        QCOMPARE(box->isChecked(), chosen);
        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    if (sends)
        verifyOnlyEdit(*f.edits, kPath, Command::SetValue, chosen);
    else
        QCOMPARE(f.edits->count(), 0);
    // The dialog's write is direct: no delayed commit follows it.
    letTimersFire(30);
    QCOMPARE(f.edits->count(), sends ? 1 : 0);
}

void TestBoolEditor::dialogKeepsHeldValue()
{
    Fixture f(Script::DItem::IoNone);
    f.showEditor();
    // Accepting a new value does not make it the held one: the same choice again still differs
    // from it, until the node itself says otherwise.
    for (int round = 1; round <= 2; ++round) {
        const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
            QCheckBox* box = localPanel<QCheckBox>(dialog);
            QVERIFY(box);
            QVERIFY(!box->isChecked());
            clickCheckBox(box);
            QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
        });
        QVERIFY(run.shown);
        QVERIFY(!run.leftOpen);
        QCOMPARE(f.edits->count(), round);
        ManagerTest::verifyEdit(*f.edits, round - 1, kPath, Command::SetValue, true);
    }
}

void TestBoolEditor::dialogLinksPickedNode()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QVERIFY(dialog.ui->rbDynamicValue->isChecked());
        QVERIFY(dialog.ui->rbDynamicValue->isEnabled());
        QTreeWidget* tree = linkTree(dialog);
        QVERIFY(tree);
        QVERIFY(tree->isEnabled());
        pickLinkTarget(dialog, QStringLiteral("Job.Trigger.Armed"));
        QVERIFY(dialog.ui->m_OKBtn->isEnabled());
        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetLink, QStringLiteral("Job.Trigger.Armed"));
}

void TestBoolEditor::dialogResetClearsLink()
{
    Fixture f(Script::DItem::IoInput);
    f.link(QStringLiteral("Job.Camera.Ready"));
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QTreeWidget* tree = linkTree(dialog);
        QVERIFY(tree);
        QCOMPARE(tree->selectedItems().size(), 1);
        QVERIFY(dialog.ui->m_ResetBtn->isVisible());
        QVERIFY(dialog.ui->m_ResetBtn->isEnabled());
        QTest::mouseClick(dialog.ui->m_ResetBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetLink, QStringLiteral(""));
}

void TestBoolEditor::dialogCancelSendsNothing_data()
{
    addChoiceRows("value changed");
}

void TestBoolEditor::dialogCancelSendsNothing()
{
    QFETCH(bool, linkPage);
    verifyCancelSendsNothing<Fixture>(
        QStringLiteral("Job.Camera.Ready"),
        [&](WidgetSetNode& dialog) { changeChoice(dialog, linkPage); }, [] { letTimersFire(30); });
}

void TestBoolEditor::editorDroppedWhileDialogRuns_data()
{
    addChoiceRows("value changed");
}

void TestBoolEditor::editorDroppedWhileDialogRuns()
{
    QFETCH(bool, linkPage);
    verifyEditorDroppedWhileDialogRuns<Fixture>(
        QStringLiteral("Job.Camera.Ready"),
        [&](WidgetSetNode& dialog) { changeChoice(dialog, linkPage); }, [] { letTimersFire(30); });
}

void TestBoolEditor::noDialogForOutput_data()
{
    QTest::addColumn<int>("ioType");
    QTest::newRow("output") << 2;
    QTest::newRow("unknown kind") << 3;
}

void TestBoolEditor::noDialogForOutput()
{
    QFETCH(int, ioType);
    Fixture f(static_cast<IoType>(ioType));
    f.showEditor();
    QSignalSpy refreshes(f.manager.get(), &BoolPropertyManager::refreshData);
    // The click reaches the button: the editor itself opens no dialog.
    QVERIFY(f.browseButton()->isVisible());
    QVERIFY(f.browseButton()->isEnabled());
    const DialogRun run = f.clickBrowse(
        [](WidgetSetNode& dialog) { QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton); });
    QVERIFY(!run.shown);
    QCOMPARE(refreshes.count(), 0);
    QCOMPARE(f.edits->count(), 0);
}

void TestBoolEditor::showLinkWidgetPreselects()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    const DialogRun run
        = runDialog([&] { f.editor->showLinkWidget(QStringLiteral("Job.Trigger.Armed")); },
                    [&](WidgetSetNode& dialog) {
                        QTreeWidget* tree = linkTree(dialog);
                        QVERIFY(tree);
                        QCOMPARE(tree->selectedItems().size(), 1);
                        QCOMPARE(tree->selectedItems().first()->data(0, Qt::UserRole).toString(),
                                 QStringLiteral("Job.Trigger.Armed"));
                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetLink, QStringLiteral("Job.Trigger.Armed"));
}

// --- the factory --------------------------------------------------------------------------

void TestBoolEditor::factory_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("editor");
    QTest::newRow("editable") << 0 << true << true;
    QTest::newRow("not editable") << 0 << false << false;
    QTest::newRow("editing blocked only") << 0x1000 << true << true;
    QTest::newRow("locked only") << 0x1 << true << true;
    QTest::newRow("no editing in this mode") << 0x1001 << true << false;
}

void TestBoolEditor::factory()
{
    QFETCH(int, mode);
    QFETCH(bool, editable);
    QFETCH(bool, editor);

    std::unique_ptr<WTreePropertyBrowser> browser(new WTreePropertyBrowser(nullptr));
    browser->onProjectModeChanged(mode);
    Fixture f(Script::DItem::IoInput);
    f.node.setProperty("iIsEditable", editable);
    // Editable limits are no reason to edit a truth value.
    f.node.setProperty("IDataNumeric.LimitsEditable", true);
    PropertyBrowser::EditorFactories::BoolEditorFactory factory;
    factory.addPropertyManager(f.manager.get());
    QWidget parent;
    std::unique_ptr<QWidget> made(factory.createEditor(f.row, &parent));
    QCOMPARE(made != nullptr, editor);
    if (made) {
        auto* boolEditor = qobject_cast<BoolEditor*>(made.get());
        QVERIFY(boolEditor);
        QCOMPARE(made->parentWidget(), &parent);
        QCOMPARE(EditorPeek::typeOf(*boolEditor), BaseEditor::TypeBool);
    } else {
        QVERIFY(parent.findChildren<QWidget*>().isEmpty());
    }
}

void TestBoolEditor::factoryRefusesOtherProperties()
{
    verifyFactoryRefusesOtherProperties<PropertyBrowser::EditorFactories::BoolEditorFactory,
                                        QtBoolPropertyManager, Fixture>();
}

void TestBoolEditor::toggledThroughBrowser()
{
    clearBrowserSettings();
    Script::DItem node(kPath, QStringLiteral("IDataBasicBool"), Script::DItem::IoNone);
    showInTree(node, QStringLiteral("Strobe"));
    std::unique_ptr<WTreePropertyBrowser> browser(newBrowser());
    WidgetProperty* row = browser->createPropertyItem(node, true);
    QVERIFY(row);
    QSignalSpy edits(browser.get(), &WTreePropertyBrowser::propertyEdited);
    browser->show();
    QVERIFY(QTest::qWaitForWindowExposed(browser.get()));

    auto* editor = openEditorInTree<BoolEditor>(*browser, row);
    QVERIFY(editor);
    QTRY_COMPARE(WTreePropertyBrowser::propertyEditWidget, static_cast<BaseEditor*>(editor));
    auto* box = editor->findChild<QCheckBox*>();
    QVERIFY(box);
    clickCheckBox(box);
    QTRY_COMPARE(edits.count(), 1);
    ManagerTest::verifyEdit(edits, 0, kPath, Command::SetValue, true);
    browser.reset();
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
}

QTEST_MAIN(TestBoolEditor)
#include "tst_booleditor.moc"
