#include "editors/enumeditor.h"

#include "editors/valuedialog.h"
#include "property_model/enumpropertymanager.h"
#include "property_model/widgetproperty.h"
#include "sdk/apptranslation.h"
#include "sdk/ditem.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>

namespace PropertyBrowser {
namespace Editors {

namespace {

// The choice is compared as the node holds it: exactly, case included.
const Qt::MatchFlags kExactChoice = Qt::MatchExactly | Qt::MatchCaseSensitive;

} // namespace

EnumEditor::EnumEditor(QWidget* parent, WidgetProperty* property, EditorType type)
    : BaseEditor(parent, property, type)
    , m_rowLayout(new QHBoxLayout)
    , m_comboBox(new QComboBox(this))
{
    m_comboBox->setFrame(false);
    m_comboBox->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_comboBox->setFocusPolicy(Qt::NoFocus);
    m_comboBox->view()->setTextElideMode(Qt::ElideRight);

    // The combo box starts at the cell's left edge: no margin in a choice row.
    layOutRow(*m_rowLayout, m_comboBox, 0);

    refreshEditorData();

    connect(&m_browseButton, &QPushButton::clicked, this, &EnumEditor::vButtonClicked);
    connect(m_comboBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &EnumEditor::commitData);
    if (Managers::EnumPropertyManager* enumManager = manager())
        connect(this, &BaseEditor::vLinkClicked, enumManager,
                &Managers::EnumPropertyManager::linkClicked);

    setObjectName(QStringLiteral("EnumPropertyEditor"));
    setLayout(m_rowLayout);
}

EnumEditor::~EnumEditor() = default;

void EnumEditor::showLinkWidget(QString path)
{
    m_linkPath = path;
    vButtonClicked();
}

Managers::EnumPropertyManager* EnumEditor::manager() const
{
    return m_property ? dynamic_cast<Managers::EnumPropertyManager*>(m_property->propertyManager())
                      : nullptr;
}

void EnumEditor::fillChoices(QComboBox& comboBox) const
{
    Managers::EnumPropertyManager* enumManager = manager();
    if (!enumManager)
        return;
    const QStringList names = enumManager->enumNames(m_property);
    for (const QString& name : names)
        comboBox.addItem(QIcon(), App::getTranslatedName(name), name);
}

void EnumEditor::readData()
{
    Managers::EnumPropertyManager* enumManager = manager();
    if (!enumManager || !m_property->node)
        return;
    const Script::DItem& node = *m_property->node;
    // The manager keeps no list of its own; the editor hands it the node's, also for an output.
    enumManager->setEnumNames(m_property, node.property("IDataBasicEnum.EnumList").toStringList());
    if (node.ioType() > Script::DItem::IoInput)
        return;

    const QSignalBlocker blocker(m_comboBox);
    m_comboBox->clear();
    fillChoices(*m_comboBox);
    m_comboBox->setToolTip(enumManager->valueText(m_property));
    // An unknown value leaves the box without a current entry.
    m_comboBox->setCurrentIndex(
        m_comboBox->findData(enumManager->value(m_property), Qt::UserRole, kExactChoice));
}

void EnumEditor::commitData(int index)
{
    Managers::EnumPropertyManager* enumManager = manager();
    if (!enumManager)
        return;
    enumManager->setValue(m_property, m_comboBox->itemData(index, Qt::UserRole).toString(),
                          QVariant());
}

void EnumEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space)
        m_comboBox->showPopup();
    BaseEditor::keyPressEvent(event);
}

void EnumEditor::vButtonClicked()
{
    Managers::EnumPropertyManager* enumManager = manager();
    if (!enumManager || !m_property->node)
        return;
    const Script::DItem& node = *m_property->node;
    const bool linked = node.isLinked();
    const QString localChoice = node.property("IDataBasicEnum.LocalStringnifiedValue").toString();
    const QString path = node.iDataPath();
    const int ioType = node.ioType();
    if (ioType > Script::DItem::IoInput)
        return;

    ValueDialog valueDialog(*this, *m_property);
    // A choice needs no panel of its own: one combo box is the whole local page.
    auto* localPage = new QComboBox(QApplication::activeWindow());
    fillChoices(*localPage);
    localPage->setCurrentIndex(localPage->findData(localChoice, Qt::UserRole, kExactChoice));
    valueDialog.setLocalPage(localPage);

    if (ioType == Script::DItem::IoInput) {
        emit enumManager->refreshData(path);
        valueDialog.offerLinks(node, m_linkPath);
    }

    // After a run that ends otherwise, this editor and the dialog's pages may be gone.
    if (!valueDialog.exec())
        return;

    if (valueDialog.localChosen()) {
        const QString choice = localPage->currentData(Qt::UserRole).toString();
        // Accepting the same choice on a linked node is how the user drops the link.
        if (choice != localChoice || linked)
            enumManager->setValue(m_property, choice, QVariant());
    } else if (valueDialog.linkChosen()) {
        enumManager->setLink(path, valueDialog.chosenLink());
    }
}

} // namespace Editors
} // namespace PropertyBrowser
