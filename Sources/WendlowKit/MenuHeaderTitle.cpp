#include "MenuHeaderTitle.h"

#include "Say.h"

namespace wendlow::MenuHeaderTitle {

std::string title(std::string_view product, const std::optional<std::string>& version,
                  const std::optional<std::string>& build) {
    return say("{} (v{} · build {})", product, version.value_or(std::string(unknown)),
               build.value_or(std::string(unknown)));
}

} // namespace wendlow::MenuHeaderTitle
