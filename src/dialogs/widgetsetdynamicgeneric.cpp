#include "dialogs/widgetsetdynamicgeneric.h"

#include "dialogs/widgetsetnode.h"
#include "navigator/itemdelegateparentselected.h"
#include "sdk/apptranslation.h"
#include "ui_widgetsetdynamicgeneric.h"
#include "ui_widgetsetnode.h"

#include <QIcon>
#include <QTimer>
#include <QTreeWidgetItemIterator>

namespace PropertyBrowser {
namespace Editors {

namespace {

const QString kForbiddenIcon = QStringLiteral(":/images/cursor_forbidden.svg");

// Names reach the translation as their UTF-8 bytes read as Latin-1; a name beyond ASCII is
// therefore looked up altered, which the host's catalogue of names expects.
QString translatedName(const QString& name)
{
    return App::getTranslatedName(QString::fromLatin1(name.toUtf8()));
}

} // namespace

WidgetSetDynamicGeneric::WidgetSetDynamicGeneric(QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
    , ui(new Ui_WidgetSetDynamicGeneric)
    , m_poParent(parent)
{
    ui->setupUi(this);
    ui->m_poTreeWidget->setIconSize(QSize(24, 48));
    connect(ui->m_poCbxDynamic, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &WidgetSetDynamicGeneric::onCbxIndexChanged);
    ui->m_poCbxDynamic->hide();
    if (auto* dialog = qobject_cast<WidgetSetNode*>(parent)) {
        connect(ui->m_poTreeWidget, &QTreeWidget::itemSelectionChanged, dialog,
                &WidgetSetNode::okBtnState);
        connect(dialog, &WidgetSetNode::resetBtnClicked, this,
                &WidgetSetDynamicGeneric::onResetLinkActivated);
        connect(this, &WidgetSetDynamicGeneric::nodeLinked, dialog, &WidgetSetNode::onNodeLinked);
    }
    connect(ui->m_poTreeWidget, &QTreeWidget::itemDoubleClicked, this,
            &WidgetSetDynamicGeneric::onItemDoubleClicked);
    // The user picks from the tree at once, without a click into the dialog first.
    QTimer::singleShot(0, ui->m_poTreeWidget,
                       [this] { ui->m_poTreeWidget->setFocus(Qt::OtherFocusReason); });
}

WidgetSetDynamicGeneric::~WidgetSetDynamicGeneric() = default;

void WidgetSetDynamicGeneric::generateTree(Script::DItemListPair nodes, QString selectPath)
{
    if (nodes.first.isEmpty()) {
        generateTreeNoNodes();
        return;
    }
    auto* root = new QTreeWidgetItem(ui->m_poTreeWidget);
    ui->m_poTreeWidget->setItemDelegate(new ItemDelegateParentSelected(ui->m_poTreeWidget));
    root->setExpanded(true);
    m_bIndexing = true;
    for (const Script::DItem* node : qAsConst(nodes.first)) {
        const QString path = node ? node->iDataPath() : QString();
        if (!path.isEmpty()) {
            createTree(path, root);
            continue;
        }
        root->setText(0, QStringLiteral("No linkable nodes found !"));
        root->setIcon(0, QIcon(kForbiddenIcon));
        ui->m_poTreeWidget->setEnabled(false);
    }
    m_bIndexing = false;
    m_hChildrenByText.clear();
    addIcons(nodes);
    expandAndSelect(selectPath);
}

void WidgetSetDynamicGeneric::generateTreeNoNodes()
{
    auto* item = new QTreeWidgetItem(ui->m_poTreeWidget);
    item->setText(0, tr("No linkable nodes found !"));
    item->setIcon(0, QIcon(kForbiddenIcon));
    ui->m_poTreeWidget->setEnabled(false);
}

void WidgetSetDynamicGeneric::createTree(QString path, QTreeWidgetItem* root)
{
    if (!root)
        return;
    QStringList parts = path.split('.');
    // Only the first path names the root; every later one hangs below it, whatever its first
    // component says.
    if (root->text(0).isEmpty())
        root->setText(0, translatedName(parts.first()));
    parts.removeFirst();
    addChildren(root, parts, path);
}

void WidgetSetDynamicGeneric::addChildren(QTreeWidgetItem* parent, QStringList parts,
                                          QString fullPath)
{
    for (const QString& part : qAsConst(parts)) {
        // Looked up by the text the item is shown with: findChildItem() translates the name
        // unaltered and so would never find a name beyond ASCII that was added here.
        if (QTreeWidgetItem* child = childWithText(parent, translatedName(part)))
            parent = child;
        else
            addChild(parent, part, fullPath);
    }
}

void WidgetSetDynamicGeneric::addChild(QTreeWidgetItem*& parent, QString const& name,
                                       QString const& fullPath)
{
    auto* item = new QTreeWidgetItem;
    item->setText(0, translatedName(name));
    item->setData(0, Qt::UserRole, fullPath);
    parent->addChild(item);
    if (m_bIndexing) {
        QHash<QString, QTreeWidgetItem*>& children = m_hChildrenByText[parent];
        if (!children.contains(item->text(0)))
            children.insert(item->text(0), item);
    }
    parent = item;
}

QTreeWidgetItem* WidgetSetDynamicGeneric::findChildItem(QTreeWidgetItem* parent,
                                                        QString const& name)
{
    return childWithText(parent, App::getTranslatedName(name));
}

QTreeWidgetItem* WidgetSetDynamicGeneric::childWithText(QTreeWidgetItem* parent,
                                                        QString const& text) const
{
    if (!parent)
        return nullptr;
    if (m_bIndexing)
        return m_hChildrenByText.value(parent).value(text, nullptr);
    for (int i = 0; i < parent->childCount(); ++i) {
        if (parent->child(i)->text(0) == text)
            return parent->child(i);
    }
    return nullptr;
}

void WidgetSetDynamicGeneric::addIcons(Script::DItemListPair nodes)
{
    // Every item named like a node's last component takes the node's icon, a later node's
    // overwriting an earlier one's. So the last icon given to each name is the one that stays:
    // it is found first, and each item is then touched once.
    QHash<QString, QString> iconByName;
    for (const Script::DItem* node : qAsConst(nodes.second)) {
        if (!node || node->iconPath().isEmpty())
            continue;
        iconByName.insert(translatedName(node->iDataPath().split('.').last()), node->iconPath());
    }
    if (iconByName.isEmpty())
        return;
    QHash<QString, QIcon> icons;
    for (QTreeWidgetItemIterator it(ui->m_poTreeWidget); *it; ++it) {
        const auto found = iconByName.constFind((*it)->text(0));
        if (found == iconByName.cend())
            continue;
        auto icon = icons.find(found.value());
        if (icon == icons.end())
            icon = icons.insert(found.value(), QIcon(found.value()));
        (*it)->setData(0, Qt::DecorationRole, icon.value());
    }
}

void WidgetSetDynamicGeneric::expandAndSelect(QString path)
{
    QStringList parts = path.split('.');
    parts.removeFirst();
    if (parts.isEmpty()) {
        emit nodeLinked(false);
        return;
    }
    const QString last = translatedName(parts.last());
    const QList<QTreeWidgetItem*> found
        = ui->m_poTreeWidget->findItems(last, Qt::MatchContains | Qt::MatchRecursive, 0);
    auto* dialog = qobject_cast<WidgetSetNode*>(m_poParent);
    bool matched = false;
    for (QTreeWidgetItem* item : found) {
        if (item->data(0, Qt::UserRole).toString() != path)
            continue;
        item->setSelected(true);
        iterateAndExpandToBackwardRoot(item);
        if (dialog) {
            dialog->ui->m_ResetBtn->setEnabled(true);
            dialog->ui->m_OKBtn->setEnabled(true);
        }
        matched = true;
    }
    emit nodeLinked(matched);
}

void WidgetSetDynamicGeneric::iterateAndExpandToBackwardRoot(QTreeWidgetItem* item)
{
    for (QTreeWidgetItem* ancestor = item ? item->parent() : nullptr; ancestor;
         ancestor = ancestor->parent())
        ancestor->setExpanded(true);
}

void WidgetSetDynamicGeneric::onResetLinkActivated(bool)
{
    ui->m_poCbxDynamic->setCurrentIndex(-1);
    ui->m_poTreeWidget->clearSelection();
}

void WidgetSetDynamicGeneric::onCbxIndexChanged(int index)
{
    const QList<QTreeWidgetItem*> found = ui->m_poTreeWidget->findItems(
        ui->m_poCbxDynamic->itemText(index), Qt::MatchExactly | Qt::MatchRecursive, 0);
    if (!found.isEmpty())
        ui->m_poTreeWidget->setCurrentItem(found.first());
}

void WidgetSetDynamicGeneric::onItemDoubleClicked(QTreeWidgetItem* item, int)
{
    auto* dialog = qobject_cast<WidgetSetNode*>(m_poParent);
    if (dialog && item)
        dialog->treeItemDoubleClicked(ui->m_poTreeWidget);
}

} // namespace Editors
} // namespace PropertyBrowser
