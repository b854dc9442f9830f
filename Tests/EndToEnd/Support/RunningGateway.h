#pragma once

#include "GatewayProcess.h"
#include "Support/Desktop.h"

#include <QJsonObject>

#include <optional>
#include <string>
#include <vector>

namespace wendlow::testing {

/// The practice gateway's real process on a desktop's bus. Its memories outlive it.
class RunningGateway {
public:
    /// Nothing runs yet.
    explicit RunningGateway(const Desktop& desktop) : m_desktop(desktop) {}

    /// Starts it in place of the one that runs, with a day's memories unless it has some already.
    /// `rules`: what is wrong with them, if anything.
    void start(const std::string& replies = "answer", const std::string& rules = "");
    /// The same with these words on its command line.
    void startWith(const std::vector<std::string>& more);
    /// Takes messages and does nothing about them.
    void wedge() const { m_process->wedge(); }
    void kill() { m_process.reset(); }

    /// What `wendlow-ask` prints as the answer to a request, without the name of its case.
    QJsonObject ask(const std::string& request) const;
    /// The answer to a browse of memories by these fields.
    QJsonObject browse(const std::string& fields) const;

private:
    const Desktop& m_desktop;
    std::optional<GatewayProcess> m_process;
};

} // namespace wendlow::testing
