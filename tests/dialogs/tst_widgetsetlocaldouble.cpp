#include "dialogs/widgetsetlocaldouble.h"
#include "editors/scientificformatdoublespinbox.h"
#include "ui_widgetsetlocaldouble.h"

#include "testsupport.h"

#include <QSignalSpy>
#include <QTest>

using PropertyBrowser::Editors::WidgetSetLocalDouble;

class TestWidgetSetLocalDouble : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QTRY_VERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void form();
    void firstReportFollowsTheFilling();
    void checks_data();
    void checks();
    void everyFieldReports();
};

void TestWidgetSetLocalDouble::form()
{
    WidgetSetLocalDouble panel;
    QCOMPARE(panel.objectName(), QStringLiteral("WidgetSetLocalDouble"));
    QCOMPARE(panel.windowTitle(), QStringLiteral("Form"));
    QCOMPARE(panel.ui->m_poMinValueText->minimum(), -999999999.0);
    QCOMPARE(panel.ui->m_poMinValueText->maximum(), 999999999.0);
    QCOMPARE(panel.ui->m_poMinValueText->value(), 0.0);
    QCOMPARE(panel.ui->m_poMaxValueText->minimum(), -999999999.0);
    QCOMPARE(panel.ui->m_poMaxValueText->maximum(), 999999999.0);
    QVERIFY(!panel.ui->m_poStepText->isEnabled());
    QCOMPARE(panel.ui->m_ErrorLabel->text(), QString());
    QCOMPARE(panel.ui->m_poLblStep->text(), QStringLiteral("Step"));
    QCOMPARE(panel.ui->m_poLblActual->text(), QStringLiteral("Actual"));
    QVERIFY(qobject_cast<PropertyBrowser::Editors::ScientificFormatDoubleSpinBox*>(
        panel.ui->m_poValueText));
    QCOMPARE(panel.detectEditType(), 2);
    panel.ui->m_poValueText->setEnabled(false);
    QCOMPARE(panel.detectEditType(), 1);
}

void TestWidgetSetLocalDouble::firstReportFollowsTheFilling()
{
    WidgetSetLocalDouble panel;
    QSignalSpy reports(&panel, &WidgetSetLocalDouble::validationStateChanged);
    // Unlike the texts of the integer panel, every value set by code is reported at once.
    panel.ui->m_poMaxValueText->setValue(1.0);
    panel.ui->m_poValueText->setValue(2.5);
    QCOMPARE(reports.count(), 2);
    QCOMPARE(reports.at(0).at(0).toBool(), true);
    QCOMPARE(reports.at(1).at(0).toBool(), false);
    // The delayed report follows and speaks of the content as filled.
    QTRY_COMPARE(reports.count(), 3);
    QCOMPARE(reports.last().at(0).toBool(), false);
    QCOMPARE(reports.last().at(1).toString(), QStringLiteral("Value outside of range"));
    QCOMPARE(reports.last().at(2).toBool(), true);
}

void TestWidgetSetLocalDouble::checks_data()
{
    QTest::addColumn<bool>("limitsEdited");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("maximum");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QString>("message");
    const QString outside = QStringLiteral("Value outside of range");
    const QString crossed = QStringLiteral("Min value is greater than Max.");
    QTest::newRow("value inside") << false << 0.0 << 1.0 << 0.5 << true << QString();
    QTest::newRow("value at both ends") << false << 0.25 << 0.25 << 0.25 << true << QString();
    QTest::newRow("value below") << false << 0.0 << 1.0 << -0.5 << false << outside;
    QTest::newRow("value above") << false << 0.0 << 1.0 << 1.5 << false << outside;
    QTest::newRow("limits ordered, value outside")
        << true << 0.0 << 1.0 << 5.0 << true << QString();
    QTest::newRow("limits equal") << true << 2.0 << 2.0 << 0.0 << true << QString();
    QTest::newRow("limits crossed") << true << 2.0 << 1.5 << 0.0 << false << crossed;
}

void TestWidgetSetLocalDouble::checks()
{
    QFETCH(bool, limitsEdited);
    QFETCH(double, minimum);
    QFETCH(double, maximum);
    QFETCH(double, value);
    QFETCH(bool, valid);
    QFETCH(QString, message);
    WidgetSetLocalDouble panel;
    panel.ui->m_poValueText->setEnabled(!limitsEdited);
    QSignalSpy reports(&panel, &WidgetSetLocalDouble::validationStateChanged);
    panel.ui->m_poMinValueText->setValue(minimum);
    panel.ui->m_poMaxValueText->setValue(maximum);
    panel.ui->m_poValueText->setValue(value);
    QVERIFY(!reports.isEmpty());
    QCOMPARE(reports.last().at(0).toBool(), valid);
    QCOMPARE(reports.last().at(1).toString(), message);
}

void TestWidgetSetLocalDouble::everyFieldReports()
{
    WidgetSetLocalDouble panel;
    QSignalSpy reports(&panel, &WidgetSetLocalDouble::validationStateChanged);
    panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    QTRY_COMPARE(reports.count(), 1);
    QTest::keyClick(panel.ui->m_poMaxValueText, Qt::Key_Up);
    QCOMPARE(reports.count(), 2);
    QTest::keyClick(panel.ui->m_poMinValueText, Qt::Key_Down);
    QCOMPARE(reports.count(), 3);
    QTest::keyClick(panel.ui->m_poValueText, Qt::Key_Up);
    QCOMPARE(reports.count(), 4);
}

QTEST_MAIN(TestWidgetSetLocalDouble)
#include "tst_widgetsetlocaldouble.moc"
