#include "ClientStoreMode.h"

#include <cerrno>
#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace wendlow::ClientStoreMode {

namespace {

using Result = std::expected<void, std::error_code>;

Result failure() {
    return std::unexpected(std::error_code(errno, std::generic_category()));
}

Result writeAll(int descriptor, std::string_view data) {
    while (!data.empty()) {
        const ssize_t written = ::write(descriptor, data.data(), data.size());
        if (written < 0 && errno != EINTR)
            return failure();
        if (written > 0)
            data.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

/// Fills and closes the temporary file.
Result fill(int descriptor, std::string_view data) {
    Result result = writeAll(descriptor, data);
    if (result && ::fsync(descriptor) != 0)
        result = failure();
    if (::close(descriptor) != 0 && result)
        result = failure();
    return result;
}

} // namespace

Result createFolder(const std::filesystem::path& path) {
    if (path.empty() || ::mkdir(path.c_str(), folder) == 0)
        return {};
    int reason = errno;
    std::error_code ignored;
    if (reason == EEXIST) {
        if (std::filesystem::is_directory(path, ignored))
            return {};
        reason = ENOTDIR;
    }
    if (reason == ENOENT && path.has_relative_path() && path != path.parent_path()) {
        if (Result above = createFolder(path.parent_path()); !above)
            return above;
        if (::mkdir(path.c_str(), folder) == 0 || errno == EEXIST)
            return {};
        return failure();
    }
    return std::unexpected(std::error_code(reason, std::generic_category()));
}

Result write(std::string_view data, const std::filesystem::path& path) {
    if (Result made = createFolder(path.parent_path()); !made)
        return made;
    std::string temporary = path.string() + ".XXXXXX"; // made with mode 0600
    const int descriptor = ::mkostemp(temporary.data(), O_CLOEXEC);
    if (descriptor < 0)
        return failure();
    Result result = fill(descriptor, data);
    if (result && ::rename(temporary.c_str(), path.c_str()) != 0)
        result = failure();
    if (!result)
        ::unlink(temporary.c_str());
    return result;
}

} // namespace wendlow::ClientStoreMode
