#ifndef PROPERTYBROWSER_MANAGERS_RESOURCES_H
#define PROPERTYBROWSER_MANAGERS_RESOURCES_H

#include <QIcon>

namespace PropertyBrowser {
namespace Managers {

/// The link icons of one manager: linked, not linked and partly linked (an image of which only
/// some channels are linked).
class Resources
{
public:
    /// Loads the three chain icons from the host's resources.
    Resources();

    QIcon linked;
    QIcon notLinked;
    QIcon partlyLinked;
};

} // namespace Managers
} // namespace PropertyBrowser

#endif
