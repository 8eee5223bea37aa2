#ifndef SDK_PROJECTMODE_H
#define SDK_PROJECTMODE_H

#include "sdk/sdkglobal.h"

#include <QObject>

namespace Utils {

/// What the user may do with the job at the moment, as a set of flags that the host keeps up to
/// date.
class SDK_EXPORT ProjectMode : public QObject
{
    Q_OBJECT

public:
    /// Flags the host sets; a mode may hold several.
    enum Flag {
        Locked = 0x1, ///< The job is running: the widgets look locked.
        Released = 0x10, ///< Editing is open again.
        EditingBlocked = 0x1000, ///< With Locked, no node may be edited.
        HardLocked = 0x10000 ///< Nothing may be touched.
    };
    Q_ENUM(Flag)

    /// Makes a mode without flags.
    explicit ProjectMode(QObject* parent = nullptr);
    ~ProjectMode() override;

    /// The whole mode.
    int projectMode() const;
    /// Whether every bit of @p flag is set; a flag of 0 is never contained.
    bool contains(int flag) const;

    /// Sets the whole mode; emits modeChanged() when it differs from the former one.
    void setProjectMode(int mode);

signals:
    /// The mode changed.
    void modeChanged();

private:
    int m_iMode = 0;
};

} // namespace Utils

#endif
