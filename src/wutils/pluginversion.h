#ifndef WUTILS_PLUGINVERSION_H
#define WUTILS_PLUGINVERSION_H

#include <climits>
#include <string>

namespace wutils {

/// Version of a plug-in: major, minor, patch and build number.
///
/// Header-only on purpose: the host's widget descriptor holds one by value, and host and
/// plug-in must both compile it without linking to each other.
class PluginVersion
{
public:
    /// Holds the four numbers as given.
    PluginVersion(int major = 0, int minor = 0, int patch = 0, int build = 0)
        // Braces, because glibc's <sys/sysmacros.h> defines major() and minor() as macros.
        : major {major}
        , minor {minor}
        , patch {patch}
        , build {build}
    { }

    /// Writes "major.minor.patch" into @p text; the build number stays out of the text.
    /// Returns whether @p text is empty afterwards, which it never is.
    virtual bool operator>>(std::string& text)
    {
        text = std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(patch);
        return text.empty();
    }

    /// Same as the non-const form.
    virtual bool operator>>(std::string& text) const
    {
        return const_cast<PluginVersion*>(this)->operator>>(text);
    }

    /// Reads "major.minor.patch.build". Accepts the text when at least three numbers were read
    /// (a missing build number keeps its former value); otherwise leaves all four fields as
    /// they were and returns false.
    virtual bool operator<<(const std::string& text)
    {
        const PluginVersion before = *this;
        int* const fields[] = {&major, &minor, &patch, &build};
        const char* cursor = text.c_str();
        int read = 0;
        for (int* field : fields) {
            if (read > 0 && *cursor++ != '.')
                break;
            if (!readDecimal(cursor, *field))
                break;
            ++read;
        }
        if (read > 2)
            return true;
        major = before.major;
        minor = before.minor;
        patch = before.patch;
        build = before.build;
        return false;
    }

    /// Same as the non-const form; the fields are mutable so that this is well defined.
    virtual bool operator<<(const std::string& text) const
    {
        return const_cast<PluginVersion*>(this)->operator<<(text);
    }

    mutable int major;
    mutable int minor;
    mutable int patch;
    mutable int build;

private:
    // One "%d" conversion of scanf: blanks, an optional sign and at least one digit. A number
    // beyond the int range saturates instead of overflowing.
    static bool readDecimal(const char*& cursor, int& value)
    {
        const char* p = cursor;
        while (*p == ' ' || (*p >= '\t' && *p <= '\r'))
            ++p;
        const bool negative = *p == '-';
        if (*p == '-' || *p == '+')
            ++p;
        if (*p < '0' || *p > '9')
            return false;
        long long magnitude = 0;
        const long long limit = negative ? -static_cast<long long>(INT_MIN) : INT_MAX;
        for (; *p >= '0' && *p <= '9'; ++p) {
            magnitude = magnitude * 10 + (*p - '0');
            if (magnitude > limit)
                magnitude = limit;
        }
        value = static_cast<int>(negative ? -magnitude : magnitude);
        cursor = p;
        return true;
    }
};

} // namespace wutils

#endif
