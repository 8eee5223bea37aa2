#include "property_model/binaryeditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

BinaryEditorFactory::BinaryEditorFactory(QObject* parent)
    : QtLineEditFactory(parent)
{ }

BinaryEditorFactory::~BinaryEditorFactory() = default;

QWidget* BinaryEditorFactory::createEditor(QtStringPropertyManager*, QtProperty*, QWidget*)
{
    // These rows have no in-row editor yet, so they stay read only.
    return nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
