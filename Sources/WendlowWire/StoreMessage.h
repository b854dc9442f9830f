#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "StoreWords.h"

namespace wendlow {

/// What can be told of a case. `tried`, `opened` and `checked` count store files, `couldNotRead`
/// and its like name items of the product's folder, in any order. `notProbed` are the store files
/// that were left out, as a number, or by name where a person is to read them.
namespace StoreCase {

using Names = std::vector<std::string>;

struct RevealKeyOpenedNothing {
    std::int64_t tried = 0;
    std::int64_t notProbed = 0;
};
struct RevealFailed {
    std::string detail;
};
struct AdoptionFailed {
    std::string detail;
};
struct NotARecoveryVerb {
    std::string verb;
};
struct PhraseWrongWordCount {
    std::int64_t expected = 0;
    std::int64_t got = 0;
};
struct PhraseUnknownWord {
    std::string word;
};
struct RefusedNothingCouldBeOpened {
    Names seen;
    Names couldNotRead;
};
struct RefusedAKeyIsAlreadyHere {
    std::int64_t opened = 0;
    std::int64_t tried = 0;
    Names couldNotRead;
    std::int64_t notProbed = 0;
};
struct RefusedPhraseOpenedNothing {
    std::int64_t tried = 0;
    Names couldNotRead;
    std::int64_t notProbed = 0;
};
struct KeyItemIsNotReadableAsAKey {
    std::int64_t bytes = 0;
    std::int64_t expected = 0;
};
struct KeychainRefused {
    std::int64_t status = 0;
};
struct PhraseAccepted {
    std::int64_t opened = 0;
    std::int64_t tried = 0;
    Names didNotOpen;
    Names couldNotRead;
    Names notProbed;
    std::int64_t limit = 0;
};
struct FolderIsNotEmpty {
    std::string folder;
    Names present;
    Names couldNotRead;
    bool aPhraseCouldBeChecked = false;
};
struct CouldNotOpenTheStore {
    std::string detail;
    Names couldNotRead;
    bool offerThePhrase = false;
};
struct StoreUnreadable {
    std::string reason;
};
struct SidecarsDidNotOpen {
    Names didNotOpen;
    Names couldNotRead;
    std::int64_t checked = 0;
    std::int64_t notProbed = 0;
};
struct TruthFileWasNotThere {
    bool unrecorded = false; ///< nor could that be written down
};
struct StoreKeyNeedsAPerson {
    std::int64_t status = 0;
};

} // namespace StoreCase

/// Whatever goes wrong around the store's key, told in one voice by the daemon and by the panes:
/// what happened, what did not happen to the person's data, and what the person can do. Words only;
/// nothing here decides anything.
struct StoreMessage
    : std::variant<StoreWord, StoreCase::RevealKeyOpenedNothing, StoreCase::RevealFailed,
                   StoreCase::AdoptionFailed, StoreCase::NotARecoveryVerb,
                   StoreCase::PhraseWrongWordCount, StoreCase::PhraseUnknownWord,
                   StoreCase::RefusedNothingCouldBeOpened, StoreCase::RefusedAKeyIsAlreadyHere,
                   StoreCase::RefusedPhraseOpenedNothing, StoreCase::KeyItemIsNotReadableAsAKey,
                   StoreCase::KeychainRefused, StoreCase::PhraseAccepted,
                   StoreCase::FolderIsNotEmpty, StoreCase::CouldNotOpenTheStore,
                   StoreCase::StoreUnreadable, StoreCase::SidecarsDidNotOpen,
                   StoreCase::TruthFileWasNotThere, StoreCase::StoreKeyNeedsAPerson> {
    using variant::variant;

    /// Plain text, exactly the words that a person reads.
    std::string text() const;

    /// The names in order, the first `show` of them, and how many more there are.
    static std::string nameList(std::span<const std::string> names, std::size_t show = 8);
};

} // namespace wendlow
