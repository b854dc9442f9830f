#pragma once

#include <filesystem>
#include <string_view>

#include "Clock.h"
#include "ControlRequest.h"
#include "DiagnosticRequest.h"
#include "GatewayResponse.h"
#include "PracticeDatabase.h"
#include "ReadRequest.h"
#include "Settings.h"

namespace wendlow {

/// What concerns the gateway itself: its build, its log, and the tools that said they are
/// connected. Throws `DatabaseError`.
class DaemonRoom {
public:
    static std::string_view schema();

    DaemonRoom(PracticeDatabase& database, Clock clock);

    GatewayResponse answer(const ReadCase::DaemonBuild& request);
    GatewayResponse answer(const ReadCase::DiagnosticLoggingState& request);
    GatewayResponse answer(const ReadCase::ConnectedApps& request);
    /// The log is a file for as long as it is kept, and gone afterwards.
    GatewayResponse answer(const ControlCase::SetDiagnosticLogging& request);
    GatewayResponse answer(const ControlCase::ConnectApp& request);
    GatewayResponse answer(const ControlCase::DisconnectApp& request);
    GatewayResponse answer(const ControlCase::LogUpdate& request);
    /// There is nothing to hand out, and nowhere else to write to.
    GatewayResponse answer(const ControlCase::StoreKeyForMigration& request);
    GatewayResponse answer(const ControlCase::Export& request);
    /// Whoever runs the gateway ends it once this is answered.
    GatewayResponse answer(const ControlCase::Shutdown& request);
    GatewayResponse answer(const DiagnosticCase::Log& request);

    /// Where the diagnostic log is; before it is told, beside the database. One that is kept is
    /// gone on with.
    void keepTraceLogAt(std::filesystem::path file);

private:
    static constexpr std::string_view diagnosticLogging = "diagnosticLogging";

    bool keepsTrace() { return m_settings.flag(diagnosticLogging, false); }
    /// Adds a line, making the file where it lacks. False: it cannot be written.
    bool trace(std::string_view line);
    void log(std::string_view category, std::string_view line);

    PracticeDatabase& m_database;
    Settings m_settings;
    Clock m_clock;
    std::filesystem::path m_trace;
};

} // namespace wendlow
