#ifndef SDK_ELEMENT_H
#define SDK_ELEMENT_H

#include "sdk/sdkglobal.h"

#include <QObject>
#include <QString>

namespace Assistant {

/// One step of a module assistant, as its QML page shows it: a name and the text that explains
/// the step.
class SDK_EXPORT Element : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(bool done READ bDone WRITE setDone NOTIFY doneChanged)

public:
    /// Makes an element without name or text.
    explicit Element(QObject* parent = nullptr);
    /// Makes an element named @p name that explains @p text.
    Element(const QString& name, const QString& text, QObject* parent = nullptr);
    ~Element() override;

    /// The step's name.
    QString name() const;
    /// Sets the step's name.
    void setName(const QString& name);
    /// The text that explains the step.
    QString text() const;
    /// Sets the text that explains the step.
    void setText(const QString& text);
    /// Whether the user has finished the step.
    bool bDone() const;
    /// Sets whether the user has finished the step.
    void setDone(bool done);

signals:
    /// The name changed.
    void nameChanged();
    /// The text changed.
    void textChanged();
    /// The done state changed.
    void doneChanged();

private:
    QString m_sName;
    QString m_sText;
    bool m_bDone = false;
};

} // namespace Assistant

#endif
