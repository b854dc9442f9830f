#include "DaemonRoom.h"

#include <iterator>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <unistd.h>

#include "ClientInstance.h"
#include "ClientStoreMode.h"
#include "ClientVersion.h"
#include "DiagnosticSource.h"
#include "LocalTime.h"
#include "StoreKeyWire.h"

namespace wendlow {

namespace {

constexpr std::string_view tables = R"(
CREATE TABLE IF NOT EXISTS connected_apps (name TEXT PRIMARY KEY) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS log (
    number INTEGER PRIMARY KEY, at REAL NOT NULL, category TEXT NOT NULL, line TEXT NOT NULL);
)";

constexpr std::int64_t keptLines = 10'000;

} // namespace

std::string_view DaemonRoom::schema() {
    return tables;
}

DaemonRoom::DaemonRoom(PracticeDatabase& database, Clock clock)
    : m_database(database), m_settings(database), m_clock(std::move(clock)),
      m_trace(database.file().parent_path() / ClientInstance::traceLogName) {}

void DaemonRoom::keepTraceLogAt(std::filesystem::path file) {
    m_trace = std::move(file);
    if (keepsTrace())
        trace("the gateway has started");
}

bool DaemonRoom::trace(std::string_view line) {
    if (const auto made = ClientStoreMode::createFolder(m_trace.parent_path()); !made)
        return false;
    // What stands in it is for nobody else to read.
    const int file =
        ::open(m_trace.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, ClientStoreMode::file);
    if (file < 0)
        return false;
    const std::string text = fmt::format("{} {}\n", LocalTime::minute(secondsOf(m_clock())), line);
    const bool written = ::write(file, text.data(), text.size()) == std::ssize(text);
    return ::close(file) == 0 && written;
}

GatewayResponse DaemonRoom::answer(const ReadCase::DaemonBuild& /*request*/) {
    return AnswerCase::Text{fmt::format("practice gateway {}", ClientVersion::current())};
}

GatewayResponse DaemonRoom::answer(const ReadCase::DiagnosticLoggingState& /*request*/) {
    return AnswerCase::Flag{keepsTrace()};
}

GatewayResponse DaemonRoom::answer(const ControlCase::SetDiagnosticLogging& request) {
    std::error_code error;
    if (request._0 ? !trace("the log begins") : !std::filesystem::remove(m_trace, error) && error)
        return AnswerCase::Failure{fmt::format("the log at {} could not be {}; nothing was changed",
                                               m_trace.string(), request._0 ? "made" : "deleted")};
    m_settings.setFlag(diagnosticLogging, request._0);
    return AnswerCase::Ok{};
}

GatewayResponse DaemonRoom::answer(const ReadCase::ConnectedApps& /*request*/) {
    std::vector<std::string> names;
    Statement all = m_database.prepare("SELECT name FROM connected_apps ORDER BY name");
    while (all.step())
        names.push_back(all.text(0));
    return AnswerCase::Text{fmt::format("{}", fmt::join(names, "\n"))};
}

GatewayResponse DaemonRoom::answer(const ControlCase::ConnectApp& request) {
    m_database.run("INSERT OR IGNORE INTO connected_apps VALUES (?)", request._0);
    return AnswerCase::Ok{};
}

GatewayResponse DaemonRoom::answer(const ControlCase::DisconnectApp& request) {
    m_database.run("DELETE FROM connected_apps WHERE name = ?", request._0);
    return AnswerCase::Ok{};
}

GatewayResponse DaemonRoom::answer(const ControlCase::LogUpdate& request) {
    log("update", request.line);
    return AnswerCase::Ok{};
}

GatewayResponse DaemonRoom::answer(const ControlCase::StoreKeyForMigration& /*request*/) {
    return AnswerCase::Failure{std::string(StoreKeyWire::noKeyOnThisProfile)};
}

GatewayResponse DaemonRoom::answer(const ControlCase::Export& /*request*/) {
    return AnswerCase::Failure{"the practice gateway writes no files but its own"};
}

GatewayResponse DaemonRoom::answer(const ControlCase::Shutdown& /*request*/) {
    return AnswerCase::Ok{};
}

GatewayResponse DaemonRoom::answer(const DiagnosticCase::Log& request) {
    log(DiagnosticSources::category(request.source), request.line);
    return AnswerCase::Ok{};
}

void DaemonRoom::log(std::string_view category, std::string_view line) {
    m_database.run("INSERT INTO log (at, category, line) VALUES (?, ?, ?)", secondsOf(m_clock()),
                   category, line);
    if (keepsTrace())
        trace(fmt::format("{}: {}", category, line));
    m_database.run("DELETE FROM log WHERE number <= ?", m_database.lastRowID() - keptLines);
}

} // namespace wendlow
