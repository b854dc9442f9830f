#include "GrantRoom.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "LocalModel.h"
#include "StoreWords.h"
#include "WordList.h"

namespace wendlow {
namespace {

constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS grants(kind TEXT PRIMARY KEY, state TEXT NOT NULL) WITHOUT ROWID;
)sql";

constexpr std::string_view granted = "granted";
constexpr std::string_view denied = "denied";

struct Kind {
    std::string_view name;
    std::string_view displayName;
};
constexpr Kind kinds[] = {{"screen_recording", "Screen Recording"},
                          {"accessibility", "Accessibility"},
                          {"microphone", "Microphone"}};

bool holds(const std::vector<std::string>& list, std::string_view kind) {
    return std::ranges::find(list, kind) != list.end();
}

} // namespace

std::expected<std::vector<std::string>, std::string> GrantManner::kinds(std::string_view words) {
    static constexpr WordList::Known<const char*> known[] = {
        {"screen_recording", "screen_recording"},
        {"accessibility", "accessibility"},
        {"microphone", "microphone"}};
    const auto chosen = WordList::values(words, known);
    if (!chosen)
        return std::unexpected(chosen.error());
    return std::vector<std::string>(chosen->begin(), chosen->end());
}

std::string_view GrantRoom::schema() {
    return tables;
}

GrantRoom::GrantRoom(PracticeDatabase& database, RecordingRoom& recording, Clock clock)
    : m_database(database), m_recording(recording), m_clock(std::move(clock)) {}

void GrantRoom::set(std::string_view kind, std::string_view state) {
    m_database.run("INSERT OR REPLACE INTO grants VALUES(?, ?)", kind, state);
}

void GrantRoom::grantWhatIsDue() {
    std::erase_if(m_due, [this](const auto& each) {
        const bool due = each.second <= m_clock();
        if (due)
            set(each.first, granted);
        return due;
    });
}

std::vector<GrantRow> GrantRoom::grants() {
    grantWhatIsDue();
    std::vector<GrantRow> rows;
    Statement state = m_database.prepare("SELECT state FROM grants WHERE kind = ?");
    for (const Kind& kind : kinds) {
        if (holds(m_manner.withheld, kind.name))
            continue;
        const bool known = state.bind(kind.name).step();
        rows.push_back({.kind = std::string(kind.name),
                        .state = known ? state.text(0) : "undetermined",
                        .displayName = std::string(kind.displayName)});
    }
    return rows;
}

GatewayResponse GrantRoom::answer(const ReadCase::Grants& /*request*/) {
    return AnswerCase::Grants{{grants()}};
}

GatewayResponse GrantRoom::answer(const ControlCase::RequestGrant& request) {
    if (std::ranges::find(kinds, request.kind, &Kind::name) == std::ranges::end(kinds))
        return AnswerCase::Failure{
            fmt::format("“{}” is no permission that there is", request.kind)};
    if (holds(m_manner.denied, request.kind))
        set(request.kind, denied);
    else if (m_manner.after.count() > 0)
        m_due.try_emplace(request.kind, m_clock() + m_manner.after);
    else
        set(request.kind, granted);
    return AnswerCase::Ok{};
}

GatewayResponse GrantRoom::answer(const ReadCase::Health& /*request*/) {
    if (!std::ranges::all_of(grants(), [](const GrantRow& row) { return row.state == granted; }))
        return AnswerCase::Text{std::string(StoreWords::text(StoreWord::aGrantIsMissing))};
    return AnswerCase::Text{m_recording.pause().value_or("healthy")};
}

GatewayResponse GrantRoom::answer(const ReadCase::ClassifierStatus& /*request*/) {
    return AnswerCase::Text{
        fmt::format("{} is not run by the practice gateway", LocalModel::titleModel)};
}

void GrantRoom::grantAll() {
    for (const Kind& kind : kinds)
        set(kind.name, granted);
}

} // namespace wendlow
