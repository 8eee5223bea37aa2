#include "property_model/idataeditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

IDataEditorFactory::IDataEditorFactory(QObject* parent)
    : QtLineEditFactory(parent)
{ }

IDataEditorFactory::~IDataEditorFactory() = default;

QWidget* IDataEditorFactory::createEditor(QtStringPropertyManager*, QtProperty*, QWidget*)
{
    // These rows have no in-row editor yet, so they stay read only.
    return nullptr;
}

} // namespace EditorFactories
} // namespace PropertyBrowser
