#include "MockConnector.h"

#include <utility>

namespace wendlow {

namespace {

void call(const std::function<void()>& callback) {
    if (callback)
        callback();
}

} // namespace

MockConnector::MockConnector(ConnectorIdentity identity, Script script)
    : m_identity(std::move(identity)), m_script(std::move(script)) {}

MockConnector::MockConnector(ConnectorIdentity identity)
    : MockConnector(std::move(identity), Script{}) {}

void MockConnector::becomes(ConnectorState state, std::optional<Observations> observations) {
    becomes(state, std::move(observations), Change{});
}

void MockConnector::becomes(ConnectorState state, std::optional<Observations> observations,
                            Change change) {
    const std::lock_guard guard(m_lock);
    m_script.state = state;
    if (observations)
        m_script.observations = *std::move(observations);
    if (change.facts)
        m_script.facts = *change.facts;
    if (change.refuses)
        m_script.refuses = *change.refuses;
    if (change.verbObservations)
        m_script.verbObservations = std::move(change.verbObservations);
    if (change.backups)
        m_script.backups = *std::move(change.backups);
}

std::vector<std::string> MockConnector::log() const {
    const std::lock_guard guard(m_lock);
    return m_calls;
}

ConnectorIdentity MockConnector::identity() const {
    return m_identity;
}

// The callbacks are never changed after construction, so they are read without the lock.
ScanReport MockConnector::scan() const {
    call(m_script.onScan);
    ScanReport report;
    report.identity = m_identity;
    {
        const std::lock_guard guard(m_lock);
        m_calls.emplace_back("scan");
        report.state = m_script.state;
        report.observations = m_script.observations;
        report.facts = m_script.facts;
    }
    call(m_script.afterScan);
    return report;
}

ProjectReport MockConnector::projects() const {
    const std::lock_guard guard(m_lock);
    m_calls.emplace_back("projects");
    return m_script.projectReport;
}

MemoryFileReport MockConnector::memoryFiles() const {
    const std::lock_guard guard(m_lock);
    m_calls.emplace_back("memoryFiles");
    return m_script.memoryFileReport;
}

ConnectorOutcome MockConnector::install() const {
    return verb("install");
}

ConnectorOutcome MockConnector::remove() const {
    return verb("remove");
}

bool MockConnector::staleOwnWiring() const {
    const std::lock_guard guard(m_lock);
    return m_script.staleOwnWiring;
}

ConnectorOutcome MockConnector::verb(const char* name) const {
    call(m_script.onVerb);
    const std::lock_guard guard(m_lock);
    m_calls.emplace_back(name);
    using Result = ConnectorOutcome::Result;
    return {.result = m_script.refuses              ? Result::refused
                      : m_script.verbsChangeNothing ? Result::unchanged
                                                    : Result::changed,
            .observations = m_script.verbObservations.value_or(m_script.observations),
            .backups = m_script.backups};
}

} // namespace wendlow
