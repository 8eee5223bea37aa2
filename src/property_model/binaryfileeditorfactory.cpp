#include "property_model/binaryfileeditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

BinaryFileEditorFactory::BinaryFileEditorFactory(QObject* parent)
    : QtLineEditFactory(parent)
{ }

BinaryFileEditorFactory::~BinaryFileEditorFactory() = default;

QWidget* BinaryFileEditorFactory::createEditor(QtStringPropertyManager*, QtProperty*, QWidget*)
{
    // These rows have no in-row editor yet, so they stay read only.
    return nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
