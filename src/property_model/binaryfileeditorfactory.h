#ifndef PROPERTYBROWSER_EDITORFACTORIES_BINARYFILEEDITORFACTORY_H
#define PROPERTYBROWSER_EDITORFACTORIES_BINARYFILEEDITORFACTORY_H

#include "qtlineeditfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

/// Gives the rows of the binary file manager their in-row editor.
class BinaryFileEditorFactory : public QtLineEditFactory
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit BinaryFileEditorFactory(QObject* parent = nullptr);
    ~BinaryFileEditorFactory() override;

    using QtLineEditFactory::createEditor;

protected:
    /// The editor of @p property, or null when the row stays read only.
    QWidget* createEditor(QtStringPropertyManager* manager, QtProperty* property, QWidget* parent) override;
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
