#include "Cursor/CursorThirdParty.h"

#include "HookCommand.h"
#include "JSONBlock.h"
#include "Say.h"

namespace wendlow::CursorThirdParty {

namespace {

bool isOrWas(std::string_view command, std::string_view current) {
    return HookCommand::isSpelling(command, current) ||
           HookCommand::isLegacyBundle(command, current);
}

std::optional<Kind> kindOf(std::string_view command, std::string_view cursorCommand,
                           std::string_view claude) {
    if (isOrWas(command, cursorCommand))
        return Kind::cursorCommand;
    if (isOrWas(command, claude))
        return Kind::claudeCommand;
    return HookCommand::isLegacyScript(command) ? std::optional(Kind::legacyScript) : std::nullopt;
}

} // namespace

std::optional<Mapped> mappedWendlowEntry(std::optional<std::string_view> bytes,
                                         std::string_view cursorCommand, std::string_view claude) {
    if (!bytes)
        return std::nullopt;
    const auto document = JSONText::scanWithTrivia(*bytes, JSONDialect::json);
    const auto groups =
        document ? document->root().node({"hooks", "UserPromptSubmit"}) : std::nullopt;
    if (!groups)
        return std::nullopt;
    for (const JSONNode& group : groups->elements()) {
        const auto entries = group.member("hooks");
        if (!entries)
            continue;
        for (const JSONNode& entry : entries->elements()) {
            const auto command = JSONBlock::text(entry, "command");
            const auto kind = command ? kindOf(*command, cursorCommand, claude) : std::nullopt;
            if (kind)
                return Mapped{std::string(*command), *kind};
        }
    }
    return std::nullopt;
}

std::string sentence(Kind kind) {
    switch (kind) {
    case Kind::claudeCommand:
        return say("a Wendlow hook entry is under UserPromptSubmit in this file too, which Cursor "
                   "maps onto its own beforeSubmitPrompt event; Cursor runs this entry too; it "
                   "stays silent there, because Cursor's own entry serves each prompt");
    case Kind::legacyScript:
        return say("a Wendlow hook entry is under UserPromptSubmit in this file too, which Cursor "
                   "maps onto its own beforeSubmitPrompt event, and that entry answers in Claude "
                   "Code's envelope, which carries no continue key");
    case Kind::cursorCommand:
        break;
    }
    return say("a Wendlow hook entry is under UserPromptSubmit in this file too, which Cursor maps "
               "onto its own beforeSubmitPrompt event");
}

} // namespace wendlow::CursorThirdParty
