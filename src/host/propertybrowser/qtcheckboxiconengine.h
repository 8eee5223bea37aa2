#ifndef QTCHECKBOXICONENGINE_H
#define QTCHECKBOXICONENGINE_H

#include <QIconEngine>

/// Draws a check box with the application style at whatever size and device pixel ratio the
/// icon is asked for, so that it stays sharp on high density screens.
class QtCheckBoxIconEngine : public QIconEngine
{
public:
    /// Makes an engine that draws a check box ticked when @p checked is true.
    explicit QtCheckBoxIconEngine(bool checked);

    /// Draws the check box into @p rect of @p painter, in logical coordinates.
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    /// Draws the check box into a new pixmap of @p size pixels at device pixel ratio 1.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    /// Copies the engine.
    QIconEngine* clone() const override;
    /// Answers QIcon's request for a pixmap at a device pixel ratio by drawing at that ratio.
    void virtual_hook(int id, void* data) override;

private:
    /// Draws a pixmap of @p size device-independent pixels at @p devicePixelRatio; a null pixmap
    /// for an empty size.
    QPixmap render(const QSize& size, qreal devicePixelRatio, QIcon::Mode mode);

    bool m_bChecked;
};

#endif
