#include "controls/int64slider.h"
#include "dialogs/widgetsetlocalint.h"
#include "dialogs/widgetsetnode.h"
#include "ui_widgetsetlocalint.h"
#include "ui_widgetsetnode.h"

#include "testsupport.h"

#include <QSignalSpy>
#include <QTest>

using PropertyBrowser::Editors::WidgetSetLocalInt;
using PropertyBrowser::Editors::WidgetSetNode;

namespace {

// Fills the panel as an integer editor does before the dialog runs.
void fill(WidgetSetLocalInt& panel, qlonglong minimum, qlonglong maximum, qlonglong value,
          bool limitsEdited)
{
    panel.ui->m_poMinValueText->setText(QString::number(minimum));
    panel.ui->m_poMaxValueText->setText(QString::number(maximum));
    panel.ui->m_poStep->setText(QStringLiteral("1"));
    panel.ui->m_poMinValueText->setReadOnly(!limitsEdited);
    panel.ui->m_poMaxValueText->setReadOnly(!limitsEdited);
    panel.ui->m_poValue->setEnabled(!limitsEdited);
    panel.ui->m_poSlider->setMinimum(minimum);
    panel.ui->m_poSlider->setMaximum(maximum);
    panel.ui->m_poSlider->setValue(value);
    panel.ui->m_poValue->setText(QString::number(value));
}

} // namespace

class TestWidgetSetLocalInt : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QTRY_VERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void form();
    void firstReportFollowsTheFilling();
    void valueChecks_data();
    void valueChecks();
    void limitChecks_data();
    void limitChecks();
    void emptiedLimitSendsNoReport();
    void valueIsNotCheckedWhileLimitsAreEdited();
    void typedValueMovesTheSlider();
    void unreadableTypedValueMovesTheSliderToZero();
    void sliderWritesPlainDigits();
    void reportDecidesTheDialogsOk();
};

void TestWidgetSetLocalInt::form()
{
    WidgetSetLocalInt panel;
    QCOMPARE(panel.objectName(), QStringLiteral("WidgetSetLocalInt"));
    QCOMPARE(panel.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(panel.minimumHeight(), 161);
    QVERIFY(panel.ui->m_poMinValueText->isReadOnly());
    QVERIFY(panel.ui->m_poMaxValueText->isReadOnly());
    QVERIFY(panel.ui->m_poStep->isReadOnly());
    QCOMPARE(panel.ui->m_poLblMinValue->text(), QStringLiteral("Minimal"));
    QCOMPARE(panel.ui->m_poLblMaxValue->text(), QStringLiteral("Maximal"));
    QCOMPARE(panel.ui->m_poLblStepValue->text(), QStringLiteral("Step"));
    QCOMPARE(panel.ui->m_poLblActualValue->text(), QStringLiteral("Actual"));
    QCOMPARE(panel.ui->m_ErrorLabel->text(), QStringLiteral("Error"));
    QCOMPARE(panel.ui->m_poSlider->orientation(), Qt::Horizontal);
    QVERIFY(panel.ui->m_poLblLinkedTo && panel.ui->m_poLblEvaluatedResult
            && panel.ui->m_poWidgetLed);
    QCOMPARE(panel.detectEditType(), 2);
    panel.ui->m_poValue->setEnabled(false);
    QCOMPARE(panel.detectEditType(), 1);
}

void TestWidgetSetLocalInt::firstReportFollowsTheFilling()
{
    WidgetSetLocalInt panel;
    QSignalSpy reports(&panel, &WidgetSetLocalInt::validationStateChanged);
    // Texts set by code are not edits: the panel speaks first when its timer fires.
    panel.ui->m_poMinValueText->setText(QStringLiteral("0"));
    panel.ui->m_poMaxValueText->setText(QStringLiteral("10"));
    panel.ui->m_poValue->setText(QStringLiteral("20"));
    QCOMPARE(reports.count(), 0);
    QTRY_COMPARE(reports.count(), 1);
    QCOMPARE(reports.first().at(0).toBool(), false);
    QCOMPARE(reports.first().at(1).toString(), QStringLiteral("Value outside of range"));
    QCOMPARE(reports.first().at(2).toBool(), true);
}

void TestWidgetSetLocalInt::valueChecks_data()
{
    QTest::addColumn<qlonglong>("minimum");
    QTest::addColumn<qlonglong>("maximum");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("valid");
    QTest::newRow("inside") << 0LL << 10LL << "5" << true;
    QTest::newRow("at the minimum") << 0LL << 10LL << "0" << true;
    QTest::newRow("at the maximum") << 0LL << 10LL << "10" << true;
    QTest::newRow("below") << 0LL << 10LL << "-1" << false;
    QTest::newRow("above") << 0LL << 10LL << "11" << false;
    QTest::newRow("equal limits, equal value") << 7LL << 7LL << "7" << true;
    QTest::newRow("equal limits, other value") << 7LL << 7LL << "8" << false;
    QTest::newRow("64-bit ends") << std::numeric_limits<qlonglong>::min()
                                 << std::numeric_limits<qlonglong>::max() << "9223372036854775807"
                                 << true;
}

void TestWidgetSetLocalInt::valueChecks()
{
    QFETCH(qlonglong, minimum);
    QFETCH(qlonglong, maximum);
    QFETCH(QString, typed);
    QFETCH(bool, valid);
    WidgetSetLocalInt panel;
    fill(panel, minimum, maximum, minimum, false);
    QSignalSpy reports(&panel, &WidgetSetLocalInt::validationStateChanged);
    TestSupport::retype(panel.ui->m_poValue, typed);
    QVERIFY(!reports.isEmpty());
    const QList<QVariant> last = reports.last();
    QCOMPARE(last.at(0).toBool(), valid);
    QCOMPARE(last.at(1).toString(), valid ? QString() : QStringLiteral("Value outside of range"));
    QCOMPARE(last.at(2).toBool(), true);
}

void TestWidgetSetLocalInt::limitChecks_data()
{
    QTest::addColumn<QString>("minimum");
    QTest::addColumn<QString>("maximum");
    QTest::addColumn<bool>("valid");
    QTest::newRow("ordered") << "0"
                             << "10" << true;
    QTest::newRow("equal") << "5"
                           << "5" << true;
    QTest::newRow("crossed") << "11"
                             << "10" << false;
}

void TestWidgetSetLocalInt::limitChecks()
{
    QFETCH(QString, minimum);
    QFETCH(QString, maximum);
    QFETCH(bool, valid);
    WidgetSetLocalInt panel;
    fill(panel, 0, 10, 5, true);
    QSignalSpy reports(&panel, &WidgetSetLocalInt::validationStateChanged);
    TestSupport::retype(panel.ui->m_poMaxValueText, maximum);
    TestSupport::retype(panel.ui->m_poMinValueText, minimum);
    QVERIFY(!reports.isEmpty());
    QCOMPARE(reports.last().at(0).toBool(), valid);
    QCOMPARE(reports.last().at(1).toString(),
             valid ? QString() : QStringLiteral("Min value is greater than Max."));
}

void TestWidgetSetLocalInt::emptiedLimitSendsNoReport()
{
    WidgetSetNode dialog;
    auto* panel = new WidgetSetLocalInt(&dialog);
    connect(panel, &WidgetSetLocalInt::validationStateChanged, &dialog,
            &WidgetSetNode::onValidationResult);
    fill(*panel, 0, 10, 5, true);
    QSignalSpy reports(panel, &WidgetSetLocalInt::validationStateChanged);
    TestSupport::retype(panel->ui->m_poMinValueText, QStringLiteral("20"));
    QCOMPARE(reports.count(), 2);
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
    TestSupport::retype(panel->ui->m_poMaxValueText, QString());
    QCOMPARE(panel->ui->m_poMaxValueText->text(), QString());
    QCOMPARE(reports.count(), 2);
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
}

void TestWidgetSetLocalInt::valueIsNotCheckedWhileLimitsAreEdited()
{
    WidgetSetLocalInt panel;
    fill(panel, 0, 100, 90, true);
    QSignalSpy reports(&panel, &WidgetSetLocalInt::validationStateChanged);
    TestSupport::retype(panel.ui->m_poMaxValueText, QStringLiteral("50"));
    QCOMPARE(reports.count(), 2);
    QCOMPARE(reports.last().at(0).toBool(), true);
}

void TestWidgetSetLocalInt::typedValueMovesTheSlider()
{
    WidgetSetLocalInt panel;
    fill(panel, 0, 100, 10, false);
    QSignalSpy sliderValues(panel.ui->m_poSlider, &Int64Slider::valueChanged);
    TestSupport::retype(panel.ui->m_poValue, QStringLiteral("42"));
    QCOMPARE(panel.ui->m_poSlider->value(), 42L);
    // The slider moved silently: the text being typed is not written back.
    QCOMPARE(sliderValues.count(), 0);
    QCOMPARE(panel.ui->m_poValue->text(), QStringLiteral("42"));
}

void TestWidgetSetLocalInt::unreadableTypedValueMovesTheSliderToZero()
{
    WidgetSetLocalInt panel;
    fill(panel, -50, 50, 20, false);
    QSignalSpy reports(&panel, &WidgetSetLocalInt::validationStateChanged);
    TestSupport::retype(panel.ui->m_poValue, QStringLiteral("1x"));
    QCOMPARE(panel.ui->m_poSlider->value(), 0L);
    QCOMPARE(panel.ui->m_poValue->text(), QStringLiteral("1x"));
    // Only the report for the "1" typed first came; the text that is no number sends none.
    QCOMPARE(reports.count(), 1);
}

void TestWidgetSetLocalInt::sliderWritesPlainDigits()
{
    WidgetSetLocalInt panel;
    panel.setLocale(QLocale(QLocale::German, QLocale::Germany));
    fill(panel, 0, 2000000, 0, false);
    QSignalSpy reports(&panel, &WidgetSetLocalInt::validationStateChanged);
    panel.ui->m_poSlider->setValue(1234567);
    QCOMPARE(panel.ui->m_poValue->text(), QString::number(panel.ui->m_poSlider->value()));
    QVERIFY(!panel.ui->m_poValue->text().contains('.'));
    QCOMPARE(reports.count(), 1);
    QCOMPARE(reports.last().at(0).toBool(), true);
}

void TestWidgetSetLocalInt::reportDecidesTheDialogsOk()
{
    WidgetSetNode dialog;
    auto* panel = new WidgetSetLocalInt(&dialog);
    dialog.ui->pageLocal->layout()->addWidget(panel);
    connect(panel, &WidgetSetLocalInt::validationStateChanged, &dialog,
            &WidgetSetNode::onValidationResult);
    dialog.ui->rbLocalValue->setChecked(true);
    fill(*panel, 0, 10, 5, false);
    QTRY_VERIFY(dialog.ui->lblWarning->isHidden());
    TestSupport::retype(panel->ui->m_poValue, QStringLiteral("12"));
    QVERIFY(!dialog.ui->m_OKBtn->isEnabled());
    QVERIFY(!dialog.ui->lblWarning->isHidden());
    QCOMPARE(dialog.ui->lblWarning->toolTip(), QStringLiteral("Value outside of range"));
    TestSupport::retype(panel->ui->m_poValue, QStringLiteral("9"));
    QVERIFY(dialog.ui->m_OKBtn->isEnabled());
    QVERIFY(dialog.ui->lblWarning->isHidden());
}

QTEST_MAIN(TestWidgetSetLocalInt)
#include "tst_widgetsetlocalint.moc"
