#include "Observation.h"

#include "Say.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <numeric>
#include <string_view>
#include <tuple>
#include <utility>

#include <fmt/ranges.h>

namespace wendlow {

void append(Observations& all, Observations more) {
    std::ranges::move(more, std::back_inserter(all));
}

Observations folded(Observations observations) {
    std::vector<std::size_t> order(observations.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    // Equal ones beside each other, the first of them first.
    std::ranges::sort(order, {}, [&](std::size_t index) {
        return std::tuple<std::string_view, std::string_view, std::size_t>(
            observations[index].subject, observations[index].text, index);
    });
    std::vector<std::size_t> counts(observations.size());
    for (auto first = order.begin(); first != order.end();) {
        const auto other = std::find_if(first, order.end(), [&](std::size_t index) {
            return observations[index] != observations[*first];
        });
        counts[*first] = static_cast<std::size_t>(other - first);
        first = other;
    }
    Observations result;
    for (std::size_t index = 0; index < counts.size(); ++index) {
        if (counts[index] == 0)
            continue;
        Observation& said = result.emplace_back(std::move(observations[index]));
        if (counts[index] > 1)
            said.text = say.plural(static_cast<std::int64_t>(counts[index]), "{} ({} entry)",
                                   "{} ({} entries)", said.text, counts[index]);
    }
    return result;
}

std::string listed(const std::vector<std::string>& items) {
    if (items.empty())
        return {};
    if (items.size() == 1)
        return items.front();
    return say("{} and {}", fmt::join(items.begin(), items.end() - 1, ", "), items.back());
}

} // namespace wendlow
