#include "property_model/doubleeditorfactory.h"

#include "editors/doubleeditor.h"
#include "property_model/creationrules.h"
#include "property_model/widgetproperty.h"

namespace PropertyBrowser {
namespace EditorFactories {

DoubleEditorFactory::DoubleEditorFactory(QObject* parent)
    : QtDoubleSpinBoxFactory(parent)
{ }

DoubleEditorFactory::~DoubleEditorFactory() = default;

QWidget* DoubleEditorFactory::createEditor(QtDoublePropertyManager*, QtProperty* property,
                                           QWidget* parent)
{
    auto* row = dynamic_cast<WidgetProperty*>(property);
    if (!row)
        return nullptr;
    // Editable limits open the editor too, on a row whose value itself may not be edited.
    if (!CreationRules::allowed()
        || !(CreationRules::editable(property) || CreationRules::limits(property)))
        return nullptr;
    return new Editors::DoubleEditor(parent, row);
}

} // namespace EditorFactories
} // namespace PropertyBrowser
