#include "Live/AnswerWords.h"

#include <fmt/format.h>

namespace wendlow::AnswerWords {

std::string of(const AnswerRefusal& refusal, std::string_view question, MissingDoor door) {
    if (refusal.kind == AnswerRefusal::Kind::failure)
        return refusal.words;
    if (refusal.kind == AnswerRefusal::Kind::unimplemented && door == MissingDoor::named)
        return fmt::format("This build of Wendlow has no {} door.", refusal.words);
    return fmt::format("Wendlow answered{}{} with something this mod does not understand.",
                       question.empty() ? "" : " ", question);
}

} // namespace wendlow::AnswerWords
