#include "controls/disabledlookstyle.h"

#include <QStyleOption>

void modifyOption(const QStyleOption* option)
{
    if (!option)
        return;
    // Qt hands its options over as const pointers to objects it owns and rebuilds for each call,
    // so clearing the flag in place is what lets the base style see a disabled widget.
    const_cast<QStyleOption*>(option)->state &= ~QStyle::State_Enabled;
}

DisabledLookStyle::DisabledLookStyle(QStyle* style)
    : QProxyStyle(style)
{ }

void DisabledLookStyle::drawItemText(QPainter* painter, const QRect& rect, int flags,
                                     const QPalette& palette, bool enabled, const QString& text,
                                     QPalette::ColorRole textRole) const
{
    Q_UNUSED(enabled)
    QProxyStyle::drawItemText(painter, rect, flags, palette, false, text, textRole);
}

void DisabledLookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                      QPainter* painter, const QWidget* widget) const
{
    modifyOption(option);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void DisabledLookStyle::drawControl(ControlElement element, const QStyleOption* option,
                                    QPainter* painter, const QWidget* widget) const
{
    modifyOption(option);
    QProxyStyle::drawControl(element, option, painter, widget);
}

QRect DisabledLookStyle::subElementRect(SubElement element, const QStyleOption* option,
                                        const QWidget* widget) const
{
    modifyOption(option);
    return QProxyStyle::subElementRect(element, option, widget);
}

void DisabledLookStyle::drawComplexControl(ComplexControl control,
                                           const QStyleOptionComplex* option, QPainter* painter,
                                           const QWidget* widget) const
{
    modifyOption(option);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QStyle::SubControl DisabledLookStyle::hitTestComplexControl(ComplexControl control,
                                                            const QStyleOptionComplex* option,
                                                            const QPoint& pos,
                                                            const QWidget* widget) const
{
    modifyOption(option);
    return QProxyStyle::hitTestComplexControl(control, option, pos, widget);
}

QRect DisabledLookStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                        SubControl subControl, const QWidget* widget) const
{
    modifyOption(option);
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

int DisabledLookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                   const QWidget* widget) const
{
    modifyOption(option);
    return QProxyStyle::pixelMetric(metric, option, widget);
}

QSize DisabledLookStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                          const QSize& contentsSize, const QWidget* widget) const
{
    modifyOption(option);
    return QProxyStyle::sizeFromContents(type, option, contentsSize, widget);
}

int DisabledLookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                                 QStyleHintReturn* returnData) const
{
    modifyOption(option);
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

QPixmap DisabledLookStyle::standardPixmap(StandardPixmap standardPixmap, const QStyleOption* option,
                                          const QWidget* widget) const
{
    modifyOption(option);
    return QProxyStyle::standardPixmap(standardPixmap, option, widget);
}

QPixmap DisabledLookStyle::generatedIconPixmap(QIcon::Mode iconMode, const QPixmap& pixmap,
                                               const QStyleOption* option) const
{
    modifyOption(option);
    return QProxyStyle::generatedIconPixmap(iconMode, pixmap, option);
}

QIcon DisabledLookStyle::standardIconImplementation(QStyle::StandardPixmap standardIcon,
                                                    const QStyleOption* option,
                                                    const QWidget* widget) const
{
    modifyOption(option);
    return QProxyStyle::standardIcon(standardIcon, option, widget);
}

int DisabledLookStyle::layoutSpacingImplementation(QSizePolicy::ControlType control1,
                                                   QSizePolicy::ControlType control2,
                                                   Qt::Orientation orientation,
                                                   const QStyleOption* option,
                                                   const QWidget* widget) const
{
    modifyOption(option);
    return QProxyStyle::layoutSpacing(control1, control2, orientation, option, widget);
}
