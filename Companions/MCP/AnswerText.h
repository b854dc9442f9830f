#pragma once

#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "GatewayResponse.h"

/// What a model reads of the gateway's answers. Pure.
namespace wendlow::AnswerText {

/// The answer in words; the error is the sentence of a failure. `tool` is what was called.
std::expected<std::string, std::string> told(const GatewayResponse& response,
                                             std::string_view tool);

/// The answer as a JSON object, for a client that would rather have its parts; nothing for what is
/// words to begin with, and for what is so long that nobody wants it twice.
std::optional<std::string> structured(const GatewayResponse& response);

} // namespace wendlow::AnswerText
