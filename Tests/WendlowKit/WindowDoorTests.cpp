#include "WindowDoor.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using WindowDoor::Pane;

TEST(WindowDoor, TakesAWellFormedArgumentOnly) {
    EXPECT_EQ(WindowDoor::requested(std::vector<std::string>{"--window=stats ", "--window=Stats",
                                                             "--window=", "-window=stats",
                                                             "--window", "stats"}),
              std::nullopt);
    for (const Pane pane : {Pane::settings, Pane::stats, Pane::editor, Pane::onboarding})
        EXPECT_EQ(WindowDoor::requested(std::vector{WindowDoor::argument(pane)}), pane);
}

} // namespace
} // namespace wendlow
