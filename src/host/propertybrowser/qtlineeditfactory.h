#ifndef QTLINEEDITFACTORY_H
#define QTLINEEDITFACTORY_H

#include "qtabstracteditorfactory.h"
#include "qteditortracker.h"
#include "qtstringpropertymanager.h"

class QLineEdit;

/// Makes line edits for the properties of QtStringPropertyManager objects; they accept only
/// text the property's expression can still match.
class QtLineEditFactory : public QtAbstractEditorFactory<QtStringPropertyManager>
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit QtLineEditFactory(QObject* parent = nullptr);
    /// Destroys the factory and every editor it made that still exists.
    ~QtLineEditFactory() override;

    using QtAbstractEditorFactory<QtStringPropertyManager>::createEditor;

protected:
    /// Lets the editors follow the value, expression, echo mode and read-only flag of @p manager.
    void connectPropertyManager(QtStringPropertyManager* manager) override;
    /// Makes a line edit that shows and edits @p property of @p manager.
    QWidget* createEditor(QtStringPropertyManager* manager, QtProperty* property,
                          QWidget* parent) override;
    /// Stops the editors following @p manager.
    void disconnectPropertyManager(QtStringPropertyManager* manager) override;

private:
    void slotValueChanged(QtProperty* property, const QString& value);
    void slotRegExpChanged(QtProperty* property, const QRegExp& regExp);
    void slotEchoModeChanged(QtProperty* property, int echoMode);
    void slotReadOnlyChanged(QtProperty* property, bool readOnly);
    void slotPropertyDestroyed(QtProperty* property);
    /// Hands the text the user typed in @p editor to the manager of its property.
    void commit(QLineEdit* editor, const QString& value);

    QtEditorTracker<QLineEdit> m_oEditors;
};

#endif
