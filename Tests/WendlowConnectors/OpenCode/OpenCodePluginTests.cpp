#include "OpenCode/OpenCodePlugin.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

TEST(OpenCodePlugin, isKnownByItsHeader) {
    const std::filesystem::path hook = "/A/\"é\"/wendlow-hook";
    const std::string source = OpenCodePlugin::source(hook);
    EXPECT_TRUE(source.contains("\nconst HOOK = \"/A/\\\"é\\\"/wendlow-hook\"\n"));
    const auto swap = [&](std::size_t at, const char* by) {
        return std::string(source).replace(at, 1, by);
    };
    const struct {
        std::string bytes;
        PluginOwnership whose;
        bool runs;
    } cases[] = {
        {source, PluginOwnership::current, true},
        {source + "\n", PluginOwnership::otherBuild, true},
        {swap(source.size() - 3, "x"), PluginOwnership::otherBuild, true},
        {OpenCodePlugin::source("/B/wendlow-hook"), PluginOwnership::otherBuild, false},
        {source.substr(0, source.find('\n')), PluginOwnership::otherBuild, false},
        {source.substr(0, source.find('\n') - 1), PluginOwnership::foreign, false},
        {swap(3, "w"), PluginOwnership::foreign, true},
        {" " + source, PluginOwnership::foreign, true},
        {source + "\xFF", PluginOwnership::foreign, true},
        {"", PluginOwnership::foreign, false},
    };
    for (const auto& [bytes, whose, runs] : cases) {
        EXPECT_EQ(OpenCodePlugin::ownership(bytes, hook), whose) << bytes.substr(0, 100);
        EXPECT_EQ(OpenCodePlugin::runs(bytes, hook), runs) << bytes.substr(0, 100);
    }
}

} // namespace
} // namespace wendlow
