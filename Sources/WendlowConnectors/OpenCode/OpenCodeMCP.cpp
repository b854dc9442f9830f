#include "OpenCode/OpenCodeMCP.h"

#include "BundleCommand.h"
#include "ConfigFile/JSONComments.h"
#include "Drift.h"
#include "JSONDraft.h"
#include "Overloaded.h"
#include "OwnedNames.h"
#include "Say.h"

#include <algorithm>
#include <array>
#include <ranges>
#include <utility>

#include <fmt/ranges.h>

namespace wendlow {

namespace {

constexpr std::string_view serversKey = "mcp";
constexpr std::string_view entryKey = OwnedNames::server;
constexpr std::string_view enabledKey = "enabled";
constexpr JSONDialect dialect = JSONDialect::jsonWithComments;
constexpr std::array<std::string_view, 3> memberKeys{"type", "command", enabledKey};

const JSONPath& entryPath() {
    static const JSONPath path{serversKey, entryKey};
    return path;
}

bool isEmptyContainer(const JSONNode& node) {
    return (node.isObject() || node.isArray()) && node.count() == 0;
}

/// What of an entry that runs our program this build would not write.
std::optional<OpenCodeMCP::Extras> extras(const JSONNode& entry) {
    using Kind = OpenCodeMCP::Extras::Kind;
    std::vector<std::string> keys;
    for (const auto& member : entry.members())
        if (std::ranges::find(memberKeys, member.key) == memberKeys.end())
            keys.emplace_back(member.key);
    std::ranges::sort(keys);
    if (!keys.empty())
        return OpenCodeMCP::Extras{Kind::keys, std::move(keys)};
    const auto type = entry.member("type");
    if (type && type->string() != "local")
        return OpenCodeMCP::Extras{Kind::type, {}};
    const auto enabled = entry.member(enabledKey);
    if (enabled && !enabled->boolean())
        return OpenCodeMCP::Extras{Kind::enabled, {}};
    if (const auto command = entry.member("command"); command && command->count() > 1)
        return OpenCodeMCP::Extras{Kind::arguments, {}};
    return std::nullopt;
}

/// What a scan says of them.
std::string foundText(const OpenCodeMCP::Extras& extras) {
    using Kind = OpenCodeMCP::Extras::Kind;
    switch (extras.kind) {
    case Kind::type:
        return say("the entry states a type this build does not write");
    case Kind::enabled:
        return say("the entry states an enabled that is neither true nor false");
    case Kind::arguments:
        return say("the entry carries arguments this build does not write");
    case Kind::keys:
        break;
    }
    return say.plural(static_cast<std::int64_t>(extras.keys.size()),
                      "the entry carries a key this build does not write: {}",
                      "the entry carries keys this build does not write: {}",
                      fmt::to_string(fmt::join(extras.keys, ", ")));
}

/// What a verb says of them.
std::string metText(const OpenCodeMCP::Extras& extras) {
    using Kind = OpenCodeMCP::Extras::Kind;
    switch (extras.kind) {
    case Kind::type:
        return say("the mcp.wendlow entry here states a type this build does not write");
    case Kind::enabled:
        return say("the mcp.wendlow entry here states an enabled that is neither true nor false");
    case Kind::arguments:
        return say("the mcp.wendlow entry here carries arguments this build does not write");
    case Kind::keys:
        break;
    }
    return say.plural(static_cast<std::int64_t>(extras.keys.size()),
                      "the mcp.wendlow entry here carries a key this build does not write: {}",
                      "the mcp.wendlow entry here carries keys this build does not write: {}",
                      fmt::to_string(fmt::join(extras.keys, ", ")));
}

} // namespace

OpenCodeMCP::OpenCodeMCP(OpenCodePaths paths)
    : m_paths(std::move(paths)),
      m_members{
          {"type", JSONLiteral::string("local")},
          {"command", JSONLiteral::array({JSONLiteral::string(m_paths.mcpCommand())})},
          {std::string(enabledKey), JSONLiteral::boolean(true)},
      } {}

JSONLiteral OpenCodeMCP::entry() const {
    return JSONLiteral::object(m_members);
}

std::optional<JSONNode> OpenCodeMCP::node(const JSONDocument& document) {
    return document.root().node(entryPath());
}

std::optional<std::string_view> OpenCodeMCP::statedCommand(const JSONNode& entry) {
    const auto word = entry.node({"command", 0});
    const auto text = word ? word->string() : std::nullopt;
    return text && !text->empty() ? text : std::nullopt;
}

bool OpenCodeMCP::isSwitchedOff(const JSONNode& entry) {
    const auto enabled = entry.member(enabledKey);
    return enabled && enabled->boolean() == false;
}

std::string OpenCodeMCP::switchedOffText() {
    return say("the Wendlow MCP entry here is switched off, so OpenCode does not start it");
}

bool OpenCodeMCP::isAdoptableShell(const JSONDocument& document) {
    const auto found = node(document);
    return found && isEmptyContainer(*found);
}

OpenCodeMCP::Ownership OpenCodeMCP::ownership(const JSONNode& entry,
                                              const std::set<Created>& created) const {
    if (created.contains(Created::openCodeMCPEntry) || isEmptyContainer(entry))
        return Ours{};
    const auto command = statedCommand(entry);
    const bool looksLikeOurs =
        command && (OwnedNames::isDevelopmentBuild(*command) ||
                    command->ends_with("/" + std::string(OwnedNames::mcpProgram)) ||
                    *command == m_paths.mcpCommand() ||
                    BundleCommand::names(*command, OwnedNames::mcpProgram));
    if (!looksLikeOurs)
        return HandWritten{};
    if (auto others = extras(entry))
        return *std::move(others);
    return Ours{};
}

OpenCodeMCP::Readable OpenCodeMCP::read(std::string_view bytes) {
    static const std::array<JSONPath, 3> objects{JSONPath{}, JSONPath{serversKey}, entryPath()};
    return JSONBlock::read(bytes, dialect, objects);
}

BlockFinding OpenCodeMCP::find(std::string_view bytes, const Readable& document,
                               const std::set<Created>& created) const {
    if (!document)
        return {BlockFinding::Unreadable{document.error()}};
    const auto servers = document->root().member(serversKey);
    if (servers && !servers->isObject())
        return {BlockFinding::Foreign{{JSONBlock::notAnObject(serversKey)}}};
    const auto found = node(*document);
    if (!found)
        return {BlockFinding::Absent{}};
    return std::visit(
        Overloaded{
            [&](const Ours&) { return BlockFinding::from(driftReasons(*found, bytes)); },
            [](const HandWritten&) {
                return BlockFinding{
                    BlockFinding::Foreign{{say("the Wendlow MCP entry here was written by hand "
                                               "and is not the one this build writes")}}};
            },
            [](const Extras& extras) {
                return BlockFinding{BlockFinding::Foreign{{foundText(extras)}}};
            },
        },
        ownership(*found, created));
}

/// What is wrong with an entry of ours.
std::vector<std::string> OpenCodeMCP::driftReasons(const JSONNode& found,
                                                   std::string_view bytes) const {
    const auto command = statedCommand(found);
    if (!command)
        return {Drift::otherShape()};
    auto reasons = Drift::reasons(*command, m_paths.mcpCommand(), m_paths.mcpBinary);
    const auto matches = [&](const JSONLiteral::Member& member) {
        const auto stated = found.member(member.key);
        return member.key == enabledKey || (stated && member.value.isStatedBy(*stated, bytes));
    };
    if (*command == m_paths.mcpCommand() && !std::ranges::all_of(m_members, matches))
        reasons.emplace_back(Drift::otherShape());
    if (isSwitchedOff(found))
        reasons.push_back(switchedOffText());
    return reasons;
}

std::optional<std::string> OpenCodeMCP::refusalReason(const JSONDocument& document,
                                                      const std::set<Created>& created) const {
    const auto found = node(document);
    const Ownership whose = found ? ownership(*found, created) : Ours{};
    if (std::holds_alternative<HandWritten>(whose))
        return say("the mcp.wendlow entry here was written by hand and is not one this build "
                   "wrote");
    if (const auto* const extras = std::get_if<Extras>(&whose))
        return metText(*extras);
    return std::nullopt;
}

OpenCodeMCP::Result<OpenCodeMCP::Installed>
OpenCodeMCP::installed(std::string_view bytes, const JSONDocument& document) const {
    Installed installed;
    JSONDraft draft(bytes, document, dialect);
    if (!node(document)) {
        // Fails in words where the root or the servers are not an object.
        const bool serversAreThere = document.root().member(serversKey).has_value();
        auto taken = draft.take(
            serversAreThere
                ? JSONEdit::setMember(bytes, document, {serversKey}, entryKey, entry())
                : JSONEdit::setMember(bytes, document, {}, serversKey,
                                      JSONLiteral::object({{std::string(entryKey), entry()}})));
        if (!taken)
            return std::unexpected(taken.error());
        if (!serversAreThere)
            installed.created.insert(Created::openCodeMCPObject);
    } else {
        // One member after the other, so that a comment beside them stays.
        for (const auto& [key, value] : m_members) {
            const auto stated = node(draft.document())->member(key);
            if (stated && (key == enabledKey || value.isStatedBy(*stated, draft.bytes())))
                continue;
            if (stated)
                installed.commentsReplaced += JSONComments::lineCount(
                    draft.bytes(), draft.document().comments(), stated->range());
            if (auto taken = draft.take(
                    JSONEdit::setMember(draft.bytes(), draft.document(), entryPath(), key, value));
                !taken)
                return std::unexpected(taken.error());
        }
    }
    installed.bytes = std::move(draft).finish();
    return installed;
}

OpenCodeMCP::Result<RemovedBlock> OpenCodeMCP::removed(std::string_view bytes,
                                                       const JSONDocument& document,
                                                       const ConnectorReceipt& receipt) {
    RemovedBlock block;
    if (!node(document))
        return block;
    JSONDraft draft(bytes, document, dialect);
    const auto take = [&draft](const JSONPath& path, std::string_view key) {
        return draft.take(JSONEdit::removeMember(draft.bytes(), draft.document(), path, key));
    };
    if (receipt.adopted.contains(Adopted::openCodeMCPEntryShell) &&
        !receipt.created.contains(Created::openCodeMCPEntry)) {
        for (const std::string_view key : memberKeys | std::views::reverse)
            if (node(draft.document())->member(key))
                if (auto taken = take(entryPath(), key); !taken)
                    return std::unexpected(taken.error());
        block.leftovers.push_back(
            say("an empty wendlow entry remains here, which Wendlow did not create"));
    } else {
        const JSONNode entry = *node(document);
        if (const auto others = entry.isObject() ? extras(entry) : std::nullopt)
            block.lost.push_back(say("{}, and this was removed with it", metText(*others)));
        if (auto taken = take({serversKey}, entryKey); !taken)
            return std::unexpected(taken.error());
        const bool isEmpty = draft.root().member(serversKey)->count() == 0;
        if (isEmpty && receipt.created.contains(Created::openCodeMCPObject)) {
            if (auto taken = take({}, serversKey); !taken)
                return std::unexpected(taken.error());
        } else if (isEmpty) {
            block.leftovers.push_back(
                say("an empty mcp object remains here, which Wendlow did not create"));
        }
    }
    block.bytes = std::move(draft).finish();
    return block;
}

} // namespace wendlow
