#ifndef HOSTSETTINGS_H
#define HOSTSETTINGS_H

#include "sdk/wappsetting.h"
#include "sdk/wappsettings.h"

#include <QTemporaryDir>

/// Opens the host's settings in a file of @p folder with the groups the dock reads while it is
/// made, the welcome page shown or not by @p showWelcomePage; returns the property editor's
/// group.
inline Settings::WAppSetting* openHostSettings(const QTemporaryDir& folder, bool showWelcomePage)
{
    Settings::WAppSettings* settings = Settings::WAppSettings::instance();
    settings->open(folder.filePath(QStringLiteral("settings.ini")));
    settings->addSetting(QStringLiteral("SHOW_WINDOWS"))
        ->setValueOf(QStringLiteral("ShowWelcomePage"), showWelcomePage);
    return settings->addSetting(QStringLiteral("PROPERTY_EDITOR"));
}

#endif
