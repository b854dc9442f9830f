#include "Floor/RulesScope.h"

#include <optional>

namespace wendlow {

std::string rulesScope(const std::set<std::string>& picked,
                       const std::vector<EditorScopeRow>& board) {
    constexpr const char* root = "/";
    if (!picked.empty())
        return picked.size() == 1 ? *picked.begin() : root;
    std::optional<std::string> first;
    for (const EditorScopeRow& row : board)
        if (!row.kinds.empty() && (!first || row.path < *first))
            first = row.path;
    return first.value_or(root);
}

} // namespace wendlow
