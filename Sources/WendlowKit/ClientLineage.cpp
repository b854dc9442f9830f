#include "ClientLineage.h"

#include <sys/stat.h>

#include "InfoPlist.h"
#include "ProcessStart.h"

namespace wendlow {

namespace {

bool isFamily(std::string_view bundleID) {
    return bundleID.starts_with(ClientLineage::family) &&
           (bundleID.size() == ClientLineage::family.size() ||
            bundleID[ClientLineage::family.size()] == '.');
}

} // namespace

ClientLineage ClientLineage::judge(bool executableReplaced, const Occupant& occupant) {
    if (executableReplaced && occupant.bundleID && isFamily(*occupant.bundleID))
        return LineageCase::Stale{occupant.version};
    return LineageCase::Foreign{};
}

ClientLineage ClientLineage::probe(const std::optional<Path>& executable) {
    if (!executable)
        return LineageCase::Foreign{};
    return judge(executableReplaced(*executable), occupantBundle(*executable));
}

bool ClientLineage::executableReplaced(const Path& executable) {
    const auto start = processStart();
    struct stat file{};
    if (!start || ::stat(executable.c_str(), &file) != 0)
        return false;
    const auto modified =
        std::chrono::seconds(file.st_mtim.tv_sec) + std::chrono::nanoseconds(file.st_mtim.tv_nsec);
    return modified > start->time_since_epoch();
}

ClientLineage::Occupant ClientLineage::occupantBundle(const Path& executable) {
    const Path folder = executable.parent_path();
    if (folder.filename() != "MacOS")
        return {};
    const Path plist = folder.parent_path() / "Info.plist";
    Occupant occupant{.bundleID = InfoPlist::string(plist, "CFBundleIdentifier"),
                      .version = InfoPlist::string(plist, "CFBundleShortVersionString")};
    if (!occupant.version)
        occupant.version = InfoPlist::string(plist, "CFBundleVersion");
    return occupant;
}

std::optional<ClientLineage::Path> ClientLineage::executablePath() {
    // The kernel marks the name of a program that was replaced.
    constexpr std::string_view mark = " (deleted)";
    std::error_code error;
    std::string path = std::filesystem::read_symlink("/proc/self/exe", error).string();
    if (error)
        return std::nullopt;
    if (path.ends_with(mark) && !std::filesystem::exists(path, error))
        path.resize(path.size() - mark.size());
    return path;
}

} // namespace wendlow
