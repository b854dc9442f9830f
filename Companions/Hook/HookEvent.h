#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <boost/json/object.hpp>

namespace wendlow {

/// What a tool says of an event. Each tool spells the members its own way; what one leaves out, or
/// gives as another kind of value, is not there.
struct HookEvent {
    std::optional<std::string> prompt = std::nullopt;
    std::optional<std::string> cwd = std::nullopt;
    std::optional<std::string> session = std::nullopt;
    std::optional<std::string> subagent = std::nullopt;
    std::optional<std::string> transcript = std::nullopt;
    std::string tool;                                        ///< that is about to be called
    std::optional<boost::json::object> input = std::nullopt; ///< of that call
    bool isCursors = false; ///< Cursor also runs the entries that it finds in Claude Code's file

    /// Nothing for what is no JSON object. Never throws.
    static std::optional<HookEvent> read(std::string_view json);
};

} // namespace wendlow
