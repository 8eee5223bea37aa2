#include "qtdoublespinboxfactory.h"

#include <QDoubleSpinBox>
#include <QSignalBlocker>

QtDoubleSpinBoxFactory::QtDoubleSpinBoxFactory(QObject* parent)
    : QtAbstractEditorFactory<QtDoublePropertyManager>(parent)
    , m_oEditors(this)
{ }

// Out of line, where the editor type is complete for the tracker's destructor.
QtDoubleSpinBoxFactory::~QtDoubleSpinBoxFactory() = default;

void QtDoubleSpinBoxFactory::connectPropertyManager(QtDoublePropertyManager* manager)
{
    connect(manager, &QtDoublePropertyManager::valueChanged, this,
            &QtDoubleSpinBoxFactory::slotValueChanged);
    connect(manager, &QtDoublePropertyManager::rangeChanged, this,
            &QtDoubleSpinBoxFactory::slotRangeChanged);
    connect(manager, &QtDoublePropertyManager::singleStepChanged, this,
            &QtDoubleSpinBoxFactory::slotSingleStepChanged);
    connect(manager, &QtDoublePropertyManager::decimalsChanged, this,
            &QtDoubleSpinBoxFactory::slotDecimalsChanged);
    connect(manager, &QtDoublePropertyManager::readOnlyChanged, this,
            &QtDoubleSpinBoxFactory::slotReadOnlyChanged);
}

QWidget* QtDoubleSpinBoxFactory::createEditor(QtDoublePropertyManager* manager,
                                              QtProperty* property, QWidget* parent)
{
    auto* editor = new QDoubleSpinBox(parent);
    // Decimals first: the spin box rounds its range and value to them.
    editor->setDecimals(manager->decimals(property));
    editor->setRange(manager->minimum(property), manager->maximum(property));
    editor->setSingleStep(manager->singleStep(property));
    editor->setValue(manager->value(property));
    editor->setReadOnly(manager->isReadOnly(property));
    connect(editor, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this, editor](double value) { commit(editor, value); });
    // Not undone by disconnectPropertyManager(): editors must go with their property even then.
    connect(manager, &QtAbstractPropertyManager::propertyDestroyed, this,
            &QtDoubleSpinBoxFactory::slotPropertyDestroyed, Qt::UniqueConnection);
    m_oEditors.add(property, editor);
    return editor;
}

void QtDoubleSpinBoxFactory::disconnectPropertyManager(QtDoublePropertyManager* manager)
{
    disconnect(manager, &QtDoublePropertyManager::valueChanged, this,
               &QtDoubleSpinBoxFactory::slotValueChanged);
    disconnect(manager, &QtDoublePropertyManager::rangeChanged, this,
               &QtDoubleSpinBoxFactory::slotRangeChanged);
    disconnect(manager, &QtDoublePropertyManager::singleStepChanged, this,
               &QtDoubleSpinBoxFactory::slotSingleStepChanged);
    disconnect(manager, &QtDoublePropertyManager::decimalsChanged, this,
               &QtDoubleSpinBoxFactory::slotDecimalsChanged);
    disconnect(manager, &QtDoublePropertyManager::readOnlyChanged, this,
               &QtDoubleSpinBoxFactory::slotReadOnlyChanged);
}

void QtDoubleSpinBoxFactory::slotValueChanged(QtProperty* property, double value)
{
    for (QDoubleSpinBox* editor : m_oEditors.editors(property)) {
        // The editor that committed the value holds it already; setting it again would rewrite
        // the text under the user's cursor while they type.
        if (editor->value() == value)
            continue;
        // The change comes from the manager: it must not go back to it.
        const QSignalBlocker blocker(editor);
        editor->setValue(value);
    }
}

void QtDoubleSpinBoxFactory::slotRangeChanged(QtProperty* property, double minimum, double maximum)
{
    for (QDoubleSpinBox* editor : m_oEditors.editors(property)) {
        // The manager moves its value into the new range itself and says so.
        const QSignalBlocker blocker(editor);
        editor->setRange(minimum, maximum);
    }
}

void QtDoubleSpinBoxFactory::slotSingleStepChanged(QtProperty* property, double step)
{
    for (QDoubleSpinBox* editor : m_oEditors.editors(property))
        editor->setSingleStep(step);
}

void QtDoubleSpinBoxFactory::slotDecimalsChanged(QtProperty* property, int decimals)
{
    QtDoublePropertyManager* manager = propertyManager(property);
    for (QDoubleSpinBox* editor : m_oEditors.editors(property)) {
        // The spin box rounds what it holds to the new decimals: show the manager's value again.
        const QSignalBlocker blocker(editor);
        editor->setDecimals(decimals);
        if (manager) {
            editor->setRange(manager->minimum(property), manager->maximum(property));
            editor->setValue(manager->value(property));
        }
    }
}

void QtDoubleSpinBoxFactory::slotReadOnlyChanged(QtProperty* property, bool readOnly)
{
    for (QDoubleSpinBox* editor : m_oEditors.editors(property))
        editor->setReadOnly(readOnly);
}

void QtDoubleSpinBoxFactory::slotPropertyDestroyed(QtProperty* property)
{
    m_oEditors.deleteEditors(property);
}

void QtDoubleSpinBoxFactory::commit(QDoubleSpinBox* editor, double value)
{
    QtProperty* property = m_oEditors.property(editor);
    QtDoublePropertyManager* manager = property ? propertyManager(property) : nullptr;
    if (manager)
        manager->setValue(property, value);
}
