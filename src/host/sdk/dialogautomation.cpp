#include "sdk/dialogautomation.h"

#include <QHash>
#include <QQueue>

namespace Utils {

namespace {

struct AutomationState
{
    int m_iEnabled = -1; // -1 until the environment was read
    QHash<int, QQueue<QVariant>> m_mapAnswers;
    QList<DialogAutomation::Call> m_lstCalls;
};

AutomationState& state()
{
    static AutomationState automation;
    return automation;
}

} // namespace

bool DialogAutomation::bIsEnabled()
{
    AutomationState& automation = state();
    if (automation.m_iEnabled < 0)
        automation.m_iEnabled = qEnvironmentVariable("SDK_AUTOMATIC_DIALOGS") == QLatin1String("1");
    return automation.m_iEnabled == 1;
}

void DialogAutomation::setEnabled(bool enabled)
{
    state().m_iEnabled = enabled ? 1 : 0;
}

void DialogAutomation::queueAnswer(Kind kind, const QVariant& answer)
{
    state().m_mapAnswers[kind].enqueue(answer);
}

QList<DialogAutomation::Call> DialogAutomation::calls()
{
    return state().m_lstCalls;
}

void DialogAutomation::clear()
{
    state().m_mapAnswers.clear();
    state().m_lstCalls.clear();
}

QVariant DialogAutomation::oAnswer(Kind kind, const QStringList& texts, QWidget* parent,
                                   const QVariant& defaultAnswer)
{
    AutomationState& automation = state();
    QQueue<QVariant>& queued = automation.m_mapAnswers[kind];
    const QVariant answer = queued.isEmpty() ? defaultAnswer : queued.dequeue();
    automation.m_lstCalls.append(Call {kind, texts, parent, answer});
    return answer;
}

} // namespace Utils
