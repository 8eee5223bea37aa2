#ifndef INTERVALMAPPER_H
#define INTERVALMAPPER_H

#include "controls/interval.h"

/// Maps a signed 64-bit range with a step (the "iData" side) onto the 32-bit range of a slider
/// (the "widget" side) and converts values both ways.
///
/// The widget range always starts at -2147483648. A data range of fewer than 4294967295 steps
/// gets one widget step per data step; a wider one gets the whole 32-bit range, and one widget
/// step then stands for stepMultiplier() data steps.
class IntervalMapper
{
public:
    /// Takes @p iData as the data side and chooses the widget side for it.
    explicit IntervalMapper(Interval const& iData);

    /// Returns a copy of the data interval.
    Interval iData() const { return m_oIData; }

    /// Returns a copy of the widget interval.
    Interval widget() const { return m_oWidget; }

    /// Returns the data steps per widget step, rounded up, from the two cached step counts;
    /// 0 when the widget interval has no steps.
    unsigned long stepMultiplier() const;

    /// Returns the multiplier that the last refresh() stored; conversions never read it.
    unsigned long storedStepMultiplier() const { return m_ulStepMultiplier; }

    /// Chooses the widget interval for the data interval and stores the multiplier.
    void refresh();

    /// Returns the widget steps from the widget min that stand for the data @p value.
    unsigned long iDataValueToWidgetSteps(long value) const;

    /// Returns the slider position of the data @p value, clamped to the widget range.
    long valueToWidget(long value) const;

    /// Returns the data steps from the data min that the slider position @p value stands for.
    unsigned long widgetValueToIDataSteps(long value) const;

    /// Returns the data value of the slider position @p value, clamped to the data range as
    /// doubles; a result of 2^63 or more comes out as -9223372036854775808.
    long valueFromWidget(long value) const;

private:
    Interval m_oIData;
    Interval m_oWidget;
    unsigned long m_ulStepMultiplier;
};

#endif
