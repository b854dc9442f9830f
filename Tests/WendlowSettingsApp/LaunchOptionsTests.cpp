#include "LaunchOptions.h"

#include <gtest/gtest.h>

#include <vector>

namespace wendlow {
namespace {

using Arguments = std::vector<std::string>;
using WindowDoor::Pane;

TEST(LaunchOptions, ReadsWhatIsItsOwnAndLeavesTheRest) {
    LaunchOptions stats;
    stats.pane = Pane::stats;
    LaunchOptions firstFrame;
    firstFrame.firstFrame = true;
    LaunchOptions pictures;
    pictures.snapshots = "out";
    pictures.size = PixelSize{1280, 800};
    for (const auto& [arguments, expected] :
         {std::pair(Arguments{}, LaunchOptions{}),
          {{"--window=bogus", "--window=stats", "--window=editor"}, stats},
          {{"-platform", "xcb", "--first-frame"}, firstFrame},
          {{"--snapshots", "out", "--size", "1280x800"}, pictures}}) {
        const auto options = LaunchOptions::parse(arguments);
        ASSERT_TRUE(options.has_value());
        EXPECT_EQ(*options, expected) << ::testing::PrintToString(arguments);
    }
}

TEST(LaunchOptions, RefusesWhatItCannotDoInWords) {
    const std::string folder = "--snapshots needs the folder for the pictures";
    const std::string size = "--size needs a size such as 1280x800";
    for (const auto& [arguments, words] : {std::pair(Arguments{"--snapshots"}, folder),
                                           {{"--snapshots", "--size"}, folder},
                                           {{"--size"}, size},
                                           {{"--size", "1280"}, size},
                                           {{"--size", "1280x"}, size},
                                           {{"--size", "0x800"}, size},
                                           {{"--size", "12x8 "}, size},
                                           {{"--size", "x800"}, size},
                                           {{"--size", "99999999999x1"}, size}}) {
        const auto options = LaunchOptions::parse(arguments);
        ASSERT_FALSE(options.has_value()) << ::testing::PrintToString(arguments);
        EXPECT_EQ(options.error(), words);
    }
}

} // namespace
} // namespace wendlow
