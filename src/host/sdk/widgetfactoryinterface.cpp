#include "sdk/widgetfactoryinterface.h"

namespace WidgetModules {

// Defined here so that the virtual table lives in the library and not in every user.
WidgetFactoryInterface::~WidgetFactoryInterface() = default;

} // namespace WidgetModules
