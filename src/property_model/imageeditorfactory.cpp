#include "property_model/imageeditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

ImageEditorFactory::ImageEditorFactory(QObject* parent)
    : QtLineEditFactory(parent)
{ }

ImageEditorFactory::~ImageEditorFactory() = default;

QWidget* ImageEditorFactory::createEditor(QtStringPropertyManager*, QtProperty*, QWidget*)
{
    // These rows have no in-row editor yet, so they stay read only.
    return nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
