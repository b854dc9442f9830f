#include "Report.h"

#include "SafeText.h"
#include "Say.h"

#include <chrono>
#include <ctime>
#include <utility>

#include <fmt/format.h>

namespace wendlow::connect {

namespace {

using SafeText::shown;

JSONLiteral text(std::string_view bytes) {
    return SafeText::literal(bytes);
}

JSONLiteral list(const Observations& observations) {
    JSONLiteral::Array elements;
    for (const Observation& observation : observations)
        elements.push_back(JSONLiteral::object(
            {{"subject", text(observation.subject)}, {"text", text(observation.text)}}));
    return JSONLiteral::array(std::move(elements));
}

JSONLiteral seconds(FileDate date) {
    return JSONLiteral::number(
        std::chrono::floor<std::chrono::seconds>(date).time_since_epoch().count());
}

JSONLiteral object(const ConnectorMemoryFile& file) {
    JSONLiteral::Object members{{"path", text(file.path)}};
    if (file.bytes)
        members.push_back({"bytes", JSONLiteral::number(*file.bytes)});
    if (file.modified)
        members.push_back({"modified", seconds(*file.modified)});
    return JSONLiteral::object(std::move(members));
}

JSONLiteral object(const ConnectorProject& project) {
    JSONLiteral::Object members{{"path", text(project.path)},
                                {"lastActivity", seconds(project.lastActivity)}};
    if (project.memory)
        members.push_back({"memory", object(*project.memory)});
    return JSONLiteral::object(std::move(members));
}

/// In the machine's time zone, as digits: a date that reads alike in every language.
std::string day(FileDate date) {
    const std::time_t time = std::chrono::system_clock::to_time_t(date);
    std::tm parts{};
    if (date == distantPast || ::localtime_r(&time, &parts) == nullptr)
        return say("no date");
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}", parts.tm_year + 1900, parts.tm_mon + 1,
                       parts.tm_mday, parts.tm_hour, parts.tm_min);
}

} // namespace

void Report::add(const ScanReport& scan) {
    const ConnectorIdentity& who = scan.identity;
    m_elements.push_back(JSONLiteral::object({{"id", text(who.id)},
                                              {"name", text(who.name)},
                                              {"detail", text(who.detail)},
                                              {"symbol", text(who.symbol)},
                                              {"state", text(wendlow::text(scan.state))},
                                              {"observations", list(scan.observations)}}));
    head(who.name, wendlow::text(scan.state));
    lines(scan.observations);
}

void Report::add(const std::optional<std::string>& id, const std::string& name,
                 const ConnectorOutcome& outcome) {
    JSONLiteral::Object members;
    if (id)
        members.push_back({"id", text(*id)});
    JSONLiteral::Array backups;
    for (const auto& backup : outcome.backups)
        backups.push_back(text(backup.string()));
    members.push_back({"name", text(name)});
    members.push_back({"result", text(wendlow::text(outcome.result))});
    members.push_back({"observations", list(outcome.observations)});
    members.push_back({"backups", JSONLiteral::array(std::move(backups))});
    m_elements.push_back(JSONLiteral::object(std::move(members)));
    head(name, wendlow::text(outcome.result));
    lines(outcome.observations);
}

void Report::add(const ConnectorIdentity& identity, const ProjectReport& projects) {
    JSONLiteral::Object members{{"id", text(identity.id)}};
    if (projects.source)
        members.push_back({"source", text(*projects.source)});
    if (projects.note)
        members.push_back({"note", text(*projects.note)});
    JSONLiteral::Array elements;
    head(identity.name, "");
    for (const ConnectorProject& project : projects.projects) {
        elements.push_back(object(project));
        line(say("{}: last active {}", project.path, day(project.lastActivity)));
    }
    members.push_back({"projects", JSONLiteral::array(std::move(elements))});
    m_elements.push_back(JSONLiteral::object(std::move(members)));
    if (projects.note)
        line(projects.source ? fmt::format("{}: {}", *projects.source, *projects.note)
                             : *projects.note);
}

void Report::add(const ConnectorIdentity& identity, const MemoryFileReport& memory) {
    JSONLiteral::Array files;
    head(identity.name, "");
    for (const ConnectorMemoryFile& file : memory.files) {
        files.push_back(object(file));
        line(file.bytes
                 ? say.plural(*file.bytes, "{}: {} bytes", "{}: {} bytes", file.path, *file.bytes)
                 : file.path);
    }
    if (memory.files.empty())
        line(say("no memory files found"));
    m_elements.push_back(JSONLiteral::object(
        {{"id", text(identity.id)}, {"files", JSONLiteral::array(std::move(files))}}));
}

void Report::add(const ConnectorIdentity& identity, bool stale) {
    m_elements.push_back(
        JSONLiteral::object({{"id", text(identity.id)}, {"stale", JSONLiteral::boolean(stale)}}));
    head(identity.name, "");
    line(stale ? say("the wiring of this installation is stale, and install would repair it")
               : say("there is no stale wiring of this installation"));
}

void Report::remark(std::string_view sentence) {
    m_lines += fmt::format("{}\n", sentence);
}

std::string Report::json() const {
    return JSONLiteral{m_elements}.render("", "  ", {.multiline = true, .newline = "\n"}) + "\n";
}

void Report::head(const std::string& name, std::string_view status) {
    m_lines += status.empty() ? fmt::format("{}\n", name) : fmt::format("{}: {}\n", name, status);
}

void Report::line(const std::string& text) {
    m_lines += fmt::format("  {}\n", shown(text));
}

void Report::lines(const Observations& observations) {
    for (const Observation& observation : observations)
        line(fmt::format("{}: {}", observation.subject, observation.text));
}

} // namespace wendlow::connect
