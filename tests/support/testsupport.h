#ifndef TESTSUPPORT_H
#define TESTSUPPORT_H

#include <QEvent>
#include <QPoint>
#include <QRegularExpression>
#include <QStringList>

#include <functional>

class QDialog;
class QLineEdit;
class QWidget;

/// Helpers every test of the project shares.
namespace TestSupport {

/// Makes any Qt warning or critical message a failure of the running test function.
/// Call it from initTestCase(): QTest installs its own handler before that.
void failOnWarnings();

/// Lets the next warning that matches @p pattern pass once, instead of failing the test.
void expectWarning(const QRegularExpression& pattern);

/// Describes the top-level widgets that still exist; a cleanup() checks that it is empty.
QStringList liveTopLevelWidgets();

/// What became of the modal dialog that an action was to open.
struct ModalRun
{
    /// A dialog came up as the modal window.
    bool shown = false;
    /// The steps did not close it, so the run closed it with reject().
    bool leftOpen = false;
};

/// Does @p open, which may bring up a modal dialog, and runs @p steps on it in its event loop.
/// Steps that fail, or forget to close the dialog, still end with it rejected, so that no test
/// waits for a person. An action that opens no dialog returns with shown false.
ModalRun runModal(const std::function<void()>& open, const std::function<void(QDialog&)>& steps);

/// Replaces the text of @p field as typing does; an empty text is a Backspace over all of it.
void retype(QLineEdit* field, const QString& text);

/// Sends a mouse event as the window system would; QTest cannot move the mouse with a button held.
/// True if the widget took the event.
bool sendMouse(QWidget* widget, QEvent::Type type, QPoint pos, Qt::MouseButton button,
               Qt::MouseButtons buttons);

/// Turns the mouse wheel by @p angle over the middle of @p widget as the window system would.
/// True if the widget took the turn.
bool sendWheel(QWidget* widget, QPoint angle);
/// Turns the mouse wheel by @p delta, the usual vertical way.
bool sendWheel(QWidget* widget, int delta);

} // namespace TestSupport

#endif
