#include "propertymetatype.h"
#include "qtboolpropertymanager.h"

#include "testsupport.h"

#include <QApplication>
#include <QPainter>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTest>

namespace {

// The application style's check box in the given state, drawn at @p ratio.
QImage styleCheckBox(bool checked, const QSize& size, qreal ratio)
{
    QPixmap pixmap(size * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QStyleOptionButton option;
    option.rect = QRect(QPoint(0, 0), size);
    option.state = QStyle::State_Enabled | (checked ? QStyle::State_On : QStyle::State_Off);
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter);
    painter.end();
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// Paints @p icon into a 16x16 area of a pixmap at device pixel ratio 2, as a view on a high
// density screen does.
QImage paintAtRatioTwo(const QIcon& icon)
{
    QPixmap pixmap(32, 32);
    pixmap.setDevicePixelRatio(2.0);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    icon.paint(&painter, QRect(0, 0, 16, 16));
    painter.end();
    return pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// Counts the pixels that are neither fully transparent nor fully opaque: the soft edge that a
// picture scaled up from fewer pixels has in plenty.
int softPixels(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int alpha = qAlpha(image.pixel(x, y));
            if (alpha > 0 && alpha < 255)
                ++count;
        }
    }
    return count;
}

} // namespace

class TestBoolManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        qRegisterMetaType<QtProperty*>();
    }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void newPropertyHasDefaults()
    {
        QtBoolPropertyManager manager;
        QtProperty* property = manager.addProperty(QStringLiteral("enabled"));
        QCOMPARE(manager.value(property), false);
        QCOMPARE(manager.textVisible(property), true);
        QVERIFY(property->hasValue());
        QCOMPARE(property->valueText(), QStringLiteral("False"));
    }

    void setValue_data()
    {
        QTest::addColumn<QList<bool>>("values");
        QTest::addColumn<int>("emitted");
        QTest::addColumn<QString>("text");
        QTest::newRow("unchanged") << QList<bool> {false} << 0 << "False";
        QTest::newRow("set") << QList<bool> {true} << 1 << "True";
        QTest::newRow("set twice") << QList<bool> {true, true} << 1 << "True";
        QTest::newRow("set and cleared") << QList<bool> {true, false} << 2 << "False";
    }

    void setValue()
    {
        QFETCH(QList<bool>, values);
        QFETCH(int, emitted);
        QFETCH(QString, text);
        QtBoolPropertyManager manager;
        QtProperty* property = manager.addProperty();
        QSignalSpy valueSpy(&manager, &QtBoolPropertyManager::valueChanged);
        QSignalSpy changedSpy(&manager, &QtAbstractPropertyManager::propertyChanged);
        for (bool value : values)
            manager.setValue(property, value);
        QCOMPARE(manager.value(property), values.last());
        QCOMPARE(valueSpy.count(), emitted);
        QCOMPARE(changedSpy.count(), emitted);
        QCOMPARE(property->valueText(), text);
        for (int i = 0; i < emitted; ++i) {
            QCOMPARE(valueSpy.at(i).at(0).value<QtProperty*>(), property);
            QCOMPARE(valueSpy.at(i).at(1).toBool(), values.at(values.size() - emitted + i));
        }
    }

    void textVisibility()
    {
        QtBoolPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setValue(property, true);
        QSignalSpy spy(&manager, &QtBoolPropertyManager::textVisibleChanged);
        QSignalSpy changedSpy(&manager, &QtAbstractPropertyManager::propertyChanged);
        manager.setTextVisible(property, true);
        QCOMPARE(spy.count(), 0);
        manager.setTextVisible(property, false);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(1).toBool(), false);
        QCOMPARE(changedSpy.count(), 1);
        QCOMPARE(manager.textVisible(property), false);
        QVERIFY(property->valueText().isEmpty());
        // The check box still shows the value.
        QVERIFY(!property->valueIcon().isNull());
    }

    void iconIsTheStyleCheckBox_data()
    {
        QTest::addColumn<bool>("checked");
        QTest::newRow("checked") << true;
        QTest::newRow("unchecked") << false;
    }

    void iconIsTheStyleCheckBox()
    {
        QFETCH(bool, checked);
        QtBoolPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setValue(property, checked);
        const QImage shown = property->valueIcon()
                                 .pixmap(QSize(16, 16))
                                 .toImage()
                                 .convertToFormat(QImage::Format_ARGB32_Premultiplied);
        QCOMPARE(shown, styleCheckBox(checked, QSize(16, 16), 1.0));
        QVERIFY(shown != styleCheckBox(!checked, QSize(16, 16), 1.0));
    }

    void iconFollowsTheValue()
    {
        QtBoolPropertyManager manager;
        QtProperty* property = manager.addProperty();
        const qint64 unchecked = property->valueIcon().cacheKey();
        manager.setValue(property, true);
        const qint64 checked = property->valueIcon().cacheKey();
        QVERIFY(checked != unchecked);
        manager.setValue(property, false);
        QCOMPARE(property->valueIcon().cacheKey(), unchecked);
    }

    void iconIsSharpAtRatioTwo()
    {
        QtBoolPropertyManager manager;
        QtProperty* property = manager.addProperty();
        manager.setValue(property, true);
        const QIcon icon = property->valueIcon();
        const QImage sharp = paintAtRatioTwo(icon);
        const QImage single = icon.pixmap(QSize(16, 16)).toImage();
        const QImage blownUp
            = single.scaled(32, 32, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        const QImage blocky = single.scaled(32, 32, Qt::IgnoreAspectRatio, Qt::FastTransformation);
        QCOMPARE(sharp, styleCheckBox(true, QSize(16, 16), 2.0));
        QVERIFY(sharp != blocky.convertToFormat(QImage::Format_ARGB32_Premultiplied));
        QVERIFY2(softPixels(sharp) < softPixels(blownUp),
                 qPrintable(QStringLiteral("%1 soft pixels drawn, %2 scaled")
                                .arg(softPixels(sharp))
                                .arg(softPixels(blownUp))));
    }

    void iconKeepsItsSize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("small") << QSize(13, 13);
        QTest::newRow("large") << QSize(48, 48);
    }

    void iconKeepsItsSize()
    {
        QFETCH(QSize, size);
        QtBoolPropertyManager manager;
        QtProperty* property = manager.addProperty();
        const QPixmap pixmap = property->valueIcon().pixmap(size);
        QCOMPARE(pixmap.size(), size);
        QCOMPARE(pixmap.devicePixelRatio(), 1.0);
    }
};

QTEST_MAIN(TestBoolManager)

#include "tst_pb_boolmanager.moc"
