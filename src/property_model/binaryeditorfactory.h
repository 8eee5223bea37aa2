#ifndef PROPERTYBROWSER_EDITORFACTORIES_BINARYEDITORFACTORY_H
#define PROPERTYBROWSER_EDITORFACTORIES_BINARYEDITORFACTORY_H

#include "qtlineeditfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

/// Gives the rows of the binary manager their in-row editor.
class BinaryEditorFactory : public QtLineEditFactory
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit BinaryEditorFactory(QObject* parent = nullptr);
    ~BinaryEditorFactory() override;

    using QtLineEditFactory::createEditor;

protected:
    /// The editor of @p property, or null when the row stays read only.
    QWidget* createEditor(QtStringPropertyManager* manager, QtProperty* property, QWidget* parent) override;
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
