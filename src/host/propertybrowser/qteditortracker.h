#ifndef QTEDITORTRACKER_H
#define QTEDITORTRACKER_H

#include <QHash>
#include <QList>
#include <QObject>

class QtProperty;

/// Remembers which editors a factory made for which property, forgets an editor when it is
/// destroyed, and deletes the editors of a property that goes away or of a factory that does.
///
/// Every connection it makes has the factory as context, so none outlives the factory.
template<class Editor>
class QtEditorTracker
{
public:
    /// Makes a tracker for the editors of @p factory, which owns the tracker.
    explicit QtEditorTracker(QObject* factory)
        : m_poFactory(factory)
    { }

    QtEditorTracker(const QtEditorTracker&) = delete;
    QtEditorTracker& operator=(const QtEditorTracker&) = delete;

    /// Deletes every editor still tracked: an editor outliving its factory would edit nothing.
    /// Instantiated where Editor is a complete type, hence the factories' own destructors.
    ~QtEditorTracker()
    {
        const QList<Editor*> editors = m_hProperties.keys();
        m_hProperties.clear();
        m_hEditors.clear();
        for (Editor* editor : editors) {
            editor->disconnect(m_poFactory);
            delete editor;
        }
    }

    /// Records @p editor as an editor of @p property until either is destroyed.
    void add(QtProperty* property, Editor* editor)
    {
        m_hEditors[property].append(editor);
        m_hProperties.insert(editor, property);
        // Only the pointer's value is used once the editor is being destroyed.
        QObject::connect(editor, &QObject::destroyed, m_poFactory,
                         [this, editor] { forget(editor); });
    }

    /// The live editors of @p property.
    QList<Editor*> editors(QtProperty* property) const { return m_hEditors.value(property); }

    /// The property @p editor edits; null once the property is gone.
    QtProperty* property(Editor* editor) const { return m_hProperties.value(editor); }

    /// Cuts the editors of @p property off from the factory and deletes them once control is back
    /// in the event loop, since one of them may be the sender of the signal that removed it.
    void deleteEditors(QtProperty* property)
    {
        const QList<Editor*> editors = m_hEditors.take(property);
        for (Editor* editor : editors) {
            m_hProperties.remove(editor);
            editor->disconnect(m_poFactory);
            editor->deleteLater();
        }
    }

private:
    void forget(Editor* editor)
    {
        QtProperty* property = m_hProperties.take(editor);
        const auto it = m_hEditors.find(property);
        if (it == m_hEditors.end())
            return;
        it->removeOne(editor);
        if (it->isEmpty())
            m_hEditors.erase(it);
    }

    QObject* m_poFactory;
    QHash<QtProperty*, QList<Editor*>> m_hEditors;
    QHash<Editor*, QtProperty*> m_hProperties;
};

#endif
