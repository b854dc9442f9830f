#include "MCPServerEntry.h"

#include "BundleCommand.h"
#include "Drift.h"
#include "OwnedNames.h"
#include "Say.h"

#include <array>
#include <utility>

namespace wendlow {

namespace {

constexpr std::string_view serversKey = "mcpServers";
constexpr std::string_view entryKey = OwnedNames::server;

const JSONPath& entryPath() {
    static const JSONPath path{serversKey, entryKey};
    return path;
}

} // namespace

MCPServerEntry::MCPServerEntry(std::filesystem::path binary, Created serversObject)
    : m_binary(std::move(binary)), m_serversObject(serversObject),
      m_entry(JSONLiteral::object({
          {"type", JSONLiteral::string("stdio")},
          {"command", JSONLiteral::string(m_binary.string())},
          {"args", JSONLiteral::array({})},
          {"env", JSONLiteral::object({})},
      })) {}

std::optional<JSONNode> MCPServerEntry::node(const JSONDocument& document) {
    return document.root().node(entryPath());
}

PersonsPart MCPServerEntry::personsPart(const JSONNode& found, std::string_view bytes) const {
    PersonsPart part{.entry = "mcpServers.wendlow", .command = {}, .keys = {}};
    const JSONValue ours = entry().value();
    const auto& own = std::get<JSONValue::Object>(ours.value);
    for (const JSONNode::Member& member : found.members()) {
        const auto text = member.key == "command" ? member.value.string() : std::nullopt;
        const auto expected = own.find(std::string(member.key));
        if (text && !BundleCommand::isServer(*text, m_binary.string()))
            part.command = std::string(*text);
        else if (!text && (expected == own.end() || expected->second != member.value.value(bytes)))
            part.keys.emplace_back(member.key);
    }
    return part;
}

MCPServerEntry::Readable MCPServerEntry::read(std::string_view bytes) const {
    static const std::array<JSONPath, 3> objects{JSONPath{}, JSONPath{serversKey}, entryPath()};
    return JSONBlock::read(bytes, JSONDialect::json, objects);
}

BlockFinding MCPServerEntry::find(std::string_view bytes, const Readable& document) const {
    if (!document)
        return {BlockFinding::Unreadable{document.error()}};
    const JSONNode root = document->root();
    if (const auto servers = root.member(serversKey); servers && !servers->isObject())
        return {BlockFinding::Foreign{{JSONBlock::notAnObject(serversKey)}}};
    const auto found = root.node(entryPath());
    if (!found)
        return {BlockFinding::Absent{}};
    const auto command = JSONBlock::text(*found, "command");
    if (!command)
        return {BlockFinding::Drifted{{Drift::otherShape()}}};
    auto reasons = Drift::reasons(*command, m_binary.string(), m_binary);
    if (*command == m_binary.string() && !m_entry.isStatedBy(*found, bytes))
        reasons.push_back(Drift::otherShape());
    return BlockFinding::from(std::move(reasons));
}

MCPServerEntry::Result<InstalledBlock> MCPServerEntry::installed(std::string_view bytes) const {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    if (!document)
        return std::unexpected(document.error());
    return installed(bytes, *document);
}

MCPServerEntry::Result<InstalledBlock>
MCPServerEntry::installed(std::string_view bytes, const JSONDocument& document) const {
    const JSONNode root = document.root();
    const bool serversAreThere = root.member(serversKey).has_value();
    const auto found = root.node(entryPath());
    if (found && m_entry.isStatedBy(*found, bytes))
        return InstalledBlock{};
    // Fails in words where the root or the servers are not an object.
    auto edited =
        serversAreThere
            ? JSONEdit::setMember(bytes, document, {serversKey}, entryKey, entry())
            : JSONEdit::setMember(bytes, document, {}, serversKey,
                                  JSONLiteral::object({{std::string(entryKey), entry()}}));
    if (!edited)
        return std::unexpected(edited.error());
    InstalledBlock block{.bytes = *std::move(edited), .created = {}, .lost = {}};
    if (auto lost =
            found ? personsPart(*found, bytes).sentence(PersonsPart::Fate::replaced) : std::nullopt)
        block.lost.push_back(*std::move(lost));
    if (!serversAreThere)
        block.created.insert(m_serversObject);
    return block;
}

MCPServerEntry::Result<RemovedBlock>
MCPServerEntry::removed(std::string_view bytes, const std::set<Created>& created) const {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    if (!document)
        return std::unexpected(document.error());
    return removed(bytes, *document, created);
}

MCPServerEntry::Result<RemovedBlock>
MCPServerEntry::removed(std::string_view bytes, const JSONDocument& document,
                        const std::set<Created>& created) const {
    const JSONNode root = document.root();
    const auto found = root.node(entryPath());
    if (!found)
        return RemovedBlock{};
    const bool leavesNothing = root.member(serversKey)->count() == 1;
    // Without comments the object can go together with its only member: one edit, the same bytes.
    const bool takeServers = leavesNothing && created.contains(m_serversObject);
    auto edited = takeServers ? JSONEdit::removeMember(bytes, document, {}, serversKey)
                              : JSONEdit::removeMember(bytes, document, {serversKey}, entryKey);
    if (!edited)
        return std::unexpected(edited.error());
    RemovedBlock block;
    block.bytes = *std::move(edited);
    if (auto lost = personsPart(*found, bytes).sentence(PersonsPart::Fate::removed))
        block.lost.push_back(*std::move(lost));
    if (leavesNothing && !takeServers)
        block.leftovers.push_back(
            say("an empty mcpServers object remains here, which Wendlow did not create"));
    return block;
}

} // namespace wendlow
