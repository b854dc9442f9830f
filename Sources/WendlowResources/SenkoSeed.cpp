#include "SenkoSeed.h"

#include "UniquePart.h"

#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <string_view>
#include <system_error>

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

namespace wendlow::SenkoSeed {

namespace {

namespace fs = std::filesystem;

/// What a folder holds, at any depth.
struct Census {
    std::int64_t files = 0;
    std::int64_t bytes = 0;
    bool operator==(const Census&) const = default;
};

/// Of the regular files. What cannot be read is not counted, and so differs from what can.
Census census(const fs::path& folder) {
    Census found;
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, error), end; !error && at != end;
         at.increment(error)) {
        std::error_code ignored;
        if (!fs::is_regular_file(at->symlink_status(ignored)))
            continue;
        const auto size = at->file_size(ignored);
        if (ignored)
            continue;
        ++found.files;
        found.bytes += static_cast<std::int64_t>(size);
    }
    return found;
}

std::string copyMark() {
    return fmt::format("{}.seeding-", folderName);
}

/// The process that made a copy, by the copy's name; 0 for what is none.
pid_t makerOf(std::string_view name) {
    const std::string mark = copyMark();
    if (!name.starts_with(mark))
        return 0;
    name.remove_prefix(mark.size());
    pid_t maker = 0;
    std::from_chars(name.data(), name.data() + name.size(), maker);
    return maker;
}

/// Copies whose process was killed before it could finish.
void sweep(const fs::path& supportDir) {
    std::error_code error;
    for (fs::directory_iterator at(supportDir, error), end; !error && at != end;
         at.increment(error)) {
        const pid_t maker = makerOf(at->path().filename().string());
        if (maker <= 0 || ::kill(maker, 0) == 0 || errno != ESRCH)
            continue;
        std::error_code ignored;
        fs::remove_all(at->path(), ignored);
    }
}

/// Puts the copy where nothing is, or in place of what is there. Gives an error's number; 0: none.
int moveIntoPlace(const fs::path& copy, const fs::path& target) {
    if (::rename(copy.c_str(), target.c_str()) == 0)
        return 0;
    if (errno != ENOTEMPTY && errno != EEXIST && errno != ENOTDIR)
        return errno;
    // In one step, so that the place is never empty; what was there is where the copy was.
    return ::renameat2(AT_FDCWD, copy.c_str(), AT_FDCWD, target.c_str(), RENAME_EXCHANGE) == 0
               ? 0
               : errno;
}

/// A copy that goes with the object, unless it has been moved to where it belongs.
class Copy {
public:
    explicit Copy(fs::path path) : m_path(std::move(path)) {}
    ~Copy() {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;

    const fs::path& path() const { return m_path; }

private:
    fs::path m_path;
};

} // namespace

Outcome seed(const fs::path& bundleDir, const fs::path& supportDir) {
    const fs::path source = bundleDir / folderName;
    const fs::path target = supportDir / folderName;
    const Census wanted = census(source);
    if (wanted.files == 0)
        return BundleMissing{source.string()};
    sweep(supportDir);
    if (census(target) == wanted)
        return Present{};

    std::error_code error;
    fs::create_directories(supportDir, error);
    const Copy copy(supportDir / fmt::format("{}{}-{}", copyMark(), ::getpid(), uniquePart()));
    if (!error)
        fs::copy(source, copy.path(), fs::copy_options::recursive | fs::copy_options::copy_symlinks,
                 error);
    if (error)
        return Failed{fmt::format("{}: {}", copy.path().string(), error.message())};
    const Census made = census(copy.path());
    if (made != wanted)
        return Failed{fmt::format("verify failed: files {}→{} bytes {}→{}", wanted.files,
                                  made.files, wanted.bytes, made.bytes)};
    // Another process may have been first.
    if (census(target) == wanted)
        return Present{};
    if (const int failure = moveIntoPlace(copy.path(), target); failure != 0)
        return Failed{
            fmt::format("{}: {}", target.string(), std::system_category().message(failure))};
    return Seeded{.files = wanted.files, .bytes = wanted.bytes};
}

} // namespace wendlow::SenkoSeed
