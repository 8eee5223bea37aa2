#include "property_model/int64editorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

Int64EditorFactory::Int64EditorFactory(QObject* parent)
    : QtAbstractEditorFactory<Managers::Int64PropertyManager>(parent)
{ }

Int64EditorFactory::~Int64EditorFactory() = default;

void Int64EditorFactory::connectPropertyManager(Managers::Int64PropertyManager*) { }

QWidget* Int64EditorFactory::createEditor(Managers::Int64PropertyManager*, QtProperty*, QWidget*)
{
    // These rows have no in-row editor yet, so they stay read only.
    return nullptr;
}

void Int64EditorFactory::disconnectPropertyManager(Managers::Int64PropertyManager*) { }

} // namespace EditorFactories
} // namespace PropertyBrowser
