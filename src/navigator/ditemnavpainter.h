#ifndef DITEMNAVPAINTER_H
#define DITEMNAVPAINTER_H

#include <QColor>
#include <QCoreApplication>
#include <QSharedPointer>
#include <QString>

namespace Script {
class DItem;
}

/// The one rule for the text and the colour of a node that is in error, not available, linked
/// or not linked. Made on the stack for one question; it does not own the node.
class DItemNavPainter
{
    Q_DECLARE_TR_FUNCTIONS(DItemNavPainter)

public:
    /// Asks about @p node, which must outlive the painter.
    explicit DItemNavPainter(const Script::DItem& node);

    /// The text that stands in for the node's value, or null when the node's own value shows.
    QSharedPointer<QString> getValueText() const;
    /// The colour of the node's text.
    QColor getTextColor() const;

private:
    const Script::DItem& m_roNode;
};

#endif
