#ifndef PROPERTYBROWSER_EDITORFACTORIES_CREATIONRULES_H
#define PROPERTYBROWSER_EDITORFACTORIES_CREATIONRULES_H

class QtProperty;

namespace PropertyBrowser {

class WidgetProperty;

namespace EditorFactories {

/// The three tests an editor factory makes before it gives a row an editor. A factory combines
/// them as its row type needs.
class CreationRules
{
public:
    /// The project mode lets editors open at all.
    static bool allowed();
    /// The row's node may be edited ("iIsEditable").
    static bool editable(QtProperty const* property);
    /// The limits of the row's node may be edited ("IDataNumeric.LimitsEditable").
    static bool limits(QtProperty const* property);
    /// The row of @p property if a numeric editor may open on it: the mode allows editors, and
    /// its value or its limits may be edited. Null otherwise.
    static WidgetProperty* numericEditorRow(QtProperty* property);
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
