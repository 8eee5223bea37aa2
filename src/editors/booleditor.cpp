#include "editors/booleditor.h"

#include "dialogs/widgetsetdynamicgeneric.h"
#include "dialogs/widgetsetnode.h"
#include "property_model/boolpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"
#include "ui_widgetsetdynamicgeneric.h"
#include "ui_widgetsetnode.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTimer>
#include <QTreeWidget>

namespace PropertyBrowser {
namespace Editors {

namespace {

// The commit waits this long after a toggle. It is no debounce: every toggle commits.
const int kCommitDelayMs = 10;

/// Offers the nodes that an input may be linked to and opens the dialog on its link page, with
/// the present link, or else @p fallbackPath, preselected.
void prepareLinking(const Script::DItem& node, const QString& fallbackPath, WidgetSetNode& dialog,
                    WidgetSetDynamicGeneric& picker)
{
    const auto links = node.property("IData.AcceptableLinks").value<Script::DItemListPair>();
    QString selectPath = node.linkedPath();
    if (selectPath.isEmpty())
        selectPath = fallbackPath;
    picker.generateTree(links, selectPath);
    const bool anyTarget = !links.first.isEmpty();
    picker.ui->m_poTreeWidget->setEnabled(anyTarget);
    dialog.ui->grpNodeValueType->show();
    dialog.ui->rbDynamicValue->setChecked(true);
    dialog.ui->rbDynamicValue->setEnabled(anyTarget);
}

/// The link the user chose in @p picker: the selected node's path, or "" to drop the link.
QString chosenLink(const WidgetSetDynamicGeneric& picker)
{
    const QList<QTreeWidgetItem*> selected = picker.ui->m_poTreeWidget->selectedItems();
    return selected.isEmpty() ? QStringLiteral("")
                              : selected.first()->data(0, Qt::UserRole).toString();
}

} // namespace

BoolEditor::BoolEditor(QWidget* parent, WidgetProperty* property)
    : BaseEditor(parent, property, TypeBool)
    , m_rowLayout(new QHBoxLayout)
    , m_checkBox(new QCheckBox(this))
    , m_value(false)
{
    m_checkBox->setFocusPolicy(Qt::NoFocus);

    m_rowLayout->setContentsMargins(4, 0, 0, 0);
    m_rowLayout->setSpacing(0);
    m_rowLayout->addWidget(&m_linkLabel);
    m_rowLayout->addWidget(m_checkBox);
    m_rowLayout->addWidget(&m_browseButton);

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

    WidgetSetNode dialog(this);
    WidgetSetDynamicGeneric linkPanel(&dialog);
    // A truth value needs no panel of its own: one check box is the whole local page.
    QCheckBox localPage(QApplication::activeWindow());
    localPage.setChecked(localValue);
    localPage.setText(tr("Output Value"));
    Ui_WidgetSetNode& frame = *dialog.ui;
    frame.grpNodeValueType->hide();
    frame.pageLocal->layout()->addWidget(&localPage);
    frame.pageDynamic->layout()->addWidget(&linkPanel);
    frame.rbLocalValue->setChecked(true);
    dialog.setWindowTitle(m_property->propertyName());

    if (ioType == Script::DItem::IoInput) {
        emit boolManager->refreshData(path);
        prepareLinking(node, m_linkPath, dialog, linkPanel);
    }

    if (dialog.exec() != QDialog::Accepted)
        return;

    if (frame.rbLocalValue->isChecked()) {
        // Accepting the same value on a linked node is how the user drops the link.
        if (localPage.isChecked() != m_value || linked)
            boolManager->setValue(m_property, localPage.isChecked());
    } else if (frame.rbDynamicValue->isChecked()) {
        boolManager->setLink(path, chosenLink(linkPanel));
    }
}

} // namespace Editors
} // namespace PropertyBrowser
