#include "property_model/stringeditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

StringEditorFactory::StringEditorFactory(QObject* parent)
    : QtLineEditFactory(parent)
{ }

StringEditorFactory::~StringEditorFactory() = default;

QWidget* StringEditorFactory::createEditor(QtStringPropertyManager*, QtProperty*, QWidget*)
{
    // These rows have no in-row editor yet, so they stay read only.
    return nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
