#include "sdk/widgetinterfaceconfig.h"

namespace WidgetModules {

WidgetInterfaceConfig::WidgetInterfaceConfig()
    : WidgetInterfaceConfig(Qt::LeftDockWidgetArea, false, false, true, false, false)
{ }

WidgetInterfaceConfig::WidgetInterfaceConfig(Qt::DockWidgetArea area, bool floatingAtStart,
                                             bool hiddenAtStart, bool listedInViewMenu, bool tabbed,
                                             bool fixedSize)
    : m_eDockArea(area)
    , m_bFloatingAtStart(floatingAtStart)
    , m_bHiddenAtStart(hiddenAtStart)
    , m_bListedInViewMenu(listedInViewMenu)
    , m_bTabbed(tabbed)
    , m_bFixedSize(fixedSize)
{ }

Qt::DockWidgetArea WidgetInterfaceConfig::dockArea() const
{
    return m_eDockArea;
}

bool WidgetInterfaceConfig::bFloatingAtStart() const
{
    return m_bFloatingAtStart;
}

bool WidgetInterfaceConfig::bHiddenAtStart() const
{
    return m_bHiddenAtStart;
}

bool WidgetInterfaceConfig::bListedInViewMenu() const
{
    return m_bListedInViewMenu;
}

bool WidgetInterfaceConfig::bTabbed() const
{
    return m_bTabbed;
}

bool WidgetInterfaceConfig::bFixedSize() const
{
    return m_bFixedSize;
}

} // namespace WidgetModules
