#ifndef SDK_WIDGETFACTORYINTERFACE_H
#define SDK_WIDGETFACTORYINTERFACE_H

#include "sdk/sdkglobal.h"

#include <string>

class QWidget;

namespace WidgetModules {

class WidgetInterface;

/// The host's registry of plug-in widgets, handed to each widget by WidgetInterface::initialize
/// so that widgets can reach one another without knowing each other's libraries.
class SDK_EXPORT WidgetFactoryInterface
{
public:
    virtual ~WidgetFactoryInterface();

    /// Returns the live widget made from the descriptor named @p name, or null.
    virtual WidgetInterface* poFindWidget(const std::string& name) const = 0;
    /// Returns the window that docks the plug-in widgets, or null before it exists.
    virtual QWidget* poDockHost() const = 0;
};

} // namespace WidgetModules

#endif
