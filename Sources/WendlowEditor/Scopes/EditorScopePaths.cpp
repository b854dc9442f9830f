#include "Scopes/EditorScopePaths.h"

#include "ScopePath.h"
#include "WireUTF8.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace wendlow {

std::string EditorScopePaths::parent(std::string_view path) {
    const auto slash = path.rfind('/');
    const bool below = path != ScopePath::root && slash != std::string_view::npos && slash > 0;
    return std::string(below ? path.substr(0, slash) : ScopePath::root);
}

bool EditorScopePaths::inScope(std::string_view path, std::string_view scope) {
    return ScopePath::inScope(path, scope);
}

std::string EditorScopePaths::reparent(std::string_view path, std::string_view from,
                                       std::string_view to) {
    if (path == from)
        return std::string(to);
    // Not `inScope`, to which everything is in the root: below that nothing begins with "//".
    const bool below = path.starts_with(from) && path.substr(from.size()).starts_with('/');
    return below ? join(to, path.substr(from.size())) : std::string(path);
}

std::string EditorScopePaths::join(std::string_view base, std::string_view rest) {
    if (rest.empty())
        return std::string(base);
    while (base.size() > 1 && base.ends_with('/'))
        base.remove_suffix(1);
    return base == ScopePath::root ? std::string(rest) : std::string(base).append(rest);
}

bool EditorScopePaths::breaksLines(std::string_view name) {
    for (std::size_t at = 0; at < name.size();) {
        const WireUTF8::Character character = WireUTF8::characterAt(name, at);
        const char32_t code = character.code;
        // What is no UTF-8 cannot be written into a text at all.
        if (!character.isWellFormed || code < U' ' || (code >= U'\x7f' && code < U'\xa0') ||
            code == U'\u2028' || code == U'\u2029')
            return true;
        at += character.length;
    }
    return false;
}

std::vector<EditorScopeRow> EditorScopeBoard::directoryOrdered(std::vector<EditorScopeRow> rows) {
    std::ranges::stable_sort(rows, {}, &EditorScopeRow::path);
    return rows;
}

std::vector<EditorScopeRow> EditorScopeBoard::subtree(const std::vector<EditorScopeRow>& rows,
                                                      std::string_view path) {
    std::vector<EditorScopeRow> below;
    std::ranges::copy_if(rows, std::back_inserter(below), [path](const EditorScopeRow& row) {
        return EditorScopePaths::inScope(row.path, path);
    });
    return below;
}

} // namespace wendlow
