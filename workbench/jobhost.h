#ifndef JOBHOST_H
#define JOBHOST_H

#include "wutils/wrequest.h"

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QVariant>

#include <optional>

class JobModel;

namespace Script {
class DItem;
}
class RequestLog;
class WidgetTree;
class WidgetTreeView;

namespace PropertyBrowser {
class WTreePropertyBrowser;
}

/// The host's side of the dock: it fills the job tree, answers every request of the plug-in
/// from the job model, and refreshes the dock after each change and each switch of the view
/// mode, as the real host does.
class JobHost : public QObject
{
    Q_OBJECT

public:
    /// Serves @p model and writes every request into @p log.
    JobHost(JobModel& model, RequestLog& log, QObject* parent = nullptr);

    /// Starts serving @p dock: takes its requests directly and fills its job tree.
    void vAttach(WidgetTree* dock);
    /// Builds the job tree's items from the job again, keeping expansion and the current node.
    void vFillTree();
    /// Empties both trees before the job is replaced: their items and rows point to its nodes.
    void vDropJob();
    /// The job tree of the dock, or null before vAttach().
    WidgetTreeView* poTree() const;
    /// The property tree of the dock, or null before vAttach().
    PropertyBrowser::WTreePropertyBrowser* poBrowser() const;
    /// Fills the property tree with the values of the selected node, as a host does.
    void vShowSelection();
    /// The help that the "?" beside Start Assistant shows, in the current language.
    static QString sAssistantHelp();

public slots:
    /// Answers one request of the plug-in; @p reply is read by the sender after the return.
    void vOnTreeReq(WRequest<QVariant> request, QVariant& reply);

signals:
    /// A short text for the status bar about what the host just did.
    void statusMessage(const QString& text);
    /// The plug-in asked for the tool box of modules.
    void toolBoxRequested();

private:
    QString sHandle(const WRequest<QVariant>& request, QVariant& reply);
    QString sEdit(const QVariantList& values);
    QString sRename(const QVariantList& values);
    QString sSelectLinked(const QString& path);
    QString sFileRequest(int id, const QString& path);
    QString sAssistant(bool visible, QVariant& reply);
    QString sShowAssistantHelp();
    void vClearTree();
    void vRememberTree();
    void vRefreshNodes(const QList<Script::DItem*>& nodes);
    void vRefreshVisibility();
    void vOnViewModeChanged(int mode);
    void vOnStructureChanged();
    void vScheduleFill();

    JobModel& m_oModel;
    RequestLog& m_oLog;
    // What the job tree showed, by node path, to be shown again after a rebuild.
    struct TreeState
    {
        QSet<QString> expanded;
        QString current;
        bool firstFill = false;
    };

    QPointer<WidgetTree> m_poDock;
    std::optional<TreeState> m_oRemembered;
    bool m_bFillPending = false;
    bool m_bAssistantWanted = false;
    // The module made by the last insertion, and the node to make current after the next fill.
    QString m_sInserted;
    QString m_sCurrentAfterFill;
};

#endif
