#include "controls/int64slider.h"
#include "dialogs/widgetsetdynamicgeneric.h"
#include "dialogs/widgetsetlocalint.h"
#include "dialogs/widgetsetnode.h"
#include "sdk/ditem.h"
#include "ui_widgetsetdynamicgeneric.h"
#include "ui_widgetsetlocalint.h"
#include "ui_widgetsetnode.h"

#include "testsupport.h"

#include <QTest>

#include <functional>
#include <memory>
#include <vector>

using PropertyBrowser::Editors::WidgetSetDynamicGeneric;
using PropertyBrowser::Editors::WidgetSetLocalInt;
using PropertyBrowser::Editors::WidgetSetNode;
using Script::DItem;

namespace {

/// The value dialog put together as an integer editor does it: the panel on the manual page,
/// the picker on the linked page, the panel's verdict wired to the dialog.
struct ValueDialog
{
    ValueDialog(bool linked, const QString& linkPath)
        : panel(new WidgetSetLocalInt)
        , picker(new WidgetSetDynamicGeneric(&dialog))
    {
        connect();
        dialog.ui->pageLocal->layout()->addWidget(panel);
        dialog.ui->pageDynamic->layout()->addWidget(picker);
        (linked ? dialog.ui->rbDynamicValue : dialog.ui->rbLocalValue)->setChecked(true);
        dialog.setWindowTitle(QStringLiteral("Exposure"));
        panel->ui->m_poMinValueText->setText(QStringLiteral("0"));
        panel->ui->m_poMaxValueText->setText(QStringLiteral("100"));
        panel->ui->m_poStep->setText(QStringLiteral("1"));
        panel->ui->m_poSlider->setMinimum(0);
        panel->ui->m_poSlider->setMaximum(100);
        panel->ui->m_poSlider->setValue(40);
        for (const char* path : {"Job.Camera.Out", "Job.Filter.Out", "Job.Filter.Level"})
            nodes.push_back(std::make_unique<DItem>(QLatin1String(path), QStringLiteral("X")));
        QList<DItem*> linkable;
        for (const auto& node : nodes)
            linkable.append(node.get());
        picker->generateTree({linkable, {}}, linkPath);
    }

    void connect()
    {
        QObject::connect(panel, &WidgetSetLocalInt::validationStateChanged, &dialog,
                         &WidgetSetNode::onValidationResult);
    }

    QTreeWidgetItem* leaf(const QString& path) const
    {
        for (QTreeWidgetItem* item : picker->ui->m_poTreeWidget->findItems(
                 path.section('.', -1), Qt::MatchExactly | Qt::MatchRecursive)) {
            if (item->data(0, Qt::UserRole).toString() == path)
                return item;
        }
        return nullptr;
    }

    // Runs the dialog with @p steps in its event loop; they are meant to end it, and the run
    // tells whether they did. The dialog's result lands in result.
    TestSupport::ModalRun run(const std::function<void()>& steps)
    {
        return TestSupport::runModal([this] { result = dialog.exec(); },
                                     [&steps](QDialog&) { steps(); });
    }

    WidgetSetNode dialog;
    WidgetSetLocalInt* panel;
    WidgetSetDynamicGeneric* picker;
    std::vector<std::unique_ptr<DItem>> nodes;
    int result = -1;
};

} // namespace

class TestValueDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QTRY_VERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void manualValueAcceptedWithOk();
    void linkPickedAndAccepted();
    void linkClearedByReset();
    void cancelKeepsEverything();
};

void TestValueDialog::manualValueAcceptedWithOk()
{
    ValueDialog value(false, QString());
    bool okWhileInvalid = true;
    bool warningWhileInvalid = false;
    bool resetOnManualPage = true;
    const TestSupport::ModalRun run = value.run([&] {
        QWidget* ok = value.dialog.ui->m_OKBtn;
        QTRY_VERIFY(value.dialog.ui->lblWarning->isHidden());
        resetOnManualPage = value.dialog.ui->m_ResetBtn->isVisible();
        TestSupport::retype(value.panel->ui->m_poValue, QStringLiteral("140"));
        okWhileInvalid = ok->isEnabled();
        warningWhileInvalid = value.dialog.ui->lblWarning->isVisible();
        TestSupport::retype(value.panel->ui->m_poValue, QStringLiteral("60"));
        QTest::mouseClick(ok, Qt::LeftButton);
    });
    QVERIFY(run.shown && !run.leftOpen);
    QCOMPARE(value.result, int(QDialog::Accepted));
    QVERIFY(!okWhileInvalid);
    QVERIFY(warningWhileInvalid);
    QVERIFY(!resetOnManualPage);
    QVERIFY(value.dialog.ui->rbLocalValue->isChecked());
    QCOMPARE(value.panel->ui->m_poValue->text(), QStringLiteral("60"));
    QCOMPARE(value.panel->ui->m_poSlider->value(), 60L);
}

void TestValueDialog::linkPickedAndAccepted()
{
    ValueDialog value(false, QString());
    bool okWithoutTarget = true;
    bool resetWithoutTarget = true;
    bool okOnGroup = true;
    const TestSupport::ModalRun run = value.run([&] {
        QTest::mouseClick(value.dialog.ui->rbDynamicValue, Qt::LeftButton);
        okWithoutTarget = value.dialog.ui->m_OKBtn->isEnabled();
        resetWithoutTarget = value.dialog.ui->m_ResetBtn->isEnabled();
        QTreeWidget* tree = value.picker->ui->m_poTreeWidget;
        tree->expandAll();
        QTreeWidgetItem* group = value.leaf(QStringLiteral("Job.Camera.Out"))->parent();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(group).center());
        okOnGroup = value.dialog.ui->m_OKBtn->isEnabled();
        QTreeWidgetItem* target = value.leaf(QStringLiteral("Job.Filter.Level"));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          tree->visualItemRect(target).center());
        QTest::mouseClick(value.dialog.ui->m_OKBtn, Qt::LeftButton);
    });
    QVERIFY(run.shown && !run.leftOpen);
    QCOMPARE(value.result, int(QDialog::Accepted));
    QVERIFY(!okWithoutTarget);
    QVERIFY(!resetWithoutTarget);
    QVERIFY(!okOnGroup);
    QVERIFY(value.dialog.ui->rbDynamicValue->isChecked());
    const QList<QTreeWidgetItem*> selected = value.picker->ui->m_poTreeWidget->selectedItems();
    QCOMPARE(selected.size(), 1);
    QCOMPARE(selected.first()->data(0, Qt::UserRole).toString(),
             QStringLiteral("Job.Filter.Level"));
}

void TestValueDialog::linkClearedByReset()
{
    ValueDialog value(true, QStringLiteral("Job.Filter.Out"));
    bool okAtStart = false;
    bool resetAtStart = false;
    const TestSupport::ModalRun run = value.run([&] {
        okAtStart = value.dialog.ui->m_OKBtn->isEnabled();
        resetAtStart
            = value.dialog.ui->m_ResetBtn->isVisible() && value.dialog.ui->m_ResetBtn->isEnabled();
        QTest::mouseClick(value.dialog.ui->m_ResetBtn, Qt::LeftButton);
    });
    QVERIFY(okAtStart);
    QVERIFY(resetAtStart);
    QVERIFY(run.shown && !run.leftOpen);
    // Reset accepts the dialog with no link selected: the caller drops the link.
    QCOMPARE(value.result, int(QDialog::Accepted));
    QVERIFY(value.picker->ui->m_poTreeWidget->selectedItems().isEmpty());
}

void TestValueDialog::cancelKeepsEverything()
{
    ValueDialog value(true, QStringLiteral("Job.Camera.Out"));
    const TestSupport::ModalRun run
        = value.run([&] { QTest::mouseClick(value.dialog.ui->m_CancelBtn, Qt::LeftButton); });
    QVERIFY(run.shown && !run.leftOpen);
    QCOMPARE(value.result, int(QDialog::Rejected));
    QCOMPARE(value.picker->ui->m_poTreeWidget->selectedItems().size(), 1);
}

QTEST_MAIN(TestValueDialog)
#include "tst_valuedialog.moc"
