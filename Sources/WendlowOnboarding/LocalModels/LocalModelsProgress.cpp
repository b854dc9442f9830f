#include "LocalModelsProgress.h"

#include "ClientInstance.h"
#include "LocalModelsJson.h"
#include "TextFile.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <limits>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fmt/format.h>

namespace wendlow {

namespace {

/// What the figures of a file add up to need not fit.
std::int64_t sum(std::int64_t left, std::int64_t right) {
    std::int64_t both = 0;
    if (!__builtin_add_overflow(left, right, &both))
        return both;
    return left < 0 ? std::numeric_limits<std::int64_t>::min()
                    : std::numeric_limits<std::int64_t>::max();
}

std::error_code lastError() {
    return {errno, std::generic_category()};
}

bool writeAll(int descriptor, std::string_view data) {
    while (!data.empty()) {
        const ssize_t written = ::write(descriptor, data.data(), data.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            data.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// A private file of these bytes that was not there before.
std::expected<void, std::error_code> create(const std::string& path, std::string_view data) {
    constexpr mode_t mode = 0600;
    ::unlink(path.c_str()); // of a process that had our number and died
    const int descriptor =
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
    if (descriptor < 0)
        return std::unexpected(lastError());
    const bool whole = writeAll(descriptor, data);
    const std::error_code failure = lastError();
    const bool closed = ::close(descriptor) == 0;
    if (!whole)
        return std::unexpected(failure);
    if (!closed)
        return std::unexpected(lastError());
    return {};
}

} // namespace

std::string LocalModelsProgress::path(std::string_view support) {
    return fmt::format("{}/{}", ClientInstance::supportRoot(support), fileName);
}

std::string LocalModelsProgress::defaultPath() {
    return path(ClientInstance::defaultSupport());
}

std::optional<LocalModelsProgress> LocalModelsProgress::read(const std::filesystem::path& path) {
    const auto text = TextFile::read(path);
    return text ? decode(*text) : std::nullopt;
}

std::optional<LocalModelsProgress> LocalModelsProgress::decode(std::string_view json) {
    return LocalModelsJson::decode(json);
}

std::string LocalModelsProgress::encoded() const {
    return LocalModelsJson::encode(*this);
}

std::expected<void, std::error_code>
LocalModelsProgress::write(const std::filesystem::path& path) const {
    std::error_code failed;
    std::filesystem::create_directories(path.parent_path(), failed);
    if (failed)
        return std::unexpected(failed);
    const std::string temporary = fmt::format("{}.{}.tmp", path.string(), ::getpid());
    auto created = create(temporary, encoded());
    if (created && ::rename(temporary.c_str(), path.c_str()) != 0)
        created = std::unexpected(lastError());
    if (!created)
        ::unlink(temporary.c_str());
    return created;
}

bool LocalModelsProgress::writerAlive() const {
    // Below 1 it would mean a group of processes, or all of them.
    return pid >= 1 && (::kill(pid, 0) == 0 || errno != ESRCH);
}

std::vector<LocalModelsProgress::Row> LocalModelsProgress::downloadRows() const {
    std::vector<Row> found;
    std::ranges::copy_if(rows, std::back_inserter(found), &Row::download);
    return found;
}

std::vector<LocalModelsProgress::Row> LocalModelsProgress::movedRows() const {
    std::vector<Row> found = downloadRows();
    std::erase_if(found, [](const Row& row) { return row.present; });
    return found;
}

std::optional<std::int64_t> LocalModelsProgress::knownTotalBytes() const {
    if (downloadRows().empty())
        return std::nullopt;
    std::int64_t total = 0;
    for (const Row& row : movedRows()) {
        if (!row.totalBytes)
            return std::nullopt;
        total = sum(total, *row.totalBytes);
    }
    return total;
}

std::int64_t LocalModelsProgress::downloadedBytes() const {
    std::int64_t total = 0;
    for (const Row& row : movedRows()) {
        const std::int64_t moved = row.bytes.value_or(0);
        total = sum(total, row.state == Row::done ? row.totalBytes.value_or(moved) : moved);
    }
    return total;
}

std::optional<std::int64_t> LocalModelsProgress::footprintBytes() const {
    std::optional<std::int64_t> total;
    for (const Row& row : downloadRows())
        if (row.totalBytes)
            total = sum(total.value_or(0), *row.totalBytes);
    return total;
}

LocalModelsProgress::Done LocalModelsProgress::downloadsDone() const {
    const std::vector<Row> downloads = downloadRows();
    const auto done = std::ranges::count(downloads, Row::done, &Row::state);
    return {.done = static_cast<std::size_t>(done), .total = downloads.size()};
}

bool LocalModelsProgress::allDownloadsDone() const {
    const Done downloads = downloadsDone();
    return downloads.done == downloads.total;
}

bool LocalModelsProgress::stepsDone(const std::optional<LocalModelsProgress>& progress) {
    return progress && !progress->rows.empty() &&
           std::ranges::all_of(progress->rows,
                               [](const Row& row) { return row.state == Row::done; });
}

bool LocalModelsProgress::isPlausible(std::chrono::system_clock::time_point now,
                                      std::optional<std::int64_t> diskBytes) const {
    // A clock that was set a little in between writes no future.
    constexpr double leeway = 5;
    const std::int64_t most = diskBytes.value_or(std::numeric_limits<std::int64_t>::max());
    const auto fits = [most](const std::optional<std::int64_t>& bytes) {
        return bytes.value_or(0) >= 0 && bytes.value_or(0) <= most;
    };
    const double seconds = std::chrono::duration<double>(now.time_since_epoch()).count();
    return writtenAt <= seconds + leeway && fits(knownTotalBytes()) && fits(downloadedBytes()) &&
           std::ranges::all_of(
               rows, [&](const Row& row) { return fits(row.bytes) && fits(row.totalBytes); });
}

} // namespace wendlow
