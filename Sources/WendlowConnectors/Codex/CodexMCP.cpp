#include "Codex/CodexMCP.h"

#include "BundleCommand.h"
#include "Drift.h"
#include "OwnedNames.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

/// Nothing where there is no such entry or where it is not a string.
std::optional<std::string_view> command(CodexMCP::Entries entries) {
    const auto found = std::ranges::find_if(
        entries, [](const TOMLEntry& entry) { return entry.isKey("command"); });
    return found == entries.end() ? std::nullopt : found->text;
}

bool isDevelopmentBuild(std::string_view command) {
    return command.ends_with("/" + std::string(OwnedNames::mcpProgram)) &&
           OwnedNames::isDevelopmentBuild(command);
}

} // namespace

CodexMCP::CodexMCP(CodexPaths paths) : m_paths(std::move(paths)) {}

const TOMLName& CodexMCP::tableName() {
    static const TOMLName name{"mcp_servers", std::string(OwnedNames::server)};
    return name;
}

CodexMCP::Ownership CodexMCP::ownership(Entries entries, const std::set<Created>& created) const {
    if (created.contains(Created::codexMCPTable) || entries.empty() || matchesOurShape(entries))
        return Ownership::ours;
    const auto found = command(entries);
    const bool ours = found && (*found == m_paths.mcpCommand() || isDevelopmentBuild(*found) ||
                                BundleCommand::names(*found, OwnedNames::mcpProgram));
    return ours ? Ownership::ours : Ownership::handWritten;
}

bool CodexMCP::matchesOurShape(Entries entries) const {
    return entries.size() == 2 && command(entries) == m_paths.mcpCommand() &&
           std::ranges::any_of(entries, [](const TOMLEntry& entry) {
               return entry.isKey("args") && entry.raw == "[]";
           });
}

std::vector<const TOMLTable*> CodexMCP::subTables(const TOMLDocument& document) {
    std::vector<const TOMLTable*> found;
    for (const TOMLTable& table : document.tables())
        if (table.name.extends(tableName()))
            found.push_back(&table);
    return found;
}

std::size_t CodexMCP::interiorComments(const TOMLDocument& document, const TOMLTable& table) {
    return static_cast<std::size_t>(
        std::ranges::count_if(document.comments(), [&](const ByteRange& comment) {
            return table.bodyStart <= comment.lower && comment.lower < table.bodyEnd;
        }));
}

BlockFinding CodexMCP::find(const TOMLDocument* document, const std::set<Created>& created) const {
    if (document == nullptr)
        return {BlockFinding::FileAbsent{}};
    const TOMLTable* const table = document->table(tableName());
    const auto below = subTables(*document);
    if (table == nullptr && below.empty())
        return {BlockFinding::Absent{}};
    if (table == nullptr)
        return {BlockFinding::Foreign{
            {fmt::format("the table [{}] is here with no Wendlow MCP table above it",
                         TOMLText::joined(below.front()->name))}}};
    const Entries entries = document->entries(*table);
    if (ownership(entries, created) == Ownership::handWritten)
        return {BlockFinding::Foreign{{"the Wendlow MCP entry here was written by hand and is not "
                                       "the one this build writes"}}};
    std::vector<std::string> reasons;
    reasons.reserve(below.size());
    for (const TOMLTable* const subTable : below)
        reasons.push_back(fmt::format("the table [{}] hangs under the Wendlow MCP entry here, and "
                                      "this build did not write it",
                                      TOMLText::joined(subTable->name)));
    if (const auto found = command(entries))
        std::ranges::move(Drift::reasons(*found, m_paths.mcpCommand(), m_paths.mcpBinary),
                          std::back_inserter(reasons));
    if (reasons.empty() && !matchesOurShape(entries))
        reasons.emplace_back(Drift::otherShape);
    return BlockFinding::from(std::move(reasons));
}

std::optional<std::string> CodexMCP::refusalReason(const TOMLDocument& document,
                                                   const std::set<Created>& created,
                                                   Verb verb) const {
    const TOMLTable* const table = document.table(tableName());
    const Entries entries = table != nullptr ? document.entries(*table) : Entries{};
    if (table != nullptr && ownership(entries, created) == Ownership::handWritten)
        return "the [mcp_servers.wendlow] entry here was written by hand and is not one this build "
               "wrote";
    const auto below = subTables(document);
    // A removal takes the command away, whatever hangs under it.
    const bool leavesNoCommand = verb == Verb::remove || !command(entries);
    if (!below.empty() && leavesNoCommand)
        return fmt::format("the [{}] hangs under the Wendlow MCP entry, and writing this file "
                           "would leave it holding an entry with no command",
                           TOMLText::joined(below.front()->name));
    return std::nullopt;
}

CodexMCP::Result<CodexMCP::Installed> CodexMCP::installed(std::string_view bytes,
                                                          const TOMLDocument& document) const {
    Installed installed;
    const TOMLTable* const table = document.table(tableName());
    if (table != nullptr) {
        if (matchesOurShape(document.entries(*table)))
            return installed;
        installed.commentsReplaced = interiorComments(document, *table);
    }
    const std::array lines{TOMLEdit::Line{"command", TOMLText::quote(m_paths.mcpCommand())},
                           TOMLEdit::Line{"args", "[]"}};
    auto edited = TOMLEdit::setTable(bytes, tableName(), lines);
    if (!edited)
        return std::unexpected(edited.error());
    installed.bytes = std::move(edited->bytes);
    if (edited->created)
        installed.created.insert(Created::codexMCPTable);
    if (edited->appendedTrailingNewline)
        installed.created.insert(Created::codexConfigTrailingNewline);
    return installed;
}

CodexMCP::Result<RemovedBlock> CodexMCP::removed(std::string_view bytes,
                                                 const TOMLDocument& document) {
    if (document.table(tableName()) == nullptr)
        return RemovedBlock{};
    auto edited = TOMLEdit::removeTable(bytes, tableName());
    if (!edited)
        return std::unexpected(edited.error());
    return RemovedBlock{.bytes = *std::move(edited), .leftovers = {}};
}

} // namespace wendlow
