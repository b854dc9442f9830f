#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace wendlow {

/// Turns SIGTERM, SIGINT and SIGHUP into an orderly quit of the application, so that a change to a
/// person's files that is under way is finished. Ending takes a second at most: whatever still
/// waits for a disk or a bus then is left, which is no worse for the files than a power cut. One
/// object per process, on the UI thread.
class TerminationSignals final : public QObject {
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

    /// To be called when the event loop has ended: from here on the process has its second to end
    /// with `status`, which is handed back.
    static int leave(int status);

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace wendlow
