#include "testsupport.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QList>
#include <QMouseEvent>
#include <QPointer>
#include <QSpontaneKeyEvent>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>

namespace {

QtMessageHandler previousHandler = nullptr;
QList<QRegularExpression> expectedWarnings;

// The offscreen platform says what it cannot do whenever a window is shown or raised; that is
// no fault of the code under test.
const QRegularExpression platformNotice(
    QStringLiteral("^This plugin does not support (propagateSizeHints\\(\\)|raise\\(\\)|"
                   "grabbing the keyboard|grabbing the mouse)"));

bool consumeExpected(const QString& message)
{
    for (int i = 0; i < expectedWarnings.size(); ++i) {
        if (expectedWarnings.at(i).match(message).hasMatch()) {
            expectedWarnings.removeAt(i);
            return true;
        }
    }
    return false;
}

void failingHandler(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    const bool warning = type == QtWarningMsg || type == QtCriticalMsg;
    if (warning && !platformNotice.match(message).hasMatch() && !consumeExpected(message)
        && QTest::currentTestFunction()) {
        const QByteArray text = "Qt warning: " + message.toLocal8Bit();
        QTest::qFail(text.constData(), context.file ? context.file : __FILE__, context.line);
    }
    if (previousHandler)
        previousHandler(type, context, message);
}

} // namespace

void TestSupport::failOnWarnings()
{
    QtMessageHandler current = qInstallMessageHandler(failingHandler);
    if (current != failingHandler)
        previousHandler = current;
}

void TestSupport::expectWarning(const QRegularExpression& pattern)
{
    expectedWarnings.append(pattern);
}

QStringList TestSupport::liveTopLevelWidgets()
{
    QStringList result;
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        return result;
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        // Qt keeps a few internal windows of its own (for example the desktop widget).
        if (widget->windowType() == Qt::Desktop)
            continue;
        result << QString::fromLatin1(widget->metaObject()->className()) + '/'
                + widget->objectName();
    }
    return result;
}

TestSupport::ModalRun TestSupport::runModal(const std::function<void()>& open,
                                            const std::function<void(QDialog&)>& steps)
{
    ModalRun run;
    QTimer watch;
    int ticks = 0;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog) {
            // An action that opens no dialog must not keep the timer spinning.
            if (++ticks > 1000)
                watch.stop();
            return;
        }
        watch.stop();
        run.shown = true;
        // The steps may end the dialog's life themselves.
        const QPointer<QDialog> guard(dialog);
        steps(*dialog);
        if (guard && guard->isVisible()) {
            run.leftOpen = true;
            guard->reject();
        }
    });
    watch.start(0);
    open();
    return run;
}

void TestSupport::retype(QLineEdit* field, const QString& text)
{
    field->selectAll();
    if (text.isEmpty())
        QTest::keyClick(field, Qt::Key_Backspace);
    else
        QTest::keyClicks(field, text);
}

bool TestSupport::sendMouse(QWidget* widget, QEvent::Type type, QPoint pos, Qt::MouseButton button,
                            Qt::MouseButtons buttons)
{
    QMouseEvent event(type, pos, widget->mapToGlobal(pos), button, buttons, Qt::NoModifier);
    // As QTest does: a spontaneous event through notify(), which sendEvent() would reset.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget, &event);
    return event.isAccepted();
}

bool TestSupport::sendWheel(QWidget* widget, QPoint angle)
{
    const QPointF pos(widget->width() / 2.0, widget->height() / 2.0);
    QWheelEvent event(pos, widget->mapToGlobal(pos.toPoint()), QPoint(), angle, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(widget, &event);
    return event.isAccepted();
}

bool TestSupport::sendWheel(QWidget* widget, int delta)
{
    return sendWheel(widget, QPoint(0, delta));
}
