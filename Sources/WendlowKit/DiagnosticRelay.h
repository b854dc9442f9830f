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

    /// The client lives until the last note is answered, for notes are sent when the relay and
    /// its owner may be gone.
    DiagnosticRelay(DiagnosticSource source, std::shared_ptr<WendlowClient> client);
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
