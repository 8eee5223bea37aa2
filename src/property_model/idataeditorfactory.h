#ifndef PROPERTYBROWSER_EDITORFACTORIES_IDATAEDITORFACTORY_H
#define PROPERTYBROWSER_EDITORFACTORIES_IDATAEDITORFACTORY_H

#include "qtlineeditfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

/// Gives the rows of the generic node and link manager their in-row editor.
class IDataEditorFactory : public QtLineEditFactory
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit IDataEditorFactory(QObject* parent = nullptr);
    ~IDataEditorFactory() override;

    using QtLineEditFactory::createEditor;

protected:
    /// The editor of @p property, or null when the row stays read only.
    QWidget* createEditor(QtStringPropertyManager* manager, QtProperty* property, QWidget* parent) override;
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
