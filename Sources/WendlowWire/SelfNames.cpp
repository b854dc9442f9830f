#include "SelfNames.h"

#include <ranges>
#include <set>

#include "PlainText.h"

namespace wendlow::SelfNames {

std::vector<std::string> tidy(std::span<const std::string> names) {
    std::vector<std::string> result;
    std::set<std::string> seen;
    for (const std::string& entry : names)
        for (const auto part : std::views::split(entry, ',')) {
            const std::string_view name =
                PlainText::trimmed(std::string_view(part.begin(), part.end()));
            if (!name.empty() && seen.insert(PlainText::lowerCased(name)).second)
                result.emplace_back(name);
        }
    return result;
}

} // namespace wendlow::SelfNames
