#pragma once

#include "Rule.h"

#include <string>
#include <string_view>

/// Makes what a person typed fit for a rule. Pure.
namespace wendlow::RuleInput {

/// The host of an address: without scheme, "www." and path, in lower case. A port stays.
std::string domain(std::string_view text);

/// A phrase has a blank in it.
RuleKind wordKind(std::string_view text);

} // namespace wendlow::RuleInput
