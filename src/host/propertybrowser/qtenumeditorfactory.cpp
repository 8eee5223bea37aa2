#include "qtenumeditorfactory.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QSignalBlocker>

namespace {

// Puts the names and icons into @p editor, showing @p value; the caller blocks its signals.
void fill(QComboBox* editor, const QStringList& names, const QMap<int, QIcon>& icons, int value)
{
    editor->clear();
    editor->addItems(names);
    for (auto it = icons.constBegin(); it != icons.constEnd(); ++it)
        editor->setItemIcon(it.key(), it.value());
    editor->setCurrentIndex(value);
}

} // namespace

QtEnumEditorFactory::QtEnumEditorFactory(QObject* parent)
    : QtAbstractEditorFactory<QtEnumPropertyManager>(parent)
    , m_oEditors(this)
{ }

// Out of line, where the editor type is complete for the tracker's destructor.
QtEnumEditorFactory::~QtEnumEditorFactory() = default;

void QtEnumEditorFactory::connectPropertyManager(QtEnumPropertyManager* manager)
{
    connect(manager, &QtEnumPropertyManager::valueChanged, this,
            &QtEnumEditorFactory::slotValueChanged);
    connect(manager, &QtEnumPropertyManager::enumNamesChanged, this,
            &QtEnumEditorFactory::slotEnumNamesChanged);
    connect(manager, &QtEnumPropertyManager::enumIconsChanged, this,
            &QtEnumEditorFactory::slotEnumIconsChanged);
}

QWidget* QtEnumEditorFactory::createEditor(QtEnumPropertyManager* manager, QtProperty* property,
                                           QWidget* parent)
{
    auto* editor = new QComboBox(parent);
    // A property row is narrow: long names are cut rather than widening the editor.
    editor->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    editor->setMinimumContentsLength(1);
    editor->view()->setTextElideMode(Qt::ElideRight);
    fill(editor, manager->enumNames(property), manager->enumIcons(property),
         manager->value(property));
    connect(editor, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this, editor](int value) { commit(editor, value); });
    // Not undone by disconnectPropertyManager(): editors must go with their property even then.
    connect(manager, &QtAbstractPropertyManager::propertyDestroyed, this,
            &QtEnumEditorFactory::slotPropertyDestroyed, Qt::UniqueConnection);
    m_oEditors.add(property, editor);
    return editor;
}

void QtEnumEditorFactory::disconnectPropertyManager(QtEnumPropertyManager* manager)
{
    disconnect(manager, &QtEnumPropertyManager::valueChanged, this,
               &QtEnumEditorFactory::slotValueChanged);
    disconnect(manager, &QtEnumPropertyManager::enumNamesChanged, this,
               &QtEnumEditorFactory::slotEnumNamesChanged);
    disconnect(manager, &QtEnumPropertyManager::enumIconsChanged, this,
               &QtEnumEditorFactory::slotEnumIconsChanged);
}

void QtEnumEditorFactory::slotValueChanged(QtProperty* property, int value)
{
    for (QComboBox* editor : m_oEditors.editors(property)) {
        // The change comes from the manager: it must not go back to it.
        const QSignalBlocker blocker(editor);
        editor->setCurrentIndex(value);
    }
}

void QtEnumEditorFactory::slotEnumNamesChanged(QtProperty* property, const QStringList& names)
{
    QtEnumPropertyManager* manager = propertyManager(property);
    if (!manager)
        return;
    for (QComboBox* editor : m_oEditors.editors(property)) {
        const QSignalBlocker blocker(editor);
        fill(editor, names, manager->enumIcons(property), manager->value(property));
    }
}

void QtEnumEditorFactory::slotEnumIconsChanged(QtProperty* property, const QMap<int, QIcon>& icons)
{
    for (QComboBox* editor : m_oEditors.editors(property)) {
        // Names without an icon in the new map lose the one they had.
        for (int index = 0; index < editor->count(); ++index)
            editor->setItemIcon(index, icons.value(index));
    }
}

void QtEnumEditorFactory::slotPropertyDestroyed(QtProperty* property)
{
    m_oEditors.deleteEditors(property);
}

void QtEnumEditorFactory::commit(QComboBox* editor, int value)
{
    QtProperty* property = m_oEditors.property(editor);
    QtEnumPropertyManager* manager = property ? propertyManager(property) : nullptr;
    if (manager)
        manager->setValue(property, value);
}
