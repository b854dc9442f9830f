#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

/// One sentence about one thing, usually a file.
struct Observation {
    std::string subject; ///< usually a path as the person knows it, links not resolved
    std::string text;    ///< begins in lower case, ends without a full stop
    /// Where in the file that is the subject. Nobody has to read it out of the text.
    std::optional<std::size_t> byte = std::nullopt;

    /// Whether a person reads the same twice: where there is a byte, the text tells it.
    bool operator==(const Observation& other) const {
        return subject == other.subject && text == other.text;
    }
};

using Observations = std::vector<Observation>;

void append(Observations& all, Observations more);
/// The same observations in first-seen order, each said once. One that came n >= 2 times ends in
/// " (n entries)".
Observations folded(Observations observations);
/// "a, b and c"
std::string listed(const std::vector<std::string>& items);

} // namespace wendlow
