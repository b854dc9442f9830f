#include "FilePlace.h"
#include "Files.h"
#include "RowStory.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using Result = ConnectorOutcome::Result;
using State = ConnectorState;
using Tone = RowStrip::Tone;

TEST(RowStory, SaysFirstWhatHasHappenedAndWhatToDoNext) {
    const std::tuple<RowVerb, Result, State, Tone, const char*, const char*> rows[] = {
        {RowVerb::connect, Result::changed, State::connected, Tone::information,
         "Connected. Restart Codex to use it.", "What changed"},
        {RowVerb::disconnect, Result::changed, State::found, Tone::information,
         "Disconnected. Restart Codex to finish.", "What changed"},
        {RowVerb::connect, Result::unchanged, State::connected, Tone::information,
         "Codex is connected. Nothing needed changing.", "What was looked at"},
        {RowVerb::connect, Result::changed, State::drifted, Tone::warning,
         "Changed, but Codex is not connected yet. What is left stands below.", "What changed"},
        {RowVerb::disconnect, Result::unchanged, State::drifted, Tone::warning,
         "Nothing was changed, but Codex is not disconnected yet. What is left stands below.",
         "What was looked at"},
        {RowVerb::disconnect, Result::refused, State::found, Tone::refusal,
         "Codex was not disconnected.", ""}};
    for (const auto& [verb, result, state, tone, headline, title] : rows) {
        SCOPED_TRACE(headline);
        const VerbNote note{.verb = verb, .result = result, .lines = {{"/f", "why"}}, .places = {}};
        const RowStory::Subject subject{.name = "Codex", .state = state, .verb = &note};
        const auto strips = RowStory::strips(subject);
        EXPECT_EQ(strips.at(0).headline, headline);
        EXPECT_EQ(strips.at(0).tone, tone);
        EXPECT_EQ(RowStory::changesTitle(subject), title);
        const bool refused = result == Result::refused;
        EXPECT_EQ(strips.at(0).lines.size(), refused ? 1U : 0U) << "said twice, or not at all";
        EXPECT_EQ(RowStory::changes(subject).size(), refused ? 0U : 1U);
        ASSERT_EQ(strips.size(), state == State::drifted ? 2U : 1U);
        if (state == State::drifted) {
            EXPECT_EQ(strips.at(1).actions,
                      (std::vector{RowAction::connect, RowAction::disconnect}));
        }
    }
}

TEST(FilePlace, CountsAsAnEditorDoes) {
    const std::tuple<std::string_view, std::size_t, FilePlace> rows[] = {
        {"", 0, {1, 1}},        {"a\nbc", 3, {2, 2}},         {"a\r\nbc", 3, {2, 1}},
        {"a\r\nbc", 2, {1, 3}}, {"a\rbc", 2, {2, 1}},         {"\xEF\xBB\xBF{", 4, {1, 2}},
        {"ä—x", 5, {1, 3}},     {"\xEF\xBB\xBF{", 1, {1, 1}}, {"ab\n", 99, {2, 1}}};
    for (const auto& [bytes, offset, place] : rows)
        EXPECT_EQ(FilePlace::of(bytes, offset), place) << bytes << " at " << offset;
}

TEST(FilePlace, IsToldWhereTheByteIsKnownAndTheFileStillHasIt) {
    const testing::TemporaryHome home;
    const std::string file = testing::put(home / "settings.json", "{\n x").string();
    EXPECT_EQ(FilePlace::words({{file, "why (at byte 3)", 3},
                                {file, "why (at byte 3)"},
                                {file, "why", 9},
                                {file + ".gone", "why", 3}}),
              (std::vector<std::string>{"line 2, column 2", "", "", ""}));
}

} // namespace
} // namespace wendlow
