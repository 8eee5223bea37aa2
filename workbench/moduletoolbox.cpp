#include "moduletoolbox.h"

#include "modulecatalog.h"

#include "sdk/apptranslation.h"

#include <QDrag>
#include <QEvent>
#include <QMimeData>

const QString ModuleToolBox::kAddFormat = QStringLiteral("application/x-teLumo-module-add");

namespace {

const int kIdRole = Qt::UserRole;
// The job's own name of the kind; the list shows it translated, the drag carries it as it is.
const int kNameRole = Qt::UserRole + 1;

} // namespace

ModuleToolBox::ModuleToolBox(QWidget* parent)
    : QListWidget(parent)
{
    setObjectName(QStringLiteral("moduleToolBox"));
    setIconSize(QSize(32, 32));
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setSelectionMode(QAbstractItemView::SingleSelection);
    for (const ModuleCatalog::Entry& entry : ModuleCatalog::entries()) {
        auto* item = new QListWidgetItem(QIcon(entry.icon), QString(), this);
        item->setData(kIdRole, entry.id);
        item->setData(kNameRole, entry.name);
    }
    vRetranslate();
}

void ModuleToolBox::changeEvent(QEvent* event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        vRetranslate();
}

void ModuleToolBox::vRetranslate()
{
    for (int row = 0; row < count(); ++row) {
        QListWidgetItem* listed = item(row);
        const ModuleCatalog::Entry* entry = ModuleCatalog::find(listed->data(kIdRole).toString());
        const QString name = App::getTranslatedName(entry->name);
        listed->setText(name);
        listed->setToolTip(entry->unique            ? tr("%1: one per job").arg(name)
                               : entry->acquisition ? tr("%1: takes the images").arg(name)
                                                    : name);
    }
}

void ModuleToolBox::startDrag(Qt::DropActions supportedActions)
{
    Q_UNUSED(supportedActions)
    const QListWidgetItem* item = currentItem();
    if (!item)
        return;
    const QPixmap image = item->icon().pixmap(iconSize());
    auto* data = new QMimeData;
    data->setData(
        kAddFormat,
        (item->data(kIdRole).toString() + QLatin1Char('@') + item->data(kNameRole).toString())
            .toUtf8());
    data->setImageData(image.toImage());
    auto* drag = new QDrag(this);
    drag->setMimeData(data);
    drag->setPixmap(image);
    drag->exec(Qt::CopyAction);
}
