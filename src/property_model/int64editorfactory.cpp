#include "property_model/int64editorfactory.h"

#include "editors/int64editor.h"
#include "property_model/creationrules.h"
#include "property_model/widgetproperty.h"

namespace PropertyBrowser {
namespace EditorFactories {

Int64EditorFactory::Int64EditorFactory(QObject* parent)
    : QtAbstractEditorFactory<Managers::Int64PropertyManager>(parent)
{ }

Int64EditorFactory::~Int64EditorFactory() = default;

void Int64EditorFactory::connectPropertyManager(Managers::Int64PropertyManager*) { }

QWidget* Int64EditorFactory::createEditor(Managers::Int64PropertyManager*, QtProperty* property,
                                          QWidget* parent)
{
    // A row whose value is fixed still gets its editor when its limits may be changed: the
    // editor then shows the value read only and its dialog edits the limits.
    if (!CreationRules::allowed()
        || !(CreationRules::editable(property) || CreationRules::limits(property)))
        return nullptr;
    auto* row = dynamic_cast<WidgetProperty*>(property);
    if (!row)
        return nullptr;
    return new Editors::Int64Editor(parent, row);
}

void Int64EditorFactory::disconnectPropertyManager(Managers::Int64PropertyManager*) { }

} // namespace EditorFactories
} // namespace PropertyBrowser
