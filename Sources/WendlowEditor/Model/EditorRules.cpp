#include "Model/EditorRules.h"

#include "Say.h"

#include <algorithm>

namespace wendlow {

std::string EditorRulePlacement::label() const {
    return file ? *file : say("inline (no rules module — rides every prompt)");
}

bool EditorRulePlacement::isLegal() const {
    return !file || EditorRulesFiles::normalizedName(*file);
}

std::map<std::string, std::string> EditorRulePlacement::filters() const {
    return file ? std::map<std::string, std::string>{{"rules-file", *file}}
                : std::map<std::string, std::string>{};
}

std::optional<std::string> EditorRulesFiles::normalizedName(std::string_view text) {
    constexpr std::string_view space = " \t\r\n\v\f";
    const auto start = text.find_first_not_of(space);
    if (start == std::string_view::npos)
        return std::nullopt;
    std::string name(text.substr(start, text.find_last_not_of(space) - start + 1));
    bool holdsMore = false;
    for (char& byte : name) {
        if (byte >= 'A' && byte <= 'Z')
            byte = static_cast<char>(byte - 'A' + 'a');
        const bool isMore = (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9');
        if (!isMore && byte != '-')
            return std::nullopt;
        holdsMore = holdsMore || isMore;
    }
    if (!holdsMore || name.starts_with('-') || name.ends_with('-') ||
        std::ranges::find(reserved, name) != reserved.end())
        return std::nullopt;
    return name;
}

std::string EditorRulesFiles::refusal(std::string_view name) {
    return say(
        "“{}” isn’t a legal rules-file name: one lowercase word, letters, digits and dashes, no "
        "leading or trailing dash, and not one of the reserved words. It becomes a filename and a "
        "card attribute.",
        name);
}

} // namespace wendlow
