#include "moduletoolbox.h"

#include "modulecatalog.h"

#include <QDrag>
#include <QMimeData>

const QString ModuleToolBox::kAddFormat = QStringLiteral("application/x-teLumo-module-add");

namespace {

const int kIdRole = Qt::UserRole;

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
        auto* item = new QListWidgetItem(QIcon(entry.icon), entry.name, this);
        item->setData(kIdRole, entry.id);
        item->setToolTip(entry.unique            ? tr("%1: one per job").arg(entry.name)
                             : entry.acquisition ? tr("%1: takes the images").arg(entry.name)
                                                 : entry.name);
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
    data->setData(kAddFormat,
                  (item->data(kIdRole).toString() + QLatin1Char('@') + item->text()).toUtf8());
    data->setImageData(image.toImage());
    auto* drag = new QDrag(this);
    drag->setMimeData(data);
    drag->setPixmap(image);
    drag->exec(Qt::CopyAction);
}
