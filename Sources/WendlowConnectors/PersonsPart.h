#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// What somebody else wrote into the entry under our name, where a verb takes it away: named, so
/// that it can be looked for in the copy. Values other than the command are not told, since they
/// may be secrets.
struct PersonsPart {
    std::string_view entry;             ///< as the tool's people call it: "mcpServers.wendlow"
    std::optional<std::string> command; ///< it ran this, which is no program of ours
    std::vector<std::string> keys;      ///< it held these beside what we write

    enum class Fate { replaced, removed };

    bool isNothing() const { return !command && keys.empty(); }
    /// "the <entry> entry here ran <command> and held <keys>, which Wendlow did not write, and this
    /// was <fate>"; nothing where all of it was ours.
    std::optional<std::string> sentence(Fate fate) const;
};

} // namespace wendlow
