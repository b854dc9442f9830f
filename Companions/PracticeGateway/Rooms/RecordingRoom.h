#pragma once

#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Clock.h"
#include "ControlRequest.h"
#include "DocumentStore.h"
#include "GatewayResponse.h"
#include "ReadRequest.h"
#include "Settings.h"

namespace wendlow {

/// What may be recorded: the rules, the pauses, and what that makes of the front window. There is
/// no window here to look at: the newest moment stands for it. Throws `DatabaseError`.
class RecordingRoom {
public:
    static std::string_view schema();

    RecordingRoom(DocumentStore& documents, Clock clock);

    GatewayResponse answer(const ReadCase::GetRules& request);
    /// `none` during a pause, `unknown` where no moment is; else what the strictest rule on the
    /// front window says. Topics are not judged: that takes a model.
    GatewayResponse answer(const ReadCase::FrontState& request);
    /// A rule that is there already changes its tier and is on.
    GatewayResponse answer(const ControlCase::AddRule& request);
    GatewayResponse answer(const ControlCase::RemoveRule& request);
    GatewayResponse answer(const ControlCase::ToggleRule& request);
    /// A concept is a topic of which nothing is recorded.
    GatewayResponse answer(const ControlCase::AddConcept& request);
    GatewayResponse answer(const ControlCase::RemoveConcept& request);
    GatewayResponse answer(const ControlCase::Pause& request);
    GatewayResponse answer(const ControlCase::PauseFor& request);
    GatewayResponse answer(const ControlCase::Resume& request);

    /// "paused", with the time at which it ends where it does so by itself; nothing while it is
    /// recorded.
    std::optional<std::string> pause();

    /// Adds a rule, or gives the one that is there this tier and turns it on.
    void put(RuleKind kind, std::string_view value, RuleTier tier, RuleOrigin origin);

private:
    std::vector<Rule> rules();
    bool applies(const Rule& rule, const Statement& front);
    GatewayResponse add(RuleKind kind, std::string_view value, RuleTier tier);

    DocumentStore& m_documents;
    Settings m_settings;
    Clock m_clock;
};

} // namespace wendlow
