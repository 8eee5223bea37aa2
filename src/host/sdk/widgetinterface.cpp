#include "sdk/widgetinterface.h"

namespace WidgetModules {

WidgetInterface::WidgetInterface() = default;

WidgetInterface::~WidgetInterface() = default;

void WidgetInterface::setResources(Containers::Scene* scene, const Utils::ProjectMode* projectMode)
{
    m_poScene = scene;
    m_poProjectMode = projectMode;
}

bool WidgetInterface::isAGoodMomentToShow()
{
    return true;
}

void WidgetInterface::showingWidget() { }

void WidgetInterface::shown() { }

void WidgetInterface::hidingWidget() { }

void WidgetInterface::updateWidget(const std::vector<QVariant>& values)
{
    Q_UNUSED(values)
}

void WidgetInterface::initialize(WidgetFactoryInterface* factory)
{
    m_poWidgetFactory = factory;
}

Containers::Scene* WidgetInterface::poScene() const
{
    return m_poScene;
}

const Utils::ProjectMode* WidgetInterface::poProjectMode() const
{
    return m_poProjectMode;
}

WidgetFactoryInterface* WidgetInterface::poWidgetFactory() const
{
    return m_poWidgetFactory;
}

} // namespace WidgetModules
