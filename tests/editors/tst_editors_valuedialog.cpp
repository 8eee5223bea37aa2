#include "dialogs/widgetsetnode.h"
#include "editors/baseeditor.h"
#include "editors/valuedialog.h"
#include "property_model/boolpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "sdk/ditem.h"
#include "ui_widgetsetnode.h"

#include "editortestsupport.h"
#include "testsupport.h"

#include <QLabel>
#include <QPointer>
#include <QTest>
#include <QTreeWidget>

#include <functional>
#include <memory>

using PropertyBrowser::WidgetProperty;
using PropertyBrowser::WTreePropertyBrowser;
using PropertyBrowser::Editors::BaseEditor;
using PropertyBrowser::Editors::ValueDialog;
using PropertyBrowser::Editors::WidgetSetNode;
using PropertyBrowser::Managers::BoolPropertyManager;
using namespace EditorTestSupport;

namespace {

const QString kTarget = QStringLiteral("Job.Camera.Ready");

/// The least editor that can own a value dialog.
class PlainEditor : public BaseEditor
{
public:
    explicit PlainEditor(WidgetProperty* row)
        : BaseEditor(nullptr, row, TypeBool)
    { }

    void showLinkWidget(QString path) override { m_linkPath = path; }
    void readData() override { }
};

/// A row with a node that may be linked to one other node, and an editor for it.
struct Fixture
{
    Fixture()
        : node(QStringLiteral("Job.Light.Strobe"), QStringLiteral("IDataBasicBool"),
               Script::DItem::IoInput)
        , target(kTarget, QStringLiteral("IDataBasicBool"), Script::DItem::IoOutput)
        , manager(new BoolPropertyManager)
    {
        node.setProperty("IData.AcceptableLinks",
                         QVariant::fromValue(Script::DItemListPair({&target}, {&target})));
        row = dynamic_cast<WidgetProperty*>(manager->addProperty(QStringLiteral("Strobe")));
        row->setData(node);
        editor.reset(new PlainEditor(row));
    }

    /// Starts a run of the row's dialog with a label as its value page, opened on the link page
    /// when @p withLinks holds.
    ValueDialog& start(bool withLinks)
    {
        run = std::make_unique<ValueDialog>(*editor, *row);
        page = new QLabel;
        run->setLocalPage(page);
        if (withLinks)
            run->offerLinks(node, kTarget);
        dialog = &run->dialog();
        return *run;
    }

    Script::DItem node;
    Script::DItem target;
    std::unique_ptr<BoolPropertyManager> manager;
    WidgetProperty* row = nullptr;
    std::unique_ptr<PlainEditor> editor;
    std::unique_ptr<ValueDialog> run;
    QPointer<QLabel> page;
    QPointer<WidgetSetNode> dialog;
};

/// What a run of the value dialog gave: exec()'s answer, and what became of the dialog.
struct Outcome
{
    bool chosen = false;
    DialogRun run;
};

/// Runs @p valueDialog and @p steps on it in its event loop.
Outcome runWith(ValueDialog& valueDialog, const std::function<void(WidgetSetNode&)>& steps)
{
    Outcome outcome;
    outcome.run = runDialog([&] { outcome.chosen = valueDialog.exec(); }, steps);
    return outcome;
}

} // namespace

class TestEditorsValueDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();

    void acceptedLinkIsTheSelectedPath();
    void noSelectionIsAnEmptyNotNullLink();
    void rejectedRunIsNoChoice();
    void rowDroppedWhileRunningIsNoChoice();
    void editorDroppedWhileRunningTakesTheDialog();
};

void TestEditorsValueDialog::initTestCase()
{
    initEditorTestCase();
    Script::DItem::vRegisterMetaTypes();
}

void TestEditorsValueDialog::cleanup()
{
    verifyNothingLeftOpen();
}

void TestEditorsValueDialog::acceptedLinkIsTheSelectedPath()
{
    Fixture f;
    const Outcome outcome = runWith(f.start(true), [](WidgetSetNode& dialog) {
        QCOMPARE(linkTree(dialog)->selectedItems().size(), 1);
        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(outcome.run.shown);
    QVERIFY(!outcome.run.leftOpen);
    QVERIFY(outcome.chosen);
    QVERIFY(f.run->linkChosen());
    QVERIFY(!f.run->localChosen());
    QCOMPARE(f.run->chosenLink(), kTarget);
}

void TestEditorsValueDialog::noSelectionIsAnEmptyNotNullLink()
{
    Fixture f;
    // Reset drops the selection and closes the dialog as accepted.
    const Outcome outcome = runWith(f.start(true), [](WidgetSetNode& dialog) {
        QTest::mouseClick(dialog.ui->m_ResetBtn, Qt::LeftButton);
    });
    QVERIFY(outcome.run.shown);
    QVERIFY(!outcome.run.leftOpen);
    QVERIFY(outcome.chosen);
    QVERIFY(f.run->linkChosen());
    const QString link = f.run->chosenLink();
    QVERIFY(link.isEmpty());
    QVERIFY(!link.isNull());
}

void TestEditorsValueDialog::rejectedRunIsNoChoice()
{
    Fixture f;
    const Outcome outcome = runWith(f.start(false), [](WidgetSetNode& dialog) {
        QVERIFY(dialog.ui->rbLocalValue->isChecked());
        QTest::mouseClick(dialog.ui->m_CancelBtn, Qt::LeftButton);
    });
    QVERIFY(outcome.run.shown);
    QVERIFY(!outcome.run.leftOpen);
    QVERIFY(!outcome.chosen);
    // The run owns the dialog, and the dialog the page.
    QVERIFY(f.dialog);
    QVERIFY(f.page);
    f.run.reset();
    QVERIFY(!f.dialog);
    QVERIFY(!f.page);
}

void TestEditorsValueDialog::rowDroppedWhileRunningIsNoChoice()
{
    Fixture f;
    const Outcome outcome = runWith(f.start(false), [&f](WidgetSetNode& dialog) {
        delete f.row;
        f.row = nullptr;
        // The editor and its dialog stay; accepting still chooses nothing.
        QTest::mouseClick(dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(outcome.run.shown);
    QVERIFY(!outcome.run.leftOpen);
    QVERIFY(!outcome.chosen);
    QVERIFY(f.dialog);
    QCOMPARE(f.dialog->result(), int(QDialog::Accepted));
    // The run still deletes the dialog that the editor kept.
    f.run.reset();
    QVERIFY(!f.dialog);
}

void TestEditorsValueDialog::editorDroppedWhileRunningTakesTheDialog()
{
    Fixture f;
    const Outcome outcome = runWith(f.start(false), [&f](WidgetSetNode&) { f.editor.reset(); });
    QVERIFY(outcome.run.shown);
    QVERIFY(!outcome.run.leftOpen);
    QVERIFY(!outcome.chosen);
    QVERIFY(!f.dialog);
    QVERIFY(!f.page);
    // The dialog went with the editor: the run must not delete it a second time.
    f.run.reset();
}

QTEST_MAIN(TestEditorsValueDialog)
#include "tst_editors_valuedialog.moc"
