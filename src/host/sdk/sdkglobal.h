#ifndef SDK_SDKGLOBAL_H
#define SDK_SDKGLOBAL_H

#include <QtGlobal>

// The library exports its classes explicitly, so that it keeps working if it is ever built with
// hidden visibility by default.
#if defined(SDK_LIBRARY)
#define SDK_EXPORT Q_DECL_EXPORT
#else
#define SDK_EXPORT Q_DECL_IMPORT
#endif

#endif
