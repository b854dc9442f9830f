#pragma once

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace wendlow {

/// One step of a path into a document: the name of a member, or the index of an element. Converts
/// from both, so that a path reads `{"hooks", "PreToolUse", 0, "hooks"}`.
struct JSONStep {
    std::variant<std::string, std::ptrdiff_t> step;

    template<std::convertible_to<std::string_view> Text>
    JSONStep(const Text& key) : step(std::string(std::string_view(key))) {}
    template<std::integral Number>
    JSONStep(Number index) : step(static_cast<std::ptrdiff_t>(index)) {}

    bool operator==(const JSONStep&) const = default;
};

/// From the root inwards; the empty path is the root.
using JSONPath = std::vector<JSONStep>;

} // namespace wendlow
