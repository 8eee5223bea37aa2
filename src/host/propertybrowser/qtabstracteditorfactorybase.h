#ifndef QTABSTRACTEDITORFACTORYBASE_H
#define QTABSTRACTEDITORFACTORYBASE_H

#include <QHash>
#include <QObject>

class QtAbstractPropertyManager;
class QtProperty;
class QWidget;

/// The untyped face of an editor factory, which is what a browser sees.
class QtAbstractEditorFactoryBase : public QObject
{
    Q_OBJECT
public:
    /// Creates an editor for @p property as a child of @p parent, or null when it cannot.
    virtual QWidget* createEditor(QtProperty* property, QWidget* parent) = 0;

protected:
    /// Creates a factory without managers.
    explicit QtAbstractEditorFactoryBase(QObject* parent = nullptr);

    /// Forgets @p manager when the last browser that paired them lets go.
    virtual void breakConnection(QtAbstractPropertyManager* manager) = 0;

protected slots:
    /// Forgets a manager that is being destroyed.
    virtual void managerDestroyed(QObject* manager) = 0;

private:
    friend class QtAbstractPropertyBrowser;

    // Browsers that paired this factory with a manager; the pairing ends with the last of them.
    QHash<QtAbstractPropertyManager*, int> m_hBrowserUses;
};

#endif
