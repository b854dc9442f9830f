#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QCoroTask>

#include "Client.h"
#include "DiagnosticSource.h"

namespace wendlow {

/// Lets a model write lines into the daemon's log without caring whether they get there. A line
/// that fails is lost: never reported, and not tried again. Belongs to the UI thread.
class DiagnosticRelay {
public:
    using Ask = std::function<QCoro::Task<GatewayResponse>(DiagnosticRequest)>;

    /// The client must outlive the event loop's next turn after the last note, as it does where
    /// it lives as long as the process.
    DiagnosticRelay(DiagnosticSource source, WendlowClient& client);
    /// Without a client, for a model that is run without one.
    DiagnosticRelay(DiagnosticSource source, Ask ask);

    /// Returns at once; the line is sent from the event loop, after the relay too. Lines have no
    /// order among themselves.
    void note(std::string line) const;

private:
    const DiagnosticSource m_source;
    const std::shared_ptr<const Ask> m_ask; ///< shared with the notes that are under way
};

} // namespace wendlow
