#include "ConfigFile/ConfigPath.h"

#include "ConfigFile/AtomicWrite.h"
#include "Files.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace testing;
namespace fs = std::filesystem;

TEST(ConfigPath, LeadsToTheTrueFileAndKeepsEveryLink) {
    const TemporaryHome home;
    put(home / "dotfiles/real.json", "old");
    fs::create_directories(home / "tool/deep");
    fs::create_directory_symlink(home / "tool/deep", home / "folder");
    const std::pair<fs::path, const char*> links[] = {
        {"../dotfiles/real.json", "relative"},
        {home / "dotfiles/real.json", "absolute"},
        {"relative", "chain"},
        {"../dotfiles/new.json", "dangling"},
        {"dangling", "danglingChain"},
        {"../gone/new.json", "nowhere"},
        {"loop", "loop"},
        {"../../dotfiles/other.json", "deep/up"},
    };
    for (const auto& [target, name] : links)
        fs::create_symlink(target, home / "tool" / name);

    const std::pair<const char*, const char*> cases[] = {
        {"dotfiles/real.json", "dotfiles/real.json"},
        {"tool/../dotfiles/real.json", "dotfiles/real.json"},
        {"tool/relative", "dotfiles/real.json"},
        {"tool/absolute", "dotfiles/real.json"},
        {"tool/chain", "dotfiles/real.json"},
        {"tool/absent", "tool/absent"},
        {"folder/absent", "tool/deep/absent"},
        {"folder/../absent", "tool/absent"},
        {"tool/dangling", "dotfiles/new.json"},
        {"tool/danglingChain", "dotfiles/new.json"},
        {"folder/up", "dotfiles/other.json"},
        {"tool/nowhere", "tool/../gone/new.json"},
        {"tool/loop", "tool/loop"},
        {"none/absent", "none/absent"},
    };
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(ConfigPath::canonical(home / path), home / expected) << path;

    ASSERT_TRUE(AtomicWrite::write("new", ConfigPath::canonical(home / "tool/danglingChain")));
    EXPECT_EQ(get(home / "dotfiles/new.json"), "new");
    EXPECT_EQ(fs::read_symlink(home / "tool/dangling"), "../dotfiles/new.json");
    EXPECT_EQ(fs::read_symlink(home / "tool/danglingChain"), "dangling");
}

} // namespace
} // namespace wendlow
