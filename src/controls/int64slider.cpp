#include "controls/int64slider.h"

#include "controls/int64typename.h"

#include <QVBoxLayout>

#include <algorithm>

Int64Slider::Int64Slider(QWidget* parent)
    : QWidget(parent)
    , m_oSlider(nullptr)
    , m_oMapper(Interval(m_oSlider.minimum(), m_oSlider.maximum(), m_oSlider.singleStep()))
{
    vRegisterInt64Name();
    m_oSlider.setParent(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&m_oSlider);
    refreshMapper(m_oSlider.minimum(), m_oSlider.maximum(), m_oSlider.singleStep());
    connect(&m_oSlider, &QAbstractSlider::valueChanged, this, &Int64Slider::internalValueChanged);
    connect(&m_oSlider, &QAbstractSlider::sliderMoved, this, &Int64Slider::internalSliderMoved);
}

void Int64Slider::refreshMapper(long long min, long long max, long long step)
{
    // The mapper is replaced before the slider is touched: a value that the new slider bounds
    // clamp is then reported through the new mapping.
    m_oMapper = IntervalMapper(Interval(min, std::max(min, max), step));
    const Interval widget = m_oMapper.widget();
    m_oSlider.setMinimum(static_cast<int>(widget.min()));
    m_oSlider.setMaximum(static_cast<int>(widget.max()));
    m_oSlider.setSingleStep(static_cast<int>(widget.step()));
    m_oSlider.setPageStep(static_cast<int>(widget.step()));
}

long long Int64Slider::min() const
{
    return m_oMapper.iData().min();
}

long long Int64Slider::max() const
{
    return m_oMapper.iData().max();
}

long long Int64Slider::singleStep() const
{
    return m_oMapper.iData().step();
}

long Int64Slider::value() const
{
    return m_oMapper.valueFromWidget(m_oSlider.value());
}

bool Int64Slider::isSliderDown() const
{
    return m_oSlider.isSliderDown();
}

bool Int64Slider::invertedAppearance() const
{
    return m_oSlider.invertedAppearance();
}

bool Int64Slider::invertedControls() const
{
    return m_oSlider.invertedControls();
}

bool Int64Slider::hasTracking() const
{
    return m_oSlider.hasTracking();
}

Qt::Orientation Int64Slider::orientation() const
{
    return m_oSlider.orientation();
}

QSize Int64Slider::sizeHint() const
{
    return m_oSlider.sizeHint();
}

QSize Int64Slider::minimumSizeHint() const
{
    return m_oSlider.minimumSizeHint();
}

void Int64Slider::setValue(long value)
{
    // The widget position always lies in int range: the mapper clamps it to the widget interval.
    const int position = static_cast<int>(m_oMapper.valueToWidget(value));
    if (position != m_oSlider.value())
        m_oSlider.setValue(position);
}

void Int64Slider::setMinimum(long long m)
{
    refreshMapper(m, max(), singleStep());
    emit minChanged(m);
}

void Int64Slider::setMaximum(long long m)
{
    refreshMapper(min(), m, singleStep());
    emit maxChanged(m);
}

void Int64Slider::setSingleStep(long long step)
{
    refreshMapper(min(), max(), step);
    emit singleStepChanged(step);
}

void Int64Slider::setTracking(bool tracking)
{
    m_oSlider.setTracking(tracking);
}

void Int64Slider::setOrientation(Qt::Orientation orientation)
{
    m_oSlider.setOrientation(orientation);
}

void Int64Slider::setInvertedAppearance(bool inverted)
{
    m_oSlider.setInvertedAppearance(inverted);
}

void Int64Slider::setInvertedControls(bool inverted)
{
    m_oSlider.setInvertedControls(inverted);
}

void Int64Slider::setSliderDown(bool sliderDown)
{
    m_oSlider.setSliderDown(sliderDown);
}

void Int64Slider::internalValueChanged(int value)
{
    emit valueChanged(m_oMapper.valueFromWidget(value));
}

void Int64Slider::internalSliderMoved(int value)
{
    emit sliderMoved(m_oMapper.valueFromWidget(value));
}
