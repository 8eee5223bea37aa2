#ifndef QTSTRINGPROPERTYMANAGER_H
#define QTSTRINGPROPERTYMANAGER_H

#include "qtabstractpropertymanager.h"

#include <QHash>
#include <QLineEdit>
#include <QRegExp>

/// Manages string properties: a value that must match a regular expression, the echo mode an
/// editor shows it with and a read-only flag.
class QtStringPropertyManager : public QtAbstractPropertyManager
{
    Q_OBJECT

public:
    /// Makes a manager without properties.
    explicit QtStringPropertyManager(QObject* parent = nullptr);
    /// Destroys the manager and all of its properties.
    ~QtStringPropertyManager() override;

    /// The value of @p property; empty for a property of another manager.
    QString value(const QtProperty* property) const;
    /// The expression every value of @p property must match; the wildcard "*" by default.
    QRegExp regExp(const QtProperty* property) const;
    /// How editors show the value of @p property.
    QLineEdit::EchoMode echoMode(const QtProperty* property) const;
    /// Whether editors may change the value of @p property.
    bool isReadOnly(const QtProperty* property) const;

public slots:
    /// Sets the value of @p property; refused when it does not match the expression.
    void setValue(QtProperty* property, const QString& value);
    /// Sets the expression that later values must match; the current value stays.
    void setRegExp(QtProperty* property, const QRegExp& regExp);
    /// Sets how editors show the value of @p property.
    void setEchoMode(QtProperty* property, QLineEdit::EchoMode echoMode);
    /// Sets whether editors may change the value of @p property.
    void setReadOnly(QtProperty* property, bool readOnly);

signals:
    /// The value of @p property became @p value.
    void valueChanged(QtProperty* property, const QString& value);
    /// The expression of @p property became @p regExp.
    void regExpChanged(QtProperty* property, const QRegExp& regExp);
    /// The echo mode of @p property became @p echoMode, a QLineEdit::EchoMode.
    void echoModeChanged(QtProperty* property, int echoMode);
    /// The read-only flag of @p property became @p readOnly.
    void readOnlyChanged(QtProperty* property, bool readOnly);

protected:
    /// The value as it is.
    QString valueText(const QtProperty* property) const override;
    /// Gives @p property an empty value that takes any text, shown normally and editable.
    void initializeProperty(QtProperty* property) override;
    /// Forgets the data of @p property.
    void uninitializeProperty(QtProperty* property) override;

private:
    struct Data
    {
        QString oValue;
        QRegExp oRegExp = QRegExp(QStringLiteral("*"), Qt::CaseSensitive, QRegExp::Wildcard);
        QLineEdit::EchoMode eEchoMode = QLineEdit::Normal;
        bool bReadOnly = false;
    };

    QHash<const QtProperty*, Data> m_hData;
};

#endif
