#ifndef QTENUMPROPERTYMANAGER_H
#define QTENUMPROPERTYMANAGER_H

#include "qtabstractpropertymanager.h"

#include <QHash>
#include <QIcon>
#include <QMap>
#include <QStringList>

/// Manages enum properties: the value is the index of one of a list of names, each of which
/// may have an icon.
class QtEnumPropertyManager : public QtAbstractPropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without properties.
    explicit QtEnumPropertyManager(QObject* parent = nullptr);
    /// Destroys the manager and all of its properties.
    ~QtEnumPropertyManager() override;

    /// The index of the current name of @p property; -1 while it has no names.
    int value(const QtProperty* property) const;
    /// The names @p property chooses from.
    QStringList enumNames(const QtProperty* property) const;
    /// The icons of the names of @p property, by index.
    QMap<int, QIcon> enumIcons(const QtProperty* property) const;

public slots:
    /// Sets the value of @p property; an index outside of its names is refused.
    void setValue(QtProperty* property, int value);
    /// Sets the names of @p property; the value becomes 0, or -1 when there are no names.
    void setEnumNames(QtProperty* property, const QStringList& names);
    /// Sets the icons of the names of @p property, by index.
    void setEnumIcons(QtProperty* property, const QMap<int, QIcon>& icons);

signals:
    /// The value of @p property became @p value.
    void valueChanged(QtProperty* property, int value);
    /// The names of @p property became @p names.
    void enumNamesChanged(QtProperty* property, const QStringList& names);
    /// The icons of @p property became @p icons.
    void enumIconsChanged(QtProperty* property, const QMap<int, QIcon>& icons);

protected:
    /// The current name.
    QString valueText(const QtProperty* property) const override;
    /// The icon of the current name.
    QIcon valueIcon(const QtProperty* property) const override;
    /// Gives @p property no names and the value -1.
    void initializeProperty(QtProperty* property) override;
    /// Forgets the data of @p property.
    void uninitializeProperty(QtProperty* property) override;

private:
    struct Data
    {
        int iValue = -1;
        QStringList oNames;
        QMap<int, QIcon> oIcons;
    };

    QHash<const QtProperty*, Data> m_hData;
};

#endif
