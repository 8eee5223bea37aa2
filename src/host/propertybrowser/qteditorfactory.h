#ifndef QTEDITORFACTORY_H
#define QTEDITORFACTORY_H

// All editor factories, for code that includes them in one go.
#include "qtcheckboxfactory.h"
#include "qtdoublespinboxfactory.h"
#include "qtenumeditorfactory.h"
#include "qtlineeditfactory.h"
#include "qtsliderfactory.h"

#endif
