#include "editors/inteditor.h"

#include "controls/int64slider.h"
#include "controls/int64validator.h"
#include "controls/wslider.h"
#include "dialogs/widgetsetlocaladdon.h"
#include "dialogs/widgetsetlocalint.h"
#include "editors/integervaluepage.h"
#include "editors/valuedialog.h"
#include "property_model/intpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"
#include "ui_widgetsetlocalint.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace PropertyBrowser {
namespace Editors {

IntEditor::IntEditor(QWidget* parent, WidgetProperty* property)
    : BaseEditor(parent, property, TypeInt)
    , m_rowLayout(new QHBoxLayout)
    , m_valueLayout(new QVBoxLayout)
    , m_lineEdit(new QLineEdit(this))
    , m_slider(new WSlider(this))
    , m_value(0)
    , m_limitsEditable(property && property->node
                       && property->node->property("IDataNumeric.LimitsEditable").toBool())
    , m_minimum(0)
    , m_maximum(0)
    , m_singleStep(0)
{
    const QLocale locale = rowLocale(m_property);
    m_lineEdit->setFrame(false);
    m_lineEdit->setAcceptDrops(false);
    m_lineEdit->setAlignment(Qt::AlignTop);
    m_lineEdit->setLocale(locale);
    auto* validator = new Int64Validator(m_lineEdit);
    validator->setLocale(locale);
    m_lineEdit->setValidator(validator);

    m_slider->setOrientation(Qt::Horizontal);
    m_slider->setCursor(Qt::ArrowCursor);
    // Without tracking a drag only previews; the value goes to the node once, on release.
    m_slider->setTracking(false);
    // The slider must not take the focus from the text, whose editing would end with it.
    m_slider->setFocusPolicy(Qt::NoFocus);
    m_slider->setStyleSheet(commonStylesheet());

    m_valueLayout->setContentsMargins(0, 0, 0, 0);
    m_valueLayout->setSpacing(0);
    m_valueLayout->addWidget(m_lineEdit);
    m_valueLayout->addWidget(m_slider);

    layOutRow(*m_rowLayout, m_valueLayout);

    refreshEditorData();

    connect(&m_browseButton, &QPushButton::clicked, this, &IntEditor::vButtonClicked);
    if (auto* manager = m_property
            ? dynamic_cast<Managers::IntPropertyManager*>(m_property->propertyManager())
            : nullptr)
        connect(this, &BaseEditor::vLinkClicked, manager,
                &Managers::IntPropertyManager::linkClicked);
    connect(m_slider, &QSlider::sliderMoved, this, &IntEditor::onSliderMoved);
    connect(m_slider, &QSlider::valueChanged, this, &IntEditor::onSliderValueChanged);
    connect(m_lineEdit, &QLineEdit::textEdited, this, &IntEditor::onTextEdited);
    connect(m_lineEdit, &QLineEdit::editingFinished, this, &IntEditor::onEditFinished);

    setObjectName(QStringLiteral("IntPropertyEditor"));
    setFocusProxy(m_lineEdit);
    setLayout(m_rowLayout);
}

void IntEditor::showLinkWidget(QString path)
{
    m_linkPath = path;
    vButtonClicked();
}

int IntEditor::snapped(int value) const
{
    // Wide enough that no distance within the 32-bit range overflows. The row's slider snaps
    // the same way in 32 bits, where distances across more than half the range wrap; a number
    // typed here is taken exactly instead.
    const long long minimum = m_minimum;
    const long long maximum = m_maximum;
    const long long step = m_singleStep;
    const long long v = value;
    if (maximum <= minimum)
        return value;
    if (v <= minimum)
        return m_minimum;
    if (v >= maximum)
        return m_maximum;
    if (step <= 0)
        return value;
    long long result = 0;
    if (v < 0) {
        // Negative values sit on the grid that hangs from the maximum, the others on the grid
        // that stands on the minimum; the two differ when the range is no whole number of steps.
        const long long d = maximum - v;
        result = maximum - (d - d % step);
    } else {
        const long long d = v - minimum;
        result = minimum + (d - d % step);
    }
    return static_cast<int>(std::clamp(result, minimum, maximum));
}

void IntEditor::readData()
{
    if (!m_property || !m_property->node)
        return;
    auto* manager = dynamic_cast<Managers::IntPropertyManager*>(m_property->propertyManager());
    if (!manager)
        return;
    const Script::DItem& node = *m_property->node;
    const int localValue = m_property->variantToVal<int>(node.property("IDataNumeric.LocalValue"));
    const int ioType = node.ioType();
    m_minimum = manager->minimum(m_property);
    m_maximum = manager->maximum(m_property);
    m_singleStep = manager->singleStep(m_property);
    // An output shows its state, not an editable value, unless its limits may be set.
    if ((ioType == Script::DItem::IoOutput && !m_limitsEditable)
        || ioType > Script::DItem::IoOutput)
        return;
    m_value = localValue;

    const bool blocked = m_slider->blockSignals(true);
    m_slider->setSingleStep(m_singleStep);
    m_slider->setPageStep(m_singleStep);
    m_slider->setMinimum(m_minimum);
    m_slider->setMaximum(m_maximum);
    m_slider->setValue(manager->value(m_property));
    m_slider->setEnabled(!m_limitsEditable);
    m_slider->blockSignals(blocked);

    m_lineEdit->setText(manager->valueText(m_property));
    m_lineEdit->setToolTip(manager->toolTipText(m_property));
    // With editable limits the row only shows the value; the dialog edits the limits.
    m_lineEdit->setReadOnly(m_limitsEditable);
    m_lineEdit->setEnabled(!m_limitsEditable);
    // The validator is the one that the constructor gave the line edit, which hands it out const.
    if (auto* validator
        = qobject_cast<Int64Validator*>(const_cast<QValidator*>(m_lineEdit->validator())))
        validator->setRange(m_minimum, m_maximum);
}

void IntEditor::commitLocalData()
{
    m_value = snapped(m_value);
    auto* manager = m_property
        ? dynamic_cast<Managers::IntPropertyManager*>(m_property->propertyManager())
        : nullptr;
    if (manager)
        manager->setValue(m_property, m_value);
}

void IntEditor::vButtonClicked()
{
    if (!m_property || !m_property->node)
        return;
    auto* manager = dynamic_cast<Managers::IntPropertyManager*>(m_property->propertyManager());
    if (!manager)
        return;
    const Script::DItem& node = *m_property->node;
    const int value = m_property->variantToVal<int>(node.property("IDataNumeric.LocalValue"));
    const int minimum = m_property->variantToVal<int>(node.property("IDataNumeric.LocalMin"));
    const int maximum = m_property->variantToVal<int>(node.property("IDataNumeric.LocalMax"));
    const int step = m_property->variantToVal<int>(node.property("IDataNumeric.LocalStep"));
    const QString path = node.iDataPath();
    const int ioType = node.ioType();
    // An output whose limits are fixed has nothing that a dialog could set.
    if (ioType > Script::DItem::IoOutput
        || (ioType == Script::DItem::IoOutput && !m_limitsEditable))
        return;

    ValueDialog valueDialog(*this, *m_property);
    bool ok = false;
    WidgetSetLocalInt* panel = IntegerValuePage::create(
        valueDialog, *this, *m_property, {value, minimum, maximum, step}, m_limitsEditable,
        std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), ok);
    Ui_WidgetSetLocalInt& fields = *panel->ui;

    emit manager->refreshData(path);

    const bool inRange = value >= minimum && value <= maximum;
    WidgetSetLocalAddOn::showEvaluation(ok && ioType == Script::DItem::IoOutput && m_limitsEditable,
                                        *fields.m_poLblEvaluatedResult, *fields.m_poWidgetLed,
                                        inRange);
    WidgetSetLocalAddOn::showLinkedTo(node.property("IData.LinksToMe").toStringList(),
                                      *fields.m_poLblLinkedTo);

    if (ioType == Script::DItem::IoInput)
        valueDialog.offerLinks(node, m_linkPath);

    // After a run that ends otherwise, this editor and the dialog's pages may be gone.
    if (!valueDialog.exec())
        return;

    if (valueDialog.localChosen()) {
        if (!m_limitsEditable) {
            // The slider's range came from 32-bit limits, so its value fits.
            m_value = static_cast<int>(fields.m_poSlider->value());
            // The commit follows from the slider's valueChanged, so an unchanged value sends
            // nothing.
            m_slider->setValue(m_value);
        } else {
            bool minimumOk = false;
            bool maximumOk = false;
            const int newMinimum = fields.m_poMinValueText->locale().toInt(
                fields.m_poMinValueText->text(), &minimumOk);
            const int newMaximum = fields.m_poMaxValueText->locale().toInt(
                fields.m_poMaxValueText->text(), &maximumOk);
            if (minimumOk && maximumOk)
                manager->setLimits(m_property, newMinimum, newMaximum);
        }
    } else if (valueDialog.linkChosen()) {
        manager->setLink(path, valueDialog.chosenLink());
    }
}

void IntEditor::onSliderMoved(int value)
{
    m_value = value;
    const QLocale locale = rowLocale(m_property);
    QString text = locale.toString(value);
    // The magnitude is taken in 64 bits, where that of the least int exists.
    const long long magnitude = value < 0 ? -static_cast<long long>(value) : value;
    if (magnitude > 999)
        text.remove(locale.groupSeparator());
    m_lineEdit->setText(text);
}

void IntEditor::onSliderValueChanged(int value)
{
    onSliderMoved(value);
    commitLocalData();
}

void IntEditor::onTextEdited(QString text)
{
    // The slider follows the text silently: nothing is sent while the user types.
    const bool blocked = m_slider->blockSignals(true);
    m_slider->setValue(snapped(rowLocale(m_property).toInt(text)));
    m_slider->blockSignals(blocked);
}

void IntEditor::onEditFinished()
{
    const int number = rowLocale(m_property).toInt(m_lineEdit->text());
    const Script::DItem* node = m_property ? m_property->node : nullptr;
    // A linked node takes its value from the link; typing never replaces the link.
    if ((node && node->isLinked()) || number == m_value)
        return;
    const bool blocked = m_slider->blockSignals(true);
    m_value = snapped(number);
    commitLocalData();
    m_slider->blockSignals(blocked);
}

} // namespace Editors
} // namespace PropertyBrowser
