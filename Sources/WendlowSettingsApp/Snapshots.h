#pragma once

#include "LaunchOptions.h"
#include "SettingsApplication.h"
#include "ThemeSource.h"
#include "WindowPictures.h"

#include <QString>

#include <string>

namespace wendlow {

/// Pictures of every window, light and dark, as PNG files in one folder. The windows show the home
/// folder's true state. UI thread; runs the event loop while it waits for what the windows load.
class Snapshots final {
public:
    /// To the folder of the options, which is to be given. Their size replaces that of every window
    /// that can be resized.
    Snapshots(SettingsApplication& application, const LaunchOptions& options);

    /// Takes them all. Gives the process's exit status: 0, or 1 with words on standard error, also
    /// where something in a window is not as it should be.
    int take();

private:
    void takeInLooks();
    void takeShortcuts();
    QQuickWindow& shown(const WindowDescription& description);
    void save(QQuickWindow& window, const QString& name, PictureSession::Focus focus);

    SettingsApplication& m_application;
    const LaunchOptions m_options;
    QString m_looks; ///< "light" or "dark"
    std::string m_fault;
};

} // namespace wendlow
