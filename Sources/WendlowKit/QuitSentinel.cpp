#include "QuitSentinel.h"

#include <ctime>
#include <filesystem>

#include <fmt/chrono.h>
#include <fmt/format.h>

#include "ClientInstance.h"
#include "ClientStoreMode.h"

namespace wendlow {

std::string QuitSentinel::defaultPath(std::string_view support) {
    return fmt::format("{}/{}", ClientInstance::supportRoot(support), fileName);
}

bool QuitSentinel::isSet() const {
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}

void QuitSentinel::set() const {
    const std::tm now = fmt::gmtime(std::time(nullptr));
    // The sentinel is the file, not its text; there is nobody to tell of a failure.
    [[maybe_unused]] const auto result =
        ClientStoreMode::write(fmt::format("quit at {:%F %T} +0000\n", now), path);
}

void QuitSentinel::clear() const {
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
}

} // namespace wendlow
