#ifndef QTDOUBLESPINBOXFACTORY_H
#define QTDOUBLESPINBOXFACTORY_H

#include "qtabstracteditorfactory.h"
#include "qtdoublepropertymanager.h"
#include "qteditortracker.h"

class QDoubleSpinBox;

/// Makes double spin boxes for the properties of QtDoublePropertyManager objects.
class QtDoubleSpinBoxFactory : public QtAbstractEditorFactory<QtDoublePropertyManager>
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit QtDoubleSpinBoxFactory(QObject* parent = nullptr);
    /// Destroys the factory and every editor it made that still exists.
    ~QtDoubleSpinBoxFactory() override;

    using QtAbstractEditorFactory<QtDoublePropertyManager>::createEditor;

protected:
    /// Lets the editors follow the value, range, step, decimals and read-only flag of @p manager.
    void connectPropertyManager(QtDoublePropertyManager* manager) override;
    /// Makes a spin box that shows and edits @p property of @p manager.
    QWidget* createEditor(QtDoublePropertyManager* manager, QtProperty* property,
                          QWidget* parent) override;
    /// Stops the editors following @p manager.
    void disconnectPropertyManager(QtDoublePropertyManager* manager) override;

private:
    void slotValueChanged(QtProperty* property, double value);
    void slotRangeChanged(QtProperty* property, double minimum, double maximum);
    void slotSingleStepChanged(QtProperty* property, double step);
    void slotDecimalsChanged(QtProperty* property, int decimals);
    void slotReadOnlyChanged(QtProperty* property, bool readOnly);
    void slotPropertyDestroyed(QtProperty* property);
    /// Hands a value the user chose in @p editor to the manager of its property.
    void commit(QDoubleSpinBox* editor, double value);

    QtEditorTracker<QDoubleSpinBox> m_oEditors;
};

#endif
