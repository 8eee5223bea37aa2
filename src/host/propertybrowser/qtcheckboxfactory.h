#ifndef QTCHECKBOXFACTORY_H
#define QTCHECKBOXFACTORY_H

#include "qtabstracteditorfactory.h"
#include "qtboolpropertymanager.h"
#include "qteditortracker.h"

class QtBoolEdit;

/// Makes check box editors (QtBoolEdit) for the properties of QtBoolPropertyManager objects.
class QtCheckBoxFactory : public QtAbstractEditorFactory<QtBoolPropertyManager>
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit QtCheckBoxFactory(QObject* parent = nullptr);
    /// Destroys the factory and every editor it made that still exists.
    ~QtCheckBoxFactory() override;

    using QtAbstractEditorFactory<QtBoolPropertyManager>::createEditor;

protected:
    /// Lets the editors follow the value and the text visibility of @p manager.
    void connectPropertyManager(QtBoolPropertyManager* manager) override;
    /// Makes a check box editor that shows and edits @p property of @p manager.
    QWidget* createEditor(QtBoolPropertyManager* manager, QtProperty* property,
                          QWidget* parent) override;
    /// Stops the editors following @p manager.
    void disconnectPropertyManager(QtBoolPropertyManager* manager) override;

private:
    void slotValueChanged(QtProperty* property, bool value);
    void slotTextVisibleChanged(QtProperty* property, bool textVisible);
    void slotPropertyDestroyed(QtProperty* property);
    /// Hands a state the user chose in @p editor to the manager of its property.
    void commit(QtBoolEdit* editor, bool value);

    QtEditorTracker<QtBoolEdit> m_oEditors;
};

#endif
