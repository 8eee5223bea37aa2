#ifndef SDK_WIDGETINTERFACE_H
#define SDK_WIDGETINTERFACE_H

#include "sdk/sdkglobal.h"

#include <QVariant>

#include <vector>

namespace Containers {
class Scene;
}

namespace Utils {
class ProjectMode;
}

namespace WidgetModules {

class WidgetDescriptor;
class WidgetFactoryInterface;

/// What the host expects of a widget that a plug-in contributes: the host creates it through a
/// WidgetDescriptor, hands it the job and the project mode, and tells it when it is shown and
/// hidden.
///
/// Plug-ins built against the host call these operations through the virtual table, so their
/// order is fixed.
class SDK_EXPORT WidgetInterface
{
public:
    WidgetInterface();
    /// Ends the widget; the host calls it through the descriptor's destroy function.
    virtual ~WidgetInterface();

    /// The descriptor the widget was made from.
    virtual WidgetDescriptor* getModuleDescriptor() = 0;
    /// Hands over the job's scene and the project mode; either may be null. The default keeps
    /// them for poScene() and poProjectMode().
    virtual void setResources(Containers::Scene* scene, const Utils::ProjectMode* projectMode);
    /// Whether the widget may be shown now; the default says yes.
    virtual bool isAGoodMomentToShow();
    /// Called when the widget is about to be shown; the default does nothing.
    virtual void showingWidget();
    /// Called once the widget is shown; the default does nothing.
    virtual void shown();
    /// Called when the widget is about to be hidden; the default does nothing.
    virtual void hidingWidget();
    /// Passes the host's update values to the widget; the default ignores them.
    virtual void updateWidget(const std::vector<QVariant>& values);
    /// Hands over the host's widget registry; the default keeps it for poWidgetFactory().
    virtual void initialize(WidgetFactoryInterface* factory);

    /// The scene given to setResources(), or null.
    Containers::Scene* poScene() const;
    /// The project mode given to setResources(), or null.
    const Utils::ProjectMode* poProjectMode() const;
    /// The registry given to initialize(), or null.
    WidgetFactoryInterface* poWidgetFactory() const;

    WidgetInterface(const WidgetInterface&) = delete;
    WidgetInterface& operator=(const WidgetInterface&) = delete;

private:
    Containers::Scene* m_poScene = nullptr;
    const Utils::ProjectMode* m_poProjectMode = nullptr;
    WidgetFactoryInterface* m_poWidgetFactory = nullptr;
};

} // namespace WidgetModules

#endif
