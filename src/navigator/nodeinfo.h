#ifndef HELPERS_NODEINFO_H
#define HELPERS_NODEINFO_H

#include <string>
#include <vector>

namespace Helpers {

/// Packs a node's identity into one text of "key:value" pairs joined by "/" and reads it back.
///
/// The writer side is one process-wide id and name, so the setters and toString() belong to the
/// GUI thread; the readers touch no shared state.
class NodeInfo
{
public:
    /// Replaces the id that toString() writes; an empty @p id leaves no id.
    static void setNodeID(const std::string& id);

    /// Replaces the name that toString() writes; an empty @p name leaves no name.
    static void setNodeName(const std::string& name);

    /// Empties both the id and the name.
    static void reset();

    /// Returns "ID:<id>/NAME:<name>", leaving out each pair whose value is empty.
    static std::string toString();

    /// Splits @p text at @p separator and trims white space from each part. A trailing
    /// separator adds no empty part; an empty part in the middle is kept.
    static std::vector<std::string> tokens(const std::string& text, char separator);

    /// Returns the element after the first element equal to @p key in the first pair that holds
    /// it, or an empty text when no pair does or either argument is empty.
    static std::string nodeValue(const std::string& info, const std::string& key);

    /// Returns the value of "ID" in @p info.
    static std::string nodeID(const std::string& info);

    /// Returns the value of "NAME" in @p info.
    static std::string nodeName(const std::string& info);

    /// Returns the value of "ROLE" in @p info; this class never writes that key itself.
    static std::string nodeRole(const std::string& info);

private:
    static std::string iNodeID;
    static std::string iNodeName;
};

} // namespace Helpers

#endif
