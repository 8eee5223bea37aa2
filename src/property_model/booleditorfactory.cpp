#include "property_model/booleditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

BoolEditorFactory::BoolEditorFactory(QObject* parent)
    : QtCheckBoxFactory(parent)
{ }

BoolEditorFactory::~BoolEditorFactory() = default;

QWidget* BoolEditorFactory::createEditor(QtBoolPropertyManager*, QtProperty*, QWidget*)
{
    // These rows have no in-row editor yet, so they stay read only.
    return nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
