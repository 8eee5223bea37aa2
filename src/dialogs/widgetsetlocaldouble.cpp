#include "dialogs/widgetsetlocaldouble.h"

#include "dialogs/numericvaluecheck.h"
#include "ui_widgetsetlocaldouble.h"

#include <QTimer>

namespace PropertyBrowser {
namespace Editors {

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
    QTimer::singleShot(NumericValueCheck::kFirstReportDelayMs, this,
                       &WidgetSetLocalDouble::recalculateValidationState);
}

WidgetSetLocalDouble::~WidgetSetLocalDouble() = default;

int WidgetSetLocalDouble::detectEditType() const
{
    return ui->m_poValueText->isEnabled() ? NumericValueCheck::kEditValue
                                          : NumericValueCheck::kEditLimits;
}

void WidgetSetLocalDouble::recalculateValidationState()
{
    const double minimum = ui->m_poMinValueText->value();
    const double maximum = ui->m_poMaxValueText->value();
    const double value = ui->m_poValueText->value();
    const NumericValueCheck::Verdict verdict
        = NumericValueCheck::judge(detectEditType(), minimum, maximum, value);
    emit validationStateChanged(verdict.valid, verdict.message, true);
}

} // namespace Editors
} // namespace PropertyBrowser
