#pragma once

#include <string_view>
#include <variant>

#include "Described.h"
#include "Requests/DaemonControls.h"
#include "Requests/RuleControls.h"
#include "Requests/StoreControls.h"

namespace wendlow {

/// What the daemon is told to do to itself or to the store's surroundings. Not idempotent in
/// general.
struct ControlRequest
    : std::variant<ControlCase::AddRule, ControlCase::RemoveRule, ControlCase::ToggleRule,
                   ControlCase::AddConcept, ControlCase::RemoveConcept, ControlCase::Forget,
                   ControlCase::DeleteUtterance, ControlCase::ConnectApp,
                   ControlCase::DisconnectApp, ControlCase::EnterPhrase, ControlCase::PauseFor,
                   ControlCase::Export, ControlCase::SetDiagnosticLogging,
                   ControlCase::SetFrameKeep, ControlCase::SetReelKeep, ControlCase::LogUpdate,
                   ControlCase::RequestGrant, ControlCase::StoreKeyForMigration,
                   ControlCase::DeleteAll, ControlCase::RevealPhrase, ControlCase::Pause,
                   ControlCase::Resume, ControlCase::GeneratePhrase, ControlCase::Shutdown> {
    WENDLOW_CASES(ControlRequest);

    static constexpr std::string_view typeName = "ControlRequest";

    /// The snake-case word that names the request in logs and refusals.
    std::string_view verb() const;
};

} // namespace wendlow
