#pragma once

#include "ClaudeCode/ClaudeCodeHook.h"
#include "ClaudeCode/ClaudeCodeMCP.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What holds for every file that an installation accepts.
namespace wendlow::testing {

/// `json` without the white space in its empty containers: an edit may drop that, and nothing else.
inline std::string withoutEmptySpace(std::string_view json) {
    std::string result;
    bool inString = false;
    bool escaped = false;
    for (const char byte : json) {
        if (inString) {
            inString = escaped || byte != '"';
            escaped = !escaped && byte == '\\';
        } else if (byte == '}' || byte == ']') {
            const std::size_t last = result.find_last_not_of(" \t\r\n");
            if (last != std::string::npos && result[last] == (byte == '}' ? '{' : '['))
                result.resize(last + 1);
        } else {
            inString = byte == '"';
        }
        result += byte;
    }
    return result;
}

/// The source text of every hook entry that is not ours, in document order.
inline std::vector<std::string_view> entriesOfOthers(const ClaudeCodeHook& hook,
                                                     const JSONNode& root, std::string_view bytes) {
    const std::vector<HookSite> own = hook.sites(root);
    std::vector<std::string_view> result;
    const auto hooks = root.member("hooks");
    if (!hooks)
        return result;
    for (const JSONNode::Member& event : hooks->members())
        for (std::ptrdiff_t group = 0; const JSONNode& each : event.value.elements()) {
            const auto entries = each.member("hooks");
            for (std::ptrdiff_t index = 0;
                 entries && index < static_cast<std::ptrdiff_t>(entries->count()); ++index)
                if (std::ranges::none_of(own, [&](const HookSite& site) {
                        return site.event == event.key && site.group == group &&
                               site.entry == index;
                    })) {
                    const JSONNode entry = *entries->node({index});
                    result.push_back(bytes.substr(entry.start(), entry.range().size()));
                }
            ++group;
        }
    return result;
}

/// Installs one block into `bytes` and removes it again. A sentence about what went wrong, or
/// nothing: all is well, or this file is not for this block. `holdsNothing` tells whether a
/// document holds nothing of ours yet.
template<class Block, class HoldsNothing>
std::optional<std::string> brokenRoundTrip(const Block& block, std::string_view bytes,
                                           HoldsNothing holdsNothing) {
    const auto document = block.read(bytes);
    if (!document)
        return std::nullopt;
    const bool nothingBefore = holdsNothing(document->root());
    const auto installed = block.installed(bytes);
    if (!installed)
        return std::nullopt;
    const std::string after = installed->bytes.value_or(std::string(bytes));
    if (!block.read(after))
        return "what was installed does not read: " + after;
    const auto again = block.installed(after);
    if (!again || again->bytes || !again->created.empty())
        return "installing twice changes the file again: " + after;
    const auto removed = block.removed(after, installed->created);
    if (!removed)
        return "what was installed cannot be removed: " + after;
    const std::string before = removed->bytes.value_or(after);
    const auto rest = block.read(before);
    if (!rest || !holdsNothing(rest->root()))
        return "removing leaves something behind: " + before;
    if (nothingBefore && withoutEmptySpace(before) != withoutEmptySpace(bytes))
        return "what comes back differs: " + before;
    return std::nullopt;
}

inline std::optional<std::string> brokenRoundTrip(std::string_view bytes) {
    static const ClaudeCodePaths paths = ClaudeCodePaths::under("/home/me", "/A/Wendlow.app");
    static const ClaudeCodeHook hook(paths);
    static const ClaudeCodeMCP mcp(paths);
    if (const auto before = hook.read(bytes)) {
        const auto installed = hook.installed(bytes);
        const std::string after = installed ? installed->bytes.value_or(std::string(bytes)) : "";
        const auto document = hook.read(after);
        if (document && entriesOfOthers(hook, before->root(), bytes) !=
                            entriesOfOthers(hook, document->root(), after))
            return "an entry that is not ours was touched: " + after;
    }
    if (auto broken = brokenRoundTrip(
            hook, bytes, [](const JSONNode& root) { return hook.sites(root).empty(); }))
        return broken;
    return brokenRoundTrip(
        mcp, bytes, [](const JSONNode& root) { return !root.node({"mcpServers", "wendlow"}); });
}

} // namespace wendlow::testing
