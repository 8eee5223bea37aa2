#include "property_model/ocrfiltereditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

OcrFilterEditorFactory::OcrFilterEditorFactory(QObject* parent)
    : QtLineEditFactory(parent)
{ }

OcrFilterEditorFactory::~OcrFilterEditorFactory() = default;

QWidget* OcrFilterEditorFactory::createEditor(QtStringPropertyManager*, QtProperty*, QWidget*)
{
    // These rows have no in-row editor yet, so they stay read only.
    return nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
