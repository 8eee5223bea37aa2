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
    WidgetProperty* row = CreationRules::numericEditorRow(property);
    return row ? new Editors::IntEditor(parent, row) : nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
