#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "GatewayResponse.h"
#include "HookCall.h"

/// What a model reads of the gateway's answers at a prompt. Pure; an empty text is nothing to say.
namespace wendlow::HookText {

/// The standing rules, of a `RulesCard` or a `StandingWalk`.
std::string rules(const GatewayResponse& answer);

/// What is there to fetch: the types at a scope, and the rules modules that `card` names.
std::string index(std::string_view scope, const AnswerCase::KindTypes& types,
                  const AnswerCase::RulesCard* card);

/// What is remembered that has to do with the prompt.
std::string recall(const AnswerCase::Primed& answer);

/// As the tool counts that takes it.
std::size_t size(std::string_view text, const HookHarness& harness);

/// At most `most` of it, whole lines where one fits, with a last line that says that it was cut.
std::string within(std::string text, std::size_t most, const HookHarness& harness);

/// Between the tags of a block. What stands in it cannot end it.
std::string block(std::string_view tag, std::string_view text);

} // namespace wendlow::HookText
