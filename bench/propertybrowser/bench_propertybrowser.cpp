// Times the property browser on a shown tree with N rows, through the published API only, so
// that the same source builds against any implementation of that API.

#include "measures.h"
#include "qtpropertymanager.h"
#include "qttreepropertybrowser.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTextStream>

#include <functional>
#include <vector>

namespace {

const int kRuns = 5;

/// A shown browser with an integer and a group manager, torn down in a fixed order.
struct Fixture
{
    Fixture()
        : browser(new QtTreePropertyBrowser)
        , ints(new QtIntPropertyManager)
        , groups(new QtGroupPropertyManager)
    {
        browser->resize(600, 800);
        browser->show();
        QCoreApplication::processEvents();
    }
    ~Fixture()
    {
        delete browser;
        delete ints;
        delete groups;
    }

    /// Adds @p count integer properties at the top level.
    void addIntegers(int count)
    {
        properties.reserve(count);
        for (int i = 0; i < count; ++i) {
            QtProperty* property = ints->addProperty(QString("Value %1").arg(i));
            ints->setValue(property, i);
            browser->addProperty(property);
            properties.push_back(property);
        }
    }

    QtTreePropertyBrowser* browser;
    QtIntPropertyManager* ints;
    QtGroupPropertyManager* groups;
    std::vector<QtProperty*> properties;
};

/// Milliseconds that @p measured takes after @p prepare, events processed, median of the runs.
double medianMs(int rows, const std::function<void(Fixture&, int)>& prepare,
                const std::function<void(Fixture&, int)>& measured)
{
    std::vector<double> times;
    for (int run = 0; run < kRuns; ++run) {
        Fixture fixture;
        prepare(fixture, rows);
        // The view lays its rows out on a timer, and the repaint that follows, and the one after
        // the scroll bar appears, are posted in turn: a few passes leave nothing of the
        // preparation to be counted in the measurement.
        for (int pass = 0; pass < 3; ++pass)
            QCoreApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        measured(fixture, rows);
        QCoreApplication::processEvents();
        times.push_back(timer.nsecsElapsed() / 1e6);
    }
    return median(times);
}

/// Heap bytes per row that adding @p rows integer rows leaves allocated, median of the runs.
double bytesPerRow(int rows)
{
    std::vector<double> sizes;
    for (int run = 0; run < kRuns; ++run) {
        Fixture fixture;
        fixture.properties.reserve(rows);
        const size_t before = heapInUse();
        fixture.addIntegers(rows);
        QCoreApplication::processEvents();
        const size_t after = heapInUse();
        sizes.push_back((double(after) - double(before)) / rows);
    }
    return median(sizes);
}

void nothing(Fixture&, int) { }

void addIntegers(Fixture& fixture, int rows)
{
    fixture.addIntegers(rows);
}

void addGroups(Fixture& fixture, int rows)
{
    for (int g = 0; g < rows / 10; ++g) {
        QtProperty* group = fixture.groups->addProperty(QString("Group %1").arg(g));
        for (int i = 0; i < 10; ++i)
            group->addSubProperty(fixture.ints->addProperty(QString("Value %1").arg(i)));
        fixture.browser->addProperty(group);
    }
}

void changeValues(Fixture& fixture, int)
{
    for (QtProperty* property : fixture.properties)
        fixture.ints->setValue(property, fixture.ints->value(property) + 1);
}

void clearBrowser(Fixture& fixture, int)
{
    fixture.browser->clear();
}

void removeInOrder(Fixture& fixture, int)
{
    for (QtProperty* property : fixture.properties)
        fixture.browser->removeProperty(property);
}

void grabOnce(Fixture& fixture, int)
{
    fixture.browser->grab();
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const std::vector<int> sizes {1000, 10000};

    struct Row
    {
        const char* name;
        std::function<double(int)> measure;
    };
    const std::vector<Row> rows {
        {"(a) add N int rows [ms]",
         [](int n) {
             return medianMs(n, nothing, addIntegers);
         }},
        {"(b) add N/10 groups of 10 [ms]",
         [](int n) {
             return medianMs(n, nothing, addGroups);
         }},
        {"(c) change every value [ms]",
         [](int n) {
             return medianMs(n, addIntegers, changeValues);
         }},
        {"(d) clear() [ms]",
         [](int n) {
             return medianMs(n, addIntegers, clearBrowser);
         }},
        {"(e) remove each in order [ms]",
         [](int n) {
             return medianMs(n, addIntegers, removeInOrder);
         }},
        {"(f) heap per row [bytes]", bytesPerRow},
        {"(g) one grab() 600x800 [ms]",
         [](int n) {
             return medianMs(n, addIntegers, grabOnce);
         }},
    };

    QTextStream out(stdout);
    out << QString("%1").arg("median of 5 runs", -34);
    for (int n : sizes)
        out << QString("%1").arg(QString("N = %1").arg(n), 14);
    out << '\n';
    for (const Row& row : rows) {
        out << QString("%1").arg(row.name, -34);
        for (int n : sizes)
            out << QString("%1").arg(row.measure(n), 14, 'f', 2);
        out << '\n';
        out.flush();
    }
    return 0;
}
