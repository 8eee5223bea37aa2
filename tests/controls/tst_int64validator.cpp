#include "controls/int64validator.h"

#include "testsupport.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <limits>

namespace {

const long kLowest = std::numeric_limits<long>::min();
const long kHighest = std::numeric_limits<long>::max();

// The two locales every table runs under: the C locale groups with ',' and has '.' as decimal
// point, the German one the other way round.
const char* const kLocaleNames[] = {"C", "de"};

QLocale localeNamed(const QString& name)
{
    if (name == QLatin1String("de"))
        return QLocale(QLocale::German, QLocale::Germany);
    if (name == QLatin1String("ru"))
        return QLocale(QLocale::Russian, QLocale::Russia);
    if (name == QLatin1String("sv"))
        return QLocale(QLocale::Swedish, QLocale::Sweden);
    if (name == QLatin1String("ar"))
        return QLocale(QLocale::Arabic, QLocale::Egypt);
    return QLocale::c();
}

// Writes a table text in @p locale: 'G' stands for the group separator, 'D' for the decimal
// point, so one row reads the same in every locale.
QString localized(QString text, const QLocale& locale)
{
    text.replace(QLatin1Char('G'), locale.groupSeparator());
    text.replace(QLatin1Char('D'), locale.decimalPoint());
    return text;
}

// Makes @p locale the default, which the character translation reads, and the validator's own,
// which the options and the final parse come from.
void useLocale(Int64Validator& validator, const QLocale& locale)
{
    QLocale::setDefault(locale);
    validator.setLocale(locale);
}

const QString twentyNines = QStringLiteral("99999999999999999999");

} // namespace

class TestInt64Validator : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        TestSupport::failOnWarnings();
        m_oDefaultLocale = QLocale();
    }

    void cleanup()
    {
        QLocale::setDefault(m_oDefaultLocale);
        QVERIFY(TestSupport::liveTopLevelWidgets().isEmpty());
    }

    void defaultRange()
    {
        Int64Validator validator;
        QCOMPARE(validator.bottom(), kLowest);
        QCOMPARE(validator.top(), kHighest);
        Int64Validator bounded(-5, 7, this);
        QCOMPARE(bounded.bottom(), -5L);
        QCOMPARE(bounded.top(), 7L);
        QCOMPARE(bounded.parent(), this);
        QCOMPARE(bounded.property("bottom").value<long>(), -5L);
        QCOMPARE(bounded.property("top").value<long>(), 7L);
    }

    void digitToCLocale_data()
    {
        QTest::addColumn<QString>("localeName");
        QTest::addColumn<QChar>("input");
        QTest::addColumn<QChar>("expected");
        for (const char* name : kLocaleNames) {
            const QString prefix = QString::fromLatin1(name) + QStringLiteral(": ");
            for (char digit = '0'; digit <= '9'; ++digit)
                QTest::newRow(qPrintable(prefix + QLatin1Char(digit)))
                    << name << QChar(QLatin1Char(digit)) << QChar(QLatin1Char(digit));
            QTest::newRow(qPrintable(prefix + "plus")) << name << QChar('+') << QChar('+');
            QTest::newRow(qPrintable(prefix + "minus")) << name << QChar('-') << QChar('-');
            QTest::newRow(qPrintable(prefix + "minus sign U+2212"))
                << name << QChar(0x2212) << QChar('-');
            QTest::newRow(qPrintable(prefix + "lower exponent"))
                << name << QChar('e') << QChar('e');
            QTest::newRow(qPrintable(prefix + "upper exponent"))
                << name << QChar('E') << QChar('e');
            QTest::newRow(qPrintable(prefix + "letter")) << name << QChar('x') << QChar(0);
            QTest::newRow(qPrintable(prefix + "no-break space")) << name << QChar(0xA0) << QChar(0);
            QTest::newRow(qPrintable(prefix + "plain space")) << name << QChar(' ') << QChar(0);
            QTest::newRow(qPrintable(prefix + "null")) << name << QChar(0) << QChar(0);
            QTest::newRow(qPrintable(prefix + "Arabic-Indic three"))
                << name << QChar(0x0663) << QChar(0);
        }
        QTest::newRow("C: full stop is the decimal point") << "C" << QChar('.') << QChar('.');
        QTest::newRow("C: comma is the group separator") << "C" << QChar(',') << QChar(',');
        QTest::newRow("de: comma is the decimal point") << "de" << QChar(',') << QChar('.');
        QTest::newRow("de: full stop is the group separator") << "de" << QChar('.') << QChar(',');
        QTest::newRow("ru: no-break space groups") << "ru" << QChar(0xA0) << QChar(',');
        QTest::newRow("ru: plain space groups too") << "ru" << QChar(' ') << QChar(',');
        QTest::newRow("ru: comma is the decimal point") << "ru" << QChar(',') << QChar('.');
        QTest::newRow("sv: minus sign U+2212") << "sv" << QChar(0x2212) << QChar('-');
        QTest::newRow("ar: zero digit isn't translated") << "ar" << QChar(0x0660) << QChar(0);
        QTest::newRow("ar: digit three isn't translated") << "ar" << QChar(0x0663) << QChar(0);
        QTest::newRow("ar: Latin digit") << "ar" << QChar('3') << QChar('3');
        QTest::newRow("ar: decimal separator") << "ar" << QChar(0x066B) << QChar('.');
        QTest::newRow("ar: group separator") << "ar" << QChar(0x066C) << QChar(',');
    }

    void digitToCLocale()
    {
        QFETCH(QString, localeName);
        QFETCH(QChar, input);
        QFETCH(QChar, expected);
        QLocale::setDefault(localeNamed(localeName));
        QCOMPARE(::digitToCLocale(input), expected);
    }

    void digitToCLocaleReadsTheDefaultLocale()
    {
        // The validator's own locale has no say in the translation of one character.
        Int64Validator validator;
        validator.setLocale(QLocale(QLocale::German, QLocale::Germany));
        QLocale::setDefault(QLocale::c());
        QCOMPARE(::digitToCLocale(QChar(',')), QChar(','));
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(::digitToCLocale(QChar(',')), QChar('.'));
    }

    void validateCharacters_data()
    {
        QTest::addColumn<QString>("localeName");
        QTest::addColumn<QString>("input");
        QTest::addColumn<bool>("rejectGroups");
        QTest::addColumn<bool>("expected");
        QTest::addColumn<QByteArray>("buffer");
        for (const char* name : kLocaleNames) {
            auto row = [name](const char* title) {
                return &(QTest::newRow(qPrintable(QString::fromLatin1(name)
                                                  + QStringLiteral(": ") + QLatin1String(title)))
                         << QString::fromLatin1(name));
            };
            *row("empty") << "" << false << true << QByteArray("");
            *row("digits") << "123" << false << true << QByteArray("123");
            *row("negative") << "-12" << false << true << QByteArray("-12");
            *row("positive") << "+7" << false << true << QByteArray("+7");
            *row("lone minus") << "-" << false << true << QByteArray("-");
            *row("minus sign U+2212") << QStringLiteral("\u22125") << false << true
                                      << QByteArray("-5");
            *row("grouped") << "1G234G567" << false << true << QByteArray("1234567");
            *row("grouping not checked") << "1G2G3" << false << true << QByteArray("123");
            *row("trailing separator") << "12G" << false << true << QByteArray("12");
            *row("separator first") << "G1" << false << false << QByteArray();
            *row("separator after sign") << "-G1" << false << false << QByteArray();
            *row("two separators") << "1GG2" << false << false << QByteArray();
            *row("separators refused") << "1G2" << true << false << QByteArray();
            *row("digits with separators refused") << "12" << true << true << QByteArray("12");
            *row("sign after start") << "1-2" << false << false << QByteArray();
            *row("two signs") << "--1" << false << false << QByteArray();
            *row("decimal point") << "1D5" << false << false << QByteArray();
            *row("exponent") << "1e5" << false << false << QByteArray();
            *row("letter") << "12a" << false << false << QByteArray();
            *row("Arabic-Indic digit") << QStringLiteral("1\u0663") << false << false
                                       << QByteArray();
        }
        QTest::newRow("C: a plain space isn't a separator")
            << "C" << "1 000" << false << false << QByteArray();
    }

    void validateCharacters()
    {
        QFETCH(QString, localeName);
        QFETCH(QString, input);
        QFETCH(bool, rejectGroups);
        QFETCH(bool, expected);
        QFETCH(QByteArray, buffer);
        Int64Validator validator;
        const QLocale locale = localeNamed(localeName);
        useLocale(validator, locale);
        QByteArray result("left over");
        const QLocale::NumberOptions options
            = rejectGroups ? QLocale::RejectGroupSeparator : QLocale::DefaultNumberOptions;
        QCOMPARE(validator.validateCharacters(localized(input, locale), &result, options),
                 expected);
        if (expected)
            QCOMPARE(result, buffer);
    }

    void validate_data()
    {
        QTest::addColumn<QString>("localeName");
        QTest::addColumn<long>("bottom");
        QTest::addColumn<long>("top");
        QTest::addColumn<QString>("input");
        QTest::addColumn<QValidator::State>("expected");
        const auto invalid = QValidator::Invalid;
        const auto intermediate = QValidator::Intermediate;
        const auto acceptable = QValidator::Acceptable;
        for (const char* name : kLocaleNames) {
            auto row = [name](const char* title) {
                return &(QTest::newRow(qPrintable(QString::fromLatin1(name)
                                                  + QStringLiteral(": ") + QLatin1String(title)))
                         << QString::fromLatin1(name));
            };
            // Order 1: characters that have no place in an integer.
            *row("1: letter") << 0L << 100L << "1a" << invalid;
            *row("1: decimal point") << 0L << 100L << "1D5" << invalid;
            *row("1: exponent") << 0L << 100L << "1e5" << invalid;
            *row("1: trailing sign") << 0L << 100L << "5-" << invalid;
            *row("1: separator first") << 0L << 2000L << "G1" << invalid;
            *row("1: separator after a sign") << -2000L << 2000L << "-G1" << invalid;
            *row("1: two separators") << 0L << 2000L << "1GG000" << invalid;
            // Order 2.
            *row("2: empty") << 0L << 100L << "" << intermediate;
            *row("2: empty, whole range") << kLowest << kHighest << "" << intermediate;
            // Order 3.
            *row("3: lone minus, bottom 0") << 0L << 100L << "-" << invalid;
            *row("3: -1, bottom 0") << 0L << 100L << "-1" << invalid;
            *row("3: -0, bottom 0") << 0L << 100L << "-0" << invalid;
            *row("3: minus, bottom 10") << 10L << 100L << "-5" << invalid;
            // Order 4.
            *row("4: +5, top negative") << -200L << -100L << "+5" << invalid;
            *row("4: lone plus, top negative") << -200L << -100L << "+" << invalid;
            // Order 5.
            *row("5: lone plus") << 0L << 100L << "+" << intermediate;
            *row("5: lone minus") << -200L << 100L << "-" << intermediate;
            // Order 6: overflow of 64 bits.
            *row("6: twenty nines") << 0L << 100L << twentyNines << invalid;
            *row("6: twenty nines, whole range") << kLowest << kHighest << twentyNines << invalid;
            *row("6: minus twenty nines, whole range")
                << kLowest << kHighest << QStringLiteral("-") + twentyNines << invalid;
            *row("6: one above the highest")
                << kLowest << kHighest << "9223372036854775808" << invalid;
            *row("6: one below the lowest")
                << kLowest << kHighest << "-9223372036854775809" << invalid;
            // Order 7.
            *row("7: in range") << 0L << 100L << "50" << acceptable;
            *row("7: bounds") << 0L << 100L << "100" << acceptable;
            *row("7: plus sign") << 0L << 100L << "+50" << acceptable;
            *row("7: highest") << kLowest << kHighest << "9223372036854775807" << acceptable;
            *row("7: lowest") << kLowest << kHighest << "-9223372036854775808" << acceptable;
            *row("7: grouped") << 0L << 2000000L << "1G000G000" << acceptable;
            *row("7: negative grouped") << -2000L << 0L << "-1G000" << acceptable;
            *row("7: wrong grouping") << 0L << 2000L << "1G2G3" << intermediate;
            *row("7: trailing separator") << 0L << 2000L << "12G" << intermediate;
            // The locale's own parse takes the minus sign too.
            *row("7: minus sign U+2212") << -10L << 10L << QStringLiteral("\u22125")
                                          << acceptable;
            // Order 8.
            *row("8: below bottom") << 10L << 100L << "5" << intermediate;
            // Order 9.
            *row("9: negation in range") << -200L << 100L << "150" << intermediate;
            *row("9: negation below bottom") << -200L << 100L << "250" << invalid;
            *row("9: bottom 0") << 0L << 100L << "150" << invalid;
            *row("9: negative range, 5") << -200L << -100L << "5" << intermediate;
            *row("9: negative range, 300") << -200L << -100L << "300" << invalid;
            *row("9: highest above the top")
                << kLowest << 0L << "9223372036854775807" << intermediate;
            // Order 10.
            *row("10: below bottom") << -200L << 100L << "-250" << invalid;
            // Order 11.
            *row("11: above top") << -200L << -100L << "-50" << intermediate;
        }
    }

    void validate()
    {
        QFETCH(QString, localeName);
        QFETCH(long, bottom);
        QFETCH(long, top);
        QFETCH(QString, input);
        QFETCH(QValidator::State, expected);
        Int64Validator validator(bottom, top);
        const QLocale locale = localeNamed(localeName);
        useLocale(validator, locale);
        QString text = localized(input, locale);
        const QString before = text;
        // The position is not read: whatever it holds, the verdict is the same.
        for (int position : {0, static_cast<int>(text.size()), -7, 1000}) {
            QCOMPARE(validator.validate(text, position), expected);
            QCOMPARE(text, before);
        }
    }

    void validateRejectingGroupSeparators_data()
    {
        QTest::addColumn<QString>("localeName");
        for (const char* name : kLocaleNames)
            QTest::newRow(name) << name;
    }

    void validateRejectingGroupSeparators()
    {
        QFETCH(QString, localeName);
        Int64Validator validator(0, 2000);
        QLocale locale = localeNamed(localeName);
        locale.setNumberOptions(QLocale::RejectGroupSeparator);
        useLocale(validator, locale);
        QString grouped = localized(QStringLiteral("1G000"), locale);
        QString plain = QStringLiteral("1000");
        int position = 0;
        QCOMPARE(validator.validate(grouped, position), QValidator::Invalid);
        QCOMPARE(validator.validate(plain, position), QValidator::Acceptable);
    }

    void fixup_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("expectedC");
        QTest::addColumn<QString>("expectedDe");
        QTest::newRow("grouped") << "1G000" << "1000" << "1.000";
        QTest::newRow("plain, outside the range") << "1234567" << "1234567" << "1.234.567";
        QTest::newRow("wrong grouping") << "1G2G3" << "123" << "123";
        QTest::newRow("trailing separator") << "12G" << "12" << "12";
        QTest::newRow("plus sign") << "+5" << "5" << "5";
        QTest::newRow("minus zero") << "-0" << "0" << "0";
        QTest::newRow("negative, below the range") << "-1234" << "-1234" << "-1.234";
        QTest::newRow("lowest") << "-9223372036854775808" << "-9223372036854775808"
                                << "-9.223.372.036.854.775.808";
        QTest::newRow("empty stays") << "" << "" << "";
        QTest::newRow("lone minus stays") << "-" << "-" << "-";
        QTest::newRow("letters stay") << "abc" << "abc" << "abc";
        QTest::newRow("decimal point stays") << "1D5" << "1D5" << "1D5";
        QTest::newRow("separator first stays") << "G1" << "G1" << "G1";
        QTest::newRow("overflow stays") << twentyNines << twentyNines << twentyNines;
    }

    void fixup()
    {
        QFETCH(QString, input);
        QFETCH(QString, expectedC);
        QFETCH(QString, expectedDe);
        for (const char* name : kLocaleNames) {
            // A range that holds none of the numbers: fixup does not consult it.
            Int64Validator validator(0, 10);
            const QLocale locale = localeNamed(QString::fromLatin1(name));
            useLocale(validator, locale);
            QString text = localized(input, locale);
            validator.fixup(text);
            const QString expected
                = localized(qstrcmp(name, "de") == 0 ? expectedDe : expectedC, locale);
            QCOMPARE(text, expected);
        }
    }

    void setRange_data()
    {
        QTest::addColumn<long>("bottom");
        QTest::addColumn<long>("top");
        QTest::addColumn<int>("bottomSignals");
        QTest::addColumn<int>("topSignals");
        QTest::addColumn<int>("changedSignals");
        // From the range -5 to 7.
        QTest::newRow("both") << -10L << 20L << 1 << 1 << 1;
        QTest::newRow("bottom only") << -10L << 7L << 1 << 0 << 1;
        QTest::newRow("top only") << -5L << 20L << 0 << 1 << 1;
        QTest::newRow("neither") << -5L << 7L << 0 << 0 << 0;
        QTest::newRow("crossed bounds are stored as they are") << 50L << -50L << 1 << 1 << 1;
        QTest::newRow("whole range") << kLowest << kHighest << 1 << 1 << 1;
    }

    void setRange()
    {
        QFETCH(long, bottom);
        QFETCH(long, top);
        QFETCH(int, bottomSignals);
        QFETCH(int, topSignals);
        QFETCH(int, changedSignals);
        Int64Validator validator(-5, 7);
        QSignalSpy bottomSpy(&validator, &Int64Validator::bottomChanged);
        QSignalSpy topSpy(&validator, &Int64Validator::topChanged);
        QSignalSpy changedSpy(&validator, &QValidator::changed);
        QVERIFY(bottomSpy.isValid() && topSpy.isValid() && changedSpy.isValid());
        validator.setRange(bottom, top);
        QCOMPARE(validator.bottom(), bottom);
        QCOMPARE(validator.top(), top);
        QCOMPARE(bottomSpy.count(), bottomSignals);
        QCOMPARE(topSpy.count(), topSignals);
        QCOMPARE(changedSpy.count(), changedSignals);
        if (bottomSignals)
            QCOMPARE(bottomSpy.at(0).at(0).value<long>(), bottom);
        if (topSignals)
            QCOMPARE(topSpy.at(0).at(0).value<long>(), top);
    }

    void setBottomAndTop()
    {
        Int64Validator validator(-5, 7);
        QSignalSpy bottomSpy(&validator, &Int64Validator::bottomChanged);
        QSignalSpy topSpy(&validator, &Int64Validator::topChanged);
        QSignalSpy changedSpy(&validator, &QValidator::changed);
        validator.setBottom(-6);
        QCOMPARE(validator.bottom(), -6L);
        QCOMPARE(validator.top(), 7L);
        QCOMPARE(bottomSpy.count(), 1);
        QCOMPARE(topSpy.count(), 0);
        QCOMPARE(changedSpy.count(), 1);
        validator.setTop(8);
        QCOMPARE(validator.bottom(), -6L);
        QCOMPARE(validator.top(), 8L);
        QCOMPARE(bottomSpy.count(), 1);
        QCOMPARE(topSpy.count(), 1);
        QCOMPARE(changedSpy.count(), 2);
        validator.setTop(8);
        validator.setBottom(-6);
        QCOMPARE(changedSpy.count(), 2);
        // Through the property system, as a form or a binding would.
        QVERIFY(validator.setProperty("bottom", QVariant::fromValue(-9L)));
        QCOMPARE(validator.bottom(), -9L);
        QCOMPARE(bottomSpy.count(), 2);
        QCOMPARE(bottomSpy.at(1).at(0).value<long>(), -9L);
    }

    void signalsConnectByWrittenName()
    {
        // Receivers name the argument type as the header writes it, queued ones included.
        Int64Validator validator(-5, 7);
        QSignalSpy spy(&validator, SIGNAL(topChanged(int64_t)));
        QVERIFY(spy.isValid());
        QObject receiver;
        long received = 0;
        QVERIFY(connect(&validator, &Int64Validator::topChanged, &receiver,
                        [&received](int64_t top) { received = top; }, Qt::QueuedConnection));
        validator.setTop(42);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).value<long>(), 42L);
        QTRY_COMPARE(received, 42L);
    }

    void lineEditTyping_data()
    {
        QTest::addColumn<QString>("localeName");
        for (const char* name : kLocaleNames)
            QTest::newRow(name) << name;
    }

    void lineEditTyping()
    {
        QFETCH(QString, localeName);
        QLineEdit edit;
        auto* validator = new Int64Validator(0, 2000, &edit);
        const QLocale locale = localeNamed(localeName);
        useLocale(*validator, locale);
        edit.setValidator(validator);
        edit.show();
        QVERIFY(QTest::qWaitForWindowExposed(&edit));
        // The minus, the letter, the decimal point and the last zero would each leave no way into
        // the range, so the field refuses them; the separators may stand while typing.
        QTest::keyClicks(&edit, localized(QStringLiteral("1-G5a0D00"), locale));
        QCOMPARE(edit.text(), localized(QStringLiteral("1G500"), locale));
        QVERIFY(edit.hasAcceptableInput());
        edit.clear();
        QTest::keyClicks(&edit, QStringLiteral("-"));
        QCOMPARE(edit.text(), QString());
    }

    void numDigits_data()
    {
        QTest::addColumn<long long>("value");
        QTest::addColumn<int>("expected");
        QTest::newRow("0") << 0LL << 1;
        QTest::newRow("1") << 1LL << 1;
        QTest::newRow("9") << 9LL << 1;
        QTest::newRow("10") << 10LL << 2;
        QTest::newRow("99") << 99LL << 2;
        QTest::newRow("100") << 100LL << 3;
        QTest::newRow("123456") << 123456LL << 6;
        QTest::newRow("18 nines") << 999999999999999999LL << 18;
        QTest::newRow("10^18") << 1000000000000000000LL << 19;
        QTest::newRow("highest") << std::numeric_limits<long long>::max() << 19;
        // Negative numbers count the digits of their magnitude.
        QTest::newRow("-7") << -7LL << 1;
        QTest::newRow("-1000") << -1000LL << 4;
        QTest::newRow("lowest") << std::numeric_limits<long long>::min() << 19;
    }

    void numDigits()
    {
        QFETCH(long long, value);
        QFETCH(int, expected);
        QCOMPARE(::numDigits(value), expected);
    }

    void pow10_data()
    {
        QTest::addColumn<int>("exponent");
        QTest::addColumn<long long>("expected");
        QTest::newRow("lowest exponent") << std::numeric_limits<int>::min() << 1LL;
        QTest::newRow("-3") << -3 << 1LL;
        QTest::newRow("0") << 0 << 1LL;
        QTest::newRow("1") << 1 << 10LL;
        QTest::newRow("2") << 2 << 100LL;
        QTest::newRow("9") << 9 << 1000000000LL;
        QTest::newRow("18") << 18 << 1000000000000000000LL;
        // Beyond 64 bits the product wraps.
        QTest::newRow("19 wraps") << 19 << -8446744073709551616LL;
        QTest::newRow("64 wraps to 0") << 64 << 0LL;
        QTest::newRow("highest exponent") << std::numeric_limits<int>::max() << 0LL;
    }

    void pow10()
    {
        QFETCH(int, exponent);
        QFETCH(long long, expected);
        QCOMPARE(::pow10(exponent), expected);
    }

private:
    QLocale m_oDefaultLocale;
};

QTEST_MAIN(TestInt64Validator)
#include "tst_int64validator.moc"
