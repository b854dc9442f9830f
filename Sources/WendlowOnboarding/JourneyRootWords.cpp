#include "JourneyRoot.h"

#include "JourneyWords.h"

/// The words of the root that are the same on every screen.
namespace wendlow {

namespace {

namespace Words = JourneyWords;

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8);
}

} // namespace

QString JourneyRoot::backWords() {
    return text(Words::Beside::back);
}
QString JourneyRoot::returnWords() {
    return text(Words::Beside::forward);
}
QString JourneyRoot::termsTick() {
    return text(Words::Welcome::termsTick);
}
QString JourneyRoot::termsWord() {
    return text(Words::Welcome::termsWord);
}
QString JourneyRoot::updatesTick() {
    return text(Words::Welcome::updatesTick);
}
QString JourneyRoot::awaiting() {
    return text(Words::Permission::awaiting);
}
QString JourneyRoot::wroteItDownTick() {
    return text(Words::RecoveryKey::tick);
}
QString JourneyRoot::phraseHint() {
    return text(Words::RecoveryKey::hint);
}
QString JourneyRoot::cancelWords() {
    return text(Words::LocalModels::cancelButton);
}
QString JourneyRoot::confirmTitle() {
    return text(Words::LocalModels::confirmTitle);
}
QString JourneyRoot::confirmBody() {
    return text(Words::LocalModels::confirmBody);
}
QString JourneyRoot::confirmProceed() {
    return text(Words::LocalModels::confirmProceed);
}
QString JourneyRoot::confirmKeepGoing() {
    return text(Words::LocalModels::confirmKeep);
}
QString JourneyRoot::cancellingWords() {
    return text(Words::Beside::cancelling);
}
QString JourneyRoot::cancelFailedTitle() {
    return text(Words::LocalModels::cancelFailedTitle);
}
QString JourneyRoot::cancelFailedBody() {
    return text(Words::LocalModels::cancelFailedBody);
}
QString JourneyRoot::cancelFailedButton() {
    return text(Words::LocalModels::cancelFailedButton);
}
QString JourneyRoot::stepOne() {
    return text(Words::SayHello::stepOne);
}
QString JourneyRoot::stepOneSub() {
    return text(Words::SayHello::stepOneSub);
}
QString JourneyRoot::stepTwo() {
    return text(Words::SayHello::stepTwo);
}
QString JourneyRoot::stepTwoSub() {
    return text(Words::SayHello::stepTwoSub);
}
QString JourneyRoot::bothLine() {
    return text(Words::SayHello::bothLine);
}

} // namespace wendlow
