#include "ClaudeChat/ClaudeChatConfig.h"

#include "BundleCommand.h"
#include "JSONDraft.h"
#include "OwnedNames.h"

#include <utility>

namespace wendlow::ClaudeChatConfig {

namespace {

constexpr std::string_view serversKey = "mcpServers";

Profile profileOf(std::string_view command) {
    return command.contains("dist-dev") || command.contains(OwnedNames::checkout)
               ? Profile::dev
               : Profile::production;
}

} // namespace

std::vector<JSONNode::Member> ours(const JSONNode& root, Profile profile) {
    std::vector<JSONNode::Member> found;
    const auto servers = root.member(serversKey);
    if (!servers)
        return found;
    for (const JSONNode::Member& server : servers->members()) {
        const auto command = JSONBlock::text(server.value, "command");
        if (command && BundleCommand::names(*command, OwnedNames::mcpProgram) &&
            profileOf(*command) == profile)
            found.push_back(server);
    }
    return found;
}

JSONBlock::Readable read(std::string_view bytes, Profile profile) {
    auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    if (!document)
        return std::unexpected(document.error().unreadable());
    std::vector<JSONNode> objects{document->root()};
    if (const auto servers = document->root().member(serversKey))
        objects.push_back(*servers);
    for (const JSONNode::Member& server : ours(document->root(), profile))
        objects.push_back(server.value);
    for (const JSONNode& object : objects)
        if (auto reason = JSONBlock::repeatedName(object))
            return std::unexpected(*std::move(reason));
    return *std::move(document);
}

JSONBlock::Result<Retired> retired(std::string_view bytes, Profile profile) {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::json);
    if (!document)
        return std::unexpected(document.error());
    return retired(bytes, *document, profile);
}

JSONBlock::Result<Retired> retired(std::string_view bytes, const JSONDocument& document,
                                   Profile profile) {
    Retired result;
    for (const JSONNode::Member& server : ours(document.root(), profile))
        result.names.emplace_back(server.key);
    JSONDraft draft(bytes, document);
    for (const std::string& name : result.names)
        if (const auto taken = draft.take(
                JSONEdit::removeMember(draft.bytes(), draft.document(), {serversKey}, name));
            !taken)
            return std::unexpected(taken.error());
    result.bytes = std::move(draft).finish();
    return result;
}

} // namespace wendlow::ClaudeChatConfig
