#include "WindowDoor.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using WindowDoor::Pane;

TEST(WindowDoor, TakesTheFirstWellFormedArgument) {
    const std::pair<std::vector<std::string>, std::optional<Pane>> rows[] = {
        {{"app", "--window=bogus", "--window=stats", "--window=editor"}, Pane::stats},
        {{"--window=stats ", "--window=Stats", "--window=", "-window=stats", "--window", "stats"},
         std::nullopt},
    };
    for (const auto& [arguments, pane] : rows)
        EXPECT_EQ(WindowDoor::requested(arguments), pane) << arguments.front();
    for (const Pane pane : {Pane::settings, Pane::stats, Pane::editor, Pane::onboarding})
        EXPECT_EQ(WindowDoor::requested(std::vector{WindowDoor::argument(pane)}), pane);
}

TEST(WindowDoor, WantsTheFrontForExactlyOne) {
    using UserInfo = WindowDoor::UserInfo;
    EXPECT_TRUE(WindowDoor::wantsFront(UserInfo{{"x", "0"}, {"front", "1"}}));
    for (const UserInfo& userInfo :
         {UserInfo{}, UserInfo{{"front", "true"}}, UserInfo{{"Front", "1"}}})
        EXPECT_FALSE(WindowDoor::wantsFront(userInfo));
}

TEST(WindowDoor, NeverTakesTheFocusFromAJourneyOnScreen) {
    using WindowDoor::journeyDoor;
    using WindowDoor::JourneyDoorAction;
    EXPECT_EQ(journeyDoor({.exists = false}), JourneyDoorAction::build);
    EXPECT_EQ(journeyDoor({.exists = true, .live = false, .front = true}),
              JourneyDoorAction::refresh);
    EXPECT_EQ(journeyDoor({.exists = true, .live = true, .front = true}), JourneyDoorAction::front);
    EXPECT_EQ(journeyDoor({.exists = true, .live = true}), JourneyDoorAction::nothing);
}

} // namespace
} // namespace wendlow
