// The menu-bar application's stand-in, as the journey meets it: its file, its hook, its answer.

#include "Files.h"
#include "GatewayProcess.h"
#include "PrivateBus.h"
#include "RunProgram.h"
#include "TemporaryHome.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

class JourneyMenu : public ::testing::Test {
protected:
    TemporaryHome m_home;
    PrivateBus m_bus;
    std::string m_before = std::getenv("HOME");
    std::filesystem::path m_support = m_home / "Library/Application Support/Wendlow";
    std::optional<GatewayProcess> m_menu;

    JourneyMenu() { ::setenv("HOME", m_home.path().c_str(), 1); }
    ~JourneyMenu() override { ::setenv("HOME", m_before.c_str(), 1); }

    void start(const std::vector<std::string>& options) {
        m_menu.emplace(WENDLOW_PRACTICE_MENU, options, m_home.path());
    }
    QJsonObject progress() const {
        const auto json = get(m_support / "local-models-progress.json");
        return QJsonDocument::fromJson(QByteArray::fromStdString(json.value_or(""))).object();
    }
    std::string marker() const { return get(m_support / "warmed-build").value_or(""); }
    template<class Holds> static bool eventually(const Holds& holds) {
        for (int tries = 0; tries < 1000; ++tries, ::usleep(10'000))
            if (holds())
                return true;
        return false;
    }
    static void cancel() {
        const auto posted =
            runProgram(WENDLOW_POST_NOTIFICATION, {"works.fenmoor.wendlow.cancel-local-models"});
        EXPECT_EQ(posted.status, 0);
    }
    /// All that lies in the home, with its bytes and modes, but for the logs.
    std::vector<std::string> everything() const {
        std::vector<std::string> all;
        for (const auto& each : std::filesystem::recursive_directory_iterator(m_home.path()))
            if (!each.path().string().contains("/Library/Logs"))
                all.push_back(each.path().string() + ' ' + std::to_string(modeOf(each.path())) +
                              ' ' + get(each.path()).value_or("/"));
        std::ranges::sort(all);
        return all;
    }
};

TEST_F(JourneyMenu, DownloadsWarmsTheHookUpAndTakesAllOfItBack) {
    put(m_home /
            "Library/Application Support/Wendlow Practice/menu/ollama/blobs/sha256-old-partial",
        "theirs");
    std::filesystem::create_directories(m_home / "Library/Logs");
    const auto before = everything();
    start({"--lasts", "1500", "--models-before", "theirs"});
    ASSERT_TRUE(eventually([this] { return !progress()["running"_L1].toBool(true); }));
    for (const auto& row : progress()["rows"_L1].toArray())
        EXPECT_EQ(row["state"_L1], u"done"_s);
    EXPECT_TRUE(eventually([this] { return marker().contains(" outcome=ok "); })) << marker();
    const QJsonObject installed = progress()["installed"_L1].toObject();
    for (const auto* path : {"runtimeDir", "agentPlist", "asrCacheDir", "senkoDir"})
        EXPECT_TRUE(
            std::filesystem::exists(installed[QLatin1String(path)].toString().toStdString()))
            << path;
    EXPECT_TRUE(installed["ollama"_L1]["folderExisted"_L1].toBool());
    EXPECT_GT(everything().size(), before.size() + 6);
    cancel();
    EXPECT_EQ(m_menu->waitForEnd(), 0);
    const auto receipt = m_support / "local-models-cancelled";
    EXPECT_TRUE(std::filesystem::remove(receipt));
    std::filesystem::remove(m_support);
    EXPECT_EQ(everything(), before);
}

TEST_F(JourneyMenu, UndoneByTwoProcessesAtOnceLeavesNothing) {
    const auto files = m_home / "Library/Application Support/Wendlow Practice/menu";
    start({"--lasts", "100", "--no-warm-up"});
    ASSERT_TRUE(eventually([this] { return !progress()["running"_L1].toBool(true); }));
    // A second one takes the whole download for its own. What they take away together is much, so
    // that they are at it at the same time.
    for (int file = 0; file < 1'500; ++file)
        put(files / "runtime" / std::to_string(file % 50) / std::to_string(file), "");
    GatewayProcess second(WENDLOW_PRACTICE_MENU, {"--no-warm-up"}, m_home.path());
    cancel();
    EXPECT_EQ(m_menu->waitForEnd(), 0);
    EXPECT_EQ(second.waitForEnd(), 0);
    EXPECT_EQ(namesIn(m_support), std::vector<std::string>{"local-models-cancelled"});
    EXPECT_FALSE(std::filesystem::exists(files));
}

TEST_F(JourneyMenu, CanBeAsAWriterShouldNotBe) {
    start({"--lasts", "400", "--dies-at", "0.5", "--no-warm-up", "--pid", "4194300"});
    EXPECT_EQ(m_menu->waitForEnd(), 0);
    EXPECT_TRUE(progress()["running"_L1].toBool()) << "nobody has said that it is over";
    EXPECT_EQ(progress()["pid"_L1].toInt(), 4194300);
    start({"--lasts", "200", "--stalls-at", "0.3", "--deaf"});
    ASSERT_TRUE(eventually([this] { return progress()["samples"_L1].toArray().size() > 3; }));
    EXPECT_TRUE(progress()["running"_L1].toBool());
    EXPECT_EQ(progress()["rows"_L1][2]["state"_L1], u"pending"_s);
    cancel();
    ::usleep(300'000);
    EXPECT_TRUE(m_menu->isRunning());
    EXPECT_FALSE(std::filesystem::exists(m_support / "local-models-cancelled"));
}

} // namespace
} // namespace wendlow::testing
