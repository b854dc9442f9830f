#include "Observation.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

void append(Observations& all, Observations more) {
    std::ranges::move(more, std::back_inserter(all));
}

Observations folded(const Observations& observations) {
    std::map<std::pair<std::string_view, std::string_view>, std::size_t> counts;
    Observations result;
    for (const Observation& observation : observations)
        if (++counts[{observation.subject, observation.text}] == 1)
            result.push_back(observation);
    for (Observation& observation : result)
        if (const std::size_t count = counts.at({observation.subject, observation.text}); count > 1)
            observation.text += fmt::format(" ({} entries)", count);
    return result;
}

std::string listed(const std::vector<std::string>& items) {
    std::string text;
    for (std::size_t index = 0; index < items.size(); ++index) {
        if (index > 0)
            text += index + 1 == items.size() ? " and " : ", ";
        text += items[index];
    }
    return text;
}

} // namespace wendlow
