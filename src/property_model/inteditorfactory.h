#ifndef PROPERTYBROWSER_EDITORFACTORIES_INTEDITORFACTORY_H
#define PROPERTYBROWSER_EDITORFACTORIES_INTEDITORFACTORY_H

#include "qtsliderfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

/// Gives the rows of the integer manager their in-row editor.
class IntEditorFactory : public QtSliderFactory
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit IntEditorFactory(QObject* parent = nullptr);
    ~IntEditorFactory() override;

    using QtSliderFactory::createEditor;

protected:
    /// An IntEditor for @p property when the project mode allows editing and the node's value or
    /// its limits may be edited; otherwise null, and the row stays read only.
    QWidget* createEditor(QtIntPropertyManager* manager, QtProperty* property, QWidget* parent) override;
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
