#include "property_model/inteditorfactory.h"

#include "editors/inteditor.h"
#include "property_model/creationrules.h"
#include "property_model/widgetproperty.h"

namespace PropertyBrowser {
namespace EditorFactories {

IntEditorFactory::IntEditorFactory(QObject* parent)
    : QtSliderFactory(parent)
{ }

IntEditorFactory::~IntEditorFactory() = default;

QWidget* IntEditorFactory::createEditor(QtIntPropertyManager*, QtProperty* property,
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
    return new Editors::IntEditor(parent, row);
}

} // namespace EditorFactories
} // namespace PropertyBrowser
