#include "ToolFile.h"

#include "ConfigFile/ConfigPath.h"
#include "ConfigFile/Disk.h"

#include <fmt/format.h>

namespace wendlow {

ToolFile ToolFile::read(const std::filesystem::path& configured) {
    if (auto found = Disk::readWhereItLies(configured))
        return {.path = std::move(found->path),
                .label = configured.string(),
                .bytes = std::move(found->bytes),
                .failure = std::nullopt};
    ToolFile file{.path = ConfigPath::canonical(configured),
                  .label = configured.string(),
                  .bytes = std::nullopt,
                  .failure = std::nullopt};
    if (auto bytes = Disk::read(file.path))
        file.bytes = *std::move(bytes);
    else
        file.failure = Disk::words(bytes.error());
    return file;
}

std::optional<std::string_view> ToolFile::view() const {
    return bytes ? std::optional<std::string_view>(*bytes) : std::nullopt;
}

std::optional<Observation> ToolFile::refusal(const std::optional<std::string>& unreadable,
                                             std::string_view language) const {
    if (failure)
        return Observation{label, fmt::format("this file could not be read, so nothing was "
                                              "written — {}",
                                              *failure)};
    if (unreadable)
        return Observation{label, fmt::format("this file did not read as {}, so nothing was "
                                              "written — {}",
                                              language, *unreadable)};
    return std::nullopt;
}

} // namespace wendlow
