#ifndef REQUESTLOG_H
#define REQUESTLOG_H

#include "wutils/wrequest.h"

#include <QVariant>
#include <QWidget>

class QPushButton;
class QTreeWidget;

/// The panel that lists every request the plug-in sent: category, id, keys and values, and
/// the reply, newest last.
class RequestLog : public QWidget
{
    Q_OBJECT

public:
    /// Makes an empty log.
    explicit RequestLog(QWidget* parent = nullptr);

    /// Adds one request with the reply it was given and what the host made of it.
    void vAppend(const WRequest<QVariant>& request, const QVariant& reply, const QString& outcome);
    /// The number of requests listed.
    int count() const;
    /// The id of the request in row @p row, or 0 when there is no such row.
    int requestId(int row) const;
    /// The texts of row @p row, one per column.
    QStringList rowTexts(int row) const;

    /// A value as a person reads it: texts quoted, lists in brackets, maps as key: value.
    static QString sDescribe(const QVariant& value);

public slots:
    /// Empties the log.
    void clear();

protected:
    void changeEvent(QEvent* event) override;

private:
    void vRetranslate();

    QTreeWidget* m_poList;
    QPushButton* m_poClearButton;
};

#endif
