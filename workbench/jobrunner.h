#ifndef JOBRUNNER_H
#define JOBRUNNER_H

#include <QObject>
#include <QRandomGenerator>
#include <QTimer>

class JobModel;

/// Makes the job live, as a running inspection would: while it runs, every numeric output
/// moves through its range several times a second, now and then leaves it or goes into error.
class JobRunner : public QObject
{
    Q_OBJECT

public:
    /// How often the outputs change while the job runs.
    static constexpr int kIntervalMs = 200;

    /// Drives the outputs of @p model; it starts stopped.
    explicit JobRunner(JobModel& model, QObject* parent = nullptr);

    /// Whether the job runs.
    bool isRunning() const;
    /// Starts or stops the job.
    void setRunning(bool running);
    /// One cycle of the job: every numeric output gets its next value; the views refresh them
    /// once.
    void vStep();

signals:
    /// The job started or stopped.
    void runningChanged(bool running);

private:
    JobModel& m_oModel;
    QTimer m_oTimer;
    // Seeded, so that a run can be repeated when a picture shows something odd.
    QRandomGenerator m_oRandom;
};

#endif
