#ifndef SHOWWIDGET_H
#define SHOWWIDGET_H

#include "testsupport.h"

#include <QGuiApplication>
#include <QTest>
#include <QWidget>

/// Shows @p widget and waits until it is exposed. The offscreen platform says once per shown
/// window that it cannot pass size hints on; that is not a fault of the widget.
inline bool showWidget(QWidget* widget)
{
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        TestSupport::expectWarning(QRegularExpression(QStringLiteral("propagateSizeHints")));
    widget->show();
    return QTest::qWaitForWindowExposed(widget);
}

#endif
