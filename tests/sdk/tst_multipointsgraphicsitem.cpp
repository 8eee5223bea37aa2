#include "sdk/multipointsgraphicsitem.h"

#include "testsupport.h"

#include <QGraphicsScene>
#include <QPainter>
#include <QTest>

using Script::GraphicItems::MultiPointsGraphicsItem;

namespace {

// Renders the scene rectangle @p area one item unit per pixel onto white.
QImage render(QGraphicsScene& scene, const QRectF& area)
{
    QImage image(area.size().toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    scene.render(&painter, QRectF(QPointF(0, 0), area.size()), area);
    return image;
}

bool isInk(QRgb pixel)
{
    return pixel != qRgb(255, 255, 255);
}

} // namespace

class TestMultiPointsGraphicsItem : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }
    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void startsWithoutPoints()
    {
        const MultiPointsGraphicsItem item(nullptr);
        QVERIFY(item.points().isEmpty());
        QVERIFY(item.boundingRect().isEmpty());
        QCOMPARE(item.parentItem(), nullptr);
    }

    void boundingRectCoversEveryCross()
    {
        MultiPointsGraphicsItem item;
        item.setCrossSize(3);
        item.setPoints({QPointF(10, 20), QPointF(-5, 40)});
        const QRectF bounds = item.boundingRect();
        for (const QPointF& point : item.points()) {
            QVERIFY(bounds.contains(point - QPointF(3, 0)));
            QVERIFY(bounds.contains(point + QPointF(3, 0)));
            QVERIFY(bounds.contains(point - QPointF(0, 3)));
            QVERIFY(bounds.contains(point + QPointF(0, 3)));
        }
        item.setPoints({});
        QVERIFY(item.boundingRect().isEmpty());
    }

    void crossSizeIsAtLeastOne()
    {
        MultiPointsGraphicsItem item;
        item.setCrossSize(0);
        QCOMPARE(item.crossSize(), 1.0);
        item.setCrossSize(6);
        QCOMPARE(item.crossSize(), 6.0);
    }

    void drawsACrossAtEachPoint()
    {
        QGraphicsScene scene;
        auto* item = new MultiPointsGraphicsItem(nullptr);
        item->setColor(Qt::black);
        item->setCrossSize(4);
        const QVector<QPointF> points {QPointF(10.5, 10.5), QPointF(30.5, 20.5)};
        item->setPoints(points);
        scene.addItem(item);

        const QImage image = render(scene, QRectF(0, 0, 40, 30));
        for (const QPointF& point : points) {
            // A point at the middle of a pixel lights exactly that pixel.
            const int x = int(point.x());
            const int y = int(point.y());
            QVERIFY2(isInk(image.pixel(x, y)),
                     qPrintable(QStringLiteral("centre %1,%2").arg(x).arg(y)));
            QVERIFY(isInk(image.pixel(x - 3, y)));
            QVERIFY(isInk(image.pixel(x + 3, y)));
            QVERIFY(isInk(image.pixel(x, y - 3)));
            QVERIFY(isInk(image.pixel(x, y + 3)));
            // A cross, not a box: the diagonals stay empty.
            QVERIFY(!isInk(image.pixel(x - 3, y - 3)));
            QVERIFY(!isInk(image.pixel(x + 3, y + 3)));
        }
        // Far from any point nothing is drawn.
        QVERIFY(!isInk(image.pixel(20, 3)));
        QVERIFY(!isInk(image.pixel(2, 27)));
    }

    void hiddenItemDrawsNothing()
    {
        QGraphicsScene scene;
        auto* item = new MultiPointsGraphicsItem();
        item->setColor(Qt::black);
        item->setPoints({QPointF(5.5, 5.5)});
        scene.addItem(item);
        item->setVisible(false);
        const QImage image = render(scene, QRectF(0, 0, 12, 12));
        QVERIFY(!isInk(image.pixel(5, 5)));
    }
};

QTEST_MAIN(TestMultiPointsGraphicsItem)
#include "tst_multipointsgraphicsitem.moc"
