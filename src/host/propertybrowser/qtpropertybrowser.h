#ifndef QTPROPERTYBROWSER_H
#define QTPROPERTYBROWSER_H

// The classes every browser, manager and factory builds on.
#include "qtabstracteditorfactory.h"
#include "qtabstracteditorfactorybase.h"
#include "qtabstractpropertybrowser.h"
#include "qtabstractpropertymanager.h"
#include "qtbrowseritem.h"
#include "qtproperty.h"
#include "qtpropertyabstractcustomrenderer.h"

#endif
