#include "sdk/multipointsgraphicsitem.h"

#include <QPainter>
#include <QPen>

#include <algorithm>

namespace Script {
namespace GraphicItems {

MultiPointsGraphicsItem::MultiPointsGraphicsItem(QGraphicsItem* parent)
    : QGraphicsItem(parent)
{ }

MultiPointsGraphicsItem::~MultiPointsGraphicsItem() = default;

void MultiPointsGraphicsItem::setPoints(QVector<QPointF> const& points)
{
    prepareGeometryChange();
    m_oPoints = points;
    vUpdateBounds();
    update();
}

QVector<QPointF> const& MultiPointsGraphicsItem::points() const
{
    return m_oPoints;
}

void MultiPointsGraphicsItem::setCrossSize(qreal armLength)
{
    prepareGeometryChange();
    m_dCrossSize = std::max<qreal>(1.0, armLength);
    vUpdateBounds();
    update();
}

qreal MultiPointsGraphicsItem::crossSize() const
{
    return m_dCrossSize;
}

void MultiPointsGraphicsItem::setColor(const QColor& color)
{
    m_oColor = color;
    update();
}

QColor MultiPointsGraphicsItem::color() const
{
    return m_oColor;
}

QRectF MultiPointsGraphicsItem::boundingRect() const
{
    return m_oBounds;
}

void MultiPointsGraphicsItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* option,
                                    QWidget* widget)
{
    Q_UNUSED(option)
    Q_UNUSED(widget)
    if (m_oPoints.isEmpty())
        return;
    QPen pen(m_oColor);
    // A cosmetic pen stays one pixel wide however far the view zooms in.
    pen.setCosmetic(true);
    pen.setWidth(1);
    painter->save();
    painter->setPen(pen);
    for (const QPointF& point : m_oPoints) {
        painter->drawLine(point - QPointF(m_dCrossSize, 0), point + QPointF(m_dCrossSize, 0));
        painter->drawLine(point - QPointF(0, m_dCrossSize), point + QPointF(0, m_dCrossSize));
    }
    painter->restore();
}

void MultiPointsGraphicsItem::vUpdateBounds()
{
    if (m_oPoints.isEmpty()) {
        m_oBounds = QRectF();
        return;
    }
    qreal left = m_oPoints.first().x();
    qreal right = left;
    qreal top = m_oPoints.first().y();
    qreal bottom = top;
    for (const QPointF& point : m_oPoints) {
        left = std::min(left, point.x());
        right = std::max(right, point.x());
        top = std::min(top, point.y());
        bottom = std::max(bottom, point.y());
    }
    // One more unit on each side leaves room for the pen's pixel at the ends of the arms.
    const qreal margin = m_dCrossSize + 1.0;
    m_oBounds
        = QRectF(QPointF(left - margin, top - margin), QPointF(right + margin, bottom + margin));
}

} // namespace GraphicItems
} // namespace Script
