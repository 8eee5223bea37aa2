#include "controls/int64slider.h"
#include "controls/int64validator.h"
#include "controls/wslider.h"
#include "dialogs/widgetsetlocalint.h"
#include "dialogs/widgetsetnode.h"
#include "editors/baseeditor.h"
#include "editors/int64editor.h"
#include "property_model/int64propertymanager.h"
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
using PropertyBrowser::Editors::Int64Editor;
using PropertyBrowser::Editors::WidgetSetLocalInt;
using PropertyBrowser::Editors::WidgetSetNode;
using PropertyBrowser::Managers::Int64PropertyManager;
using Command = VardeenDefs::PropertyEditor::Command;
using IoType = Script::DItem::IoType;
using ManagerTest::verifyOnlyEdit;
using namespace EditorTestSupport;

namespace {

const qlonglong kLowest = std::numeric_limits<qlonglong>::min();
const qlonglong kHighest = std::numeric_limits<qlonglong>::max();
// A range beyond 32 bits whose steps all fit the slider, so that every value in it is exact.
const qlonglong kWideMin = Q_INT64_C(4000000000);
const qlonglong kWideMax = Q_INT64_C(8000000000);

Int64Slider* sliderOf(QWidget* editor)
{
    return directChild<Int64Slider>(editor);
}

// The toolkit slider inside the 64-bit one, which takes the mouse and the wheel.
WSlider* innerSliderOf(QWidget* editor)
{
    Int64Slider* slider = sliderOf(editor);
    return slider ? slider->findChild<WSlider*>() : nullptr;
}

WidgetSetLocalInt* panelOf(WidgetSetNode& dialog)
{
    return localPanel<WidgetSetLocalInt>(dialog);
}

QVariant number(qlonglong value)
{
    return QVariant(value);
}

// The nodes, rows, editor and browser of these tests.
using Int64Rows = NumericRows<Int64PropertyManager, Int64Editor, qlonglong>;

} // namespace

class TestInt64Editor : public QObject, private Int64Rows
{
    Q_OBJECT

public:
    TestInt64Editor()
        : Int64Rows(QStringLiteral("IDataBasicInt64"))
    { }

private slots:
    void initTestCase();
    void cleanup();

    void constructionBuildsTheRow();
    void readDataFillsTheRow_data();
    void readDataFillsTheRow();
    void readDataAppliesLinkState_data();
    void readDataAppliesLinkState();
    void readDataLeavesOutputsAlone_data();
    void readDataLeavesOutputsAlone();

    void valuesPassUnsnapped_data();
    void valuesPassUnsnapped();
    void typingAndEnterSendsOnce();
    void typingThenClickingTheSliderSendsOnce();
    void typedTextEqualToHeldValueSendsNothing();
    void textEditedMovesSliderSilently_data();
    void textEditedMovesSliderSilently();
    void linkedNodeNeverCommitsFromEditFinished();
    void sliderMovedShowsText_data();
    void sliderMovedShowsText();
    void sliderDragCommitsOnRelease();
    void wheelStepsOnce();
    void programmaticSliderValueCommits();
    void linkAnchorReachesManager();
    void destroyedWhileTypingSendsNothing();

    void factoryRules_data();
    void factoryRules();
    void editThroughTheTree();

    void dialogFillsThePanel();
    void dialogLocalValue();
    void dialogUnchangedValueSendsNothing_data();
    void dialogUnchangedValueSendsNothing();
    void dialogLimits_data();
    void dialogLimits();
    void dialogUnreadableLimitSendsNothing();
    void dialogLinkPicked();
    void dialogLinkClearedByReset();
    void dialogLinkPageWithNothingSelected();
    void dialogEmptyLinkListTakesLinkBranch();
    void dialogCancelSendsNothing_data();
    void dialogCancelSendsNothing();
    void showLinkWidgetPreselects();
    void outputWithoutEditableLimitsHasNoDialog();
    void editorDroppedWhileDialogRuns();
};

void TestInt64Editor::initTestCase()
{
    initEditorTestCase();
    qRegisterMetaType<Command>();
}

void TestInt64Editor::cleanup()
{
    dropRows();
    verifyNothingLeftOpen();
}

// --- the row ------------------------------------------------------------------------------

void TestInt64Editor::constructionBuildsTheRow()
{
    Int64Editor* editor = makeEditor(makeNode("Job.T.Count", Script::DItem::IoNone, 20, 0, 100, 5));
    verifyIntegerRowBuilt<Int64Slider>(editor, QStringLiteral("Int64PropertyEditor"));
}

void TestInt64Editor::readDataFillsTheRow_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("limitsEditable");
    QTest::newRow("setting") << 0 << false;
    QTest::newRow("input") << 1 << false;
    QTest::newRow("setting, limits editable") << 0 << true;
    QTest::newRow("output, limits editable") << 2 << true;
}

void TestInt64Editor::readDataFillsTheRow()
{
    QFETCH(int, ioType);
    QFETCH(bool, limitsEditable);
    const qlonglong minimum = -Q_INT64_C(5000000000);
    const qlonglong maximum = Q_INT64_C(5000000000);
    Script::DItem* node
        = makeNode("Job.T.Count", static_cast<IoType>(ioType), 20, minimum, maximum, 5);
    node->setProperty("IDataNumeric.DynamicValue", Q_INT64_C(4000000000));
    node->setProperty("IDataNumeric.LimitsEditable", limitsEditable);
    Int64Editor* editor = makeEditor(node);
    QLineEdit* edit = lineEditOf(editor);
    Int64Slider* slider = sliderOf(editor);

    QCOMPARE(slider->min(), minimum);
    QCOMPARE(slider->max(), maximum);
    QCOMPARE(slider->singleStep(), 5LL);
    // The slider and the text show what the node holds, the dynamic value.
    QCOMPARE(slider->value(), 4000000000L);
    QCOMPARE(slider->isEnabled(), !limitsEditable);
    QCOMPARE(edit->text(), QStringLiteral("4000000000"));
    QCOMPARE(edit->toolTip(), QStringLiteral("4000000000"));
    QCOMPARE(edit->isReadOnly(), limitsEditable);
    QCOMPARE(edit->isEnabled(), !limitsEditable);
    const auto* validator = qobject_cast<const Int64Validator*>(edit->validator());
    QVERIFY(validator);
    QCOMPARE(validator->bottom(), long(minimum));
    QCOMPARE(validator->top(), long(maximum));
    QVERIFY(!slider->signalsBlocked());
}

void TestInt64Editor::readDataAppliesLinkState_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("linked");
    QTest::addColumn<bool>("sliderEnabled");
    QTest::addColumn<bool>("readOnly");
    QTest::newRow("input") << 1 << false << true << false;
    QTest::newRow("linked input") << 1 << true << false << true;
    // Only an input follows its link state here.
    QTest::newRow("linked setting") << 0 << true << true << false;
}

void TestInt64Editor::readDataAppliesLinkState()
{
    QFETCH(int, ioType);
    QFETCH(bool, linked);
    QFETCH(bool, sliderEnabled);
    QFETCH(bool, readOnly);
    Script::DItem* node = makeNode("Job.T.Count", static_cast<IoType>(ioType), 20, 0, 100, 1);
    node->setLinked(linked);
    node->setLinkedPath(linked ? QStringLiteral("Job.Camera.Out") : QString());
    Int64Editor* editor = makeEditor(node);
    QCOMPARE(sliderOf(editor)->isEnabled(), sliderEnabled);
    QCOMPARE(lineEditOf(editor)->isReadOnly(), readOnly);
    // Every read that gets this far enables the browse button.
    auto* browse = directChild<QPushButton>(editor);
    browse->setEnabled(false);
    editor->readData();
    QVERIFY(browse->isEnabled());
}

void TestInt64Editor::readDataLeavesOutputsAlone_data()
{
    QTest::addColumn<int>("ioType");
    QTest::newRow("output") << 2;
    QTest::newRow("unknown kind") << 3;
}

void TestInt64Editor::readDataLeavesOutputsAlone()
{
    QFETCH(int, ioType);
    Script::DItem* node = makeNode("Job.T.Area", static_cast<IoType>(ioType), 20, -50, 150, 5);
    Int64Slider plain;
    Int64Editor* editor = makeEditor(node);
    QLineEdit* edit = lineEditOf(editor);
    Int64Slider* slider = sliderOf(editor);
    QCOMPARE(slider->min(), plain.min());
    QCOMPARE(slider->max(), plain.max());
    QCOMPARE(slider->value(), plain.value());
    QVERIFY(edit->text().isEmpty());
    // Not even the browse button is touched.
    auto* browse = directChild<QPushButton>(editor);
    browse->setEnabled(false);
    editor->readData();
    QVERIFY(!browse->isEnabled());
}

// --- typing and the slider ----------------------------------------------------------------

void TestInt64Editor::valuesPassUnsnapped_data()
{
    QTest::addColumn<qlonglong>("minimum");
    QTest::addColumn<qlonglong>("maximum");
    QTest::addColumn<qlonglong>("step");
    QTest::addColumn<qlonglong>("typed");
    QTest::newRow("off the step") << 1LL << 10LL << 4LL << 6LL;
    QTest::newRow("negative, off the step") << -10LL << 1LL << 4LL << -6LL;
    QTest::newRow("below the minimum") << 1LL << 10LL << 4LL << -3LL;
    QTest::newRow("above the maximum") << 1LL << 10LL << 4LL << 12LL;
    QTest::newRow("beyond 32 bits")
        << 0LL << Q_INT64_C(10000000000) << 1LL << Q_INT64_C(5000000001);
    QTest::newRow("lowest") << kLowest << kHighest << 1LL << kLowest;
    QTest::newRow("highest") << kLowest << kHighest << 3LL << kHighest;
}

void TestInt64Editor::valuesPassUnsnapped()
{
    QFETCH(qlonglong, minimum);
    QFETCH(qlonglong, maximum);
    QFETCH(qlonglong, step);
    QFETCH(qlonglong, typed);
    Script::DItem* node
        = makeNode("Job.T.Count", Script::DItem::IoNone, 123456, minimum, maximum, step);
    Int64Editor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    lineEditOf(editor)->setText(QString::number(typed));
    editor->onEditFinished();
    verifyOnlyEdit(edits, "Job.T.Count", Command::SetValue, number(typed));
    QVERIFY(!sliderOf(editor)->signalsBlocked());
    // The slider's own signals do not send it a second time.
    editor->commitLocalData();
    QCOMPARE(edits.count(), 2);
    ManagerTest::verifyEdit(edits, 1, "Job.T.Count", Command::SetValue, number(typed));
}

void TestInt64Editor::typingAndEnterSendsOnce()
{
    Script::DItem* node
        = makeNode("Job.T.Count", Script::DItem::IoInput, kWideMin + 20, kWideMin, kWideMax, 1);
    Int64Editor* editor = makeEditor(node);
    editor->resize(300, 60);
    editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    QLineEdit* edit = lineEditOf(editor);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    QSignalSpy changed(sliderOf(editor), &Int64Slider::valueChanged);

    retype(edit, QStringLiteral("5000000000"));
    // The slider follows the text without a signal, and nothing is sent while typing.
    QCOMPARE(sliderOf(editor)->value(), 5000000000L);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(edits.count(), 0);

    QTest::keyClick(edit, Qt::Key_Return);
    verifyOnlyEdit(edits, "Job.T.Count", Command::SetValue, number(Q_INT64_C(5000000000)));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(edits.count(), 1);
    QCOMPARE(changed.count(), 0);
}

void TestInt64Editor::typingThenClickingTheSliderSendsOnce()
{
    // The click must not end the typing first, which would send the typed number as well.
    Int64Editor* editor = makeEditor(makeNode("Job.T.Gain", Script::DItem::IoInput, 20, 0, 100, 1));
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    verifyTypingThenClickingSendsOnce(editor, sliderOf(editor)->findChild<QSlider*>(), edits);
}

void TestInt64Editor::typedTextEqualToHeldValueSendsNothing()
{
    Script::DItem* node = makeNode("Job.T.Count", Script::DItem::IoInput, 12, 0, 100, 1);
    node->setProperty("IDataNumeric.DynamicValue", 30);
    Int64Editor* editor = makeEditor(node);
    editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    QLineEdit* edit = lineEditOf(editor);
    QCOMPARE(edit->text(), QStringLiteral("30"));
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);

    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_1);
    QCOMPARE(sliderOf(editor)->value(), 1L);
    QTest::keyClick(edit, Qt::Key_2);
    QCOMPARE(sliderOf(editor)->value(), 12L);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(edits.count(), 0);
}

void TestInt64Editor::textEditedMovesSliderSilently_data()
{
    QTest::addColumn<qlonglong>("minimum");
    QTest::addColumn<QString>("text");
    QTest::addColumn<qlonglong>("position");
    QTest::newRow("number") << 0LL << "37" << 37LL;
    QTest::newRow("grouped") << 0LL << "1,000" << 1000LL;
    // Text that is no number counts as 0, which the slider's minimum then lifts.
    QTest::newRow("unreadable") << 10LL << "abc" << 10LL;
    QTest::newRow("empty") << -20LL << "" << 0LL;
}

void TestInt64Editor::textEditedMovesSliderSilently()
{
    QFETCH(qlonglong, minimum);
    QFETCH(QString, text);
    QFETCH(qlonglong, position);
    Script::DItem* node = makeNode("Job.T.Count", Script::DItem::IoNone, 50, minimum, 2000, 1);
    Int64Editor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    QSignalSpy changed(sliderOf(editor), &Int64Slider::valueChanged);
    editor->onTextEdited(text);
    QCOMPARE(qlonglong(sliderOf(editor)->value()), position);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(edits.count(), 0);
    QVERIFY(!sliderOf(editor)->signalsBlocked());
    lineEditOf(editor)->setText(QStringLiteral("50"));
    editor->onEditFinished();
    QCOMPARE(edits.count(), 0);
}

void TestInt64Editor::linkedNodeNeverCommitsFromEditFinished()
{
    Script::DItem* node = makeNode("Job.T.Count", Script::DItem::IoInput, 20, 0, 100, 1);
    node->setLinked(true);
    node->setLinkedPath(QStringLiteral("Job.Camera.Out"));
    Int64Editor* editor = makeEditor(node);
    QCOMPARE(editor->mode(), BaseEditor::ModeLinked);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    lineEditOf(editor)->setText(QStringLiteral("77"));
    editor->onEditFinished();
    QCOMPARE(edits.count(), 0);
    node->setLinked(false);
    editor->onEditFinished();
    verifyOnlyEdit(edits, "Job.T.Count", Command::SetValue, number(77));
}

void TestInt64Editor::sliderMovedShowsText_data()
{
    QTest::addColumn<qlonglong>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << 0LL << "0";
    QTest::newRow("999") << 999LL << "999";
    QTest::newRow("1000") << 1000LL << "1000";
    QTest::newRow("-999") << -999LL << "-999";
    QTest::newRow("-1000") << -1000LL << "-1000";
    QTest::newRow("beyond 32 bits") << Q_INT64_C(5000000000) << "5000000000";
    QTest::newRow("highest") << kHighest << "9223372036854775807";
    QTest::newRow("second lowest") << kLowest + 1 << "-9223372036854775807";
    // The magnitude of the least value stays negative, so its separators stay.
    QTest::newRow("lowest") << kLowest << "-9,223,372,036,854,775,808";
}

void TestInt64Editor::sliderMovedShowsText()
{
    QFETCH(qlonglong, value);
    QFETCH(QString, text);
    Int64Editor* editor
        = makeEditor(makeNode("Job.T.Count", Script::DItem::IoNone, 5, kLowest, kHighest, 1));
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    editor->onSliderMoved(value);
    QCOMPARE(lineEditOf(editor)->text(), text);
    QCOMPARE(edits.count(), 0);
    // The preview became the held value: finishing the edit of its text sends nothing.
    editor->onEditFinished();
    QCOMPARE(edits.count(), 0);
}

void TestInt64Editor::sliderDragCommitsOnRelease()
{
    Script::DItem* node = makeNode("Job.T.Count", Script::DItem::IoInput, 10, 0, 100, 1);
    Int64Editor* editor = makeEditor(node);
    editor->resize(300, 60);
    editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    WSlider* inner = innerSliderOf(editor);
    QVERIFY(inner);
    QLineEdit* edit = lineEditOf(editor);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    QSignalSpy moved(sliderOf(editor), &Int64Slider::sliderMoved);

    const QPoint start = handleRect(inner).center();
    sendMouse(inner, QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
    QVERIFY(inner->isSliderDown());
    for (int dx = 20; dx <= 100; dx += 20) {
        sendMouse(inner, QEvent::MouseMove, start + QPoint(dx, 0), Qt::NoButton, Qt::LeftButton);
        QCOMPARE(moved.count(), dx / 20);
        // Each position shows in the text, and nothing is sent during the drag.
        QCOMPARE(edit->text(), QString::number(moved.last().at(0).toLongLong()));
        QCOMPARE(edits.count(), 0);
    }
    sendMouse(inner, QEvent::MouseButtonRelease, start + QPoint(100, 0), Qt::LeftButton,
              Qt::NoButton);
    QVERIFY(!inner->isSliderDown());
    const qlonglong reached = sliderOf(editor)->value();
    QVERIFY(reached > 10);
    QCOMPARE(reached, moved.last().at(0).toLongLong());
    QCOMPARE(edit->text(), QString::number(reached));
    verifyOnlyEdit(edits, "Job.T.Count", Command::SetValue, number(reached));
}

void TestInt64Editor::wheelStepsOnce()
{
    Script::DItem* node = makeNode("Job.T.Count", Script::DItem::IoInput, 20, 0, 100, 5);
    Int64Editor* editor = makeEditor(node);
    editor->resize(300, 60);
    editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    sendWheel(innerSliderOf(editor), 120);
    verifyOnlyEdit(edits, "Job.T.Count", Command::SetValue, number(25));
    QCOMPARE(lineEditOf(editor)->text(), QStringLiteral("25"));
    sendWheel(innerSliderOf(editor), -360);
    QCOMPARE(edits.count(), 2);
    ManagerTest::verifyEdit(edits, 1, "Job.T.Count", Command::SetValue, number(20));
}

void TestInt64Editor::programmaticSliderValueCommits()
{
    Int64Editor* editor = makeEditor(
        makeNode("Job.T.Count", Script::DItem::IoNone, kWideMin + 20, kWideMin, kWideMax, 1));
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    sliderOf(editor)->setValue(kWideMin + 20);
    QCOMPARE(edits.count(), 0);
    // Sent before the setter returns.
    sliderOf(editor)->setValue(Q_INT64_C(6400000000));
    verifyOnlyEdit(edits, "Job.T.Count", Command::SetValue, number(Q_INT64_C(6400000000)));
    QCOMPARE(lineEditOf(editor)->text(), QStringLiteral("6400000000"));
}

void TestInt64Editor::linkAnchorReachesManager()
{
    Script::DItem* node = makeNode("Job.T.Count", Script::DItem::IoInput, 20, 0, 100, 1);
    node->setLinked(true);
    node->setLinkedPath(QStringLiteral("Job.Camera.Out"));
    Int64Editor* editor = makeEditor(node);
    QSignalSpy clicked(m_poManager.get(), &Int64PropertyManager::linkClicked);
    auto* label = directChild<QLabel>(editor);
    QVERIFY(label);
    emit label->linkActivated(QStringLiteral("Job.Camera.Out"));
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(0).toString(), QStringLiteral("Job.Camera.Out"));
}

void TestInt64Editor::destroyedWhileTypingSendsNothing()
{
    Int64Editor* editor
        = makeEditor(makeNode("Job.T.Count", Script::DItem::IoInput, 20, 0, 100, 1));
    editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    QLineEdit* edit = lineEditOf(editor);
    edit->setFocus();
    QTRY_VERIFY(edit->hasFocus());
    retype(edit, QStringLiteral("42"));
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    // The text loses the focus while the editor is taken down; that is no end of editing that
    // the editor could still send.
    m_poEditor.reset();
    QCOMPARE(edits.count(), 0);
}

// --- the factory --------------------------------------------------------------------------

void TestInt64Editor::factoryRules_data()
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

void TestInt64Editor::factoryRules()
{
    QFETCH(int, mode);
    QFETCH(QVariant, editable);
    QFETCH(QVariant, limitsEditable);
    QFETCH(bool, editor);
    makeBrowser();
    m_poBrowser->onProjectModeChanged(mode);
    Script::DItem* node = makeNode("Job.Tool.Count", Script::DItem::IoInput, 20, 0, 100, 1);
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
    auto* int64Editor = qobject_cast<Int64Editor*>(made);
    QVERIFY(int64Editor);
    QCOMPARE(made->parentWidget(), &parent);
    QCOMPARE(made->objectName(), QStringLiteral("Int64PropertyEditor"));
    QSignalSpy edited(m_poBrowser, &WTreePropertyBrowser::propertyEdited);
    QLineEdit* edit = lineEditOf(made);
    // With editable limits the value is only shown; an unlinked input's text stays writable.
    QCOMPARE(edit->isEnabled(), !limitsEditable.toBool());
    QVERIFY(!edit->isReadOnly());
    edit->setText(QStringLiteral("30"));
    int64Editor->onEditFinished();
    verifyOnlyEdit(edited, "Job.Tool.Count", Command::SetValue, number(30));
}

void TestInt64Editor::editThroughTheTree()
{
    makeBrowser();
    Script::DItem* node
        = makeNode("Job.Tool.Count", Script::DItem::IoInput, 20, 0, Q_INT64_C(10000000000), 1);
    WidgetProperty* row = m_poBrowser->createPropertyItem(*node, true);
    m_poBrowser->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_poBrowser));
    QSignalSpy edited(m_poBrowser, &WTreePropertyBrowser::propertyEdited);

    QPointer<Int64Editor> editor = openEditorInTree<Int64Editor>(*m_poBrowser, row);
    QVERIFY(editor);
    QTRY_COMPARE(WTreePropertyBrowser::propertyEditWidget, static_cast<BaseEditor*>(editor));

    QLineEdit* edit = lineEditOf(editor);
    retype(edit, QStringLiteral("7000000000"));
    QCOMPARE(edited.count(), 0);
    QTest::keyClick(edit, Qt::Key_Return);
    verifyOnlyEdit(edited, "Job.Tool.Count", Command::SetValue, number(Q_INT64_C(7000000000)));
    delete m_poBrowser;
    QVERIFY(!editor);
}

// --- the value dialog ---------------------------------------------------------------------

void TestInt64Editor::dialogFillsThePanel()
{
    const qlonglong maximum = Q_INT64_C(8000000000);
    Script::DItem* node
        = makeNode("Job.T.Count", Script::DItem::IoNone, Q_INT64_C(6000000000), -100, maximum, 5);
    Int64Editor* editor = makeEditor(node);
    editor->resize(300, 60);
    editor->show();
    QVERIFY(QTest::qWaitForWindowExposed(editor));
    QSignalSpy refresh(m_poManager.get(), &Int64PropertyManager::refreshData);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    auto* browse = directChild<QPushButton>(editor);
    bool checked = false;
    const DialogRun run
        = runDialog([&] { QTest::mouseClick(browse, Qt::LeftButton); },
                    [&](WidgetSetNode& dialog) {
                        QCOMPARE(dialog.parentWidget(), static_cast<QWidget*>(editor));
                        QCOMPARE(dialog.windowTitle(), QStringLiteral("Count"));
                        QVERIFY(dialog.ui->grpNodeValueType->isHidden());
                        QVERIFY(dialog.ui->rbLocalValue->isChecked());
                        const Ui_WidgetSetLocalInt& ui = *panelOf(dialog)->ui;
                        QCOMPARE(ui.m_poLblMinValue->text(), QStringLiteral("Minimal Count"));
                        QCOMPARE(ui.m_poLblMaxValue->text(), QStringLiteral("Maximal Count"));
                        QCOMPARE(ui.m_poLblStepValue->text(), QStringLiteral("Step Count"));
                        QCOMPARE(ui.m_poLblActualValue->text(), QStringLiteral("Actual Count"));
                        QCOMPARE(ui.m_poMinValueText->text(), QStringLiteral("-100"));
                        QCOMPARE(ui.m_poMaxValueText->text(), QStringLiteral("8000000000"));
                        QVERIFY(!ui.m_poMaxValueText->isEnabled());
                        QVERIFY(ui.m_poMinValueText->isReadOnly());
                        // The limit fields take the validator's own, whole 64-bit range.
                        const auto* limitValidator
                            = qobject_cast<const Int64Validator*>(ui.m_poMinValueText->validator());
                        QVERIFY(limitValidator);
                        QCOMPARE(qlonglong(limitValidator->bottom()), kLowest);
                        QCOMPARE(qlonglong(limitValidator->top()), kHighest);
                        QCOMPARE(ui.m_poStep->text(), QStringLiteral("5"));
                        QCOMPARE(ui.m_poValue->text(), QStringLiteral("6000000000"));
                        QVERIFY(ui.m_poValue->isEnabled());
                        const auto* valueValidator
                            = qobject_cast<const Int64Validator*>(ui.m_poValue->validator());
                        QVERIFY(valueValidator);
                        QCOMPARE(valueValidator->bottom(), -100L);
                        QCOMPARE(qlonglong(valueValidator->top()), maximum);
                        QCOMPARE(ui.m_poSlider->min(), -100LL);
                        QCOMPARE(ui.m_poSlider->max(), maximum);
                        QCOMPARE(ui.m_poSlider->singleStep(), 5LL);
                        QCOMPARE(ui.m_poSlider->value(), 6000000000L);
                        QVERIFY(ui.m_poSlider->isVisible());
                        QVERIFY(!ui.m_ErrorLabel->isVisible());
                        QCOMPARE(refresh.count(), 1);
                        QCOMPARE(refresh.at(0).at(0).toString(), QStringLiteral("Job.T.Count"));
                        checked = true;
                        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QVERIFY(checked);
    QCOMPARE(edits.count(), 0);
}

void TestInt64Editor::dialogLocalValue()
{
    Script::DItem* node
        = makeNode("Job.T.Count", Script::DItem::IoNone, kWideMin + 40, kWideMin, kWideMax, 1);
    Int64Editor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    const DialogRun run = runDialog([&] { editor->vButtonClicked(); },
                                    [&](WidgetSetNode& dialog) {
                                        WidgetSetLocalInt* panel = panelOf(dialog);
                                        retype(panel->ui->m_poValue, QStringLiteral("7300000000"));
                                        QCOMPARE(panel->ui->m_poSlider->value(), 7300000000L);
                                        QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
                                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Count", Command::SetValue, number(Q_INT64_C(7300000000)));
    QCOMPARE(sliderOf(editor)->value(), 7300000000L);
    QCOMPARE(lineEditOf(editor)->text(), QStringLiteral("7300000000"));
}

void TestInt64Editor::dialogUnchangedValueSendsNothing_data()
{
    QTest::addColumn<bool>("linked");
    QTest::newRow("setting") << false;
    // Integer editors don't replace a link by accepting the same value.
    QTest::newRow("linked input") << true;
}

void TestInt64Editor::dialogUnchangedValueSendsNothing()
{
    QFETCH(bool, linked);
    Script::DItem* node = makeNode(
        "Job.T.Count", linked ? Script::DItem::IoInput : Script::DItem::IoNone, 40, 0, 100, 5);
    if (linked) {
        addLinkTargets(node);
        node->setLinked(true);
        node->setLinkedPath(QStringLiteral("Job.Filter.Out"));
    }
    Int64Editor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    bool accepted = false;
    long shownValue = -1;
    const DialogRun run
        = runDialog([&] { editor->vButtonClicked(); },
                    [&](WidgetSetNode& dialog) {
                        if (linked) {
                            QVERIFY(dialog.ui->rbDynamicValue->isChecked());
                            QTest::mouseClick(dialog.ui->rbLocalValue, Qt::LeftButton);
                            QVERIFY(dialog.ui->rbLocalValue->isChecked());
                        }
                        // The step came after the value on the panel's slider; the
                        // value survived it.
                        shownValue = panelOf(dialog)->ui->m_poSlider->value();
                        QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                        accepted = dialog.result() == QDialog::Accepted;
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QVERIFY(accepted);
    QCOMPARE(shownValue, 40L);
    QCOMPARE(edits.count(), 0);
}

void TestInt64Editor::dialogLimits_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("evaluation");
    QTest::newRow("setting") << 0 << false;
    QTest::newRow("output") << 2 << true;
}

void TestInt64Editor::dialogLimits()
{
    QFETCH(int, ioType);
    QFETCH(bool, evaluation);
    Script::DItem* node = makeNode("Job.T.Area", static_cast<IoType>(ioType), 40, 0, 100, 1);
    node->setProperty("iIsEditable", false);
    node->setProperty("IDataNumeric.LimitsEditable", true);
    Int64Editor* editor = makeEditor(node);
    QVERIFY(lineEditOf(editor)->isReadOnly());
    QVERIFY(!lineEditOf(editor)->isEnabled());
    QVERIFY(!sliderOf(editor)->isEnabled());
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    const DialogRun run = runDialog(
        [&] { editor->vButtonClicked(); },
        [&](WidgetSetNode& dialog) {
            const Ui_WidgetSetLocalInt& ui = *panelOf(dialog)->ui;
            QVERIFY(!ui.m_poValue->isEnabled());
            QVERIFY(!ui.m_poSlider->isEnabled());
            QVERIFY(ui.m_poMinValueText->isEnabled());
            QVERIFY(!ui.m_poMaxValueText->isReadOnly());
            QCOMPARE(ui.m_poLblEvaluatedResult->text() == QStringLiteral("Evaluated Result"),
                     evaluation);
            retype(ui.m_poMinValueText, QStringLiteral("-5,000,000,000"));
            retype(ui.m_poMaxValueText, QStringLiteral("9000000000"));
            QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
            QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
        });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Area", Command::SetLimits,
                   limits(-Q_INT64_C(5000000000), Q_INT64_C(9000000000)));
}

void TestInt64Editor::dialogUnreadableLimitSendsNothing()
{
    Script::DItem* node = makeNode("Job.T.Area", Script::DItem::IoNone, 40, 0, 100, 1);
    node->setProperty("IDataNumeric.LimitsEditable", true);
    Int64Editor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    bool accepted = false;
    const DialogRun run = runDialog([&] { editor->vButtonClicked(); },
                                    [&](WidgetSetNode& dialog) {
                                        QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
                                        retype(panelOf(dialog)->ui->m_poMinValueText, QString());
                                        QVERIFY(dialog.ui->m_OKBtn->isEnabled());
                                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                                        accepted = dialog.result() == QDialog::Accepted;
                                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QVERIFY(accepted);
    QCOMPARE(edits.count(), 0);
}

void TestInt64Editor::dialogLinkPicked()
{
    Script::DItem* node = makeNode("Job.T.Count", Script::DItem::IoInput, 40, 0, 100, 1);
    addLinkTargets(node);
    Int64Editor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    const DialogRun run = runDialog([&] { editor->vButtonClicked(); },
                                    [&](WidgetSetNode& dialog) {
                                        QVERIFY(dialog.ui->grpNodeValueType->isVisible());
                                        QVERIFY(dialog.ui->rbDynamicValue->isChecked());
                                        QTreeWidget* tree = linkTree(dialog);
                                        QVERIFY(tree->selectedItems().isEmpty());
                                        pickLinkTarget(dialog, QStringLiteral("Job.Camera.Out"));
                                        QVERIFY(dialog.ui->m_OKBtn->isEnabled());
                                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Count", Command::SetLink,
                   QVariant(QStringLiteral("Job.Camera.Out")));
}

void TestInt64Editor::dialogLinkClearedByReset()
{
    Script::DItem* node = makeNode("Job.T.Count", Script::DItem::IoInput, 40, 0, 100, 1);
    addLinkTargets(node);
    node->setLinked(true);
    node->setLinkedPath(QStringLiteral("Job.Filter.Level"));
    Int64Editor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    const DialogRun run
        = runDialog([&] { editor->vButtonClicked(); },
                    [&](WidgetSetNode& dialog) {
                        QTreeWidget* tree = linkTree(dialog);
                        QCOMPARE(tree->selectedItems().size(), 1);
                        QCOMPARE(tree->selectedItems().first()->data(0, Qt::UserRole).toString(),
                                 QStringLiteral("Job.Filter.Level"));
                        QVERIFY(dialog.ui->m_ResetBtn->isEnabled());
                        QTest::mouseClick(dialog.ui->m_ResetBtn, Qt::LeftButton);
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Count", Command::SetLink, QVariant(QStringLiteral("")));
}

void TestInt64Editor::dialogLinkPageWithNothingSelected()
{
    Script::DItem* node = makeNode("Job.T.Count", Script::DItem::IoInput, 40, 0, 100, 1);
    addLinkTargets(node);
    Int64Editor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    const DialogRun run = runDialog(
        [&] { editor->vButtonClicked(); },
        [&](WidgetSetNode& dialog) {
            QTreeWidget* tree = linkTree(dialog);
            pickLinkTarget(dialog, QStringLiteral("Job.Filter.Out"));
            QCOMPARE(tree->selectedItems().size(), 1);
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::ControlModifier,
                              tree->visualItemRect(tree->selectedItems().first()).center());
            QVERIFY(tree->selectedItems().isEmpty());
            QVERIFY(dialog.ui->m_OKBtn->isEnabled());
            QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
        });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Count", Command::SetLink, QVariant(QStringLiteral("")));
}

void TestInt64Editor::dialogEmptyLinkListTakesLinkBranch()
{
    Script::DItem* node = makeNode("Job.T.Count", Script::DItem::IoInput, 40, 0, 100, 1);
    // No "IData.AcceptableLinks" at all reads as two empty lists.
    Int64Editor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    const DialogRun run = runDialog([&] { editor->vButtonClicked(); },
                                    [&](WidgetSetNode& dialog) {
                                        QVERIFY(dialog.ui->rbDynamicValue->isChecked());
                                        QVERIFY(!dialog.ui->rbDynamicValue->isEnabled());
                                        QVERIFY(!linkTree(dialog)->isEnabled());
                                        QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
                                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(edits, "Job.T.Count", Command::SetLink, QVariant(QStringLiteral("")));
}

void TestInt64Editor::dialogCancelSendsNothing_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("limitsEditable");
    QTest::newRow("value changed") << 0 << false;
    QTest::newRow("limits changed") << 0 << true;
    QTest::newRow("link picked") << 1 << false;
}

void TestInt64Editor::dialogCancelSendsNothing()
{
    QFETCH(int, ioType);
    QFETCH(bool, limitsEditable);
    Script::DItem* node = makeNode("Job.T.Count", static_cast<IoType>(ioType), 40, 0, 100, 1);
    node->setProperty("IDataNumeric.LimitsEditable", limitsEditable);
    addLinkTargets(node);
    Int64Editor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    int result = -1;
    const DialogRun run
        = runDialog([&] { editor->vButtonClicked(); },
                    [&](WidgetSetNode& dialog) {
                        const Ui_WidgetSetLocalInt& ui = *panelOf(dialog)->ui;
                        if (ioType == 1) {
                            QTreeWidget* tree = linkTree(dialog);
                            pickLinkTarget(dialog, QStringLiteral("Job.Camera.Out"));
                            QCOMPARE(tree->selectedItems().size(), 1);
                        } else if (limitsEditable) {
                            retype(ui.m_poMaxValueText, QStringLiteral("500"));
                        } else {
                            retype(ui.m_poValue, QStringLiteral("77"));
                        }
                        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
                        result = dialog.result();
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QCOMPARE(result, int(QDialog::Rejected));
    QCOMPARE(edits.count(), 0);
    QCOMPARE(sliderOf(editor)->value(), 40L);
}

void TestInt64Editor::showLinkWidgetPreselects()
{
    Script::DItem* node = makeNode("Job.T.Count", Script::DItem::IoInput, 40, 0, 100, 1);
    addLinkTargets(node);
    Int64Editor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    QString selected;
    const DialogRun run
        = runDialog([&] { editor->showLinkWidget(QStringLiteral("Job.Filter.Level")); },
                    [&](WidgetSetNode& dialog) {
                        const QList<QTreeWidgetItem*> items = linkTree(dialog)->selectedItems();
                        QCOMPARE(items.size(), 1);
                        selected = items.first()->data(0, Qt::UserRole).toString();
                        QVERIFY(dialog.ui->m_OKBtn->isEnabled());
                        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
                    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QCOMPARE(selected, QStringLiteral("Job.Filter.Level"));
    verifyOnlyEdit(edits, "Job.T.Count", Command::SetLink,
                   QVariant(QStringLiteral("Job.Filter.Level")));
}

void TestInt64Editor::outputWithoutEditableLimitsHasNoDialog()
{
    Script::DItem* node = makeNode("Job.T.Area", Script::DItem::IoOutput, 40, 0, 100, 1);
    Int64Editor* editor = makeEditor(node);
    QSignalSpy refresh(m_poManager.get(), &Int64PropertyManager::refreshData);
    const bool shown = runDialog([&] { editor->vButtonClicked(); }, [](WidgetSetNode&) {}).shown;
    QVERIFY(!shown);
    QCOMPARE(refresh.count(), 0);
    node->setIoType(static_cast<IoType>(3));
    const bool unknown = runDialog([&] { editor->vButtonClicked(); }, [](WidgetSetNode&) {}).shown;
    QVERIFY(!unknown);
    node->setIoType(Script::DItem::IoNone);
    const DialogRun settingRun = runDialog([&] { editor->vButtonClicked(); },
                                           [](WidgetSetNode& dialog) { dialog.reject(); });
    QVERIFY(settingRun.shown);
    QVERIFY(!settingRun.leftOpen);
}

void TestInt64Editor::editorDroppedWhileDialogRuns()
{
    Script::DItem* node = makeNode("Job.T.Count", Script::DItem::IoNone, 40, 0, 100, 1);
    Int64Editor* editor = makeEditor(node);
    QSignalSpy edits(m_poManager.get(), &Int64PropertyManager::vPropertyEdited);
    const DialogRun run = runDroppingEditor(
        [&] { editor->vButtonClicked(); },
        [](WidgetSetNode& dialog) { retype(panelOf(dialog)->ui->m_poValue, QStringLiteral("77")); },
        [&] { m_poEditor.reset(); });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QCOMPARE(edits.count(), 0);
}

QTEST_MAIN(TestInt64Editor)
#include "tst_int64editor.moc"
