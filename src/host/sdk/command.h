#ifndef SDK_COMMAND_H
#define SDK_COMMAND_H

#include "sdk/sdkglobal.h"

#include <QObject>

namespace VardeenDefs {
namespace PropertyEditor {

// The namespace's meta object makes the command's names readable at run time and lets the
// enumeration travel in QVariant and in queued signals.
Q_NAMESPACE_EXPORT(SDK_EXPORT)

/// What a property editor asks the host to do with a node. The numbers are part of the
/// interface between host and plug-in: they never change.
enum Command {
    NoCommand = 0, ///< Asks for nothing; the value of a default-constructed command.
    SetLink = 1, ///< Links the node to the path given; an empty path removes the link.
    Reserved = 2, ///< Not used; kept so that the numbers of the others stay as they are.
    SelectLink = 3, ///< Shows the candidate at the path given; an empty path takes it back.
    SetValue = 4, ///< Sets the node's local value.
    SetLimits = 5 ///< Sets the limits of a numeric node, as a map with "Min" and "Max".
};
Q_ENUM_NS(Command)

} // namespace PropertyEditor
} // namespace VardeenDefs

#endif
