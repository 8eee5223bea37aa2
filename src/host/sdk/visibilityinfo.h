#ifndef SDK_VISIBILITYINFO_H
#define SDK_VISIBILITYINFO_H

#include "sdk/sdkglobal.h"

#include <QObject>
#include <QSet>
#include <QString>

namespace ItemVisibility {

/// Which nodes the user sees: the view mode of the application and the nodes the user has
/// hidden.
///
/// There is one process-wide instance. The host may make its own and install it with
/// setInstance(); otherwise instance() makes a default one in the normal view on first use.
class SDK_EXPORT VisibilityInfo : public QObject
{
    Q_OBJECT

public:
    /// The view modes.
    enum VisibilityMode {
        NormalView = 0, ///< Nodes that are not meant for the user stay hidden.
        ExpertView = 1 ///< Every node shows; the hidden ones in italics.
    };
    Q_ENUM(VisibilityMode)

    /// Makes an instance in the normal view with no hidden node; it is not installed.
    explicit VisibilityInfo(QObject* parent = nullptr);
    /// Uninstalls the instance if it is installed.
    ~VisibilityInfo() override;

    /// The installed instance, or the default one, made on first use.
    static VisibilityInfo* instance();
    /// Installs @p info as the process-wide instance, without taking ownership; null goes back
    /// to the default instance.
    static void setInstance(VisibilityInfo* info);

    /// Whether the view mode is the normal view.
    bool isNormalView() const;
    /// The view mode, as a VisibilityMode number.
    int getVisibilityMode() const;
    /// Whether the user has left the node at @p path visible.
    bool isVisible(const QString& path) const;

    /// Sets the view mode; emits visibilityModeChanged() when it changes.
    void setVisibilityMode(int mode);
    /// Records whether the user wants the node at @p path visible.
    void setVisible(const QString& path, bool visible);

signals:
    /// The view mode changed to @p mode.
    void visibilityModeChanged(int mode);

private:
    int m_iMode = NormalView;
    QSet<QString> m_setHiddenPaths;
};

} // namespace ItemVisibility

#endif
