#ifndef FIXEDSLIDERSTYLE_H
#define FIXEDSLIDERSTYLE_H

#include <QProxyStyle>
#include <QStyleFactory>
#include <QStyleOptionSlider>

// A style with a known slider geometry, so that pixel positions have exact values: the groove
// begins at pixel 10 and is 511 pixels long, the handle is 11 pixels long, which leaves a
// travel of 500 pixels. A range of 500 then moves one value per pixel.
class FixedSliderStyle : public QProxyStyle
{
public:
    static constexpr int kGrooveStart = 10;
    static constexpr int kTravel = 500;
    static constexpr int kHandle = 11;

    FixedSliderStyle()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    { }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl sub,
                         const QWidget* widget) const override
    {
        const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
        if (control != CC_Slider || !slider)
            return QProxyStyle::subControlRect(control, option, sub, widget);
        const bool horizontal = slider->orientation == Qt::Horizontal;
        const int thickness = horizontal ? slider->rect.height() : slider->rect.width();
        auto along = [horizontal, thickness](int start, int length) {
            return horizontal ? QRect(start, 0, length, thickness)
                              : QRect(0, start, thickness, length);
        };
        if (sub == SC_SliderGroove)
            return along(kGrooveStart, kTravel + kHandle);
        if (sub == SC_SliderHandle)
            return along(kGrooveStart
                             + sliderPositionFromValue(slider->minimum, slider->maximum,
                                                       slider->sliderPosition, kTravel,
                                                       slider->upsideDown),
                         kHandle);
        return QProxyStyle::subControlRect(control, option, sub, widget);
    }
};

#endif
