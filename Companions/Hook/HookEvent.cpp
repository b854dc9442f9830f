#include "HookEvent.h"

#include <exception>
#include <initializer_list>
#include <utility>

#include <boost/json/parse.hpp>
#include <boost/json/value.hpp>

namespace wendlow {

namespace {

namespace json = boost::json;

/// So much of a prompt is told to the gateway, which looks for words in it.
constexpr std::size_t longestPrompt = std::size_t{1} << 20U;

/// The first of these members that is a text with something in it.
std::optional<std::string> text(const json::object& event,
                                std::initializer_list<std::string_view> names) {
    for (const std::string_view name : names)
        if (const json::value* const value = event.if_contains(name))
            if (value->is_string() && !value->get_string().empty())
                return std::string(value->get_string());
    return std::nullopt;
}

/// Cursor names the folders that are open, the first of which holds its terminals.
std::optional<std::string> firstFolder(const json::object& event) {
    const json::value* const folders = event.if_contains("workspace_roots");
    if (folders == nullptr || !folders->is_array() || folders->get_array().empty() ||
        !folders->get_array().front().is_string())
        return std::nullopt;
    return std::string(folders->get_array().front().get_string());
}

/// Cut between two characters.
void cut(std::string& prompt) {
    if (prompt.size() <= longestPrompt)
        return;
    std::size_t end = longestPrompt;
    while (end > 0 && (static_cast<unsigned char>(prompt[end]) & 0xC0U) == 0x80U)
        --end;
    prompt.resize(end);
}

} // namespace

std::optional<HookEvent> HookEvent::read(std::string_view bytes) try {
    json::parse_options options;
    options.max_depth = 512;
    const json::value document = json::parse(bytes, {}, options);
    if (!document.is_object())
        return std::nullopt;
    const json::object& event = document.get_object();
    HookEvent taken{.prompt = text(event, {"prompt"}),
                    .cwd = text(event, {"cwd"}),
                    .session = text(event, {"session_id", "sessionID", "conversation_id"}),
                    .subagent = text(event, {"agent_id", "subagent_id"}),
                    .transcript = text(event, {"transcript_path"}),
                    .tool = text(event, {"tool_name"}).value_or(""),
                    .isCursors = event.contains("cursor_version")};
    if (!taken.cwd)
        taken.cwd = firstFolder(event);
    if (taken.prompt)
        cut(*taken.prompt);
    if (const json::value* const input = event.if_contains("tool_input"))
        if (input->is_object())
            taken.input = input->get_object();
    return taken;
} catch (const std::exception&) {
    return std::nullopt;
}

} // namespace wendlow
