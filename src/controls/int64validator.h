#ifndef INT64VALIDATOR_H
#define INT64VALIDATOR_H

#include <QByteArray>
#include <QLocale>
#include <QValidator>

#include <cstdint>

/// Returns the C-locale form of one character of a number written in the default locale:
/// a digit as it is, '+', '-', '.' for the decimal point, ',' for the group separator, 'e' for
/// the exponent mark; 0 for anything else.
QChar digitToCLocale(QChar ch);

/// Returns the number of decimal digits of @p value's magnitude; 1 for 0.
int numDigits(long long value);

/// Returns 10 to the power @p exponent, wrapping in 64 bits; 1 for an exponent below 1.
long long pow10(int exponent);

/// Checks the text of a signed 64-bit integer against a range.
///
/// The text is read in the validator's locale. Group separators are accepted anywhere after a
/// digit while typing; only a text that the locale itself parses counts as finished. A number
/// outside the range stays intermediate as long as more typing could still bring it in.
class Int64Validator : public QValidator
{
    Q_OBJECT
    Q_PROPERTY(long bottom READ bottom WRITE setBottom NOTIFY bottomChanged)
    Q_PROPERTY(long top READ top WRITE setTop NOTIFY topChanged)

public:
    /// Accepts the whole signed 64-bit range.
    explicit Int64Validator(QObject* parent = nullptr);

    /// Accepts @p bottom to @p top.
    Int64Validator(long bottom, long top, QObject* parent = nullptr);

    State validate(QString& input, int& pos) const override;

    /// Rewrites a text of loosely grouped digits as the locale writes the number; a text that
    /// isn't such a number is left alone. The range is not consulted.
    void fixup(QString& input) const override;

    /// Sets both bounds and tells which of them changed.
    virtual void setRange(long bottom, long top);

    long bottom() const { return m_lBottom; }
    long top() const { return m_lTop; }

    void setBottom(long bottom);
    void setTop(long top);

    /// Translates @p input into C-locale digits and signs in @p buffer; false when a character
    /// has no place in an integer, a sign stands after the start, or a group separator doesn't
    /// follow a digit or is refused by @p options.
    bool validateCharacters(QString input, QByteArray* buffer,
                            QFlags<QLocale::NumberOption> options) const;

signals:
    void bottomChanged(int64_t bottom);
    void topChanged(int64_t top);

private:
    long m_lBottom;
    long m_lTop;
};

#endif
