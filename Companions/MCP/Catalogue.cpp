#include "Catalogue.h"

#include <algorithm>
#include <iterator>

namespace wendlow::Catalogue {

namespace {

using Kind = ToolArgument::Kind;
using Effect = Tool::Effect;

constexpr bool required = true;
constexpr bool optional = false;

constexpr ToolArgument query{"query", "query", Kind::text, required,
                             "The words to look for; the last may be the beginning of one."};
constexpr ToolArgument from{"from", "from", Kind::day, optional,
                            "The first day, such as 2026-11-21."};
constexpr ToolArgument to{"to", "to", Kind::day, optional, "The last day, such as 2026-11-21."};
constexpr ToolArgument day{"day", "day", Kind::day, required, "The day, such as 2026-11-21."};
constexpr ToolArgument limit{"limit", "limit", Kind::number, optional, "At most so many.", 200};
constexpr ToolArgument memory{"id", "id", Kind::text, required,
                              "The memory's id, such as m29 or m:29."};
constexpr ToolArgument meeting{"id", "id", Kind::text, required,
                               "The meeting's id, as meeting_list gives it."};
constexpr ToolArgument scope{"scope", "path", Kind::text, required,
                             "The scope at which it is filed: a path from the root, such as "
                             "/work/atlas; / is for what holds everywhere."};
constexpr ToolArgument text{"text", "text", Kind::text, required,
                            "What is to be remembered, whole and understandable by itself."};
constexpr ToolArgument why{"why", "why", Kind::text, required, "Why it is worth remembering."};

std::vector<Tool> reads() {
    return {
        {.name = "recall",
         .title = "Recall",
         .description =
             "Looks in everything that was seen and remembered: memories, moments on screen, "
             "meetings. Use it first whenever the person speaks of earlier work. Gives the best "
             "twenty, each with its id for grab; without words, the newest of the days.",
         .family = "read",
         .request = "recall",
         .arguments = {{"query", "query", Kind::text, optional, query.description}, from, to},
         .needsOneMore = true,
         .items = R"({"query":""})"},
        {.name = "search",
         .title = "Search",
         .description = "Finds what holds all of these words, the best first. Use it where recall "
                        "gave too little. Gives a line for each, with its id for grab.",
         .family = "read",
         .request = "search",
         .arguments = {query, limit}},
        {.name = "grep",
         .title = "Find the very words",
         .description = "Finds these words one behind the other, the newest first. Use it for a "
                        "name, an error message or a quotation. Gives the line in which they "
                        "stand, with the id for grab.",
         .family = "read",
         .request = "grep",
         .arguments = {query, from, to}},
        {.name = "grab",
         .title = "Read one thing whole",
         .description = "Gives one thing whole by the id that another tool or a memory card gave. "
                        "Use it before relying on what a short line says.",
         .family = "read",
         .request = "grab",
         .arguments = {{"id", "id", Kind::text, required,
                        "The id, such as m29 or m:29 for a memory."},
                       {"full", "full", Kind::flag, optional,
                        "Whether what is usually left out of a moment comes along."}},
         .tells = {"session", "subagent"}},
        {.name = "memory_get_by_type",
         .title = "Memories of a type",
         .description = "Gives the memories of one type in a scope and below it, the newest "
                        "first. Use it to list decisions, open questions or the rules of a module "
                        "before work that they concern.",
         .family = "read",
         .request = "getByType",
         .arguments = {{"type", "type", Kind::text, required, "The type, such as decision."},
                       {"scope", "path", Kind::text, optional,
                        "The scope; without it, all of them."},
                       {"filters", "filters", Kind::filters, optional,
                        "Only those that carry these filters with these values."}},
         .tells = {"session"}},
        {.name = "memory_list_types",
         .title = "Types of memories",
         .description = "Says which types of memories there are in a scope, how many of each and "
                        "which filters they carry. Use it before memory_get_by_type or "
                        "memory_add, to take a type that is in use.",
         .family = "read",
         .request = "listTypes",
         .arguments = {{"scope", "scope", Kind::text, optional,
                        "The scope; without it, all of them."}}},
        {.name = "scope_list_all",
         .title = "All scopes",
         .description = "Lists every scope. Use it before filing at a scope that was not told.",
         .family = "notes",
         .request = "listPaths"},
        {.name = "rules_get",
         .title = "Rules of a scope",
         .description = "Gives the standing rules that hold at a scope, with the modules that are "
                        "read before such work. Use it when work moves to another scope; the "
                        "rules of the present one come with each prompt.",
         .family = "read",
         .request = "standingRules",
         .arguments = {{"scope", "scope", Kind::text, optional,
                        "The scope; without it, that of the session."}},
         .items = R"({"card":true})",
         .tells = {"writer", "session"}},
        {.name = "day_get",
         .title = "One day",
         .description = "Tells what was done on a day, chapter by chapter. Use it for questions "
                        "such as what was done yesterday. Gives times, titles and ids for "
                        "chapter_get.",
         .family = "read",
         .request = "getDay",
         .arguments = {day}},
        {.name = "span_get_hours_by_app",
         .title = "Hours of some days",
         .description = "Says how long was worked from one day to another, by program and by day.",
         .family = "read",
         .request = "spanHours",
         .arguments = {{"from", "from", Kind::day, required, from.description},
                       {"to", "to", Kind::day, required, to.description}}},
        {.name = "chapter_get",
         .title = "One chapter of a day",
         .description = "Gives the moments of a chapter, by the id that day_get gave.",
         .family = "read",
         .request = "getChapter",
         .arguments = {{"id", "id", Kind::text, required, "The chapter's id, such as c12."}}},
        {.name = "moment_get",
         .title = "One moment",
         .description = "Gives what was on screen at a moment, by the id that recall or "
                        "chapter_get gave.",
         .family = "read",
         .request = "getMoment",
         .arguments = {{"id", "id", Kind::text, required, "The moment's id."}}},
        {.name = "session_list",
         .title = "AI sessions",
         .description = "Lists earlier AI sessions at the scope of this one. Use it to find where "
                        "work was left off.",
         .family = "read",
         .request = "sessionList",
         .arguments = {{"older", "older", Kind::flag, optional,
                        "Whether those before the newest ten are wanted."}},
         .tells = {"session"}},
        {.name = "meeting_list",
         .title = "Meetings",
         .description = "Lists meetings with their ids, times, titles and speakers. Use it to "
                        "find the meeting that the person speaks of.",
         .family = "read",
         .request = "meetingList",
         .arguments = {{"day", "day", Kind::day, optional, day.description},
                       {"person", "person", Kind::text, optional, "Only those with this person."},
                       {"app", "app", Kind::text, optional, "Only those in this program."}}},
        {.name = "meeting_get",
         .title = "One meeting",
         .description = "Gives what was said in a meeting, by its id.",
         .family = "read",
         .request = "meetingGet",
         .arguments = {meeting,
                       {"times", "times", Kind::flag, optional, "Whether each line has its time."}},
         .tells = {"session", "subagent"}},
        {.name = "meeting_search",
         .title = "Search in meetings",
         .description = "Finds what was said in meetings. Gives the lines, with the meeting's id.",
         .family = "read",
         .request = "meetingSearch",
         .arguments = {query,
                       {"speaker", "speaker", Kind::text, optional, "Only what this person said."},
                       from,
                       to,
                       limit}},
    };
}

std::vector<Tool> writes() {
    return {
        {.name = "memory_add",
         .title = "Remember",
         .description = "Files a memory. Use it when the person asks for it, or when a decision, "
                        "a fact or an agreement will matter to later sessions. Gives the "
                        "memory's id.",
         .effect = Effect::adds,
         .family = "notes",
         .request = "write",
         .arguments = {text,
                       why,
                       {"type", "type", Kind::text, required,
                        "Its type, such as decision or fact, on one line."},
                       scope,
                       {"title", "title", Kind::text, optional,
                        "Its title, on one line; without it, the text's first line."},
                       {"filters", "filters", Kind::filters, optional,
                        "Keys and values by which it is found again."}},
         .tells = {"writer", "session", "subagent"}},
        {.name = "rule_add",
         .title = "Add a rule",
         .description = "Files a standing rule, which is told to every later session at its scope "
                        "and below it. Use it only when the person asks for a rule. Gives the "
                        "rule's id; it is edited and deleted as a memory is.",
         .effect = Effect::adds,
         .family = "notes",
         .request = "write",
         .arguments = {{"text", "text", Kind::text, required, "The rule, in one sentence or two."},
                       why,
                       scope,
                       {"filters", "filters", Kind::filters, optional,
                        "With rules-file, a name in small letters, the rule belongs to the module "
                        "of that name, which is fetched only before such work."}},
         .items = R"({"type":"rule"})",
         .tells = {"writer", "session", "subagent"}},
        {.name = "memory_edit",
         .title = "Edit a memory",
         .description =
             "Changes a memory that is there already: what is given replaces what it had, the rest "
             "stays. Use it where something remembered is out of date, wrong, or filed at the "
             "wrong scope. Gives the memory's id.",
         .effect = Effect::changes,
         .family = "notes",
         .request = "edit",
         .arguments =
             {memory,
              {"text", "text", Kind::text, optional, "The whole new text."},
              {"why", "why", Kind::text, optional, "Why it is worth remembering."},
              {"type", "type", Kind::text, optional, "Its type, such as decision or fact."},
              {"scope", "path", Kind::text, optional,
               "The scope at which it is filed from now on: a path from the root, such as /work."},
              {"filters", "filters", Kind::filters, optional,
               "Its filters, all of them: those that are not named here go."},
              {"title", "title", Kind::text, optional, "Its title, on one line."}},
         .needsOneMore = true},
        {.name = "memory_patch",
         .title = "Replace words in a memory",
         .description = "Replaces words in one field of a memory. Use it for a small correction "
                        "in a long text. Gives the memory's id.",
         .effect = Effect::removes,
         .family = "notes",
         .request = "patch",
         .arguments = {memory,
                       {"field", "field", Kind::text, required, "text, why or title."},
                       {"find", "find", Kind::text, required, "The words as they stand there."},
                       {"replace", "replace", Kind::text, required, "What stands there then."},
                       {"all", "replaceAll", Kind::flag, optional,
                        "Whether everywhere, and not only the first time."}},
         .items = R"({"replaceAll":false})"},
        {.name = "memory_edit_filters",
         .title = "Change a memory's filters",
         .description = "Sets and takes away single filters of a memory, and leaves its others. "
                        "Gives the memory's id.",
         .effect = Effect::changes,
         .family = "notes",
         .request = "editFilters",
         .arguments = {memory,
                       {"set", "set", Kind::filters, optional, "Filters with their new values."},
                       {"unset", "unset", Kind::names, optional, "Keys of filters that go."}},
         .needsOneMore = true},
        {.name = "memory_delete",
         .title = "Delete a memory",
         .description = "Deletes a memory for good. Use it only when the person asks for it; what "
                        "is out of date is better edited.",
         .effect = Effect::removes,
         .family = "notes",
         .request = "delete",
         .arguments = {memory}},
        {.name = "scope_map_folder",
         .title = "Map a folder to a scope",
         .description =
             "Maps a folder to a scope: sessions that work in the folder, or below it, file and "
             "find their memories at that scope. A folder has one scope, and a new one replaces "
             "it. Says what maps where.",
         .effect = Effect::changes,
         .family = "notes",
         .request = "mapPath",
         .arguments = {{"folder", "folder", Kind::text, required,
                        "The folder's whole path; it may begin with ~."},
                       {"scope", "path", Kind::text, required,
                        "The scope: a path from the root, such as /work/atlas."}}},
        {.name = "scope_set_for_session",
         .title = "Set this session's scope",
         .description = "Sets the scope of this session, whatever folder it works in. Use it when "
                        "the person says which project the session is about.",
         .effect = Effect::changes,
         .family = "notes",
         .request = "setPath",
         .arguments = {{"scope", "path", Kind::text, required,
                        "The scope: a path from the root, such as /work/atlas."}},
         .tells = {"writer", "session"}},
    };
}

} // namespace

const std::vector<Tool>& tools() {
    static const std::vector<Tool> all = [] {
        std::vector<Tool> both = reads();
        std::ranges::move(writes(), std::back_inserter(both));
        return both;
    }();
    return all;
}

const Tool* find(std::string_view name) {
    const auto found = std::ranges::find(tools(), name, &Tool::name);
    return found == tools().end() ? nullptr : &*found;
}

} // namespace wendlow::Catalogue
