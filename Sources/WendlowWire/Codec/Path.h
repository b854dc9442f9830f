#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The place of an error, told from the inside out while the calls return.
namespace wendlow::Codec::Path {

/// `path` as seen from one key further out.
void prepend(std::string& path, std::string_view key);
/// `path` as seen from one list further out.
void prepend(std::string& path, std::size_t index);

} // namespace wendlow::Codec::Path
