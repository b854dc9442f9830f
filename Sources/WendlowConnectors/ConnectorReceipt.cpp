#include "ConnectorReceipt.h"

#include <algorithm>
#include <array>

namespace wendlow {
namespace {

/// In the order of the cases.
constexpr auto createdTexts = std::to_array<std::string_view>({
    "settingsFile",
    "hooksObject",
    "eventArray",
    "hookGroup",
    "preToolEventArray",
    "preToolGroup",
    "mcpFile",
    "mcpServersObject",
    "claudeChatFile",
    "claudeChatServersObject",
    "codexHooksFile",
    "codexHooksObject",
    "codexEventArray",
    "codexHookGroup",
    "codexConfigFile",
    "codexMCPTable",
    "codexTrustTable",
    "codexConfigTrailingNewline",
    "cursorHooksFile",
    "cursorHooksObject",
    "cursorEventArray",
    "cursorPreToolEventArray",
    "cursorMCPFile",
    "cursorMCPServersObject",
    "openCodeConfigFile",
    "openCodeMCPObject",
    "openCodeMCPEntry",
    "openCodePluginsDirectory",
    "openCodePluginFile",
});
constexpr auto adoptedTexts = std::to_array<std::string_view>({"openCodeMCPEntryShell"});

static_assert(createdTexts.size() == static_cast<std::size_t>(Created::openCodePluginFile) + 1);

template<class Case, std::size_t size>
std::optional<Case> named(const std::array<std::string_view, size>& texts, std::string_view text) {
    const auto found = std::ranges::find(texts, text);
    if (found == texts.end())
        return std::nullopt;
    return static_cast<Case>(found - texts.begin());
}

} // namespace

std::string_view text(Created created) {
    return createdTexts[static_cast<std::size_t>(created)];
}

std::string_view text(Adopted adopted) {
    return adoptedTexts[static_cast<std::size_t>(adopted)];
}

std::optional<Created> createdNamed(std::string_view text) {
    return named<Created>(createdTexts, text);
}

std::optional<Adopted> adoptedNamed(std::string_view text) {
    return named<Adopted>(adoptedTexts, text);
}

} // namespace wendlow
