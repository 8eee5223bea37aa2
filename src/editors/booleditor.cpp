#include "editors/booleditor.h"

#include "editors/valuedialog.h"
#include "property_model/boolpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTimer>

namespace PropertyBrowser {
namespace Editors {

namespace {

// The commit waits this long after a toggle. It is no debounce: every toggle commits.
const int kCommitDelayMs = 10;

} // namespace

BoolEditor::BoolEditor(QWidget* parent, WidgetProperty* property)
    : BaseEditor(parent, property, TypeBool)
    , m_rowLayout(new QHBoxLayout)
    , m_checkBox(new QCheckBox(this))
    , m_value(false)
{
    m_checkBox->setFocusPolicy(Qt::NoFocus);

    layOutRow(*m_rowLayout, m_checkBox);

    refreshEditorData();

    connect(&m_browseButton, &QPushButton::clicked, this, &BoolEditor::vButtonClicked);
    if (Managers::BoolPropertyManager* boolManager = manager())
        connect(this, &BaseEditor::vLinkClicked, boolManager,
                &Managers::BoolPropertyManager::linkClicked, Qt::DirectConnection);
    connect(m_checkBox, &QCheckBox::toggled, this, &BoolEditor::delayedCommit);

    setObjectName(QStringLiteral("BoolPropertyEditor"));
    setLayout(m_rowLayout);
}

BoolEditor::~BoolEditor() = default;

void BoolEditor::showLinkWidget(QString path)
{
    m_linkPath = path;
    vButtonClicked();
}

Managers::BoolPropertyManager* BoolEditor::manager() const
{
    return m_property ? dynamic_cast<Managers::BoolPropertyManager*>(m_property->propertyManager())
                      : nullptr;
}

void BoolEditor::readData()
{
    const Script::DItem* node = m_property ? m_property->node : nullptr;
    const int ioType = node ? node->ioType() : Script::DItem::IoNone;
    const bool localValue = node && node->property("IDataBasicBool.LocalValue").toBool();
    m_checkBox->setText(QString());
    Managers::BoolPropertyManager* boolManager = manager();
    if (!node || !boolManager || ioType > Script::DItem::IoInput)
        return;

    m_value = localValue;
    {
        const QSignalBlocker blocker(m_checkBox);
        m_checkBox->setChecked(boolManager->value(m_property));
        const QString text = boolManager->valueText(m_property);
        m_checkBox->setText(text);
        m_checkBox->setToolTip(text);
        m_checkBox->setEnabled(true);
    }
    m_browseButton.setVisible(true);
    m_browseButton.setEnabled(true);
    m_property->refresh();
}

void BoolEditor::commitLocalData()
{
    if (Managers::BoolPropertyManager* boolManager = manager())
        boolManager->setValue(m_property, m_value);
}

void BoolEditor::delayedCommit(bool)
{
    // The state is read here and sent when the timer fires; a second toggle in between changes
    // what both timers send.
    m_value = m_checkBox->isChecked();
    QTimer::singleShot(kCommitDelayMs, this, &BoolEditor::commitLocalData);
}

void BoolEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space)
        m_checkBox->toggle();
    BaseEditor::keyPressEvent(event);
}

void BoolEditor::vButtonClicked()
{
    Managers::BoolPropertyManager* boolManager = manager();
    if (!boolManager || !m_property->node)
        return;
    const Script::DItem& node = *m_property->node;
    const bool linked = node.isLinked();
    const bool localValue = node.property("IDataBasicBool.LocalValue").toBool();
    const QString path = node.iDataPath();
    const int ioType = node.ioType();
    if (ioType > Script::DItem::IoInput)
        return;

    ValueDialog valueDialog(*this, *m_property);
    // A truth value needs no panel of its own: one check box is the whole local page.
    auto* localPage = new QCheckBox(QApplication::activeWindow());
    localPage->setChecked(localValue);
    localPage->setText(tr("Output Value"));
    valueDialog.setLocalPage(localPage);

    if (ioType == Script::DItem::IoInput) {
        emit boolManager->refreshData(path);
        valueDialog.offerLinks(node, m_linkPath);
    }

    // After a run that ends otherwise, this editor and the dialog's pages may be gone.
    if (!valueDialog.exec())
        return;

    if (valueDialog.localChosen()) {
        // Accepting the same value on a linked node is how the user drops the link.
        if (localPage->isChecked() != m_value || linked)
            boolManager->setValue(m_property, localPage->isChecked());
    } else if (valueDialog.linkChosen()) {
        boolManager->setLink(path, valueDialog.chosenLink());
    }
}

} // namespace Editors
} // namespace PropertyBrowser
