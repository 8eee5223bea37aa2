#include "editors/scientificformatdoublespinbox.h"

#include <QDoubleValidator>
#include <QLocale>

#include <cmath>
#include <limits>

namespace PropertyBrowser {
namespace Editors {

namespace {

// Exponent text holds exactly one exponent mark; anything else is left to the plain spin box.
int exponentMarks(const QString& text)
{
    return text.toLower().count(QLatin1Char('e'));
}

} // namespace

ScientificFormatDoubleSpinBox::ScientificFormatDoubleSpinBox(QWidget* parent)
    : QDoubleSpinBox(parent)
    , m_validator(new QDoubleValidator(this))
    , m_scientificThreshold(99999999.0)
{
    setMinimum(-std::numeric_limits<double>::max());
    setMaximum(std::numeric_limits<double>::max());
    setupValidator();
}

void ScientificFormatDoubleSpinBox::setupValidator() const
{
    // Read afresh each time: the range and the locale may have changed since the last check.
    m_validator->setBottom(minimum());
    m_validator->setTop(maximum());
    m_validator->setDecimals(4);
    m_validator->setNotation(QDoubleValidator::ScientificNotation);
    m_validator->setLocale(locale());
}

QString ScientificFormatDoubleSpinBox::textFromValue(double value) const
{
    // Beyond eight integer digits the plain text no longer fits an editor cell.
    if (std::fabs(value) > m_scientificThreshold)
        return locale().toString(value, 'e', 4);
    return QDoubleSpinBox::textFromValue(value);
}

double ScientificFormatDoubleSpinBox::valueFromText(const QString& text) const
{
    if (exponentMarks(text) != 1)
        return QDoubleSpinBox::valueFromText(text);
    bool ok = false;
    const double result = locale().toDouble(text, &ok);
    return ok ? result : value();
}

QValidator::State ScientificFormatDoubleSpinBox::validate(QString& text, int& position) const
{
    const QValidator::State state = QDoubleSpinBox::validate(text, position);
    if (state != QValidator::Invalid)
        return state;
    if (exponentMarks(text) != 1)
        return state;
    // A mantissa must come first; an upper-case mark is left for the checker to judge.
    if (text.at(0) == QLatin1Char('e'))
        return state;
    setupValidator();
    return m_validator->validate(text, position);
}

} // namespace Editors
} // namespace PropertyBrowser
