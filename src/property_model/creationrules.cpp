#include "property_model/creationrules.h"

#include "property_model/widgetproperty.h"
#include "property_model/wtreepropertybrowser.h"
#include "sdk/ditem.h"

namespace PropertyBrowser {
namespace EditorFactories {

namespace {

bool nodeFlag(QtProperty const* property, const char* key)
{
    // Only rows of the property tree carry a node; anything else has no flag set.
    const Script::DItem* node = WidgetProperty::poNode(property);
    return node && node->property(key).toBool();
}

} // namespace

bool CreationRules::allowed()
{
    return WTreePropertyBrowser::isEditorCreationAllowed();
}

bool CreationRules::editable(QtProperty const* property)
{
    return nodeFlag(property, "iIsEditable");
}

bool CreationRules::limits(QtProperty const* property)
{
    return nodeFlag(property, "IDataNumeric.LimitsEditable");
}

WidgetProperty* CreationRules::numericEditorRow(QtProperty* property)
{
    // A row whose value is fixed still gets its editor when its limits may be changed: the
    // editor then shows the value read only and its dialog edits the limits.
    if (!allowed() || !(editable(property) || limits(property)))
        return nullptr;
    return WidgetProperty::poRow(property);
}

} // namespace EditorFactories
} // namespace PropertyBrowser
