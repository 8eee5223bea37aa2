#include "dialogs/widgetsetlocaldouble.h"
#include "dialogs/widgetsetnode.h"
#include "editors/doubleeditor.h"
#include "editors/scientificformatdoublespinbox.h"
#include "property_model/doubleeditorfactory.h"
#include "property_model/doublepropertymanager.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "qtbrowseritem.h"
#include "sdk/ditem.h"
#include "ui_widgetsetlocaldouble.h"
#include "ui_widgetsetnode.h"

#include "../property_model/managertestsupport.h"
#include "../propertybrowser/propertymetatype.h"
#include "editortestsupport.h"
#include "testsupport.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>
#include <QWheelEvent>

#include <cmath>
#include <limits>
#include <memory>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;
using PropertyBrowser::Editors::BaseEditor;
using PropertyBrowser::Editors::DoubleEditor;
using PropertyBrowser::Editors::ScientificFormatDoubleSpinBox;
using PropertyBrowser::Editors::WidgetSetLocalDouble;
using PropertyBrowser::Editors::WidgetSetNode;
using PropertyBrowser::Managers::DoublePropertyManager;
using Command = VardeenDefs::PropertyEditor::Command;
using IoType = Script::DItem::IoType;
using ManagerTest::verifyOnlyEdit;
using namespace EditorTestSupport;

namespace {

const double kLargest = std::numeric_limits<double>::max();
const QString kPath = QStringLiteral("Job.Blob.Threshold");

/// A manager that shows another number of decimals, for the change threshold.
class DecimalsManager : public DoublePropertyManager
{
public:
    explicit DecimalsManager(int places)
        : m_iPlaces(places)
    { }
    int decimals(QtProperty const*) const override { return m_iPlaces; }

private:
    int m_iPlaces;
};

/// Makes the open dialog hold something to send: another link target on the link page when
/// @p linkPage holds, else another value on the value page.
void changeChoice(WidgetSetNode& dialog, bool linkPage)
{
    if (linkPage) {
        pickLinkTarget(dialog, QStringLiteral("Job.Filter.Level"));
    } else {
        QTest::mouseClick(dialog.ui->rbLocalValue, Qt::LeftButton);
        WidgetSetLocalDouble* panel = localPanel<WidgetSetLocalDouble>(dialog);
        QVERIFY(panel);
        panel->ui->m_poValueText->setValue(9.0);
    }
}

void retype(QAbstractSpinBox* field, const QString& text)
{
    field->selectAll();
    QTest::keyClicks(field, text);
}

/// One double row with its node and its editor, inside a host that catches the keys the editor
/// passes on; a manager that shows @p decimals places when they are given.
struct Fixture : RowFixture<DoublePropertyManager, DoubleEditor>
{
    explicit Fixture(IoType ioType, int decimals = -1)
        : RowFixture(kPath, QStringLiteral("IDataBasicDouble"), ioType,
                     decimals < 0 ? new DoublePropertyManager : new DecimalsManager(decimals))
    {
        node.setProperty("IDataNumeric.DynamicValue", 2.5);
        node.setProperty("IDataNumeric.LocalValue", 2.5);
        node.setProperty("IDataNumeric.LocalMin", 0.0);
        node.setProperty("IDataNumeric.LocalMax", 10.0);
        node.setProperty("IDataNumeric.LocalStep", 0.5);
        node.setProperty("iIsEditable", true);
        bind(QStringLiteral("Threshold"), {"Job.Camera.Out", "Job.Filter.Level"});
    }

    ScientificFormatDoubleSpinBox* spinBox() const
    {
        return directChild<ScientificFormatDoubleSpinBox>(editor);
    }
};

} // namespace

class TestDoubleEditor : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void computeValueChanged_data();
    void computeValueChanged();
    void constructionSetsUpRow();
    void readData_data();
    void readData();
    void readDataOutputWithEditableLimits();
    void readDataStopsForOtherKinds_data();
    void readDataStopsForOtherKinds();
    void valueGoesInBeforeRange();
    void typeAndEnterCommitsOnce();
    void wheelStepCommitsOnlyWhenEditingFinishes();
    void changeBelowThresholdCommitsNothing_data();
    void changeBelowThresholdCommitsNothing();
    void disabledSpinBoxSwallowsEditingFinished();
    void readOnlySpinBoxCommitsNothing();
    void linkClickReachesManager();

    void dialogShowsNode_data();
    void dialogShowsNode();
    void dialogLocalValue();
    void dialogCommitRule_data();
    void dialogCommitRule();
    void dialogLimits_data();
    void dialogLimits();
    void dialogLinksPickedNode();
    void dialogResetClearsLink();
    void dialogCancelSendsNothing_data();
    void dialogCancelSendsNothing();
    void editorDroppedWhileDialogRuns_data();
    void editorDroppedWhileDialogRuns();
    void noDialogWithoutEditableValue_data();
    void noDialogWithoutEditableValue();
    void showLinkWidgetPreselects_data();
    void showLinkWidgetPreselects();

    void factory_data();
    void factory();
    void factoryRefusesOtherProperties();
    void editedThroughBrowser();
    void linkingWidgetThroughBrowser();
};

void TestDoubleEditor::initTestCase()
{
    initEditorTestCase();
    Script::DItem::vRegisterMetaTypes();
    qRegisterMetaType<Command>();
    qRegisterMetaType<QtProperty*>();
}

void TestDoubleEditor::cleanup()
{
    verifyNothingLeftOpen();
}

// --- change threshold ---------------------------------------------------------------------

void TestDoubleEditor::computeValueChanged_data()
{
    QTest::addColumn<double>("oldValue");
    QTest::addColumn<double>("newValue");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<bool>("changed");

    QTest::newRow("2 decimals, 0.005") << 1.0 << 1.005 << 2 << false;
    QTest::newRow("2 decimals, 0.01") << 1.0 << 1.01 << 2 << true;
    QTest::newRow("2 decimals, 0.008") << 1.0 << 1.008 << 2 << false;
    QTest::newRow("2 decimals, down by 0.005") << 1.005 << 1.0 << 2 << false;
    QTest::newRow("2 decimals, down by 0.01") << 1.01 << 1.0 << 2 << true;
    QTest::newRow("0 decimals, 0.5") << 3.0 << 3.5 << 0 << false;
    QTest::newRow("0 decimals, 0.89") << 3.0 << 3.89 << 0 << false;
    QTest::newRow("0 decimals, 0.91") << 3.0 << 3.91 << 0 << true;
    QTest::newRow("0 decimals, 1") << 3.0 << 4.0 << 0 << true;
    QTest::newRow("4 decimals, 0.00005") << 2.0 << 2.00005 << 4 << false;
    QTest::newRow("4 decimals, 0.0001") << 2.0 << 2.0001 << 4 << true;
    // Equality of the doubles would call this a change.
    QTest::newRow("rounding noise") << 0.1 + 0.2 << 0.3 << 4 << false;
    QTest::newRow("same value") << 7.25 << 7.25 << 4 << false;
    QTest::newRow("large magnitude") << 1e12 << 1e12 + 1.0 << 4 << true;
    QTest::newRow("sign change") << -0.5 << 0.5 << 4 << true;
}

void TestDoubleEditor::computeValueChanged()
{
    QFETCH(double, oldValue);
    QFETCH(double, newValue);
    QFETCH(int, decimals);
    QFETCH(bool, changed);
    QCOMPARE(PropertyBrowser::Editors::computeValueChanged(oldValue, newValue, decimals), changed);
}

// --- the row ------------------------------------------------------------------------------

void TestDoubleEditor::constructionSetsUpRow()
{
    Fixture f(Script::DItem::IoInput);
    DoubleEditor* editor = f.makeEditor();
    QCOMPARE(editor->objectName(), QStringLiteral("DoublePropertyEditor"));
    QCOMPARE(EditorPeek::typeOf(*editor), BaseEditor::TypeDouble);
    QCOMPARE(int(EditorPeek::typeOf(*editor)), 2);
    ScientificFormatDoubleSpinBox* spin = f.spinBox();
    QVERIFY(spin);
    QCOMPARE(editor->focusProxy(), static_cast<QWidget*>(spin));
    QVERIFY(!spin->hasFrame());
    QCOMPARE(spin->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(spin->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(spin->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(spin->locale(), QLocale(QLocale::English, QLocale::UnitedStates));
    QCOMPARE(spin->decimals(), 4);

    auto* layout = qobject_cast<QHBoxLayout*>(editor->layout());
    QVERIFY(layout);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins(4, 0, 0, 0));
    QCOMPARE(layout->count(), 3);
    QVERIFY(qobject_cast<QLabel*>(layout->itemAt(0)->widget()));
    QCOMPARE(layout->itemAt(1)->widget(), static_cast<QWidget*>(spin));
    QCOMPARE(layout->itemAt(2)->widget(), static_cast<QWidget*>(f.browseButton()));
    // Building the editor sends nothing.
    QCOMPARE(f.edits->count(), 0);
}

void TestDoubleEditor::readData_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("limitsEditable");
    QTest::newRow("setting") << 0 << false;
    QTest::newRow("input") << 1 << false;
    QTest::newRow("setting, limits editable") << 0 << true;
}

void TestDoubleEditor::readData()
{
    QFETCH(int, ioType);
    QFETCH(bool, limitsEditable);
    Fixture f(static_cast<IoType>(ioType));
    f.node.setProperty("IDataNumeric.DynamicValue", 1234.5);
    f.node.setProperty("IDataNumeric.LocalValue", 3.0);
    f.node.setProperty("IDataNumeric.LocalMin", -50.0);
    f.node.setProperty("IDataNumeric.LocalMax", 2000.0);
    f.node.setProperty("IDataNumeric.LocalStep", 0.25);
    f.node.setProperty("IDataNumeric.LimitsEditable", limitsEditable);
    f.makeEditor();
    ScientificFormatDoubleSpinBox* spin = f.spinBox();
    // The row shows the effective value, not the local one.
    QCOMPARE(spin->value(), 1234.5);
    QCOMPARE(spin->singleStep(), 0.25);
    QCOMPARE(spin->toolTip(), QStringLiteral("1234.5000"));
    QCOMPARE(spin->decimals(), 4);
    QCOMPARE(spin->minimum(), -50.0);
    QCOMPARE(spin->maximum(), 2000.0);
    QVERIFY(spin->isEnabled());
    QVERIFY(!spin->isReadOnly());
    QVERIFY(f.browseButton()->isEnabled());
    QCOMPARE(f.editor->mode(), BaseEditor::ModeLocal);
    QCOMPARE(f.edits->count(), 0);
}

void TestDoubleEditor::readDataOutputWithEditableLimits()
{
    Fixture f(Script::DItem::IoOutput);
    f.node.setProperty("IDataNumeric.LimitsEditable", true);
    f.node.setProperty("IDataNumeric.DynamicValue", 42.125);
    f.node.setProperty("IDataNumeric.LocalMin", 0.0);
    f.node.setProperty("IDataNumeric.LocalMax", 10.0);
    f.makeEditor();
    ScientificFormatDoubleSpinBox* spin = f.spinBox();
    QCOMPARE(spin->value(), 42.125);
    QVERIFY(spin->isReadOnly());
    QVERIFY(!spin->isEnabled());
    // The limits are what is edited here; they do not bound the output's value.
    QCOMPARE(spin->minimum(), -kLargest);
    QCOMPARE(spin->maximum(), kLargest);
    QVERIFY(f.browseButton()->isEnabled());
}

void TestDoubleEditor::readDataStopsForOtherKinds_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("limitsEditable");
    QTest::newRow("output") << 2 << false;
    QTest::newRow("unknown kind") << 3 << false;
    QTest::newRow("unknown kind, limits editable") << 3 << true;
}

void TestDoubleEditor::readDataStopsForOtherKinds()
{
    QFETCH(int, ioType);
    QFETCH(bool, limitsEditable);
    Fixture f(Script::DItem::IoInput);
    f.node.setProperty("IDataNumeric.LimitsEditable", limitsEditable);
    f.makeEditor();
    ScientificFormatDoubleSpinBox* spin = f.spinBox();
    QCOMPARE(spin->value(), 2.5);
    const QString toolTip = spin->toolTip();

    f.node.setIoType(static_cast<IoType>(ioType));
    f.node.setProperty("IDataNumeric.DynamicValue", 7.5);
    f.node.setProperty("IDataNumeric.LocalStep", 2.0);
    f.node.setProperty("IDataNumeric.LocalMax", 100.0);
    f.editor->refreshEditorData();
    QCOMPARE(spin->value(), 2.5);
    QCOMPARE(spin->singleStep(), 0.5);
    QCOMPARE(spin->maximum(), 10.0);
    QCOMPARE(spin->toolTip(), toolTip);
    QCOMPARE(f.edits->count(), 0);
}

void TestDoubleEditor::valueGoesInBeforeRange()
{
    Fixture f(Script::DItem::IoInput);
    f.makeEditor();
    ScientificFormatDoubleSpinBox* spin = f.spinBox();
    QCOMPARE(spin->maximum(), 10.0);

    // The new value meets the old range first and is clamped by it.
    f.node.setProperty("IDataNumeric.LocalMax", 100.0);
    f.node.setProperty("IDataNumeric.DynamicValue", 50.0);
    f.editor->refreshEditorData();
    QCOMPARE(spin->maximum(), 100.0);
    QCOMPARE(spin->value(), 10.0);
    // The next refresh finds the new range in place.
    f.editor->refreshEditorData();
    QCOMPARE(spin->value(), 50.0);
    QCOMPARE(f.edits->count(), 0);
}

void TestDoubleEditor::typeAndEnterCommitsOnce()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    ScientificFormatDoubleSpinBox* spin = f.spinBox();
    retype(spin, QStringLiteral("3.25"));
    // Typing alone sends nothing: there is no preview.
    QCOMPARE(f.edits->count(), 0);
    QTest::keyClick(spin, Qt::Key_Return);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, 3.25);

    // The value sent is the one now held: Enter again is no change.
    QTest::keyClick(spin, Qt::Key_Return);
    QCOMPARE(f.edits->count(), 1);
    retype(spin, QStringLiteral("4"));
    QTest::keyClick(spin, Qt::Key_Enter);
    QCOMPARE(f.edits->count(), 2);
    ManagerTest::verifyEdit(*f.edits, 1, kPath, Command::SetValue, 4.0);
}

void TestDoubleEditor::wheelStepCommitsOnlyWhenEditingFinishes()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    ScientificFormatDoubleSpinBox* spin = f.spinBox();
    const QPoint centre = spin->rect().center();
    QWheelEvent wheel(centre, spin->mapToGlobal(centre), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(spin, &wheel);
    QCOMPARE(spin->value(), 3.0);
    QCOMPARE(f.edits->count(), 0);
    QTest::keyClick(spin, Qt::Key_Return);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, 3.0);
}

void TestDoubleEditor::changeBelowThresholdCommitsNothing_data()
{
    QTest::addColumn<int>("decimals");
    QTest::addColumn<double>("localValue");
    QTest::addColumn<double>("shown");
    QTest::addColumn<bool>("commits");

    // The held value is the local one, the spin box shows the effective one: Enter sends the
    // shown value when the two differ by enough.
    QTest::newRow("2 decimals, 0.005") << 2 << 1.005 << 1.0 << false;
    QTest::newRow("2 decimals, 0.01") << 2 << 1.01 << 1.0 << true;
    QTest::newRow("0 decimals, 0.5") << 0 << 3.5 << 3.0 << false;
    QTest::newRow("0 decimals, 1") << 0 << 4.0 << 3.0 << true;
    QTest::newRow("4 decimals, 0.00005") << 4 << 2.00005 << 2.0 << false;
    QTest::newRow("4 decimals, 0.0001") << 4 << 2.0001 << 2.0 << true;
}

void TestDoubleEditor::changeBelowThresholdCommitsNothing()
{
    QFETCH(int, decimals);
    QFETCH(double, localValue);
    QFETCH(double, shown);
    QFETCH(bool, commits);

    Fixture f(Script::DItem::IoInput, decimals);
    f.node.setProperty("IDataNumeric.LocalValue", localValue);
    f.node.setProperty("IDataNumeric.DynamicValue", shown);
    f.showEditor();
    QCOMPARE(f.spinBox()->decimals(), decimals);
    QCOMPARE(f.spinBox()->value(), shown);
    QTest::keyClick(f.spinBox(), Qt::Key_Return);
    if (commits)
        verifyOnlyEdit(*f.edits, kPath, Command::SetValue, shown);
    else
        QCOMPARE(f.edits->count(), 0);
}

void TestDoubleEditor::disabledSpinBoxSwallowsEditingFinished()
{
    Fixture f(Script::DItem::IoInput);
    f.makeEditor();
    ScientificFormatDoubleSpinBox* spin = f.spinBox();
    spin->setValue(6.0);
    spin->setEnabled(false);
    emit spin->editingFinished();
    QCOMPARE(f.edits->count(), 0);
    // The same signal from an enabled box sends.
    spin->setEnabled(true);
    emit spin->editingFinished();
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, 6.0);
}

void TestDoubleEditor::readOnlySpinBoxCommitsNothing()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    ScientificFormatDoubleSpinBox* spin = f.spinBox();
    spin->setValue(6.0);
    spin->setReadOnly(true);
    QTest::keyClick(spin, Qt::Key_Return);
    QCOMPARE(f.edits->count(), 0);
    spin->setReadOnly(false);
    QTest::keyClick(spin, Qt::Key_Return);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, 6.0);
}

void TestDoubleEditor::linkClickReachesManager()
{
    Fixture f(Script::DItem::IoInput);
    f.link(QStringLiteral("Job.Camera.Out"));
    f.makeEditor();
    QCOMPARE(f.editor->mode(), BaseEditor::ModeLinked);
    QSignalSpy clicks(f.manager.get(), &DoublePropertyManager::linkClicked);
    auto* label = directChild<QLabel>(f.editor);
    QVERIFY(label);
    emit label->linkActivated(QStringLiteral("Job.Camera.Out"));
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(clicks.at(0).at(0).toString(), QStringLiteral("Job.Camera.Out"));
    QCOMPARE(f.edits->count(), 0);
}

// --- the value dialog ---------------------------------------------------------------------

void TestDoubleEditor::dialogShowsNode_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("limitsEditable");
    QTest::addColumn<bool>("errorState");
    QTest::newRow("setting") << 0 << false << false;
    QTest::newRow("input") << 1 << false << false;
    QTest::newRow("setting, limits editable") << 0 << true << false;
    QTest::newRow("output, limits editable") << 2 << true << false;
    QTest::newRow("output in error, limits editable") << 2 << true << true;
}

void TestDoubleEditor::dialogShowsNode()
{
    QFETCH(int, ioType);
    QFETCH(bool, limitsEditable);
    QFETCH(bool, errorState);

    Fixture f(static_cast<IoType>(ioType));
    f.node.setProperty("IDataNumeric.LimitsEditable", limitsEditable);
    // The row shows the same value, so that its spin box losing the focus is no change.
    f.node.setProperty("IDataNumeric.DynamicValue", 12.5);
    f.node.setProperty("IDataNumeric.LocalValue", 12.5);
    f.node.setProperty("IDataNumeric.LocalMin", -5.0);
    f.node.setProperty("IDataNumeric.LocalMax", 20.0);
    f.node.setProperty("IDataNumeric.LocalStep", 0.75);
    f.node.setProperty("IData.LinksToMe", QStringList({"Job.Other.Gain", "Job.Next.Offset"}));
    f.node.setErrorState(errorState);
    f.showEditor();
    QSignalSpy refreshes(f.manager.get(), &DoublePropertyManager::refreshData);

    const bool output = ioType == 2;
    const bool input = ioType == 1;
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Threshold"));
        QCOMPARE(dialog.parentWidget(), static_cast<QWidget*>(f.editor));
        QCOMPARE(refreshes.count(), 1);
        QCOMPARE(refreshes.at(0).at(0).toString(), kPath);
        QCOMPARE(dialog.ui->grpNodeValueType->isVisible(), input);
        QCOMPARE(dialog.ui->rbDynamicValue->isChecked(), input);
        QCOMPARE(dialog.ui->rbLocalValue->isChecked(), !input);
        WidgetSetLocalDouble* panel = localPanel<WidgetSetLocalDouble>(dialog);
        QVERIFY(panel);
        const Ui_WidgetSetLocalDouble& ui = *panel->ui;
        const QLocale english(QLocale::English, QLocale::UnitedStates);

        QCOMPARE(ui.m_poValueText->minimum(), output ? -kLargest : -5.0);
        QCOMPARE(ui.m_poValueText->maximum(), output ? kLargest : 20.0);
        QCOMPARE(ui.m_poValueText->decimals(), 4);
        QCOMPARE(ui.m_poValueText->singleStep(), 0.75);
        QCOMPARE(ui.m_poValueText->value(), 12.5);
        QCOMPARE(ui.m_poValueText->locale(), english);
        QCOMPARE(ui.m_poValueText->isEnabled(), !limitsEditable);
        QCOMPARE(ui.m_poValueText->isVisibleTo(panel), !errorState);
        QCOMPARE(ui.m_ErrorLabel->isVisibleTo(panel), errorState);
        QCOMPARE(ui.m_ErrorLabel->text().contains(QStringLiteral("Error")), errorState);

        QCOMPARE(ui.m_poLblActual->text(), QStringLiteral("Actual Threshold"));
        QCOMPARE(ui.m_poLblStep->text(), QStringLiteral("Step Threshold"));
        QCOMPARE(ui.m_poLblMinValue->text(), QStringLiteral("Minimal Threshold"));
        QCOMPARE(ui.m_poLblMaxValue->text(), QStringLiteral("Maximal Threshold"));
        QCOMPARE(ui.m_poStepText->decimals(), 4);
        QCOMPARE(ui.m_poStepText->value(), 0.75);
        QCOMPARE(ui.m_poStepText->locale(), english);
        for (QDoubleSpinBox* field : {static_cast<QDoubleSpinBox*>(ui.m_poMinValueText),
                                      static_cast<QDoubleSpinBox*>(ui.m_poMaxValueText)}) {
            QCOMPARE(field->minimum(), -kLargest);
            QCOMPARE(field->maximum(), kLargest);
            QCOMPARE(field->decimals(), 4);
            QCOMPARE(field->locale(), english);
            QCOMPARE(field->isEnabled(), limitsEditable);
            QCOMPARE(field->isReadOnly(), !limitsEditable);
        }
        QCOMPARE(ui.m_poMinValueText->value(), -5.0);
        QCOMPARE(ui.m_poMaxValueText->value(), 20.0);
        QCOMPARE(ui.m_poLblLinkedTo->text(), QStringLiteral("Linked To: Gain, Offset"));
        // The evaluated result shows only for an output whose limits are edited, and not while
        // the output is in error.
        const bool evaluation = output && limitsEditable && !errorState;
        QCOMPARE(ui.m_poLblEvaluatedResult->text(),
                 evaluation ? QStringLiteral("Evaluated Result") : QString());
        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QCOMPARE(f.edits->count(), 0);
}

void TestDoubleEditor::dialogLocalValue()
{
    Fixture f(Script::DItem::IoNone);
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QVERIFY(dialog.ui->grpNodeValueType->isHidden());
        WidgetSetLocalDouble* panel = localPanel<WidgetSetLocalDouble>(dialog);
        QVERIFY(panel);
        retype(panel->ui->m_poValueText, QStringLiteral("6.5"));
        QCOMPARE(panel->ui->m_poValueText->value(), 6.5);
        QVERIFY(dialog.ui->m_OKBtn->isEnabled());
        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetValue, 6.5);
}

void TestDoubleEditor::dialogCommitRule_data()
{
    QTest::addColumn<bool>("linked");
    QTest::addColumn<double>("localValue");
    QTest::addColumn<double>("chosen");
    QTest::addColumn<bool>("sends");

    QTest::newRow("unlinked, same value") << false << 2.5 << 2.5 << false;
    QTest::newRow("unlinked, below the threshold") << false << 2.50004 << 2.5 << false;
    QTest::newRow("unlinked, other value") << false << 2.5 << 7.0 << true;
    // The same value on a linked node replaces the link.
    QTest::newRow("linked, same value") << true << 2.5 << 2.5 << true;
    QTest::newRow("linked, other value") << true << 2.5 << 7.0 << true;
}

void TestDoubleEditor::dialogCommitRule()
{
    QFETCH(bool, linked);
    QFETCH(double, localValue);
    QFETCH(double, chosen);
    QFETCH(bool, sends);

    Fixture f(Script::DItem::IoInput);
    if (linked)
        f.link(QStringLiteral("Job.Camera.Out"));
    f.node.setProperty("IDataNumeric.LocalValue", localValue);
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        // An input opens on its link page.
        QVERIFY(dialog.ui->rbDynamicValue->isChecked());
        QTest::mouseClick(dialog.ui->rbLocalValue, Qt::LeftButton);
        QVERIFY(dialog.ui->rbLocalValue->isChecked());
        WidgetSetLocalDouble* panel = localPanel<WidgetSetLocalDouble>(dialog);
        QVERIFY(panel);
        panel->ui->m_poValueText->setValue(chosen);
        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    if (sends)
        verifyOnlyEdit(*f.edits, kPath, Command::SetValue, chosen);
    else
        QCOMPARE(f.edits->count(), 0);
}

void TestDoubleEditor::dialogLimits_data()
{
    QTest::addColumn<int>("ioType");
    QTest::newRow("setting") << 0;
    QTest::newRow("output") << 2;
}

void TestDoubleEditor::dialogLimits()
{
    QFETCH(int, ioType);
    Fixture f(static_cast<IoType>(ioType));
    f.node.setProperty("IDataNumeric.LimitsEditable", true);
    f.node.setProperty("iIsEditable", false);
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        WidgetSetLocalDouble* panel = localPanel<WidgetSetLocalDouble>(dialog);
        QVERIFY(panel);
        QVERIFY(!panel->ui->m_poValueText->isEnabled());
        retype(panel->ui->m_poMinValueText, QStringLiteral("1.5"));
        retype(panel->ui->m_poMaxValueText, QStringLiteral("8"));
        QCOMPARE(panel->ui->m_poMinValueText->value(), 1.5);
        QCOMPARE(panel->ui->m_poMaxValueText->value(), 8.0);
        QTRY_VERIFY(dialog.ui->m_OKBtn->isEnabled());
        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetLimits, limits(1.5, 8.0));
    QCOMPARE(f.edits->at(0).at(2).toMap().value(QStringLiteral("Min")).userType(),
             int(QMetaType::Double));
}

void TestDoubleEditor::dialogLinksPickedNode()
{
    Fixture f(Script::DItem::IoInput);
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QVERIFY(dialog.ui->rbDynamicValue->isChecked());
        QVERIFY(dialog.ui->rbDynamicValue->isEnabled());
        QTreeWidget* tree = linkTree(dialog);
        QVERIFY(tree);
        QVERIFY(tree->isEnabled());
        QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
        pickLinkTarget(dialog, QStringLiteral("Job.Filter.Level"));
        QVERIFY(dialog.ui->m_OKBtn->isEnabled());
        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetLink, QStringLiteral("Job.Filter.Level"));
}

void TestDoubleEditor::dialogResetClearsLink()
{
    Fixture f(Script::DItem::IoInput);
    f.link(QStringLiteral("Job.Camera.Out"));
    f.showEditor();
    const DialogRun run = f.clickBrowse([&](WidgetSetNode& dialog) {
        QTreeWidget* tree = linkTree(dialog);
        QVERIFY(tree);
        QCOMPARE(tree->selectedItems().size(), 1);
        QCOMPARE(tree->selectedItems().first()->data(0, Qt::UserRole).toString(),
                 QStringLiteral("Job.Camera.Out"));
        QVERIFY(dialog.ui->m_ResetBtn->isVisible());
        QVERIFY(dialog.ui->m_ResetBtn->isEnabled());
        QTest::mouseClick(dialog.ui->m_ResetBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetLink, QStringLiteral(""));
}

void TestDoubleEditor::dialogCancelSendsNothing_data()
{
    addChoiceRows("value changed");
}

void TestDoubleEditor::dialogCancelSendsNothing()
{
    QFETCH(bool, linkPage);
    verifyCancelSendsNothing<Fixture>(QStringLiteral("Job.Camera.Out"), [&](WidgetSetNode& dialog) {
        changeChoice(dialog, linkPage);
    });
}

void TestDoubleEditor::editorDroppedWhileDialogRuns_data()
{
    addChoiceRows("value changed");
}

void TestDoubleEditor::editorDroppedWhileDialogRuns()
{
    QFETCH(bool, linkPage);
    verifyEditorDroppedWhileDialogRuns<Fixture>(
        QStringLiteral("Job.Camera.Out"),
        [&](WidgetSetNode& dialog) { changeChoice(dialog, linkPage); });
}

void TestDoubleEditor::noDialogWithoutEditableValue_data()
{
    QTest::addColumn<int>("ioType");
    QTest::addColumn<bool>("limitsEditable");
    QTest::newRow("output") << 2 << false;
    QTest::newRow("unknown kind") << 3 << true;
}

void TestDoubleEditor::noDialogWithoutEditableValue()
{
    QFETCH(int, ioType);
    QFETCH(bool, limitsEditable);
    Fixture f(static_cast<IoType>(ioType));
    f.node.setProperty("IDataNumeric.LimitsEditable", limitsEditable);
    f.showEditor();
    QSignalSpy refreshes(f.manager.get(), &DoublePropertyManager::refreshData);
    // The click reaches the button: the editor itself opens no dialog.
    QVERIFY(f.browseButton()->isVisible());
    QVERIFY(f.browseButton()->isEnabled());
    const DialogRun run = f.clickBrowse(
        [](WidgetSetNode& dialog) { QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton); });
    QVERIFY(!run.shown);
    QCOMPARE(refreshes.count(), 0);
    QCOMPARE(f.edits->count(), 0);
}

void TestDoubleEditor::showLinkWidgetPreselects_data()
{
    QTest::addColumn<QString>("linkedPath");
    QTest::addColumn<QString>("selected");
    QTest::newRow("unlinked") << QString() << QStringLiteral("Job.Filter.Level");
    // The node's own link wins over the path asked for.
    QTest::newRow("linked") << QStringLiteral("Job.Camera.Out") << QStringLiteral("Job.Camera.Out");
}

void TestDoubleEditor::showLinkWidgetPreselects()
{
    QFETCH(QString, linkedPath);
    QFETCH(QString, selected);
    Fixture f(Script::DItem::IoInput);
    if (!linkedPath.isEmpty())
        f.link(linkedPath);
    f.showEditor();
    const DialogRun run = runDialog(
        [&] { f.editor->showLinkWidget(QStringLiteral("Job.Filter.Level")); },
        [&](WidgetSetNode& dialog) {
            QVERIFY(dialog.ui->rbDynamicValue->isChecked());
            QTreeWidget* tree = linkTree(dialog);
            QVERIFY(tree);
            QCOMPARE(tree->selectedItems().size(), 1);
            QCOMPARE(tree->selectedItems().first()->data(0, Qt::UserRole).toString(), selected);
            QVERIFY(dialog.ui->m_OKBtn->isEnabled());
            QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
        });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    verifyOnlyEdit(*f.edits, kPath, Command::SetLink, selected);
}

// --- the factory --------------------------------------------------------------------------

void TestDoubleEditor::factory_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("editable");
    QTest::addColumn<bool>("limits");
    QTest::addColumn<bool>("editor");
    QTest::newRow("editable") << 0 << true << false << true;
    QTest::newRow("limits editable") << 0 << false << true << true;
    QTest::newRow("both") << 0 << true << true << true;
    QTest::newRow("neither") << 0 << false << false << false;
    QTest::newRow("editing blocked only") << 0x1000 << true << false << true;
    QTest::newRow("locked only") << 0x1 << false << true << true;
    QTest::newRow("no editing in this mode") << 0x1001 << true << true << false;
    QTest::newRow("no editing in this mode, limits only") << 0x1001 << false << true << false;
}

void TestDoubleEditor::factory()
{
    QFETCH(int, mode);
    QFETCH(bool, editable);
    QFETCH(bool, limits);
    QFETCH(bool, editor);

    std::unique_ptr<WTreePropertyBrowser> browser(new WTreePropertyBrowser(nullptr));
    browser->onProjectModeChanged(mode);
    Fixture f(Script::DItem::IoInput);
    f.node.setProperty("iIsEditable", editable);
    f.node.setProperty("IDataNumeric.LimitsEditable", limits);
    PropertyBrowser::EditorFactories::DoubleEditorFactory factory;
    factory.addPropertyManager(f.manager.get());
    QWidget parent;
    std::unique_ptr<QWidget> made(factory.createEditor(f.row, &parent));
    QCOMPARE(made != nullptr, editor);
    if (made) {
        auto* doubleEditor = qobject_cast<DoubleEditor*>(made.get());
        QVERIFY(doubleEditor);
        QCOMPARE(made->parentWidget(), &parent);
        QCOMPARE(EditorPeek::typeOf(*doubleEditor), BaseEditor::TypeDouble);
    } else {
        QVERIFY(parent.findChildren<QWidget*>().isEmpty());
    }
}

void TestDoubleEditor::factoryRefusesOtherProperties()
{
    verifyFactoryRefusesOtherProperties<PropertyBrowser::EditorFactories::DoubleEditorFactory,
                                        QtDoublePropertyManager, Fixture>();
}

void TestDoubleEditor::editedThroughBrowser()
{
    clearBrowserSettings();
    Script::DItem node(kPath, QStringLiteral("IDataBasicDouble"), Script::DItem::IoInput);
    showInTree(node, QStringLiteral("Threshold"));
    node.setProperty("IDataNumeric.DynamicValue", 2.5);
    node.setProperty("IDataNumeric.LocalValue", 2.5);
    node.setProperty("IDataNumeric.LocalMax", 10.0);
    std::unique_ptr<WTreePropertyBrowser> browser(newBrowser());
    WidgetProperty* row = browser->createPropertyItem(node, true);
    QVERIFY(row);
    QSignalSpy edits(browser.get(), &WTreePropertyBrowser::propertyEdited);
    QSignalSpy editing(browser.get(), &WTreePropertyBrowser::editing);
    browser->show();
    QVERIFY(QTest::qWaitForWindowExposed(browser.get()));

    auto* editor = openEditorInTree<DoubleEditor>(*browser, row);
    QVERIFY(editor);
    QTRY_COMPARE(WTreePropertyBrowser::propertyEditWidget, static_cast<BaseEditor*>(editor));
    QCOMPARE(editing.count(), 1);
    auto* spin = editor->findChild<ScientificFormatDoubleSpinBox*>();
    retype(spin, QStringLiteral("7.75"));
    QTest::keyClick(spin, Qt::Key_Return);
    QCOMPARE(edits.count(), 1);
    ManagerTest::verifyEdit(edits, 0, kPath, Command::SetValue, 7.75);
    browser.reset();
    QVERIFY(!WTreePropertyBrowser::propertyEditWidget);
}

void TestDoubleEditor::linkingWidgetThroughBrowser()
{
    clearBrowserSettings();
    Fixture links(Script::DItem::IoInput);
    Script::DItem node(kPath, QStringLiteral("IDataBasicDouble"), Script::DItem::IoInput);
    showInTree(node, QStringLiteral("Threshold"));
    node.setProperty("IData.AcceptableLinks", links.node.property("IData.AcceptableLinks"));
    std::unique_ptr<WTreePropertyBrowser> browser(newBrowser());
    WidgetProperty* row = browser->createPropertyItem(node, true);
    QVERIFY(row);
    QSignalSpy edits(browser.get(), &WTreePropertyBrowser::propertyEdited);
    browser->show();
    QVERIFY(QTest::qWaitForWindowExposed(browser.get()));

    // The browser opens an editor only to carry the dialog, with the path asked for preselected.
    QWidget parent;
    const DialogRun run = runDialog(
        [&] { browser->showLinkingwidget(row, &parent, QStringLiteral("Job.Camera.Out")); },
        [&](WidgetSetNode& dialog) {
            QVERIFY(dialog.ui->rbDynamicValue->isChecked());
            QTreeWidget* tree = linkTree(dialog);
            QVERIFY(tree);
            QCOMPARE(tree->selectedItems().size(), 1);
            QCOMPARE(tree->selectedItems().first()->data(0, Qt::UserRole).toString(),
                     QStringLiteral("Job.Camera.Out"));
            QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
        });
    QVERIFY(run.shown);
    QVERIFY(!run.leftOpen);
    QCOMPARE(edits.count(), 1);
    ManagerTest::verifyEdit(edits, 0, kPath, Command::SetLink, QStringLiteral("Job.Camera.Out"));
    QVERIFY(parent.findChildren<DoubleEditor*>().isEmpty());
    browser.reset();
}

QTEST_MAIN(TestDoubleEditor)
#include "tst_doubleeditor.moc"
