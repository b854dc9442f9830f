#include "PersonsPart.h"

#include "Observation.h"

#include <fmt/format.h>

namespace wendlow {

std::optional<std::string> PersonsPart::sentence(std::string_view fate) const {
    if (isNothing())
        return std::nullopt;
    return fmt::format("the {} entry here{}{}{}{}, which Wendlow did not write, and this was {}",
                       entry, command ? " ran " + *command : "",
                       command && !keys.empty() ? " and" : "", keys.empty() ? "" : " held ",
                       listed(keys), fate);
}

} // namespace wendlow
