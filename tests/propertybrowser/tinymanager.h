#ifndef TINYMANAGER_H
#define TINYMANAGER_H

#include "qtpropertybrowser.h"

#include <QHash>

/// The least typed manager: an integer per property, shown as its decimal text. The browser
/// tests use it so that they depend on the browser alone.
class TinyManager : public QtAbstractPropertyManager
{
    Q_OBJECT
public:
    explicit TinyManager(QObject* parent = nullptr)
        : QtAbstractPropertyManager(parent)
    { }
    // The base destructor could only call the base uninitializeProperty().
    ~TinyManager() override { clear(); }

    int value(const QtProperty* property) const { return m_hValues.value(property); }

    void setValue(QtProperty* property, int value)
    {
        const auto it = m_hValues.find(property);
        if (it == m_hValues.end() || it.value() == value)
            return;
        it.value() = value;
        emit valueChanged(property, value);
        emit propertyChanged(property);
    }

    /// Gives every value this icon, for tests of how icons are painted.
    void setValueIcon(const QIcon& icon) { m_oIcon = icon; }
    /// Gives every property this icon before its name.
    void setPropertyIcon(const QIcon& icon) { m_oPropertyIcon = icon; }

signals:
    void valueChanged(QtProperty* property, int value);

protected:
    QString valueText(const QtProperty* property) const override
    {
        return QString::number(value(property));
    }
    QIcon valueIcon(const QtProperty*) const override { return m_oIcon; }
    QIcon propertyIcon(const QtProperty*) const override { return m_oPropertyIcon; }
    void initializeProperty(QtProperty* property) override { m_hValues.insert(property, 0); }
    void uninitializeProperty(QtProperty* property) override { m_hValues.remove(property); }

private:
    QHash<const QtProperty*, int> m_hValues;
    QIcon m_oIcon;
    QIcon m_oPropertyIcon;
};

#endif
