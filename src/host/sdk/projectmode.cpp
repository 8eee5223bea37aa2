#include "sdk/projectmode.h"

namespace Utils {

ProjectMode::ProjectMode(QObject* parent)
    : QObject(parent)
{ }

ProjectMode::~ProjectMode() = default;

int ProjectMode::projectMode() const
{
    return m_iMode;
}

bool ProjectMode::contains(int flag) const
{
    return flag != 0 && (m_iMode & flag) == flag;
}

void ProjectMode::setProjectMode(int mode)
{
    if (mode == m_iMode)
        return;
    m_iMode = mode;
    emit modeChanged();
}

} // namespace Utils
