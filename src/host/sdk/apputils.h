#ifndef SDK_APPUTILS_H
#define SDK_APPUTILS_H

#include "sdk/sdkglobal.h"

#include <QVariant>

namespace App {

/// The services of App::Utils.
enum UtilsId {
    /// The QIcon of the resource or file path in the first argument.
    UtilsIconFromPath = 0,
    /// The check box icon, ticked when the first argument is true; drawn from vector art, so it
    /// is sharp at any size and pixel ratio.
    UtilsCheckBoxIcon = 2
};

/// Runs the service @p id with up to three arguments and returns its result; an id without a
/// service gives an invalid QVariant.
SDK_EXPORT QVariant Utils(UtilsId id, const QVariant& first = QVariant(),
                          const QVariant& second = QVariant(), const QVariant& third = QVariant());

} // namespace App

#endif
