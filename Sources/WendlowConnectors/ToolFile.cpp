#include "ToolFile.h"

#include "ConfigFile/ConfigPath.h"
#include "ConfigFile/Disk.h"
#include "Say.h"

namespace wendlow {

ToolFile ToolFile::read(const std::filesystem::path& configured, Purpose purpose) {
    ToolFile file{
        .path = {}, .label = configured.string(), .bytes = std::nullopt, .failure = std::nullopt};
    if (purpose == Purpose::plan) {
        if (auto found = Disk::readWhereItLies(configured)) {
            file.path = std::move(found->path);
            file.bytes = std::move(found->bytes);
            return file;
        }
        file.path = ConfigPath::canonical(configured);
    }
    if (auto bytes = Disk::read(purpose == Purpose::plan ? file.path : configured))
        file.bytes = *std::move(bytes);
    else
        file.failure = Disk::words(bytes.error());
    return file;
}

std::optional<std::string_view> ToolFile::view() const {
    return bytes ? std::optional<std::string_view>(*bytes) : std::nullopt;
}

std::optional<Observation> ToolFile::refusal(const std::optional<Unreadable>& unreadable,
                                             const char* language) const {
    if (failure && Disk::isDirectory(label))
        return Observation{label, say("there is a directory at this path, so nothing was written")};
    if (failure)
        return Observation{
            label, say("this file could not be read, so nothing was written — {}", *failure)};
    if (unreadable)
        return Observation{label,
                           say("this file did not read as {}, so nothing was written — {}",
                               say.view(language), unreadable->reason),
                           unreadable->byte};
    return std::nullopt;
}

} // namespace wendlow
