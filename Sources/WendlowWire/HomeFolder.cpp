#include "HomeFolder.h"

#include <array>
#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

namespace wendlow {

std::string homeFolder() {
    std::string home;
    if (const char* fromEnvironment = std::getenv("HOME"))
        home = fromEnvironment;
    if (!home.starts_with('/')) {
        std::array<char, 16384> buffer{};
        passwd entry{};
        passwd* found = nullptr;
        const int status = ::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found);
        home = status == 0 && found != nullptr && found->pw_dir != nullptr ? found->pw_dir : "/";
    }
    while (home.size() > 1 && home.ends_with('/'))
        home.pop_back();
    return home;
}

std::string expandingTilde(const std::string& path) {
    if (path == "~" || path.starts_with("~/"))
        return homeFolder() + path.substr(1);
    return path;
}

} // namespace wendlow
