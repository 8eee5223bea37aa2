#include "property_model/int64editorfactory.h"

#include "editors/int64editor.h"
#include "property_model/creationrules.h"
#include "property_model/widgetproperty.h"

namespace PropertyBrowser {
namespace EditorFactories {

Int64EditorFactory::Int64EditorFactory(QObject* parent)
    : QtAbstractEditorFactory<Managers::Int64PropertyManager>(parent)
{ }

Int64EditorFactory::~Int64EditorFactory() = default;

void Int64EditorFactory::connectPropertyManager(Managers::Int64PropertyManager*) { }

QWidget* Int64EditorFactory::createEditor(Managers::Int64PropertyManager*, QtProperty* property,
                                          QWidget* parent)
{
    WidgetProperty* row = CreationRules::numericEditorRow(property);
    return row ? new Editors::Int64Editor(parent, row) : nullptr;
}

void Int64EditorFactory::disconnectPropertyManager(Managers::Int64PropertyManager*) { }

} // namespace EditorFactories
} // namespace PropertyBrowser
