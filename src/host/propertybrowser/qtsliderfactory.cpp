#include "qtsliderfactory.h"

#include <QSignalBlocker>
#include <QSlider>

QtSliderFactory::QtSliderFactory(QObject* parent)
    : QtAbstractEditorFactory<QtIntPropertyManager>(parent)
    , m_oEditors(this)
{ }

// Out of line, where the editor type is complete for the tracker's destructor.
QtSliderFactory::~QtSliderFactory() = default;

void QtSliderFactory::connectPropertyManager(QtIntPropertyManager* manager)
{
    connect(manager, &QtIntPropertyManager::valueChanged, this, &QtSliderFactory::slotValueChanged);
    connect(manager, &QtIntPropertyManager::rangeChanged, this, &QtSliderFactory::slotRangeChanged);
    connect(manager, &QtIntPropertyManager::singleStepChanged, this,
            &QtSliderFactory::slotSingleStepChanged);
    connect(manager, &QtIntPropertyManager::readOnlyChanged, this,
            &QtSliderFactory::slotReadOnlyChanged);
}

QWidget* QtSliderFactory::createEditor(QtIntPropertyManager* manager, QtProperty* property,
                                       QWidget* parent)
{
    auto* editor = new QSlider(Qt::Horizontal, parent);
    editor->setRange(manager->minimum(property), manager->maximum(property));
    editor->setSingleStep(manager->singleStep(property));
    editor->setValue(manager->value(property));
    // A slider cannot be read-only, so a read-only property's slider takes no input at all.
    editor->setEnabled(!manager->isReadOnly(property));
    connect(editor, &QSlider::valueChanged, this,
            [this, editor](int value) { commit(editor, value); });
    // Not undone by disconnectPropertyManager(): editors must go with their property even then.
    connect(manager, &QtAbstractPropertyManager::propertyDestroyed, this,
            &QtSliderFactory::slotPropertyDestroyed, Qt::UniqueConnection);
    m_oEditors.add(property, editor);
    return editor;
}

void QtSliderFactory::disconnectPropertyManager(QtIntPropertyManager* manager)
{
    disconnect(manager, &QtIntPropertyManager::valueChanged, this,
               &QtSliderFactory::slotValueChanged);
    disconnect(manager, &QtIntPropertyManager::rangeChanged, this,
               &QtSliderFactory::slotRangeChanged);
    disconnect(manager, &QtIntPropertyManager::singleStepChanged, this,
               &QtSliderFactory::slotSingleStepChanged);
    disconnect(manager, &QtIntPropertyManager::readOnlyChanged, this,
               &QtSliderFactory::slotReadOnlyChanged);
}

void QtSliderFactory::slotValueChanged(QtProperty* property, int value)
{
    for (QSlider* editor : m_oEditors.editors(property)) {
        // The change comes from the manager: it must not go back to it.
        const QSignalBlocker blocker(editor);
        editor->setValue(value);
    }
}

void QtSliderFactory::slotRangeChanged(QtProperty* property, int minimum, int maximum)
{
    for (QSlider* editor : m_oEditors.editors(property)) {
        // The manager moves its value into the new range itself and says so.
        const QSignalBlocker blocker(editor);
        editor->setRange(minimum, maximum);
    }
}

void QtSliderFactory::slotSingleStepChanged(QtProperty* property, int step)
{
    for (QSlider* editor : m_oEditors.editors(property))
        editor->setSingleStep(step);
}

void QtSliderFactory::slotReadOnlyChanged(QtProperty* property, bool readOnly)
{
    for (QSlider* editor : m_oEditors.editors(property))
        editor->setEnabled(!readOnly);
}

void QtSliderFactory::slotPropertyDestroyed(QtProperty* property)
{
    m_oEditors.deleteEditors(property);
}

void QtSliderFactory::commit(QSlider* editor, int value)
{
    QtProperty* property = m_oEditors.property(editor);
    QtIntPropertyManager* manager = property ? propertyManager(property) : nullptr;
    if (manager)
        manager->setValue(property, value);
}
