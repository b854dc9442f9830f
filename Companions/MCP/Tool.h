#pragma once

#include <expected>
#include <string>
#include <string_view>
#include <vector>

#include <boost/json/value.hpp>

#include "GatewayRequest.h"

namespace wendlow {

/// What a tool takes under one name.
struct ToolArgument {
    enum class Kind {
        text,    ///< a string
        filters, ///< an object whose values are strings, numbers and booleans
    };

    std::string_view name;
    std::string_view item; ///< what the contract calls it, in the request that the tool makes
    Kind kind = Kind::text;
    bool isRequired = false;
    std::string_view description; ///< for a model
};

/// One row of the catalogue: a question or command of the contract that an AI tool may send, and
/// how the tool's arguments become it.
struct Tool {
    std::string_view name;
    std::string_view description; ///< for a model: when to use it, and what comes back
    std::string_view family;      ///< of requests: "read" or "notes"
    std::string_view request;     ///< the family's case
    std::vector<ToolArgument> arguments;
    bool needsOneMore = false; ///< with its required arguments alone it would ask for nothing

    /// As `tools/list` tells it.
    boost::json::value listed() const;

    /// The request that a call with these arguments makes: an object, or null for none. An error is
    /// a sentence for a model about what is wrong with them. An argument that is null is not given;
    /// what our own hooks add to a call is taken off.
    std::expected<GatewayRequest, std::string> read(const boost::json::value& given) const;
};

} // namespace wendlow
