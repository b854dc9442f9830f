#include "DateWords.h"
#include "Search/SearchPage.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

EditorMemoryHit memory(const char* id, const char* type, const char* title) {
    return {.memory = {.id = id, .type = type, .title = title}, .scopeID = "/work"};
}

TEST(SearchPage, putsWhatWasFoundUnderItsHeadings) {
    const EditorMemoryHits memories{
        memory("1", "ticket", "Boat shed"), memory("2", "rule", "On boats"),
        memory("3", "entry", "x"),          memory("4", "mod", "boat"),
        memory("5", "ticket", "y"),         memory("6", "entry", "z")};
    const MemoryDetails details{{"1", EditorMemoryDetail{"1", "boat why", ""}},
                                {"3", EditorMemoryDetail{"3", "", "the body has a boat in it"}},
                                {"4", std::nullopt},
                                {"5", EditorMemoryDetail{"5", "why a BOAT", "boat body"}}};
    EditorMoment titled{.id = "m1", .at = editorDate(0), .title = "Boat talk"};
    titled.abstract = "about a boat";
    EditorMoment bare{.id = "m2", .at = editorDate(0)};
    bare.abstract = "about a boat";
    EditorMoment told{.id = "m3", .at = editorDate(0), .title = "Boat"};
    told.passage = "as the daemon says";
    std::vector<EditorMeeting> meetings{
        {.id = "meeting:boatcall:1",
         .day = "2026-01-02",
         .from = "10:00",
         .to = "11:00",
         .duration = "1 h",
         .speakers = {"Ada", "Lin"}},
        {.id = "b", .title = "Plain", .day = "2026-01-03", .speakers = {"BOATSWAIN"}},
        {.id = "c", .title = "Nothing"}};
    const std::vector<EditorInstalledMod> mods{{.slug = "tidy", .scope = "/boat", .hint = "tidies"},
                                               {.slug = "other"}};
    const std::vector<std::string> paths{"/", "/boat", "/work"};
    const auto sections = SearchPage::build({.term = "boat",
                                             .memories = memories,
                                             .moments = {titled, bare, told},
                                             .meetings = meetings,
                                             .mods = &mods,
                                             .scopePaths = paths,
                                             .details = details});
    const QString date = DateWords::dateAndTime(editorDate(0));
    const QDateTime ten(QDate(2026, 1, 2), QTime(10, 0));
    const auto seconds = static_cast<double>(ten.toSecsSinceEpoch());
    const QString begin = DateWords::dateAndTime(editorDate(seconds));
    std::string page;
    for (const auto& [title, hits] : sections) {
        page += "# " + title + "\n";
        for (const auto& hit : hits)
            page += hit.id + " | " + hit.title + " | " + hit.subtitle + " | " + hit.symbol + "\n";
    }
    const QString expected = R"(# tickets
memory:1 | Boat shed | ticket · /work | doc.text.fill
memory:5 | y | why a BOAT | doc.text.fill
# entries
memory:3 | x | the body has a boat in it | doc.text.fill
memory:6 | z | entry · /work | doc.text.fill
# Meetings
meeting:meeting:boatcall:1 | 2026-01-02 · 10:00–11:00 | %1 · 1 h · Ada, Lin | person.2.fill
meeting:b | Plain | 2026-01-03 · BOATSWAIN | person.2.fill
# Moments
moment:m1 | Boat talk | %2 | square.stack.3d.down.right
moment:m2 | %2 | about a boat | square.stack.3d.down.right
moment:m3 | Boat | as the daemon says | square.stack.3d.down.right
# Rules
rule:2 | On boats | rule · /work | scroll.fill
# Mods
app:/boat:tidy | tidy | /boat · tidies | square.grid.2x2.fill
# Scopes
scope:/boat | /boat |  | network
)";
    EXPECT_EQ(page, expected.arg(begin, date).toStdString());
    EXPECT_EQ(std::get<SearchDestination::Rule>(sections[4].hits[0].destination).scope, "/work");
}

} // namespace
} // namespace wendlow
