#include "ResourceBundle.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include <dlfcn.h>
#include <fmt/format.h>

namespace wendlow {

namespace {

namespace fs = std::filesystem;

/// Lies in the binary that is asked about.
const char here = 0;

/// A folder that can be listed: one that is there and cannot be read is as good as none.
bool opens(const fs::path& folder) {
    std::error_code error;
    const fs::directory_iterator look(folder, error);
    return !error;
}

} // namespace

ResourceBundle::Surroundings ResourceBundle::Surroundings::current() {
    Surroundings found;
    std::error_code error;
    found.executable = fs::read_symlink("/proc/self/exe", error);
    if (const auto resources = app(found.executable)) {
        found.mainResources = *resources;
        found.mainBundle = resources->parent_path().parent_path();
    }
    Dl_info info{};
    if (::dladdr(&here, &info) != 0 && info.dli_fname != nullptr)
        found.anchor = fs::absolute(info.dli_fname, error).parent_path();
    return found;
}

std::optional<fs::path> ResourceBundle::app(const fs::path& executable) {
    const fs::path programs = executable.parent_path();
    const fs::path contents = programs.parent_path();
    if (programs.filename() != "MacOS" || contents.filename() != "Contents")
        return std::nullopt;
    return contents / "Resources";
}

std::vector<fs::path> ResourceBundle::roots(const Surroundings& surroundings) {
    std::vector<fs::path> roots;
    const auto add = [&](const fs::path& folder) {
        if (!folder.empty() && std::ranges::find(roots, folder) == roots.end())
            roots.push_back(folder);
    };
    add(app(surroundings.executable).value_or(fs::path()));
    add(surroundings.executable.parent_path());
    add(surroundings.mainResources);
    add(surroundings.mainBundle);
    add(surroundings.anchor);
    return roots;
}

std::vector<fs::path> ResourceBundle::candidates(std::string_view name,
                                                 const Surroundings& surroundings) {
    std::vector<fs::path> folders = roots(surroundings);
    for (fs::path& folder : folders)
        folder /= fmt::format("{}.bundle", name);
    return folders;
}

std::optional<ResourceBundle> ResourceBundle::find(std::string_view name,
                                                   const Surroundings& surroundings) {
    for (fs::path& folder : candidates(name, surroundings))
        if (opens(folder))
            return ResourceBundle(std::move(folder));
    return std::nullopt;
}

ResourceBundle ResourceBundle::require(std::string_view name, const Surroundings& surroundings) {
    if (auto found = find(name, surroundings))
        return *std::move(found);
    fmt::print(stderr, "could not load resource bundle {}.bundle — tried:\n", name);
    for (const fs::path& folder : candidates(name, surroundings))
        fmt::print(stderr, "{}\n", folder.string());
    std::abort();
}

} // namespace wendlow
