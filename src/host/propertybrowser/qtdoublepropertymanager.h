#ifndef QTDOUBLEPROPERTYMANAGER_H
#define QTDOUBLEPROPERTYMANAGER_H

#include "qtabstractpropertymanager.h"

#include <QHash>

#include <limits>

/// Manages double properties: a value kept inside a range, a single step, the number of decimals
/// shown and a read-only flag.
class QtDoublePropertyManager : public QtAbstractPropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without properties.
    explicit QtDoublePropertyManager(QObject* parent = nullptr);
    /// Destroys the manager and all of its properties.
    ~QtDoublePropertyManager() override;

    /// The value of @p property; 0 for a property of another manager.
    double value(const QtProperty* property) const;
    /// The smallest value @p property accepts.
    double minimum(const QtProperty* property) const;
    /// The largest value @p property accepts.
    double maximum(const QtProperty* property) const;
    /// The step an editor adds or takes away at a time.
    double singleStep(const QtProperty* property) const;
    /// How many digits after the decimal point the value shows.
    int decimals(const QtProperty* property) const;
    /// Whether editors may change the value of @p property.
    bool isReadOnly(const QtProperty* property) const;

public slots:
    /// Sets the value of @p property, moved into its range; NaN is refused.
    void setValue(QtProperty* property, double value);
    /// Sets the smallest value; the maximum and the value follow when they fall below it.
    void setMinimum(QtProperty* property, double minimum);
    /// Sets the largest value; the minimum and the value follow when they rise above it.
    void setMaximum(QtProperty* property, double maximum);
    /// Sets both bounds at once (swapped when given in the wrong order) and moves the value in.
    void setRange(QtProperty* property, double minimum, double maximum);
    /// Sets the step of @p property; a negative step counts as 0.
    void setSingleStep(QtProperty* property, double step);
    /// Sets the number of decimals, kept within [0, 13] as a double spin box keeps it.
    void setDecimals(QtProperty* property, int decimals);
    /// Sets whether editors may change the value of @p property.
    void setReadOnly(QtProperty* property, bool readOnly);

signals:
    /// The value of @p property became @p value.
    void valueChanged(QtProperty* property, double value);
    /// The range of @p property became [@p minimum, @p maximum].
    void rangeChanged(QtProperty* property, double minimum, double maximum);
    /// The single step of @p property became @p step.
    void singleStepChanged(QtProperty* property, double step);
    /// The number of decimals of @p property became @p decimals.
    void decimalsChanged(QtProperty* property, int decimals);
    /// The read-only flag of @p property became @p readOnly.
    void readOnlyChanged(QtProperty* property, bool readOnly);

protected:
    /// The value with as many decimals as the property shows.
    QString valueText(const QtProperty* property) const override;
    /// Gives @p property the value 0, the widest range, step 1, two decimals and editing allowed.
    void initializeProperty(QtProperty* property) override;
    /// Forgets the data of @p property.
    void uninitializeProperty(QtProperty* property) override;

private:
    struct Data
    {
        double dValue = 0.0;
        double dMinimum = -std::numeric_limits<double>::max();
        double dMaximum = std::numeric_limits<double>::max();
        double dSingleStep = 1.0;
        int iDecimals = 2;
        bool bReadOnly = false;
    };

    /// Stores the range and brings the value into it, emitting what changed.
    void applyRange(QtProperty* property, double minimum, double maximum);

    QHash<const QtProperty*, Data> m_hData;
};

#endif
