#ifndef PROPERTYBROWSER_EDITORFACTORIES_IMAGEEDITORFACTORY_H
#define PROPERTYBROWSER_EDITORFACTORIES_IMAGEEDITORFACTORY_H

#include "qtlineeditfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

/// Gives the rows of the image manager their in-row editor.
class ImageEditorFactory : public QtLineEditFactory
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit ImageEditorFactory(QObject* parent = nullptr);
    ~ImageEditorFactory() override;

    using QtLineEditFactory::createEditor;

protected:
    /// The editor of @p property, or null when the row stays read only.
    QWidget* createEditor(QtStringPropertyManager* manager, QtProperty* property, QWidget* parent) override;
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
