#ifndef PROPERTYBROWSER_EDITORFACTORIES_STRINGEDITORFACTORY_H
#define PROPERTYBROWSER_EDITORFACTORIES_STRINGEDITORFACTORY_H

#include "qtlineeditfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

/// Gives the rows of the string manager their in-row editor.
class StringEditorFactory : public QtLineEditFactory
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit StringEditorFactory(QObject* parent = nullptr);
    ~StringEditorFactory() override;

    using QtLineEditFactory::createEditor;

protected:
    /// The editor of @p property, or null when the row stays read only.
    QWidget* createEditor(QtStringPropertyManager* manager, QtProperty* property, QWidget* parent) override;
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
