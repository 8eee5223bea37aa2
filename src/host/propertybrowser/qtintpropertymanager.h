#ifndef QTINTPROPERTYMANAGER_H
#define QTINTPROPERTYMANAGER_H

#include "qtabstractpropertymanager.h"

#include <QHash>

#include <limits>

/// Manages int properties: a value kept inside a range, a single step and a read-only flag.
class QtIntPropertyManager : public QtAbstractPropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without properties.
    explicit QtIntPropertyManager(QObject* parent = nullptr);
    /// Destroys the manager and all of its properties.
    ~QtIntPropertyManager() override;

    /// The value of @p property; 0 for a property of another manager.
    int value(const QtProperty* property) const;
    /// The smallest value @p property accepts.
    int minimum(const QtProperty* property) const;
    /// The largest value @p property accepts.
    int maximum(const QtProperty* property) const;
    /// The step an editor adds or takes away at a time.
    int singleStep(const QtProperty* property) const;
    /// Whether editors may change the value of @p property.
    bool isReadOnly(const QtProperty* property) const;

public slots:
    /// Sets the value of @p property, moved into its range.
    void setValue(QtProperty* property, int value);
    /// Sets the smallest value; the maximum and the value follow when they fall below it.
    void setMinimum(QtProperty* property, int minimum);
    /// Sets the largest value; the minimum and the value follow when they rise above it.
    void setMaximum(QtProperty* property, int maximum);
    /// Sets both bounds at once (swapped when given in the wrong order) and moves the value in.
    void setRange(QtProperty* property, int minimum, int maximum);
    /// Sets the step of @p property; a negative step counts as 0.
    void setSingleStep(QtProperty* property, int step);
    /// Sets whether editors may change the value of @p property.
    void setReadOnly(QtProperty* property, bool readOnly);

signals:
    /// The value of @p property became @p value.
    void valueChanged(QtProperty* property, int value);
    /// The range of @p property became [@p minimum, @p maximum].
    void rangeChanged(QtProperty* property, int minimum, int maximum);
    /// The single step of @p property became @p step.
    void singleStepChanged(QtProperty* property, int step);
    /// The read-only flag of @p property became @p readOnly.
    void readOnlyChanged(QtProperty* property, bool readOnly);

protected:
    /// The value as decimal digits.
    QString valueText(const QtProperty* property) const override;
    /// Gives @p property the value 0, the widest range, step 1 and editing allowed.
    void initializeProperty(QtProperty* property) override;
    /// Forgets the data of @p property.
    void uninitializeProperty(QtProperty* property) override;

private:
    struct Data
    {
        int iValue = 0;
        // Symmetric, so that negating a bound cannot overflow in editors.
        int iMinimum = -std::numeric_limits<int>::max();
        int iMaximum = std::numeric_limits<int>::max();
        int iSingleStep = 1;
        bool bReadOnly = false;
    };

    /// Stores the range and brings the value into it, emitting what changed.
    void applyRange(QtProperty* property, int minimum, int maximum);

    QHash<const QtProperty*, Data> m_hData;
};

#endif
