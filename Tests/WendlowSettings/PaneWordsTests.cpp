// The words of the panes that ask the daemon, and what decides them.

#include "Classifier/ClassifierStatus.h"
#include "Files.h"
#include "General/PrivacyWords.h"
#include "PaneQuestion.h"
#include "Recording/InstalledApps.h"
#include "Recording/RuleInput.h"
#include "StorageWords.h"
#include "TemporaryHome.h"

#include <gmock/gmock.h>

#include <limits>

namespace wendlow {
namespace {

using namespace PrivacyWords;
using ::testing::ElementsAre;

constexpr std::int64_t megabyte = std::int64_t{1} << 20U;
constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();

TEST(PaneWords, TellSizes) {
    const std::pair<std::int64_t, const char*> rows[] = {
        {0, "0 MB"},
        {-most, "0 MB"},
        {megabyte - 1, "0 MB"},
        {999 * megabyte, "999 MB"},
        {999 * megabyte + 1, "1.0 GB"},
        {2048 * megabyte, "2.0 GB"},
        {most, "8589934592.0 GB"},
    };
    for (const auto& [bytes, words] : rows)
        EXPECT_EQ(storageLabel(bytes), words);
    const DiskUsed disk{.text = megabyte, .transcripts = 2 * megabyte, .reel = 3 * megabyte};
    EXPECT_EQ(used(Used::reel, disk), "3 MB");
    EXPECT_EQ(used(Used::frames, disk), "—");
    EXPECT_EQ(used(Used::text, std::nullopt), "—");
}

TEST(PaneWords, TellHowADeletionIs) {
    const std::vector<std::string> three{"2026-11-01", "2026-11-02", "2026-11-03"};
    const std::tuple<PurgeProgress, std::int64_t, const char*> rows[] = {
        {{.daysRemaining = 6, .bytesRemaining = 2048 * megabyte, .skipped = {}},
         6,
         "Deleting… 6 days left, 2.0 GB"},
        {{.daysRemaining = 1, .skipped = {}}, 1, "Deleting… 1 day left"},
        {{.daysRemaining = 4, .bytesRemaining = 0, .skipped = three},
         1,
         "Deleting… 1 day left, 0 MB"},
        {{.daysRemaining = 3, .skipped = three}, 0, "3 days could not be cleared"},
        {{.daysRemaining = -most, .skipped = {"2026-11-01"}}, 0, "1 day could not be cleared"},
        {{.daysRemaining = 0, .skipped = {}}, 0, ""},
    };
    for (const auto& [progress, days, words] : rows) {
        EXPECT_EQ(daysToClear(progress), days) << words;
        EXPECT_EQ(purge(progress), words);
    }
    EXPECT_EQ(purge(std::nullopt), "");
}

TEST(PaneWords, AskBeforeScreenshotsAreDeleted) {
    EXPECT_EQ(frameKeepConfirmBody(1, 2048 * megabyte, false),
              "This deletes all 1 screenshot (about 2.0 GB) from your recorded moments. Screen OCR "
              "will remain.");
    EXPECT_EQ(frameKeepConfirmBody(20, std::nullopt, true),
              "This deletes all 20 screenshots (working out the size…) from your recorded moments. "
              "Screen OCR will remain. Meeting recordings are kept.");
    EXPECT_EQ(frameKeepConfirmBody(std::nullopt, 1, false),
              "This deletes all your screenshots from your recorded moments. Screen OCR will "
              "remain.");
    EXPECT_EQ(reelKeepConfirmBody(ReelStats{.meetings = 1, .bytes = megabyte}),
              "This will delete screenshots from 1 meeting (about 1 MB).");
    EXPECT_EQ(reelKeepConfirmBody(ReelStats{.meetings = 0, .bytes = 0}),
              "This will delete screenshots from 0 meetings (about 0 MB).");
    EXPECT_EQ(reelKeepConfirmBody(std::nullopt),
              "This will delete screenshots from your meetings.");
}

TEST(PaneWords, TellWhatIsChangedAboutNames) {
    const std::tuple<const char*, const char*, bool> rows[] = {
        {"Ann, Bob", "Ann, Bob", false},
        {"  Ann ,,Bob, ann ", "Ann, Bob", false},
        {"Bob, Ann", "Ann, Bob", true},
        {" , ", "Ann", false},
        {"", "", false},
        {"Ann", "", true},
    };
    for (const auto& [typed, held, changed] : rows)
        EXPECT_EQ(selfNamesChanged(typed, held), changed) << typed;
    EXPECT_TRUE(selfNamesChanged(std::string(10'000, 'n'), "Ann"));
}

TEST(PaneWords, SayWhyTheDaemonDidNot) {
    const std::pair<GatewayResponse, const char*> rows[] = {
        {AnswerCase::Ok{}, ""},
        {AnswerCase::Failure{"the disk is full"}, "the disk is full"},
        {AnswerCase::Unimplemented{"set_reel_keep"},
         "This Wendlow daemon does not accept set_reel_keep yet — quitting and reopening Wendlow "
         "picks up the new one."},
        {AnswerCase::Flag{true},
         "Wendlow answered that with something this app does not understand."},
    };
    for (const auto& [answer, words] : rows)
        EXPECT_EQ(PaneQuestion::refusal(answer), words);
    using Health = ClassifierStatus::Health;
    const auto word = [](Health health) {
        ClassifierStatus status = ClassifierStatus::current();
        status.health = std::move(health);
        return status.healthWord();
    };
    EXPECT_EQ(ClassifierStatus::current().healthWord(), "Running");
    EXPECT_EQ(ClassifierStatus::current().sizeOnDisk, "2.5 GB");
    EXPECT_EQ(word(ClassifierStatus::Loading{}), "Checking");
    EXPECT_EQ(word(ClassifierStatus::Error{"Ollama is away"}), "Ollama is away");
}

TEST(RuleInput, MakesWhatWasTypedFit) {
    const std::pair<const char*, const char*> rows[] = {
        {"  HTTPS://WWW.Example.com/a/b?c=d \r\n", "example.com"},
        {"example.com", "example.com"},
        {"www.example.com:8080/x", "example.com:8080"},
        {"view-source:https://a.example://b", "a.example:"},
        {"www.www.example", "www.example"},
        {"https://", ""},
        {" \u00a0", ""},
    };
    for (const auto& [typed, host] : rows)
        EXPECT_EQ(RuleInput::domain(typed), host) << typed;
    EXPECT_EQ(RuleInput::wordKind(" one "), RuleKind::word);
    EXPECT_EQ(RuleInput::wordKind("two words"), RuleKind::phrase);
}

TEST(InstalledApps, AreThoseThatAPersonSees) {
    const testing::TemporaryHome home;
    using testing::put;
    put(home / "Applications/Xylo.app/Contents/Info.plist", "");
    put(home / "Applications/notes.txt", "");
    put(home / "Applications/.app/x", "");
    const auto entry = [&](const char* file, std::string_view lines) {
        put(home / "share" / file, "# made\n[Desktop Entry]\nType=Application\n" +
                                       std::string(lines) + "\n[Desktop Action x]\nName=Action\n");
    };
    entry("mail.desktop", "Name=Mail\nName[de]=Post");
    entry("art.desktop", "Name = art studio ");
    entry("mail-2.desktop", "Name=MAIL\nName[de]=POST");
    entry("hidden.desktop", "Name=Hidden\nNoDisplay=true");
    entry("nameless.desktop", "Exec=x");
    entry("readme.txt", "Name=Read me");
    put(home / "share/link.desktop", "[Desktop Entry]\nType=Link\nName=Link\n");
    const InstalledApps::Places places{.bundles = {home / "Applications", home / "nowhere"},
                                       .entries = {home / "share"},
                                       .language = "de_AT"};
    EXPECT_THAT(InstalledApps::names(places),
                ElementsAre("art studio", ::testing::AnyOf("Post", "POST"), "Xylo"));
}

} // namespace
} // namespace wendlow
