#include "Store/ScopeSource.h"

namespace wendlow {

std::vector<const EditorScope*> ScopeSource::ancestors(std::string_view path) const {
    std::vector<const EditorScope*> above;
    const auto add = [&](std::string_view id) {
        if (const EditorScope* const scope = rootScope().find(id))
            above.push_back(scope);
    };
    std::string prefix;
    std::size_t at = path.find_first_not_of('/');
    while (at != std::string_view::npos) {
        add(prefix.empty() ? std::string_view("/") : std::string_view(prefix));
        const auto end = path.find('/', at);
        prefix.append("/").append(path.substr(at, end - at));
        at = end == std::string_view::npos ? end : path.find_first_not_of('/', end);
    }
    return above;
}

} // namespace wendlow

#include "moc_ScopeSource.cpp"
