#ifndef SDK_WIDGETINTERFACECONFIG_H
#define SDK_WIDGETINTERFACECONFIG_H

#include "sdk/sdkglobal.h"

#include <Qt>

namespace WidgetModules {

/// How the host docks a plug-in's widget.
class SDK_EXPORT WidgetInterfaceConfig
{
public:
    /// Describes a widget docked on the left that does not float, is shown at start, is listed
    /// in the View menu, is not tabbed and can be resized.
    WidgetInterfaceConfig();
    /// Describes a widget docked at @p area. @p floatingAtStart lets it start as a floating
    /// window, @p hiddenAtStart keeps it hidden until the user asks for it, @p listedInViewMenu
    /// gives it an entry in the View menu, @p tabbed stacks it as a tab over the other widgets
    /// of its area, and @p fixedSize keeps it at its size hint.
    WidgetInterfaceConfig(Qt::DockWidgetArea area, bool floatingAtStart, bool hiddenAtStart,
                          bool listedInViewMenu, bool tabbed, bool fixedSize);

    /// The dock area.
    Qt::DockWidgetArea dockArea() const;
    /// Whether the widget starts as a floating window.
    bool bFloatingAtStart() const;
    /// Whether the widget stays hidden until the user asks for it.
    bool bHiddenAtStart() const;
    /// Whether the widget has an entry in the View menu.
    bool bListedInViewMenu() const;
    /// Whether the widget is stacked as a tab over the others of its area.
    bool bTabbed() const;
    /// Whether the widget keeps its size hint.
    bool bFixedSize() const;

private:
    Qt::DockWidgetArea m_eDockArea;
    bool m_bFloatingAtStart;
    bool m_bHiddenAtStart;
    bool m_bListedInViewMenu;
    bool m_bTabbed;
    bool m_bFixedSize;
};

} // namespace WidgetModules

#endif
