#include "ClientVersion.h"

#include <algorithm>

#include "InfoPlist.h"
#include "PlainText.h"
#include "TextFile.h"

namespace wendlow::ClientVersion {

namespace {

constexpr int levelsAbove = 5;

std::optional<Path> thisExecutable() {
    std::error_code error;
    Path path = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error)
        return std::nullopt;
    return path;
}

Sources fileSystem() {
    return {
        .plist =
            [](const Path& path) { return InfoPlist::string(path, "CFBundleShortVersionString"); },
        .versionFileText = [](const Path& path) { return TextFile::read(path); },
        .exists =
            [](const Path& path) {
                std::error_code ignored;
                return std::filesystem::exists(path, ignored);
            },
    };
}

} // namespace

const std::string& current() {
    static const std::string version = resolve(thisExecutable(), fileSystem());
    return version;
}

std::optional<std::string> shaped(const std::optional<std::string>& text) {
    std::string trimmed(text ? PlainText::trimmed(*text) : std::string_view{});
    char previous = '.';
    for (const char character : trimmed) {
        const bool isDigit = character >= '0' && character <= '9';
        if (!isDigit && (character != '.' || previous == '.'))
            return std::nullopt;
        previous = character;
    }
    if (previous == '.')
        return std::nullopt;
    return trimmed;
}

std::string resolve(const std::optional<Path>& executable, const Sources& sources) {
    if (!executable)
        return std::string(unknown);
    if (const auto plist = appInfoPlist(*executable))
        if (auto version = shaped(sources.plist(*plist)))
            return *std::move(version);
    if (const auto file = versionFile(*executable, levelsAbove, sources.exists))
        if (auto version = shaped(sources.versionFileText(*file)))
            return *std::move(version);
    return std::string(unknown);
}

std::optional<Path> appInfoPlist(const Path& executable) {
    const Path programs = executable.parent_path();
    const Path contents = programs.parent_path();
    if (programs.filename() != "MacOS" || contents.filename() != "Contents" ||
        contents.parent_path().extension() != ".app")
        return std::nullopt;
    return contents / "Info.plist";
}

std::optional<Path> versionFile(const Path& executable, int levels,
                                const std::function<bool(const Path&)>& exists) {
    Path folder = executable.parent_path();
    for (int level = 0; level <= levels && !folder.empty(); ++level) {
        Path candidate = folder / "VERSION";
        if (exists(candidate))
            return candidate;
        if (folder == folder.parent_path())
            break;
        folder = folder.parent_path();
    }
    return std::nullopt;
}

} // namespace wendlow::ClientVersion
