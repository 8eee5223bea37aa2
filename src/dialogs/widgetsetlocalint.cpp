#include "dialogs/widgetsetlocalint.h"

#include "dialogs/numericvaluecheck.h"
#include "ui_widgetsetlocalint.h"

#include <QSignalBlocker>
#include <QTimer>

namespace PropertyBrowser {
namespace Editors {

WidgetSetLocalInt::WidgetSetLocalInt(QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , ui(new Ui_WidgetSetLocalInt)
{
    ui->setupUi(this);
    ui->m_poSlider->setOrientation(Qt::Horizontal);
    connect(ui->m_poSlider, &Int64Slider::sliderMoved, this, &WidgetSetLocalInt::onSliderMoved);
    connect(ui->m_poSlider, &Int64Slider::valueChanged, this,
            &WidgetSetLocalInt::onSliderValueChanged);
    connect(ui->m_poValue, &QLineEdit::textEdited, this, &WidgetSetLocalInt::onTextEdited);
    connect(ui->m_poMaxValueText, &QLineEdit::textEdited, this,
            &WidgetSetLocalInt::recalculateValidationState);
    connect(ui->m_poMinValueText, &QLineEdit::textEdited, this,
            &WidgetSetLocalInt::recalculateValidationState);
    QTimer::singleShot(NumericValueCheck::kFirstReportDelayMs, this,
                       &WidgetSetLocalInt::recalculateValidationState);
}

WidgetSetLocalInt::~WidgetSetLocalInt() = default;

int WidgetSetLocalInt::detectEditType()
{
    return ui->m_poValue->isEnabled() ? NumericValueCheck::kEditValue
                                      : NumericValueCheck::kEditLimits;
}

void WidgetSetLocalInt::onSliderMoved(int64_t value)
{
    showSliderValue(value);
}

void WidgetSetLocalInt::onSliderValueChanged(int64_t nSliderValue)
{
    showSliderValue(nSliderValue);
}

void WidgetSetLocalInt::onTextEdited(QString oTextValue)
{
    // The slider must not write its value back into the text being typed.
    const QSignalBlocker blocker(ui->m_poSlider);
    // A text that is no number puts the slider where 0 falls.
    ui->m_poSlider->setValue(locale().toLongLong(oTextValue));
    recalculateValidationState();
}

void WidgetSetLocalInt::recalculateValidationState()
{
    bool minOk = false;
    bool maxOk = false;
    bool valueOk = false;
    const qlonglong minimum
        = ui->m_poMinValueText->locale().toLongLong(ui->m_poMinValueText->text(), &minOk);
    const qlonglong maximum
        = ui->m_poMaxValueText->locale().toLongLong(ui->m_poMaxValueText->text(), &maxOk);
    const qlonglong value = ui->m_poValue->locale().toLongLong(ui->m_poValue->text(), &valueOk);
    // While a field holds no number the last verdict stays in force.
    if (!minOk || !maxOk || !valueOk)
        return;
    const NumericValueCheck::Verdict verdict
        = NumericValueCheck::judge(detectEditType(), minimum, maximum, value);
    emit validationStateChanged(verdict.valid, verdict.message, true);
}

void WidgetSetLocalInt::showSliderValue(int64_t value)
{
    // Plain digits: the slider reaches only the values of its mapping, never a grouped text.
    ui->m_poValue->setText(QString::number(qlonglong(value), 10));
    recalculateValidationState();
}

} // namespace Editors
} // namespace PropertyBrowser
