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

/// Exactly the words, as the daemon sends them to clients of every language.
std::string_view text(StoreWord word);
/// What the pane reads of its own words, in the person's language. It lasts.
std::string_view said(StoreWord word);

} // namespace StoreWords
} // namespace wendlow
