#include "Support/OnADesktop.h"

#include <QJsonArray>

#include <fmt/format.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

/// A person looks elsewhere while a tool of theirs files what it has learnt.
class Loop : public OnADesktop {
protected:
    using Places = std::vector<std::pair<std::string, int>>;

    void lookAt(const char* pane, const QString& title) const {
        desktop.run(
            QStringLiteral(WENDLOW_POST_NOTIFICATION),
            {u"works.fenmoor.wendlow.open-window"_s, u"--object"_s, QString::fromUtf8(pane)});
        const auto window = application->window(title);
        ASSERT_TRUE(window && eventually([&] { return window->isActive(); })) << pane;
    }
    /// Through the server that the tool runs.
    void file(const std::string& title, const std::string& type) const {
        const std::string call = fmt::format(
            R"({{"jsonrpc":"2.0","id":1,"method":"tools/call","params":{{"name":"memory_add","arguments":{{)"
            R"("title":"{}","text":"As was seen today.","why":"to find it","type":"{}","scope":"/"}}}}}})",
            title, type);
        const QString said = desktop.run(
            u"/bin/bash"_s, {u"-c"_s, u"printf '%s\\n' \"$1\" | \"$0\""_s,
                             QStringLiteral(WENDLOW_BUNDLE "/Contents/MacOS/wendlow-mcp"),
                             QString::fromStdString(call)});
        ASSERT_TRUE(said.contains(u"Saved m"_s)) << said.toStdString();
    }
    /// The rows that are in sight, and where their tops are.
    Places rows() const {
        Places places;
        if (const auto window = application->window(u"Memories"_s))
            for (const Accessible& row : window->all([](const Accessible& thing) {
                     return thing.role() == u"list item"_s && thing.isShowing();
                 }))
                places.emplace_back(row.name().toStdString(), row.extents().y());
        std::ranges::stable_sort(places, {}, &Places::value_type::second);
        return places;
    }
    /// Once they rest.
    Places restingRows() const {
        Places before;
        eventually([&] {
            Places now = rows();
            return std::exchange(before, std::move(now)) == before && before.size() > 3;
        });
        return before;
    }
};

TEST_F(Loop, WhatAToolFilesIsThereAtTheNextLookAndNothingElseMoves) {
    gateway.start();
    application.emplace(desktop, QStringList{u"--window=editor"_s});
    lookAt("editor", u"Memories"_s);
    const QJsonArray types = gateway.browse(R"("limit":1)")["byType"_L1].toArray();
    const QString type = types[0]["name"_L1].toString();
    const auto count = types[0]["count"_L1].toInteger();
    press(u"%1s, %2"_s.arg(type).arg(count));
    ASSERT_TRUE(says(u"%1 memories"_s.arg(count)));
    press(QString::fromStdString(restingRows()[1].first)); // opens it

    const Places atTop = restingRows();
    lookAt("stats", u"Stats"_s);
    file("The heron stands in the reeds", type.toStdString());
    EXPECT_FALSE(application->findNow(u"The heron stands in the reeds"_s));
    lookAt("editor", u"Memories"_s);
    ASSERT_TRUE(says(u"The heron stands in the reeds"_s));
    EXPECT_TRUE(says(u"%1s, %2"_s.arg(type).arg(count + 1))) << "the rail counts it, too";
    const Places now = restingRows();
    ASSERT_GT(now.size(), 3U);
    EXPECT_EQ(now[0].first, "The heron stands in the reeds");
    const int by = now[1].second - atTop[0].second;
    for (std::size_t at = 0; at < std::min(atTop.size(), now.size() - 1); ++at)
        EXPECT_EQ(now[at + 1], Places::value_type(atTop[at].first, atTop[at].second + by))
            << "the one that is open is open still";

    desktop.press({u"Tab"_s, u"Right"_s, u"Next"_s, u"Next"_s});
    const Places below = restingRows();
    ASSERT_NE(below, now);
    lookAt("stats", u"Stats"_s);
    file("The mill is dry", type.toStdString());
    lookAt("editor", u"Memories"_s);
    ASSERT_TRUE(says(u"%1s, %2"_s.arg(type).arg(count + 2)));
    EXPECT_EQ(restingRows(), below);
}

} // namespace
} // namespace wendlow::testing
