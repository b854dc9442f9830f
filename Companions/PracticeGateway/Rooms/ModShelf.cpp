#include "ModShelf.h"

#include <algorithm>
#include <array>

namespace wendlow::ModShelf {
namespace {

const std::array<ModBoardEntry, 4>& shelf() {
    static const std::array<ModBoardEntry, 4> mods = {
        ModBoardEntry{
            .slug = "backup-watch",
            .scope = "/",
            .rev = 1,
            .hint = "asks when a copy is older than a week",
            .files = {"backup-watch/mod.md", "backup-watch/ages.json"},
            .behaviors = {{.name = "weekly-check",
                           .trigger = "every Monday at 9:00",
                           .wake = true,
                           .tools = {{"memory_get_by_type", "memory_add"}},
                           .maxMutations = 3,
                           .laneState = "idle"},
                          {.name = "remind", .trigger = "a session opens a release branch"}}},
        ModBoardEntry{.slug = "decision-log",
                      .scope = "/",
                      .rev = 1,
                      .hint = "files what was decided, with who decided it and why",
                      .files = {"decision-log/mod.md"},
                      .behaviors = {{.name = "file-decision",
                                     .trigger = "a session says that something is decided"}}},
        ModBoardEntry{.slug = "ticket-sweep",
                      .scope = "/",
                      .rev = 1,
                      .hint = "archives work that has been done for a month",
                      .files = {"ticket-sweep/mod.md"},
                      .behaviors = {{.name = "sweep",
                                     .trigger = "every night at 2:30",
                                     .wake = true,
                                     .tools = {{"memory_edit_filters"}},
                                     .maxMutations = 40,
                                     .laneState = "running"}}},
        ModBoardEntry{
            .slug = "standup-notes",
            .scope = "/",
            .rev = 1,
            .hint = "writes down what changed since yesterday before the first meeting",
            .files = {"standup-notes/mod.md", "standup-notes/form.md"},
            .behaviors = {
                {.name = "morning", .trigger = "the first session of a day", .wake = true}}}};
    return mods;
}

} // namespace

const ModBoardEntry* find(std::string_view name) {
    const auto found = std::ranges::find(shelf(), name, &ModBoardEntry::slug);
    return found == shelf().end() ? nullptr : &*found;
}

std::vector<std::string_view> names() {
    std::vector<std::string_view> names;
    for (const ModBoardEntry& mod : shelf())
        names.push_back(mod.slug);
    return names;
}

} // namespace wendlow::ModShelf
