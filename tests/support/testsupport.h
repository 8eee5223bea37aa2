#ifndef TESTSUPPORT_H
#define TESTSUPPORT_H

#include <QRegularExpression>
#include <QStringList>

/// Helpers every test of the project shares.
namespace TestSupport {

/// Makes any Qt warning or critical message a failure of the running test function.
/// Call it from initTestCase(): QTest installs its own handler before that.
void failOnWarnings();

/// Lets the next warning that matches @p pattern pass once, instead of failing the test.
void expectWarning(const QRegularExpression& pattern);

/// Describes the top-level widgets that still exist; a cleanup() checks that it is empty.
QStringList liveTopLevelWidgets();

} // namespace TestSupport

#endif
