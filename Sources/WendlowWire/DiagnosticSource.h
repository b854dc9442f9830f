#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <boost/describe/enum.hpp>

namespace wendlow {

/// Which program a line in the daemon's log comes from.
enum class DiagnosticSource { menu, settings, editor, mcp, ctl };
BOOST_DESCRIBE_ENUM(DiagnosticSource, menu, settings, editor, mcp, ctl)

namespace DiagnosticSources {

inline constexpr std::string_view unknownCategory = "client";

/// The source that a text names, whatever its case and the white space around it.
std::optional<DiagnosticSource> read(std::string_view text);

/// The category of the log that lines of the named source go to; `unknownCategory` for no source.
std::string_view category(std::string_view text);

} // namespace DiagnosticSources
} // namespace wendlow
