#ifndef PROPERTYBROWSER_EDITORFACTORIES_POINTEDITORFACTORY_H
#define PROPERTYBROWSER_EDITORFACTORIES_POINTEDITORFACTORY_H

#include "qtlineeditfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

/// Gives the rows of the point manager their in-row editor.
class PointEditorFactory : public QtLineEditFactory
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit PointEditorFactory(QObject* parent = nullptr);
    ~PointEditorFactory() override;

    using QtLineEditFactory::createEditor;

protected:
    /// The editor of @p property, or null when the row stays read only.
    QWidget* createEditor(QtStringPropertyManager* manager, QtProperty* property, QWidget* parent) override;
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
