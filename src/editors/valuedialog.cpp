#include "editors/valuedialog.h"

#include "dialogs/widgetsetdynamicgeneric.h"
#include "dialogs/widgetsetnode.h"
#include "editors/baseeditor.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"
#include "ui_widgetsetdynamicgeneric.h"
#include "ui_widgetsetnode.h"

#include <QLayout>
#include <QTreeWidget>

namespace PropertyBrowser {
namespace Editors {

ValueDialog::ValueDialog(BaseEditor& editor, WidgetProperty& row)
    : m_editor(&editor)
    , m_row(&row)
    , m_dialog(new WidgetSetNode(&editor))
    , m_picker(new WidgetSetDynamicGeneric(m_dialog))
{ }

ValueDialog::~ValueDialog()
{
    delete m_dialog.data();
}

WidgetSetNode& ValueDialog::dialog()
{
    return *m_dialog;
}

void ValueDialog::setLocalPage(QWidget* page)
{
    Ui_WidgetSetNode& form = *m_dialog->ui;
    form.grpNodeValueType->hide();
    form.pageLocal->layout()->addWidget(page);
    form.pageDynamic->layout()->addWidget(m_picker);
    form.rbLocalValue->setChecked(true);
    m_dialog->setWindowTitle(m_row->propertyName());
}

void ValueDialog::offerLinks(const Script::DItem& node, const QString& fallbackPath)
{
    const auto links = node.property("IData.AcceptableLinks").value<Script::DItemListPair>();
    const QString linkedPath = node.linkedPath();
    m_picker->generateTree(links, linkedPath.isEmpty() ? fallbackPath : linkedPath);
    const bool anyTarget = !links.first.isEmpty();
    m_picker->ui->m_poTreeWidget->setEnabled(anyTarget);
    Ui_WidgetSetNode& form = *m_dialog->ui;
    form.grpNodeValueType->show();
    form.rbDynamicValue->setChecked(true);
    form.rbDynamicValue->setEnabled(anyTarget);
}

bool ValueDialog::exec()
{
    const int result = m_dialog->exec();
    // The tree may have dropped the editor or the row while the dialog's own event loop ran.
    return result == QDialog::Accepted && m_editor && m_row && m_dialog;
}

bool ValueDialog::localChosen() const
{
    return m_dialog->ui->rbLocalValue->isChecked();
}

bool ValueDialog::linkChosen() const
{
    return m_dialog->ui->rbDynamicValue->isChecked();
}

QString ValueDialog::chosenLink() const
{
    // No selection, after Reset or on an empty list, clears the link; the command then carries
    // an empty string, never a null one.
    const QList<QTreeWidgetItem*> selected = m_picker->ui->m_poTreeWidget->selectedItems();
    return selected.isEmpty() ? QStringLiteral("")
                              : selected.first()->data(0, Qt::UserRole).toString();
}

} // namespace Editors
} // namespace PropertyBrowser
