#include "sdk/visibilityinfo.h"

#include <QPointer>

#include <memory>

namespace ItemVisibility {

namespace {

QPointer<VisibilityInfo> installedInstance;

VisibilityInfo* defaultInstance()
{
    // Readers ask for the instance without testing it, so there is always one to give.
    static const std::unique_ptr<VisibilityInfo> fallback(new VisibilityInfo);
    return fallback.get();
}

} // namespace

VisibilityInfo::VisibilityInfo(QObject* parent)
    : QObject(parent)
{ }

VisibilityInfo::~VisibilityInfo()
{
    if (installedInstance == this)
        installedInstance = nullptr;
}

VisibilityInfo* VisibilityInfo::instance()
{
    return installedInstance ? installedInstance.data() : defaultInstance();
}

void VisibilityInfo::setInstance(VisibilityInfo* info)
{
    installedInstance = info;
}

bool VisibilityInfo::isNormalView() const
{
    return m_iMode == NormalView;
}

int VisibilityInfo::getVisibilityMode() const
{
    return m_iMode;
}

bool VisibilityInfo::isVisible(const QString& path) const
{
    return !m_setHiddenPaths.contains(path);
}

void VisibilityInfo::setVisibilityMode(int mode)
{
    if (mode == m_iMode)
        return;
    m_iMode = mode;
    emit visibilityModeChanged(mode);
}

void VisibilityInfo::setVisible(const QString& path, bool visible)
{
    if (visible)
        m_setHiddenPaths.remove(path);
    else
        m_setHiddenPaths.insert(path);
}

} // namespace ItemVisibility
