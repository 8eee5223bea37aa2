#ifndef REQUESTRECORDER_H
#define REQUESTRECORDER_H

#include "navigator/widgettree.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPair>
#include <QVariant>

#include <functional>

/// One request as the host received it.
struct RecordedRequest
{
    int category;
    int id;
    WaitOn waitOn;
    int timeout;
    QList<QPair<QVariant, int>> params;
    QVariant reply;
};

/// Plays the host's side of treeReq: records each request with the reply it came with and
/// answers the ids it was told to.
class RequestRecorder : public QObject
{
public:
    explicit RequestRecorder(WidgetTree* tree)
    {
        connect(
            tree, &WidgetTree::treeReq, this,
            [this](WRequest<QVariant> request, QVariant& reply) {
                RecordedRequest recorded {request.category, request.id, request.waitOn,
                                          request.timeout,  {},         reply};
                for (const WParam<QVariant>& param : request)
                    recorded.params.append(qMakePair(param.first, param.second));
                m_lRequests.append(recorded);
                if (m_hashAnswers.contains(request.id))
                    reply = m_hashAnswers.value(request.id);
                if (m_hashDeciders.contains(request.id))
                    reply = m_hashDeciders.value(request.id)(recorded);
            },
            Qt::DirectConnection);
    }

    /// The host writes @p answer into the reply of every request with @p id.
    void answer(int id, const QVariant& answer) { m_hashAnswers.insert(id, answer); }
    /// The host writes what @p decide makes of the request into the reply of every request
    /// with @p id.
    void answerWith(int id, const std::function<QVariant(const RecordedRequest&)>& decide)
    {
        m_hashDeciders.insert(id, decide);
    }
    /// The requests received, oldest first.
    const QList<RecordedRequest>& requests() const { return m_lRequests; }
    /// The ids of the requests received, oldest first.
    QList<int> ids() const
    {
        QList<int> result;
        for (const RecordedRequest& request : m_lRequests)
            result.append(request.id);
        return result;
    }
    /// Forgets the requests received.
    void clear() { m_lRequests.clear(); }

private:
    QList<RecordedRequest> m_lRequests;
    QHash<int, QVariant> m_hashAnswers;
    QHash<int, std::function<QVariant(const RecordedRequest&)>> m_hashDeciders;
};

#endif
