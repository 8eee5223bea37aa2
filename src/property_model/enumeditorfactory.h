#ifndef PROPERTYBROWSER_EDITORFACTORIES_ENUMEDITORFACTORY_H
#define PROPERTYBROWSER_EDITORFACTORIES_ENUMEDITORFACTORY_H

#include "qtenumeditorfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

/// Gives the rows of the enumeration manager their in-row editor.
class EnumEditorFactory : public QtEnumEditorFactory
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit EnumEditorFactory(QObject* parent = nullptr);
    ~EnumEditorFactory() override;

    using QtEnumEditorFactory::createEditor;

protected:
    /// The editor of @p property, or null when the row stays read only.
    QWidget* createEditor(QtEnumPropertyManager* manager, QtProperty* property, QWidget* parent) override;
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
