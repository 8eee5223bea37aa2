#ifndef SHOWWIDGET_H
#define SHOWWIDGET_H

#include "testsupport.h"

#include <QTest>
#include <QWidget>

/// Shows @p widget and waits until it is exposed.
inline bool showWidget(QWidget* widget)
{
    widget->show();
    return QTest::qWaitForWindowExposed(widget);
}

#endif
