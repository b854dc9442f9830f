#include "WindowDoor.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using WindowDoor::Pane;

TEST(WindowDoor, TakesTheFirstWellFormedArgument) {
    const struct {
        std::vector<std::string> arguments;
        std::optional<Pane> pane;
    } rows[] = {
        {{"app", "--window=bogus", "--window=stats"}, Pane::stats},
        {{"--window=editor", "--window=stats"}, Pane::editor},
        {{"--window=onboarding"}, Pane::onboarding},
        {{"--window=stats ", "--window=Stats", "--window=", "-window=stats", "--window", "stats"},
         std::nullopt},
        {{}, std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(WindowDoor::requested(row.arguments), row.pane)
            << (row.arguments.empty() ? "" : row.arguments.front());
    for (const Pane pane : {Pane::settings, Pane::stats, Pane::editor, Pane::onboarding})
        EXPECT_EQ(WindowDoor::requested(std::vector{WindowDoor::argument(pane)}), pane);
}

TEST(WindowDoor, WantsTheFrontForExactlyOne) {
    using UserInfo = WindowDoor::UserInfo;
    EXPECT_TRUE(WindowDoor::wantsFront(WindowDoor::userInfo(WindowDoor::Front::bring)));
    EXPECT_FALSE(WindowDoor::wantsFront(WindowDoor::userInfo(WindowDoor::Front::leave)));
    EXPECT_TRUE(WindowDoor::wantsFront(UserInfo{{"x", "0"}, {"front", "1"}}));
    for (const UserInfo& userInfo : {UserInfo{}, UserInfo{{"front", "true"}},
                                     UserInfo{{"front", "1 "}}, UserInfo{{"Front", "1"}}})
        EXPECT_FALSE(WindowDoor::wantsFront(userInfo));
}

TEST(WindowDoor, NeverTakesTheFocusFromAJourneyOnScreen) {
    using WindowDoor::journeyDoor;
    using WindowDoor::JourneyDoorAction;
    for (const bool front : {false, true}) {
        EXPECT_EQ(journeyDoor({.exists = false, .live = false, .front = front}),
                  JourneyDoorAction::build);
        EXPECT_EQ(journeyDoor({.exists = true, .live = false, .front = front}),
                  JourneyDoorAction::refresh);
    }
    EXPECT_EQ(journeyDoor({.exists = true, .live = true, .front = true}), JourneyDoorAction::front);
    EXPECT_EQ(journeyDoor({.exists = true, .live = true, .front = false}),
              JourneyDoorAction::nothing);
}

} // namespace
} // namespace wendlow
