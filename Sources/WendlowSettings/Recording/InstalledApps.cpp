#include "Recording/InstalledApps.h"

#include "PlainText.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <system_error>
#include <utility>

namespace wendlow::InstalledApps {

namespace {

using Folder = std::filesystem::directory_iterator;

constexpr std::string_view bundleEnd = ".app";
/// What is longer is no desktop entry that anything shows.
constexpr std::uintmax_t largestEntry = 1U << 18U;

/// The text up to the separator, which is taken off with it.
std::string_view next(std::string_view& rest, char separator) {
    const std::size_t end = std::min(rest.find(separator), rest.size());
    const std::string_view piece = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return piece;
}

std::string bytesOf(const std::filesystem::directory_entry& entry) {
    std::error_code error;
    if (!entry.is_regular_file(error) || entry.file_size(error) > largestEntry || error)
        return {};
    std::ifstream file(entry.path(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string variable(const char* name, const char* usual) {
    const char* const value = std::getenv(name);
    return value == nullptr || *value == '\0' ? usual : value;
}

} // namespace

Places places(const std::filesystem::path& home) {
    Places found{.bundles = {"/Applications", home / "Applications"},
                 .entries = {variable("XDG_DATA_HOME", (home / ".local/share").c_str())},
                 .language = variable("LC_MESSAGES", variable("LANG", "").c_str())};
    const std::string folders = variable("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
    for (std::string_view rest = folders; !rest.empty();)
        found.entries.emplace_back(next(rest, ':'));
    for (std::filesystem::path& folder : found.entries)
        folder /= "applications";
    found.language.resize(std::min(found.language.find_first_of(".@"), found.language.size()));
    return found;
}

std::optional<std::string> nameOfBundle(const std::filesystem::path& bundle) {
    const std::string name = bundle.filename().string();
    if (name.size() <= bundleEnd.size() || !PlainText::lowerCased(name).ends_with(bundleEnd))
        return std::nullopt;
    return name.substr(0, name.size() - bundleEnd.size());
}

std::optional<std::string> nameInEntry(std::string_view entry, std::string_view language) {
    bool within = false;
    std::map<std::string_view, std::string_view> values;
    while (!entry.empty()) {
        std::string_view line = PlainText::trimmed(next(entry, '\n'));
        if (line.starts_with('['))
            within = line == "[Desktop Entry]";
        else if (within && !line.starts_with('#')) {
            const std::string_view key = PlainText::trimmed(next(line, '='));
            values.emplace(key, PlainText::trimmed(line));
        }
    }
    if (values["Type"] != "Application" || values["NoDisplay"] == "true" ||
        values["Hidden"] == "true")
        return std::nullopt;
    const auto named = [&](std::string_view in) -> std::string_view {
        const auto found = values.find("Name[" + std::string(in) + "]");
        return found == values.end() ? std::string_view() : found->second;
    };
    for (const std::string_view name :
         {named(language), named(language.substr(0, language.find('_'))), values["Name"]})
        if (!name.empty())
            return std::string(name);
    return std::nullopt;
}

std::vector<std::string> names(const Places& places) {
    std::map<std::string, std::string> found; // by what they are sorted by
    const auto add = [&](std::optional<std::string> name) {
        if (name)
            found.emplace(PlainText::lowerCased(*name), std::move(*name));
    };
    std::error_code error;
    for (const auto& folder : places.bundles)
        for (Folder entry(folder, error); !error && entry != Folder(); entry.increment(error))
            add(nameOfBundle(entry->path()));
    for (const auto& folder : places.entries)
        for (Folder entry(folder, error); !error && entry != Folder(); entry.increment(error))
            if (entry->path().extension() == ".desktop")
                add(nameInEntry(bytesOf(*entry), places.language));
    std::vector<std::string> list;
    list.reserve(found.size());
    for (auto& [key, name] : found)
        list.push_back(std::move(name));
    return list;
}

} // namespace wendlow::InstalledApps
