#include "dialogs/widgetsetnode.h"
#include "editors/enumeditor.h"
#include "property_model/enumeditorfactory.h"
#include "property_model/enumpropertymanager.h"
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

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>

#include <memory>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;
using PropertyBrowser::Editors::BaseEditor;
using PropertyBrowser::Editors::EnumEditor;
using PropertyBrowser::Editors::WidgetSetNode;
using PropertyBrowser::Managers::EnumPropertyManager;
using Command = VardeenDefs::PropertyEditor::Command;
using IoType = Script::DItem::IoType;
using ManagerTest::verifyOnlyEdit;
using namespace EditorTestSupport;

namespace {

const QString kPath = QStringLiteral("Job.Filter.Mode");
const QStringList kChoices
    = {QStringLiteral("Fast"), QStringLiteral("Slow"), QStringLiteral("Exact")};
const QStringList kShown
    = {QStringLiteral("Schnell"), QStringLiteral("Langsam"), QStringLiteral("Genau")};

/// An editor whose dialog and commit are replaced, as a subclass with a dialog of its own does.
class ReplacingEditor : public EnumEditor
{
public:
    using EnumEditor::EnumEditor;

    void vButtonClicked() override
    {
        ++opened;
        linkPaths << m_linkPath;
    }
    void commitData(int index) override { commits << index; }

    int opened = 0;
    QStringList linkPaths;
    QList<int> commits;
};

/// Opens the editor's list with Space, as a person does.
void openListWithSpace(EnumEditor* editor)
{
    // The offscreen platform says so when a popup asks for the keyboard; that is no fault here.
    TestSupport::expectWarning(
        QRegularExpression(QStringLiteral("^This plugin does not support grabbing the keyboard")));
    QTest::keyClick(editor, Qt::Key_Space);
}

/// Makes the open dialog hold something to send: another link target on the link page when
/// @p linkPage holds, else another choice on the value page.
void changeChoice(WidgetSetNode& dialog, bool linkPage)
{
    if (linkPage) {
        pickLinkTarget(dialog, QStringLiteral("Job.Preset.Mode"));
    } else {
        QTest::mouseClick(dialog.ui->rbLocalValue, Qt::LeftButton);
        QComboBox* box = localPanel<QComboBox>(dialog);
        QVERIFY(box);
        QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(box->currentIndex(), 2);
    }
}

QStringList texts(const QComboBox& box)
{
    QStringList result;
    for (int i = 0; i < box.count(); ++i)
        result << box.itemText(i);
    return result;
}

QStringList names(const QComboBox& box)
{
    QStringList result;
    for (int i = 0; i < box.count(); ++i) {
        const QVariant data = box.itemData(i, Qt::UserRole);
        result << (data.userType() == QMetaType::QString ? data.toString() : QStringLiteral("?"));
    }
    return result;
}

/// One enum row with its node and its editor, inside a host that catches the keys the editor
/// passes on.
struct Fixture : RowFixture<EnumPropertyManager, EnumEditor>
{
    explicit Fixture(IoType ioType)
        : RowFixture(kPath, QStringLiteral("IDataBasicEnum"), ioType, new EnumPropertyManager)
    {
        node.setProperty("IDataBasicEnum.EnumList", kChoices);
        node.setProperty("IDataBasicEnum.DynamicStringnifiedValue", QStringLiteral("Slow"));
        node.setProperty("IDataBasicEnum.LocalStringnifiedValue", QStringLiteral("Slow"));
        node.setProperty("iIsEditable", true);
        bind(QStringLiteral("Mode"), {"Job.Camera.Mode", "Job.Preset.Mode"});
    }

    QComboBox* comboBox() const { return directChild<QComboBox>(editor); }
};

} // namespace

class TestEnumEditor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void constructionSetsUpRow();
    void readDataFillsChoices();
    void readDataFindsValueExactly_data();
    void readDataFindsValueExactly();
    void refreshRefillsWithoutSending();
    void outputKeepsEntries();
    void keyboardChoicesEachCommit();
    void popupChoiceByMouse();
    void popupChoiceByKeyboard();
    void sameEntryAgainSendsNothing_data();
    void sameEntryAgainSendsNothing();
    void otherKeysOnlyPassOn();
    void spaceOpensListAndPassesOn();
    void subclassReplacesDialogAndCommit();
    void linkClickReachesManager();

    void dialogShowsNode_data();
    void dialogShowsNode();
    void dialogCommitRule_data();
    void dialogCommitRule();
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
    void chosenThroughBrowser();

private:
    std::unique_ptr<TableTranslator> m_poTranslator;
};

void TestEnumEditor::initTestCase()
{
    initEditorTestCase();
    Script::DItem::vRegisterMetaTypes();
    qRegisterMetaType<Command>();
    qRegisterMetaType<QtProperty*>();
}

void TestEnumEditor::init()
{
    m_poTranslator = std::make_unique<TableTranslator>();
    for (int i = 0; i < kChoices.size(); ++i)
        m_poTranslator->add(QStringLiteral("IData"), kChoices.at(i), kShown.at(i));
    QCoreApplication::installTranslator(m_poTranslator.get());
}

void TestEnumEditor::cleanup()
{
    QCoreApplication::removeTranslator(m_poTranslator.get());
    m_poTranslator.reset();
    verifyNothingLeftOpen();
}

// --- the row ------------------------------------------------------------------------------

void TestEnumEditor::constructionSetsUpRow()
{
    Fixture f(Script::DItem::IoInput);
    EnumEditor* editor = f.makeEditor();
    QCOMPARE(editor->objectName(), QStringLiteral("EnumPropertyEditor"));
    QCOMPARE(EditorPeek::typeOf(*editor), BaseEditor::TypeEnum);
    QCOMPARE(int(EditorPeek::typeOf(*editor)), 3);
    QComboBox* box = f.comboBox();
    QVERIFY(box);
    QVERIFY(!box->hasFrame());
    QCOMPARE(box->focusPolicy(), Qt::NoFocus);
    QCOMPARE(box->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(box->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(box->view()->textElideMode(), Qt::ElideRight);

    auto* layout = qobject_cast<QHBoxLayout*>(editor->layout());
    QVERIFY(layout);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(layout->count(), 3);
    QVERIFY(qobject_cast<QLabel*>(layout->itemAt(0)->widget()));
    QCOMPARE(layout->itemAt(1)->widget(), static_cast<QWidget*>(box));
    QCOMPARE(layout->itemAt(2)->widget(), static_cast<QWidget*>(f.browseButton()));
}

void TestEnumEditor::readDataFillsChoices()
{
    Fixture f(Script::DItem::IoNone);
    QSignalSpy nameChanges(f.manager.get(), &QtEnumPropertyManager::enumNamesChanged);
    f.makeEditor();
    QComboBox* box = f.comboBox();
    QCOMPARE(f.manager->enumNames(f.row), kChoices);
    QCOMPARE(nameChanges.count(), 1);
    QCOMPARE(texts(*box), kShown);
    QCOMPARE(names(*box), kChoices);
    for (int i = 0; i < box->count(); ++i)
        QVERIFY(box->itemIcon(i).isNull());
    QCOMPARE(box->currentIndex(), 1);
    QCOMPARE(box->toolTip(), QStringLiteral("Langsam"));
    // Filling the box sends nothing.
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::readDataFindsValueExactly_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("linkedPath");
    QTest::addColumn<int>("index");
    QTest::newRow("first") << "Fast" << QString() << 0;
    QTest::newRow("last") << "Exact" << QString() << 2;
    QTest::newRow("case differs") << "slow" << QString() << -1;
    QTest::newRow("prefix only") << "Slo" << QString() << -1;
    QTest::newRow("translated name") << "Langsam" << QString() << -1;
    QTest::newRow("empty") << "" << QString() << -1;
    // A linked node's value is the last segment of its link path.
    QTest::newRow("linked") << "Slow"
                            << "Job.Camera.Fast" << 0;
}

void TestEnumEditor::readDataFindsValueExactly()
{
    QFETCH(QString, value);
    QFETCH(QString, linkedPath);
    QFETCH(int, index);
    Fixture f(Script::DItem::IoInput);
    f.node.setProperty("IDataBasicEnum.DynamicStringnifiedValue", value);
    if (!linkedPath.isEmpty())
        f.link(linkedPath);
    f.makeEditor();
    QCOMPARE(f.comboBox()->count(), 3);
    QCOMPARE(f.comboBox()->currentIndex(), index);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::refreshRefillsWithoutSending()
{
    Fixture f(Script::DItem::IoInput);
    f.makeEditor();
    f.node.setProperty("IDataBasicEnum.EnumList", QStringList({"Slow", "Exact"}));
    f.node.setProperty("IDataBasicEnum.DynamicStringnifiedValue", QStringLiteral("Exact"));
    f.editor->refreshEditorData();
    QCOMPARE(texts(*f.comboBox()), QStringList({"Langsam", "Genau"}));
    QCOMPARE(f.comboBox()->currentIndex(), 1);
    QCOMPARE(f.comboBox()->toolTip(), QStringLiteral("Genau"));
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::outputKeepsEntries()
{
    Fixture f(Script::DItem::IoNone);
    f.makeEditor();
    f.node.setIoType(Script::DItem::IoOutput);
    f.node.setProperty("IDataBasicEnum.EnumList", QStringList({"Red", "Green"}));
    f.node.setProperty("IDataBasicEnum.DynamicStringnifiedValue", QStringLiteral("Green"));
    f.editor->refreshEditorData();
    // The manager gets the node's list whatever the kind; the box keeps its entries.
    QCOMPARE(f.manager->enumNames(f.row), QStringList({"Red", "Green"}));
    QCOMPARE(texts(*f.comboBox()), kShown);
    QCOMPARE(f.comboBox()->currentIndex(), 1);
    QCOMPARE(f.comboBox()->toolTip(), QStringLiteral("Langsam"));
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::keyboardChoicesEachCommit()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QComboBox* box = f.comboBox();
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(box->currentIndex(), 2);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, QStringLiteral("Exact"));
    // Back to the node's own value: sent as well, since nothing compares.
    QTest::keyClick(box, Qt::Key_Up);
    QCOMPARE(box->currentIndex(), 1);
    QCOMPARE(f.edits->count(), 2);
    ManagerTest::verifyEdit(*f.edits, 1, kPath, Command::SetValue, QStringLiteral("Slow"));
}

void TestEnumEditor::popupChoiceByMouse()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QComboBox* box = f.comboBox();
    openListWithSpace(f.editor);
    // The key opened the list and went on to the parent as ignored.
    QCOMPARE(f.host->keys, 1);
    QAbstractItemView* list = box->view();
    QTRY_VERIFY(list->isVisible());
    QCOMPARE(f.edits->count(), 0);
    const QRect first = list->visualRect(list->model()->index(0, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, first.center());
    QTRY_VERIFY(!list->isVisible());
    QCOMPARE(box->currentIndex(), 0);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, QStringLiteral("Fast"));
}

void TestEnumEditor::popupChoiceByKeyboard()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QComboBox* box = f.comboBox();
    openListWithSpace(f.editor);
    QAbstractItemView* list = box->view();
    QTRY_VERIFY(list->isVisible());
    QCOMPARE(list->currentIndex().row(), 1);
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(f.edits->count(), 0);
    QTest::keyClick(list, Qt::Key_Return);
    QTRY_VERIFY(!list->isVisible());
    QCOMPARE(box->currentIndex(), 2);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, QStringLiteral("Exact"));
}

void TestEnumEditor::sameEntryAgainSendsNothing_data()
{
    QTest::addColumn<bool>("mouse");
    QTest::newRow("clicked") << true;
    QTest::newRow("Return") << false;
}

void TestEnumEditor::sameEntryAgainSendsNothing()
{
    QFETCH(bool, mouse);
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QComboBox* box = f.comboBox();
    openListWithSpace(f.editor);
    QAbstractItemView* list = box->view();
    QTRY_VERIFY(list->isVisible());
    if (mouse) {
        const QRect current = list->visualRect(list->model()->index(1, 0));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, current.center());
    } else {
        QTest::keyClick(list, Qt::Key_Return);
    }
    QTRY_VERIFY(!list->isVisible());
    QCOMPARE(box->currentIndex(), 1);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::otherKeysOnlyPassOn()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QTest::keyClick(f.editor, Qt::Key_A);
    QTest::keyClick(f.editor, Qt::Key_Return);
    QCOMPARE(f.host->keys, 2);
    QVERIFY(!f.comboBox()->view()->isVisible());
    QCOMPARE(f.comboBox()->currentIndex(), 1);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::spaceOpensListAndPassesOn()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    QAbstractItemView* list = f.comboBox()->view();
    QVERIFY(!list->isVisible());
    openListWithSpace(f.editor);
    QTRY_VERIFY(list->isVisible());
    // Opening the list is all that Space does here; the parent still gets the key.
    QCOMPARE(f.host->keys, 1);
    QCOMPARE(f.comboBox()->currentIndex(), 1);
    QTest::keyClick(list, Qt::Key_Escape);
    QTRY_VERIFY(!list->isVisible());
    QCOMPARE(f.comboBox()->currentIndex(), 1);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::subclassReplacesDialogAndCommit()
{
    Fixture f(Script::DItem::IoInput);
    auto* editor = f.showEditor<ReplacingEditor>();
    const DialogRun run = f.clickBrowse(
        [](WidgetSetNode& dialog) { QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton); });
    QVERIFY(!run.shown);
    QCOMPARE(editor->opened, 1);
    editor->showLinkWidget(QStringLiteral("Job.Preset.Mode"));
    QCOMPARE(editor->opened, 2);
    QCOMPARE(editor->linkPaths, QStringList({QString(), QStringLiteral("Job.Preset.Mode")}));
    QTest::keyClick(f.comboBox(), Qt::Key_Down);
    QCOMPARE(editor->commits, QList<int>({2}));
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::linkClickReachesManager()
{
    Fixture f(Script::DItem::IoInput);
    f.link(QStringLiteral("Job.Camera.Mode"));
    f.makeEditor();
    QCOMPARE(f.editor->mode(), BaseEditor::ModeLinked);
    QSignalSpy clicks(f.manager.get(), &EnumPropertyManager::linkClicked);
    auto* label = directChild<QLabel>(f.editor);
    QVERIFY(label);
    emit label->linkActivated(QStringLiteral("Job.Camera.Mode"));
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(clicks.at(0).at(0).toString(), QStringLiteral("Job.Camera.Mode"));
}

// --- the value dialog ---------------------------------------------------------------------

void TestEnumEditor::dialogShowsNode_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<QString>("localValue");
    QTest::addColumn<int>("index");
    QTest::newRow("setting") << 0 << "Exact" << 2;
    QTest::newRow("input") << 1 << "Fast" << 0;
    QTest::newRow("case differs") << 0 << "exact" << -1;
}

void TestEnumEditor::dialogShowsNode()
{
    QFETCH(int, ioType);
    QFETCH(QString, localValue);
    QFETCH(int, index);
    Fixture f(static_cast<IoType>(ioType));
    // The page shows the local choice, not the effective one.
    f.node.setProperty("IDataBasicEnum.LocalStringnifiedValue", localValue);
    f.showEditor();
    QSignalSpy refreshes(f.manager.get(), &EnumPropertyManager::refreshData);
    const bool input = ioType == 1;
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Mode"));
        QCOMPARE(dialog.parentWidget(), static_cast<QWidget*>(f.editor));
        QComboBox* box = localPanel<QComboBox>(dialog);
        QVERIFY(box);
        QCOMPARE(texts(*box), kShown);
        QCOMPARE(names(*box), kChoices);
        QCOMPARE(box->currentIndex(), index);
        QCOMPARE(dialog.ui->grpNodeValueType->isVisible(), input);
        QCOMPARE(dialog.ui->rbDynamicValue->isChecked(), input);
        QCOMPARE(dialog.ui->rbLocalValue->isChecked(), !input);
        QCOMPARE(refreshes.count(), input ? 1 : 0);
        if (input)
            QCOMPARE(refreshes.at(0).at(0).toString(), kPath);
        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::dialogCommitRule_data()
{
    QTest::addColumn<bool>("linked");
    QTest::addColumn<int>("chosen");
    QTest::addColumn<bool>("sends");
    QTest::newRow("unlinked, same choice") << false << 1 << false;
    QTest::newRow("unlinked, other choice") << false << 2 << true;
    // The same choice on a linked node replaces the link.
    QTest::newRow("linked, same choice") << true << 1 << true;
    QTest::newRow("linked, other choice") << true << 0 << true;
}

void TestEnumEditor::dialogCommitRule()
{
    QFETCH(bool, linked);
    QFETCH(int, chosen);
    QFETCH(bool, sends);

    Fixture f(Script::DItem::IoInput);
    if (linked)
        f.link(QStringLiteral("Job.Camera.Mode"));
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QTest::mouseClick(dialog.ui->rbLocalValue, Qt::LeftButton);
        QVERIFY(dialog.ui->rbLocalValue->isChecked());
        QComboBox* box = localPanel<QComboBox>(dialog);
        QVERIFY(box);
        QCOMPARE(box->currentIndex(), 1);
        // One arrow key per step from the current choice to the chosen one.
        const Qt::Key key = chosen > 1 ? Qt::Key_Down : Qt::Key_Up;
        for (int presses = qAbs(chosen - 1); presses > 0; --presses)
            QTest::keyClick(box, key);
        QCOMPARE(box->currentIndex(), chosen);
        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    if (sends)
        verifyOnlyEdit(*f.edits, kPath, Command::SetValue, kChoices.at(chosen));
    else
        QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::dialogLinksPickedNode()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QVERIFY(dialog.ui->rbDynamicValue->isChecked());
        QVERIFY(dialog.ui->rbDynamicValue->isEnabled());
        QTreeWidget* tree = linkTree(dialog);
        QVERIFY(tree);
        QVERIFY(tree->isEnabled());
        pickLinkTarget(dialog, QStringLiteral("Job.Preset.Mode"));
        QVERIFY(dialog.ui->m_OKBtn->isEnabled());
        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetLink, QStringLiteral("Job.Preset.Mode"));
}

void TestEnumEditor::dialogResetClearsLink()
{
    Fixture f(Script::DItem::IoInput);
    f.link(QStringLiteral("Job.Camera.Mode"));
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

void TestEnumEditor::dialogCancelSendsNothing_data()
{
    addChoiceRows("choice changed");
}

void TestEnumEditor::dialogCancelSendsNothing()
{
    QFETCH(bool, linkPage);
    verifyCancelSendsNothing<Fixture>(
        QStringLiteral("Job.Camera.Mode"),
        [&](WidgetSetNode& dialog) { changeChoice(dialog, linkPage); });
}

void TestEnumEditor::editorDroppedWhileDialogRuns_data()
{
    addChoiceRows("choice changed");
}

void TestEnumEditor::editorDroppedWhileDialogRuns()
{
    QFETCH(bool, linkPage);
    verifyEditorDroppedWhileDialogRuns<Fixture>(
        QStringLiteral("Job.Camera.Mode"),
        [&](WidgetSetNode& dialog) { changeChoice(dialog, linkPage); });
}

void TestEnumEditor::noDialogForOutput_data()
{
    QTest::addColumn<int>("ioType");
    QTest::newRow("output") << 2;
    QTest::newRow("unknown kind") << 3;
}

void TestEnumEditor::noDialogForOutput()
{
    QFETCH(int, ioType);
    Fixture f(static_cast<IoType>(ioType));
    f.showEditor();
    QSignalSpy refreshes(f.manager.get(), &EnumPropertyManager::refreshData);
    // The click reaches the button: the editor itself opens no dialog.
    QVERIFY(f.browseButton()->isVisible());
    QVERIFY(f.browseButton()->isEnabled());
    const DialogRun run = f.clickBrowse(
        [](WidgetSetNode& dialog) { QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton); });
    QVERIFY(!run.shown);
    QCOMPARE(refreshes.count(), 0);
    QCOMPARE(f.edits->count(), 0);
}

void TestEnumEditor::showLinkWidgetPreselects()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    const DialogRun run
        = runDialog([&] { f.editor->showLinkWidget(QStringLiteral("Job.Preset.Mode")); },
                    [&](WidgetSetNode& dialog) {
                        QTreeWidget* tree = linkTree(dialog);
                        QVERIFY(tree);
                        QCOMPARE(tree->selectedItems().size(), 1);
                        QCOMPARE(tree->selectedItems().first()->data(0, Qt::UserRole).toString(),
                                 QStringLiteral("Job.Preset.Mode"));
                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetLink, QStringLiteral("Job.Preset.Mode"));
}

// --- the factory --------------------------------------------------------------------------

void TestEnumEditor::factory_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("editable");
    QTest::addColumn<QVariant>("matrixPath");
    QTest::addColumn<bool>("editor");
    const QVariant none;
    QTest::newRow("editable") << 0 << true << none << true;
    QTest::newRow("empty matrix path") << 0 << true << QVariant(QString()) << true;
    QTest::newRow("empty matrix text") << 0 << true << QVariant(QStringLiteral("")) << true;
    QTest::newRow("not editable") << 0 << false << none << false;
    QTest::newRow("editing blocked only") << 0x1000 << true << none << true;
    QTest::newRow("no editing in this mode") << 0x1001 << true << none << false;
    // A filter type's editor is another; until it exists the row stays read only.
    QTest::newRow("filter type") << 0 << true << QVariant(QStringLiteral("Job.Filter.Matrix"))
                                 << false;
}

void TestEnumEditor::factory()
{
    QFETCH(int, mode);
    QFETCH(bool, editable);
    QFETCH(QVariant, matrixPath);
    QFETCH(bool, editor);

    std::unique_ptr<WTreePropertyBrowser> browser(new WTreePropertyBrowser(nullptr));
    browser->onProjectModeChanged(mode);
    Fixture f(Script::DItem::IoInput);
    f.node.setProperty("iIsEditable", editable);
    f.node.setProperty("IDataModFilter.FilterMatrixPath", matrixPath);
    PropertyBrowser::EditorFactories::EnumEditorFactory factory;
    factory.addPropertyManager(f.manager.get());
    QWidget parent;
    std::unique_ptr<QWidget> made(factory.createEditor(f.row, &parent));
    QCOMPARE(made != nullptr, editor);
    if (made) {
        QCOMPARE(QByteArray(made->metaObject()->className()),
                 QByteArray("PropertyBrowser::Editors::EnumEditor"));
        auto* enumEditor = qobject_cast<EnumEditor*>(made.get());
        QVERIFY(enumEditor);
        QCOMPARE(made->parentWidget(), &parent);
        QCOMPARE(EditorPeek::typeOf(*enumEditor), BaseEditor::TypeEnum);
    } else {
        QVERIFY(parent.findChildren<QWidget*>().isEmpty());
    }
}

void TestEnumEditor::factoryRefusesOtherProperties()
{
    verifyFactoryRefusesOtherProperties<PropertyBrowser::EditorFactories::EnumEditorFactory,
                                        QtEnumPropertyManager, Fixture>();
}

void TestEnumEditor::chosenThroughBrowser()
{
    clearBrowserSettings();
    Script::DItem node(kPath, QStringLiteral("IDataBasicEnum"), Script::DItem::IoNone);
    showInTree(node, QStringLiteral("Mode"));
    node.setProperty("IDataBasicEnum.EnumList", kChoices);
    node.setProperty("IDataBasicEnum.DynamicStringnifiedValue", QStringLiteral("Fast"));
    std::unique_ptr<WTreePropertyBrowser> browser(newBrowser());
    WidgetProperty* row = browser->createPropertyItem(node, true);
    QVERIFY(row);
    QSignalSpy edits(browser.get(), &WTreePropertyBrowser::propertyEdited);
    browser->show();
    QVERIFY(QTest::qWaitForWindowExposed(browser.get()));

    auto* editor = openEditorInTree<EnumEditor>(*browser, row);
    QVERIFY(editor);
    QTRY_COMPARE(WTreePropertyBrowser::propertyEditWidget, static_cast<BaseEditor*>(editor));
    auto* box = editor->findChild<QComboBox*>();
    QVERIFY(box);
    QCOMPARE(box->currentIndex(), 0);
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(edits.count(), 1);
    ManagerTest::verifyEdit(edits, 0, kPath, Command::SetValue, QStringLiteral("Slow"));
    browser.reset();
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
}

QTEST_MAIN(TestEnumEditor)
#include "tst_enumeditor.moc"
