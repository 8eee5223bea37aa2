#include "dialogs/widgetsetnode.h"

#include "ui_widgetsetnode.h"

#include <QCoreApplication>
#include <QShowEvent>
#include <QTimer>
#include <QTreeWidget>

namespace PropertyBrowser {
namespace Editors {

namespace {

// The layouts settle only after the event that changed the page; the fit waits for them.
const int kFitDelayMs = 10;

} // namespace

WidgetSetNode::WidgetSetNode(QWidget* parent, Qt::WindowFlags flags)
    : QDialog(parent, flags)
    , ui(new Ui_WidgetSetNode)
    , nodeLinked(false)
{
    ui->setupUi(this);
    setWindowModality(Qt::ApplicationModal);
    ui->stackedWidget->setCurrentWidget(ui->pageLocal);
    ui->lblWarning->hide();
    connect(ui->rbLocalValue, &QRadioButton::toggled, this, &WidgetSetNode::onRadioButtonChanged,
            Qt::UniqueConnection);
    connect(ui->rbDynamicValue, &QRadioButton::toggled, this,
            &WidgetSetNode::onRadioButtonChanged, Qt::UniqueConnection);
    connect(ui->m_OKBtn, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->m_CancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    // Reset closes as accepted: the caller then finds no link selected and drops the link.
    connect(ui->m_ResetBtn, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->m_ResetBtn, &QPushButton::clicked, this, &WidgetSetNode::resetBtnClicked);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    ui->m_ResetBtn->hide();
}

WidgetSetNode::~WidgetSetNode() = default;

void WidgetSetNode::onRadioButtonChanged()
{
    if (ui->rbLocalValue->isChecked()) {
        ui->stackedWidget->setCurrentWidget(ui->pageLocal);
        ui->m_ResetBtn->hide();
        ui->m_OKBtn->setEnabled(true);
    } else {
        ui->stackedWidget->setCurrentWidget(ui->pageDynamic);
        ui->m_ResetBtn->show();
        ui->m_ResetBtn->setEnabled(nodeLinked);
        ui->m_OKBtn->setEnabled(nodeLinked);
    }
    scheduleFixedSize();
}

void WidgetSetNode::makeFixedSize()
{
    setMinimumSize(minimumSizeHint());
    // Lifts the limit of an earlier fit, so the dialog can still be resized by hand.
    setMaximumSize(1000000, 100000);
    resize(width(), 1);
    QCoreApplication::processEvents();
}

void WidgetSetNode::onValidationResult(bool isValid, QString message, bool changeOkButtonState)
{
    ui->lblWarning->setVisible(!isValid);
    ui->lblWarning->setToolTip(message);
    if (changeOkButtonState)
        ui->m_OKBtn->setEnabled(isValid);
}

void WidgetSetNode::okBtnState()
{
    auto* tree = qobject_cast<QTreeWidget*>(sender());
    QTreeWidgetItem* item = tree ? tree->currentItem() : nullptr;
    if (!item)
        return;
    // Only a leaf is a node to link; an inner item merely groups the paths below it.
    const bool leaf = item->childCount() == 0;
    ui->m_OKBtn->setEnabled(leaf);
    if (leaf)
        nodeLinked = true;
}

void WidgetSetNode::treeItemDoubleClicked(QTreeWidget* tree)
{
    QTreeWidgetItem* item = tree ? tree->currentItem() : nullptr;
    if (!item || item->childCount() > 0)
        return;
    done(QDialog::Accepted);
}

void WidgetSetNode::onNodeLinked(bool linked)
{
    nodeLinked = linked;
}

void WidgetSetNode::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    scheduleFixedSize();
    QWidget* page = ui->rbLocalValue->isChecked()
        ? ui->pageLocal
        : (ui->rbDynamicValue->isChecked() ? ui->pageDynamic : nullptr);
    if (!page || !parentWidget())
        return;
    // The page's size, not the dialog's, is centred, so the frame's share lies below and right.
    const QWidget* window = parentWidget()->window();
    const QPoint centre = window->frameGeometry().topLeft()
        + QPoint((window->width() - 1) / 2, (window->height() - 1) / 2);
    move(centre - QPoint((page->width() - 1) / 2, (page->height() - 1) / 2));
}

void WidgetSetNode::scheduleFixedSize()
{
    QTimer::singleShot(kFitDelayMs, this, &WidgetSetNode::makeFixedSize);
}

} // namespace Editors
} // namespace PropertyBrowser
