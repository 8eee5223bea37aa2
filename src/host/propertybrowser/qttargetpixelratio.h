#ifndef QTTARGETPIXELRATIO_H
#define QTTARGETPIXELRATIO_H

#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

/// The pixel ratio of the device that @p painter's pixels go to. That is the engine's device,
/// which differs from the painter's own when a widget's painting is redirected into an image by
/// render() or grab().
inline qreal qtTargetPixelRatio(const QPainter* painter)
{
    const QPaintEngine* engine = painter->paintEngine();
    return (engine ? engine->paintDevice() : painter->device())->devicePixelRatioF();
}

#endif
