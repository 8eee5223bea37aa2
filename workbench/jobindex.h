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

/// Whether following the links from @p from, itself included, reaches @p target, with @p nodes
/// the job's index. A chain that goes round in a circle without @p target reaches it when it
/// comes back to @p from's chain, so the walk always ends.
bool bLinkChainReaches(const Script::DItem& from, const Script::DItem& target,
                       const QHash<QString, Script::DItem*>& nodes);

#endif
