#ifndef QTPROPERTYMANAGER_H
#define QTPROPERTYMANAGER_H

// All typed property managers, for code that includes them in one go.
#include "qtboolpropertymanager.h"
#include "qtdoublepropertymanager.h"
#include "qtenumpropertymanager.h"
#include "qtgrouppropertymanager.h"
#include "qtintpropertymanager.h"
#include "qtstringpropertymanager.h"

#endif
