#pragma once

#include <expected>
#include <string>
#include <string_view>

#include "GatewayResponse.h"

namespace wendlow {

/// How answers about a day may be odd, so that whoever shows them can be tried.
struct DayManner {
    bool noTimes = false;
    bool manyApps = false;   ///< a thousand
    bool negative = false;   ///< all times
    bool enormous = false;   ///< as many seconds as there are numbers
    bool oddNames = false;   ///< two words, an emoji, 5,000 letters
    bool noPictures = false; ///< icons of bytes that are none

    bool operator==(const DayManner&) const = default;

    /// Reads words with commas: "no-times", "many-apps", "negative", "enormous", "odd-names",
    /// "no-pictures". The unknown word is the error.
    static std::expected<DayManner, std::string> parse(std::string_view words);

    /// Makes a good answer as odd as that; one that is not about a day stays as it is.
    void change(GatewayResponse& response) const;

private:
    void changeTime(std::int64_t& seconds) const;
    void change(DayPresence& presence) const;
    void change(WebReport& web) const;
};

} // namespace wendlow
