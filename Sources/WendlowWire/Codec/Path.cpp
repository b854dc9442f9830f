#include "Codec/Path.h"

#include <fmt/format.h>

namespace wendlow::Codec::Path {

namespace {

std::string_view separator(const std::string& path) {
    return path.empty() || path.starts_with('[') ? "" : ".";
}

} // namespace

void prepend(std::string& path, std::string_view key) {
    path = fmt::format("{}{}{}", key, separator(path), path);
}

void prepend(std::string& path, std::size_t index) {
    path = fmt::format("[{}]{}{}", index, separator(path), path);
}

} // namespace wendlow::Codec::Path
