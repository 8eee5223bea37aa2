#include "property_model/doubleeditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

DoubleEditorFactory::DoubleEditorFactory(QObject* parent)
    : QtDoubleSpinBoxFactory(parent)
{ }

DoubleEditorFactory::~DoubleEditorFactory() = default;

QWidget* DoubleEditorFactory::createEditor(QtDoublePropertyManager*, QtProperty*, QWidget*)
{
    // These rows have no in-row editor yet, so they stay read only.
    return nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
