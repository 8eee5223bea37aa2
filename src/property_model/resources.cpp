#include "property_model/resources.h"

namespace PropertyBrowser {
namespace Managers {

Resources::Resources()
    : linked(QStringLiteral(":/images/chain_closed.svg"))
    , notLinked(QStringLiteral(":/images/chain_open.svg"))
    , partlyLinked(QStringLiteral(":/images/chain_partial.svg"))
{ }

} // namespace Managers
} // namespace PropertyBrowser
