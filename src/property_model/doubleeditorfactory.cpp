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
    WidgetProperty* row = CreationRules::numericEditorRow(property);
    return row ? new Editors::DoubleEditor(parent, row) : nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
