#include "ConfigFile/Backup.h"

#include "ConfigFile/Disk.h"
#include "Say.h"

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <tuple>

#include <fmt/format.h>

namespace wendlow::Backup {
namespace {

constexpr std::string_view mark = ".wendlow-backup-";
constexpr std::string_view stampForm = "dddddddd-dddddd";

bool isDigits(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return byte >= '0' && byte <= '9'; });
}

bool isStamp(std::string_view text) {
    return std::ranges::equal(text, stampForm, [](char byte, char form) {
        return form == 'd' ? byte >= '0' && byte <= '9' : byte == form;
    });
}

/// Whether `suffix`, what follows the mark in a name, is of our making: a stamp, or a stamp and a
/// counter. A copy that the person gave a name of their own is theirs.
bool isSuffix(std::string_view suffix) {
    if (!isStamp(suffix.substr(0, stampForm.size())))
        return false;
    const auto counter = suffix.substr(stampForm.size());
    return counter.empty() ||
           (counter.size() >= 3 && counter.front() == '-' && isDigits(counter.substr(1)));
}

/// The number after `counter` whose text also sorts after it: 99 is followed by 990, because "100"
/// would sort before it.
std::string nextCounter(std::string counter) {
    const auto last = counter.find_last_not_of('9');
    if (last == std::string::npos)
        return counter + '0';
    ++counter[last];
    std::fill(counter.begin() + static_cast<std::ptrdiff_t>(last) + 1, counter.end(), '0');
    return counter;
}

std::string nextSuffix(std::string_view suffix) {
    const auto stamp = suffix.substr(0, stampForm.size());
    if (suffix == stamp)
        return fmt::format("{}-02", stamp);
    return fmt::format("{}-{}", stamp, nextCounter(std::string(suffix.substr(stamp.size() + 1))));
}

Path folderOf(const Path& file) {
    return file.has_parent_path() ? file.parent_path() : Path(".");
}

std::string prefixOf(const Path& file) {
    return file.filename().string().append(mark);
}

/// The suffix of a new copy. Ordinarily the stamp. Where copies stand whose names do not sort
/// before that, the clock having been set back since or the second not being over, it goes on from
/// theirs: the newest copy is always the last.
std::string newSuffix(const Path& file, Date date) {
    auto suffix = stamp(date);
    const auto copies = all(file);
    if (copies.empty())
        return suffix;
    auto newest = copies.back().filename().string().substr(prefixOf(file).size());
    return newest < suffix ? suffix : nextSuffix(newest);
}

/// A file that is there and cannot be read is no "nothing to copy": without a copy there is no way
/// back, so nothing may be written over it.
Disk::Result<std::optional<std::string>> readSource(const Path& file) {
    if (Disk::isDirectory(file))
        return std::nullopt;
    return Disk::read(file);
}

/// Does `make` with one name after another until one is found that nobody has; the name, with the
/// outcome.
template<class Make>
std::pair<Path, Disk::Result<void>> underNewName(const Path& file, Date date, Make make) {
    auto suffix = newSuffix(file, date);
    for (;; suffix = nextSuffix(suffix)) {
        auto copy = folderOf(file) / (prefixOf(file) + suffix);
        auto made = make(copy);
        // In a folder that cannot be listed, the names in use show only here.
        if (made || made.error() != EEXIST)
            return {std::move(copy), made};
    }
}

std::pair<Path, Disk::Result<void>> createCopy(const Path& file, std::string_view bytes,
                                               Date date) {
    const auto like = Disk::attributes(file);
    return underNewName(file, date, [&](const Path& copy) -> Disk::Result<void> {
        if (!like)
            return Disk::create(copy, bytes, 0600);
        const auto created = Disk::createLike(copy, bytes, *like);
        return created ? Disk::Result<void>() : std::unexpected(created.error());
    });
}

std::unexpected<ConfigFileError> failed(const Path& copy, std::string reason) {
    return std::unexpected(ConfigFileError::writeFailed(copy.string(), std::move(reason)));
}

/// Whether the copy is a way back: a disk may lie, and a power cut may take the name away from
/// bytes that were flushed.
std::optional<std::string> whyUseless(const Path& copy, std::string_view bytes) {
    if (!Disk::holds(copy, bytes).value_or(false))
        return say("the copy did not match the original");
    if (const auto flushed = Disk::flushFolder(folderOf(copy)); !flushed)
        return Disk::words(flushed.error());
    return std::nullopt;
}

} // namespace

std::string stamp(Date date) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(date);
    std::tm local{};
    ::tzset();
    ::localtime_r(&seconds, &local);
    return fmt::format("{:04}{:02}{:02}-{:02}{:02}{:02}", local.tm_year + 1900, local.tm_mon + 1,
                       local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
}

std::vector<Path> all(const Path& file) {
    const auto prefix = prefixOf(file);
    std::vector<Path> copies;
    // The names come sorted, and a stamp sorts as time does.
    for (const auto& name : Disk::names(folderOf(file)).value_or(std::vector<std::string>()))
        if (name.starts_with(prefix) && isSuffix(std::string_view(name).substr(prefix.size())))
            copies.push_back(folderOf(file) / name);
    return copies;
}

bool isCopy(std::string_view name, const Path& file) {
    auto prefix = prefixOf(file);
    prefix.pop_back(); // what follows it is not asked about
    return name.starts_with(prefix);
}

std::expected<std::optional<Path>, ConfigFileError> make(const Path& file, Date date,
                                                         std::optional<std::string_view> known) {
    Disk::Result<std::optional<std::string>> read;
    if (!known) {
        read = readSource(file);
        if (!read)
            return failed(folderOf(file) / (prefixOf(file) + stamp(date)),
                          Disk::words(read.error()));
        if (!*read)
            return std::nullopt;
        known = **read;
    }
    auto [copy, created] = createCopy(file, *known, date);
    if (!created)
        return failed(copy, Disk::words(created.error()));
    if (auto reason = whyUseless(copy, *known)) {
        std::ignore = Disk::remove(copy);
        return failed(copy, *std::move(reason));
    }
    return std::move(copy);
}

std::expected<Path, ConfigFileError> adopt(const Path& aside, const Path& file, Date date) {
    auto [copy, named] =
        underNewName(file, date, [&](const Path& name) { return Disk::renameToNew(aside, name); });
    if (!named)
        return failed(copy, Disk::words(named.error()));
    return std::move(copy);
}

std::vector<Path> prune(const Path& file) {
    constexpr std::size_t kept = 2;
    auto copies = all(file);
    copies.resize(copies.size() - std::min(copies.size(), kept));
    std::erase_if(copies, [](const Path& copy) { return !Disk::remove(copy); });
    return copies;
}

} // namespace wendlow::Backup
