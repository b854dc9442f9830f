#pragma once

#include "Dispatch.h"
#include "PlainText.h"
#include "PracticeRooms.h"
#include "WireCodec.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <ranges>
#include <string>
#include <string_view>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace wendlow::testing {

/// 2026-11-21 12:00 UTC, and a second later with each look.
inline Clock tickingClock() {
    return [seconds = 1'795'262'400]() mutable {
        return std::chrono::system_clock::time_point(std::chrono::seconds(seconds++));
    };
}

/// The rooms over a database in a folder of the test's own. What is said to them and what they
/// answer is the contract's JSON, without the envelope of the four kinds of request.
class TemporaryRooms {
public:
    explicit TemporaryRooms(std::function<Clock()> clock = tickingClock)
        : m_clock(std::move(clock)) {
        std::string pattern = (std::filesystem::temp_directory_path() / "rooms-XXXXXX").string();
        m_folder = ::mkdtemp(pattern.data());
        reopen();
    }
    TemporaryRooms(const TemporaryRooms&) = delete;
    TemporaryRooms& operator=(const TemporaryRooms&) = delete;
    ~TemporaryRooms() {
        m_rooms.reset();
        std::filesystem::remove_all(m_folder);
    }

    std::filesystem::path file() const { return m_folder / "store" / "data.db"; }

    void close() { m_rooms.reset(); }
    void reopen() {
        m_rooms.reset();
        m_rooms = PracticeRooms::open(file(), m_clock()).value();
    }
    PracticeRooms& operator*() { return *m_rooms; }
    PracticeRooms* operator->() { return m_rooms.get(); }

    std::string read(std::string_view request) { return ask("read", request); }
    std::string note(std::string_view request) { return ask("notes", request); }
    std::string control(std::string_view request) { return ask("control", request); }

    /// The first figure that a query of the database gives.
    std::int64_t figure(std::string_view sql) {
        Statement statement = m_rooms->documents().database().prepare(sql);
        return statement.step() ? statement.integer(0) : -1;
    }

    /// What is asked and what is answered, in lines: `read grab {"id":"m1"} → thing {}`. An answer
    /// may stand on the line below its question; one of bare words is a failure's or a text's.
    void hold(std::string_view script) {
        std::string question;
        for (const auto line : std::views::split(script, '\n')) {
            const std::string_view words(line.begin(), line.end());
            const auto arrow = std::min(words.find("→"), words.size());
            if (const auto asked = PlainText::trimmed(words.substr(0, arrow)); !asked.empty())
                question = asked;
            if (arrow == words.size())
                continue;
            const auto road = question.substr(0, question.find(' '));
            EXPECT_EQ(ask(road, json(question.substr(road.size() + 1))),
                      json(PlainText::trimmed(words.substr(arrow + 3))))
                << question;
        }
        EXPECT_FALSE(question.empty());
    }

private:
    static std::string json(std::string_view words) {
        const std::string_view name = words.substr(0, words.find(' '));
        const auto rest = words.substr(std::min(name.size() + 1, words.size()));
        if (rest.empty() || rest.starts_with('{'))
            return fmt::format(R"({{"{}":{}}})", name, rest.empty() ? "{}" : rest);
        return fmt::format(R"({{"{}":{{"{}":"{}"}}}})", name, name == "failure" ? "message" : "_0",
                           rest);
    }
    std::string ask(std::string_view kind, std::string_view request) {
        const auto decoded =
            WireCodec::decodeRequest(fmt::format(R"({{"{}":{{"_0":{}}}}})", kind, request));
        if (!decoded)
            return decoded.error().sentence;
        auto all = m_rooms->all();
        return WireCodec::encode(Dispatch::answer(*decoded, all)).value();
    }

    std::function<Clock()> m_clock;
    std::filesystem::path m_folder;
    std::unique_ptr<PracticeRooms> m_rooms;
};

} // namespace wendlow::testing
