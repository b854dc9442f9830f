#include "ShownPath.h"

namespace wendlow {

std::string shownPath(std::string_view path, std::string_view home) {
    if (home.empty() || !path.starts_with(home))
        return std::string(path);
    const std::string_view rest = path.substr(home.size());
    // "/home/ada" is no beginning of "/home/adam/notes".
    return rest.empty() || rest.front() == '/' ? "~" + std::string(rest) : std::string(path);
}

} // namespace wendlow
