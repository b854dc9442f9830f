#include "Mods/ModsFaceModel.h"

#include <utility>

namespace wendlow {

namespace {

using World = FacePicture::World;
using Widths = FacePicture::Widths;

using namespace std::chrono_literals;

EditorModRun run(const char* mod, const char* behavior, const char* outcome, int hoursAgo,
                 std::optional<std::int64_t> turns = {}, const char* report = nullptr) {
    constexpr EditorDate now(std::chrono::sys_days(std::chrono::year(2026) / 11 / 21) + 14h + 2min);
    EditorModRun made{.mod = mod, .behavior = behavior, .outcome = EditorRunOutcome::of(outcome)};
    made.startedAt = now - std::chrono::hours(hoursAgo) - std::chrono::minutes(hoursAgo);
    made.endedAt = made.startedAt + 312s;
    made.turns = turns;
    if (report != nullptr) {
        made.report = report;
        made.mutations = 3;
    }
    return made;
}

EditorModsBoard board() {
    const char* const report =
        "Looked at 41 tickets that were done more than a month ago.\n\n"
        "Archived 38 of them. Three stay: two are named by an open decision, and one has a note "
        "that asks to be kept until the harbour's audit is over.\n\n"
        "    archived   38\n    kept        3\n\n…[report truncated by Wendlow]";
    EditorModsBoard made;
    made.mods = {{.slug = "ticket-sweep",
                  .scope = "/work/harbour",
                  .rev = 12,
                  .hint = "archives work that has been done for a month",
                  .files = {"ticket-sweep/mod.md", "ticket-sweep/keep.json"}},
                 {.slug = "standup-notes",
                  .scope = "/",
                  .rev = 3,
                  .hint = "writes down what changed since yesterday before the first meeting",
                  .files = {"standup-notes/mod.md"}}};
    made.mods[0].behaviors = {{.name = "sweep",
                               .trigger = "every night at 2:30",
                               .wake = true,
                               .tools = {{"memory_edit_filters", "memory_get_by_type"}},
                               .maxMutations = 40,
                               .laneState = "running"},
                              {.name = "ask-first", .trigger = "a ticket is reopened"}};
    made.mods[1].behaviors = {
        {.name = "morning", .trigger = "the first session of a day", .wake = true}};
    made.rejected = {{.slug = "price-watch",
                      .scope = "/clients/harbour",
                      .behavior = "fetch",
                      .reason = "it asks for the tool web_fetch, which is not granted to mods"},
                     {.slug = "old-notes", .scope = "/home", .reason = "mod.md has no hint"}};
    made.runs = {run("ticket-sweep", "sweep", "ok", 3, 14, report),
                 run("ticket-sweep", "sweep", "authFailure", 27),
                 run("ticket-sweep", "sweep", "circuitBroken", 51, 24, "Too much at once."),
                 run("ticket-sweep", "sweep", "skippedNoHarnessConsent", 75),
                 run("ticket-sweep", "sweep", "waiting for the tide", 99, 2, "Low water."),
                 run("retired-helper", "tidy", "refusedNoBackup", 140),
                 run("retired-helper", "tidy", "ok", 164, 5, "Tidied.")};
    return made;
}

} // namespace

/// The made-up worlds have no mods, so that what a daemon may have is put in place.
FacePictures ModsFaceModel::pictures() {
    const auto hold = [this](EditorModsBoard of, std::optional<std::string> error = {}) {
        return [this, of = std::move(of), error = std::move(error)] {
            Shown held;
            held.board = of;
            held.loaded = true;
            held.error = error;
            showBoard(std::move(held));
        };
    };
    const auto report = [this](int number) {
        return [this, number] {
            int found = 0;
            for (int row = 0; row < m_rows.rowCount(); ++row)
                if (m_rows.row(row).opens() && found++ == number)
                    activate(row);
        };
    };
    const auto close = [this] { closeReport(); };
    EditorModsBoard orphan = board();
    orphan.mods.clear();
    orphan.rejected.clear();

    FacePictures pictures;
    pictures.push_back({.name = "mods-pending", .world = World::silent});
    pictures.push_back({.name = "mods-failed", .world = World::refusing});
    pictures.push_back({.name = "mods-made-up", .world = World::empty});
    pictures.push_back({.name = "mods-empty", .world = World::empty, .stand = hold({})});
    pictures.push_back(
        {.name = "mods-troubled",
         .stand = hold(board(), "Wendlow isn't running — start it to access your memory.")});
    pictures.push_back({.name = "mods", .widths = Widths::every, .stand = hold(board())});
    pictures.push_back(
        {.name = "mods-report", .widths = Widths::every, .stand = report(0), .leave = close});
    pictures.push_back(
        {.name = "mods-refused", .stand = [this] { Q_EMIT revealed(m_rows.rowCount() - 1); }});
    pictures.push_back({.name = "mods-orphans", .stand = hold(std::move(orphan))});
    return pictures;
}

} // namespace wendlow
