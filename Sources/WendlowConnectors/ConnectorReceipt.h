#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace wendlow {

/// A thing in a tool's configuration that a connector brought into being. The text form of a case
/// is its name.
enum class Created {
    settingsFile,
    hooksObject,
    eventArray,
    hookGroup,
    preToolEventArray,
    preToolGroup,
    mcpFile,
    mcpServersObject,
    claudeChatFile,
    claudeChatServersObject,
    codexHooksFile,
    codexHooksObject,
    codexEventArray,
    codexHookGroup,
    codexConfigFile,
    codexMCPTable,
    codexTrustTable,
    codexConfigTrailingNewline,
    cursorHooksFile,
    cursorHooksObject,
    cursorEventArray,
    cursorPreToolEventArray,
    cursorMCPFile,
    cursorMCPServersObject,
    openCodeConfigFile,
    openCodeMCPObject,
    openCodeMCPEntry,
    openCodePluginsDirectory,
    openCodePluginFile,
};

/// A thing that was already there and was taken over.
enum class Adopted { openCodeMCPEntryShell };

std::string_view text(Created created);
std::string_view text(Adopted adopted);
/// The case with this text form, or nothing.
std::optional<Created> createdNamed(std::string_view text);
std::optional<Adopted> adoptedNamed(std::string_view text);

using TrustSlots = std::set<std::string, std::less<>>;

/// What a connector created in a tool's configuration. Rules what removal may delete; never asked
/// whether a tool is connected.
struct ConnectorReceipt {
    std::set<Created> created;
    std::set<Adopted> adopted;
    TrustSlots trustSlots;
    std::optional<std::string> appVersion;

    bool operator==(const ConnectorReceipt&) const = default;
};

} // namespace wendlow
