#include "editors/int64editor.h"

#include "controls/int64slider.h"
#include "controls/int64validator.h"
#include "dialogs/widgetsetlocaladdon.h"
#include "dialogs/widgetsetlocalint.h"
#include "editors/integervaluepage.h"
#include "editors/valuedialog.h"
#include "property_model/int64propertymanager.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"
#include "ui_widgetsetlocalint.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QVBoxLayout>

namespace PropertyBrowser {
namespace Editors {

Int64Editor::Int64Editor(QWidget* parent, WidgetProperty* property)
    : BaseEditor(parent, property, TypeInt)
    , m_propertyManager(
          property ? dynamic_cast<Managers::Int64PropertyManager*>(property->propertyManager())
                   : nullptr)
    , m_rowLayout(new QHBoxLayout)
    , m_valueLayout(new QVBoxLayout)
    , m_lineEdit(new QLineEdit(this))
    , m_slider(new Int64Slider(this))
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
    m_slider->setFocusPolicy(Qt::NoFocus);
    // The wrapper's policy does not reach the slider inside it. A click on a slider that takes
    // focus would end the typing first and send the typed number before the slider's own.
    for (QWidget* inner : m_slider->findChildren<QWidget*>())
        inner->setFocusPolicy(Qt::NoFocus);
    m_slider->setStyleSheet(commonStylesheet());

    m_valueLayout->setContentsMargins(0, 0, 0, 0);
    m_valueLayout->setSpacing(0);
    m_valueLayout->addWidget(m_lineEdit);
    m_valueLayout->addWidget(m_slider);

    layOutRow(*m_rowLayout, m_valueLayout);

    refreshEditorData();

    connect(&m_browseButton, &QPushButton::clicked, this, &Int64Editor::vButtonClicked);
    if (m_propertyManager)
        connect(this, &BaseEditor::vLinkClicked, m_propertyManager,
                &Managers::Int64PropertyManager::linkClicked);
    connect(m_slider, &Int64Slider::sliderMoved, this, &Int64Editor::onSliderMoved);
    // Direct, so that the commit of a slider change is made before its setter returns.
    connect(m_slider, &Int64Slider::valueChanged, this, &Int64Editor::onSliderValueChanged,
            Qt::DirectConnection);
    connect(m_lineEdit, &QLineEdit::textEdited, this, &Int64Editor::onTextEdited);
    connect(m_lineEdit, &QLineEdit::editingFinished, this, &Int64Editor::onEditFinished);

    setObjectName(QStringLiteral("Int64PropertyEditor"));
    setFocusProxy(m_lineEdit);
    setLayout(m_rowLayout);
}

void Int64Editor::showLinkWidget(QString path)
{
    m_linkPath = path;
    vButtonClicked();
}

void Int64Editor::readData()
{
    if (!m_property || !m_property->node || !m_propertyManager)
        return;
    const Script::DItem& node = *m_property->node;
    const long localValue
        = m_property->variantToVal<long>(node.property("IDataNumeric.LocalValue"));
    const int ioType = node.ioType();
    m_minimum = m_propertyManager->minimum(m_property);
    m_maximum = m_propertyManager->maximum(m_property);
    m_singleStep = m_propertyManager->singleStep(m_property);
    // An output shows its state, not an editable value, unless its limits may be set.
    if ((ioType == Script::DItem::IoOutput && !m_limitsEditable)
        || ioType > Script::DItem::IoOutput)
        return;
    m_value = localValue;

    const bool blocked = m_slider->blockSignals(true);
    m_slider->setSingleStep(m_singleStep);
    m_slider->setMinimum(m_minimum);
    m_slider->setMaximum(m_maximum);
    m_slider->setValue(m_propertyManager->value(m_property));
    m_slider->setEnabled(!m_limitsEditable);
    m_slider->blockSignals(blocked);

    m_lineEdit->setText(m_propertyManager->valueText(m_property));
    m_lineEdit->setToolTip(m_propertyManager->toolTipText(m_property));
    // With editable limits the row only shows the value; the dialog edits the limits.
    m_lineEdit->setReadOnly(m_limitsEditable);
    m_lineEdit->setEnabled(!m_limitsEditable);
    // The validator is the one that the constructor gave the line edit, which hands it out const.
    if (auto* validator
        = qobject_cast<Int64Validator*>(const_cast<QValidator*>(m_lineEdit->validator())))
        validator->setRange(m_minimum, m_maximum);

    m_browseButton.setEnabled(true);
    if (ioType == Script::DItem::IoInput) {
        // A linked input takes its value from the link: the row only shows it.
        const bool linked = node.isLinked();
        m_slider->setEnabled(!linked);
        m_lineEdit->setReadOnly(linked);
    }
}

void Int64Editor::commitLocalData()
{
    if (m_propertyManager)
        m_propertyManager->setValue(m_property, m_value);
}

void Int64Editor::vButtonClicked()
{
    if (!m_property || !m_property->node || !m_propertyManager)
        return;
    Managers::Int64PropertyManager* manager = m_propertyManager;
    const Script::DItem& node = *m_property->node;
    const long value = m_property->variantToVal<long>(node.property("IDataNumeric.LocalValue"));
    const long minimum = m_property->variantToVal<long>(node.property("IDataNumeric.LocalMin"));
    const long maximum = m_property->variantToVal<long>(node.property("IDataNumeric.LocalMax"));
    const long step = m_property->variantToVal<long>(node.property("IDataNumeric.LocalStep"));
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
        std::numeric_limits<long long>::min(), std::numeric_limits<long long>::max(), ok);
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
            m_value = fields.m_poSlider->value();
            // The commit follows from the slider's valueChanged, so a value at the slider's
            // present position sends nothing.
            m_slider->setValue(m_value);
        } else {
            bool minimumOk = false;
            bool maximumOk = false;
            const qlonglong newMinimum = fields.m_poMinValueText->locale().toLongLong(
                fields.m_poMinValueText->text(), &minimumOk);
            const qlonglong newMaximum = fields.m_poMaxValueText->locale().toLongLong(
                fields.m_poMaxValueText->text(), &maximumOk);
            if (minimumOk && maximumOk)
                manager->setLimits(m_property, newMinimum, newMaximum);
        }
    } else if (valueDialog.linkChosen()) {
        manager->setLink(path, valueDialog.chosenLink());
    }
}

void Int64Editor::onSliderMoved(long value)
{
    m_value = value;
    const QLocale locale = rowLocale(m_property);
    QString text = locale.toString(static_cast<qlonglong>(value));
    // The negation wraps as two's complement does, so the least value keeps a negative
    // magnitude, and with it its separators.
    const long long magnitude
        = value < 0 ? static_cast<long long>(0ULL - static_cast<unsigned long long>(value)) : value;
    if (static_cast<double>(magnitude) >= 1000.0)
        text.remove(locale.groupSeparator());
    m_lineEdit->setText(text);
}

void Int64Editor::onSliderValueChanged(long value)
{
    onSliderMoved(value);
    commitLocalData();
}

void Int64Editor::onTextEdited(QString text)
{
    // The slider follows the text silently: nothing is sent while the user types.
    const bool blocked = m_slider->blockSignals(true);
    m_slider->setValue(rowLocale(m_property).toLongLong(text));
    m_slider->blockSignals(blocked);
}

void Int64Editor::onEditFinished()
{
    const qlonglong number = rowLocale(m_property).toLongLong(m_lineEdit->text());
    const Script::DItem* node = m_property ? m_property->node : nullptr;
    // A linked node takes its value from the link; typing never replaces the link.
    if ((node && node->isLinked()) || number == m_value)
        return;
    const bool blocked = m_slider->blockSignals(true);
    m_value = number;
    commitLocalData();
    m_slider->blockSignals(blocked);
}

} // namespace Editors
} // namespace PropertyBrowser
