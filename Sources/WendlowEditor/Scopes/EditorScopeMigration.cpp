#include "Scopes/EditorScopeMigration.h"

#include "Overloaded.h"
#include "Say.h"
#include "Scopes/EditorScopePaths.h"
#include "Scopes/MigrationScript.h"

#include <algorithm>
#include <ranges>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

EditorScopeMigration built(decltype(EditorScopeMigration::kind) kind,
                           const std::vector<EditorScopeRow>& board) {
    EditorScopeMigration migration{.kind = std::move(kind), .affected = {}, .destinations = {}};
    migration.affected =
        EditorScopeBoard::directoryOrdered(EditorScopeBoard::subtree(board, migration.moved()));
    migration.redirect(migration.to());
    return migration;
}

} // namespace

EditorScopeMigration EditorScopeMigration::rename(const std::vector<EditorScopeRow>& board,
                                                  std::string from, std::string to) {
    return built(Rename{.from = std::move(from), .to = std::move(to)}, board);
}

EditorScopeMigration EditorScopeMigration::retire(const std::vector<EditorScopeRow>& board,
                                                  std::string scope, std::string destination) {
    return built(Retire{.scope = std::move(scope), .destination = std::move(destination)}, board);
}

void EditorScopeMigration::redirect(std::string to) {
    destinations.clear();
    destinations.reserve(affected.size());
    for (const EditorScopeRow& row : affected)
        destinations.push_back(EditorScopePaths::reparent(row.path, moved(), to));
    std::visit(Overloaded{[&](Rename& rename) { rename.to = std::move(to); },
                          [&](Retire& retire) { retire.destination = std::move(to); }},
               kind);
}

const std::string& EditorScopeMigration::moved() const {
    const auto* const retired = std::get_if<Retire>(&kind);
    return retired != nullptr ? retired->scope : std::get<Rename>(kind).from;
}

const std::string& EditorScopeMigration::to() const {
    const auto* const retired = std::get_if<Retire>(&kind);
    return retired != nullptr ? retired->destination : std::get<Rename>(kind).to;
}

std::int64_t EditorScopeMigration::memoryCount() const {
    std::int64_t sum = 0;
    for (const EditorScopeRow& row : affected)
        sum += MigrationScript::memories(row);
    return sum;
}

std::int64_t EditorScopeMigration::foldersTotal() const {
    std::int64_t sum = 0;
    for (const EditorScopeRow& row : affected)
        sum += std::ssize(row.folders);
    return sum;
}

bool EditorScopeMigration::breaksLines() const {
    using EditorScopePaths::breaksLines;
    return breaksLines(moved()) || breaksLines(to()) ||
           std::ranges::any_of(affected, [](const EditorScopeRow& row) {
               return breaksLines(row.path) || std::ranges::any_of(row.folders, breaksLines);
           });
}

// Each number has a clause of its own: a language may bend more than the word behind it.
std::string EditorScopeMigration::summary() const {
    const std::int64_t memories = memoryCount();
    const std::int64_t scopes = std::ssize(affected);
    const std::int64_t maps = foldersTotal();
    if (isRetire()) {
        const std::string held =
            say.plural(memories, "{} holds {} memory", "{} holds {} memories", moved(), memories);
        const std::string across =
            say.plural(scopes, "across {} scope", "across {} scopes", scopes);
        const std::string moves =
            say.plural(maps, "Retiring it moves them to {} and rewrites {} folder map.",
                       "Retiring it moves them to {} and rewrites {} folder maps.", to(), maps);
        return say("{} {}. {} A scope with contents never silently deletes; empty scopes just "
                   "disappear.",
                   held, across, moves);
    }
    const std::string moves = say.plural(memories, "{} → {} would move {} memory",
                                         "{} → {} would move {} memories", moved(), to(), memories);
    const std::string updates =
        say.plural(maps, "update {} folder map", "update {} folder maps", maps);
    const std::string repaths = say.plural(scopes, "re-path {} scope", "re-path {} scopes", scopes);
    return say("{}, {}, and {}. It runs as a standalone migration script with a verified backup — "
               "never an in-place edit from this window.",
               moves, updates, repaths);
}

std::string EditorScopeMigration::slug(std::string_view path) {
    std::string slug;
    for (const auto piece : std::views::split(path, '/'))
        if (!piece.empty())
            slug.append(slug.empty() ? "" : "-")
                .append(std::string_view(piece.begin(), piece.end()));
    return slug.empty() ? "root" : slug;
}

std::string EditorScopeMigration::scriptName(std::string_view date) const {
    return fmt::format("migrate-scope-{}-{}-{}.py", isRetire() ? "retire" : "rename", slug(moved()),
                       date);
}

std::string EditorScopeMigration::script(std::string_view date, std::string_view mcp) const {
    return MigrationScript::text(*this, date, mcp);
}

} // namespace wendlow
