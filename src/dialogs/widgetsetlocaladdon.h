#ifndef PROPERTYBROWSER_EDITORS_WIDGETSETLOCALADDON_H
#define PROPERTYBROWSER_EDITORS_WIDGETSETLOCALADDON_H

#include <QCoreApplication>
#include <QStringList>

class QLabel;
class QWidget;

namespace PropertyBrowser {
namespace Editors {

/// The extra rows that both numeric value panels share: the evaluated result with its lamp and
/// the list of nodes linked to this one.
class WidgetSetLocalAddOn
{
    Q_DECLARE_TR_FUNCTIONS(WidgetSetLocalAddOn)

public:
    /// Shows "Evaluated Result" with a lamp lit by @p state in @p ledHolder; with @p show false
    /// squeezes the row to 3 pixels, keeping its place in the form.
    static void showEvaluation(bool show, QLabel& label, QWidget& ledHolder, bool state);
    /// Names in @p label the nodes at @p links by their last path component, with the full
    /// paths as its tool tip; an empty list leaves the label alone.
    static void showLinkedTo(QStringList const& links, QLabel& label);

    WidgetSetLocalAddOn() = delete;
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
