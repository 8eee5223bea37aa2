#include "property_model/enumeditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

EnumEditorFactory::EnumEditorFactory(QObject* parent)
    : QtEnumEditorFactory(parent)
{ }

EnumEditorFactory::~EnumEditorFactory() = default;

QWidget* EnumEditorFactory::createEditor(QtEnumPropertyManager*, QtProperty*, QWidget*)
{
    // These rows have no in-row editor yet, so they stay read only.
    return nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
