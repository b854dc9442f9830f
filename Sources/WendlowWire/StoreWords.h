#pragma once

#include <string_view>

namespace wendlow {

/// The messages about the key and the store that take no arguments, and what the pane of the
/// recovery phrase reads.
enum class StoreWord {
    revealHasNoKeyBecauseThisBuildHasNone,
    revealHasNoKeyOnThisMac,
    enterHasNothingToUnlockOnThisBuild,
    phraseBadChecksum,
    refusedFolderIsEmpty,
    noKeyWasFoundOnThisMac,
    aKeyAppearedWhileChecking,
    noKeyForTheStoreOnDisk,
    storeUnreadableWithNoReason,
    gatewayUnavailableSuffix,
    aGrantIsMissing,
    paneArmedTitle,
    paneArmedBody,
    panePlaintextTitle,
    panePlaintextBody,
    panePhraseHeader,
    panePhraseFooter,
    paneRevealButton,
    paneHideButton,
    paneCopyButton,
    paneMaskedPhrase,
    paneRestoreHeader,
    paneRestoreFooter,
    paneRestorePrompt,
    paneRestoreButton,
    paneRestoreWorking,
    paneRestoreAccepted
};

namespace StoreWords {

/// Exactly the words that a person reads.
std::string_view text(StoreWord word);

} // namespace StoreWords
} // namespace wendlow
