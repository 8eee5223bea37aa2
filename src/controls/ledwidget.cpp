#include "controls/ledwidget.h"

#include <QPainter>

LedWidget::LedWidget(QWidget* parent, bool state)
    : QWidget(parent)
    , m_bState(state)
{ }

void LedWidget::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(m_bState ? Qt::green : Qt::red, Qt::SolidPattern));
    // The lamp keeps its size whatever the widget's: the panels lay it out as a fixed mark.
    painter.drawEllipse(QRect(0, 0, 16, 16));
}
