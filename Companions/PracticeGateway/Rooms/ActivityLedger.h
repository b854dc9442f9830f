#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <boost/describe/enum.hpp>

#include "PracticeDatabase.h"

namespace wendlow {

/// What an activity was given to.
enum class Attention : std::uint8_t { work, ai, humans, scrolling };
BOOST_DESCRIBE_ENUM(Attention, work, ai, humans, scrolling)

/// One application in front, or an AI at work in it, from one time to another. Never over midnight.
struct Activity {
    std::string day; ///< "2026-11-21"
    double start = 0;
    double end = 0;
    std::string app;
    bool isBrowser = false;
    bool attended = true; ///< false: an AI worked and nobody was there
    Attention attention = Attention::work;
    std::optional<std::string> site = std::nullopt;
    std::int64_t chapter = 0; ///< 0 for none

    std::int64_t seconds() const { return static_cast<std::int64_t>(end - start); }
};

/// A while of one piece of work.
struct Chapter {
    std::int64_t number = 0;
    std::string day;
    std::string title;
    double start = 0;
    double end = 0;
};

/// Who was where, from the first day to the last. Throws `DatabaseError`.
class ActivityLedger {
public:
    static std::string_view schema();

    explicit ActivityLedger(PracticeDatabase& database);

    /// Of these days, both included, in order of their start.
    std::vector<Activity> between(std::string_view firstDay, std::string_view lastDay);
    std::vector<Activity> of(std::string_view day) { return between(day, day); }
    /// In order of their start.
    std::vector<Chapter> chaptersOf(std::string_view day);
    std::optional<Chapter> chapter(std::int64_t number);
    /// The highest number of one; 0 where there is none.
    std::int64_t lastChapter();
    /// The first and the last day of which anything is known.
    std::optional<std::pair<std::string, std::string>> days();

    /// The one that ended last; nothing where nothing is known.
    std::optional<Activity> last();

    void put(const Activity& activity);
    void put(const Chapter& chapter);
    /// The one that ended last, and the chapter it stands in, go on until then.
    void extendLast(double end);

private:
    PracticeDatabase& m_database;
    Statement m_put;
};

} // namespace wendlow
