// What is said to the rooms and what they answer, one line after the other.

#include "TemporaryRooms.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::TemporaryRooms;

TEST(Conversation, FilesChangesAndForgetsMemories) {
    ::setenv("TZ", "UTC", 1);
    TemporaryRooms rooms;
    rooms.hold(R"(
notes write {"text":"Keep two copies\nand try both","why":"One was lost.","writer":"codex","type":" note ","path":"/studio","filters":{"week":3,"kept":true}} → noteID m1
notes write {"text":"b","why":"","writer":"codex","type":"note","path":"/","title":"Named"} → noteID m2
notes patch {"id":"m1","field":"text","find":"copies","replace":"backups","replaceAll":false} → noteID m1
notes patch {"id":"m2","field":"text","find":"b","replace":"bb","replaceAll":true} → noteID m2
notes editFilters {"id":"m1","set":{"area":"storage"},"unset":["week"]} → noteID m1
notes edit {"id":"m2","why":"Now it has one.","path":"/studio/atlas"} → noteID m2
notes write {"text":"gone soon","why":"","writer":"codex","type":"note","path":"/"} → noteID m3
notes delete {"id":"m3"} → text Deleted m3.
notes write {"text":"its id is new","why":"","writer":"codex","type":"fact","path":"/"} → noteID m4
)");
    for (int opened = 0; opened < 2; ++opened) {
        rooms.hold(R"(
read grab {"id":"m1"}
→ thing {"_0":{"kind":"memory","id":"m1","snippet":"Keep two backups\nand try both","why":"One was lost.","when":"2026-11-21 12:00","filed":"/studio","memoryKind":"note","filters":[{"key":"area","value":"storage"},{"key":"kept","value":true}],"title":"Keep two backups"}}
read grab {"id":"m2"}
→ thing {"_0":{"kind":"memory","id":"m2","snippet":"bb","why":"Now it has one.","when":"2026-11-21 12:00","filed":"/studio/atlas","memoryKind":"note","title":"Named"}}
read grab {"id":"m3"} → thing {}
read listTypes
→ kindTypes {"scope":"/","types":[{"kind":"note","count":2,"filters":[{"key":"area","count":1},{"key":"kept","count":1}]},{"kind":"fact","count":1,"filters":[]}]}
read getByType {"type":"note","path":"/studio","filters":{"kept":true}}
→ kindCards {"scope":"/studio","cards":[{"kind":"memory","id":"m1","snippet":"Keep two backups and try both","why":"One was lost.","when":"2026-11-21 12:00","filed":"/studio","memoryKind":"note","filters":[{"key":"area","value":"storage"},{"key":"kept","value":true}],"title":"Keep two backups"}]}
read getByType {"type":"note","path":"/studio/atlas"}
→ kindCards {"scope":"/studio/atlas","cards":[{"kind":"memory","id":"m2","snippet":"bb","why":"Now it has one.","when":"2026-11-21 12:00","filed":"/studio/atlas","memoryKind":"note","title":"Named"}]}
read textIndexAudit {"reindex":true}
→ textIndexAudit {"_0":{"ready":true,"rows":3,"memories":3,"moments":0,"meetings":0,"pending":0,"added":0,"removed":0,"megabytes":0}}
)");
        rooms.reopen();
    }
}

TEST(Conversation, RefusesInWordsAndChangesNothing) {
    TemporaryRooms rooms;
    rooms.hold(R"(
notes write {"text":"the only one","why":"","writer":"w","type":"note","path":"/"} → noteID m1)");
    const std::string before = rooms.read(R"({"browse":{"limit":9,"offset":0}})");
    for (const std::string_view scope : {"studio", "/studio/", "/a//b", ""})
        rooms.hold(fmt::format(
            R"(notes write {{"text":"x","why":"","writer":"w","type":"note","path":"{0}"}}
→ failure “{0}” is not a scope: a scope begins with “/”, has no empty piece and does not end with “/”; nothing was saved)",
            scope));
    rooms.hold(R"(
notes write {"text":" \n","why":"","writer":"w","type":"note","path":"/"} → failure a memory needs a text; nothing was saved
notes write {"text":"x","why":"","writer":"w","type":" ","path":"/"} → failure a memory needs a type of one line; nothing was saved
notes edit {"id":"m1","text":"  "} → failure a memory needs a text; nothing was saved
notes edit {"id":"m9"} → failure no memory has the id “m9”; nothing was changed
notes delete {"id":""} → failure no memory has the id “”; nothing was changed
notes editFilters {"id":"m9"} → failure no memory has the id “m9”; nothing was changed
notes editFilters {"id":"m1","set":{"":1}} → failure a filter needs a key; nothing was saved
notes patch {"id":"m1","field":"text","find":"lonely","replace":"x","replaceAll":false}
→ failure “lonely” does not stand in the text of m1; nothing was changed
notes patch {"id":"m1","field":"text","find":"","replace":"x","replaceAll":true}
→ failure “” does not stand in the text of m1; nothing was changed
notes patch {"id":"m1","field":"filters","find":"a","replace":"b","replaceAll":false}
→ failure “filters” is no field that can be patched; those are text, why and title; nothing was changed
notes mapPath {"folder":"Projects","path":"/a"} → failure “Projects” is not the whole path of a folder; nothing was changed
notes mapPath {"folder":"~/Projects","path":"a"}
→ failure “a” is not a scope: a scope begins with “/”, has no empty piece and does not end with “/”; nothing was changed
notes setPath {"path":"/a","writer":"w"} → failure a scope is set for a session, and none was named; nothing was changed
notes modInstall {"name":"nothing","writer":"w"}
→ failure no mod is named “nothing”; those that can be installed are backup-watch, decision-log, ticket-sweep, standup-notes
notes scopeBoard → scopeBoard {"_0":[{"path":"/","folders":[],"kinds":[{"kind":"note","count":1}]}]}
)");
    EXPECT_EQ(rooms.read(R"({"browse":{"limit":9,"offset":0}})"), before);
}

std::string ruleOf(std::string_view text, std::string_view path, std::string_view filters = "{}") {
    return fmt::format(
        R"({{"write":{{"text":"{}","why":"because","writer":"wendlow-editor","type":"rule","path":"{}","filters":{}}}}})",
        text, path, filters);
}

TEST(Conversation, CompilesRulesAndCountsTheirRevisions) {
    TemporaryRooms rooms;
    const auto card = [&](std::string_view scope) {
        return rooms.read(
            fmt::format(R"({{"standingRules":{{"card":true,"scope":"{}"}}}})", scope));
    };
    EXPECT_EQ(card("/"), R"({"standingWalk":{}})");
    rooms.note(ruleOf("Say it & mean it", "/"));
    rooms.note(ruleOf("Down here", "/a/b"));
    rooms.note(ruleOf("Fetched", "/a", R"({"rules-file":" Testing"})"));
    rooms.note(ruleOf("Elsewhere", "/c"));
    const std::string inlineLines =
        R"(Global rules:\n- Say it & mean it  ·m:m1·\n/a/b rules:\n- Down here  ·m:m2·\n)";
    const auto compiled = [&](int revision, std::string_view warning = "") {
        return fmt::format(
            R"({{"rulesCard":{{"scope":"/a/b","card":"{}{}\n<rules root=\"~/.wendlow/rules\">\n<testing trigger=\"Read before work that touches testing.\" file=\"a/testing.md\" rev=\"{}\"/>\n</rules>\n"}}}})",
            warning, inlineLines, revision);
    };
    EXPECT_EQ(card("/a/b"), compiled(1));
    rooms.hold(R"(read standingRules {"scope":"/a/b"}
→ standingWalk {"_0":{"path":"/a/b","levels":[{"path":"/","rules":["Say it & mean it"]},{"path":"/a/b","rules":["Down here"]}],"overflow":0}})");
    const struct {
        std::string request;
        int revision;
    } changes[] = {
        {R"({"patch":{"id":"m3","field":"text","find":"Fetched","replace":"Read","replaceAll":false}})",
         2},
        {R"({"edit":{"id":"m3","why":"no part of what is delivered"}})", 2},
        {ruleOf("Another", "/a", R"({"rules-file":" Testing"})"), 3},
        {R"({"edit":{"id":"m5","path":"/c"}})", 4},
        {R"({"edit":{"id":"m5","path":"/a"}})", 5},
        {R"({"delete":{"id":"m5"}})", 6},
        // Another spelling of the same name is of the same module.
        {ruleOf("Plain", "/a", R"({"rules-file":"testing"})"), 7},
    };
    for (const auto& change : changes) {
        rooms.note(change.request);
        EXPECT_EQ(card("/a/b"), compiled(change.revision)) << change.request;
    }
    // What cannot be delivered is said, not dropped.
    rooms.note(ruleOf("Lost", "/a", R"({"rules-file":"two words"})"));
    rooms.note(ruleOf("Old", "/a", R"({"topic":"testing"})"));
    rooms.note(ruleOf("Numbered", "/a", R"({"rules-file":7})"));
    rooms.reopen();
    EXPECT_EQ(
        card("/a/b"),
        compiled(
            7,
            R"(⚠ Wendlow — 3 rules here have a rules-file tag that names no module and reach no session.\n)"));
    rooms.hold(R"(read standingRules {"card":true,"scope":"a"}
→ failure “a” is not a scope: a scope begins with “/”, has no empty piece and does not end with “/”)");
}

TEST(Conversation, AnswersAboutRulesAsItIsToldTo) {
    TemporaryRooms rooms;
    rooms.note(ruleOf("r", "/"));
    rooms.note(ruleOf("s", "/a"));
    rooms.note(ruleOf("t", "/a"));
    rooms.note(ruleOf("Old", "/a", R"({"topic":"testing"})"));
    const struct {
        const char* words;
        bool card;
        const char* says;
    } ways[] = {
        {"older-card", true, R"(<rules root=\"~/.wendlow/rules/a\">\n<testing trigger=)"},
        {"older-card", true, R"(file=\"testing.md\" rev=)"},
        {"other-scope", true, R"({"rulesCard":{"scope":"/","card":"Global)"},
        {"other-scope", false, R"("path":"/a")"},
        {"no-card", true, R"({"standingWalk":{}})"},
        {"other-path", false, R"({"standingWalk":{"_0":{"path":"/","levels")"},
        {"warning,other-path", true,
         R"(\n⚠ Wendlow — the Delivery pass has not run since yesterday, so this card is old.\nGlobal)"},
        {"overflow", false, R"("rules":["s"]}],"overflow":1})"},
    };
    for (const auto& [words, card, says] : ways) {
        rooms->rules().setManner(RuleManner::parse(words).value());
        EXPECT_THAT(
            rooms.read(fmt::format(R"({{"standingRules":{{"card":{},"scope":"/a"}}}})", card)),
            ::testing::HasSubstr(says))
            << words;
    }
    EXPECT_EQ(RuleManner::parse("warning,,overflow").error(), "");
}

TEST(Conversation, AnswersAboutModsAsItIsToldTo) {
    TemporaryRooms rooms;
    rooms.note(R"({"modInstall":{"name":"ticket-sweep","writer":"codex"}})");
    rooms->mods().setManner(ModManner::parse("every-outcome").value());
    const std::string all = rooms.read(R"({"modBoard":{}})");
    EXPECT_THAT(all, ::testing::HasSubstr(R"("mod":"ticket-sweep","behavior":"every-way")"));
    for (const char* const outcome : {"ok", "skippedNoHarnessConsent", "waiting for the tide"})
        EXPECT_THAT(all, ::testing::HasSubstr(fmt::format(R"("outcome":"{}")", outcome)));
    rooms->mods().setManner(ModManner::parse("none").value());
    EXPECT_EQ(rooms.read(R"({"modBoard":{}})"),
              R"({"modBoard":{"_0":{"mods":[],"rejected":[],"runs":[]}}})");
    EXPECT_EQ(ModManner::parse("none,all").error(), "all");
}

TEST(Conversation, CutsAWalkThatIsTooLongFromBelow) {
    TemporaryRooms rooms;
    for (int count = 0; count < 150; ++count)
        for (const std::string_view scope : {"/", "/a"})
            rooms.note(ruleOf("r", scope));
    const auto answer =
        WireCodec::decodeResponse(rooms.read(R"({"standingRules":{"scope":"/a"}})"));
    const RulesWalk walk = std::get<AnswerCase::StandingWalk>(*answer)._0.value();
    ASSERT_EQ(walk.levels.size(), 2U);
    EXPECT_EQ(walk.levels[0].rules.size(), 150U);
    EXPECT_EQ(walk.levels[1].rules.size(), 50U);
    EXPECT_EQ(walk.overflow, 100);
}

TEST(Conversation, TellsASessionWhatHasToDoWithItsPrompt) {
    TemporaryRooms rooms;
    const auto remember = [&](std::string_view text, std::string_view scope,
                              std::string_view type = "fact") {
        rooms.note(fmt::format(
            R"({{"write":{{"text":"{}","why":"","writer":"w","type":"{}","path":"{}"}}}})", text,
            type, scope));
    };
    rooms.note(R"({"mapPath":{"folder":"/p/atlas","path":"/work/atlas"}})");
    rooms.note(R"({"setPath":{"path":"/home","writer":"w","session":"at home"}})");
    remember("Releases go out on Tuesdays", "/work/atlas");         // m1
    remember("The release key lies with Ann", "/work");             // m2
    remember("Releases of the garden gate squeak", "/home/garden"); // m3
    remember("Release only what is signed", "/work/atlas", "rule"); // m4
    remember("Tomorrow the heron is painted", "/work/atlas/pond");  // m5
    for (int count = 0; count < 9; ++count)
        remember("The mill turns on Tuesdays", "/work/atlas"); // m6 to m14
    const auto told = [&](std::string_view prompt, std::string_view more = R"("cwd":"/p/atlas")") {
        const auto answer = WireCodec::decodeResponse(
            rooms.read(fmt::format(R"({{"primed":{{"prompt":"{}",{}}}}})", prompt, more)));
        std::string ids;
        for (const PrimeCard& card : std::get<AnswerCase::Primed>(*answer)._0)
            ids += card.grabId + " ";
        return ids;
    };
    const struct {
        std::string prompt;
        std::string more;
        std::string ids;
    } rows[] = {
        {"When do we release?", R"("cwd":"/p/atlas/src")", "m2 m1 "},
        {"When do we release?", R"("cwd":"/elsewhere")", "m3 m2 m1 "},
        {"When do we release?", R"("session":"at home","cwd":"/p/atlas")", "m3 "},
        {"RELEASES, on which Tuesday?", R"("cwd":"/p/atlas")", "m1 m2 "},
        // One word of several is not enough, and what every prompt is made of is no word.
        {"What will the weather in Oslo be tomorrow?", R"("cwd":"/p/atlas")", ""},
        {"How is it, and what about the others?", R"("cwd":"/p/atlas")", ""},
        {"", R"("cwd":"/p/atlas")", ""},
        {R"(\"*\" OR heron NEAR()", R"("cwd":"/p/atlas")", "m5 "},
        // Three words are, also among many others.
        {"tomorrow heron painted aaaa bbbb cccc dddd eeee ffff gggg", R"("cwd":"/p")", "m5 "},
        {std::string(100'000, ' ') + "heron", R"("cwd":"/p/atlas")", "m5 "},
        {"heron", R"("cwd":"/p/atlas","session":"s")", "m5 "},
        {"heron", R"("cwd":"/p/atlas","session":"s","countsPrompt":true)", "m5 "},
        {"heron", R"("cwd":"/p/atlas","session":"s","countsPrompt":true)", ""},
        {"heron", R"("cwd":"/p/atlas","session":"t","countsPrompt":true)", "m5 "},
    };
    for (const auto& [prompt, more, ids] : rows)
        EXPECT_EQ(told(prompt, more), ids) << prompt.substr(0, 80) << more;
    rooms.reopen();
    EXPECT_EQ(told("heron", R"("cwd":"/p/atlas","session":"s")"), "");
    rooms.hold(
        R"(read standingRules {"scope":"/home"} → standingWalk {"_0":{"path":"/home","levels":[],"overflow":0}}
read standingRules {"cwd":"/p/atlas/src"}
→ standingWalk {"_0":{"path":"/work/atlas","levels":[{"path":"/work/atlas","rules":["Release only what is signed"]}],"overflow":0}}
read standingRules {"cwd":"/p/atlas","session":"at home","card":true} → standingWalk {}
read recall {"query":"heron","from":"2026-11-21","to":"2026-11-20"} → failure 2026-11-21 comes after 2026-11-20
read recall {"query":"heron","to":"tomorrow"} → failure “tomorrow” is not a day; a day is written as 2026-11-21
read grep {"query":"heron","from":"2026-02-30"} → failure “2026-02-30” is not a day; a day is written as 2026-11-21
read meetingSearch {"query":"heron","from":"2026-1-1"} → failure “2026-1-1” is not a day; a day is written as 2026-11-21
read recall {"query":"heron","from":"2026-11-22"} → cards {"_0":[]}
read recall {"query":"","from":"2026-11-22"} → cards {"_0":[]})");
    EXPECT_THAT(rooms.read(R"({"recall":{"query":"","from":"2026-11-21","to":"2026-11-21"}})"),
                ::testing::HasSubstr(R"("id":"m14")"));
}

TEST(Conversation, KeepsScopesFoldersSessionsNamesAndMods) {
    ::setenv("HOME", "/p", 1);
    TemporaryRooms rooms;
    rooms.hold(R"(
notes mapPath {"folder":"/p/atlas/","path":"/studio/atlas"} → text /p/atlas maps to /studio/atlas.
notes mapPath {"folder":"~/","path":"/studio"} → text /p maps to /studio.
notes mapPath {"folder":"/p","path":"/home"} → text /p maps to /home.
notes setPath {"path":"/home","writer":"codex","session":"s1"} → text This session works in /home.
notes write {"text":"at home","why":"","writer":"w","type":"rule","path":"/home"} → noteID m1
notes write {"text":"on the atlas","why":"","writer":"w","type":"rule","path":"/studio/atlas"} → noteID m2
notes selfNames {"names":["Ann, ann","  Bob"]} → noteID {"_0":"self-names","echo":["Ann","Bob"]}
notes modInstall {"name":"decision-log","writer":"w"} → text Installed decision-log, revision 1.
notes modInstall {"name":"decision-log","writer":"w"} → text Installed decision-log, revision 2.
)");
    for (int opened = 0; opened < 2; ++opened) {
        rooms.hold(R"(
notes scopeBoard
→ scopeBoard {"_0":[{"path":"/","folders":[],"kinds":[{"kind":"mod","count":1}]},{"path":"/home","folders":["/p"],"kinds":[{"kind":"rule","count":1}]},{"path":"/studio","folders":[],"kinds":[]},{"path":"/studio/atlas","folders":["/p/atlas"],"kinds":[{"kind":"rule","count":1}]}]}
notes listPaths → text /\n/home\n/studio\n/studio/atlas\n
read standingRules {"session":"s1","cwd":"/p/atlas"}
→ standingWalk {"_0":{"path":"/home","levels":[{"path":"/home","rules":["at home"]}],"overflow":0}}
read standingRules {"cwd":"/p/atlasses"}
→ standingWalk {"_0":{"path":"/home","levels":[{"path":"/home","rules":["at home"]}],"overflow":0}}
read standingRules {"cwd":"~/atlas/src","session":"s2"}
→ standingWalk {"_0":{"path":"/studio/atlas","levels":[{"path":"/studio/atlas","rules":["on the atlas"]}],"overflow":0}}
notes selfNames → noteID {"_0":"self-names","echo":["Ann","Bob"]}
read modsList → text - decision-log · / · rev 2 · files what was decided, with who decided it and why\n
read modBoard
→ modBoard {"_0":{"mods":[{"slug":"decision-log","scope":"/","rev":2,"hint":"files what was decided, with who decided it and why","files":["decision-log/mod.md"],"behaviors":[{"name":"file-decision","trigger":"a session says that something is decided","wake":false}]}],"rejected":[],"runs":[]}}
)");
        rooms.reopen();
    }
    // A mod is its memory: without the one there is not the other.
    rooms.hold(R"(notes delete {"id":"m3"} → text Deleted m3.
read modsList → text No mods are installed.)");
}

TEST(Conversation, FindsByWordsLinesAndDays) {
    ::setenv("TZ", "UTC", 1);
    TemporaryRooms rooms;
    const auto put = [&](const char* id, double at, const char* title, const char* body) {
        rooms->documents().put({.id = id, .type = "note", .at = at, .title = title, .body = body});
    };
    put("old", 1'790'000'000, "Kestrel nests",
        "first\n  the Nightly Backup stopped\nlast");         // Sep 21
    put("new", 1'795'000'000, "Drives", "a backup, nightly"); // Nov 18
    const auto ids = [&](std::string_view request) {
        const auto answer = WireCodec::decodeResponse(rooms.read(request)).value();
        std::string found;
        for (const Card& card : std::get<AnswerCase::Cards>(answer)._0)
            found += card.id + (card.excerpt ? ":" + *card.excerpt : "") + " ";
        return found;
    };
    const struct {
        std::string_view request;
        std::string_view ids;
    } rows[] = {
        {R"({"search":{"query":"kes"}})", "old "},
        {R"({"search":{"query":"backup nightly","limit":1}})", "new "},
        {R"({"search":{"query":"…"}})", ""},
        {R"({"grep":{"query":"nightly back"}})", "old:the Nightly Backup stopped "},
        {R"({"grep":{"query":"backup"}})", "new:a backup, nightly old:the Nightly Backup stopped "},
        {R"({"recall":{"query":"backup","from":"2026-09-21","to":"2026-09-21"}})", "old "},
        {R"({"recall":{"query":"backup","from":"2026-09-22"}})", "new "},
        {R"({"recall":{"query":"backup","to":"2026-09-20"}})", ""},
        {R"({"browse":{"limit":1,"offset":1}})", "old "},
        {R"({"browse":{"query":"backup","limit":5,"offset":1}})", "old "},
        {R"({"browse":{"limit":-1,"offset":0}})", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ids(row.request), row.ids) << row.request;
    rooms.hold(R"(read primed {"prompt":"why do kestrel and falcon not nest?"}
→ primed {"_0":[{"when":"2026-09-21 14:13","whenRelative":"2 months ago","chapter":"/","gist":"Kestrel nests","evidence":"first   the Nightly Backup stopped last","grabId":"old"}],"distilled":false})");
}

} // namespace
} // namespace wendlow
