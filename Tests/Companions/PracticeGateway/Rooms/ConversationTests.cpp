// What is said to the rooms and what they answer, one line after the other.

#include "TemporaryRooms.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::TemporaryRooms;

enum class Road { read, note };

struct Line {
    Road road;
    std::string_view request;
    std::string_view answer;
};

std::string failure(std::string_view sentence) {
    return fmt::format(R"({{"failure":{{"message":"{}"}}}})", sentence);
}

std::string said(TemporaryRooms& rooms, const Line& line) {
    return line.road == Road::read ? rooms.read(line.request) : rooms.note(line.request);
}

/// Every answer, then those of the reads again after the database was closed and opened.
void hold(TemporaryRooms& rooms, std::span<const Line> lines, std::span<const Line> atTheEnd) {
    for (const Line& line : lines)
        EXPECT_EQ(said(rooms, line), line.answer) << line.request;
    for (const Line& line : atTheEnd)
        EXPECT_EQ(said(rooms, line), line.answer) << line.request;
    rooms.reopen();
    for (const Line& line : atTheEnd)
        EXPECT_EQ(said(rooms, line), line.answer) << "opened again: " << line.request;
}

TEST(Conversation, FilesChangesAndForgetsMemories) {
    ::setenv("TZ", "UTC", 1);
    TemporaryRooms rooms;
    const Line lines[] = {
        {Road::note,
         R"({"write":{"text":"Keep two copies\nand try both","why":"One was lost.","writer":"codex","type":" note ","path":"/studio","filters":{"week":3,"kept":true}}})",
         R"({"noteID":{"_0":"m1"}})"},
        {Road::note,
         R"({"write":{"text":"b","why":"","writer":"codex","type":"note","path":"/","title":"Named"}})",
         R"({"noteID":{"_0":"m2"}})"},
        {Road::note,
         R"({"patch":{"id":"m1","field":"text","find":"copies","replace":"backups","replaceAll":false}})",
         R"({"noteID":{"_0":"m1"}})"},
        {Road::note,
         R"({"patch":{"id":"m2","field":"text","find":"b","replace":"bb","replaceAll":true}})",
         R"({"noteID":{"_0":"m2"}})"},
        {Road::note, R"({"editFilters":{"id":"m1","set":{"area":"storage"},"unset":["week"]}})",
         R"({"noteID":{"_0":"m1"}})"},
        {Road::note, R"({"edit":{"id":"m2","why":"Now it has one.","path":"/studio/atlas"}})",
         R"({"noteID":{"_0":"m2"}})"},
        {Road::note,
         R"({"write":{"text":"gone soon","why":"","writer":"codex","type":"note","path":"/"}})",
         R"({"noteID":{"_0":"m3"}})"},
        {Road::note, R"({"delete":{"id":"m3"}})", R"({"text":{"_0":"Deleted m3."}})"},
        {Road::note,
         R"({"write":{"text":"its id is new","why":"","writer":"codex","type":"fact","path":"/"}})",
         R"({"noteID":{"_0":"m4"}})"},
    };
    const Line atTheEnd[] = {
        {Road::read, R"({"grab":{"id":"m1"}})",
         R"({"thing":{"_0":{"kind":"memory","id":"m1","snippet":"Keep two backups\nand try both","why":"One was lost.","when":"2026-11-21 12:00","filed":"/studio","memoryKind":"note","filters":[{"key":"area","value":"storage"},{"key":"kept","value":true}],"title":"Keep two backups"}}})"},
        {Road::read, R"({"grab":{"id":"m2"}})",
         R"({"thing":{"_0":{"kind":"memory","id":"m2","snippet":"bb","why":"Now it has one.","when":"2026-11-21 12:00","filed":"/studio/atlas","memoryKind":"note","title":"Named"}}})"},
        {Road::read, R"({"grab":{"id":"m3"}})", R"({"thing":{}})"},
        {Road::read, R"({"listTypes":{}})",
         R"({"kindTypes":{"scope":"/","types":[{"kind":"note","count":2,"filters":[{"key":"area","count":1},{"key":"kept","count":1}]},{"kind":"fact","count":1,"filters":[]}]}})"},
        {Road::read, R"({"getByType":{"type":"note","path":"/studio","filters":{"kept":true}}})",
         R"({"kindCards":{"scope":"/studio","cards":[{"kind":"memory","id":"m1","snippet":"Keep two backups and try both","why":"One was lost.","when":"2026-11-21 12:00","filed":"/studio","memoryKind":"note","filters":[{"key":"area","value":"storage"},{"key":"kept","value":true}],"title":"Keep two backups"}]}})"},
        {Road::read, R"({"textIndexAudit":{"reindex":true}})",
         R"({"textIndexAudit":{"_0":{"ready":true,"rows":3,"memories":3,"moments":0,"meetings":0,"pending":0,"added":0,"removed":0,"megabytes":0}}})"},
    };
    hold(rooms, lines, atTheEnd);
}

TEST(Conversation, RefusesInWordsAndChangesNothing) {
    TemporaryRooms rooms;
    const auto written = [](std::string_view text, std::string_view type, std::string_view path) {
        return fmt::format(
            R"({{"write":{{"text":"{}","why":"","writer":"w","type":"{}","path":"{}"}}}})", text,
            type, path);
    };
    ASSERT_EQ(rooms.note(written("the only one", "note", "/")), R"({"noteID":{"_0":"m1"}})");
    const std::string before = rooms.read(R"({"browse":{"limit":9,"offset":0}})");
    const std::string noScope = "is not a scope: a scope begins with “/”, has no empty piece and "
                                "does not end with “/”; nothing was ";
    const struct {
        std::string request;
        std::string sentence;
    } rows[] = {
        {written(" \\n", "note", "/"), "a memory needs a text; nothing was saved"},
        {written("x", " ", "/"), "a memory needs a type of one line; nothing was saved"},
        {written("x", "note", "studio"), "“studio” " + noScope + "saved"},
        {written("x", "note", "/studio/"), "“/studio/” " + noScope + "saved"},
        {written("x", "note", "/a//b"), "“/a//b” " + noScope + "saved"},
        {written("x", "note", ""), "“” " + noScope + "saved"},
        {R"({"edit":{"id":"m1","text":"  "}})", "a memory needs a text; nothing was saved"},
        {R"({"edit":{"id":"m9"}})", "no memory has the id “m9”; nothing was changed"},
        {R"({"delete":{"id":""}})", "no memory has the id “”; nothing was changed"},
        {R"({"editFilters":{"id":"m9"}})", "no memory has the id “m9”; nothing was changed"},
        {R"({"editFilters":{"id":"m1","set":{"":1}}})", "a filter needs a key; nothing was saved"},
        {R"({"patch":{"id":"m1","field":"text","find":"lonely","replace":"x","replaceAll":false}})",
         "“lonely” does not stand in the text of m1; nothing was changed"},
        {R"({"patch":{"id":"m1","field":"text","find":"","replace":"x","replaceAll":true}})",
         "“” does not stand in the text of m1; nothing was changed"},
        {R"({"patch":{"id":"m1","field":"filters","find":"a","replace":"b","replaceAll":false}})",
         "“filters” is no field that can be patched; those are text, why and title; nothing was "
         "changed"},
        {R"({"mapPath":{"folder":"Projects","path":"/a"}})",
         "“Projects” is not the whole path of a folder; nothing was changed"},
        {R"({"mapPath":{"folder":"~/Projects","path":"a"}})", "“a” " + noScope + "changed"},
        {R"({"setPath":{"path":"/a","writer":"w"}})",
         "a scope is set for a session, and none was named; nothing was changed"},
        {R"({"modInstall":{"name":"nothing","writer":"w"}})",
         "no mod is named “nothing”; those that can be installed are backup-watch, decision-log, "
         "ticket-sweep, standup-notes"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(rooms.note(row.request), failure(row.sentence)) << row.request;
    EXPECT_EQ(rooms.read(R"({"browse":{"limit":9,"offset":0}})"), before);
    EXPECT_EQ(
        rooms.note(R"({"scopeBoard":{}})"),
        R"({"scopeBoard":{"_0":[{"path":"/","folders":[],"kinds":[{"kind":"note","count":1}]}]}})");
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
    EXPECT_EQ(
        rooms.read(R"({"standingRules":{"scope":"/a/b"}})"),
        R"({"standingWalk":{"_0":{"path":"/a/b","levels":[{"path":"/","rules":["Say it & mean it"]},{"path":"/a/b","rules":["Down here"]}],"overflow":0}}})");

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
    EXPECT_EQ(card("a"), failure("“a” is not a scope: a scope begins with “/”, has no empty piece "
                                 "and does not end with “/”"));
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

TEST(Conversation, KeepsScopesFoldersSessionsNamesAndMods) {
    TemporaryRooms rooms;
    const Line lines[] = {
        {Road::note, R"({"mapPath":{"folder":"/p/atlas/","path":"/studio/atlas"}})",
         R"({"text":{"_0":"/p/atlas maps to /studio/atlas."}})"},
        {Road::note, R"({"mapPath":{"folder":"/p","path":"/studio"}})",
         R"({"text":{"_0":"/p maps to /studio."}})"},
        {Road::note, R"({"mapPath":{"folder":"/p","path":"/home"}})",
         R"({"text":{"_0":"/p maps to /home."}})"},
        {Road::note, R"({"setPath":{"path":"/home","writer":"codex","session":"s1"}})",
         R"({"text":{"_0":"This session works in /home."}})"},
        {Road::note,
         R"({"write":{"text":"at home","why":"","writer":"w","type":"rule","path":"/home"}})",
         R"({"noteID":{"_0":"m1"}})"},
        {Road::note,
         R"({"write":{"text":"on the atlas","why":"","writer":"w","type":"rule","path":"/studio/atlas"}})",
         R"({"noteID":{"_0":"m2"}})"},
        {Road::note, R"({"selfNames":{"names":["Ann, ann","  Bob"]}})",
         R"({"noteID":{"_0":"self-names","echo":["Ann","Bob"]}})"},
        {Road::note, R"({"modInstall":{"name":"decision-log","writer":"w"}})",
         R"({"text":{"_0":"Installed decision-log, revision 1."}})"},
        {Road::note, R"({"modInstall":{"name":"decision-log","writer":"w"}})",
         R"({"text":{"_0":"Installed decision-log, revision 2."}})"},
    };
    const std::string atHome =
        R"({"standingWalk":{"_0":{"path":"/home","levels":[{"path":"/home","rules":["at home"]}],"overflow":0}}})";
    const Line atTheEnd[] = {
        {Road::note, R"({"scopeBoard":{}})",
         R"({"scopeBoard":{"_0":[{"path":"/","folders":[],"kinds":[{"kind":"mod","count":1}]},{"path":"/home","folders":["/p"],"kinds":[{"kind":"rule","count":1}]},{"path":"/studio","folders":[],"kinds":[]},{"path":"/studio/atlas","folders":["/p/atlas"],"kinds":[{"kind":"rule","count":1}]}]}})"},
        {Road::note, R"({"listPaths":{}})",
         R"({"text":{"_0":"/\n/home\n/studio\n/studio/atlas\n"}})"},
        {Road::read, R"({"standingRules":{"session":"s1","cwd":"/p/atlas"}})", atHome},
        {Road::read, R"({"standingRules":{"cwd":"/p/atlasses"}})", atHome},
        {Road::read, R"({"standingRules":{"cwd":"/p/atlas/src","session":"s2"}})",
         R"({"standingWalk":{"_0":{"path":"/studio/atlas","levels":[{"path":"/studio/atlas","rules":["on the atlas"]}],"overflow":0}}})"},
        {Road::note, R"({"selfNames":{}})",
         R"({"noteID":{"_0":"self-names","echo":["Ann","Bob"]}})"},
        {Road::read, R"({"modsList":{}})",
         R"({"text":{"_0":"- decision-log · / · rev 2 · files what was decided, with who decided it and why\n"}})"},
        {Road::read, R"({"modBoard":{}})",
         R"({"modBoard":{"_0":{"mods":[{"slug":"decision-log","scope":"/","rev":2,"hint":"files what was decided, with who decided it and why","files":["decision-log/mod.md"],"behaviors":[{"name":"file-decision","trigger":"a session says that something is decided","wake":false}]}],"rejected":[],"runs":[]}}})"},
    };
    hold(rooms, lines, atTheEnd);
    // A mod is its memory: without the one there is not the other.
    rooms.note(R"({"delete":{"id":"m3"}})");
    EXPECT_EQ(rooms.read(R"({"modsList":{}})"), R"({"text":{"_0":"No mods are installed."}})");
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
    EXPECT_EQ(
        rooms.read(R"({"primed":{"prompt":"why do kestrel and falcon not nest?"}})"),
        R"({"primed":{"_0":[{"when":"2026-09-21 14:13","whenRelative":"2 months ago","chapter":"/","gist":"Kestrel nests","evidence":"first   the Nightly Backup stopped last","grabId":"old"}],"distilled":false}})");
}

} // namespace
} // namespace wendlow
