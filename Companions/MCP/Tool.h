#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <boost/json/value.hpp>

#include "GatewayRequest.h"

namespace wendlow {

/// What a tool takes under one name.
struct ToolArgument {
    enum class Kind : std::uint8_t {
        text,    ///< a string
        day,     ///< a string such as 2026-11-21
        number,  ///< a whole number from 1 to `most`
        flag,    ///< true or false
        names,   ///< an array of strings
        filters, ///< an object whose values are strings, numbers and booleans
    };

    std::string_view name;
    std::string_view item; ///< what the contract calls it, in the request that the tool makes
    Kind kind = Kind::text;
    bool isRequired = false;
    std::string_view description; ///< for a model
    std::int64_t most = 0;        ///< of a number
};

/// Who makes a call.
struct ToolCaller {
    std::string writer; ///< the tool, by the name that its hooks are called with
    std::optional<std::string> session = std::nullopt;
    std::optional<std::string> subagent = std::nullopt;
};

/// One row of the catalogue: a question or command of the contract that an AI tool may send, and
/// how the tool's arguments become it.
struct Tool {
    /// What a call does to the memory, for a client that asks its person before some of them.
    enum class Effect : std::uint8_t {
        reads,
        adds,    ///< each call once more
        changes, ///< the same call twice leaves what one left
        removes,
    };

    // GCC 12 calls a field that a designated initializer leaves out missing unless it has a
    // default. NOLINTBEGIN(readability-redundant-member-init)
    std::string_view name;
    std::string_view title;       ///< for a person
    std::string_view description; ///< for a model: when to use it, and what comes back
    Effect effect = Effect::reads;
    std::string_view family;  ///< of requests: "read" or "notes"
    std::string_view request; ///< the family's case
    std::vector<ToolArgument> arguments = {};
    bool needsOneMore = false;     ///< with its required arguments alone it would ask for nothing
    std::string_view items = "{}"; ///< of the request, where no argument sets them
    /// Items of the request, of who makes the call: "writer", "session", "subagent".
    std::vector<std::string_view> tells = {};
    // NOLINTEND(readability-redundant-member-init)

    /// As `tools/list` tells it.
    boost::json::value listed() const;

    /// The request that a call with these arguments makes: an object, or null for none. An error is
    /// a sentence for a model about what is wrong with them. An argument that is null is not given;
    /// what our own hooks add to a call is taken off, and tells the session before `caller` does.
    std::expected<GatewayRequest, std::string> read(const boost::json::value& given,
                                                    ToolCaller caller) const;
};

} // namespace wendlow
