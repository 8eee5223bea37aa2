#include "editors/integervaluepage.h"

#include "controls/int64slider.h"
#include "controls/int64validator.h"
#include "dialogs/widgetsetlocalint.h"
#include "dialogs/widgetsetnode.h"
#include "editors/baseeditor.h"
#include "editors/valuedialog.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"
#include "ui_widgetsetlocalint.h"

#include <QApplication>

namespace PropertyBrowser {
namespace Editors {

WidgetSetLocalInt* IntegerValuePage::create(ValueDialog& run, BaseEditor& editor,
                                            WidgetProperty& row, const Numbers& numbers,
                                            bool limitsEditable, long long limitBottom,
                                            long long limitTop, bool& valueShown)
{
    auto* panel = new WidgetSetLocalInt(QApplication::activeWindow());
    const bool ok = row.node && editor.setupAndShowErrorLabel(*panel->ui->m_ErrorLabel, *row.node);
    QObject::connect(panel, &WidgetSetLocalInt::validationStateChanged, &run.dialog(),
                     &WidgetSetNode::onValidationResult, Qt::DirectConnection);
    run.setLocalPage(panel);

    Ui_WidgetSetLocalInt& fields = *panel->ui;
    fields.m_poSlider->setMinimum(numbers.minimum);
    fields.m_poSlider->setMaximum(numbers.maximum);
    fields.m_poSlider->setSingleStep(numbers.step);
    // The value goes in last: a new step keeps the slider's position, not its value.
    fields.m_poSlider->setValue(numbers.value);
    fields.m_poSlider->setEnabled(!limitsEditable);
    fields.m_poSlider->setVisible(ok);
    fields.m_ErrorLabel->setVisible(!ok);

    const QString suffix = QLatin1Char(' ') + row.propertyName();
    fields.m_poLblMinValue->setText(tr("Minimal") + suffix);
    fields.m_poLblMaxValue->setText(tr("Maximal") + suffix);
    fields.m_poLblStepValue->setText(tr("Step") + suffix);
    fields.m_poLblActualValue->setText(tr("Actual") + suffix);

    const QLocale locale = row.locale();
    for (const auto& [field, limit] :
         {std::pair<QLineEdit*, long long>(fields.m_poMinValueText, numbers.minimum),
          std::pair<QLineEdit*, long long>(fields.m_poMaxValueText, numbers.maximum)}) {
        field->setText(QString::number(limit, 10));
        field->setLocale(locale);
        auto* validator = new Int64Validator(limitBottom, limitTop, field);
        validator->setLocale(locale);
        field->setValidator(validator);
        field->setEnabled(limitsEditable);
        field->setReadOnly(!limitsEditable);
    }

    // Shown for information only; the step is never read back.
    fields.m_poStep->setText(QString::number(numbers.step, 10));
    fields.m_poStep->setLocale(locale);

    fields.m_poValue->setEnabled(!limitsEditable);
    fields.m_poValue->setText(QString::number(numbers.value, 10));
    auto* valueValidator = new Int64Validator(numbers.minimum, numbers.maximum, fields.m_poValue);
    valueValidator->setLocale(locale);
    fields.m_poValue->setValidator(valueValidator);
    fields.m_poValue->setVisible(ok);
    valueShown = ok;
    return panel;
}

} // namespace Editors
} // namespace PropertyBrowser
