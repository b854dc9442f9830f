#include "Codex/CodexMCP.h"

#include "BundleCommand.h"
#include "Drift.h"
#include "Observation.h"
#include "OwnedNames.h"
#include "Say.h"
#include "TOMLDraft.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

constexpr std::string_view commandKey = "command";
constexpr std::string_view argumentsKey = "args";
constexpr std::string_view noArguments = "[]";
/// What a server has that is reached over the network; Codex does not start with a table that
/// states one of these beside a command.
constexpr std::array<std::string_view, 5> remoteKeys{"url", "bearer_token", "bearer_token_env_var",
                                                     "http_headers", "env_http_headers"};

const TOMLEntry* entryOf(CodexMCP::Entries entries, std::string_view key) {
    const auto found =
        std::ranges::find_if(entries, [&](const TOMLEntry& entry) { return entry.isKey(key); });
    return found == entries.end() ? nullptr : &*found;
}

/// Nothing where there is no such entry or where it is not a string.
std::optional<std::string_view> command(CodexMCP::Entries entries) {
    const TOMLEntry* const entry = entryOf(entries, commandKey);
    return entry != nullptr ? entry->text : std::nullopt;
}

bool isOwnKey(const TOMLEntry& entry) {
    return entry.key[0] == commandKey || entry.key[0] == argumentsKey;
}

/// Whether Codex would not start with this entry beside ours.
bool excludesOurs(const TOMLEntry& entry) {
    return isOwnKey(entry) ? entry.key.size() > 1
                           : std::ranges::count(remoteKeys, entry.key[0]) > 0;
}

/// Whether this is a person's, and stays.
bool isPersons(const TOMLEntry& entry) {
    return !isOwnKey(entry) && !excludesOurs(entry);
}

/// Whether this table under ours is where Codex notes what a person allowed.
bool isRecordOfTools(const TOMLTable& table) {
    return table.name[CodexMCP::tableName().size()] == "tools";
}

CodexMCP::Entries ownEntries(const TOMLDocument& document) {
    const TOMLTable* const table = document.table(CodexMCP::tableName());
    return table != nullptr ? document.entries(*table) : CodexMCP::Entries{};
}

std::string bracketed(const auto& name) {
    return fmt::format("[{}]", TOMLText::joined(name));
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
    return found && BundleCommand::isServer(*found, m_paths.mcpCommand()) ? Ownership::ours
                                                                          : Ownership::handWritten;
}

bool CodexMCP::matchesOurShape(Entries entries) const {
    const TOMLEntry* const arguments = entryOf(entries, argumentsKey);
    return command(entries) == m_paths.mcpCommand() &&
           (arguments == nullptr || arguments->raw == noArguments) &&
           std::ranges::none_of(entries, excludesOurs);
}

bool CodexMCP::isSwitchedOff(const TOMLDocument& document) {
    const TOMLEntry* const enabled = entryOf(ownEntries(document), "enabled");
    return enabled != nullptr && enabled->raw == "false";
}

std::string CodexMCP::switchedOffText() {
    return say("the Wendlow MCP entry here is switched off, so Codex does not start it");
}

std::vector<const TOMLTable*> CodexMCP::subTables(const TOMLDocument& document) {
    std::vector<const TOMLTable*> found;
    for (const TOMLTable& table : document.tables())
        if (table.name.extends(tableName()))
            found.push_back(&table);
    return found;
}

std::size_t CodexMCP::commentLines(const TOMLDocument& document, ByteRange range) {
    // A comment ends its line, so that there is no second one on it.
    return static_cast<std::size_t>(
        std::ranges::count_if(document.comments(), [&](const ByteRange& comment) {
            return range.lower <= comment.lower && comment.lower < range.upper;
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
        return {
            BlockFinding::Foreign{{say("the table [{}] is here with no Wendlow MCP table above it",
                                       TOMLText::joined(below.front()->name))}}};
    const Entries entries = document->entries(*table);
    if (ownership(entries, created) == Ownership::handWritten)
        return {BlockFinding::Foreign{{say("the Wendlow MCP entry here was written by hand and is "
                                           "not the one this build writes")}}};
    std::vector<std::string> reasons;
    reasons.reserve(below.size());
    for (const TOMLTable* const subTable : below)
        if (!isRecordOfTools(*subTable))
            reasons.push_back(say("the table {} hangs under the Wendlow MCP entry here, and this "
                                  "build did not write it",
                                  bracketed(subTable->name)));
    if (const auto found = command(entries))
        std::ranges::move(Drift::reasons(*found, m_paths.mcpCommand(), m_paths.mcpBinary),
                          std::back_inserter(reasons));
    if (reasons.empty() && !matchesOurShape(entries))
        reasons.emplace_back(Drift::otherShape());
    if (isSwitchedOff(*document))
        reasons.push_back(switchedOffText());
    return BlockFinding::from(std::move(reasons));
}

std::optional<std::string> CodexMCP::refusalReason(const TOMLDocument& document,
                                                   const std::set<Created>& created,
                                                   Verb verb) const {
    const TOMLTable* const table = document.table(tableName());
    const Entries entries = table != nullptr ? document.entries(*table) : Entries{};
    if (table != nullptr && ownership(entries, created) == Ownership::handWritten)
        return say("the [mcp_servers.wendlow] entry here was written by hand and is not one this "
                   "build wrote");
    if (verb == Verb::remove || command(entries))
        return std::nullopt;
    const auto below = subTables(document);
    // A record of the tool's belongs to whatever server stands above it.
    const auto persons = std::ranges::find_if_not(
        below, [](const TOMLTable* subTable) { return isRecordOfTools(*subTable); });
    if (persons == below.end())
        return std::nullopt;
    return say("the {} hangs under the Wendlow MCP entry, and writing this file would leave it "
               "holding an entry with no command",
               bracketed((*persons)->name));
}

PersonsPart CodexMCP::personsPart(Entries entries, Verb verb) const {
    PersonsPart part{.entry = "mcp_servers.wendlow", .command = {}, .keys = {}};
    for (const TOMLEntry& entry : entries) {
        const bool isCommand = entry.isKey(commandKey);
        if (isCommand && entry.text) {
            if (!BundleCommand::isServer(*entry.text, m_paths.mcpCommand()))
                part.command = *entry.text;
        } else if (isCommand || (entry.isKey(argumentsKey) && entry.raw != noArguments) ||
                   excludesOurs(entry) || (verb == Verb::remove && isPersons(entry))) {
            part.keys.push_back(TOMLText::joined(entry.key));
        }
    }
    return part;
}

CodexMCP::Result<CodexMCP::Installed> CodexMCP::installed(std::string_view bytes,
                                                          const TOMLDocument& document) const {
    Installed installed;
    const TOMLTable* const table = document.table(tableName());
    if (table != nullptr) {
        const Entries entries = document.entries(*table);
        if (matchesOurShape(entries))
            return installed;
        if (std::ranges::any_of(entries, isPersons))
            return editedByKey(bytes, document);
        installed.commentsReplaced = commentLines(document, {table->bodyStart, table->bodyEnd});
        if (auto lost = personsPart(entries, Verb::install).sentence(PersonsPart::Fate::replaced))
            installed.lost.push_back(*std::move(lost));
    }
    const std::array lines{
        TOMLEdit::Line{std::string(commandKey), TOMLText::quote(m_paths.mcpCommand())},
        TOMLEdit::Line{std::string(argumentsKey), std::string(noArguments)}};
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

CodexMCP::Result<CodexMCP::Installed> CodexMCP::editedByKey(std::string_view bytes,
                                                            const TOMLDocument& document) const {
    Installed installed;
    if (auto lost =
            personsPart(ownEntries(document), Verb::install).sentence(PersonsPart::Fate::replaced))
        installed.lost.push_back(*std::move(lost));
    TOMLDraft draft(bytes, document);
    bool appended = false;
    const auto countComments = [&](std::size_t from, std::size_t to) {
        installed.commentsReplaced += commentLines(draft.document(), {from, to});
    };
    const auto set = [&](std::string_view key, const std::string& value) {
        const Entries entries = ownEntries(draft.document());
        if (const TOMLEntry* const present = entryOf(entries, key))
            countComments(present->keyStart, present->valueEnd);
        auto edited = TOMLEdit::setKey(draft.bytes(), *draft.document().table(tableName()), entries,
                                       key, value);
        appended = appended || edited.appendedTrailingNewline;
        return draft.take(std::move(edited.bytes));
    };
    while (true) {
        const Entries entries = ownEntries(draft.document());
        const auto other = std::ranges::find_if(entries, excludesOurs);
        if (other == entries.end())
            break;
        countComments(other->keyStart, other->lineEnd);
        if (auto taken = draft.take(TOMLEdit::removeKey(draft.bytes(), *other)); !taken)
            return std::unexpected(taken.error());
    }
    if (command(ownEntries(draft.document())) != m_paths.mcpCommand())
        if (auto taken = set(commandKey, TOMLText::quote(m_paths.mcpCommand())); !taken)
            return std::unexpected(taken.error());
    const TOMLEntry* const arguments = entryOf(ownEntries(draft.document()), argumentsKey);
    if (arguments != nullptr && arguments->raw != noArguments)
        if (auto taken = set(argumentsKey, std::string(noArguments)); !taken)
            return std::unexpected(taken.error());
    if (appended)
        installed.created.insert(Created::codexConfigTrailingNewline);
    installed.bytes = std::move(draft).finish();
    return installed;
}

std::vector<TOMLName> CodexMCP::ownTables(const TOMLDocument& document,
                                          const std::set<Created>& created) {
    // Without our table above them, other tables than the tool's own records may be anybody's.
    const bool takesAll =
        document.table(tableName()) != nullptr || created.contains(Created::codexMCPTable);
    std::vector<TOMLName> names;
    for (const TOMLTable& table : document.tables())
        if (table.name == tableName() ||
            (table.name.extends(tableName()) && (takesAll || isRecordOfTools(table))))
            names.push_back(table.name.name());
    return names;
}

std::vector<std::string> CodexMCP::lostByRemoval(const TOMLDocument& document,
                                                 const std::set<Created>& created) const {
    std::vector<std::string> lost;
    if (auto keys =
            personsPart(ownEntries(document), Verb::remove).sentence(PersonsPart::Fate::removed))
        lost.push_back(*std::move(keys));
    std::vector<std::string> below;
    for (const TOMLName& name : ownTables(document, created))
        if (name != tableName() && std::ranges::count(below, bracketed(name)) == 0)
            below.push_back(bracketed(name));
    if (below.empty())
        return lost;
    lost.push_back(document.table(tableName()) != nullptr
                       ? say("the Wendlow MCP entry was taken out, and the tables under it, which "
                             "Codex or a person wrote, went with it: {}",
                             listed(below))
                       : say("the Wendlow MCP entry was gone already, and the tables under it, "
                             "which Codex or a person wrote, went with it: {}",
                             listed(below)));
    return lost;
}

} // namespace wendlow
