// Pictures, how they are kept and how they go; and what may be recorded.

#include "TemporaryRooms.h"

#include <gmock/gmock.h>

#include <fstream>

namespace wendlow {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
using testing::TemporaryRooms;

/// A clock that stands still until it is set.
struct StillClock {
    double seconds = 1'795'262'400; // 2026-11-21 12:00 UTC

    std::function<Clock()> clock() {
        return [this] {
            return [this] {
                return std::chrono::system_clock::time_point(
                    std::chrono::milliseconds(static_cast<std::int64_t>(seconds * 1000)));
            };
        };
    }
};

template<class Case> Case as(const std::string& json) {
    const auto decoded = WireCodec::decodeResponse(json);
    const Case* const found = decoded ? std::get_if<Case>(&*decoded) : nullptr;
    EXPECT_NE(found, nullptr) << json;
    return found == nullptr ? Case{} : *found;
}

FrameStats frames(TemporaryRooms& rooms) {
    return as<AnswerCase::FrameStats>(rooms.read(R"({"frameStats":{}})"))._0;
}

class Keep : public ::testing::Test {
protected:
    Keep() {
        ::setenv("TZ", "UTC", 1);
        EXPECT_TRUE(rooms->fill(FillSize::day).has_value());
    }

    /// The id of the first moment with a picture.
    std::int64_t framed() {
        return rooms.figure("SELECT min(moment) FROM moments JOIN documents USING(number) "
                            "WHERE framed");
    }
    std::string picture(std::string_view question, std::int64_t moment, std::string_view more) {
        const auto image = as<AnswerCase::Image>(
            rooms.read(fmt::format(R"({{"{}":{{"momentID":{}{}}}}})", question, moment, more)));
        EXPECT_EQ(image.mimeType, "image/png");
        return image.base64;
    }

    StillClock clock;
    TemporaryRooms rooms{clock.clock()};
};

TEST_F(Keep, DeletesPicturesDayByDayAndGoesOnAfterARestart) {
    EXPECT_EQ(frames(rooms).bytes, std::nullopt) << "it is being worked out";
    clock.seconds += 3;
    const FrameStats before = frames(rooms);
    const std::int64_t days =
        rooms.figure("SELECT count(DISTINCT day) FROM moments JOIN documents USING(number) "
                     "WHERE framed");
    ASSERT_GE(days, 5);
    EXPECT_FALSE(before.purge);
    rooms.hold(R"(control setFrameKeep {"_0":false} → ok
read frameKeepState → flag {"_0":false})");
    EXPECT_EQ(frames(rooms).screenshots, before.screenshots);
    EXPECT_EQ(frames(rooms).purge.value().daysRemaining, days);
    EXPECT_EQ(frames(rooms).purge.value().bytesRemaining, std::nullopt);
    // A day that withstands: the last one.
    rooms->documents().database().execute(
        "DELETE FROM locked_days; INSERT INTO locked_days SELECT max(day) FROM moments");
    std::int64_t kept = before.screenshots;
    for (std::int64_t left = days - 1; left >= 1; --left) {
        clock.seconds += 0.5;
        if (left == days / 2)
            rooms.reopen();
        const FrameStats stats = frames(rooms);
        EXPECT_EQ(stats.purge.value().daysRemaining, left);
        EXPECT_EQ(stats.purge.value().skipped.size(), 0U);
        EXPECT_LT(stats.screenshots, kept);
        kept = stats.screenshots;
    }
    clock.seconds += 0.5;
    const FrameStats after = frames(rooms);
    EXPECT_EQ(after.purge.value().skipped, std::vector<std::string>{"2026-11-21"});
    EXPECT_EQ(after.screenshots, kept);
    EXPECT_GT(kept, 0);
    EXPECT_EQ(rooms.figure("SELECT count(*) FROM documents WHERE kind = 1"), 150);
    EXPECT_GT(after.bytes, 0);
    EXPECT_EQ(as<AnswerCase::DiskUsed>(rooms.read(R"({"diskUsed":{}})"))._0.frames, after.bytes);
    // On again: what is left is left.
    rooms.control(R"({"setFrameKeep":{"_0":true}})");
    clock.seconds += 100;
    EXPECT_EQ(frames(rooms), (FrameStats{.screenshots = kept, .bytes = after.bytes}));
}

TEST_F(Keep, DropsMeetingPicturesAtOnceAndEverythingWhenAsked) {
    EXPECT_THAT(rooms.read(R"({"reelStats":{}})"), HasSubstr(R"("meetings":6,)"));
    rooms.control(R"({"setReelKeep":{"_0":false}})");
    rooms.reopen();
    EXPECT_THAT(rooms.read(R"({"reelStats":{}})"), HasSubstr(R"("meetings":0,"bytes":0)"));
    rooms.hold(R"(read reelKeepState → flag {"_0":false}
control deleteAll → ok)");
    for (int opened = 0; opened < 2; ++opened) {
        EXPECT_THAT(rooms.read(R"({"textIndexAudit":{"reindex":false}})"),
                    HasSubstr(R"("rows":0,"memories":0,"moments":0,"meetings":0,"pending":0)"));
        EXPECT_THAT(rooms.read(R"({"textBrowse":{"limit":1}})"), HasSubstr(R"("total":0,)"));
        for (const std::string_view table : {"utterances", "moments", "activities", "mods"})
            EXPECT_EQ(rooms.figure(fmt::format("SELECT count(*) FROM {}", table)), 0) << table;
        rooms.reopen();
    }
    EXPECT_THAT(rooms.read(R"({"getRules":{}})"), HasSubstr("salary"));
    // What is written from now on is found again, and can be forgotten.
    rooms.note(R"({"write":{"text":"anew","why":"","writer":"w","type":"note","path":"/"}})");
    EXPECT_THAT(rooms.read(R"({"textBrowse":{"term":"anew"}})"), HasSubstr(R"("total":1,)"));
    rooms->documents().database().execute(
        "INSERT INTO document_words(document_words, rank) VALUES('integrity-check', 1)");
}

TEST_F(Keep, DrawsTheSamePictureEachTime) {
    const std::int64_t moment = framed();
    // The signature and the header, in which width and height follow: 320 × 200, 1280 × 800.
    const std::string first = picture("getThumbnail", moment, "");
    EXPECT_THAT(first, StartsWith("iVBORw0KGgoAAAANSUhEUgAAAUAAAADI"));
    EXPECT_THAT(picture("getScreen", moment, R"(,"window":"")"),
                StartsWith("iVBORw0KGgoAAAANSUhEUgAABQAAAAMg"));
    const auto drawn = [](std::string_view name) {
        return ScreenPicture::draw(name, ScreenPicture::Style::talk, ScreenPicture::Extent::screen,
                                   ScreenPicture::Size::thumbnail);
    };
    EXPECT_TRUE(drawn("1") != drawn("2"));
    rooms.reopen();
    EXPECT_EQ(first, picture("getThumbnail", moment, ""));
    rooms.control(R"({"setFrameKeep":{"_0":false}})");
    clock.seconds += 60;
    EXPECT_EQ(
        rooms.read(fmt::format(R"({{"getThumbnail":{{"momentID":{}}}}})", moment)),
        fmt::format(R"({{"failure":{{"message":"no picture is kept of moment {}"}}}})", moment));
}

TEST_F(Keep, TellsWhichPicturesThereAreNot) {
    const std::int64_t moment = framed();
    const auto screens = as<AnswerCase::Images>(rooms.read(fmt::format(
        R"({{"openScreens":{{"_0":[{{"moment":9999}},{{"moment":{0}}},{{"moment":{0},"window":"?"}}]}}}})",
        moment)));
    std::string notes;
    for (const ScreenImage& image : screens._0) {
        if (image.note)
            notes.append(*image.note);
        notes.append(image.heic ? "drawn\n" : "\n");
    }
    EXPECT_EQ(notes, fmt::format("no moment has the id “9999”\ndrawn\n"
                                 "moment {} has no window “?”\n",
                                 moment));
    const auto icons = as<AnswerCase::Icons>(
        rooms.read(R"({"favicons":{"hosts":["github.com","sqlite.org","localhost",""]}})"));
    ASSERT_EQ(icons._0.size(), 2U);
    EXPECT_TRUE(icons._0.begin()->second.bytes != icons._0.rbegin()->second.bytes);
}

TEST(Grants, AreRefusedLateOrNotSpokenOfAsTold) {
    StillClock clock;
    TemporaryRooms rooms{clock.clock()};
    rooms->grants().setManner({.denied = GrantManner::kinds("accessibility").value(),
                               .withheld = GrantManner::kinds("microphone").value(),
                               .after = std::chrono::milliseconds(500)});
    EXPECT_EQ(GrantManner::kinds("microphone,camera").error(), "camera");
    const auto told = [&] {
        std::string all;
        for (const GrantRow& row : as<AnswerCase::Grants>(rooms.read(R"({"grants":{}})"))._0.grants)
            all += row.kind + ' ' + row.state + ' ';
        return all;
    };
    EXPECT_EQ(told(), "screen_recording undetermined accessibility undetermined ");
    for (const std::string_view kind : {"screen_recording", "accessibility"})
        rooms.control(fmt::format(R"({{"requestGrant":{{"kind":"{}"}}}})", kind));
    EXPECT_EQ(told(), "screen_recording undetermined accessibility denied ");
    clock.seconds += 0.4;
    rooms.control(R"({"requestGrant":{"kind":"screen_recording"}})"); // does not begin anew
    clock.seconds += 0.1;
    EXPECT_EQ(told(), "screen_recording granted accessibility denied ");
}

TEST(Recording, FollowsTheRulesAndThePauses) {
    ::setenv("TZ", "UTC", 1);
    StillClock clock;
    TemporaryRooms rooms{clock.clock()};
    rooms.hold(R"(read frontState → frontState unknown
read health → text a grant is missing)");
    for (const std::string_view kind : {"screen_recording", "accessibility", "microphone"})
        rooms.control(fmt::format(R"({{"requestGrant":{{"kind":"{}"}}}})", kind));
    const std::int64_t number = rooms->documents().put({.kind = DocumentKind::moment,
                                                        .id = "7",
                                                        .title = "Salaries",
                                                        .body = "What the LIBRARY keeps",
                                                        .framed = true});
    rooms->documents().database().run(
        "INSERT INTO moments VALUES(7, ?, '2026-11-21', 0, 'Safari', 'w', 'window', "
        "'docs.sqlite.org', 5, NULL, NULL)",
        number);
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"resume", "full"},
        {R"(addRule {"value":" safari ","kind":"app","tier":"usageOnly"})", "titleOnly"},
        {R"(addRule {"value":"qlite.org","kind":"site","tier":"never"})", "titleOnly"},
        {R"(addRule {"value":"sqlite.org","kind":"site","tier":"never"})", "blocked"},
        {R"(toggleRule {"id":"r3","enabled":false})", "titleOnly"},
        {R"(removeRule {"id":"r1"})", "full"},
        {R"(addRule {"value":"the library","kind":"phrase","tier":"never"})", "blocked"},
        {R"(addRule {"value":"the library","kind":"phrase","tier":"usageOnly"})", "titleOnly"},
        {"pause", "none"},
        {"resume", "titleOnly"},
        {R"(removeRule {"id":"r4"})", "full"},
        {R"(addConcept {"_0":"the library"})", "full"},
        {R"(pauseFor {"minutes":10})", "none"},
    };
    for (const auto& [command, front] : rows)
        rooms.hold(fmt::format("control {} → ok\nread frontState → frontState {}", command, front));
    rooms.reopen();
    rooms.hold("read health → text paused (resumes 12:10)");
    clock.seconds += 600;
    const std::string rules = R"(
read health → text healthy
read frontState → frontState full
read getRules
→ rules {"_0":[{"id":"r2","kind":"site","value":"qlite.org","tier":"never","origin":"user","enabled":true},{"id":"r3","kind":"site","value":"sqlite.org","tier":"never","origin":"user","enabled":false},{"id":"r6","kind":"topic","value":"the library","tier":"never","origin":"user","enabled":true}]}
)";
    rooms.hold(rules);
    for (const std::string_view command :
         {R"({"addRule":{"value":"x","kind":"colour","tier":"never"}})",
          R"({"addRule":{"value":"x","kind":"app","tier":"sometimes"}})",
          R"({"addRule":{"value":"  ","kind":"app","tier":"never"}})",
          R"({"pauseFor":{"minutes":0}})", R"({"removeRule":{"id":"r4"}})",
          R"({"removeRule":{"id":"2"}})", R"({"toggleRule":{"id":"r9","enabled":true}})",
          R"({"removeConcept":{"_0":"x"}})", R"({"requestGrant":{"kind":"camera"}})"})
        EXPECT_THAT(rooms.control(command), StartsWith(R"({"failure":)")) << command;
    rooms.hold(rules);
}

TEST(DiagnosticLog, IsAFileForAsLongAsItIsKept) {
    TemporaryRooms rooms;
    const auto log = rooms.file().parent_path() / "wendlow-trace.log";
    rooms.hold("control setDiagnosticLogging {\"_0\":true} → ok");
    rooms.hold(R"(diagnostic log {"source":"settings","line":"a line"} → ok)");
    std::ifstream file(log);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_THAT(text, HasSubstr("settings: a line\n"));
    EXPECT_EQ(std::filesystem::status(log).permissions(), std::filesystem::perms(0600));
    rooms.hold("control setDiagnosticLogging {\"_0\":false} → ok");
    rooms.hold(R"(diagnostic log {"source":"settings","line":"another"} → ok)");
    EXPECT_FALSE(std::filesystem::exists(log));
    std::filesystem::create_directories(log / "in the way");
    for (const char* value : {"true", "false"})
        EXPECT_THAT(rooms.control(fmt::format(R"({{"setDiagnosticLogging":{{"_0":{}}}}})", value)),
                    HasSubstr("nothing was changed"));
}

TEST(RecoveryPhrase, IsOfNoUseToAStoreWithoutAKeyAndALockedOneSaysSo) {
    TemporaryRooms rooms;
    PhraseRoom& phrase = rooms->phrase();
    EXPECT_FALSE(phrase.whileLocked("frame_stats"));
    phrase.protect(StoreProtection::locked);
    const auto said = phrase.whileLocked("frame_stats");
    ASSERT_TRUE(said);
    EXPECT_THAT(std::get<AnswerCase::Failure>(*said).message,
                StartsWith(fmt::format("store locked: Wendlow's folder ({}) is not empty and this "
                                       "Mac holds no key, so Wendlow did not start a new memory "
                                       "over what is there. It found 3 item(s): data.db, ",
                                       rooms.file().parent_path().string())));
    for (const char* verb : {"recovery_state", "enter_phrase", "reveal_phrase", "log"})
        EXPECT_FALSE(phrase.whileLocked(verb)) << verb;
    rooms.hold("read recoveryState → text locked");
    phrase.protect(StoreProtection::plaintext);
    EXPECT_FALSE(phrase.whileLocked("frame_stats"));
    rooms.hold("read recoveryState → text plaintext");
    EXPECT_THAT(rooms.control(R"({"revealPhrase":{}})"), HasSubstr("no recovery phrase to reveal"));
    EXPECT_THAT(rooms.control(R"({"enterPhrase":{"words":[]}})"),
                HasSubstr("nothing here for a recovery phrase to unlock"));
    phrase.protect(StoreProtection::armed);
    rooms.hold("read recoveryState → text armed");
}

TEST(RecoveryPhrase, OpensWithItsOwnWordsOnly) {
    TemporaryRooms rooms;
    const auto adopted = [&](const std::vector<std::string>& words) {
        auto all = rooms->all();
        return WireCodec::encode(
                   Dispatch::answer(GatewayRequest(ControlRequest(ControlCase::EnterPhrase{words})),
                                    all))
            .value();
    };
    rooms.hold("read recoveryState → text new");
    EXPECT_THAT(rooms.control(R"({"revealPhrase":{}})"), HasSubstr("holds no Wendlow store key"));
    const std::string made = rooms.control(R"({"generatePhrase":{}})");
    const auto words = as<AnswerCase::Phrase>(made)._0;
    ASSERT_EQ(words.size(), 12U);
    rooms.reopen();
    EXPECT_EQ(rooms.control(R"({"generatePhrase":{}})"), made);
    EXPECT_EQ(rooms.control(R"({"revealPhrase":{}})"), made);
    rooms.hold("read recoveryState → text armed");
    EXPECT_THAT(adopted(words), HasSubstr("already holds a Wendlow store key"));

    rooms->documents().database().execute("DELETE FROM settings WHERE name = 'key.held'");
    rooms.hold("read recoveryState → text locked");
    EXPECT_THAT(adopted({words.begin(), words.end() - 1}),
                HasSubstr("a recovery phrase is 12 words — this one has 11"));
    auto wrong = words;
    wrong[3] = "wendlow";
    EXPECT_THAT(adopted(wrong), HasSubstr("is not one of the recovery words"));
    wrong = words;
    wrong.back() = words.back() == "acre" ? "alder" : "acre";
    EXPECT_THAT(adopted(wrong), HasSubstr("failed its checksum"));
    EXPECT_THAT(adopted(RecoveryWords::phraseOf("another key")),
                HasSubstr("they did not open any of the 1 store file(s)"));
    rooms.hold("read recoveryState → text locked");
    auto shouted = words;
    for (char& letter : shouted[0])
        letter = static_cast<char>(std::toupper(letter));
    EXPECT_THAT(adopted(shouted), HasSubstr("Phrase accepted: it opened 1 of the 1 store file(s)"));
    rooms.hold("read recoveryState → text armed");
    EXPECT_EQ(rooms.control(R"({"revealPhrase":{}})"), made);
}

} // namespace
} // namespace wendlow
