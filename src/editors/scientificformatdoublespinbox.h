#ifndef PROPERTYBROWSER_EDITORS_SCIENTIFICFORMATDOUBLESPINBOX_H
#define PROPERTYBROWSER_EDITORS_SCIENTIFICFORMATDOUBLESPINBOX_H

#include <QDoubleSpinBox>

class QDoubleValidator;

namespace PropertyBrowser {
namespace Editors {

/// A double spin box that shows large magnitudes in exponent notation and accepts typed
/// exponents, so that the whole double range can be shown and entered in a narrow cell.
class ScientificFormatDoubleSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    /// Makes a spin box over the whole finite double range.
    explicit ScientificFormatDoubleSpinBox(QWidget* parent = nullptr);

    QValidator::State validate(QString& text, int& position) const override;
    double valueFromText(const QString& text) const override;
    QString textFromValue(double value) const override;

private:
    /// Gives the exponent checker the spin box's current range and locale.
    void setupValidator() const;

    QDoubleValidator* m_validator;
    double m_scientificThreshold;
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
