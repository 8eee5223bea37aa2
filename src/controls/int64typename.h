#ifndef INT64TYPENAME_H
#define INT64TYPENAME_H

#include <QMetaType>

#include <cstdint>

/// Makes the type name "int64_t" known, once. The 64-bit controls' signals carry the type as
/// written: receivers that connect by that name, queued connections and signal spies look it up.
inline void vRegisterInt64Name()
{
    static const int iType = qRegisterMetaType<int64_t>("int64_t");
    Q_UNUSED(iType)
}

#endif
