#include "RecordingRoom.h"

#include <charconv>
#include <utility>

#include <fmt/format.h>

#include "LocalTime.h"
#include "PlainText.h"
#include "RawString.h"

namespace wendlow {
namespace {

constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS recording_rules(
    number INTEGER PRIMARY KEY AUTOINCREMENT, kind TEXT NOT NULL, value TEXT NOT NULL,
    tier TEXT NOT NULL, origin TEXT NOT NULL, enabled INTEGER NOT NULL, UNIQUE(kind, value));
)sql";

/// When a pause ends, in seconds since 1970; 0 for one that does not end by itself.
constexpr std::string_view pauseEnd = "pauseEnd";

constexpr std::string_view withID = "'r' || number = ?";

std::string said(std::string_view id) {
    return fmt::format("no rule has the id “{}”; nothing was changed", id);
}

bool sameHost(std::string_view host, std::string_view ruled) {
    return host == ruled || (host.ends_with(ruled) && host[host.size() - ruled.size() - 1] == '.');
}

} // namespace

std::string_view RecordingRoom::schema() {
    return tables;
}

RecordingRoom::RecordingRoom(DocumentStore& documents, Clock clock)
    : m_documents(documents), m_settings(documents.database()), m_clock(std::move(clock)) {}

std::vector<Rule> RecordingRoom::rules() {
    std::vector<Rule> rules;
    Statement rows = m_documents.database().prepare(
        "SELECT number, kind, value, tier, origin, enabled FROM recording_rules ORDER BY number");
    while (rows.step())
        rules.push_back(
            {.id = fmt::format("r{}", rows.integer(0)),
             .kind = OpenCase<RuleKind>::ofWord(rows.text(1)),
             .value = rows.text(2),
             .tier = OpenCase<RuleTier>::ofWord(rows.text(3)),
             .origin = fromRawString<RuleOrigin>(rows.view(4)).value_or(RuleOrigin::user),
             .enabled = rows.boolean(5)});
    return rules;
}

GatewayResponse RecordingRoom::answer(const ReadCase::GetRules& /*request*/) {
    return AnswerCase::Rules{rules()};
}

GatewayResponse RecordingRoom::add(RuleKind kind, std::string_view value, RuleTier tier) {
    const std::string_view text = PlainText::trimmed(value);
    if (text.empty())
        return AnswerCase::Failure{"a rule needs something to look for; nothing was changed"};
    put(kind, text, tier, RuleOrigin::user);
    return AnswerCase::Ok{};
}

GatewayResponse RecordingRoom::answer(const ControlCase::AddRule& request) {
    const auto kind = fromRawString<RuleKind>(request.kind);
    const auto tier = fromRawString<RuleTier>(request.tier);
    if (!kind || !tier)
        return AnswerCase::Failure{fmt::format("“{}” is no {} of a rule; nothing was changed",
                                               kind ? request.tier : request.kind,
                                               kind ? "tier" : "kind")};
    return add(*kind, request.value, *tier);
}

GatewayResponse RecordingRoom::answer(const ControlCase::RemoveRule& request) {
    PracticeDatabase& database = m_documents.database();
    database.run(fmt::format("DELETE FROM recording_rules WHERE {}", withID), request.id);
    if (database.changes() == 0)
        return AnswerCase::Failure{said(request.id)};
    return AnswerCase::Ok{};
}

GatewayResponse RecordingRoom::answer(const ControlCase::ToggleRule& request) {
    PracticeDatabase& database = m_documents.database();
    database.run(fmt::format("UPDATE recording_rules SET enabled = ? WHERE {}", withID),
                 request.enabled, request.id);
    if (database.changes() == 0)
        return AnswerCase::Failure{said(request.id)};
    return AnswerCase::Ok{};
}

GatewayResponse RecordingRoom::answer(const ControlCase::AddConcept& request) {
    return add(RuleKind::topic, request._0, RuleTier::never);
}

GatewayResponse RecordingRoom::answer(const ControlCase::RemoveConcept& request) {
    PracticeDatabase& database = m_documents.database();
    database.run("DELETE FROM recording_rules WHERE kind = ? AND value = ?",
                 rawString(RuleKind::topic), PlainText::trimmed(request._0));
    if (database.changes() == 0)
        return AnswerCase::Failure{
            fmt::format("“{}” is no concept here; nothing was changed", request._0)};
    return AnswerCase::Ok{};
}

GatewayResponse RecordingRoom::answer(const ControlCase::Pause& /*request*/) {
    m_settings.set(pauseEnd, "0");
    return AnswerCase::Ok{};
}

GatewayResponse RecordingRoom::answer(const ControlCase::PauseFor& request) {
    constexpr std::int64_t year = 366LL * 24 * 60;
    if (request.minutes < 1 || request.minutes > year)
        return AnswerCase::Failure{"a pause takes a minute at least and a year at most; nothing "
                                   "was changed"};
    const auto end = m_clock() + std::chrono::minutes(request.minutes);
    m_settings.set(pauseEnd, fmt::format("{:.0f}", secondsOf(end)));
    return AnswerCase::Ok{};
}

GatewayResponse RecordingRoom::answer(const ControlCase::Resume& /*request*/) {
    m_settings.remove(pauseEnd);
    return AnswerCase::Ok{};
}

std::optional<std::string> RecordingRoom::pause() {
    const auto kept = m_settings.value(pauseEnd);
    if (!kept)
        return std::nullopt;
    std::int64_t end = 0;
    std::from_chars(kept->data(), kept->data() + kept->size(), end);
    if (end == 0)
        return "paused";
    const auto seconds = static_cast<double>(end);
    return seconds > secondsOf(m_clock())
               ? std::optional(fmt::format("paused (resumes {})", LocalTime::clock(seconds)))
               : std::nullopt;
}

GatewayResponse RecordingRoom::answer(const ReadCase::FrontState& /*request*/) {
    if (pause())
        return AnswerCase::FrontState{FrontRecording::none};
    Statement front = m_documents.database().prepare(
        "SELECT moments.app, site, title, body FROM moments JOIN documents USING(number) "
        "WHERE moment = (SELECT max(moment) FROM moments)");
    if (!front.step())
        return AnswerCase::FrontState{FrontRecording::unknown};
    auto state = FrontRecording::full;
    for (const Rule& rule : rules()) {
        if (!rule.enabled || !applies(rule, front))
            continue;
        if (rule.tier == RuleTier::never)
            return AnswerCase::FrontState{FrontRecording::blocked};
        state = FrontRecording::titleOnly;
    }
    return AnswerCase::FrontState{state};
}

bool RecordingRoom::applies(const Rule& rule, const Statement& front) {
    const auto holds = [wanted = PlainText::lowerCased(rule.value)](std::string_view text) {
        return PlainText::lowerCased(text).contains(wanted);
    };
    switch (rule.kind.known().value_or(RuleKind::topic)) {
    case RuleKind::app:
        return PlainText::lowerCased(front.view(0)) == PlainText::lowerCased(rule.value);
    case RuleKind::site:
        return !front.isNull(1) && sameHost(front.view(1), rule.value);
    case RuleKind::word:
    case RuleKind::phrase:
        return holds(front.view(2)) || holds(front.view(3));
    case RuleKind::topic:
        return false;
    }
    return false;
}

void RecordingRoom::put(RuleKind kind, std::string_view value, RuleTier tier, RuleOrigin origin) {
    m_documents.database().run(
        "INSERT INTO recording_rules(kind, value, tier, origin, enabled) VALUES(?, ?, ?, ?, 1) "
        "ON CONFLICT(kind, value) DO UPDATE SET tier = excluded.tier, enabled = 1",
        rawString(kind), value, rawString(tier), rawString(origin));
}

} // namespace wendlow
