#ifndef PROPERTYBROWSER_EDITORS_INTEGERVALUEPAGE_H
#define PROPERTYBROWSER_EDITORS_INTEGERVALUEPAGE_H

#include <QCoreApplication>

namespace Script {
class DItem;
}

namespace PropertyBrowser {

class WidgetProperty;

namespace Editors {

class BaseEditor;
class ValueDialog;
class WidgetSetLocalInt;

/// The value page of the integer editors' dialog, which both editors fill alike: the panel on
/// the dialog's value page, wired to its verdict, showing the node's local value, limits and
/// step, or its state when it has no value to show.
class IntegerValuePage
{
    Q_DECLARE_TR_FUNCTIONS(IntegerValuePage)

public:
    /// The node's local numbers as the editor read them.
    struct Numbers
    {
        long long value;
        long long minimum;
        long long maximum;
        long long step;
    };

    /// Makes the panel on @p run's value page for @p editor's @p row and fills it from
    /// @p numbers. The limit fields take what lies within @p limitBottom and @p limitTop, and are
    /// editable only with @p limitsEditable; the value is editable only without. Returns the
    /// panel; @p valueShown tells whether the value shows or the node's state does instead.
    static WidgetSetLocalInt* create(ValueDialog& run, BaseEditor& editor, WidgetProperty& row,
                                     const Numbers& numbers, bool limitsEditable,
                                     long long limitBottom, long long limitTop, bool& valueShown);

    IntegerValuePage() = delete;
};

} // namespace Editors
} // namespace PropertyBrowser

#endif
