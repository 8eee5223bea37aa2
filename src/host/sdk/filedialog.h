#ifndef SDK_FILEDIALOG_H
#define SDK_FILEDIALOG_H

#include "sdk/filedialogprovider.h"
#include "sdk/sdkglobal.h"

#include <QCoreApplication>
#include <QPointer>
#include <QString>
#include <QUrl>
#include <QWidget>

/// The application's file chooser, set up from a FileDialogProvider. Each call shows a modal
/// dialog and returns when the user closes it; while Utils::DialogAutomation is on, none is
/// shown and the call is answered at once.
class SDK_EXPORT FileDialog
{
    Q_DECLARE_TR_FUNCTIONS(FileDialog)

public:
    /// What the dialog's accept button does.
    enum AcceptMode {
        AcceptOpen = 0, ///< Picks an existing file.
        AcceptSave = 1 ///< Names a file to write, asking before it replaces one.
    };

    /// Prepares a chooser with the places and filters of @p provider, over @p parent.
    FileDialog(const FileDialogProvider& provider, QWidget* parent = nullptr);

    /// Asks for an existing file; returns its URL, or an empty URL when the user cancels.
    QUrl getOpenFileUrl();
    /// Asks for a file to write in @p mode, offering @p suggestedName; returns its URL, or an
    /// empty URL when the user cancels. A name typed without extension gets the one of the
    /// chosen filter when that filter has a single pattern.
    QUrl getSaveFileUrl(AcceptMode mode, const QString& suggestedName = QString());

private:
    QUrl oRun(AcceptMode mode, const QString& title, const QString& suggestedName);

    FileDialogProvider m_oProvider;
    QPointer<QWidget> m_poParent;
};

#endif
