#pragma once

#include <QObject>
#include <QtQmlIntegration/qqmlintegration.h>

namespace wendlow {

/// What the Settings window asks of the model of a pane, whichever it is. An object of the UI
/// thread; it lives as long as the window, and its face comes and goes.
class PaneModel : public QObject {
    Q_OBJECT
    QML_ANONYMOUS

public:
    /// A person is about to see the pane, or comes back to it: reads what may have changed
    /// meanwhile, unless it is at that already. Returns at once.
    virtual void refresh() = 0;
    /// Something has been read, and nothing more is on its way.
    virtual bool settled() const = 0;
};

} // namespace wendlow
