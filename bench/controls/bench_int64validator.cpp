// Times Int64Validator::validate() for typical texts and a round trip through IntervalMapper
// for small and full 64-bit ranges, per call, so that later changes to the typing and slider
// paths can be judged. Run it by hand from a release build.

#include "controls/int64validator.h"
#include "controls/intervalmapper.h"

#include "measures.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>

#include <functional>
#include <limits>
#include <vector>

namespace {

constexpr int iRuns = 5;
constexpr int iValidateCalls = 200000;
constexpr int iMapperCalls = 2000000;

// Keeps the compiler from dropping the timed calls.
volatile unsigned long gSink = 0;

// Median over iRuns runs of @p calls calls of @p call, in nanoseconds per call.
double medianNanoseconds(int calls, const std::function<long(int)>& call)
{
    std::vector<double> runs;
    for (int run = 0; run < iRuns; ++run) {
        // Unsigned, so that summing large results wraps instead of overflowing.
        unsigned long sum = 0;
        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < calls; ++i)
            sum += static_cast<unsigned long>(call(i));
        runs.push_back(static_cast<double>(timer.nsecsElapsed()) / calls);
        gSink = gSink + sum;
    }
    return median(runs);
}

struct ValidateCase
{
    const char* name;
    QString text;
};

struct MapperCase
{
    const char* name;
    long min;
    long max;
    long step;
};

// One line of a table: a name column and a right-aligned figure.
QString row(const QString& name, const QString& figure)
{
    return QStringLiteral("  %1 %2\n").arg(name, -28).arg(figure, 9);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QLocale::setDefault(QLocale::c());
    QTextStream out(stdout);

    Int64Validator validator(-1000000000L, 1000000000L);
    validator.setLocale(QLocale::c());
    const std::vector<ValidateCase> texts = {
        {"empty", QString()},
        {"\"42\"", QStringLiteral("42")},
        {"\"-1234567\"", QStringLiteral("-1234567")},
        {"\"1,234,567\"", QStringLiteral("1,234,567")},
        {"\"1,2,3\" (intermediate)", QStringLiteral("1,2,3")},
        {"\"5000000000\" (above top)", QStringLiteral("5000000000")},
        {"\"12a\" (invalid)", QStringLiteral("12a")},
        {"twenty nines (overflow)", QStringLiteral("99999999999999999999")},
    };
    out << "Int64Validator::validate(), range -1e9 to 1e9, C locale; median of " << iRuns
        << " runs of " << iValidateCalls << " calls\n";
    out << row(QStringLiteral("text"), QStringLiteral("ns/call"));
    for (const ValidateCase& c : texts) {
        QString text = c.text;
        const double ns = medianNanoseconds(iValidateCalls, [&validator, &text](int) {
            int position = 0;
            return static_cast<long>(validator.validate(text, position));
        });
        out << row(QString::fromLatin1(c.name), QString::number(ns, 'f', 1));
    }

    const std::vector<MapperCase> ranges = {
        {"0 to 100 by 1", 0, 100, 1},
        {"-5 to 5 by 2", -5, 5, 2},
        {"0 to 2^40 by 1", 0, 1099511627776L, 1},
        {"whole 64-bit range by 1", std::numeric_limits<long>::min(),
         std::numeric_limits<long>::max(), 1},
    };
    out << "IntervalMapper round trip, valueToWidget + valueFromWidget; median of " << iRuns
        << " runs of " << iMapperCalls << " calls\n";
    out << row(QStringLiteral("range"), QStringLiteral("ns/call"));
    for (const MapperCase& c : ranges) {
        const IntervalMapper mapper(Interval(c.min, c.max, c.step));
        // 1021 values spread evenly from min to max, so that no branch always goes one way.
        const unsigned long width
            = static_cast<unsigned long>(c.max) - static_cast<unsigned long>(c.min);
        std::vector<long> values;
        for (unsigned k = 0; k <= 1020; ++k) {
            const auto offset
                = static_cast<unsigned long>(static_cast<unsigned __int128>(width) * k / 1020);
            values.push_back(static_cast<long>(static_cast<unsigned long>(c.min) + offset));
        }
        const double ns = medianNanoseconds(iMapperCalls, [&mapper, &values](int i) {
            return mapper.valueFromWidget(mapper.valueToWidget(values[i % 1021]));
        });
        out << row(QString::fromLatin1(c.name), QString::number(ns, 'f', 1));
    }
    return 0;
}
