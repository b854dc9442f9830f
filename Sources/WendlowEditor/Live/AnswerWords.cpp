#include "Live/AnswerWords.h"

#include "Say.h"

namespace wendlow::AnswerWords {

namespace {

std::string strangeAnswer(Question question) {
    switch (question) {
    case Question::write:
        return say("Wendlow answered the write with something this mod does not understand.");
    case Question::removal:
        return say("Wendlow answered the delete with something this mod does not understand.");
    case Question::meetingList:
        return say(
            "Wendlow answered the meeting list with something this mod does not understand.");
    case Question::modsBoard:
        return say("Wendlow answered the mods board with something this mod does not understand.");
    case Question::rulesCard:
        return say("Wendlow answered the rules card with something this mod does not understand.");
    case Question::scopeBoard:
        return say("Wendlow answered the scope board with something this mod does not understand.");
    case Question::anything:
        break;
    }
    return say("Wendlow answered with something this mod does not understand.");
}

} // namespace

std::string of(const AnswerRefusal& refusal, Question question, MissingDoor door) {
    if (refusal.kind == AnswerRefusal::Kind::failure)
        return refusal.words;
    if (refusal.kind == AnswerRefusal::Kind::unimplemented && door == MissingDoor::named)
        return say("This build of Wendlow has no {} door.", refusal.words);
    return strangeAnswer(question);
}

} // namespace wendlow::AnswerWords
