#include "ToolProgram.h"

#include "ClientVersion.h"
#include "ConfigFile/Disk.h"
#include "JSONBlock.h"

#include <ranges>

namespace wendlow::connect {

namespace {

using Path = std::filesystem::path;

/// The folder of the package that a path of npm's lies in: what follows the last "node_modules",
/// with its scope.
std::optional<Path> package(const Path& file) {
    Path folder;
    std::optional<Path> found;
    bool isAwaited = false;
    for (const Path& part : file) {
        folder /= part;
        if (part == "node_modules") {
            isAwaited = true;
        } else if (isAwaited) {
            found = folder;
            isAwaited = part.string().starts_with('@');
        }
    }
    return found;
}

std::optional<std::string> versionOfPackage(const Path& folder) {
    const auto bytes = Disk::read(folder / "package.json");
    if (!bytes || !*bytes)
        return std::nullopt;
    const auto document = JSONText::scanWithTrivia(**bytes, JSONDialect::json);
    const auto version =
        document ? JSONBlock::text(document->root(), "version") : std::optional<std::string_view>();
    return version ? ClientVersion::shaped(std::string(*version)) : std::nullopt;
}

/// Of a program that lies where its installer puts each version, as ".../versions/2.0.1".
std::optional<std::string> versionInName(const Path& file) {
    for (Path at = file; at.has_relative_path(); at = at.parent_path())
        if (at.parent_path().filename() == "versions")
            return ClientVersion::shaped(at.filename().string());
    return std::nullopt;
}

} // namespace

std::optional<ToolProgram> ToolProgram::find(std::string_view name, std::string_view search) {
    for (const auto part : std::views::split(search, ':')) {
        const Path folder(std::string_view(part.begin(), part.end()));
        const Path path = folder / name;
        if (!folder.is_absolute() || !Disk::isRunnable(path))
            continue;
        const Path real = Disk::realPath(path).value_or(path);
        const auto inPackage = package(real);
        return ToolProgram{.path = path,
                           .version =
                               inPackage ? versionOfPackage(*inPackage) : versionInName(real)};
    }
    return std::nullopt;
}

} // namespace wendlow::connect
