#include "ScopeRoom.h"

#include <map>
#include <utility>

#include <fmt/format.h>

#include "HomeFolder.h"
#include "PlainText.h"
#include "ScopeName.h"
#include "ScopePath.h"

namespace wendlow {
namespace {

constexpr std::string_view tables = R"sql(
CREATE TABLE IF NOT EXISTS folder_maps(folder TEXT PRIMARY KEY, scope TEXT NOT NULL) WITHOUT ROWID;
CREATE TABLE IF NOT EXISTS session_scopes(
    session TEXT PRIMARY KEY, scope TEXT NOT NULL, writer TEXT NOT NULL) WITHOUT ROWID;
)sql";

/// The folder as it is kept, and as a tool names the one it works in: trimmed, from the root on,
/// without a slash at its end.
std::string tidyFolder(std::string_view text) {
    std::string folder = expandingTilde(std::string(PlainText::trimmed(text)));
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
    return folder;
}

std::string refusedScope(std::string_view path) {
    return fmt::format("“{}” is not a scope: {}; nothing was changed", path, ScopeName::form);
}

} // namespace

std::string_view ScopeRoom::schema() {
    return tables;
}

ScopeRoom::ScopeRoom(DocumentStore& documents) : m_documents(documents) {
    // Older fills kept them with a tilde, and no folder that a tool names is spelled like that.
    m_documents.database().run("UPDATE OR REPLACE folder_maps SET folder = ? || substr(folder, 2) "
                               "WHERE folder = '~' OR folder GLOB '~/*'",
                               homeFolder());
}

std::vector<ScopeBoardEntry> ScopeRoom::board() {
    std::map<std::string, ScopeBoardEntry> entries;
    const auto entry = [&](std::string_view path) -> ScopeBoardEntry& {
        for (const std::string& scope : ScopeName::chain(path))
            entries[scope].path = scope;
        return entries[std::string(path)];
    };
    entry(ScopePath::root);
    Statement filed = m_documents.database().prepare(
        "SELECT scope, type, count(*) FROM documents WHERE kind = 0 GROUP BY scope, type "
        "ORDER BY count(*) DESC, type");
    while (filed.step())
        entry(filed.view(0)).kinds.push_back({filed.text(1), filed.integer(2)});
    Statement mapped =
        m_documents.database().prepare("SELECT scope, folder FROM folder_maps ORDER BY folder");
    while (mapped.step())
        entry(mapped.view(0)).folders.push_back(mapped.text(1));
    std::vector<ScopeBoardEntry> board;
    board.reserve(entries.size());
    for (auto& [path, row] : entries)
        board.push_back(std::move(row));
    return board;
}

GatewayResponse ScopeRoom::answer(const NotesCase::ScopeBoard& /*request*/) {
    return AnswerCase::ScopeBoard{board()};
}

GatewayResponse ScopeRoom::answer(const NotesCase::ListPaths& /*request*/) {
    std::string list;
    for (const ScopeBoardEntry& entry : board())
        list += entry.path + "\n";
    return AnswerCase::Text{std::move(list)};
}

GatewayResponse ScopeRoom::answer(const NotesCase::MapPath& request) {
    const std::string folder = tidyFolder(request.folder);
    if (!folder.starts_with('/'))
        return AnswerCase::Failure{fmt::format("“{}” is not the whole path of a folder; nothing "
                                               "was changed",
                                               request.folder)};
    if (!ScopeName::isValid(request.path))
        return AnswerCase::Failure{refusedScope(request.path)};
    m_documents.database().run("INSERT INTO folder_maps(folder, scope) VALUES(?, ?) "
                               "ON CONFLICT(folder) DO UPDATE SET scope = excluded.scope",
                               folder, request.path);
    return AnswerCase::Text{fmt::format("{} maps to {}.", folder, request.path)};
}

GatewayResponse ScopeRoom::answer(const NotesCase::SetPath& request) {
    if (!ScopeName::isValid(request.path))
        return AnswerCase::Failure{refusedScope(request.path)};
    if (!request.session)
        return AnswerCase::Failure{"a scope is set for a session, and none was named; nothing was "
                                   "changed"};
    m_documents.database().run(
        "INSERT INTO session_scopes(session, scope, writer) VALUES(?, ?, ?) "
        "ON CONFLICT(session) DO UPDATE SET scope = excluded.scope, writer = excluded.writer",
        *request.session, request.path, request.writer);
    return AnswerCase::Text{fmt::format("This session works in {}.", request.path)};
}

std::string ScopeRoom::scopeOf(const std::optional<std::string>& session,
                               const std::optional<std::string>& folder) {
    Statement set =
        m_documents.database().prepare("SELECT scope FROM session_scopes WHERE session = ?");
    if (session && set.bind(*session).step())
        return set.text(0);
    std::string scope(ScopePath::root);
    if (!folder)
        return scope;
    const std::string worksIn = tidyFolder(*folder);
    Statement mapped = m_documents.database().prepare(
        "SELECT folder, scope FROM folder_maps ORDER BY length(folder)");
    while (mapped.step())
        if (ScopePath::inScope(worksIn, mapped.view(0)))
            scope = mapped.text(1);
    return scope;
}

} // namespace wendlow
