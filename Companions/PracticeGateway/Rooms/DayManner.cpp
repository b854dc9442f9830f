#include "DayManner.h"

#include "WordList.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <variant>

#include <fmt/format.h>

namespace wendlow {

std::expected<DayManner, std::string> DayManner::parse(std::string_view words) {
    static constexpr WordList::Known<bool DayManner::*> ways[] = {
        {"no-times", &DayManner::noTimes},   {"many-apps", &DayManner::manyApps},
        {"negative", &DayManner::negative},  {"enormous", &DayManner::enormous},
        {"odd-names", &DayManner::oddNames}, {"no-pictures", &DayManner::noPictures}};
    return WordList::switches(words, ways);
}

void DayManner::changeTime(std::int64_t& seconds) const {
    if (enormous)
        seconds = std::numeric_limits<std::int64_t>::max() - seconds;
    if (negative)
        seconds = -seconds;
    if (noTimes)
        seconds = 0;
}

void DayManner::change(DayPresence& presence) const {
    if (manyApps) {
        constexpr int count = 1000;
        for (int number = 0; number < count; ++number)
            presence.apps.push_back({.app = fmt::format("Program {}", number),
                                     .attended = number,
                                     .active = number,
                                     .intervals = {}});
    }
    for (DayPresence::App& app : presence.apps) {
        changeTime(app.attended);
        changeTime(app.unattended);
        changeTime(app.active);
    }
    changeTime(presence.active);
    if (!oddNames)
        return;
    constexpr std::size_t endless = 5000;
    const std::string names[] = {"Two Words", "🧭", std::string(endless, 'm'), "two\nlines of it"};
    // Of what a card of apps lists: browsers have one of their own.
    auto name = std::begin(names);
    for (DayPresence::App& app : presence.apps)
        if (!app.isBrowser && name != std::end(names))
            app.app = *name++;
}

void DayManner::change(WebReport& web) const {
    changeTime(web.browserSeconds);
    for (WebReport::Site& site : web.sites)
        changeTime(site.seconds);
}

void DayManner::change(GatewayResponse& response) const {
    if (auto* const presence = std::get_if<AnswerCase::Presence>(&response))
        change(presence->_0);
    else if (auto* const web = std::get_if<AnswerCase::Web>(&response))
        change(web->_0);
    else if (auto* const stretches = std::get_if<AnswerCase::Stretches>(&response))
        for (DayStretchReport::FocusRun& run : stretches->_0.focus)
            changeTime(run.seconds);
    else if (auto* const attention = std::get_if<AnswerCase::Attention>(&response))
        for (std::int64_t* const seconds : {&attention->_0.aiSeconds, &attention->_0.humansSeconds,
                                            &attention->_0.scrollingSeconds})
            changeTime(*seconds);
    else if (auto* const icons = std::get_if<AnswerCase::Icons>(&response); icons && noPictures)
        for (auto& [host, icon] : icons->_0)
            icon.bytes = "<!doctype html><title>" + host + "</title>";
}

} // namespace wendlow
