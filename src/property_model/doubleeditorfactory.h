#ifndef PROPERTYBROWSER_EDITORFACTORIES_DOUBLEEDITORFACTORY_H
#define PROPERTYBROWSER_EDITORFACTORIES_DOUBLEEDITORFACTORY_H

#include "qtdoublespinboxfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

/// Gives the rows of the floating-point manager their in-row editor.
class DoubleEditorFactory : public QtDoubleSpinBoxFactory
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit DoubleEditorFactory(QObject* parent = nullptr);
    ~DoubleEditorFactory() override;

    using QtDoubleSpinBoxFactory::createEditor;

protected:
    /// The editor of @p property, or null when the row stays read only.
    QWidget* createEditor(QtDoublePropertyManager* manager, QtProperty* property, QWidget* parent) override;
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
