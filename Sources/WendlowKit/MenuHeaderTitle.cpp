#include "MenuHeaderTitle.h"

#include <fmt/format.h>

namespace wendlow::MenuHeaderTitle {

std::string title(std::string_view product, const std::optional<std::string>& version,
                  const std::optional<std::string>& build) {
    return fmt::format("{} (v{} · build {})", product, version.value_or(std::string(unknown)),
                       build.value_or(std::string(unknown)));
}

} // namespace wendlow::MenuHeaderTitle
