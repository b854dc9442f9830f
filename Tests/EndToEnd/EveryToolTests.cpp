#include "Support/Desktop.h"
#include "Support/ToolHomes.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;
using Tree = std::map<std::string, std::string>; ///< bytes by path below the home

constexpr std::string_view receipts = "Library/Application Support/Wendlow/Connectors/";

/// Every file of the home but those that the desktop itself keeps there.
Tree treeOf(const TemporaryHome& home) {
    Tree tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(home.path())) {
        const std::string path = entry.path().lexically_relative(home.path()).string();
        const bool desktops = path.starts_with("runtime/") || path.starts_with(".cache/") ||
                              path.starts_with(".config/openbox");
        if (entry.is_regular_file() && !desktops)
            tree.emplace(path, get(entry.path()).value_or(""));
    }
    return tree;
}

/// Whether `after` is `before` with bytes put between its own.
bool onlyAdds(const std::string& before, const std::string& after) {
    auto at = before.begin();
    for (const char byte : after)
        if (at != before.end() && *at == byte)
            ++at;
    return at == before.end();
}

bool isCopyOf(const std::string& path, std::string_view original) {
    return path.starts_with(std::string(original) + ".wendlow-backup-");
}

class EveryTool : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(desktop.isReady()) << "no screen, bus or accessibility bus could be started";
        for (const auto& tool : ToolHomes::all())
            for (const auto& file : tool.files)
                put(desktop.home() / file.path, file.bytes);
        before = treeOf(desktop.home());
    }

    /// Ids of the tools that the application knows, by their names.
    std::map<std::string, std::string> registry() const {
        const QString report =
            desktop.run(QLatin1String(WENDLOW_BUNDLE) + u"/Contents/MacOS/wendlow-connect"_s,
                        {u"scan"_s, u"--json"_s});
        std::map<std::string, std::string> ids;
        for (const auto& tool : QJsonDocument::fromJson(report.toUtf8()).array())
            ids.emplace(tool[u"name"].toString().toStdString(),
                        tool[u"id"].toString().toStdString());
        return ids;
    }

    /// Holds every file of the home against what it was before, the copies that are there taken
    /// out: `connected` is the only tool that may have changed any.
    void expectHome(const ToolHomes::ToolHome* connected, const std::string& id) const {
        Tree now = treeOf(desktop.home());
        for (const auto& tool : ToolHomes::all())
            for (const auto& file : tool.files)
                std::erase_if(now, [&](const auto& entry) {
                    const bool copy = isCopyOf(entry.first, file.path);
                    EXPECT_TRUE(!copy || entry.second == file.bytes ||
                                entry.second.contains(file.program))
                        << entry.first << " is a copy of neither state";
                    return copy;
                });
        Tree expected = before;
        if (connected) {
            for (const auto& file : connected->files) {
                const std::string bytes = now[std::string(file.path)];
                EXPECT_TRUE(onlyAdds(std::string(file.bytes), bytes)) << file.path << '\n' << bytes;
                EXPECT_TRUE(bytes.contains(std::string(WENDLOW_BUNDLE "/Contents/MacOS/") +
                                           std::string(file.program)))
                    << file.path << '\n'
                    << bytes;
                expected[std::string(file.path)] = bytes;
            }
            for (const auto path : connected->made)
                expected[std::string(path)] = now[std::string(path)];
            const std::string receipt = std::string(receipts) + id + ".json";
            EXPECT_FALSE(now[receipt].empty());
            expected[receipt] = now[receipt];
        }
        for (const auto& [path, bytes] : expected) {
            EXPECT_TRUE(now.contains(path)) << path << " is gone";
            EXPECT_EQ(now[path], bytes) << path;
            now.erase(path);
        }
        for (const auto& [path, bytes] : now)
            ADD_FAILURE() << path << " was left in the home:\n" << bytes;
    }

    Desktop desktop;
    Tree before;
};

TEST_F(EveryTool, IsConnectedByItsSwitchAloneAndGivesEveryByteBack) {
    const auto ids = registry();
    ASSERT_FALSE(ids.empty());
    RunningApplication application(desktop, {u"--window=settings"_s});
    ASSERT_TRUE(application.window(u"Wendlow"_s)) << application.errors().toStdString();
    for (const auto& [name, id] : ids) {
        SCOPED_TRACE(name);
        const auto home =
            std::ranges::find(ToolHomes::all(), std::string_view(name), &ToolHomes::ToolHome::name);
        ASSERT_NE(home, ToolHomes::all().end()) << "no home is told of for this tool";
        const auto toggle = application.find(u"check box"_s, QString::fromStdString(name));
        ASSERT_TRUE(toggle) << application.errors().toStdString();
        const auto becomes = [&](bool connected) {
            return eventually(
                [&] { return toggle->isChecked() == connected && toggle->isEnabled(); });
        };
        // By its action: rows that have opened above may have pushed it out of sight.
        ASSERT_TRUE(toggle->act(u"Toggle"_s) || toggle->act(u"Press"_s));
        ASSERT_TRUE(becomes(true));
        expectHome(&*home, id);
        ASSERT_TRUE(toggle->act(u"Toggle"_s) || toggle->act(u"Press"_s));
        ASSERT_TRUE(becomes(false));
        expectHome(nullptr, id);
    }
}

} // namespace
} // namespace wendlow::testing
