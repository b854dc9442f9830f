#include "GrantRoom.h"

#include <algorithm>

#include <fmt/format.h>

#include "LocalModel.h"
#include "StoreWords.h"

namespace wendlow {
namespace {

constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS grants(kind TEXT PRIMARY KEY, state TEXT NOT NULL) WITHOUT ROWID;
)sql";

constexpr std::string_view granted = "granted";

struct Kind {
    std::string_view name;
    std::string_view displayName;
};
constexpr Kind kinds[] = {{"screen_recording", "Screen Recording"},
                          {"accessibility", "Accessibility"},
                          {"microphone", "Microphone"}};

} // namespace

std::string_view GrantRoom::schema() {
    return tables;
}

GrantRoom::GrantRoom(PracticeDatabase& database, RecordingRoom& recording)
    : m_database(database), m_recording(recording) {}

std::vector<GrantRow> GrantRoom::grants() {
    std::vector<GrantRow> rows;
    Statement state = m_database.prepare("SELECT state FROM grants WHERE kind = ?");
    for (const Kind& kind : kinds) {
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
    m_database.run("INSERT OR REPLACE INTO grants VALUES(?, ?)", request.kind, granted);
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
        m_database.run("INSERT OR REPLACE INTO grants VALUES(?, ?)", kind.name, granted);
}

} // namespace wendlow
