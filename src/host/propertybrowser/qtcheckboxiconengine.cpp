#include "qtcheckboxiconengine.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

QtCheckBoxIconEngine::QtCheckBoxIconEngine(bool checked)
    : m_bChecked(checked)
{ }

void QtCheckBoxIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                                 QIcon::State state)
{
    Q_UNUSED(state)
    QStyleOptionButton option;
    option.rect = rect;
    option.state = m_bChecked ? QStyle::State_On : QStyle::State_Off;
    if (mode != QIcon::Disabled)
        option.state |= QStyle::State_Enabled;
    if (mode == QIcon::Active)
        option.state |= QStyle::State_MouseOver;
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, painter);
}

QPixmap QtCheckBoxIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    Q_UNUSED(state)
    return render(size, 1.0, mode);
}

QIconEngine* QtCheckBoxIconEngine::clone() const
{
    return new QtCheckBoxIconEngine(m_bChecked);
}

void QtCheckBoxIconEngine::virtual_hook(int id, void* data)
{
    if (id != QIconEngine::ScaledPixmapHook) {
        QIconEngine::virtual_hook(id, data);
        return;
    }
    // QIcon asks for the physical size and tells the ratio; the style draws in logical pixels.
    auto* argument = static_cast<QIconEngine::ScaledPixmapArgument*>(data);
    const qreal ratio = argument->scale > 0 ? argument->scale : 1.0;
    const QSize logical(qRound(argument->size.width() / ratio),
                        qRound(argument->size.height() / ratio));
    argument->pixmap = render(logical, ratio, argument->mode);
}

QPixmap QtCheckBoxIconEngine::render(const QSize& size, qreal devicePixelRatio, QIcon::Mode mode)
{
    // A painter on an empty pixmap only warns.
    if (size.isEmpty())
        return QPixmap();
    QPixmap pixmap(
        QSize(qRound(size.width() * devicePixelRatio), qRound(size.height() * devicePixelRatio)));
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, QIcon::Off);
    return pixmap;
}
