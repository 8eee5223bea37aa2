#include "property_model/booleditorfactory.h"

#include "editors/booleditor.h"
#include "property_model/creationrules.h"
#include "property_model/widgetproperty.h"

namespace PropertyBrowser {
namespace EditorFactories {

BoolEditorFactory::BoolEditorFactory(QObject* parent)
    : QtCheckBoxFactory(parent)
{ }

BoolEditorFactory::~BoolEditorFactory() = default;

QWidget* BoolEditorFactory::createEditor(QtBoolPropertyManager*, QtProperty* property,
                                         QWidget* parent)
{
    auto* row = WidgetProperty::poRow(property);
    if (!row || !CreationRules::editable(property) || !CreationRules::allowed())
        return nullptr;
    return new Editors::BoolEditor(parent, row);
}

} // namespace EditorFactories
} // namespace PropertyBrowser
