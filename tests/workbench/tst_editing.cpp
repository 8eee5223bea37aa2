#include "hostsettings.h"
#include "jobmodel.h"
#include "testsupport.h"
#include "workbenchwindow.h"

#include "editors/baseeditor.h"
#include "navigator/widgettree.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "sdk/ditem.h"
#include "sdk/wappsetting.h"
#include "sdk/wappsettings.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <functional>
#include <memory>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;

namespace {

const int kEditRequest = 34;
// The commands of an edit, as the host reads them.
const int kSetLink = 1;
const int kSetValue = 4;
const int kSetLimits = 5;

/// One edit request as the host received it: path, command, parameters, preview.
struct Edit
{
    QString path;
    int command;
    QVariant params;
    bool preview;
};

} // namespace

/// Whole edits from the dock to the host and back, with the plug-in loaded from its file as
/// the host loads it: a press on a row's value opens its editor, the user's input leaves as
/// exactly one request, the host applies it, and the row and the open editor show the result.
class TestEditing : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void integerTypedAndEntered();
    void int64SteppedByTheWheel();
    void doubleTypedAndEntered();
    void boolToggled();
    void enumChosenByKey();
    void sameTextSendsNothing();
    void dialogSetsALocalValue();
    void dialogSetsLimits();
    void dialogLinksAPickedNode();
    void resetClearsALink();
    void cancelSendsNothing();

private:
    QWidget* openEditor(const QString& path, const char* objectName);
    // Opens the value dialog of the open editor by its browse button and runs @p steps in it;
    // the steps are to end it.
    TestSupport::ModalRun runDialog(QWidget* editor, const std::function<void(QDialog&)>& steps);
    QVariant nodeValue(const QString& path, const char* key) const;
    WTreePropertyBrowser& browser() const;

    QTemporaryDir m_oFolder;
    std::unique_ptr<WorkbenchWindow> m_poWindow;
    QList<Edit> m_lEdits;
};

void TestEditing::initTestCase()
{
    TestSupport::failOnWarnings();
    QVERIFY(m_oFolder.isValid());
    openHostSettings(m_oFolder, false)->setValueOf(QStringLiteral("SplitterPos"), 150);
}

void TestEditing::init()
{
    m_lEdits.clear();
    m_poWindow = std::make_unique<WorkbenchWindow>();
    QString error;
    QVERIFY2(m_poWindow->bLoadPlugin(QStringLiteral(PLUGIN_PATH), &error), qPrintable(error));
    QVERIFY2(m_poWindow->bOpenJob(WorkbenchWindow::sSampleJobPath(), &error), qPrintable(error));
    // Listens beside the host, which answers first.
    connect(
        m_poWindow->poNavigator(), &WidgetTree::treeReq, this,
        [this](WRequest<QVariant> request, QVariant&) {
            if (request.id != kEditRequest)
                return;
            const QVariantList values
                = request.empty() ? QVariantList() : request.front().first.toList();
            m_lEdits.append({values.value(0).toString(), values.value(1).toInt(), values.value(2),
                             values.value(3).toBool()});
        },
        Qt::DirectConnection);
    m_poWindow->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_poWindow.get()));
}

void TestEditing::cleanup()
{
    m_poWindow.reset();
    QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
}

WTreePropertyBrowser& TestEditing::browser() const
{
    return *m_poWindow->poNavigator()->findChild<WTreePropertyBrowser*>();
}

QVariant TestEditing::nodeValue(const QString& path, const char* key) const
{
    const Script::DItem* node = m_poWindow->model().poNode(path);
    return node ? node->property(key) : QVariant();
}

QWidget* TestEditing::openEditor(const QString& path, const char* objectName)
{
    if (!m_poWindow->bSelectNode(path.section('.', 0, 1)))
        return nullptr;
    auto* view = browser().findChild<QAbstractItemView*>();
    const int row = browser().getPropertyPaths().indexOf(path);
    if (!view || row < 0)
        return nullptr;
    const QRect cell = view->visualRect(view->model()->index(row, 1));
    // Left of the browse button, where the value stands.
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, cell.topLeft() + QPoint(20, 8));
    auto* editor
        = view->findChild<PropertyBrowser::Editors::BaseEditor*>(QLatin1String(objectName));
    // The editor reports itself a moment after it opened; only then do refreshes reach it.
    if (editor && !QTest::qWaitFor([editor] {
            return WTreePropertyBrowser::propertyEditWidget == editor;
        }))
        return nullptr;
    return editor;
}

TestSupport::ModalRun TestEditing::runDialog(QWidget* editor,
                                             const std::function<void(QDialog&)>& steps)
{
    QPushButton* browse = editor->findChild<QPushButton*>();
    if (!browse)
        return {};
    return TestSupport::runModal([browse] { QTest::mouseClick(browse, Qt::LeftButton); },
                                 [&steps](QDialog& dialog) {
                                     QCOMPARE(dialog.objectName(), QStringLiteral("WidgetSetNode"));
                                     steps(dialog);
                                 });
}

void TestEditing::integerTypedAndEntered()
{
    const QString path = QStringLiteral("Module Application.ImageFilter.Iterations");
    QWidget* editor = openEditor(path, "IntPropertyEditor");
    QVERIFY(editor);
    auto* line = editor->findChild<QLineEdit*>();
    QCOMPARE(line->text(), QStringLiteral("1"));
    line->selectAll();
    QTest::keyClicks(line, QStringLiteral("7"));
    QVERIFY(m_lEdits.isEmpty());
    QTest::keyClick(line, Qt::Key_Return);

    QCOMPARE(m_lEdits.size(), 1);
    QCOMPARE(m_lEdits.first().path, path);
    QCOMPARE(m_lEdits.first().command, kSetValue);
    QCOMPARE(m_lEdits.first().params, QVariant(7));
    QCOMPARE(m_lEdits.first().preview, false);
    QCOMPARE(nodeValue(path, "IDataNumeric.LocalValue"), QVariant(7));
    QCOMPARE(browser().getWProperty(path)->valueText(), QStringLiteral("7"));
    QCOMPARE(line->text(), QStringLiteral("7"));
}

void TestEditing::int64SteppedByTheWheel()
{
    const QString path = QStringLiteral("Module Application.Measurement.Counter");
    QWidget* editor = openEditor(path, "Int64PropertyEditor");
    QVERIFY(editor);
    QWidget* slider = editor->findChild<QSlider*>();
    QVERIFY(slider);
    const QPoint centre = slider->rect().center();
    QWheelEvent wheel(centre, slider->mapToGlobal(centre), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(slider, &wheel);

    QCOMPARE(m_lEdits.size(), 1);
    QCOMPARE(m_lEdits.first().command, kSetValue);
    QCOMPARE(m_lEdits.first().params.userType(), int(QMetaType::LongLong));
    // One widget step over the whole 64-bit range is a large step of the value.
    const qlonglong sent = m_lEdits.first().params.toLongLong();
    QVERIFY(sent > std::numeric_limits<qlonglong>::min());
    QCOMPARE(nodeValue(path, "IDataNumeric.LocalValue").toLongLong(), sent);
    QCOMPARE(editor->findChild<QLineEdit*>()->text(), browser().getWProperty(path)->valueText());
}

void TestEditing::doubleTypedAndEntered()
{
    const QString path = QStringLiteral("Module Application.Camera.Gain");
    QWidget* editor = openEditor(path, "DoublePropertyEditor");
    QVERIFY(editor);
    auto* spin = editor->findChild<QDoubleSpinBox*>();
    QCOMPARE(spin->value(), 2.5);
    spin->selectAll();
    QTest::keyClicks(spin, QStringLiteral("3.75"));
    QVERIFY(m_lEdits.isEmpty());
    QTest::keyClick(spin, Qt::Key_Return);

    QCOMPARE(m_lEdits.size(), 1);
    QCOMPARE(m_lEdits.first().command, kSetValue);
    QCOMPARE(m_lEdits.first().params, QVariant(3.75));
    QCOMPARE(nodeValue(path, "IDataNumeric.LocalValue").toDouble(), 3.75);
    QCOMPARE(browser().getWProperty(path)->valueText(), QStringLiteral("3.7500"));
    QCOMPARE(spin->value(), 3.75);
}

void TestEditing::boolToggled()
{
    const QString path = QStringLiteral("Module Application.Camera.Flip");
    QWidget* editor = openEditor(path, "BoolPropertyEditor");
    QVERIFY(editor);
    auto* box = editor->findChild<QCheckBox*>();
    QVERIFY(!box->isChecked());
    // On the box itself, at the left end of the cell.
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    // The commit follows a moment later.
    QVERIFY(m_lEdits.isEmpty());
    QTRY_COMPARE(m_lEdits.size(), 1);
    QCOMPARE(m_lEdits.first().command, kSetValue);
    QCOMPARE(m_lEdits.first().params, QVariant(true));
    QCOMPARE(nodeValue(path, "IDataBasicBool.LocalValue"), QVariant(true));
    QVERIFY(box->isChecked());
}

void TestEditing::enumChosenByKey()
{
    const QString path = QStringLiteral("Module Application.Camera.TriggerMode");
    QWidget* editor = openEditor(path, "EnumPropertyEditor");
    QVERIFY(editor);
    auto* combo = editor->findChild<QComboBox*>();
    QCOMPARE(combo->currentText(), QStringLiteral("Hardware"));
    QTest::keyClick(combo, Qt::Key_Down);

    QCOMPARE(m_lEdits.size(), 1);
    QCOMPARE(m_lEdits.first().command, kSetValue);
    QCOMPARE(m_lEdits.first().params, QVariant(QStringLiteral("Software")));
    QCOMPARE(nodeValue(path, "IDataBasicEnum.LocalStringnifiedValue"),
             QVariant(QStringLiteral("Software")));
    QCOMPARE(browser().getWProperty(path)->valueText(), QStringLiteral("Software"));
    QCOMPARE(combo->currentText(), QStringLiteral("Software"));
}

void TestEditing::sameTextSendsNothing()
{
    const QString path = QStringLiteral("Module Application.ImageFilter.Iterations");
    QWidget* editor = openEditor(path, "IntPropertyEditor");
    QVERIFY(editor);
    auto* line = editor->findChild<QLineEdit*>();
    line->selectAll();
    QTest::keyClicks(line, QStringLiteral("1"));
    QTest::keyClick(line, Qt::Key_Return);
    QVERIFY(m_lEdits.isEmpty());
}

void TestEditing::dialogSetsALocalValue()
{
    const QString path = QStringLiteral("Module Application.Camera.Gain");
    QWidget* editor = openEditor(path, "DoublePropertyEditor");
    QVERIFY(editor);
    const TestSupport::ModalRun run = runDialog(editor, [](QDialog& dialog) {
        dialog.findChild<QRadioButton*>(QStringLiteral("rbLocalValue"))->setChecked(true);
        dialog.findChild<QDoubleSpinBox*>(QStringLiteral("m_poValueText"))->setValue(6.5);
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("m_OKBtn")),
                          Qt::LeftButton);
    });
    QVERIFY(run.shown && !run.leftOpen);
    QCOMPARE(m_lEdits.size(), 1);
    QCOMPARE(m_lEdits.first().command, kSetValue);
    QCOMPARE(m_lEdits.first().params, QVariant(6.5));
    QCOMPARE(nodeValue(path, "IDataNumeric.LocalValue").toDouble(), 6.5);
    QCOMPARE(editor->findChild<QDoubleSpinBox*>()->value(), 6.5);
}

void TestEditing::dialogSetsLimits()
{
    // The tolerance of a measurement: its row shows the measured value read only, and its
    // dialog edits the limits that the value must keep.
    const QString path = QStringLiteral("Module Application.Measurement.Tolerance");
    QWidget* editor = openEditor(path, "DoublePropertyEditor");
    QVERIFY(editor);
    QVERIFY(editor->findChild<QDoubleSpinBox*>()->isReadOnly());
    const TestSupport::ModalRun run = runDialog(editor, [](QDialog& dialog) {
        QVERIFY(dialog.findChild<QRadioButton*>(QStringLiteral("rbLocalValue"))->isChecked());
        QVERIFY(!dialog.findChild<QWidget*>(QStringLiteral("m_poValueText"))->isEnabled());
        auto* minimum = dialog.findChild<QDoubleSpinBox*>(QStringLiteral("m_poMinValueText"));
        auto* maximum = dialog.findChild<QDoubleSpinBox*>(QStringLiteral("m_poMaxValueText"));
        QVERIFY(minimum->isEnabled() && !minimum->isReadOnly());
        minimum->setValue(0.05);
        maximum->setValue(0.15);
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("m_OKBtn")),
                          Qt::LeftButton);
    });
    QVERIFY(run.shown && !run.leftOpen);
    QCOMPARE(m_lEdits.size(), 1);
    QCOMPARE(m_lEdits.first().command, kSetLimits);
    QCOMPARE(nodeValue(path, "IDataNumeric.LocalMin").toDouble(), 0.05);
    QCOMPARE(nodeValue(path, "IDataNumeric.LocalMax").toDouble(), 0.15);
}

void TestEditing::dialogLinksAPickedNode()
{
    const QString path = QStringLiteral("Module Application.Camera.Gain");
    const QString target = QStringLiteral("Module Application.Locator.Score");
    QWidget* editor = openEditor(path, "DoublePropertyEditor");
    QVERIFY(editor);
    const TestSupport::ModalRun run = runDialog(editor, [&target](QDialog& dialog) {
        // An input opens on its link page.
        QVERIFY(dialog.findChild<QRadioButton*>(QStringLiteral("rbDynamicValue"))->isChecked());
        auto* tree = dialog.findChild<QTreeWidget*>(QStringLiteral("m_poTreeWidget"));
        QTreeWidgetItem* item = nullptr;
        for (QTreeWidgetItemIterator it(tree); *it && !item; ++it) {
            if ((*it)->childCount() == 0 && (*it)->data(0, Qt::UserRole).toString() == target)
                item = *it;
        }
        QVERIFY(item);
        tree->setCurrentItem(item);
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("m_OKBtn")),
                          Qt::LeftButton);
    });
    QVERIFY(run.shown && !run.leftOpen);
    QCOMPARE(m_lEdits.size(), 1);
    QCOMPARE(m_lEdits.first().command, kSetLink);
    QCOMPARE(m_lEdits.first().params, QVariant(target));
    const Script::DItem* node = m_poWindow->model().poNode(path);
    QVERIFY(node->isLinked());
    QCOMPARE(node->linkedPath(), target);
    // The node takes the linked value, and the row names the node it follows.
    QCOMPARE(nodeValue(path, "IDataNumeric.DynamicValue"),
             nodeValue(target, "IDataNumeric.DynamicValue"));
    QCOMPARE(browser().getWProperty(path)->valueText(), QStringLiteral("Score"));
}

void TestEditing::resetClearsALink()
{
    const QString path = QStringLiteral("Module Application.Measurement.OcrConfidence");
    QVERIFY(m_poWindow->model().poNode(path)->isLinked());
    QWidget* editor = openEditor(path, "DoublePropertyEditor");
    QVERIFY(editor);
    bool linkSelected = false;
    const TestSupport::ModalRun run = runDialog(editor, [&linkSelected](QDialog& dialog) {
        auto* tree = dialog.findChild<QTreeWidget*>(QStringLiteral("m_poTreeWidget"));
        linkSelected = tree->selectedItems().size() == 1;
        auto* reset = dialog.findChild<QPushButton*>(QStringLiteral("m_ResetBtn"));
        QVERIFY(reset->isVisible() && reset->isEnabled());
        QTest::mouseClick(reset, Qt::LeftButton);
    });
    QVERIFY(run.shown && !run.leftOpen);
    QVERIFY(linkSelected);
    QCOMPARE(m_lEdits.size(), 1);
    QCOMPARE(m_lEdits.first().command, kSetLink);
    QCOMPARE(m_lEdits.first().params, QVariant(QString()));
    QVERIFY(!m_poWindow->model().poNode(path)->isLinked());
}

void TestEditing::cancelSendsNothing()
{
    const QString path = QStringLiteral("Module Application.Camera.Gain");
    QWidget* editor = openEditor(path, "DoublePropertyEditor");
    QVERIFY(editor);
    const TestSupport::ModalRun run = runDialog(editor, [](QDialog& dialog) {
        dialog.findChild<QDoubleSpinBox*>(QStringLiteral("m_poValueText"))->setValue(9.0);
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("m_CancelBtn")),
                          Qt::LeftButton);
    });
    QVERIFY(run.shown && !run.leftOpen);
    QVERIFY(m_lEdits.isEmpty());
    QCOMPARE(nodeValue(path, "IDataNumeric.LocalValue").toDouble(), 2.5);
}

QTEST_MAIN(TestEditing)
#include "tst_editing.moc"
