#include "controls/ledwidget.h"
#include "dialogs/widgetsetlocaladdon.h"

#include "testsupport.h"

#include <QLabel>
#include <QTest>

using PropertyBrowser::Editors::WidgetSetLocalAddOn;

class TestWidgetSetLocalAddOn : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void evaluationShown_data();
    void evaluationShown();
    void evaluationSqueezedWithoutLamp();
    void linkedTo_data();
    void linkedTo();
    void noLinksLeaveTheLabel();
};

void TestWidgetSetLocalAddOn::evaluationShown_data()
{
    QTest::addColumn<bool>("state");
    QTest::newRow("good") << true;
    QTest::newRow("bad") << false;
}

void TestWidgetSetLocalAddOn::evaluationShown()
{
    QFETCH(bool, state);
    QWidget form;
    QLabel label(&form);
    QWidget holder(&form);
    WidgetSetLocalAddOn::showEvaluation(true, label, holder, state);
    QCOMPARE(label.text(), QStringLiteral("Evaluated Result"));
    const QList<LedWidget*> lamps = holder.findChildren<LedWidget*>();
    QCOMPARE(lamps.size(), 1);
    // The lamp is drawn green when lit and red when not.
    lamps.first()->resize(16, 16);
    const QColor centre = lamps.first()->grab().toImage().pixelColor(8, 8);
    QCOMPARE(centre.green() > centre.red(), state);
}

void TestWidgetSetLocalAddOn::evaluationSqueezedWithoutLamp()
{
    QWidget form;
    QLabel label(QStringLiteral("before"), &form);
    QWidget holder(&form);
    WidgetSetLocalAddOn::showEvaluation(false, label, holder, true);
    QVERIFY(holder.findChildren<LedWidget*>().isEmpty());
    QCOMPARE(holder.minimumHeight(), 3);
    QCOMPARE(holder.maximumHeight(), 3);
    QCOMPARE(label.minimumHeight(), 3);
    QCOMPARE(label.maximumHeight(), 3);
    QCOMPARE(label.text(), QStringLiteral("before"));
}

void TestWidgetSetLocalAddOn::linkedTo_data()
{
    QTest::addColumn<QStringList>("links");
    QTest::addColumn<QString>("text");
    QTest::newRow("one") << QStringList {"a.b.c"} << "Linked To: c";
    QTest::newRow("two") << QStringList {"Job.A.Out", "Job.B.In"} << "Linked To: Out, In";
    QTest::newRow("one segment is left out")
        << QStringList {"Job.A.Out", "Single"} << "Linked To: Out";
    QTest::newRow("only single segments") << QStringList {"One", "Two"} << "Linked To: ";
    QTest::newRow("trailing dot") << QStringList {"Job.A."} << "Linked To: ";
}

void TestWidgetSetLocalAddOn::linkedTo()
{
    QFETCH(QStringList, links);
    QFETCH(QString, text);
    QLabel label;
    WidgetSetLocalAddOn::showLinkedTo(links, label);
    QCOMPARE(label.text(), text);
    QCOMPARE(label.toolTip(), links.join('\n'));
}

void TestWidgetSetLocalAddOn::noLinksLeaveTheLabel()
{
    QLabel label(QStringLiteral("as it was"));
    label.setToolTip(QStringLiteral("tip"));
    WidgetSetLocalAddOn::showLinkedTo({}, label);
    QCOMPARE(label.text(), QStringLiteral("as it was"));
    QCOMPARE(label.toolTip(), QStringLiteral("tip"));
}

QTEST_MAIN(TestWidgetSetLocalAddOn)
#include "tst_widgetsetlocaladdon.moc"
