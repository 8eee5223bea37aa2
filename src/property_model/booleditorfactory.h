#ifndef PROPERTYBROWSER_EDITORFACTORIES_BOOLEDITORFACTORY_H
#define PROPERTYBROWSER_EDITORFACTORIES_BOOLEDITORFACTORY_H

#include "qtcheckboxfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

/// Gives the rows of the bool manager their in-row editor.
class BoolEditorFactory : public QtCheckBoxFactory
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit BoolEditorFactory(QObject* parent = nullptr);
    ~BoolEditorFactory() override;

    using QtCheckBoxFactory::createEditor;

protected:
    /// The editor of @p property, or null when the row stays read only.
    QWidget* createEditor(QtBoolPropertyManager* manager, QtProperty* property, QWidget* parent) override;
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
