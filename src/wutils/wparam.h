#ifndef WPARAM_H
#define WPARAM_H

#include <utility>

/// One parameter of a request: the value (first) and its key (second).
/// A default parameter holds a default value and the key -1.
template<typename T>
class WParam : public std::pair<T, int>
{
public:
    /// A default parameter: a default value under the key -1.
    WParam()
        : std::pair<T, int>(T(), -1)
    { }
    /// The parameter @p value under @p key.
    WParam(const T& value, int key)
        : std::pair<T, int>(value, key)
    { }
    virtual ~WParam() = default;
};

#endif
