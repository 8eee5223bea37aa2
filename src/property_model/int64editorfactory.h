#ifndef PROPERTYBROWSER_EDITORFACTORIES_INT64EDITORFACTORY_H
#define PROPERTYBROWSER_EDITORFACTORIES_INT64EDITORFACTORY_H

#include "property_model/int64propertymanager.h"
#include "qtabstracteditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

/// Gives the rows of the 64-bit integer manager their in-row editor. The browser library has no
/// factory for this manager, so the generic one is used; the editor reads the node itself and
/// needs no manager signals.
class Int64EditorFactory : public QtAbstractEditorFactory<Managers::Int64PropertyManager>
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit Int64EditorFactory(QObject* parent = nullptr);
    ~Int64EditorFactory() override;

    using QtAbstractEditorFactory<Managers::Int64PropertyManager>::createEditor;

protected:
    /// Does nothing: the editor follows the node through the browser's refresh.
    void connectPropertyManager(Managers::Int64PropertyManager* manager) override;
    /// An Int64Editor for @p property when the project mode allows editing and the node's value or
    /// its limits may be edited; otherwise null, and the row stays read only.
    QWidget* createEditor(Managers::Int64PropertyManager* manager, QtProperty* property,
                          QWidget* parent) override;
    /// Does nothing, as connectPropertyManager() did nothing.
    void disconnectPropertyManager(Managers::Int64PropertyManager* manager) override;
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
