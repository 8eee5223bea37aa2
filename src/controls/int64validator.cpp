#include "controls/int64validator.h"

#include "controls/int64typename.h"

#include <limits>

QChar digitToCLocale(QChar ch)
{
    const QLocale locale;
    const QChar zero = locale.zeroDigit();
    const int code = ch.unicode();
    // The upper limit is the digit value of the zero, not its code, so this test never holds:
    // digits of other scripts are never translated and fall through to 0 at the end. Kept so,
    // since the integer fields have always refused them.
    if (code >= zero.unicode() && code < zero.digitValue() + 10)
        return QChar(code + '0' - zero.digitValue());
    if (ch >= QLatin1Char('0') && ch <= QLatin1Char('9'))
        return ch;
    if (ch == locale.positiveSign() || ch == QLatin1Char('+'))
        return QLatin1Char('+');
    if (ch == locale.negativeSign() || ch == QLatin1Char('-') || ch == QChar(0x2212))
        return QLatin1Char('-');
    if (ch == locale.decimalPoint())
        return QLatin1Char('.');
    if (ch == locale.groupSeparator())
        return QLatin1Char(',');
    if (ch == locale.exponential() || ch == locale.exponential().toUpper())
        return QLatin1Char('e');
    // People type a plain space where the locale groups with a no-break space.
    if (ch == QLatin1Char(' ') && locale.groupSeparator() == QChar(0x00A0))
        return QLatin1Char(',');
    return QChar(0);
}

int numDigits(long long value)
{
    // The magnitude, taken unsigned so that the lowest value has one too.
    unsigned long long magnitude = value < 0 ? 0ULL - static_cast<unsigned long long>(value)
                                             : static_cast<unsigned long long>(value);
    int digits = 1;
    while (magnitude >= 10) {
        magnitude /= 10;
        ++digits;
    }
    return digits;
}

long long pow10(int exponent)
{
    unsigned long long result = 1;
    // Once ten's factor two has been multiplied in 64 times the product stays 0, so the loop
    // may stop there with the same result.
    for (int i = 0; i < exponent && result != 0; ++i)
        result *= 10;
    return static_cast<long long>(result);
}

Int64Validator::Int64Validator(QObject* parent)
    : Int64Validator(std::numeric_limits<long>::min(), std::numeric_limits<long>::max(), parent)
{ }

Int64Validator::Int64Validator(long bottom, long top, QObject* parent)
    : QValidator(parent)
    , m_lBottom(bottom)
    , m_lTop(top)
{
    vRegisterInt64Name();
}

bool Int64Validator::validateCharacters(QString input, QByteArray* buffer,
                                        QFlags<QLocale::NumberOption> options) const
{
    buffer->clear();
    buffer->reserve(input.size() + 1);
    bool lastWasDigit = false;
    for (int index = 0; index < input.size(); ++index) {
        const char c = static_cast<char>(digitToCLocale(input.at(index)).unicode() & 0xFF);
        if (c >= '0' && c <= '9') {
            buffer->append(c);
            lastWasDigit = true;
        } else if (c == ',') {
            // Where the separator sits within the digits is left to the locale's own parse.
            if (options.testFlag(QLocale::RejectGroupSeparator) || !lastWasDigit)
                return false;
            lastWasDigit = false;
        } else if (c == '+' || c == '-') {
            if (index != 0)
                return false;
            buffer->append(c);
            lastWasDigit = false;
        } else {
            return false;
        }
    }
    return true;
}

QValidator::State Int64Validator::validate(QString& input, int& pos) const
{
    Q_UNUSED(pos)
    QByteArray buffer;
    if (!validateCharacters(input, &buffer, locale().numberOptions()))
        return Invalid;
    if (buffer.isEmpty())
        return Intermediate;
    // A sign that the range cannot hold can't be completed into anything.
    if (m_lBottom >= 0 && buffer.startsWith('-'))
        return Invalid;
    if (m_lTop < 0 && buffer.startsWith('+'))
        return Invalid;
    if (buffer.size() == 1 && (buffer.at(0) == '+' || buffer.at(0) == '-'))
        return Intermediate;
    bool ok = false;
    const long long number = buffer.toLongLong(&ok, 10);
    if (!ok)
        return Invalid;
    if (number >= m_lBottom && number <= m_lTop) {
        // Loose grouping passed above; the locale decides whether the text is finished.
        bool parsed = false;
        locale().toLongLong(input, &parsed);
        return parsed ? Acceptable : Intermediate;
    }
    if (number >= 0) {
        if (number <= m_lTop)
            return Intermediate;
        // Typing a minus sign in front may still bring the number into the range.
        return -number >= m_lBottom ? Intermediate : Invalid;
    }
    if (number < m_lBottom)
        return Invalid;
    return Intermediate;
}

void Int64Validator::fixup(QString& input) const
{
    QByteArray buffer;
    if (!validateCharacters(input, &buffer, locale().numberOptions()))
        return;
    bool ok = false;
    const long long number = buffer.toLongLong(&ok, 10);
    if (ok)
        input = locale().toString(number);
}

void Int64Validator::setRange(long bottom, long top)
{
    bool changed = false;
    if (bottom != m_lBottom) {
        m_lBottom = bottom;
        emit bottomChanged(m_lBottom);
        changed = true;
    }
    if (top != m_lTop) {
        m_lTop = top;
        emit topChanged(m_lTop);
        changed = true;
    }
    if (changed)
        emit this->changed();
}

void Int64Validator::setBottom(long bottom)
{
    setRange(bottom, m_lTop);
}

void Int64Validator::setTop(long top)
{
    setRange(m_lBottom, top);
}
