#include "StoreMessage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

constexpr std::string_view moved =
    "No key was written, and nothing of your memory was changed, deleted or re-keyed — checking a "
    "store file can leave SQLite's own empty \"-wal\"/\"-shm\" sidecars beside it, and nothing "
    "else.";
constexpr std::string_view option = "This Mac holds no Wendlow key. If you kept your 12-word "
                                    "recovery phrase, you can enter it in Settings › Recovery.";

TEST(StoreMessage, ListsTheFirstEightNamesInOrder) {
    std::vector<std::string> names = {"h", "g", "f", "e", "d", "c", "b", "a"};
    EXPECT_EQ(StoreMessage::nameList(names), "a, b, c, d, e, f, g, h");
    names.emplace_back("A");
    EXPECT_EQ(StoreMessage::nameList(names), "A, a, b, c, d, e, f, g, and 1 more");
    EXPECT_EQ(StoreMessage::nameList({}), "");
}

TEST(StoreMessage, SaysEachPartOnlyWhereItHolds) {
    using namespace StoreCase;
    const std::pair<StoreMessage, std::string> rows[] = {
        {RevealKeyOpenedNothing{.tried = 3},
         "the key on this Mac did not open any of the 3 store file(s) Wendlow checked. " +
             std::string(moved) +
             " If you kept a recovery phrase, you can enter it in the field below."},
        {RefusedPhraseOpenedNothing{.tried = 1, .couldNotRead = {"x"}, .notProbed = 2},
         "those twelve words are a valid recovery phrase, and they did not open any of the 1 store "
         "file(s) Wendlow checked. 2 more readable store file(s) in the folder were not checked at "
         "all. Wendlow was refused at 1 other item(s) in the folder and could not check those at "
         "all: x " +
             std::string(moved) + " Another phrase can be checked here whenever you have one."},
        {RefusedNothingCouldBeOpened{.seen = {"b", "a"}, .couldNotRead = {}},
         "there are 2 item(s) in Wendlow's folder (a, b), and Wendlow could not open a database "
         "among them to check the phrase against. Nothing was written and nothing was deleted. "
         "Wendlow cannot fix this from here. A phrase can be checked here once there is a store "
         "database in that folder Wendlow can open."},
        {RefusedAKeyIsAlreadyHere{.opened = 1, .tried = 2, .couldNotRead = {}, .notProbed = 1},
         "this Mac already holds a Wendlow store key, and a phrase is only ever added to a Mac "
         "that holds none — Wendlow never changes or deletes a key it did not just create. The key "
         "here opened 1 of the 2 store file(s) Wendlow checked. 1 more readable store file(s) in "
         "the folder were not checked at all. The phrase you just typed was not checked against "
         "anything — Wendlow stopped as soon as it found a key here. " +
             std::string(moved) +
             " Your key and your phrase are untouched. To see the phrase for the key this Mac does "
             "hold, use Reveal Recovery Phrase above; that only reads and changes nothing."},
        {PhraseAccepted{.opened = 2,
                        .tried = 4,
                        .didNotOpen = {"d", "c"},
                        .couldNotRead = {"e"},
                        .notProbed = {"f"},
                        .limit = 4},
         "Phrase accepted: it opened 2 of the 4 store file(s) Wendlow checked, and the key was "
         "installed. These did not open with it: c, d Wendlow was refused at these, so it does not "
         "know what is in them: e These were never checked, because Wendlow only ever tries 4 "
         "store files: f Nothing was deleted, moved or re-keyed. Wendlow is restarting."},
        {FolderIsNotEmpty{.folder = "/w",
                          .present = {"x"},
                          .couldNotRead = {"y"},
                          .aPhraseCouldBeChecked = true},
         "store locked: Wendlow's folder (/w) is not empty and this Mac holds no key, so Wendlow "
         "did not start a new memory over what is there. It found 1 item(s): x No key was made, "
         "and nothing of your memory was created, deleted, moved or re-keyed. It could not read 1 "
         "of them, so it does not know what is in those: y " +
             std::string(option)},
        {CouldNotOpenTheStore{.detail = "disk image is malformed", .couldNotRead = {}},
         "disk image is malformed — Wendlow could not open the store on disk. Nothing of your "
         "memory was deleted, moved or re-keyed, and no key was made. Opening or checking a store "
         "does write, though: Wendlow may have created its own \"frames\" or \"pen\" folder, or "
         "SQLite's own empty \"-wal\"/\"-shm\" sidecars, before it stopped. Wendlow cannot fix "
         "this from here."},
        {SidecarsDidNotOpen{.didNotOpen = {"a.db"}, .couldNotRead = {"b"}, .checked = 3},
         "1 of your store's files did not open with the key that opened data.db (a.db), and "
         "Wendlow was refused at 1 item(s) in its folder, so it does not know what is in those (b) "
         "(it checked 3 store file(s) beside data.db). " +
             std::string(moved)},
        {KeychainRefused{-25308}, "the Keychain refused (OSStatus -25308)"},
    };
    for (const auto& [message, text] : rows)
        EXPECT_EQ(message.text(), text);
}

TEST(StoreMessage, SaysNothingOfWhatDidNotHappen) {
    using ::testing::EndsWith;
    using ::testing::HasSubstr;
    using ::testing::Not;
    const StoreMessage untried =
        StoreCase::RefusedAKeyIsAlreadyHere{.couldNotRead = {"k"}, .notProbed = 5};
    EXPECT_THAT(untried.text(), Not(HasSubstr("The key here opened")));
    EXPECT_THAT(untried.text(),
                HasSubstr("that key against. It was also refused at 1 item(s) in the folder, so it "
                          "does not know what is in those: k The "));
    const std::string recorded = StoreMessage(StoreCase::TruthFileWasNotThere{}).text();
    EXPECT_THAT(recorded, EndsWith("Wendlow cannot fix this from here."));
    EXPECT_EQ(
        StoreMessage(StoreCase::TruthFileWasNotThere{.unrecorded = true}).text(),
        recorded +
            " (Wendlow could not write this down, so it may not appear again after a restart.)");
    EXPECT_THAT(StoreMessage(StoreCase::FolderIsNotEmpty{}).text(),
                EndsWith("re-keyed. There is no store database in that folder for a recovery "
                         "phrase to be checked against, so entering one here would be refused. "
                         "Wendlow cannot fix this from here."));
}

TEST(StoreMessage, EveryPlainWordHasItsText) {
    std::set<std::string> texts;
    for (int word = 0; word <= static_cast<int>(StoreWord::paneRestoreAccepted); ++word)
        texts.insert(StoreMessage(static_cast<StoreWord>(word)).text());
    EXPECT_EQ(texts.size(), 27U);
    EXPECT_FALSE(texts.contains(""));
    EXPECT_EQ(StoreMessage(StoreWord::paneRestorePrompt).text(),
              "word one  word two  word three …");
}

} // namespace
} // namespace wendlow
