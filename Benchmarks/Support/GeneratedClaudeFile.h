#pragma once

#include <cstddef>
#include <string>

namespace wendlow::benchmarks {

/// Two ways in which a `.claude.json` grows large.
enum class ClaudeFileKind {
    shortHistories, ///< hundreds of projects, each with a history of short texts
    longPastes,     ///< few projects, their histories full of long pasted texts
};

/// A `.claude.json` of at least `size` bytes and hardly more, as its owner prints it: two spaces of
/// indentation, LF, no final line end, escapes and non-ASCII in its texts. Its last member is
/// `mcpServers` with one server in it. The same arguments always give the same bytes.
std::string generatedClaudeFile(ClaudeFileKind kind, std::size_t size);

/// The sizes that people have, in bytes.
inline constexpr std::size_t megabyte = 1000 * 1000;
inline constexpr std::size_t usualLargeSize = 13 * megabyte;

} // namespace wendlow::benchmarks
