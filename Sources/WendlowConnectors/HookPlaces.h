#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// Where the entries of a file belong that holds some for each prompt and one for the moment before
/// a tool runs, and what is wrong with where they are.
struct HookPlaces {
    enum class Count : std::size_t { two = 2, four = 4 };

    std::string_view promptEvent;
    std::string_view preToolEvent;
    std::string promptCommand; ///< the first of them
    std::string preToolCommand;
    std::filesystem::path binary; ///< what the commands run
    Count count;                  ///< of entries in all

    std::string_view eventOf(std::string_view command) const;

    /// Whether there are as many sites as there should be, each under its event.
    template<class Site> bool areHeld(const std::vector<Site>& sites) const {
        return wrongPlaces(placed(sites)).empty();
    }
    /// What is wrong with the sites, of which there is at least one, but for the entries' shape.
    /// Asks the disk about `binary`.
    template<class Site>
    std::vector<std::string> driftReasons(const std::vector<Site>& sites) const {
        return reasons(placed(sites));
    }

private:
    struct Placed {
        std::string_view event;
        std::string_view command;
    };

    template<class Site> static std::vector<Placed> placed(const std::vector<Site>& sites) {
        std::vector<Placed> all;
        all.reserve(sites.size());
        for (const Site& site : sites)
            all.push_back({site.event, site.command});
        return all;
    }
    std::vector<std::string> wrongPlaces(const std::vector<Placed>& sites) const;
    std::vector<std::string> reasons(const std::vector<Placed>& sites) const;
};

} // namespace wendlow
