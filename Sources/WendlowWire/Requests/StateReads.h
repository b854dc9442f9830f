#pragma once

#include <cstdint>
#include <optional>

#include "Described.h"

namespace wendlow {

/// Questions about the state of the daemon.
namespace ReadCase {

struct Health {
    WENDLOW_REQUEST(Health, "health", "health");
};

struct DaemonBuild {
    WENDLOW_REQUEST(DaemonBuild, "daemonBuild", "daemon_build");
};

struct FrontState {
    WENDLOW_REQUEST(FrontState, "frontState", "front_state");
};

struct RecoveryState {
    WENDLOW_REQUEST(RecoveryState, "recoveryState", "recovery_state");
};

struct ClassifierStatus {
    WENDLOW_REQUEST(ClassifierStatus, "classifierStatus", "classifier_status");
};

struct ConnectedApps {
    WENDLOW_REQUEST(ConnectedApps, "connectedApps", "connected_apps");
};

struct GetRules {
    WENDLOW_REQUEST(GetRules, "getRules", "get_rules");
};

struct ModsList {
    WENDLOW_REQUEST(ModsList, "modsList", "mods");
};

struct ModBoard {
    std::optional<std::int64_t> limit = std::nullopt;
    WENDLOW_REQUEST(ModBoard, "modBoard", "mod_board", limit);
};

struct DiagnosticLoggingState {
    WENDLOW_REQUEST(DiagnosticLoggingState, "diagnosticLoggingState", "diagnostic_logging_state");
};

struct FrameKeepState {
    WENDLOW_REQUEST(FrameKeepState, "frameKeepState", "frame_keep_state");
};

struct FrameStats {
    WENDLOW_REQUEST(FrameStats, "frameStats", "frame_stats");
};

struct ReelKeepState {
    WENDLOW_REQUEST(ReelKeepState, "reelKeepState", "reel_keep_state");
};

struct ReelStats {
    WENDLOW_REQUEST(ReelStats, "reelStats", "reel_stats");
};

struct DiskUsed {
    WENDLOW_REQUEST(DiskUsed, "diskUsed", "disk_used");
};

struct Grants {
    WENDLOW_REQUEST(Grants, "grants", "grants");
};

} // namespace ReadCase
} // namespace wendlow
