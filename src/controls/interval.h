#ifndef INTERVAL_H
#define INTERVAL_H

/// A signed 64-bit range with a step, and the number of steps that cover it.
///
/// All arithmetic wraps in 64 bits and every division is unsigned, so a range wider than 2^63
/// still has its true width. The step count is cached because IntervalMapper reads it often.
class Interval
{
public:
    /// Stores the bounds and the step, then caches the step count.
    Interval(long min, long max, long step);

    /// Returns @p value minus min, wrapping in 64 bits.
    long span(long value) const;

    /// Returns the number of steps from min to @p value, rounded up, with the span and the step
    /// read as unsigned; a step of 0 gives 0.
    unsigned long valueToSteps(long value) const;

    /// Returns the steps from min to max, computed afresh from the bounds.
    unsigned long stepCount() const;

    /// Refreshes the cached step count from stepCount().
    void setStepCount();

    /// Returns the lowest value of the range.
    long min() const { return m_lMin; }

    /// Returns the highest value of the range.
    long max() const { return m_lMax; }

    /// Returns the distance of one step.
    long step() const { return m_lStep; }

    /// Returns the step count as cached by the constructor or the last setStepCount().
    unsigned long cachedStepCount() const { return static_cast<unsigned long>(m_lStepCount); }

private:
    long m_lMin;
    long m_lMax;
    long m_lStep;
    // Kept signed like the other members; every reader takes it as unsigned.
    long m_lStepCount;
};

#endif
