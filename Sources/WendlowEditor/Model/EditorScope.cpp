#include "Model/EditorScope.h"

#include <algorithm>

namespace wendlow {

namespace {

EditorScope* findIn(EditorScope& scope, std::string_view wanted) {
    if (scope.id == wanted)
        return &scope;
    for (EditorScope& child : scope.children)
        if (EditorScope* const found = findIn(child, wanted))
            return found;
    return nullptr;
}

void removeFrom(EditorScope& scope, std::string_view unwanted) {
    std::erase_if(scope.children,
                  [unwanted](const EditorScope& child) { return child.id == unwanted; });
    for (EditorScope& child : scope.children)
        removeFrom(child, unwanted);
}

} // namespace

const EditorScope* EditorScope::find(std::string_view wanted) const {
    // What is found is only read.
    return findIn(const_cast<EditorScope&>(*this), wanted); // NOLINT(*-const-cast)
}

EditorScope EditorScope::updating(std::string_view wanted,
                                  const std::function<void(EditorScope&)>& change) const {
    EditorScope copy = *this;
    if (EditorScope* const found = findIn(copy, wanted))
        change(*found);
    return copy;
}

EditorScope EditorScope::removing(std::string_view unwanted) const {
    EditorScope copy = *this;
    removeFrom(copy, unwanted);
    return copy;
}

std::size_t EditorScopeRow::depth() const {
    std::size_t pieces = 0;
    for (std::size_t index = 0; index < path.size(); ++index)
        if (path[index] != '/' && (index == 0 || path[index - 1] == '/'))
            ++pieces;
    return pieces;
}

} // namespace wendlow
