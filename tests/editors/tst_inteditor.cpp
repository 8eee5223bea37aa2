#include "controls/int64slider.h"
#include "controls/int64validator.h"
#include "controls/wslider.h"
#include "dialogs/widgetsetlocalint.h"
#include "dialogs/widgetsetnode.h"
#include "editors/baseeditor.h"
#include "editors/inteditor.h"
#include "property_model/intpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "qtbrowseritem.h"
#include "sdk/command.h"
#include "sdk/ditem.h"
#include "ui_widgetsetlocalint.h"
#include "ui_widgetsetnode.h"

#include "../property_model/managertestsupport.h"
#include "editortestsupport.h"
#include "testsupport.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>

#include <limits>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;
using PropertyBrowser::Editors::BaseEditor;
using PropertyBrowser::Editors::IntEditor;
using PropertyBrowser::Editors::WidgetSetLocalInt;
using PropertyBrowser::Editors::WidgetSetNode;
using PropertyBrowser::Managers::IntPropertyManager;
using Command = VardeenDefs::PropertyEditor::Command;
using IoType = Script::DItem::IoType;
using ManagerTest::verifyOnlyEdit;
using namespace EditorTestSupport;

namespace {

const int kLowest = std::numeric_limits<int>::min();
const int kHighest = std::numeric_limits<int>::max();

WSlider* sliderOf(QWidget* editor)
{
    return directChild<WSlider>(editor);
}

WidgetSetLocalInt* panelOf(WidgetSetNode& dialog)
{
    return localPanel<WidgetSetLocalInt>(dialog);
}

// The nodes, rows, editor and browser of these tests.
using IntRows = NumericRows<IntPropertyManager, IntEditor, int>;

} // namespace

class TestIntEditor : public QObject, private IntRows
{
    Q_OBJECT

public:
    TestIntEditor()
        : IntRows(QStringLiteral("IDataBasicInt"))
    { }

private slots:
    void initTestCase();
    void cleanup();

    void constructionBuildsTheRow();
    void readDataFillsTheRow_data();
    void readDataFillsTheRow();
    void readDataLeavesOutputsAlone_data();
    void readDataLeavesOutputsAlone();
    void refreshFollowsTheNode();

    void snapping_data();
    void snapping();
    void typingAndEnterSendsOnce();
    void typingThenClickingTheSliderSendsOnce();
    void typedTextEqualToHeldValueSendsNothing();
    void textEditedMovesSliderSilently_data();
    void textEditedMovesSliderSilently();
    void textEditedKeepsBlockingState();
    void linkedNodeNeverCommitsFromEditFinished();
    void sliderMovedShowsText_data();
    void sliderMovedShowsText();
    void sliderDragCommitsOnRelease();
    void wheelStepsOnce();
    void programmaticSliderValueCommits();
    void commitSnapsTheHeldValue();
    void linkAnchorReachesManager();
    void destroyedWhileTypingSendsNothing();

    void factoryRules_data();
    void factoryRules();
    void editThroughTheTree();

    void dialogFillsThePanel();
    void dialogLocalValue();
    void dialogLocalValueSnapped();
    void dialogUnchangedValueSendsNothing_data();
    void dialogUnchangedValueSendsNothing();
    void dialogStepKeepsTheValue();
    void dialogLimits_data();
    void dialogLimits();
    void dialogUnreadableLimitSendsNothing();
    void dialogLinkPicked_data();
    void dialogLinkPicked();
    void dialogLinkClearedByReset();
    void dialogLinkPageWithNothingSelected();
    void dialogEmptyLinkListTakesLinkBranch();
    void dialogCancelSendsNothing_data();
    void dialogCancelSendsNothing();
    void dialogShowsErrorState();
    void showLinkWidgetPreselects();
    void outputWithoutEditableLimitsHasNoDialog();
    void editorDroppedWhileDialogRuns();
};

void TestIntEditor::initTestCase()
{
    initEditorTestCase();
    qRegisterMetaType<Command>();
}

void TestIntEditor::cleanup()
{
    dropRows();
    verifyNothingLeftOpen();
}

// --- the row ------------------------------------------------------------------------------

void TestIntEditor::constructionBuildsTheRow()
{
    IntEditor* editor = makeEditor(makeNode("Job.T.Gain", Script::DItem::IoNone, 20, 0, 100, 5));
    verifyIntegerRowBuilt<WSlider>(editor, QStringLiteral("IntPropertyEditor"));
}

void TestIntEditor::readDataFillsTheRow_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("limitsEditable");
    QTest::newRow("setting") << 0 << false;
    QTest::newRow("input") << 1 << false;
    QTest::newRow("setting, limits editable") << 0 << true;
    QTest::newRow("input, limits editable") << 1 << true;
    QTest::newRow("output, limits editable") << 2 << true;
}

void TestIntEditor::readDataFillsTheRow()
{
    QFETCH(int, ioType);
    QFETCH(bool, limitsEditable);
    Script::DItem* node = makeNode("Job.T.Gain", static_cast<IoType>(ioType), 20, -50, 150, 5);
    node->setProperty("IDataNumeric.DynamicValue", 35);
    node->setProperty("IDataNumeric.LimitsEditable", limitsEditable);
    IntEditor* editor = makeEditor(node);
    QLineEdit* edit = lineEditOf(editor);
    WSlider* slider = sliderOf(editor);

    QCOMPARE(slider->minimum(), -50);
    QCOMPARE(slider->maximum(), 150);
    QCOMPARE(slider->singleStep(), 5);
    QCOMPARE(slider->pageStep(), 5);
    // The slider and the text show what the node holds, the dynamic value.
    QCOMPARE(slider->value(), 35);
    QCOMPARE(slider->isEnabled(), !limitsEditable);
    QCOMPARE(edit->text(), QStringLiteral("35"));
    QCOMPARE(edit->toolTip(), QStringLiteral("35"));
    QCOMPARE(edit->isReadOnly(), limitsEditable);
    QCOMPARE(edit->isEnabled(), !limitsEditable);
    const auto* validator = qobject_cast<const Int64Validator*>(edit->validator());
    QVERIFY(validator);
    QCOMPARE(validator->bottom(), -50L);
    QCOMPARE(validator->top(), 150L);
    QVERIFY(!slider->signalsBlocked());
}

void TestIntEditor::readDataLeavesOutputsAlone_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("limitsEditable");
    QTest::newRow("output") << 2 << false;
    QTest::newRow("unknown kind") << 3 << false;
    QTest::newRow("unknown kind, limits editable") << 3 << true;
}

void TestIntEditor::readDataLeavesOutputsAlone()
{
    QFETCH(int, ioType);
    QFETCH(bool, limitsEditable);
    Script::DItem* node = makeNode("Job.T.Area", static_cast<IoType>(ioType), 20, -50, 150, 5);
    node->setProperty("IDataNumeric.LimitsEditable", limitsEditable);
    QSlider plain;
    IntEditor* editor = makeEditor(node);
    QLineEdit* edit = lineEditOf(editor);
    WSlider* slider = sliderOf(editor);
    // The widgets keep what they were made with.
    QCOMPARE(slider->minimum(), plain.minimum());
    QCOMPARE(slider->maximum(), plain.maximum());
    QCOMPARE(slider->value(), plain.value());
    QVERIFY(edit->text().isEmpty());
    QVERIFY(!edit->isReadOnly());
}

void TestIntEditor::refreshFollowsTheNode()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 20, 0, 100, 1);
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    node->setProperty("IDataNumeric.LocalValue", 60);
    node->setProperty("IDataNumeric.DynamicValue", 60);
    node->setProperty("IDataNumeric.LocalMax", 80);
    editor->refreshEditorData();
    QCOMPARE(sliderOf(editor)->maximum(), 80);
    QCOMPARE(sliderOf(editor)->value(), 60);
    QCOMPARE(lineEditOf(editor)->text(), QStringLiteral("60"));
    // Reading is not editing.
    QCOMPARE(edits.count(), 0);
    // The held value is the new local value: the same number typed again is no change.
    lineEditOf(editor)->setText(QStringLiteral("60"));
    editor->onEditFinished();
    QCOMPARE(edits.count(), 0);
    // A linked input shows its link instead of the input widgets.
    node->setLinked(true);
    node->setLinkedPath(QStringLiteral("Job.Camera.Out"));
    editor->refreshEditorData();
    QCOMPARE(editor->mode(), BaseEditor::ModeLinked);
}

// --- typing and the slider ----------------------------------------------------------------

void TestIntEditor::snapping_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("typed");
    QTest::addColumn<int>("sent");
    QTest::newRow("grid of the minimum") << 1 << 10 << 4 << 6 << 5;
    // -6 lies on the minimum's grid, but a negative value snaps to the maximum's.
    QTest::newRow("grid of the maximum") << -10 << 1 << 4 << -6 << -3;
    // The typed number is snapped as it is taken and once more as it is sent: 0 goes to -2 on
    // the minimum's grid, and -2, being negative, to 1 on the maximum's.
    QTest::newRow("zero, snapped twice") << -10 << 1 << 4 << 0 << 1;
    QTest::newRow("on the grid") << 0 << 100 << 5 << 35 << 35;
    QTest::newRow("below the minimum") << 1 << 10 << 4 << 0 << 1;
    QTest::newRow("at the minimum") << 1 << 10 << 4 << 1 << 1;
    QTest::newRow("above the maximum") << 1 << 10 << 4 << 12 << 10;
    QTest::newRow("maximum off the grid") << 1 << 10 << 4 << 10 << 10;
    QTest::newRow("equal limits, above") << 5 << 5 << 3 << 9 << 9;
    QTest::newRow("equal limits, below") << 5 << 5 << 3 << -4 << -4;
    QTest::newRow("maximum below minimum") << 10 << 1 << 4 << 7 << 7;
    QTest::newRow("step 0") << 0 << 10 << 0 << 7 << 7;
    QTest::newRow("negative step") << 0 << 10 << -3 << 7 << 7;
    // Distances across the whole int range exceed int; they are measured without overflow.
    QTest::newRow("whole range, positive") << kLowest << kHighest << 7 << 6 << 5;
    QTest::newRow("whole range, negative") << kLowest << kHighest << 7 << -7 << -6;
    QTest::newRow("whole range, near the top")
        << kLowest << kHighest << 7 << kHighest - 1 << kHighest - 3;
}

void TestIntEditor::snapping()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, step);
    QFETCH(int, typed);
    QFETCH(int, sent);
    // The held value differs from anything typed, so every row makes a commit.
    Script::DItem* node
        = makeNode("Job.T.Gain", Script::DItem::IoNone, 123456, minimum, maximum, step);
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    // Set as text, past the validator, which would refuse values outside the range.
    lineEditOf(editor)->setText(QString::number(typed));
    editor->onEditFinished();
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetValue, QVariant(sent));
    QVERIFY(!sliderOf(editor)->signalsBlocked());
}

void TestIntEditor::typingAndEnterSendsOnce()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 20, 0, 100, 1);
    IntEditor* editor = makeEditor(node);
    editor->resize(300, 60);
    editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    QLineEdit* edit = lineEditOf(editor);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    QSignalSpy moved(sliderOf(editor), &QSlider::valueChanged);

    retype(edit, QStringLiteral("42"));
    // The slider follows the text without a signal, and nothing is sent while typing.
    QCOMPARE(sliderOf(editor)->value(), 42);
    QCOMPARE(moved.count(), 0);
    QCOMPARE(edits.count(), 0);

    QTest::keyClick(edit, Qt::Key_Return);
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetValue, QVariant(42));
    // The held value is now 42: a second Enter is no change.
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(edits.count(), 1);
    QCOMPARE(moved.count(), 0);
}

void TestIntEditor::typingThenClickingTheSliderSendsOnce()
{
    // The click must not end the typing first, which would send the typed number as well.
    IntEditor* editor = makeEditor(makeNode("Job.T.Gain", Script::DItem::IoInput, 20, 0, 100, 1));
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    verifyTypingThenClickingSendsOnce(editor, sliderOf(editor), edits);
}

void TestIntEditor::typedTextEqualToHeldValueSendsNothing()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 12, 0, 100, 1);
    // The row shows the dynamic value, 30; the editor holds the local one, 12.
    node->setProperty("IDataNumeric.DynamicValue", 30);
    IntEditor* editor = makeEditor(node);
    editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    QLineEdit* edit = lineEditOf(editor);
    QCOMPARE(edit->text(), QStringLiteral("30"));
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);

    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_1);
    // The slider moved on the way to the final text.
    QCOMPARE(sliderOf(editor)->value(), 1);
    QTest::keyClick(edit, Qt::Key_2);
    QCOMPARE(sliderOf(editor)->value(), 12);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(edits.count(), 0);
}

void TestIntEditor::textEditedMovesSliderSilently_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("step");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("position");
    QTest::newRow("number") << 0 << 1 << "37" << 37;
    QTest::newRow("snapped") << 1 << 4 << "6" << 5;
    QTest::newRow("grouped") << 0 << 1 << "1,000" << 1000;
    // Text that is no number counts as 0, which the minimum then lifts.
    QTest::newRow("unreadable") << 10 << 1 << "abc" << 10;
    QTest::newRow("empty") << -20 << 1 << "" << 0;
}

void TestIntEditor::textEditedMovesSliderSilently()
{
    QFETCH(int, minimum);
    QFETCH(int, step);
    QFETCH(QString, text);
    QFETCH(int, position);
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoNone, 50, minimum, 2000, step);
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    QSignalSpy changed(sliderOf(editor), &QSlider::valueChanged);
    editor->onTextEdited(text);
    QCOMPARE(sliderOf(editor)->value(), position);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(edits.count(), 0);
    // The held value stayed: its own text is still no change.
    lineEditOf(editor)->setText(QStringLiteral("50"));
    editor->onEditFinished();
    QCOMPARE(edits.count(), 0);
}

void TestIntEditor::textEditedKeepsBlockingState()
{
    IntEditor* editor = makeEditor(makeNode("Job.T.Gain", Script::DItem::IoNone, 5, 0, 100, 1));
    WSlider* slider = sliderOf(editor);
    editor->onTextEdited(QStringLiteral("10"));
    QVERIFY(!slider->signalsBlocked());
    slider->blockSignals(true);
    editor->onTextEdited(QStringLiteral("20"));
    QVERIFY(slider->signalsBlocked());
    QCOMPARE(slider->value(), 20);
    slider->blockSignals(false);
}

void TestIntEditor::linkedNodeNeverCommitsFromEditFinished()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 20, 0, 100, 1);
    node->setLinked(true);
    node->setLinkedPath(QStringLiteral("Job.Camera.Out"));
    IntEditor* editor = makeEditor(node);
    QCOMPARE(editor->mode(), BaseEditor::ModeLinked);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    lineEditOf(editor)->setText(QStringLiteral("77"));
    editor->onEditFinished();
    QCOMPARE(edits.count(), 0);
    // Unlinked, the same text is sent.
    node->setLinked(false);
    editor->onEditFinished();
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetValue, QVariant(77));
}

void TestIntEditor::sliderMovedShowsText_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0 << "0";
    QTest::newRow("999") << 999 << "999";
    QTest::newRow("1000") << 1000 << "1000";
    QTest::newRow("-999") << -999 << "-999";
    QTest::newRow("-1000") << -1000 << "-1000";
    QTest::newRow("millions") << 1234567 << "1234567";
    QTest::newRow("highest") << kHighest << "2147483647";
    // The magnitude of the least int is measured without overflow: it is above 999.
    QTest::newRow("lowest") << kLowest << "-2147483648";
}

void TestIntEditor::sliderMovedShowsText()
{
    QFETCH(int, value);
    QFETCH(QString, text);
    IntEditor* editor
        = makeEditor(makeNode("Job.T.Gain", Script::DItem::IoNone, 5, kLowest, kHighest, 1));
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    editor->onSliderMoved(value);
    QCOMPARE(lineEditOf(editor)->text(), text);
    QCOMPARE(edits.count(), 0);
    // The preview became the held value: finishing the edit of its text sends nothing.
    editor->onEditFinished();
    QCOMPARE(edits.count(), 0);
}

void TestIntEditor::sliderDragCommitsOnRelease()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 10, 0, 100, 1);
    IntEditor* editor = makeEditor(node);
    editor->resize(300, 60);
    editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    WSlider* slider = sliderOf(editor);
    QLineEdit* edit = lineEditOf(editor);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    QSignalSpy moved(slider, &QSlider::sliderMoved);

    const QPoint start = handleRect(slider).center();
    sendMouse(slider, QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
    QVERIFY(slider->isSliderDown());
    QString lastText;
    for (int dx = 20; dx <= 100; dx += 20) {
        sendMouse(slider, QEvent::MouseMove, start + QPoint(dx, 0), Qt::NoButton, Qt::LeftButton);
        // Each position shows in the text, and nothing is sent during the drag.
        QCOMPARE(edit->text(), QString::number(slider->sliderPosition()));
        QVERIFY(edit->text() != lastText);
        lastText = edit->text();
        QCOMPARE(edits.count(), 0);
    }
    QCOMPARE(moved.count(), 5);
    sendMouse(slider, QEvent::MouseButtonRelease, start + QPoint(100, 0), Qt::LeftButton,
              Qt::NoButton);
    QVERIFY(!slider->isSliderDown());
    const int reached = slider->value();
    QVERIFY(reached > 10);
    QCOMPARE(edit->text(), QString::number(reached));
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetValue, QVariant(reached));
}

void TestIntEditor::wheelStepsOnce()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 20, 0, 100, 5);
    IntEditor* editor = makeEditor(node);
    editor->resize(300, 60);
    editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    sendWheel(sliderOf(editor), 120);
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetValue, QVariant(25));
    QCOMPARE(lineEditOf(editor)->text(), QStringLiteral("25"));
    sendWheel(sliderOf(editor), -360);
    QCOMPARE(edits.count(), 2);
    ManagerTest::verifyEdit(edits, 1, "Job.T.Gain", Command::SetValue, QVariant(20));
}

void TestIntEditor::programmaticSliderValueCommits()
{
    IntEditor* editor = makeEditor(makeNode("Job.T.Gain", Script::DItem::IoNone, 20, 0, 100, 1));
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    sliderOf(editor)->setValue(20);
    QCOMPARE(edits.count(), 0);
    sliderOf(editor)->setValue(64);
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetValue, QVariant(64));
    QCOMPARE(lineEditOf(editor)->text(), QStringLiteral("64"));
}

void TestIntEditor::commitSnapsTheHeldValue()
{
    IntEditor* editor = makeEditor(makeNode("Job.T.Gain", Script::DItem::IoNone, 20, 0, 100, 5));
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    editor->onSliderValueChanged(38);
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetValue, QVariant(35));
    // The snapped value is the held one now.
    lineEditOf(editor)->setText(QStringLiteral("35"));
    editor->onEditFinished();
    QCOMPARE(edits.count(), 1);
}

void TestIntEditor::linkAnchorReachesManager()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 20, 0, 100, 1);
    node->setLinked(true);
    node->setLinkedPath(QStringLiteral("Job.Camera.Out"));
    IntEditor* editor = makeEditor(node);
    QSignalSpy clicked(m_poManager.get(), &IntPropertyManager::linkClicked);
    auto* label = directChild<QLabel>(editor);
    QVERIFY(label);
    QVERIFY(label->text().contains(QStringLiteral("href=\"Job.Camera.Out\"")));
    emit label->linkActivated(QStringLiteral("Job.Camera.Out"));
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).toString(), QStringLiteral("Job.Camera.Out"));
}

void TestIntEditor::destroyedWhileTypingSendsNothing()
{
    IntEditor* editor = makeEditor(makeNode("Job.T.Gain", Script::DItem::IoInput, 20, 0, 100, 1));
    editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    QLineEdit* edit = lineEditOf(editor);
    edit->setFocus();
    QTRY_VERIFY(edit->hasFocus());
    retype(edit, QStringLiteral("42"));
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    // The text loses the focus while the editor is taken down; that is no end of editing that
    // the editor could still send.
    m_poEditor.reset();
    QCOMPARE(edits.count(), 0);
}

// --- the factory --------------------------------------------------------------------------

void TestIntEditor::factoryRules_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QVariant>("editable");
    QTest::addColumn<QVariant>("limitsEditable");
    QTest::addColumn<bool>("editor");
    const QVariant none;
    QTest::newRow("editable") << 0 << QVariant(true) << none << true;
    QTest::newRow("limits only") << 0 << QVariant(false) << QVariant(true) << true;
    QTest::newRow("both") << 0 << QVariant(true) << QVariant(true) << true;
    QTest::newRow("neither") << 0 << QVariant(false) << QVariant(false) << false;
    QTest::newRow("no keys") << 0 << none << none << false;
    QTest::newRow("locked") << 0x1 << QVariant(true) << none << true;
    QTest::newRow("editing blocked") << 0x1000 << QVariant(true) << none << true;
    QTest::newRow("both mode bits") << 0x1001 << QVariant(true) << QVariant(true) << false;
    QTest::newRow("both mode bits, limits only")
        << 0x1001 << QVariant(false) << QVariant(true) << false;
}

void TestIntEditor::factoryRules()
{
    QFETCH(int, mode);
    QFETCH(QVariant, editable);
    QFETCH(QVariant, limitsEditable);
    QFETCH(bool, editor);
    makeBrowser();
    m_poBrowser->onProjectModeChanged(mode);
    Script::DItem* node = makeNode("Job.Tool.Gain", Script::DItem::IoInput, 20, 0, 100, 1);
    node->setProperty("iIsEditable", editable);
    node->setProperty("IDataNumeric.LimitsEditable", limitsEditable);
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    QVERIFY(row);
    QWidget parent;
    QWidget* made = m_poBrowser->createEditor(row, &parent);
    QCOMPARE(made != nullptr, editor);
    if (!made) {
        QVERIFY(parent.findChildren<QWidget*>().isEmpty());
        return;
    }
    auto* intEditor = qobject_cast<IntEditor*>(made);
    QVERIFY(intEditor);
    QCOMPARE(made->parentWidget(), &parent);
    QCOMPARE(made->objectName(), QStringLiteral("IntPropertyEditor"));
    // The editor edits the row it was made for.
    QSignalSpy edited(m_poBrowser, &WTreePropertyBrowser::propertyEdited);
    QLineEdit* edit = lineEditOf(made);
    QCOMPARE(edit->isReadOnly(), limitsEditable.toBool());
    edit->setText(QStringLiteral("30"));
    intEditor->onEditFinished();
    verifyOnlyEdit(edited, "Job.Tool.Gain", Command::SetValue, QVariant(30));
}

void TestIntEditor::editThroughTheTree()
{
    makeBrowser();
    Script::DItem* node = makeNode("Job.Tool.Gain", Script::DItem::IoInput, 20, 0, 100, 1);
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    m_poBrowser->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_poBrowser));
    QSignalSpy edited(m_poBrowser, &WTreePropertyBrowser::propertyEdited);
    QSignalSpy editing(m_poBrowser, &WTreePropertyBrowser::editing);

    QPointer<IntEditor> editor = openEditorInTree<IntEditor>(*m_poBrowser, row);
    QVERIFY(editor);
    QTRY_COMPARE(WTreePropertyBrowser::propertyEditWidget, static_cast<BaseEditor*>(editor));
    QCOMPARE(editing.count(), 1);

    QLineEdit* edit = lineEditOf(editor);
    retype(edit, QStringLiteral("57"));
    QCOMPARE(edited.count(), 0);
    QTest::keyClick(edit, Qt::Key_Return);
    verifyOnlyEdit(edited, "Job.Tool.Gain", Command::SetValue, QVariant(57));
    delete m_poBrowser;
    QVERIFY(!editor);
}

// --- the value dialog ---------------------------------------------------------------------

void TestIntEditor::dialogFillsThePanel()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoNone, 40, -100, 2000, 5);
    node->setProperty("IData.LinksToMe",
                      QStringList({QStringLiteral("Job.A.Limit"), QStringLiteral("Job.B.Gate")}));
    IntEditor* editor = makeEditor(node);
    QSignalSpy refresh(m_poManager.get(), &IntPropertyManager::refreshData);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    const QLocale english(QLocale::English, QLocale::UnitedStates);
    bool checked = false;
    editor->resize(300, 60);
    editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    auto* browse = directChild<QPushButton>(editor);
    QVERIFY(browse);
    // The browse button opens the dialog.
    const DialogRun run = runDialog(
        [&] { QTest::mouseClick(browse, Qt::LeftButton); },
        [&](WidgetSetNode& dialog) {
            QCOMPARE(dialog.parentWidget(), static_cast<QWidget*>(editor));
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Gain"));
            QVERIFY(dialog.ui->grpNodeValueType->isHidden());
            QVERIFY(dialog.ui->rbLocalValue->isChecked());
            QCOMPARE(dialog.ui->stackedWidget->currentWidget(), dialog.ui->pageLocal);
            WidgetSetLocalInt* panel = panelOf(dialog);
            QVERIFY(panel);
            QCOMPARE(panel->parentWidget(), dialog.ui->pageLocal);
            QCOMPARE(linkTree(dialog)->window(), static_cast<QWidget*>(&dialog));
            const Ui_WidgetSetLocalInt& ui = *panel->ui;
            QCOMPARE(ui.m_poLblMinValue->text(), QStringLiteral("Minimal Gain"));
            QCOMPARE(ui.m_poLblMaxValue->text(), QStringLiteral("Maximal Gain"));
            QCOMPARE(ui.m_poLblStepValue->text(), QStringLiteral("Step Gain"));
            QCOMPARE(ui.m_poLblActualValue->text(), QStringLiteral("Actual Gain"));
            QCOMPARE(ui.m_poMinValueText->text(), QStringLiteral("-100"));
            QCOMPARE(ui.m_poMaxValueText->text(), QStringLiteral("2000"));
            QCOMPARE(ui.m_poMinValueText->locale(), english);
            QVERIFY(!ui.m_poMinValueText->isEnabled());
            QVERIFY(ui.m_poMaxValueText->isReadOnly());
            const auto* limitValidator
                = qobject_cast<const Int64Validator*>(ui.m_poMaxValueText->validator());
            QVERIFY(limitValidator);
            QCOMPARE(limitValidator->bottom(), long(kLowest));
            QCOMPARE(limitValidator->top(), long(kHighest));
            QCOMPARE(ui.m_poStep->text(), QStringLiteral("5"));
            QVERIFY(!ui.m_poStep->validator());
            QCOMPARE(ui.m_poValue->text(), QStringLiteral("40"));
            QVERIFY(ui.m_poValue->isEnabled());
            QVERIFY(ui.m_poValue->isVisible());
            const auto* valueValidator
                = qobject_cast<const Int64Validator*>(ui.m_poValue->validator());
            QVERIFY(valueValidator);
            QCOMPARE(valueValidator->bottom(), -100L);
            QCOMPARE(valueValidator->top(), 2000L);
            QCOMPARE(ui.m_poSlider->min(), -100LL);
            QCOMPARE(ui.m_poSlider->max(), 2000LL);
            QCOMPARE(ui.m_poSlider->singleStep(), 5LL);
            QCOMPARE(ui.m_poSlider->value(), 40L);
            QVERIFY(ui.m_poSlider->isEnabled());
            QVERIFY(ui.m_poSlider->isVisible());
            QVERIFY(!ui.m_ErrorLabel->isVisible());
            // A setting has no evaluated result: the row is squeezed out of sight.
            QCOMPARE(ui.m_poLblEvaluatedResult->maximumHeight(), 3);
            QVERIFY(ui.m_poWidgetLed->findChildren<QWidget*>().isEmpty());
            QCOMPARE(ui.m_poLblLinkedTo->text(), QStringLiteral("Linked To: Limit, Gate"));
            QCOMPARE(refresh.count(), 1);
            QCOMPARE(refresh.at(0).at(0).toString(), QStringLiteral("Job.T.Gain"));
            checked = true;
            QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
        });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QVERIFY(checked);
    QCOMPARE(edits.count(), 0);
}

void TestIntEditor::dialogLocalValue()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoNone, 40, 0, 100, 1);
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    const DialogRun run = runDialog([&] { editor->vButtonClicked(); },
                                    [&](WidgetSetNode& dialog) {
                                        WidgetSetLocalInt* panel = panelOf(dialog);
                                        QVERIFY(panel);
                                        retype(panel->ui->m_poValue, QStringLiteral("73"));
                                        QCOMPARE(panel->ui->m_poSlider->value(), 73L);
                                        QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
                                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetValue, QVariant(73));
    // The row's slider carries the new value.
    QCOMPARE(sliderOf(editor)->value(), 73);
    QCOMPARE(lineEditOf(editor)->text(), QStringLiteral("73"));
}

void TestIntEditor::dialogLocalValueSnapped()
{
    // The row read a step of 4, the dialog a step of 1: the panel takes 12 as it is, and the
    // row snaps it to its own grid on the way to the node.
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoNone, 40, 1, 100, 1);
    IntEditor* editor = makeEditor(node);
    node->setProperty("IDataNumeric.LocalStep", 4);
    editor->refreshEditorData();
    node->setProperty("IDataNumeric.LocalStep", 1);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    const DialogRun run
        = runDialog([&] { editor->vButtonClicked(); },
                    [&](WidgetSetNode& dialog) {
                        retype(panelOf(dialog)->ui->m_poValue, QStringLiteral("12"));
                        QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetValue, QVariant(9));
}

void TestIntEditor::dialogUnchangedValueSendsNothing_data()
{
    QTest::addColumn<bool>("linked");
    QTest::newRow("setting") << false;
    // Integer editors don't replace a link by accepting the same value.
    QTest::newRow("linked input") << true;
}

void TestIntEditor::dialogUnchangedValueSendsNothing()
{
    QFETCH(bool, linked);
    Script::DItem* node = makeNode(
        "Job.T.Gain", linked ? Script::DItem::IoInput : Script::DItem::IoNone, 40, 0, 100, 1);
    if (linked) {
        addLinkTargets(node);
        node->setLinked(true);
        node->setLinkedPath(QStringLiteral("Job.Filter.Out"));
    }
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    bool accepted = false;
    const DialogRun run
        = runDialog([&] { editor->vButtonClicked(); },
                    [&](WidgetSetNode& dialog) {
                        if (linked) {
                            QVERIFY(dialog.ui->rbDynamicValue->isChecked());
                            QTest::mouseClick(dialog.ui->rbLocalValue, Qt::LeftButton);
                            QVERIFY(dialog.ui->rbLocalValue->isChecked());
                        }
                        QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                        accepted = dialog.result() == QDialog::Accepted;
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QVERIFY(accepted);
    QCOMPARE(edits.count(), 0);
}

void TestIntEditor::dialogStepKeepsTheValue()
{
    // The step comes after the value on the panel's slider; the value must survive it.
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoNone, 40, 0, 100, 5);
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    long shownValue = -1;
    QString shownText;
    const DialogRun run = runDialog([&] { editor->vButtonClicked(); },
                                    [&](WidgetSetNode& dialog) {
                                        shownValue = panelOf(dialog)->ui->m_poSlider->value();
                                        shownText = panelOf(dialog)->ui->m_poValue->text();
                                        QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
                                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QCOMPARE(shownValue, 40L);
    QCOMPARE(shownText, QStringLiteral("40"));
    QCOMPARE(edits.count(), 0);
}

void TestIntEditor::dialogLimits_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("evaluation");
    QTest::newRow("setting") << 0 << false;
    QTest::newRow("output") << 2 << true;
}

void TestIntEditor::dialogLimits()
{
    QFETCH(int, ioType);
    QFETCH(bool, evaluation);
    Script::DItem* node = makeNode("Job.T.Area", static_cast<IoType>(ioType), 40, 0, 100, 1);
    // The value itself may not be edited, only its limits.
    node->setProperty("iIsEditable", false);
    node->setProperty("IDataNumeric.LimitsEditable", true);
    IntEditor* editor = makeEditor(node);
    QVERIFY(lineEditOf(editor)->isReadOnly());
    QVERIFY(!lineEditOf(editor)->isEnabled());
    QVERIFY(!sliderOf(editor)->isEnabled());
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    const DialogRun run = runDialog(
        [&] { editor->vButtonClicked(); },
        [&](WidgetSetNode& dialog) {
            const Ui_WidgetSetLocalInt& ui = *panelOf(dialog)->ui;
            QVERIFY(!ui.m_poValue->isEnabled());
            QVERIFY(!ui.m_poSlider->isEnabled());
            QVERIFY(ui.m_poMinValueText->isEnabled());
            QVERIFY(!ui.m_poMinValueText->isReadOnly());
            QVERIFY(ui.m_poMaxValueText->isEnabled());
            QVERIFY(!ui.m_poMaxValueText->isReadOnly());
            QCOMPARE(ui.m_poLblEvaluatedResult->text() == QStringLiteral("Evaluated Result"),
                     evaluation);
            QCOMPARE(ui.m_poWidgetLed->findChildren<QWidget*>().isEmpty(), !evaluation);
            retype(ui.m_poMinValueText, QStringLiteral("-20"));
            retype(ui.m_poMaxValueText, QStringLiteral("1,500"));
            QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
            QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
        });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Area", Command::SetLimits, limits(-20, 1500));
}

void TestIntEditor::dialogUnreadableLimitSendsNothing()
{
    Script::DItem* node = makeNode("Job.T.Area", Script::DItem::IoNone, 40, 0, 100, 1);
    node->setProperty("IDataNumeric.LimitsEditable", true);
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    bool accepted = false;
    const DialogRun run
        = runDialog([&] { editor->vButtonClicked(); },
                    [&](WidgetSetNode& dialog) {
                        QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
                        // An empty field brings no report, so OK stays as the last report left it.
                        retype(panelOf(dialog)->ui->m_poMaxValueText, QString());
                        QVERIFY(panelOf(dialog)->ui->m_poMaxValueText->text().isEmpty());
                        QVERIFY(dialog.ui->m_OKBtn->isEnabled());
                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                        accepted = dialog.result() == QDialog::Accepted;
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QVERIFY(accepted);
    QCOMPARE(edits.count(), 0);
}

void TestIntEditor::dialogLinkPicked_data()
{
    QTest::addColumn<bool>("asVariantList");
    QTest::newRow("node lists") << false;
    QTest::newRow("lists of objects") << true;
}

void TestIntEditor::dialogLinkPicked()
{
    QFETCH(bool, asVariantList);
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 40, 0, 100, 1);
    addLinkTargets(node, asVariantList);
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    const DialogRun run = runDialog([&] { editor->vButtonClicked(); },
                                    [&](WidgetSetNode& dialog) {
                                        QVERIFY(dialog.ui->grpNodeValueType->isVisible());
                                        QVERIFY(dialog.ui->rbDynamicValue->isChecked());
                                        QVERIFY(dialog.ui->rbDynamicValue->isEnabled());
                                        QTreeWidget* tree = linkTree(dialog);
                                        QVERIFY(tree->isEnabled());
                                        // Nothing is linked yet, so nothing is selected.
                                        QVERIFY(tree->selectedItems().isEmpty());
                                        pickLinkTarget(dialog, QStringLiteral("Job.Filter.Level"));
                                        QCOMPARE(tree->selectedItems().size(), 1);
                                        QVERIFY(dialog.ui->m_OKBtn->isEnabled());
                                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetLink,
                   QVariant(QStringLiteral("Job.Filter.Level")));
}

void TestIntEditor::dialogLinkClearedByReset()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 40, 0, 100, 1);
    addLinkTargets(node);
    node->setLinked(true);
    node->setLinkedPath(QStringLiteral("Job.Filter.Out"));
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    const DialogRun run
        = runDialog([&] { editor->vButtonClicked(); },
                    [&](WidgetSetNode& dialog) {
                        QTreeWidget* tree = linkTree(dialog);
                        // The present link is selected.
                        QCOMPARE(tree->selectedItems().size(), 1);
                        QCOMPARE(tree->selectedItems().first()->data(0, Qt::UserRole).toString(),
                                 QStringLiteral("Job.Filter.Out"));
                        QVERIFY(dialog.ui->m_ResetBtn->isVisible());
                        QVERIFY(dialog.ui->m_ResetBtn->isEnabled());
                        QTest::mouseClick(dialog.ui->m_ResetBtn, Qt::LeftButton);
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetLink, QVariant(QStringLiteral("")));
}

void TestIntEditor::dialogLinkPageWithNothingSelected()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 40, 0, 100, 1);
    addLinkTargets(node);
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    const DialogRun run = runDialog(
        [&] { editor->vButtonClicked(); },
        [&](WidgetSetNode& dialog) {
            QTreeWidget* tree = linkTree(dialog);
            pickLinkTarget(dialog, QStringLiteral("Job.Camera.Out"));
            QCOMPARE(tree->selectedItems().size(), 1);
            // Ctrl-click takes the selection back.
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::ControlModifier,
                              tree->visualItemRect(tree->selectedItems().first()).center());
            QVERIFY(tree->selectedItems().isEmpty());
            QVERIFY(dialog.ui->m_OKBtn->isEnabled());
            QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
        });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetLink, QVariant(QStringLiteral("")));
}

void TestIntEditor::dialogEmptyLinkListTakesLinkBranch()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 40, 0, 100, 1);
    node->setProperty("IData.AcceptableLinks", QVariant::fromValue(Script::DItemListPair()));
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    const DialogRun run = runDialog([&] { editor->vButtonClicked(); },
                                    [&](WidgetSetNode& dialog) {
                                        QVERIFY(dialog.ui->rbDynamicValue->isChecked());
                                        QVERIFY(!dialog.ui->rbDynamicValue->isEnabled());
                                        QVERIFY(!linkTree(dialog)->isEnabled());
                                        QVERIFY(!dialog.ui->m_ResetBtn->isEnabled());
                                        // The panel's first report, on valid content, lets OK be
                                        // pressed.
                                        QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
                                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetLink, QVariant(QStringLiteral("")));
}

void TestIntEditor::dialogCancelSendsNothing_data()
{
    QTest::addColumn<int>("ioType");
    QTest::newRow("value changed") << 0;
    QTest::newRow("link picked") << 1;
}

void TestIntEditor::dialogCancelSendsNothing()
{
    QFETCH(int, ioType);
    Script::DItem* node = makeNode("Job.T.Gain", static_cast<IoType>(ioType), 40, 0, 100, 1);
    addLinkTargets(node);
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    int result = -1;
    const DialogRun run
        = runDialog([&] { editor->vButtonClicked(); },
                    [&](WidgetSetNode& dialog) {
                        if (ioType == 0) {
                            retype(panelOf(dialog)->ui->m_poValue, QStringLiteral("77"));
                        } else {
                            QTreeWidget* tree = linkTree(dialog);
                            pickLinkTarget(dialog, QStringLiteral("Job.Camera.Out"));
                            QCOMPARE(tree->selectedItems().size(), 1);
                        }
                        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
                        result = dialog.result();
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QCOMPARE(result, int(QDialog::Rejected));
    QCOMPARE(edits.count(), 0);
    QCOMPARE(sliderOf(editor)->value(), 40);
}

void TestIntEditor::dialogShowsErrorState()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 40, 0, 100, 1);
    addLinkTargets(node);
    node->setLinked(true);
    node->setLinkedPath(QStringLiteral("Job.Filter.Out"));
    node->setLinkError(true);
    IntEditor* editor = makeEditor(node);
    bool checked = false;
    const DialogRun run
        = runDialog([&] { editor->vButtonClicked(); },
                    [&](WidgetSetNode& dialog) {
                        QTest::mouseClick(dialog.ui->rbLocalValue, Qt::LeftButton);
                        const Ui_WidgetSetLocalInt& ui = *panelOf(dialog)->ui;
                        QVERIFY(ui.m_ErrorLabel->isVisible());
                        QVERIFY(ui.m_ErrorLabel->text().contains(QStringLiteral("Error")));
                        QVERIFY(ui.m_ErrorLabel->text().contains(QStringLiteral("red")));
                        QVERIFY(!ui.m_poSlider->isVisible());
                        QVERIFY(!ui.m_poValue->isVisible());
                        checked = true;
                        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QVERIFY(checked);
}

void TestIntEditor::showLinkWidgetPreselects()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoInput, 40, 0, 100, 1);
    addLinkTargets(node);
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    QString selected;
    const DialogRun run
        = runDialog([&] { editor->showLinkWidget(QStringLiteral("Job.Camera.Out")); },
                    [&](WidgetSetNode& dialog) {
                        QVERIFY(dialog.ui->rbDynamicValue->isChecked());
                        const QList<QTreeWidgetItem*> items = linkTree(dialog)->selectedItems();
                        QCOMPARE(items.size(), 1);
                        selected = items.first()->data(0, Qt::UserRole).toString();
                        QVERIFY(dialog.ui->m_OKBtn->isEnabled());
                        QVERIFY(dialog.ui->m_ResetBtn->isEnabled());
                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QCOMPARE(selected, QStringLiteral("Job.Camera.Out"));
    verifyOnlyEdit(edits, "Job.T.Gain", Command::SetLink,
                   QVariant(QStringLiteral("Job.Camera.Out")));

    // The present link wins over the path asked for.
    node->setLinked(true);
    node->setLinkedPath(QStringLiteral("Job.Filter.Out"));
    const DialogRun rerun
        = runDialog([&] { editor->showLinkWidget(QStringLiteral("Job.Camera.Out")); },
                    [&](WidgetSetNode& dialog) {
                        const QList<QTreeWidgetItem*> items = linkTree(dialog)->selectedItems();
                        QCOMPARE(items.size(), 1);
                        selected = items.first()->data(0, Qt::UserRole).toString();
                        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
                    });
    QVERIFY(rerun.shown);
    QVERIFY(!rerun.leftOpen);
    QCOMPARE(selected, QStringLiteral("Job.Filter.Out"));
    QCOMPARE(edits.count(), 1);
}

void TestIntEditor::outputWithoutEditableLimitsHasNoDialog()
{
    Script::DItem* node = makeNode("Job.T.Area", Script::DItem::IoOutput, 40, 0, 100, 1);
    IntEditor* editor = makeEditor(node);
    QSignalSpy refresh(m_poManager.get(), &IntPropertyManager::refreshData);
    const bool shown = runDialog([&] { editor->vButtonClicked(); }, [](WidgetSetNode&) {}).shown;
    QVERIFY(!shown);
    QCOMPARE(refresh.count(), 0);
    // With editable limits it has one.
    node->setProperty("IDataNumeric.LimitsEditable", true);
    IntEditor* limitsEditor = makeEditor(node);
    const DialogRun limitsRun = runDialog([&] { limitsEditor->vButtonClicked(); },
                                          [](WidgetSetNode& dialog) { dialog.reject(); });
    QVERIFY(limitsRun.shown);
    QVERIFY(!limitsRun.leftOpen);
}

void TestIntEditor::editorDroppedWhileDialogRuns()
{
    Script::DItem* node = makeNode("Job.T.Gain", Script::DItem::IoNone, 40, 0, 100, 1);
    IntEditor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &IntPropertyManager::vPropertyEdited);
    const DialogRun run = runDroppingEditor(
        [&] { editor->vButtonClicked(); },
        [](WidgetSetNode& dialog) { retype(panelOf(dialog)->ui->m_poValue, QStringLiteral("77")); },
        [&] { m_poEditor.reset(); });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QCOMPARE(edits.count(), 0);
}

QTEST_MAIN(TestIntEditor)
#include "tst_inteditor.moc"
