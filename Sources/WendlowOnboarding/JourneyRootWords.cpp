#include "JourneyRoot.h"

#include "JourneyWords.h"

/// The words of the root that are the same on every screen.
namespace wendlow {

namespace {

namespace Words = JourneyWords;

QString inWords(Words::Text text) {
    return QString::fromUtf8(text.said());
}

} // namespace

QString JourneyRoot::backWords() {
    return inWords(Words::Beside::back);
}
QString JourneyRoot::returnWords() {
    return inWords(Words::Beside::forward);
}
QString JourneyRoot::termsTick() {
    return inWords(Words::Welcome::termsTick);
}
QString JourneyRoot::termsWord() {
    return QString::fromUtf8(
        Words::linkIn(Words::Welcome::termsTick.said(), Words::Welcome::termsWord.said()));
}
QString JourneyRoot::updatesTick() {
    return inWords(Words::Welcome::updatesTick);
}
QString JourneyRoot::awaiting() {
    return inWords(Words::Permission::awaiting);
}
QString JourneyRoot::wroteItDownTick() {
    return inWords(Words::RecoveryKey::tick);
}
QString JourneyRoot::phraseHint() {
    return inWords(Words::RecoveryKey::hint);
}
QString JourneyRoot::cancelWords() {
    return inWords(Words::LocalModels::cancelButton);
}
QString JourneyRoot::confirmTitle() {
    return inWords(Words::LocalModels::confirmTitle);
}
QString JourneyRoot::confirmBody() {
    return inWords(Words::LocalModels::confirmBody);
}
QString JourneyRoot::confirmProceed() {
    return inWords(Words::LocalModels::confirmProceed);
}
QString JourneyRoot::confirmKeepGoing() {
    return inWords(Words::LocalModels::confirmKeep);
}
QString JourneyRoot::cancellingWords() {
    return inWords(Words::Beside::cancelling);
}
QString JourneyRoot::cancelFailedTitle() {
    return inWords(Words::LocalModels::cancelFailedTitle);
}
QString JourneyRoot::cancelFailedBody() {
    return inWords(Words::LocalModels::cancelFailedBody);
}
QString JourneyRoot::cancelFailedButton() {
    return inWords(Words::LocalModels::cancelFailedButton);
}
QString JourneyRoot::stepOne() {
    return inWords(Words::SayHello::stepOne);
}
QString JourneyRoot::stepOneSub() {
    return inWords(Words::SayHello::stepOneSub);
}
QString JourneyRoot::stepTwo() {
    return inWords(Words::SayHello::stepTwo);
}
QString JourneyRoot::stepTwoSub() {
    return inWords(Words::SayHello::stepTwoSub);
}
QString JourneyRoot::bothLine() {
    return inWords(Words::SayHello::bothLine);
}

} // namespace wendlow
