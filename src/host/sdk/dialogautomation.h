#ifndef SDK_DIALOGAUTOMATION_H
#define SDK_DIALOGAUTOMATION_H

#include "sdk/sdkglobal.h"

#include <QList>
#include <QPointer>
#include <QStringList>
#include <QVariant>
#include <QWidget>

namespace Utils {

/// Answers the library's dialogs without a person, for tests and for runs without a display.
///
/// While automation is on, Utils::WMessageBox and FileDialog show nothing: each call is recorded
/// here and answered at once, with the next answer queued for its kind or else with the
/// default answer (false for a question, an empty URL for a file). Automation starts on when the
/// environment variable SDK_AUTOMATIC_DIALOGS is "1" at the first dialog, and setEnabled()
/// switches it either way at any time.
class SDK_EXPORT DialogAutomation
{
public:
    /// The kinds of dialog.
    enum Kind {
        Warning, ///< Utils::WMessageBox::warning; its answer is not used.
        Info, ///< Utils::WMessageBox::info; its answer is not used.
        Critical, ///< Utils::WMessageBox::critical; its answer is not used.
        InfoWithOption, ///< Utils::WMessageBox::infoWithOption; answered with a bool.
        OpenFile, ///< FileDialog::getOpenFileUrl; answered with a QUrl.
        SaveFile ///< FileDialog::getSaveFileUrl; answered with a QUrl.
    };

    /// One dialog that was answered.
    struct Call
    {
        /// The kind of dialog.
        Kind m_eKind;
        /// The texts, in the order of the function's parameters; for a file dialog the name
        /// filters, then the suggested file name of a save dialog.
        QStringList m_slTexts;
        /// The parent widget given; null when none was given or it is gone.
        QPointer<QWidget> m_poParent;
        /// The answer returned.
        QVariant m_oAnswer;
    };

    /// Whether dialogs are answered automatically.
    static bool bIsEnabled();
    /// Switches automatic answers on or off, whatever the environment says.
    static void setEnabled(bool enabled);
    /// Queues @p answer for the next dialog of @p kind; answers of a kind are used in order.
    static void queueAnswer(Kind kind, const QVariant& answer);
    /// The dialogs answered since the last clear(), oldest first.
    static QList<Call> calls();
    /// Forgets the recorded calls and the queued answers.
    static void clear();

    /// Records a dialog of @p kind and returns its answer: the next queued answer for the kind,
    /// or @p defaultAnswer. The library's dialogs call it when bIsEnabled() holds.
    static QVariant oAnswer(Kind kind, const QStringList& texts, QWidget* parent,
                            const QVariant& defaultAnswer);

    DialogAutomation() = delete;
};

} // namespace Utils

#endif
