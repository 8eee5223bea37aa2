#include "property_model/pointeditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

PointEditorFactory::PointEditorFactory(QObject* parent)
    : QtLineEditFactory(parent)
{ }

PointEditorFactory::~PointEditorFactory() = default;

QWidget* PointEditorFactory::createEditor(QtStringPropertyManager*, QtProperty*, QWidget*)
{
    // These rows have no in-row editor yet, so they stay read only.
    return nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
