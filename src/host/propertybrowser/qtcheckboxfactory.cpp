#include "qtcheckboxfactory.h"

#include "qtbooledit.h"

QtCheckBoxFactory::QtCheckBoxFactory(QObject* parent)
    : QtAbstractEditorFactory<QtBoolPropertyManager>(parent)
    , m_oEditors(this)
{ }

// Out of line, where the editor type is complete for the tracker's destructor.
QtCheckBoxFactory::~QtCheckBoxFactory() = default;

void QtCheckBoxFactory::connectPropertyManager(QtBoolPropertyManager* manager)
{
    connect(manager, &QtBoolPropertyManager::valueChanged, this,
            &QtCheckBoxFactory::slotValueChanged);
    connect(manager, &QtBoolPropertyManager::textVisibleChanged, this,
            &QtCheckBoxFactory::slotTextVisibleChanged);
}

QWidget* QtCheckBoxFactory::createEditor(QtBoolPropertyManager* manager, QtProperty* property,
                                         QWidget* parent)
{
    auto* editor = new QtBoolEdit(parent);
    editor->setChecked(manager->value(property));
    editor->setTextVisible(manager->textVisible(property));
    connect(editor, &QtBoolEdit::toggled, this,
            [this, editor](bool value) { commit(editor, value); });
    // Not undone by disconnectPropertyManager(): editors must go with their property even then.
    connect(manager, &QtAbstractPropertyManager::propertyDestroyed, this,
            &QtCheckBoxFactory::slotPropertyDestroyed, Qt::UniqueConnection);
    m_oEditors.add(property, editor);
    return editor;
}

void QtCheckBoxFactory::disconnectPropertyManager(QtBoolPropertyManager* manager)
{
    disconnect(manager, &QtBoolPropertyManager::valueChanged, this,
               &QtCheckBoxFactory::slotValueChanged);
    disconnect(manager, &QtBoolPropertyManager::textVisibleChanged, this,
               &QtCheckBoxFactory::slotTextVisibleChanged);
}

void QtCheckBoxFactory::slotValueChanged(QtProperty* property, bool value)
{
    // setChecked() emits nothing, so the change does not go back to the manager.
    for (QtBoolEdit* editor : m_oEditors.editors(property))
        editor->setChecked(value);
}

void QtCheckBoxFactory::slotTextVisibleChanged(QtProperty* property, bool textVisible)
{
    for (QtBoolEdit* editor : m_oEditors.editors(property))
        editor->setTextVisible(textVisible);
}

void QtCheckBoxFactory::slotPropertyDestroyed(QtProperty* property)
{
    m_oEditors.deleteEditors(property);
}

void QtCheckBoxFactory::commit(QtBoolEdit* editor, bool value)
{
    QtProperty* property = m_oEditors.property(editor);
    QtBoolPropertyManager* manager = property ? propertyManager(property) : nullptr;
    if (manager)
        manager->setValue(property, value);
}
