#ifndef CONTAINERS_H
#define CONTAINERS_H

#include <string>

/// Field names of a module's record, shared with the host's code; the library reads none.
namespace Containers {

extern const std::string MODULE_POS;
extern const std::string MODULE_LINFO;
extern const std::string MODULE_NAME;
extern const std::string MODULE_FNAME;
extern const std::string MODULE_ICONPATH;
extern const std::string MODULE_DESC;
extern const std::string MODULE_GROUP;
extern const std::string MODULE_TOOLBOX;

} // namespace Containers

#endif
