#ifndef FORCESTYLE_H
#define FORCESTYLE_H

#include <QPalette>

class QStyle;
class QWidget;

/// Puts @p style and @p palette on @p widget and, when @p children is true, on every widget
/// below it; a null @p widget is left alone. The style stays owned by the caller.
void forceStyle(QWidget* widget, QPalette palette, QStyle* style, bool children);

#endif
