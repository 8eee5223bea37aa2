#ifndef SDK_METRICS_H
#define SDK_METRICS_H

#include "sdk/sdkglobal.h"

class QWidget;

namespace App {

/// Placement of the application's windows.
class SDK_EXPORT Metrics
{
public:
    /// Moves @p widget so that it is centred over @p parent, or over the screen when @p parent
    /// is null, keeping it inside the screen's available area. Does nothing for a null widget.
    static void centerParent(QWidget* parent, QWidget* widget);
    /// The application's main window: the one set with setMainWindow(), or else the first
    /// top-level QMainWindow; with @p visibleOnly, only a visible one counts. Null when none.
    static QWidget* getMainWindow(bool visibleOnly);
    /// Makes @p window the main window that getMainWindow() returns; null goes back to the
    /// search.
    static void setMainWindow(QWidget* window);

    Metrics() = delete;
};

} // namespace App

#endif
