#ifndef DOCKENVIRONMENT_H
#define DOCKENVIRONMENT_H

#include "sdk/wappsettings.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QTemporaryDir>

/// What a dock needs of its host before it is made: a settings file with the group the dock
/// reads, in @p folder, and, without a display, Qt Quick's software renderer for its pages.
inline void prepareDockEnvironment(const QTemporaryDir& folder)
{
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    Settings::WAppSettings::instance()->open(folder.filePath(QStringLiteral("settings.ini")));
    Settings::WAppSettings::instance()->addSetting(QStringLiteral("SHOW_WINDOWS"));
}

#endif
