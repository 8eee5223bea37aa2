#include "qtlineeditfactory.h"

#include <QLineEdit>
#include <QRegExpValidator>
#include <QSignalBlocker>

namespace {

// Gives @p editor a validator for @p regExp in place of the one it had; an invalid expression
// checks nothing, as in the manager.
void setRegExp(QLineEdit* editor, const QRegExp& regExp)
{
    const QValidator* old = editor->validator();
    editor->setValidator(regExp.isValid() ? new QRegExpValidator(regExp, editor) : nullptr);
    delete old;
}

} // namespace

QtLineEditFactory::QtLineEditFactory(QObject* parent)
    : QtAbstractEditorFactory<QtStringPropertyManager>(parent)
    , m_oEditors(this)
{ }

// Out of line, where the editor type is complete for the tracker's destructor.
QtLineEditFactory::~QtLineEditFactory() = default;

void QtLineEditFactory::connectPropertyManager(QtStringPropertyManager* manager)
{
    connect(manager, &QtStringPropertyManager::valueChanged, this,
            &QtLineEditFactory::slotValueChanged);
    connect(manager, &QtStringPropertyManager::regExpChanged, this,
            &QtLineEditFactory::slotRegExpChanged);
    connect(manager, &QtStringPropertyManager::echoModeChanged, this,
            &QtLineEditFactory::slotEchoModeChanged);
    connect(manager, &QtStringPropertyManager::readOnlyChanged, this,
            &QtLineEditFactory::slotReadOnlyChanged);
}

QWidget* QtLineEditFactory::createEditor(QtStringPropertyManager* manager, QtProperty* property,
                                         QWidget* parent)
{
    auto* editor = new QLineEdit(parent);
    setRegExp(editor, manager->regExp(property));
    editor->setEchoMode(manager->echoMode(property));
    editor->setReadOnly(manager->isReadOnly(property));
    editor->setText(manager->value(property));
    // Each keystroke commits, so the row's text follows the typing.
    connect(editor, &QLineEdit::textEdited, this,
            [this, editor](const QString& value) { commit(editor, value); });
    // Not undone by disconnectPropertyManager(): editors must go with their property even then.
    connect(manager, &QtAbstractPropertyManager::propertyDestroyed, this,
            &QtLineEditFactory::slotPropertyDestroyed, Qt::UniqueConnection);
    m_oEditors.add(property, editor);
    return editor;
}

void QtLineEditFactory::disconnectPropertyManager(QtStringPropertyManager* manager)
{
    disconnect(manager, &QtStringPropertyManager::valueChanged, this,
               &QtLineEditFactory::slotValueChanged);
    disconnect(manager, &QtStringPropertyManager::regExpChanged, this,
               &QtLineEditFactory::slotRegExpChanged);
    disconnect(manager, &QtStringPropertyManager::echoModeChanged, this,
               &QtLineEditFactory::slotEchoModeChanged);
    disconnect(manager, &QtStringPropertyManager::readOnlyChanged, this,
               &QtLineEditFactory::slotReadOnlyChanged);
}

void QtLineEditFactory::slotValueChanged(QtProperty* property, const QString& value)
{
    for (QLineEdit* editor : m_oEditors.editors(property)) {
        // The editor that committed the text already shows it; setting it again would move
        // the cursor to the end while the user types.
        if (editor->text() != value)
            editor->setText(value);
    }
}

void QtLineEditFactory::slotRegExpChanged(QtProperty* property, const QRegExp& regExp)
{
    for (QLineEdit* editor : m_oEditors.editors(property))
        setRegExp(editor, regExp);
}

void QtLineEditFactory::slotEchoModeChanged(QtProperty* property, int echoMode)
{
    for (QLineEdit* editor : m_oEditors.editors(property))
        editor->setEchoMode(static_cast<QLineEdit::EchoMode>(echoMode));
}

void QtLineEditFactory::slotReadOnlyChanged(QtProperty* property, bool readOnly)
{
    for (QLineEdit* editor : m_oEditors.editors(property))
        editor->setReadOnly(readOnly);
}

void QtLineEditFactory::slotPropertyDestroyed(QtProperty* property)
{
    m_oEditors.deleteEditors(property);
}

void QtLineEditFactory::commit(QLineEdit* editor, const QString& value)
{
    QtProperty* property = m_oEditors.property(editor);
    QtStringPropertyManager* manager = property ? propertyManager(property) : nullptr;
    if (manager)
        manager->setValue(property, value);
}
