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
    const auto* row = dynamic_cast<WidgetProperty const*>(property);
    return row && row->node && row->node->property(key).toBool();
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

} // namespace EditorFactories
} // namespace PropertyBrowser
