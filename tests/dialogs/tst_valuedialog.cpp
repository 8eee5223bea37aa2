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
#include <QTimer>

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

    // Runs the dialog; @p steps runs inside its event loop and must end it.
    int run(const std::function<void()>& steps)
    {
        QTimer::singleShot(0, &dialog, [this, steps] {
            steps();
            // A step that failed leaves the dialog open; it must not wait for a person.
            if (dialog.isVisible())
                dialog.reject();
        });
        return dialog.exec();
    }

    WidgetSetNode dialog;
    WidgetSetLocalInt* panel;
    WidgetSetDynamicGeneric* picker;
    std::vector<std::unique_ptr<DItem>> nodes;
};

void retype(QLineEdit* field, const QString& text)
{
    field->selectAll();
    QTest::keyClicks(field, text);
}

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
    const int result = value.run([&] {
        QWidget* ok = value.dialog.ui->m_OKBtn;
        QTRY_VERIFY(value.dialog.ui->lblWarning->isHidden());
        resetOnManualPage = value.dialog.ui->m_ResetBtn->isVisible();
        retype(value.panel->ui->m_poValue, QStringLiteral("140"));
        okWhileInvalid = ok->isEnabled();
        warningWhileInvalid = value.dialog.ui->lblWarning->isVisible();
        retype(value.panel->ui->m_poValue, QStringLiteral("60"));
        QTest::mouseClick(ok, Qt::LeftButton);
    });
    QCOMPARE(result, int(QDialog::Accepted));
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
    const int result = value.run([&] {
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
    QCOMPARE(result, int(QDialog::Accepted));
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
    const int result = value.run([&] {
        okAtStart = value.dialog.ui->m_OKBtn->isEnabled();
        resetAtStart = value.dialog.ui->m_ResetBtn->isVisible()
            && value.dialog.ui->m_ResetBtn->isEnabled();
        QTest::mouseClick(value.dialog.ui->m_ResetBtn, Qt::LeftButton);
    });
    QVERIFY(okAtStart);
    QVERIFY(resetAtStart);
    // Reset accepts the dialog with no link selected: the caller drops the link.
    QCOMPARE(result, int(QDialog::Accepted));
    QVERIFY(value.picker->ui->m_poTreeWidget->selectedItems().isEmpty());
}

void TestValueDialog::cancelKeepsEverything()
{
    ValueDialog value(true, QStringLiteral("Job.Camera.Out"));
    const int result = value.run([&] {
        QTest::mouseClick(value.dialog.ui->m_CancelBtn, Qt::LeftButton);
    });
    QCOMPARE(result, int(QDialog::Rejected));
    QCOMPARE(value.picker->ui->m_poTreeWidget->selectedItems().size(), 1);
}

QTEST_MAIN(TestValueDialog)
#include "tst_valuedialog.moc"
