#pragma once

#include <cstdint>
#include <string>

#include "Described.h"

namespace wendlow {

/// What the daemon is told to do to itself.
namespace ControlCase {

struct Pause {
    WENDLOW_REQUEST(Pause, "pause", "pause");
};

struct PauseFor {
    std::int64_t minutes = 0;
    WENDLOW_REQUEST(PauseFor, "pauseFor", "pause_for", minutes);
};

struct Resume {
    WENDLOW_REQUEST(Resume, "resume", "resume");
};

struct Shutdown {
    WENDLOW_REQUEST(Shutdown, "shutdown", "shutdown");
};

struct ConnectApp {
    std::string _0;
    WENDLOW_REQUEST(ConnectApp, "connectApp", "connect_app", _0);
};

struct DisconnectApp {
    std::string _0;
    WENDLOW_REQUEST(DisconnectApp, "disconnectApp", "disconnect_app", _0);
};

struct SetDiagnosticLogging {
    bool _0 = false;
    WENDLOW_REQUEST(SetDiagnosticLogging, "setDiagnosticLogging", "set_diagnostic_logging", _0);
};

struct SetFrameKeep {
    bool _0 = false;
    WENDLOW_REQUEST(SetFrameKeep, "setFrameKeep", "set_frame_keep", _0);
};

struct SetReelKeep {
    bool _0 = false;
    WENDLOW_REQUEST(SetReelKeep, "setReelKeep", "set_reel_keep", _0);
};

/// A line for the daemon's update log.
struct LogUpdate {
    std::string line;
    WENDLOW_REQUEST(LogUpdate, "logUpdate", "log_update", line);
};

/// `kind` is that of a `GrantRow`.
struct RequestGrant {
    std::string kind;
    WENDLOW_REQUEST(RequestGrant, "requestGrant", "request_grant", kind);
};

} // namespace ControlCase
} // namespace wendlow
