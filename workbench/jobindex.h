#ifndef JOBINDEX_H
#define JOBINDEX_H

#include <QHash>
#include <QString>

namespace Script {
class DItem;
}

/// Every node of a job by its path: the nodes of the tree, the axes of its points and the
/// channels of its images, which are nodes of their own but no child nodes.
QHash<QString, Script::DItem*> jobIndex(Script::DItem* root);

#endif
