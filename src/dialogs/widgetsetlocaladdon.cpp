#include "dialogs/widgetsetlocaladdon.h"

#include "controls/ledwidget.h"

#include <QLabel>

namespace PropertyBrowser {
namespace Editors {

namespace {

// A squeezed row is out of sight but keeps the form's layout as it is.
const int kSqueezedHeight = 3;

} // namespace

void WidgetSetLocalAddOn::showEvaluation(bool show, QLabel& label, QWidget& ledHolder, bool state)
{
    if (!show) {
        label.setFixedHeight(kSqueezedHeight);
        ledHolder.setFixedHeight(kSqueezedHeight);
        return;
    }
    label.setText(tr("Evaluated Result"));
    new LedWidget(&ledHolder, state);
}

void WidgetSetLocalAddOn::showLinkedTo(QStringList const& links, QLabel& label)
{
    if (links.isEmpty())
        return;
    QString names;
    for (const QString& path : links) {
        const int dot = path.lastIndexOf(QLatin1Char('.'));
        if (dot < 0)
            continue;
        names += path.mid(dot + 1) + QStringLiteral(", ");
    }
    names.chop(2);
    label.setText(tr("Linked To: ") + names);
    label.setToolTip(links.join(QLatin1Char('\n')));
}

} // namespace Editors
} // namespace PropertyBrowser
