#include "controls/forcestyle.h"

#include <QWidget>

void forceStyle(QWidget* widget, QPalette palette, QStyle* style, bool children)
{
    if (!widget)
        return;
    widget->setStyle(style);
    widget->setPalette(palette);
    if (!children)
        return;
    // A child that has a style of its own does not inherit its parent's, so each one is set.
    const QList<QWidget*> descendants = widget->findChildren<QWidget*>();
    for (QWidget* child : descendants) {
        child->setStyle(style);
        child->setPalette(palette);
    }
}
