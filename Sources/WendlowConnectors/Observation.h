#pragma once

#include <string>
#include <vector>

namespace wendlow {

/// One sentence about one thing, usually a file.
struct Observation {
    std::string subject; ///< usually a path as the person knows it, links not resolved
    std::string text;    ///< begins in lower case, ends without a full stop

    bool operator==(const Observation&) const = default;
};

using Observations = std::vector<Observation>;

void append(Observations& all, Observations more);
/// The same observations in first-seen order, each said once. One that came n >= 2 times ends in
/// " (n entries)".
Observations folded(Observations observations);
/// "a, b and c"
std::string listed(const std::vector<std::string>& items);

} // namespace wendlow
