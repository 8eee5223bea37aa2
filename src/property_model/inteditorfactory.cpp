#include "property_model/inteditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

IntEditorFactory::IntEditorFactory(QObject* parent)
    : QtSliderFactory(parent)
{ }

IntEditorFactory::~IntEditorFactory() = default;

QWidget* IntEditorFactory::createEditor(QtIntPropertyManager*, QtProperty*, QWidget*)
{
    // These rows have no in-row editor yet, so they stay read only.
    return nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
