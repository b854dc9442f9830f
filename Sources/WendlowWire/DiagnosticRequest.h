#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "Described.h"

namespace wendlow {

namespace DiagnosticCase {

struct Log {
    std::string source; ///< the raw string of a `DiagnosticSource`
    std::string line;
    WENDLOW_REQUEST(Log, "log", "log", source, line);
};

} // namespace DiagnosticCase

/// A line for the daemon's log.
struct DiagnosticRequest : std::variant<DiagnosticCase::Log> {
    using variant::variant;

    static constexpr std::string_view typeName = "DiagnosticRequest";

    std::string_view verb() const;
};

} // namespace wendlow
