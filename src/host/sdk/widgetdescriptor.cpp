#include "sdk/widgetdescriptor.h"

#include <utility>

namespace WidgetModules {

WidgetDescriptor::WidgetDescriptor(std::string name, wutils::PluginVersion version,
                                   CreateFunction create, DestroyFunction destroy, QIcon icon,
                                   WidgetInterfaceConfig config)
    : m_sName(std::move(name))
    , m_oVersion(version)
    , m_poCreate(create)
    , m_poDestroy(destroy)
    , m_oIcon(std::move(icon))
    , m_oConfig(config)
{ }

std::string const& WidgetDescriptor::name() const
{
    return m_sName;
}

wutils::PluginVersion const& WidgetDescriptor::version() const
{
    return m_oVersion;
}

WidgetDescriptor::CreateFunction WidgetDescriptor::createFunction() const
{
    return m_poCreate;
}

WidgetDescriptor::DestroyFunction WidgetDescriptor::destroyFunction() const
{
    return m_poDestroy;
}

QIcon const& WidgetDescriptor::icon() const
{
    return m_oIcon;
}

WidgetInterfaceConfig const& WidgetDescriptor::config() const
{
    return m_oConfig;
}

WidgetInterface* WidgetDescriptor::poCreateInstance() const
{
    return m_poCreate ? m_poCreate() : nullptr;
}

void WidgetDescriptor::vDestroyInstance(WidgetInterface* instance) const
{
    if (instance && m_poDestroy)
        m_poDestroy(instance);
}

} // namespace WidgetModules
