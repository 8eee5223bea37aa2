#include "dialogs/widgetsetlocaldouble.h"

#include "ui_widgetsetlocaldouble.h"

#include <QTimer>

namespace PropertyBrowser {
namespace Editors {

namespace {

// The first report waits until the caller has filled the fields.
const int kFirstReportDelayMs = 10;

const int kEditLimits = 1;
const int kEditValue = 2;

} // namespace

WidgetSetLocalDouble::WidgetSetLocalDouble(QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , ui(new Ui_WidgetSetLocalDouble)
{
    ui->setupUi(this);
    for (QDoubleSpinBox* field : {static_cast<QDoubleSpinBox*>(ui->m_poMinValueText),
                                  static_cast<QDoubleSpinBox*>(ui->m_poMaxValueText),
                                  static_cast<QDoubleSpinBox*>(ui->m_poValueText)})
        connect(field, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
                &WidgetSetLocalDouble::recalculateValidationState, Qt::DirectConnection);
    QTimer::singleShot(kFirstReportDelayMs, this,
                       &WidgetSetLocalDouble::recalculateValidationState);
}

WidgetSetLocalDouble::~WidgetSetLocalDouble() = default;

int WidgetSetLocalDouble::detectEditType() const
{
    return ui->m_poValueText->isEnabled() ? kEditValue : kEditLimits;
}

void WidgetSetLocalDouble::recalculateValidationState()
{
    const double minimum = ui->m_poMinValueText->value();
    const double maximum = ui->m_poMaxValueText->value();
    const double value = ui->m_poValueText->value();
    bool valid = true;
    QString message;
    if (detectEditType() == kEditLimits) {
        valid = !(minimum > maximum);
        if (!valid)
            message = QStringLiteral("Min value is greater than Max.");
    } else {
        valid = value >= minimum && maximum >= value;
        if (!valid)
            message = QStringLiteral("Value outside of range");
    }
    emit validationStateChanged(valid, message, true);
}

} // namespace Editors
} // namespace PropertyBrowser
