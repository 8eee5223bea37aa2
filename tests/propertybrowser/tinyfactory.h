#ifndef TINYFACTORY_H
#define TINYFACTORY_H

#include "tinymanager.h"

#include <QList>
#include <QPointer>
#include <QSpinBox>

/// Creates a spin box for a TinyManager property that writes every change to the manager, and
/// records its pairings so that tests can see when a browser makes or ends them.
class TinyFactory : public QtAbstractEditorFactory<TinyManager>
{
public:
    explicit TinyFactory(QObject* parent = nullptr)
        : QtAbstractEditorFactory<TinyManager>(parent)
    { }

    // Editors outliving their factory would edit nothing; real factories delete them too.
    ~TinyFactory() override
    {
        for (const QPointer<QSpinBox>& editor : qAsConst(m_lEditors))
            delete editor.data();
    }

    /// Makes createEditor() decline, as a factory may for a property it cannot edit.
    void setDeclining(bool declining) { m_bDeclining = declining; }

    QList<TinyManager*> m_lConnected;
    QList<TinyManager*> m_lDisconnected;
    /// How often an editor was asked for, made or declined.
    int m_iCreateCalls = 0;

protected:
    void connectPropertyManager(TinyManager* manager) override { m_lConnected.append(manager); }
    void disconnectPropertyManager(TinyManager* manager) override
    {
        m_lDisconnected.append(manager);
    }
    QWidget* createEditor(TinyManager* manager, QtProperty* property, QWidget* parent) override
    {
        ++m_iCreateCalls;
        if (m_bDeclining)
            return nullptr;
        auto* editor = new QSpinBox(parent);
        editor->setRange(-1000, 1000);
        editor->setValue(manager->value(property));
        m_lEditors.append(editor);
        connect(editor, qOverload<int>(&QSpinBox::valueChanged), manager,
                [manager, property](int value) { manager->setValue(property, value); });
        return editor;
    }

private:
    bool m_bDeclining = false;
    QList<QPointer<QSpinBox>> m_lEditors;
};

#endif
