#ifndef SDK_WMESSAGEBOX_H
#define SDK_WMESSAGEBOX_H

#include "sdk/sdkglobal.h"

#include <QCoreApplication>
#include <QString>

class QWidget;

namespace Utils {

/// The application's message boxes. Each shows a modal box and returns when the user closes
/// it; while Utils::DialogAutomation is on, none is shown and the call is answered at once.
class SDK_EXPORT WMessageBox
{
    Q_DECLARE_TR_FUNCTIONS(Utils::WMessageBox)

public:
    /// Warns with @p text, and @p informativeText below it when not empty.
    static void warning(const QString& text, const QString& informativeText = QString(),
                        QWidget* parent = nullptr);
    /// Informs with @p text, @p informativeText below it and @p detail behind a "Show
    /// Details..." button, each when not empty.
    static void info(const QString& text, const QString& informativeText = QString(),
                     QWidget* parent = nullptr, const QString& detail = QString());
    /// Reports a failure: @p title as the window title, @p message as the text.
    static void critical(const QString& title, const QString& message, QWidget* parent = nullptr);
    /// Informs like info(), with a check box labelled @p optionText; returns whether the user
    /// ticked it.
    static bool infoWithOption(const QString& text, const QString& optionText,
                               const QString& informativeText = QString(),
                               QWidget* parent = nullptr, const QString& detail = QString());

    WMessageBox() = delete;
};

} // namespace Utils

#endif
