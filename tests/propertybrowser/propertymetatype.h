#ifndef PROPERTYMETATYPE_H
#define PROPERTYMETATYPE_H

#include "qtproperty.h"

#include <QMetaType>

// QSignalSpy records the arguments of the managers' signals in QVariants, which need the type.
Q_DECLARE_METATYPE(QtProperty*)

#endif
