#include "Seeded/SeedBuilders.h"

#include <fmt/format.h>

namespace wendlow::SeedWorlds {

namespace {

struct Seed {
    const char* type;
    const char* title;
    const char* why;
    const char* body;
    int daysAgo;
    // NOLINTNEXTLINE(readability-redundant-member-init): it may be left out of a list
    std::map<std::string, std::string> filters = {};
};

EditorScope scope(std::string path, std::string title, std::vector<Seed> seeds) {
    EditorScope made{.id = std::move(path), .title = std::move(title)};
    int number = 0;
    for (Seed& seed : seeds) {
        const std::string id = fmt::format("{}#m{}", made.id, ++number);
        if (std::string_view(seed.type) == "rule")
            made.rules.push_back({.id = id, .text = seed.title});
        made.memories.push_back({.id = id,
                                 .type = seed.type,
                                 .title = seed.title,
                                 .why = seed.why,
                                 .body = seed.body,
                                 .filters = std::move(seed.filters),
                                 .day = daysAgo(seed.daysAgo)});
    }
    return made;
}

EditorScope everywhere() {
    return scope(
        "/", "/",
        {{"preference", "Short answers first, details when asked",
          "Long answers get skimmed, and the one line that matters is missed.",
          "Start with the answer in one or two sentences. Offer the reasoning, do not lead with "
          "it.",
          6},
         {"preference", "Metric units and 24-hour times", "Asked twice in one week.",
          "Use kilometres, kilograms and degrees Celsius; write times as 17:30.", 5},
         {"person", "Ines looks after the release calendar",
          "Everybody asks who decides about dates.",
          "Ines Carvalho keeps the calendar and has the last word on a release day.", 4},
         {"rule",
          "Ask before anything is deleted",
          "A folder of drafts was lost in spring.",
          "Never delete or overwrite a file of mine without asking first.",
          9,
          {{"rules-file", "safety"}}},
         {"rule", "Write commit messages in the imperative", "The history should read alike.",
          "\"Add\", \"Mend\", \"Remove\": one line, then a blank one.", 8}});
}

EditorScope ferry() {
    EditorScope made =
        scope("/work/ferry", "ferry",
              {{"decision", "Timetables are kept as plain text",
                "The harbour office edits them by hand and must see every change.",
                "One file for each line and season. The program reads them at start and never "
                "writes them.",
                1},
               {"decision", "No login for the departure board",
                "It hangs in the waiting room and has no keyboard.",
                "The board fetches a public page every minute and shows the last good one when "
                "that fails.",
                3},
               {"finding", "The tide service answers late on Mondays",
                "Three mornings in a row the board was empty until seven.",
                "Their backup runs until about 06:50. A cached answer from the evening before is "
                "good enough.",
                2},
               {"ticket",
                "Departures after midnight show under the wrong day",
                "Passengers of the night boat missed it on Saturday.",
                "The day turns at four in the morning for the harbour, not at midnight.",
                1,
                {{"status", "doing"}, {"estimate", "3"}}},
               {"ticket",
                "Large letters for the small screen",
                "The board at pier 2 is old.",
                "Two departures instead of five, in twice the size.",
                4,
                {{"status", "next"}}},
               {"ticket",
                "Retire the paper list",
                "Nobody reads it since the board is there.",
                "Ask the office first; the insurer may want it.",
                12,
                {{"status", "done"}, {"archived", "true"}}},
               {"focus",
                "Winter timetable goes live on Monday",
                "The old one ends on Sunday night.",
                "Files are in, the office has read them, the night boat is the open question.",
                0,
                {{"status", "doing"}}},
               {"rule",
                "Times in the harbour's zone, never the machine's",
                "The build machine stands in another country.",
                "Every time that a person sees is in the harbour's own time zone.",
                7,
                {{"rules-file", "timetables"}}}});
    made.folderPaths = {"/home/me/work/ferry"};
    made.apps = {{.id = "one.tarnbeck.editor", .name = "Editor"}};
    return made;
}

EditorScope garden() {
    return scope(
        "/home/garden", "garden",
        {{"finding", "The pears want the south wall", "Two frosts took the blossom by the shed.",
          "Against the wall they flower a week later and keep the fruit.", 2},
         {"note", "Seeds ordered for spring", "The list was on paper and got wet.",
          "Broad beans, leeks, three kinds of lettuce; they come in February.", 3}});
}

EditorMoment moment(int number, int daysAgoAt, const char* title, const char* abstract) {
    EditorMoment made{.id = fmt::format("{}", number), .at = daysAgo(daysAgoAt)};
    made.title = title;
    made.abstract = abstract;
    made.shade = 0.35 + 0.1 * (number % 5);
    made.bundle = "one.tarnbeck.editor";
    made.framed = true;
    return made;
}

} // namespace

SeededContents someData() {
    SeededContents made{.root = everywhere()};
    EditorScope home{.id = "/home", .title = "home", .children = {garden()}};
    EditorScope work{.id = "/work", .title = "work", .children = {ferry()}};
    made.root.children = {std::move(home), std::move(work)};
    made.moments = {
        moment(1, 0, "Night boat in the winter timetable",
               "The Saturday rows, moved to one day later."),
        moment(2, 1, "Mail from the harbour office", "They agree that the day turns at four."),
        moment(3, 2, "Log of the tide service", "No answer from 06:10 to 06:48."),
        moment(4, 3, "Seed catalogue", "Leeks and lettuce, to be ordered before Friday."),
    };
    return made;
}

} // namespace wendlow::SeedWorlds
