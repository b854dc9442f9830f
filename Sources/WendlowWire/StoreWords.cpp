#include "StoreWords.h"

#include "Say.h"

namespace wendlow::StoreWords {

namespace {

const char* english(StoreWord word) {
    switch (word) {
    case StoreWord::revealHasNoKeyBecauseThisBuildHasNone:
        return "this Wendlow does not lock its store with a key, so there is no recovery phrase "
               "to reveal.";
    case StoreWord::revealHasNoKeyOnThisMac:
        return "this Mac holds no Wendlow store key, so there is no phrase to reveal here. No key "
               "was made, and nothing of your memory was created, deleted, moved or re-keyed. If "
               "you kept a recovery phrase, you can enter it in the field below.";
    case StoreWord::enterHasNothingToUnlockOnThisBuild:
        return "this Wendlow does not lock its store with a key, so there is nothing here for a "
               "recovery phrase to unlock. Nothing was written.";
    case StoreWord::phraseBadChecksum:
        return "that phrase failed its checksum — one of the twelve words is wrong or out of "
               "order";
    case StoreWord::refusedFolderIsEmpty:
        return "Wendlow's folder is empty — there is nothing here for a phrase to be checked "
               "against. Nothing was written.";
    case StoreWord::noKeyWasFoundOnThisMac:
        return "no Wendlow store key was found on this Mac, so there is nothing for a phrase to "
               "be checked against here";
    case StoreWord::aKeyAppearedWhileChecking:
        return "a key appeared on this Mac while the phrase was being checked — nothing was "
               "overwritten.";
    case StoreWord::noKeyForTheStoreOnDisk:
        return sayLater(
            "this Mac holds no key for the store on disk — that is what the phrase is for");
    case StoreWord::storeUnreadableWithNoReason:
        return "store unreadable";
    case StoreWord::gatewayUnavailableSuffix:
        return "; gateway unavailable";
    case StoreWord::aGrantIsMissing:
        return "a grant is missing";
    case StoreWord::paneArmedTitle:
        return sayLater("Your memory is encrypted");
    case StoreWord::paneArmedBody:
        return sayLater(
            "Wendlow locks the memory on this Mac's disk, and your recovery phrase is the "
            "twelve-word form of that key.");
    case StoreWord::panePlaintextTitle:
        return sayLater("This build does not encrypt its memory");
    case StoreWord::panePlaintextBody:
        return sayLater(
            "This is a development build of Wendlow, and it keeps its store unencrypted on "
            "disk. There is no key here and no recovery phrase to reveal.");
    case StoreWord::panePhraseHeader:
        return sayLater("Recovery Phrase");
    case StoreWord::panePhraseFooter:
        return sayLater(
            "These twelve words are the key to the memory on this Mac. Write them down and "
            "store them somewhere safe.");
    case StoreWord::paneRevealButton:
        return sayLater("Reveal Recovery Phrase");
    case StoreWord::paneHideButton:
        return sayLater("Hide Recovery Phrase");
    case StoreWord::paneCopyButton:
        return sayLater("Copy");
    case StoreWord::paneMaskedPhrase:
        return "••••  ••••  ••••  ••••  ••••  ••••";
    case StoreWord::paneRestoreHeader:
        return sayLater("Restore from a recovery phrase");
    case StoreWord::paneRestoreFooter:
        return sayLater(
            "Your memory stays on disk, locked, until the right phrase arrives. A wrong "
            "phrase installs no key and erases nothing; checking one can leave SQLite's own "
            "empty sidecar files beside your store, and nothing else.");
    case StoreWord::paneRestorePrompt:
        return sayLater("word one  word two  word three …");
    case StoreWord::paneRestoreButton:
        return sayLater("Unlock with Recovery Phrase");
    case StoreWord::paneRestoreWorking:
        return sayLater("Checking the phrase…");
    case StoreWord::paneRestoreAccepted:
        return sayLater("Phrase accepted. Wendlow is restarting to unlock your memory.");
    }
    return "";
}

} // namespace

std::string_view text(StoreWord word) {
    return english(word);
}

std::string_view said(StoreWord word) {
    return say.view(english(word));
}

} // namespace wendlow::StoreWords
