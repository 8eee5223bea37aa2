#ifndef QTSLIDERFACTORY_H
#define QTSLIDERFACTORY_H

#include "qtabstracteditorfactory.h"
#include "qteditortracker.h"
#include "qtintpropertymanager.h"

class QSlider;

/// Makes horizontal sliders for the properties of QtIntPropertyManager objects.
class QtSliderFactory : public QtAbstractEditorFactory<QtIntPropertyManager>
{
    Q_OBJECT

public:
    /// Makes a factory without managers.
    explicit QtSliderFactory(QObject* parent = nullptr);
    /// Destroys the factory and every editor it made that still exists.
    ~QtSliderFactory() override;

    using QtAbstractEditorFactory<QtIntPropertyManager>::createEditor;

protected:
    /// Lets the editors follow the value, range, step and read-only flag of @p manager.
    void connectPropertyManager(QtIntPropertyManager* manager) override;
    /// Makes a slider that shows and edits @p property of @p manager.
    QWidget* createEditor(QtIntPropertyManager* manager, QtProperty* property,
                          QWidget* parent) override;
    /// Stops the editors following @p manager.
    void disconnectPropertyManager(QtIntPropertyManager* manager) override;

private:
    void slotValueChanged(QtProperty* property, int value);
    void slotRangeChanged(QtProperty* property, int minimum, int maximum);
    void slotSingleStepChanged(QtProperty* property, int step);
    void slotReadOnlyChanged(QtProperty* property, bool readOnly);
    void slotPropertyDestroyed(QtProperty* property);
    /// Hands a value the user chose in @p editor to the manager of its property.
    void commit(QSlider* editor, int value);

    QtEditorTracker<QSlider> m_oEditors;
};

#endif
