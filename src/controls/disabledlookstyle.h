#ifndef DISABLEDLOOKSTYLE_H
#define DISABLEDLOOKSTYLE_H

#include <QProxyStyle>

/// Clears QStyle::State_Enabled in the state of @p option, which may be null. The change is made
/// on the caller's object and stays there.
void modifyOption(const QStyleOption* option);

/// A style that draws every widget under it as disabled while the widgets keep working: sizes,
/// hit tests and drawing all see an option without QStyle::State_Enabled.
class DisabledLookStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /// Draws on top of @p style, which the proxy then owns; null takes the application's style.
    explicit DisabledLookStyle(QStyle* style = nullptr);

    /// Draws @p text as disabled text, whatever @p enabled says.
    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                      bool enabled, const QString& text,
                      QPalette::ColorRole textRole = QPalette::NoRole) const override;
    /// Draws the primitive @p element as disabled.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    /// Draws the control @p element as disabled.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    /// The rectangle of the sub-element @p element of a disabled widget.
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    /// Draws the complex control @p control as disabled.
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget = nullptr) const override;
    /// The sub-control of a disabled @p control under @p pos.
    SubControl hitTestComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                     const QPoint& pos,
                                     const QWidget* widget = nullptr) const override;
    /// The rectangle of the sub-control @p subControl of a disabled @p control.
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                         SubControl subControl, const QWidget* widget) const override;
    /// The pixel metric @p metric of a disabled widget.
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
    /// The size of a disabled widget of @p type with contents of @p contentsSize.
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contentsSize,
                           const QWidget* widget) const override;
    /// The style hint @p hint for a disabled widget.
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr,
                  const QWidget* widget = nullptr,
                  QStyleHintReturn* returnData = nullptr) const override;
    /// The standard pixmap @p standardPixmap of a disabled widget.
    QPixmap standardPixmap(StandardPixmap standardPixmap, const QStyleOption* option,
                           const QWidget* widget = nullptr) const override;
    /// The pixmap @p pixmap in the icon mode @p iconMode for a disabled widget.
    QPixmap generatedIconPixmap(QIcon::Mode iconMode, const QPixmap& pixmap,
                                const QStyleOption* option) const override;

    /// The standard icon @p standardIcon of a disabled widget.
    Q_INVOKABLE QIcon standardIconImplementation(QStyle::StandardPixmap standardIcon,
                                                 const QStyleOption* option = nullptr,
                                                 const QWidget* widget = nullptr) const;
    /// The spacing between two controls of disabled widgets.
    Q_INVOKABLE int layoutSpacingImplementation(QSizePolicy::ControlType control1,
                                                QSizePolicy::ControlType control2,
                                                Qt::Orientation orientation,
                                                const QStyleOption* option = nullptr,
                                                const QWidget* widget = nullptr) const;
};

#endif
