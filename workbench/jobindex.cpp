#include "jobindex.h"

#include "sdk/ditem.h"
#include "sdk/image.h"

#include <QList>
#include <QVariant>

using Script::DItem;

QHash<QString, DItem*> jobIndex(DItem* root)
{
    QHash<QString, DItem*> nodes;
    QList<DItem*> pending;
    if (root)
        pending.append(root);
    while (!pending.isEmpty()) {
        DItem* node = pending.takeLast();
        nodes.insert(node->iDataPath(), node);
        pending.append(node->childNodes());
        if (auto* image = qobject_cast<Script::GraphicItems::WImage::Image*>(node)) {
            for (DItem* channel : image->channelList()) {
                if (channel)
                    nodes.insert(channel->iDataPath(), channel);
            }
        }
        for (const char* axis : {"IDataGeoPoint.X", "IDataGeoPoint.Y", "IDataGeoPoint.Z"}) {
            const QVariant address = node->property(axis);
            if (address.isValid())
                pending.append(reinterpret_cast<DItem*>(address.toLongLong()));
        }
    }
    return nodes;
}

bool bLinkChainReaches(const DItem& from, const DItem& target, const QHash<QString, DItem*>& nodes)
{
    // A chain longer than the job has nodes has come back to where it has been.
    int steps = 0;
    for (const DItem* step = &from; step && steps <= nodes.size();
         step = step->isLinked() ? nodes.value(step->linkedPath()) : nullptr, ++steps) {
        if (step == &target)
            return true;
    }
    return steps > nodes.size();
}
