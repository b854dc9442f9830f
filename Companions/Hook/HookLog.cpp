#include "HookLog.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include "ClientInstance.h"
#include "HomeFolder.h"

namespace wendlow::HookLog {

namespace {

std::string now() {
    const std::time_t seconds = std::time(nullptr);
    std::tm parts{};
    ::gmtime_r(&seconds, &parts);
    std::array<char, 32> text{};
    const std::size_t length =
        std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
    return {text.data(), length};
}

/// Not followed where it is a link, and not waited for where it is a pipe.
int opened(const std::string& path) {
    return ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK,
                  0600);
}

} // namespace

std::string path() {
    return fmt::format("{}/Library/Logs/{}-hook.log", homeFolder(), ClientInstance::logStem);
}

void line(std::string_view text) {
    const std::string log = path();
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(log).parent_path(), ignored);
    int file = opened(log);
    struct stat state{};
    // Of several processes that find it full, the last to rename wins, and a few lines are lost.
    if (file >= 0 && ::fstat(file, &state) == 0 && state.st_size >= sizeLimit) {
        ::rename(log.c_str(), (log + ".1").c_str());
        ::close(file);
        file = opened(log);
    }
    if (file < 0)
        return;
    constexpr std::size_t most = 500;
    std::string whole = fmt::format("{} {}", now(), text.substr(0, most));
    std::ranges::replace_if(
        whole, [](char letter) { return static_cast<unsigned char>(letter) < ' '; }, ' ');
    whole += '\n';
    // In one write, or lines of several processes would mix.
    if (::fstat(file, &state) == 0 && S_ISREG(state.st_mode)) [[maybe_unused]]
        const ssize_t written = ::write(file, whole.data(), whole.size());
    ::close(file);
}

} // namespace wendlow::HookLog
