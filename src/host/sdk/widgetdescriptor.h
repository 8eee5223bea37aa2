#ifndef SDK_WIDGETDESCRIPTOR_H
#define SDK_WIDGETDESCRIPTOR_H

#include "sdk/sdkglobal.h"
#include "sdk/widgetinterfaceconfig.h"
#include "wutils/pluginversion.h"

#include <QIcon>

#include <string>

namespace WidgetModules {

class WidgetInterface;

/// What a plug-in tells the host about one of its widgets: its name, version, icon and docking,
/// and the functions that make and end an instance.
class SDK_EXPORT WidgetDescriptor
{
public:
    /// Makes a new instance of the widget.
    using CreateFunction = WidgetInterface* (*)();
    /// Ends an instance made by the matching CreateFunction.
    using DestroyFunction = void (*)(WidgetInterface*);

    /// Describes the widget @p name of version @p version, made by @p create and ended by
    /// @p destroy, shown with @p icon and docked as @p config says.
    WidgetDescriptor(std::string name, wutils::PluginVersion version, CreateFunction create,
                     DestroyFunction destroy, QIcon icon, WidgetInterfaceConfig config);

    /// The widget's name, unique among the host's widgets.
    std::string const& name() const;
    /// The plug-in's version.
    wutils::PluginVersion const& version() const;
    /// The function that makes an instance; may be null.
    CreateFunction createFunction() const;
    /// The function that ends an instance; may be null.
    DestroyFunction destroyFunction() const;
    /// The widget's icon.
    QIcon const& icon() const;
    /// How the widget is docked.
    WidgetInterfaceConfig const& config() const;

    /// Makes an instance through the create function; null when there is none.
    WidgetInterface* poCreateInstance() const;
    /// Ends @p instance through the destroy function; does nothing for null or without one.
    void vDestroyInstance(WidgetInterface* instance) const;

private:
    std::string m_sName;
    wutils::PluginVersion m_oVersion;
    CreateFunction m_poCreate;
    DestroyFunction m_poDestroy;
    QIcon m_oIcon;
    WidgetInterfaceConfig m_oConfig;
};

} // namespace WidgetModules

#endif
