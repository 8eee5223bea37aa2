#include "editors/doubleeditor.h"

#include "dialogs/widgetsetlocaladdon.h"
#include "dialogs/widgetsetlocaldouble.h"
#include "dialogs/widgetsetnode.h"
#include "editors/scientificformatdoublespinbox.h"
#include "editors/valuedialog.h"
#include "property_model/doublepropertymanager.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"
#include "ui_widgetsetlocaldouble.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QSignalBlocker>

#include <cmath>
#include <limits>

namespace PropertyBrowser {
namespace Editors {

namespace {

const double kLargest = std::numeric_limits<double>::max();

} // namespace

bool computeValueChanged(double oldValue, double newValue, int decimals)
{
    // Nine units of the first digit that is not shown: what a round trip through the text can
    // move a value by is no change, so equality of the doubles is no test here.
    const double threshold = 9.0 * std::exp(-(decimals + 1) * 2.302585092994046);
    return std::fabs(oldValue - newValue) >= threshold;
}

DoubleEditor::DoubleEditor(QWidget* parent, WidgetProperty* property)
    : BaseEditor(parent, property, TypeDouble)
    , m_rowLayout(new QHBoxLayout)
    , m_spinBox(new ScientificFormatDoubleSpinBox(this))
    , m_value(0.0)
    , m_limitsEditable(m_property && m_property->node
                       && m_property->node->property("IDataNumeric.LimitsEditable").toBool())
{
    m_spinBox->setFrame(false);
    m_spinBox->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_spinBox->setCursor(Qt::ArrowCursor);
    m_spinBox->setReadOnly(m_limitsEditable);
    if (m_property)
        m_spinBox->setLocale(m_property->locale());
    if (Managers::DoublePropertyManager* doubleManager = manager())
        m_spinBox->setDecimals(doubleManager->decimals(m_property));

    layOutRow(*m_rowLayout, m_spinBox);

    refreshEditorData();

    connect(&m_browseButton, &QPushButton::clicked, this, &DoubleEditor::vButtonClicked);
    connect(m_spinBox, &QAbstractSpinBox::editingFinished, this, &DoubleEditor::onEditingFinished);
    if (Managers::DoublePropertyManager* doubleManager = manager())
        connect(this, &BaseEditor::vLinkClicked, doubleManager,
                &Managers::DoublePropertyManager::linkClicked, Qt::DirectConnection);

    setObjectName(QStringLiteral("DoublePropertyEditor"));
    setFocusProxy(m_spinBox);
    setLayout(m_rowLayout);
}

void DoubleEditor::showLinkWidget(QString path)
{
    m_linkPath = path;
    vButtonClicked();
}

Managers::DoublePropertyManager* DoubleEditor::manager() const
{
    return m_property
        ? dynamic_cast<Managers::DoublePropertyManager*>(m_property->propertyManager())
        : nullptr;
}

void DoubleEditor::readData()
{
    Managers::DoublePropertyManager* doubleManager = manager();
    if (!doubleManager || !m_property->node)
        return;
    const Script::DItem& node = *m_property->node;
    const double localValue
        = m_property->variantToVal<double>(node.property("IDataNumeric.LocalValue"));
    const int ioType = node.ioType();
    // An output shows a value of its own only when its limits are what the user edits here.
    if (ioType > Script::DItem::IoOutput
        || (ioType == Script::DItem::IoOutput && !m_limitsEditable))
        return;

    m_value = localValue;
    const QSignalBlocker blocker(m_spinBox);
    m_spinBox->setSingleStep(doubleManager->singleStep(m_property));
    // The value goes in before the range, so a new value outside the old range is clamped by
    // the old one first; the next refresh corrects it.
    m_spinBox->setValue(doubleManager->value(m_property));
    m_spinBox->setToolTip(doubleManager->toolTipText(m_property));
    m_spinBox->setDecimals(doubleManager->decimals(m_property));
    m_spinBox->setEnabled(true);
    m_spinBox->setReadOnly(false);
    m_browseButton.setEnabled(true);
    if (ioType == Script::DItem::IoOutput) {
        m_spinBox->setReadOnly(true);
        m_spinBox->setEnabled(false);
    } else {
        m_spinBox->setMinimum(doubleManager->minimum(m_property));
        m_spinBox->setMaximum(doubleManager->maximum(m_property));
    }
}

void DoubleEditor::onEditingFinished()
{
    if (!m_spinBox->isEnabled())
        return;
    const double value = m_spinBox->value();
    const int decimals = m_spinBox->decimals();
    if (m_spinBox->isReadOnly() || !computeValueChanged(m_value, value, decimals))
        return;
    Managers::DoublePropertyManager* doubleManager = manager();
    if (!doubleManager)
        return;
    m_value = value;
    doubleManager->setValue(m_property, value);
}

void DoubleEditor::vButtonClicked()
{
    Managers::DoublePropertyManager* doubleManager = manager();
    if (!doubleManager || !m_property->node)
        return;
    const Script::DItem& node = *m_property->node;
    const bool linked = node.isLinked();
    const double localValue
        = m_property->variantToVal<double>(node.property("IDataNumeric.LocalValue"));
    const double localMin
        = m_property->variantToVal<double>(node.property("IDataNumeric.LocalMin"));
    const double localMax
        = m_property->variantToVal<double>(node.property("IDataNumeric.LocalMax"));
    const double localStep
        = m_property->variantToVal<double>(node.property("IDataNumeric.LocalStep"));
    const QString path = node.iDataPath();
    const int ioType = node.ioType();
    // Outputs have no value of their own to set; only their limits, when those are editable.
    if (ioType > Script::DItem::IoOutput
        || (ioType == Script::DItem::IoOutput && !m_limitsEditable))
        return;

    ValueDialog valueDialog(*this, *m_property);
    auto* localPanel = new WidgetSetLocalDouble(QApplication::activeWindow());
    Ui_WidgetSetLocalDouble& panel = *localPanel->ui;

    const bool ok = setupAndShowErrorLabel(*panel.m_ErrorLabel, node);
    connect(localPanel, &WidgetSetLocalDouble::validationStateChanged, &valueDialog.dialog(),
            &WidgetSetNode::onValidationResult, Qt::DirectConnection);
    valueDialog.setLocalPage(localPanel);
    const QString name = m_property->propertyName();

    const QLocale locale = m_property->locale();
    const int decimals = doubleManager->decimals(m_property);
    // An output's value is not bounded by the limits that are being edited for it.
    if (ioType == Script::DItem::IoOutput)
        panel.m_poValueText->setRange(-kLargest, kLargest);
    else
        panel.m_poValueText->setRange(localMin, localMax);
    panel.m_poValueText->setDecimals(decimals);
    panel.m_poValueText->setSingleStep(localStep);
    panel.m_poValueText->setValue(localValue);
    panel.m_poValueText->setLocale(locale);
    panel.m_poValueText->setEnabled(!m_limitsEditable);
    panel.m_poValueText->setVisible(ok);
    panel.m_ErrorLabel->setVisible(!ok);

    panel.m_poLblActual->setText(tr("Actual") + QLatin1Char(' ') + name);
    panel.m_poLblStep->setText(tr("Step") + QLatin1Char(' ') + name);
    panel.m_poLblMinValue->setText(tr("Minimal") + QLatin1Char(' ') + name);
    panel.m_poLblMaxValue->setText(tr("Maximal") + QLatin1Char(' ') + name);

    panel.m_poStepText->setDecimals(decimals);
    panel.m_poStepText->setValue(localStep);
    panel.m_poStepText->setLocale(locale);

    const std::pair<ScientificFormatDoubleSpinBox*, double> limitFields[]
        = {{panel.m_poMinValueText, localMin}, {panel.m_poMaxValueText, localMax}};
    for (const auto& field : limitFields) {
        field.first->setRange(-kLargest, kLargest);
        field.first->setDecimals(decimals);
        field.first->setValue(field.second);
        field.first->setLocale(locale);
        field.first->setEnabled(m_limitsEditable);
        field.first->setReadOnly(!m_limitsEditable);
    }

    emit doubleManager->refreshData(path);

    // Not a number lies outside every range.
    const bool inRange = localValue >= localMin && localValue <= localMax;
    WidgetSetLocalAddOn::showEvaluation(ok && ioType == Script::DItem::IoOutput && m_limitsEditable,
                                        *panel.m_poLblEvaluatedResult, *panel.m_poWidgetLed,
                                        inRange);
    WidgetSetLocalAddOn::showLinkedTo(node.property("IData.LinksToMe").toStringList(),
                                      *panel.m_poLblLinkedTo);

    if (ioType == Script::DItem::IoInput)
        valueDialog.offerLinks(node, m_linkPath);

    // After a run that ends otherwise, this editor and the dialog's pages may be gone.
    if (!valueDialog.exec())
        return;

    if (valueDialog.localChosen()) {
        if (!m_limitsEditable) {
            const double value = panel.m_poValueText->value();
            // Accepting the same value on a linked node is how the user drops the link.
            if (computeValueChanged(m_value, value, panel.m_poValueText->decimals()) || linked)
                doubleManager->setValue(m_property, value);
        } else {
            doubleManager->setLimits(m_property, panel.m_poMinValueText->value(),
                                     panel.m_poMaxValueText->value());
        }
    } else if (valueDialog.linkChosen()) {
        doubleManager->setLink(path, valueDialog.chosenLink());
    }
}

} // namespace Editors
} // namespace PropertyBrowser
