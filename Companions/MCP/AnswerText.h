#pragma once

#include <expected>
#include <string>
#include <string_view>

#include "GatewayResponse.h"

/// What a model reads of the gateway's answers. Pure.
namespace wendlow::AnswerText {

/// The answer in words; the error is the sentence of a failure. `tool` is what was called.
std::expected<std::string, std::string> told(const GatewayResponse& response,
                                             std::string_view tool);

} // namespace wendlow::AnswerText
