#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace wendlow {

/// Turns SIGTERM, SIGINT and SIGHUP into an orderly quit of the application, so that a change to a
/// person's files that is under way is finished. One object per process, on the UI thread.
class TerminationSignals final : public QObject {
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace wendlow
