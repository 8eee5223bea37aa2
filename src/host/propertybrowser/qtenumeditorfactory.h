#ifndef QTENUMEDITORFACTORY_H
#define QTENUMEDITORFACTORY_H

#include "qtabstracteditorfactory.h"
#include "qteditortracker.h"
#include "qtenumpropertymanager.h"

class QComboBox;

/// Makes combo boxes for the properties of QtEnumPropertyManager objects.
class QtEnumEditorFactory : public QtAbstractEditorFactory<QtEnumPropertyManager>
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit QtEnumEditorFactory(QObject* parent = nullptr);
    /// Destroys the factory and every editor it made that still exists.
    ~QtEnumEditorFactory() override;

    using QtAbstractEditorFactory<QtEnumPropertyManager>::createEditor;

protected:
    /// Lets the editors follow the value, names and icons of @p manager.
    void connectPropertyManager(QtEnumPropertyManager* manager) override;
    /// Makes a combo box with the names and icons of @p property, showing its value.
    QWidget* createEditor(QtEnumPropertyManager* manager, QtProperty* property,
                          QWidget* parent) override;
    /// Stops the editors following @p manager.
    void disconnectPropertyManager(QtEnumPropertyManager* manager) override;

private:
    void slotValueChanged(QtProperty* property, int value);
    void slotEnumNamesChanged(QtProperty* property, const QStringList& names);
    void slotEnumIconsChanged(QtProperty* property, const QMap<int, QIcon>& icons);
    void slotPropertyDestroyed(QtProperty* property);
    /// Hands an index the user chose in @p editor to the manager of its property.
    void commit(QComboBox* editor, int value);

    QtEditorTracker<QComboBox> m_oEditors;
};

#endif
