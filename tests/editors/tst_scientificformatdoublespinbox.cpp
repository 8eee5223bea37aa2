#include "editors/scientificformatdoublespinbox.h"

#include "testsupport.h"

#include <QDoubleValidator>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <limits>

using PropertyBrowser::Editors::ScientificFormatDoubleSpinBox;

namespace {

const double kLargest = std::numeric_limits<double>::max();

const char* const kLocaleNames[] = {"C", "de"};

QLocale localeNamed(const QString& name)
{
    return name == QLatin1String("de") ? QLocale(QLocale::German, QLocale::Germany) : QLocale::c();
}

// Writes a table text in @p locale: 'D' stands for the decimal point.
QString localized(QString text, const QLocale& locale)
{
    return text.replace(QLatin1Char('D'), locale.decimalPoint());
}

QDoubleValidator* exponentChecker(ScientificFormatDoubleSpinBox& box)
{
    return box.findChild<QDoubleValidator*>();
}

// A plain spin box set up like @p box, for what the base class makes of a text.
struct PlainTwin
{
    explicit PlainTwin(const ScientificFormatDoubleSpinBox& box)
    {
        plain.setLocale(box.locale());
        plain.setRange(box.minimum(), box.maximum());
        plain.setDecimals(box.decimals());
        plain.setPrefix(box.prefix());
        plain.setSuffix(box.suffix());
        plain.setValue(box.value());
    }

    QDoubleSpinBox plain;
};

} // namespace

class TestScientificFormatDoubleSpinBox : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { TestSupport::failOnWarnings(); }

    void cleanup() { QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty()); }

    void construction()
    {
        QWidget parent;
        auto* box = new ScientificFormatDoubleSpinBox(&parent);
        QCOMPARE(box->parentWidget(), &parent);
        QCOMPARE(box->minimum(), -kLargest);
        QCOMPARE(box->maximum(), kLargest);
        const QList<QDoubleValidator*> checkers = box->findChildren<QDoubleValidator*>();
        QCOMPARE(checkers.size(), 1);
        QDoubleValidator* checker = checkers.first();
        QCOMPARE(checker->parent(), box);
        QCOMPARE(checker->bottom(), -kLargest);
        QCOMPARE(checker->top(), kLargest);
        QCOMPARE(checker->decimals(), 4);
        QCOMPARE(checker->notation(), QDoubleValidator::ScientificNotation);
        QCOMPARE(checker->locale(), box->locale());
    }

    void textFromValue_data()
    {
        QTest::addColumn<QString>("localeName");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("expected");
        for (const char* name : kLocaleNames) {
            auto row = [name](const char* title) {
                return &(QTest::newRow(qPrintable(QString::fromLatin1(name) + QStringLiteral(": ")
                                                  + QLatin1String(title)))
                         << QString::fromLatin1(name));
            };
            *row("threshold stays plain") << 99999999.0 << "99999999D00";
            *row("above the threshold") << 100000000.0 << "1D0000e+08";
            *row("negative threshold stays plain") << -99999999.0 << "-99999999D00";
            *row("negative above the threshold") << -100000000.0 << "-1D0000e+08";
            *row("just above the threshold") << 99999999.5 << "1D0000e+08";
            *row("small") << 123.456 << "123D46";
            *row("zero") << 0.0 << "0D00";
            *row("large") << 6.02214076e23 << "6D0221e+23";
            *row("largest") << kLargest << "1D7977e+308";
            *row("lowest") << -kLargest << "-1D7977e+308";
        }
    }

    void textFromValue()
    {
        QFETCH(QString, localeName);
        QFETCH(double, value);
        QFETCH(QString, expected);
        ScientificFormatDoubleSpinBox box;
        const QLocale locale = localeNamed(localeName);
        box.setLocale(locale);
        QCOMPARE(box.textFromValue(value), localized(expected, locale));
        // The field shows the same text.
        box.setValue(value);
        QCOMPARE(box.text(), localized(expected, locale));
    }

    void valueFromText_data()
    {
        QTest::addColumn<QString>("localeName");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("fromBase");
        QTest::addColumn<double>("expected");
        for (const char* name : kLocaleNames) {
            auto row = [name](const char* title) {
                return &(QTest::newRow(qPrintable(QString::fromLatin1(name) + QStringLiteral(": ")
                                                  + QLatin1String(title)))
                         << QString::fromLatin1(name));
            };
            *row("exponent") << "1e5" << false << 100000.0;
            *row("upper-case exponent") << "1E5" << false << 100000.0;
            *row("mantissa and exponent") << "2D5e3" << false << 2500.0;
            *row("negative exponent") << "-4e-2" << false << -0.04;
            *row("shown large value") << "1D0000e+08" << false << 100000000.0;
            // One exponent mark that doesn't make a number: the value stays.
            *row("broken exponent") << "1ex" << false << 42.0;
            *row("lone mark") << "e" << false << 42.0;
            // No mark, or two: the base class reads the text, and gives its minimum for text
            // that it can't read.
            *row("plain") << "12D5" << true << 12.5;
            *row("two marks") << "1e5e" << true << -kLargest;
            *row("empty") << "" << true << -kLargest;
        }
    }

    void valueFromText()
    {
        QFETCH(QString, localeName);
        QFETCH(QString, text);
        QFETCH(bool, fromBase);
        QFETCH(double, expected);
        ScientificFormatDoubleSpinBox box;
        const QLocale locale = localeNamed(localeName);
        box.setLocale(locale);
        box.setValue(42.0);
        const QString input = localized(text, locale);
        if (fromBase) {
            PlainTwin twin(box);
            QCOMPARE(box.valueFromText(input), twin.plain.valueFromText(input));
        }
        QCOMPARE(box.valueFromText(input), expected);
    }

    void validate_data()
    {
        QTest::addColumn<QString>("localeName");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QValidator::State>("expected");
        const auto invalid = QValidator::Invalid;
        const auto intermediate = QValidator::Intermediate;
        const auto acceptable = QValidator::Acceptable;
        for (const char* name : kLocaleNames) {
            auto row = [name](const char* title) {
                return &(QTest::newRow(qPrintable(QString::fromLatin1(name) + QStringLiteral(": ")
                                                  + QLatin1String(title)))
                         << QString::fromLatin1(name));
            };
            *row("plain number") << "12D5" << acceptable;
            *row("exponent") << "1e5" << acceptable;
            *row("upper-case exponent") << "1E5" << acceptable;
            *row("negative mantissa and exponent") << "-2D5e-3" << acceptable;
            *row("open exponent") << "1e" << intermediate;
            *row("lower-case mark first") << "e5" << invalid;
            *row("upper-case mark first reaches the checker") << "E5" << intermediate;
            *row("two marks") << "1e5e" << invalid;
            *row("two marks, mixed case") << "1E5e" << invalid;
            *row("letters") << "abc" << invalid;
            *row("exponent of letters") << "1ex" << invalid;
        }
    }

    void validate()
    {
        QFETCH(QString, localeName);
        QFETCH(QString, text);
        QFETCH(QValidator::State, expected);
        ScientificFormatDoubleSpinBox box;
        const QLocale locale = localeNamed(localeName);
        box.setLocale(locale);
        QString input = localized(text, locale);
        int position = input.size();
        QCOMPARE(box.validate(input, position), expected);
    }

    void baseClassVerdictComesFirst()
    {
        // A suffix with two marks: the base class accepts the text before any count is made.
        ScientificFormatDoubleSpinBox box;
        box.setLocale(QLocale::c());
        box.setSuffix(QStringLiteral(" ee"));
        QString text = QStringLiteral("5 ee");
        int position = text.size();
        QCOMPARE(box.validate(text, position), QValidator::Acceptable);
        // Refused by the base class, and more than one mark: refused.
        text = QStringLiteral("1e5e ee");
        position = text.size();
        QCOMPARE(box.validate(text, position), QValidator::Invalid);
    }

    void exponentCheckAcceptsWhatTheBaseRefuses_data()
    {
        QTest::addColumn<QString>("localeName");
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("value");
        for (const char* name : kLocaleNames) {
            const QString prefix = QString::fromLatin1(name) + QStringLiteral(": ");
            QTest::newRow(qPrintable(prefix + "fraction and exponent"))
                << name << "2D5e3" << 2500.0;
            QTest::newRow(qPrintable(prefix + "negative")) << name << "-2D5e-3" << -0.0025;
            QTest::newRow(qPrintable(prefix + "as shown")) << name << "1D0000e+08" << 1e8;
            QTest::newRow(qPrintable(prefix + "upper-case mark")) << name << "7D25E2" << 725.0;
        }
    }

    void exponentCheckAcceptsWhatTheBaseRefuses()
    {
        QFETCH(QString, localeName);
        QFETCH(QString, text);
        QFETCH(double, value);
        ScientificFormatDoubleSpinBox box;
        const QLocale locale = localeNamed(localeName);
        box.setLocale(locale);
        PlainTwin twin(box);
        QString input = localized(text, locale);
        int position = input.size();
        QCOMPARE(twin.plain.validate(input, position), QValidator::Invalid);
        QCOMPARE(box.validate(input, position), QValidator::Acceptable);
        QCOMPARE(box.valueFromText(input), value);
    }

    void checkerFollowsRangeAndLocale()
    {
        ScientificFormatDoubleSpinBox box;
        box.setLocale(QLocale::c());
        box.setRange(-10.0, 10.0);
        QDoubleValidator* checker = exponentChecker(box);
        QVERIFY(checker);
        // A lower-case mark in front is refused before the checker is consulted.
        QString text = QStringLiteral("e5");
        int position = text.size();
        QCOMPARE(box.validate(text, position), QValidator::Invalid);
        QCOMPARE(checker->top(), kLargest);
        // An upper-case one is not, and the checker takes the current range first.
        text = QStringLiteral("E5");
        position = text.size();
        box.validate(text, position);
        QCOMPARE(checker->bottom(), -10.0);
        QCOMPARE(checker->top(), 10.0);
        text = QStringLiteral("5e0");
        position = text.size();
        QCOMPARE(box.validate(text, position), QValidator::Acceptable);
        text = QStringLiteral("5e3");
        position = text.size();
        QVERIFY(box.validate(text, position) != QValidator::Acceptable);
        box.setLocale(QLocale(QLocale::German, QLocale::Germany));
        text = QStringLiteral("2,5e0");
        position = text.size();
        QCOMPARE(box.validate(text, position), QValidator::Acceptable);
        QCOMPARE(checker->locale(), QLocale(QLocale::German, QLocale::Germany));
    }

    void typing_data()
    {
        QTest::addColumn<QString>("localeName");
        for (const char* name : kLocaleNames)
            QTest::newRow(name) << name;
    }

    void typing()
    {
        QFETCH(QString, localeName);
        ScientificFormatDoubleSpinBox box;
        const QLocale locale = localeNamed(localeName);
        box.setLocale(locale);
        box.resize(200, 30);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        QSignalSpy changed(&box, QOverload<double>::of(&QDoubleSpinBox::valueChanged));
        QLineEdit* edit = box.findChild<QLineEdit*>();
        QVERIFY(edit);
        edit->selectAll();
        QTest::keyClicks(&box, QStringLiteral("3e8"));
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), 300000000.0);
        QCOMPARE(box.text(), localized(QStringLiteral("3D0000e+08"), locale));
        edit->selectAll();
        QTest::keyClicks(&box, localized(QStringLiteral("1D5E3"), locale));
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.value(), 1500.0);
        QCOMPARE(box.text(), localized(QStringLiteral("1500D00"), locale));
        // A mark in front can't be typed.
        edit->selectAll();
        QTest::keyClicks(&box, QStringLiteral("e"));
        QCOMPARE(box.text(), localized(QStringLiteral("1500D00"), locale));
        QVERIFY(changed.count() >= 2);
        QCOMPARE(changed.constLast().at(0).toDouble(), 1500.0);
    }
};

QTEST_MAIN(TestScientificFormatDoubleSpinBox)
#include "tst_scientificformatdoublespinbox.moc"
