#ifndef INT64SLIDER_H
#define INT64SLIDER_H

#include "controls/intervalmapper.h"
#include "controls/wslider.h"

#include <QWidget>

#include <cstdint>

/// A slider over a signed 64-bit range with a step.
///
/// It wraps one WSlider, whose 32-bit range stands for the data range through an IntervalMapper.
/// Everything that leaves it is a data value; the wrapped slider's own numbers are offsets that
/// only the mapper gives meaning. In a range of more than 4294967295 steps one slider step covers
/// several data steps, and a value set from code comes back rounded down to such a step.
class Int64Slider : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(long long min READ min WRITE setMinimum NOTIFY minChanged)
    Q_PROPERTY(long long max READ max WRITE setMaximum NOTIFY maxChanged)
    Q_PROPERTY(long long singleStep READ singleStep WRITE setSingleStep NOTIFY singleStepChanged)
    Q_PROPERTY(long value READ value WRITE setValue NOTIFY valueChanged)
    Q_PROPERTY(bool sliderDown READ isSliderDown WRITE setSliderDown)
    Q_PROPERTY(bool invertedAppearance READ invertedAppearance WRITE setInvertedAppearance)
    Q_PROPERTY(bool invertedControls READ invertedControls WRITE setInvertedControls)
    Q_PROPERTY(bool tracking READ hasTracking WRITE setTracking)
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation)

public:
    explicit Int64Slider(QWidget* parent = nullptr);

    /// Returns the lowest data value.
    long long min() const;

    /// Returns the highest data value; never below min().
    long long max() const;

    /// Returns the data distance of one step.
    long long singleStep() const;

    /// Returns the data value that the slider's position stands for.
    long value() const;

    bool isSliderDown() const;
    bool invertedAppearance() const;
    bool invertedControls() const;
    bool hasTracking() const;
    Qt::Orientation orientation() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void valueChanged(int64_t value);
    void sliderMoved(int64_t value);
    void minChanged(long long min);
    void maxChanged(long long max);
    void singleStepChanged(long long singleStep);

public slots:
    /// Moves the slider to the position of the data @p value; nothing happens when that is the
    /// position it already has.
    void setValue(long value);

    /// Sets the lowest data value; the value must be set again afterwards.
    void setMinimum(long long m);

    /// Sets the highest data value; one below min() is raised to it.
    void setMaximum(long long m);

    /// Sets the data distance of one step.
    void setSingleStep(long long step);

    void setTracking(bool tracking);
    void setOrientation(Qt::Orientation orientation);
    void setInvertedAppearance(bool inverted);
    void setInvertedControls(bool inverted);
    void setSliderDown(bool sliderDown);

private slots:
    void internalValueChanged(int value);
    void internalSliderMoved(int value);

private:
    /// Replaces the mapper by one for the range @p min to @p max with @p step and gives the
    /// slider the widget range of the new mapper.
    void refreshMapper(long long min, long long max, long long step);

    WSlider m_oSlider;
    IntervalMapper m_oMapper;
};

#endif
