#ifndef QTBOOLPROPERTYMANAGER_H
#define QTBOOLPROPERTYMANAGER_H

#include "qtabstractpropertymanager.h"

#include <QHash>
#include <QIcon>

/// Manages bool properties, shown as a check box with "True" or "False" beside it.
class QtBoolPropertyManager : public QtAbstractPropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without properties.
    explicit QtBoolPropertyManager(QObject* parent = nullptr);
    /// Destroys the manager and all of its properties.
    ~QtBoolPropertyManager() override;

    /// The value of @p property; false for a property of another manager.
    bool value(const QtProperty* property) const;
    /// Whether the value text "True" or "False" is shown beside the check box.
    bool textVisible(const QtProperty* property) const;

public slots:
    /// Sets the value of @p property.
    void setValue(QtProperty* property, bool value);
    /// Sets whether the value text is shown beside the check box.
    void setTextVisible(QtProperty* property, bool textVisible);

signals:
    /// The value of @p property became @p value.
    void valueChanged(QtProperty* property, bool value);
    /// Whether the value text of @p property is shown became @p textVisible.
    void textVisibleChanged(QtProperty* property, bool textVisible);

protected:
    /// "True" or "False", or nothing when the text is hidden.
    QString valueText(const QtProperty* property) const override;
    /// A check box in the state of the value, sharp at any device pixel ratio.
    QIcon valueIcon(const QtProperty* property) const override;
    /// Gives @p property the value false with its text shown.
    void initializeProperty(QtProperty* property) override;
    /// Forgets the data of @p property.
    void uninitializeProperty(QtProperty* property) override;

private:
    struct Data
    {
        bool bValue = false;
        bool bTextVisible = true;
    };

    QHash<const QtProperty*, Data> m_hData;
    // Made once: every property shows one of these two.
    QIcon m_oCheckedIcon;
    QIcon m_oUncheckedIcon;
};

#endif
