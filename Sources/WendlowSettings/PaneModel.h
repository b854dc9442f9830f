#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>
#include <string>

namespace wendlow {

/// What the Settings window asks of the model of a pane, whichever it is. An object of the UI
/// thread; it lives as long as the window, and its face comes and goes.
class PaneModel : public QObject {
    Q_OBJECT
    QML_ANONYMOUS

public:
    using Log = std::function<void(const std::string& line)>;

    /// A person is about to see the pane, or comes back to it: reads what may have changed
    /// meanwhile, unless it is at that already. Returns at once.
    Q_INVOKABLE virtual void refresh() = 0;
    /// Nobody sees the pane any more, for another one or because the window was closed.
    virtual void left() {}
    /// Something has been read, and nothing more is on its way.
    virtual bool settled() const = 0;
    /// The application has started, and its first window is on the screen: does what a start brings
    /// with it, and tells `log` of it. Called once, and not when pictures are taken.
    virtual void started(const Log& log) { Q_UNUSED(log) }

Q_SIGNALS:
    /// A person who does not see the pane is to hear this.
    void said(const QString& words);
};

} // namespace wendlow
