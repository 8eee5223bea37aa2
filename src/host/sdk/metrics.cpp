#include "sdk/metrics.h"

#include <QApplication>
#include <QGuiApplication>
#include <QMainWindow>
#include <QPointer>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace App {

namespace {

QPointer<QWidget>& chosenMainWindow()
{
    static QPointer<QWidget> window;
    return window;
}

// The screen the centre point lies on; the primary screen when it lies on none.
QScreen* screenAt(const QPoint& point)
{
    QScreen* screen = QGuiApplication::screenAt(point);
    return screen ? screen : QGuiApplication::primaryScreen();
}

// The rectangle a window takes on the screen, frame included. Before a window is first shown its
// frame is not known, and frameGeometry() then even comes out a pixel short.
QRect outerGeometry(const QWidget* window)
{
    return window->testAttribute(Qt::WA_WState_Created) ? window->frameGeometry()
                                                        : window->geometry();
}

} // namespace

void Metrics::centerParent(QWidget* parent, QWidget* widget)
{
    if (!widget)
        return;
    QRectF area;
    if (parent) {
        area = parent->isWindow()
            ? QRectF(outerGeometry(parent))
            : QRectF(QRect(parent->mapToGlobal(QPoint(0, 0)), parent->size()));
    } else if (QScreen* primary = QGuiApplication::primaryScreen()) {
        area = primary->availableGeometry();
    } else {
        return;
    }
    // Fractions matter: rounding the centre and the half size apart can put the widget a pixel
    // off centre.
    const QSize size = widget->isWindow() ? outerGeometry(widget).size() : widget->size();
    const QPointF exact = area.center() - QPointF(size.width(), size.height()) / 2.0;
    QPoint topLeft(qRound(exact.x()), qRound(exact.y()));
    if (widget->isWindow()) {
        // A window centred over a parent near the screen's edge would hang off the screen.
        const QRect available = screenAt(area.center().toPoint())->availableGeometry();
        topLeft.setX(std::max(available.left(),
                              std::min(topLeft.x(), available.right() + 1 - size.width())));
        topLeft.setY(std::max(available.top(),
                              std::min(topLeft.y(), available.bottom() + 1 - size.height())));
    }
    widget->move(widget->isWindow() || !widget->parentWidget()
                     ? topLeft
                     : widget->parentWidget()->mapFromGlobal(topLeft));
}

QWidget* Metrics::getMainWindow(bool visibleOnly)
{
    QWidget* chosen = chosenMainWindow();
    if (chosen && (!visibleOnly || chosen->isVisible()))
        return chosen;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow*>(widget) && (!visibleOnly || widget->isVisible()))
            return widget;
    }
    return nullptr;
}

void Metrics::setMainWindow(QWidget* window)
{
    chosenMainWindow() = window;
}

} // namespace App
