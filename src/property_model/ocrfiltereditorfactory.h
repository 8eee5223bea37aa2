#ifndef PROPERTYBROWSER_EDITORFACTORIES_OCRFILTEREDITORFACTORY_H
#define PROPERTYBROWSER_EDITORFACTORIES_OCRFILTEREDITORFACTORY_H

#include "qtlineeditfactory.h"

namespace PropertyBrowser {
namespace EditorFactories {

/// Gives the rows of the OCR filter manager their in-row editor.
class OcrFilterEditorFactory : public QtLineEditFactory
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit OcrFilterEditorFactory(QObject* parent = nullptr);
    ~OcrFilterEditorFactory() override;

    using QtLineEditFactory::createEditor;

protected:
    /// The editor of @p property, or null when the row stays read only.
    QWidget* createEditor(QtStringPropertyManager* manager, QtProperty* property, QWidget* parent) override;
};

} // namespace EditorFactories
} // namespace PropertyBrowser

#endif
