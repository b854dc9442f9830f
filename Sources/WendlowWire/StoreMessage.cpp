#include "StoreMessage.h"

#include <algorithm>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "StoreClause.h"

namespace wendlow {

namespace {

using namespace StoreClause;
using StoreCase::Names;

std::string list(const Names& names) {
    return StoreMessage::nameList(names);
}

/// Begins with the blank that parts it from the sentence before; empty where all was checked.
std::string notChecked(std::int64_t count) {
    return count < 1 ? ""
                     : fmt::format(" {} more readable store file(s) in the folder were not checked "
                                   "at all.",
                                   count);
}

/// A sentence that ends in a list, after a blank; empty without names. The first slot of `format`
/// takes their number, the second their list.
std::string naming(fmt::format_string<std::size_t, std::string> format, const Names& names) {
    return names.empty() ? "" : ' ' + fmt::format(format, names.size(), list(names));
}

std::string text(StoreWord word) {
    return std::string(StoreWords::text(word));
}

std::string text(const StoreCase::RevealKeyOpenedNothing& it) {
    return fmt::format("the key on this Mac did not open any of the {} store file(s) Wendlow "
                       "checked.{} {} If you kept a recovery phrase, you can enter it in the field "
                       "below.",
                       it.tried, notChecked(it.notProbed), nothingOfYoursMoved);
}

std::string text(const StoreCase::RevealFailed& it) {
    return "the recovery phrase could not be read: " + it.detail;
}

std::string text(const StoreCase::AdoptionFailed& it) {
    return "the phrase could not be adopted: " + it.detail;
}

std::string text(const StoreCase::NotARecoveryVerb& it) {
    return it.verb + " is not a recovery verb";
}

std::string text(const StoreCase::PhraseWrongWordCount& it) {
    return fmt::format("a recovery phrase is {} words — this one has {}", it.expected, it.got);
}

std::string text(const StoreCase::PhraseUnknownWord& it) {
    return fmt::format("\"{}\" is not one of the recovery words — check its spelling", it.word);
}

std::string text(const StoreCase::RefusedNothingCouldBeOpened& it) {
    return fmt::format(
        "there are {} item(s) in Wendlow's folder ({}), and Wendlow could not open a database "
        "among "
        "them to check the phrase against. Nothing was written and nothing was deleted.{} {} A "
        "phrase can be checked here once there is a store database in that folder Wendlow can "
        "open.",
        it.seen.size(), list(it.seen),
        naming("It was refused at {} of them, so it does not know what is in those: {}",
               it.couldNotRead),
        cannotBeFixedFromHere);
}

std::string text(const StoreCase::RefusedAKeyIsAlreadyHere& it) {
    const std::string checked =
        it.tried == 0
            ? "There was no store file Wendlow could open to check that key against."
            : fmt::format("The key here opened {} of the {} store file(s) Wendlow checked.{}",
                          it.opened, it.tried, notChecked(it.notProbed));
    return fmt::format(
        "this Mac already holds a Wendlow store key, and a phrase is only ever added to a Mac that "
        "holds none — Wendlow never changes or deletes a key it did not just create. {}{} The "
        "phrase you just typed was not checked against anything — Wendlow stopped as soon as it "
        "found a key here. {} Your key and your phrase are untouched. {}",
        checked,
        naming("It was also refused at {} item(s) in the folder, so it does not know what is in "
               "those: {}",
               it.couldNotRead),
        nothingOfYoursMoved, revealIsAvailable);
}

std::string text(const StoreCase::RefusedPhraseOpenedNothing& it) {
    return fmt::format(
        "those twelve words are a valid recovery phrase, and they did not open any of the {} store "
        "file(s) Wendlow checked.{}{} {} Another phrase can be checked here whenever you have one.",
        it.tried, notChecked(it.notProbed),
        naming("Wendlow was refused at {} other item(s) in the folder and could not check those at "
               "all: {}",
               it.couldNotRead),
        nothingOfYoursMoved);
}

std::string text(const StoreCase::KeyItemIsNotReadableAsAKey& it) {
    return fmt::format(
        "the Keychain item for Wendlow's store key is {} bytes, not {}, so it cannot be read as a "
        "Wendlow key. Nothing was changed or deleted by this request, and Wendlow will not change "
        "or delete it. Wendlow cannot add a key while an item is there. {}",
        it.bytes, it.expected, cannotBeFixedFromHere);
}

std::string text(const StoreCase::KeychainRefused& it) {
    return fmt::format("the Keychain refused (OSStatus {})", it.status);
}

std::string text(const StoreCase::PhraseAccepted& it) {
    std::string result =
        fmt::format("Phrase accepted: it opened {} of the {} store file(s) Wendlow "
                    "checked, and the key was installed.",
                    it.opened, it.tried);
    if (!it.didNotOpen.empty())
        result += " These did not open with it: " + list(it.didNotOpen);
    if (!it.couldNotRead.empty())
        result += " Wendlow was refused at these, so it does not know what is in them: " +
                  list(it.couldNotRead);
    if (!it.notProbed.empty())
        result += fmt::format(" These were never checked, because Wendlow only ever tries {} store "
                              "files: {}",
                              it.limit, list(it.notProbed));
    return result + " Nothing was deleted, moved or re-keyed. Wendlow is restarting.";
}

std::string text(const StoreCase::FolderIsNotEmpty& it) {
    const std::string advice =
        it.aPhraseCouldBeChecked
            ? std::string(thePhraseIsAnOption)
            : fmt::format("There is no store database in that folder for a recovery phrase to be "
                          "checked against, so entering one here would be refused. {}",
                          cannotBeFixedFromHere);
    return fmt::format(
        "store locked: Wendlow's folder ({}) is not empty and this Mac holds no key, so Wendlow "
        "did "
        "not start a new memory over what is there. It found {} item(s): {} {}{} {}",
        it.folder, it.present.size(), list(it.present), nothingOfYoursCreated,
        naming("It could not read {} of them, so it does not know what is in those: {}",
               it.couldNotRead),
        advice);
}

std::string text(const StoreCase::CouldNotOpenTheStore& it) {
    return fmt::format(
        "{} — Wendlow could not open the store on disk. {}{} {}", it.detail, nothingOfYoursChanged,
        naming("It was also refused at {} item(s) in the folder, so it does not know what is in "
               "those: {}",
               it.couldNotRead),
        it.offerThePhrase ? thePhraseIsAnOption : cannotBeFixedFromHere);
}

std::string text(const StoreCase::StoreUnreadable& it) {
    return "store unreadable: " + it.reason;
}

std::string text(const StoreCase::SidecarsDidNotOpen& it) {
    std::string result = fmt::format("{} of your store's files did not open with the key that "
                                     "opened data.db ({})",
                                     it.didNotOpen.size(), list(it.didNotOpen));
    if (!it.couldNotRead.empty())
        result += fmt::format(", and Wendlow was refused at {} item(s) in its folder, so it does "
                              "not know what is in those ({})",
                              it.couldNotRead.size(), list(it.couldNotRead));
    return result + fmt::format(" (it checked {} store file(s) beside data.db).{} {}", it.checked,
                                notChecked(it.notProbed), nothingOfYoursMoved);
}

std::string text(const StoreCase::TruthFileWasNotThere& it) {
    return fmt::format(
        "Wendlow started a NEW EMPTY diary: the file your moments, settings and rules live in "
        "(data.db) was not there at startup, while other items were still in Wendlow's folder, so "
        "Wendlow created a new empty one. Nothing was deleted to do that, and whatever else is in "
        "the folder was left exactly as it was. {}{}",
        cannotBeFixedFromHere,
        it.unrecorded ? " (Wendlow could not write this down, so it may not appear again after a "
                        "restart.)"
                      : "");
}

std::string text(const StoreCase::StoreKeyNeedsAPerson& it) {
    return fmt::format(
        "store locked: Wendlow runs in the background with nobody in front of it, so it never asks "
        "this Mac's Keychain to hand over the key to your memory — and the Keychain would only "
        "give "
        "that key up by asking (OSStatus {}). Wendlow is up, but it did not open your memory and "
        "it "
        "is capturing nothing. {} Wendlow can reach the key again when it is opened from the app, "
        "where somebody is there to allow it.",
        it.status, nothingOfYoursCreated);
}

} // namespace

std::string StoreMessage::text() const {
    return std::visit([](const auto& which) { return wendlow::text(which); }, *this);
}

std::string StoreMessage::nameList(std::span<const std::string> names, std::size_t show) {
    Names sorted(names.begin(), names.end());
    std::ranges::sort(sorted);
    const std::size_t rest = sorted.size() - std::min(show, sorted.size());
    sorted.resize(sorted.size() - rest);
    return fmt::format("{}", fmt::join(sorted, ", ")) +
           (rest > 0 ? fmt::format(", and {} more", rest) : "");
}

} // namespace wendlow
