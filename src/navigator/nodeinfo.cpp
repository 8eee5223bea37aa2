#include "navigator/nodeinfo.h"

#include <locale>
#include <sstream>

namespace Helpers {

std::string NodeInfo::iNodeID;
std::string NodeInfo::iNodeName;

namespace {

const char kPairSeparator = '/';
const char kKeySeparator = ':';

std::string trimmed(const std::string& text, const std::ctype<char>& ctype)
{
    std::string::size_type begin = 0;
    std::string::size_type end = text.size();
    while (begin < end && ctype.is(std::ctype_base::space, text[begin]))
        ++begin;
    while (end > begin && ctype.is(std::ctype_base::space, text[end - 1]))
        --end;
    return text.substr(begin, end - begin);
}

} // namespace

void NodeInfo::setNodeID(const std::string& id)
{
    iNodeID = id;
}

void NodeInfo::setNodeName(const std::string& name)
{
    iNodeName = name;
}

void NodeInfo::reset()
{
    iNodeID.clear();
    iNodeName.clear();
}

std::string NodeInfo::toString()
{
    std::string text;
    if (!iNodeID.empty()) {
        text += "ID";
        text += kKeySeparator;
        text += iNodeID;
        if (!iNodeName.empty())
            text += kPairSeparator;
    }
    if (!iNodeName.empty()) {
        text += "NAME";
        text += kKeySeparator;
        text += iNodeName;
    }
    return text;
}

std::vector<std::string> NodeInfo::tokens(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    if (text.empty())
        return parts;
    // The default locale decides what counts as white space, so readers agree with the host.
    const std::ctype<char>& ctype = std::use_facet<std::ctype<char>>(std::locale());
    std::istringstream stream(text);
    std::string part;
    while (std::getline(stream, part, separator))
        parts.push_back(trimmed(part, ctype));
    return parts;
}

std::string NodeInfo::nodeValue(const std::string& info, const std::string& key)
{
    if (info.empty() || key.empty())
        return std::string();
    for (const std::string& pair : tokens(info, kPairSeparator)) {
        const std::vector<std::string> elements = tokens(pair, kKeySeparator);
        for (std::vector<std::string>::size_type i = 0; i < elements.size(); ++i) {
            if (elements[i] != key)
                continue;
            // A key with nothing after it ("ID" alone) reads as an empty value.
            return i + 1 < elements.size() ? elements[i + 1] : std::string();
        }
    }
    return std::string();
}

std::string NodeInfo::nodeID(const std::string& info)
{
    return nodeValue(info, "ID");
}

std::string NodeInfo::nodeName(const std::string& info)
{
    return nodeValue(info, "NAME");
}

std::string NodeInfo::nodeRole(const std::string& info)
{
    return nodeValue(info, "ROLE");
}

} // namespace Helpers
