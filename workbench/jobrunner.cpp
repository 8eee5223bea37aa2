#include "jobrunner.h"

#include "jobmodel.h"
#include "nodetypes.h"

#include "sdk/ditem.h"

#include <cmath>
#include <limits>

using Script::DItem;

namespace {

// Chances per cycle and output: an error, a value beyond the range.
const double kErrorChance = 0.04;
const double kOutsideChance = 0.08;
// A step moves at most this share of the range, so a value can be followed by eye.
const double kStepShare = 0.15;

// The value in the type the node keeps, rounded and clamped to what the type can hold.
QVariant typedValue(const QString& type, double value)
{
    if (type == NodeTypes::kInt)
        return int(qBound(double(std::numeric_limits<int>::min()), std::round(value),
                          double(std::numeric_limits<int>::max())));
    if (type == NodeTypes::kInt64)
        return qlonglong(qBound(-9.2e18, std::round(value), 9.2e18));
    return value;
}

} // namespace

JobRunner::JobRunner(JobModel& model, QObject* parent)
    : QObject(parent)
    , m_oModel(model)
    , m_oRandom(20261122)
{
    m_oTimer.setInterval(kIntervalMs);
    connect(&m_oTimer, &QTimer::timeout, this, &JobRunner::vStep);
}

bool JobRunner::isRunning() const
{
    return m_oTimer.isActive();
}

void JobRunner::setRunning(bool running)
{
    if (running == isRunning())
        return;
    if (running)
        m_oTimer.start();
    else
        m_oTimer.stop();
    emit runningChanged(running);
}

void JobRunner::vStep()
{
    const QList<DItem*> nodes = m_oModel.nodes();
    QList<DItem*> outputs;
    for (DItem* node : nodes) {
        const QString& type = node->iDataType();
        if (node->ioType() != DItem::IoOutput || !NodeTypes::isNumeric(type))
            continue;
        const double minimum = node->property("IDataNumeric.DynamicMin").toDouble();
        const double maximum = node->property("IDataNumeric.DynamicMax").toDouble();
        const double range = maximum - minimum;
        const double current = node->property("IDataNumeric.DynamicValue").toDouble();
        // A running job has produced every output once, so none stays unavailable.
        node->setInitialized(false);
        node->setErrorState(m_oRandom.generateDouble() < kErrorChance);
        double next = current + (m_oRandom.generateDouble() * 2.0 - 1.0) * kStepShare * range;
        if (m_oRandom.generateDouble() < kOutsideChance)
            next = m_oRandom.bounded(2) ? maximum + 0.1 * range : minimum - 0.1 * range;
        else
            next = qBound(minimum, next, maximum);
        node->setProperty("IDataNumeric.DynamicValue", typedValue(type, next));
        outputs.append(node);
    }
    m_oModel.vOutputsChanged(outputs);
}
