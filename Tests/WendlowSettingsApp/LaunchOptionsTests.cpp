#include "LaunchOptions.h"

#include <gtest/gtest.h>

#include <vector>

namespace wendlow {
namespace {

using Arguments = std::vector<std::string>;

TEST(LaunchOptions, ReadsWhatIsItsOwnAndLeavesTheRest) {
    const auto options = LaunchOptions::parse(Arguments{
        "--window=bogus", "--window=stats", "--window=editor", "-platform", "xcb", "--first-frame",
        "--snapshots", "out", "--size", "1280x800", "--text-scale", "1.5", "--pane=recovery"});
    ASSERT_TRUE(options.has_value());
    LaunchOptions expected;
    EXPECT_EQ(LaunchOptions::parse(Arguments{}), expected);
    expected.pane = WindowDoor::Pane::stats;
    expected.firstFrame = true;
    expected.snapshots = "out";
    expected.size = PixelSize{1280, 800};
    expected.settingsPane = wendlow::Pane::recovery;
    expected.textScale = 1.5;
    EXPECT_EQ(*options, expected);
}

TEST(LaunchOptions, RefusesWhatItCannotDoInWords) {
    const std::string folder = "--snapshots needs the folder for the pictures";
    for (const Arguments& arguments : {Arguments{"--snapshots"}, {"--snapshots", "--size"}})
        EXPECT_EQ(LaunchOptions::parse(arguments), std::unexpected(folder));
    EXPECT_FALSE(LaunchOptions::parse(Arguments{"--size"}).has_value());
    for (const char* size : {"1280", "1280x", "0x800", "12x8 ", "x800", "99999999999x1"})
        EXPECT_EQ(LaunchOptions::parse(Arguments{"--size", size}),
                  std::unexpected("--size needs a size such as 1280x800"))
            << size;
    EXPECT_EQ(LaunchOptions::parse(Arguments{"--pane=privacy"}),
              std::unexpected(
                  "--pane= needs one of general, connected, recording, classifier, recovery"));
    EXPECT_FALSE(LaunchOptions::parse(Arguments{"--text-scale"}).has_value());
    for (const char* scale : {"big", "0.9", "2.1", "1,5", "nan", ""})
        EXPECT_EQ(LaunchOptions::parse(Arguments{"--text-scale", scale}),
                  std::unexpected("--text-scale needs a number from 1 to 2 such as 1.5"))
            << scale;
}

} // namespace
} // namespace wendlow
