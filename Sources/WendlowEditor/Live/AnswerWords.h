#pragma once

#include "Expected.h"

#include <string>

namespace wendlow::AnswerWords {

/// Whether a door that the daemon does not have is told, or taken for a strange answer.
enum class MissingDoor { strange, named };

/// What an answer was to.
enum class Question { anything, write, removal, meetingList, modsBoard, rulesCard, scopeBoard };

/// Why something could not be read or done: the daemon's own words, or that the answer to
/// `question` is not understood.
std::string of(const AnswerRefusal& refusal, Question question = Question::anything,
               MissingDoor door = MissingDoor::strange);

} // namespace wendlow::AnswerWords
