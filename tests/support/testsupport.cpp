#include "testsupport.h"

#include <QApplication>
#include <QList>
#include <QTest>
#include <QWidget>

namespace {

QtMessageHandler previousHandler = nullptr;
QList<QRegularExpression> expectedWarnings;

// The offscreen platform says what it cannot do whenever a window is shown or raised; that is
// no fault of the code under test.
const QRegularExpression platformNotice(
    QStringLiteral("^This plugin does not support (propagateSizeHints|raise)\\(\\)"));

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
