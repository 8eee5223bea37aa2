#ifndef WREQUEST_H
#define WREQUEST_H

#include "wutils/wparam.h"

#include <algorithm>
#include <list>

/// How the host treats the sender of a request; the plug-in passes it on unchanged.
enum WaitOn { WaitOnNothing = 0, WaitOnReply = 1 };

/// A request to the host: a list of keyed parameters with a category, an id, a wait mode and a
/// timeout. The first value given for a key wins.
template<typename T>
class WRequest : public std::list<WParam<T>>
{
public:
    /// Builds a request; @p param is taken unless it is a default parameter.
    WRequest(int category = 0, int id = 0, const WParam<T>& param = WParam<T>(),
             WaitOn waitOn = WaitOnNothing, int timeout = 0)
        : category(category)
        , id(id)
        , waitOn(waitOn)
        , timeout(timeout)
        , result()
    {
        const WParam<T> none;
        if (!(param.first == none.first && param.second == none.second))
            this->push_back(param);
    }
    virtual ~WRequest() = default;

    /// Appends @p param unless the request already holds a value for its key.
    void addParam(const WParam<T>& param)
    {
        const bool keyTaken = std::any_of(this->begin(), this->end(), [&](const WParam<T>& held) {
            return held.second == param.second;
        });
        if (!keyTaken)
            this->push_back(param);
    }

    int category;
    int id;
    WaitOn waitOn;
    int timeout;
    T result;
};

#endif
