#pragma once

#include "GatewayProcess.h"
#include "Support/Desktop.h"

#include <QJsonObject>

#include <filesystem>
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
    /// `rules`: what is wrong with them, if anything; `days`: what is odd about these.
    void start(const std::string& replies = "answer", const std::string& rules = "",
               const std::string& days = "");
    /// The same, with these options.
    void startWith(std::vector<std::string> options);
    std::string fill = "day";      ///< what it begins with
    std::vector<std::string> more; ///< options, with each start
    /// Takes messages and does nothing about them.
    void wedge() const { m_process->wedge(); }
    void kill() { m_process.reset(); }
    /// Its file, where the daemon's would be.
    std::filesystem::path store() const;

    /// What `wendlow-ask` prints as the answer to a request, without the name of its case.
    QJsonObject ask(const std::string& request) const;
    /// The answer to a browse by these fields.
    QJsonObject browse(const std::string& fields, const std::string& kind = "memory") const;

private:
    const Desktop& m_desktop;
    std::optional<GatewayProcess> m_process;
};

} // namespace wendlow::testing
