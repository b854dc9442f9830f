#include "ClientInstance.h"

#include <filesystem>

#include <fmt/format.h>

#include "HomeFolder.h"

namespace wendlow::ClientInstance {

std::string dotRootExpanded() {
    return fmt::format("{}/{}", homeFolder(), dotRootName);
}

std::string runbooksRootExpanded() {
    return dotRootExpanded() + "/runbooks";
}

std::string defaultSupport() {
    return homeFolder() + "/Library/Application Support";
}

std::string supportRoot(std::string_view support) {
    return fmt::format("{}/{}", support, supportDirName);
}

std::string daemonLogPath(std::string_view home) {
    return fmt::format("{}/Library/Logs/{}", home, daemonLogName);
}

bool isUnderAnySupportRoot(const std::string& path) {
    const std::filesystem::path expanded = expandingTilde(path);
    std::error_code error;
    // Resolves as far as the path exists and keeps the rest, dots taken out.
    std::filesystem::path resolved = std::filesystem::weakly_canonical(expanded, error);
    if (error)
        resolved = expanded.lexically_normal();
    std::string text = resolved.string();
    while (text.size() > 1 && text.ends_with('/'))
        text.pop_back();
    for (const std::string_view name : allSupportDirNames) {
        const std::string root = fmt::format("/Application Support/{}", name);
        if (text.ends_with(root) || text.find(root + "/") != std::string::npos)
            return true;
    }
    return false;
}

} // namespace wendlow::ClientInstance
