#pragma once

#include "CursorHome.h"
#include "HookLists.h"
#include "InstallRemoveProperty.h"

namespace wendlow::testing {

/// The source text of whatever stands in an event's list and is not ours, in document order.
inline std::vector<std::string> entriesOfOthers(const CursorHook& hook, std::string_view bytes) {
    const auto document = *hook.read(bytes);
    const auto own = hook.sites(document.root());
    std::vector<std::string> result;
    HookLists::forEachElement(document.root(), [&](auto event, auto index, const JSONNode& entry) {
        if (std::ranges::none_of(own, [&](const CursorHookSite& site) {
                return site.event == event && site.index == index;
            }))
            result.emplace_back(bytes.substr(entry.start(), entry.range().size()));
    });
    return result;
}

/// Connects and disconnects a hooks file and a list of servers that both are `text`, with the marks
/// of `filledForCursor` filled in. A sentence about what went wrong; nothing: all is well, or this
/// file is not for us.
inline std::optional<std::string> brokenCursorRoundTrip(std::string_view text) {
    static const auto paths = CursorPaths::under("/home/me", "/A/Wendlow.app", "/Applications");
    static const CursorHook hook(paths);
    static const CursorMCP mcp(paths);
    const std::string bytes = filledForCursor(paths, std::string(text));
    const auto installed =
        hook.read(bytes) ? hook.installed(bytes) : std::unexpected(CursorHook::Failure{});
    if (installed) {
        const std::string after = installed->bytes.value_or(bytes);
        const auto document = hook.read(after);
        if (!document || !hook.converged(hook.sites(document->root()), document->root(), after))
            return "what was installed is not right: " + after;
        if (entriesOfOthers(hook, bytes) != entriesOfOthers(hook, after))
            return "an entry that is not ours was touched: " + after;
    }
    if (auto broken = brokenRoundTrip(
            hook, bytes, [](const JSONNode& root) { return hook.sites(root).empty(); }))
        return broken;
    return brokenRoundTrip(
        mcp, bytes, [](const JSONNode& root) { return !root.node({"mcpServers", "wendlow"}); });
}

} // namespace wendlow::testing
