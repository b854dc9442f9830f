#include "Codex/CodexTrustSlot.h"

#include <charconv>
#include <memory>
#include <system_error>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

std::optional<std::ptrdiff_t> decimal(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    std::ptrdiff_t number = 0;
    const char* const end = std::to_address(text.end());
    const auto [rest, error] = std::from_chars(std::to_address(text.begin()), end, number);
    return error == std::errc() && rest == end ? std::optional(number) : std::nullopt;
}

/// Cuts the last piece off a text of pieces joined by ":".
std::optional<std::string_view> cutLast(std::string_view& text) {
    const auto colon = text.rfind(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    const auto piece = text.substr(colon + 1);
    text = text.substr(0, colon);
    return piece;
}

} // namespace

CodexTrustSlot CodexTrustSlot::at(const std::string& hooksPath, std::ptrdiff_t group,
                                  std::ptrdiff_t index) {
    return {.key = fmt::format("{}:{}:{}:{}", hooksPath, promptEvent, group, index),
            .hooksPath = hooksPath,
            .event = std::string(promptEvent),
            .group = group,
            .index = index};
}

std::optional<CodexTrustSlot> CodexTrustSlot::parse(std::string_view key) {
    std::string_view path = key;
    const auto index = cutLast(path);
    const auto group = cutLast(path);
    const auto event = cutLast(path);
    if (!event || path.empty())
        return std::nullopt;
    const auto groupNumber = decimal(*group);
    const auto indexNumber = decimal(*index);
    if (!groupNumber || !indexNumber)
        return std::nullopt;
    return CodexTrustSlot{.key = std::string(key),
                          .hooksPath = std::string(path),
                          .event = std::string(*event),
                          .group = *groupNumber,
                          .index = *indexNumber};
}

} // namespace wendlow
