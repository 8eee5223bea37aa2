#ifndef SDK_MULTIPOINTSGRAPHICSITEM_H
#define SDK_MULTIPOINTSGRAPHICSITEM_H

#include "sdk/sdkglobal.h"

#include <QColor>
#include <QGraphicsItem>
#include <QPointF>
#include <QVector>

namespace Script {
namespace GraphicItems {

/// A graphics item that marks a list of points, each with a small cross, in item coordinates.
/// The lines are one pixel wide at any zoom.
class SDK_EXPORT MultiPointsGraphicsItem : public QGraphicsItem
{
public:
    /// Makes an item without points.
    explicit MultiPointsGraphicsItem(QGraphicsItem* parent = nullptr);
    ~MultiPointsGraphicsItem() override;

    /// Replaces the points to mark.
    void setPoints(QVector<QPointF> const& points);
    /// The points that are marked.
    QVector<QPointF> const& points() const;
    /// Sets the length of a cross's arm, in item units; it is at least 1.
    void setCrossSize(qreal armLength);
    /// The length of a cross's arm, in item units.
    qreal crossSize() const;
    /// Sets the colour of the crosses.
    void setColor(const QColor& color);
    /// The colour of the crosses.
    QColor color() const;

    /// Covers every cross, with room for the pen.
    QRectF boundingRect() const override;
    /// Draws a cross centred on each point.
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
               QWidget* widget = nullptr) override;

private:
    void vUpdateBounds();

    QVector<QPointF> m_oPoints;
    qreal m_dCrossSize = 4.0;
    QColor m_oColor = QColor(255, 64, 64);
    QRectF m_oBounds;
};

} // namespace GraphicItems
} // namespace Script

#endif
