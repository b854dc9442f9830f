#include "Catalogue.h"

#include <algorithm>

namespace wendlow::Catalogue {

namespace {

using Kind = ToolArgument::Kind;

constexpr bool required = true;
constexpr bool optional = false;

} // namespace

const std::vector<Tool>& tools() {
    static const std::vector<Tool> all = {
        {.name = "memory_edit",
         .description =
             "Changes a memory that is there already: what is given replaces what it had, the rest "
             "stays. Use it where something remembered is out of date, wrong, or filed at the "
             "wrong scope. Gives the memory's id.",
         .family = "notes",
         .request = "edit",
         .arguments =
             {{"id", "id", Kind::text, required, "The memory's id, such as m29 or m:29."},
              {"text", "text", Kind::text, optional, "The whole new text."},
              {"why", "why", Kind::text, optional, "Why it is worth remembering."},
              {"type", "type", Kind::text, optional, "Its type, such as decision or fact."},
              {"scope", "path", Kind::text, optional,
               "The scope at which it is filed from now on: a path from the root, such as /work."},
              {"filters", "filters", Kind::filters, optional,
               "Its filters, all of them: those that are not named here go."},
              {"title", "title", Kind::text, optional, "Its title, on one line."}},
         .needsOneMore = true},
        {.name = "scope_map_folder",
         .description =
             "Maps a folder to a scope: sessions that work in the folder, or below it, file and "
             "find their memories at that scope. A folder has one scope, and a new one replaces "
             "it. Says what maps where.",
         .family = "notes",
         .request = "mapPath",
         .arguments = {{"folder", "folder", Kind::text, required,
                        "The folder's whole path; it may begin with ~."},
                       {"scope", "path", Kind::text, required,
                        "The scope: a path from the root, such as /work/atlas."}}},
    };
    return all;
}

const Tool* find(std::string_view name) {
    const auto found = std::ranges::find(tools(), name, &Tool::name);
    return found == tools().end() ? nullptr : &*found;
}

} // namespace wendlow::Catalogue
