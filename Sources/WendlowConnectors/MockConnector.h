#pragma once

#include "Connector.h"

#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

/// A whole connector that answers as it was told to, for hosts and previews. Shared by reference;
/// any thread. One lock guards the script and the log; callbacks run outside of it, so that they
/// may call `becomes`.
class MockConnector final : public Connector {
public:
    /// What the mock answers. Set at construction; `becomes` changes part of it later.
    struct Script {
        // GCC wants an initializer for each field that a designated list may leave out.
        // NOLINTBEGIN(readability-redundant-member-init)
        ConnectorState state = ConnectorState::found;
        Observations observations{};
        ScanFacts facts{};
        bool refuses = false;            ///< verbs are refused; comes before `verbsChangeNothing`
        bool verbsChangeNothing = false; ///< verbs return `unchanged`
        std::optional<Observations> verbObservations =
            std::nullopt;                             ///< nothing: verbs report `observations`
        std::vector<std::filesystem::path> backups{}; ///< what verbs report
        ProjectReport projectReport{};
        MemoryFileReport memoryFileReport{};
        // NOLINTEND(readability-redundant-member-init)
        bool staleOwnWiring = false;
        std::function<void()> onScan = nullptr; ///< before a scan looks at the script
        std::function<void()> onVerb =
            nullptr; ///< before `install` and `remove` look at the script
        std::function<void()> afterScan =
            nullptr; ///< after a scan has made its report, before it returns
    };
    /// What `becomes` changes; what is left out keeps its value.
    struct Change {
        std::optional<bool> refuses = std::nullopt;
        std::optional<ScanFacts> facts = std::nullopt;
        std::optional<Observations> verbObservations = std::nullopt;
        std::optional<std::vector<std::filesystem::path>> backups = std::nullopt;
    };

    MockConnector(ConnectorIdentity identity, Script script);
    explicit MockConnector(ConnectorIdentity identity);

    void becomes(ConnectorState state, std::optional<Observations> observations = {});
    void becomes(ConnectorState state, std::optional<Observations> observations, Change change);
    /// The operations called so far, by name and in order. `identity` and `staleOwnWiring` are not
    /// logged.
    std::vector<std::string> log() const;

    ConnectorIdentity identity() const override;
    ScanReport scan() const override;
    ProjectReport projects() const override;
    MemoryFileReport memoryFiles() const override;
    ConnectorOutcome install() const override;
    ConnectorOutcome remove() const override;
    bool staleOwnWiring() const override;

private:
    ConnectorOutcome verb(const char* name) const;

    const ConnectorIdentity m_identity;
    mutable std::mutex m_lock;
    Script m_script;
    mutable std::vector<std::string> m_calls;
};

} // namespace wendlow
