#include "Seeded/SeedBuilders.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include <fmt/format.h>

namespace wendlow::SeedWorlds {

namespace {

constexpr std::array folders{"ferry",   "harbour", "lighthouse", "tides",  "archive", "tickets",
                             "charts",  "weather", "radio",      "fleet",  "website", "budget",
                             "library", "garden",  "travel",     "reading"};
constexpr std::array types{"decision",   "finding", "ticket", "note",
                           "preference", "focus",   "person"};
constexpr std::array subjects{"timetable",   "departure board", "tide service", "mooring list",
                              "search page", "night build",     "chart viewer", "mail import",
                              "backup",      "login screen",    "export",       "weather feed",
                              "map layer",   "price table",     "status page"};
constexpr std::array verbs{"keeps",   "loses",  "rounds", "caches", "sorts", "rereads",
                           "watches", "delays", "splits", "merges", "hides", "repeats"};
constexpr std::array objects{"the first row",       "every second answer", "old entries",
                             "what was typed last", "times near midnight", "names with accents",
                             "empty files",         "the largest picture", "saved settings"};
constexpr std::array reasons{"It came up in the Monday call.", "A customer wrote about it.",
                             "The log was full of it.",        "It took a morning to find.",
                             "Two people fixed it twice.",     "Nobody remembered why it was so."};
constexpr std::array statuses{"next", "doing", "waiting", "done"};
constexpr std::array owners{"Ines", "Tomas", "Yuki", "Mara"};

/// How the titles of each type read, in the order of `types`.
constexpr std::array<std::array<const char*, 3>, types.size()> titles{{
    {"Leave {object} out of the {subject}", "The {subject} no longer shows {object}",
     "Keep {object} in the {subject} for a year"},
    {"The {subject} {verb} {object}", "The {subject} {verb} {object} since the spring",
     "Only the {subject} {verb} {object}"},
    {"Try the {subject} with {object}", "Teach the {subject} about {object}",
     "Find out why the {subject} {verb} {object}"},
    {"What the {subject} does with {object}", "How the {subject} came to have {object}",
     "Where the {subject} finds {object}"},
    {"No change to the {subject} on a Friday", "In the {subject}, {object} stand at the end",
     "One test of the {subject} for {object}"},
    {"A {subject} that nobody has to explain", "The {subject}, before the season begins",
     "The {subject} and {object}"},
    {"{owner} looks after the {subject}", "Ask {owner} about {object} in the {subject}",
     "{owner} knows why the {subject} {verb} {object}"},
}};

constexpr int memoriesPerScope = 120;
constexpr int rulesPerScope = 6;
constexpr int momentsInAll = 400;

/// One of `list`: the same for the same index at every start, and in no order that a person would
/// notice. `salt` keeps two lists from going in step.
template<std::size_t Size>
std::string_view pick(const std::array<const char*, Size>& list, int index, int salt) {
    auto bits = static_cast<std::uint32_t>(index) * 0x9E3779B1U + static_cast<std::uint32_t>(salt);
    bits ^= bits >> 15U;
    bits *= 0x85EBCA77U;
    bits ^= bits >> 13U;
    return list[bits % Size];
}

std::map<std::string, std::string> seedFilters(std::string_view type, int index) {
    std::map<std::string, std::string> filters{{"owner", std::string(pick(owners, index, 3))}};
    if (type == "ticket" || type == "focus") {
        filters["status"] = pick(statuses, index, 5);
        filters["estimate"] = std::to_string(1 + index % 8);
        if (index % 11 == 0)
            filters["archived"] = "true";
    }
    if (index % 3 == 0)
        filters["source"] = index % 2 == 0 ? "session" : "meeting";
    return filters;
}

std::vector<EditorMemory> memories(const std::string& scope, int count, int seed) {
    std::vector<EditorMemory> made;
    for (int number = 1; number <= count; ++number) {
        const int index = seed * 1000 + number;
        // In turn, so that no type is rare.
        const int turn = seed * 37 + number;
        const std::size_t kind = static_cast<std::size_t>(turn * 3 + turn / 7) % types.size();
        const std::string_view type = types[kind];
        const std::string_view subject = pick(subjects, index, 4);
        made.push_back(
            {.id = fmt::format("{}#m{}", scope, number),
             .type = std::string(type),
             .title =
                 fmt::format(fmt::runtime(pick(titles[kind], index, 6)),
                             fmt::arg("subject", subject), fmt::arg("verb", pick(verbs, index, 5)),
                             fmt::arg("object", pick(objects, index, 2)),
                             fmt::arg("owner", pick(owners, index, 3))),
             .why = std::string(pick(reasons, index, 5)),
             .body = fmt::format("{} went through the {} of {} line by line and found no other "
                                 "case. This holds until somebody changes the {}.",
                                 pick(owners, index, 3), subject, scope, pick(subjects, index, 7)),
             .filters = seedFilters(type, index),
             .day = daysAgo(index % 365)});
    }
    return made;
}

/// Rules are memories too; some files of them have a name, and some rules ride every prompt.
void addRules(EditorScope& scope, int count, int seed) {
    constexpr std::array files{"style", "safety", "releases"};
    for (int number = 1; number <= count; ++number) {
        const int index = seed * 100 + number;
        const std::string id = fmt::format("{}#r{}", scope.id, number);
        const std::string text = fmt::format("Never let the {} touch {}", pick(subjects, index, 2),
                                             pick(objects, index, 4));
        scope.rules.push_back({.id = id, .text = text});
        EditorMemory rule{.id = id, .type = "rule", .title = text};
        rule.why = pick(reasons, index, 1);
        rule.body = text + ", and say so in the commit message.";
        rule.day = daysAgo(index % 90);
        if (number % 3 != 0)
            rule.filters["rules-file"] = pick(files, number, 1);
        // Somebody has mistyped one of a scope.
        if (seed % 5 == 2 && number == count - 1)
            rule.filters["rules-file"] = "two words";
        scope.memories.push_back(std::move(rule));
    }
}

std::vector<EditorApp> apps(const std::string& scope, int count) {
    std::vector<EditorApp> made;
    for (int number = 1; number <= count; ++number)
        made.push_back(
            {.id = fmt::format("{}#a{}", scope, number), .name = fmt::format("Tool {}", number)});
    return made;
}

std::vector<EditorMoment> seedMoments() {
    std::vector<EditorMoment> made;
    for (int index = 0; index < momentsInAll; ++index) {
        EditorMoment moment{.id = fmt::format("{}", index + 1),
                            .at = daysAgo(0) - std::chrono::minutes(37) * index};
        moment.title = fmt::format("The {} on screen", pick(subjects, index, 4));
        moment.abstract = fmt::format("{} {}", pick(reasons, index, 5), pick(objects, index, 2));
        moment.shade = 0.3 + 0.05 * (index % 9);
        moment.framed = index % 6 != 1;
        moment.bundle = moment.framed     ? "one.tarnbeck.editor"
                        : index % 12 == 1 ? "one.tarnbeck.wendlow.transcript.codex"
                                          : "one.tarnbeck.wendlow.transcript.claude";
        if (!moment.framed) {
            moment.files = {fmt::format("{}/plan.md", folders[0]), "restore.py"};
            moment.fileCount = 2 + index % 4;
        }
        made.push_back(std::move(moment));
    }
    return made;
}

} // namespace

SeededContents powerUser() {
    SeededContents made;
    EditorScope work{.id = "/work", .title = "work"};
    addRules(made.root, rulesPerScope, 0);
    int seed = 0;
    for (const char* const folder : folders) {
        EditorScope scope{.id = fmt::format("/work/{}", folder), .title = folder};
        ++seed;
        scope.apps = apps(scope.id, 1 + seed % 3);
        scope.memories = memories(scope.id, memoriesPerScope, seed);
        addRules(scope, rulesPerScope, seed);
        scope.folderPaths = {fmt::format("/home/me/work/{}", folder)};
        work.children.push_back(std::move(scope));
    }
    made.root.children.push_back(std::move(work));
    made.moments = seedMoments();
    return made;
}

} // namespace wendlow::SeedWorlds
