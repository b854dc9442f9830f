#pragma once

#include "Expected.h"

#include <string>
#include <string_view>

namespace wendlow::AnswerWords {

/// Whether a door that the daemon does not have is told, or taken for a strange answer.
enum class MissingDoor { strange, named };

/// Why something could not be read or done: the daemon's own words, or that the answer to
/// `question`, "the write" or nothing, is not understood.
std::string of(const AnswerRefusal& refusal, std::string_view question = {},
               MissingDoor door = MissingDoor::strange);

} // namespace wendlow::AnswerWords
