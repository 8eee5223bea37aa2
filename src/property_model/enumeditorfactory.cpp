#include "property_model/enumeditorfactory.h"

#include "editors/enumeditor.h"
#include "property_model/creationrules.h"
#include "property_model/widgetproperty.h"
#include "sdk/ditem.h"

namespace PropertyBrowser {
namespace EditorFactories {

EnumEditorFactory::EnumEditorFactory(QObject* parent)
    : QtEnumEditorFactory(parent)
{ }

EnumEditorFactory::~EnumEditorFactory() = default;

QWidget* EnumEditorFactory::createEditor(QtEnumPropertyManager*, QtProperty* property,
                                         QWidget* parent)
{
    auto* row = WidgetProperty::poRow(property);
    if (!row || !CreationRules::editable(property) || !CreationRules::allowed())
        return nullptr;
    // A node that names a kernel matrix is a filter type, whose editor shows the kernel too;
    // that editor is not here yet, so such a row stays read only for now.
    const QString matrixPath
        = row->node ? row->node->property("IDataModFilter.FilterMatrixPath").toString() : QString();
    if (!matrixPath.isEmpty())
        return nullptr;
    return new Editors::EnumEditor(parent, row, Editors::BaseEditor::TypeEnum);
}

} // namespace EditorFactories
} // namespace PropertyBrowser
