// Starting what runs already: the running one shows the window, and there is one process.

#include "Files.h"
#include "Support/Desktop.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <memory>
#include <vector>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

class SecondStart : public ::testing::Test {
protected:
    struct Ended {
        int status;
        QString said;
    };

    void SetUp() override { ASSERT_TRUE(desktop.isReady()); }
    void TearDown() override {
        for (const pid_t process : processes())
            ::kill(process, SIGTERM);
        EXPECT_TRUE(eventually([this] { return processes().empty(); }));
    }

    static QString program(const QString& name) {
        return QStringLiteral(WENDLOW_BUNDLE "/Contents/MacOS/") + name;
    }
    std::unique_ptr<QProcess> begin(const QString& name, const QStringList& arguments) const {
        auto process = std::make_unique<QProcess>();
        process->setProcessEnvironment(desktop.environment());
        process->start(program(name), arguments);
        return process;
    }
    /// Runs what is to end by itself; a status of -1: it did not.
    Ended run(const QString& name, const QStringList& arguments) const {
        const auto process = begin(name, arguments);
        const bool hasEnded = process->waitForFinished(20000);
        return {hasEnded ? process->exitCode() : -1,
                QString::fromUtf8(process->readAllStandardError())};
    }
    /// The application's processes of this desktop, whoever started them.
    std::vector<pid_t> processes() const {
        std::vector<pid_t> found;
        const std::string home = "HOME=" + desktop.home().path().string() + '\0';
        for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
            std::error_code failure;
            const auto file = std::filesystem::read_symlink(entry.path() / "exe", failure);
            if (!failure && file.filename() == "wendlow-settings" &&
                get(entry.path() / "environ").value_or("").contains(home))
                found.push_back(std::stoi(entry.path().filename().string()));
        }
        return found;
    }
    /// Whether exactly these windows are there.
    bool hasWindows(const QStringList& titles) const {
        const QStringList all{u"Wendlow"_s, u"Memories"_s, u"Stats"_s, u"Welcome to Wendlow"_s};
        return eventually([&] {
            return std::ranges::all_of(all, [&](const QString& title) {
                return desktop.hasWindow(title) == titles.contains(title);
            });
        });
    }
    bool isInFront(const QString& title) const {
        return eventually([&] {
            return desktop.run(u"xdotool"_s, {u"getactivewindow"_s, u"getwindowname"_s})
                       .trimmed() == title;
        });
    }

    Desktop desktop;
};

TEST_F(SecondStart, RaisesWhatItWasAskedForAndEnds) {
    const auto first = begin(u"wendlow-settings"_s, {u"--window=editor"_s});
    ASSERT_TRUE(isInFront(u"Memories"_s)) << "the only one";
    const struct {
        QString program;
        QStringList arguments;
        QString inFront;
    } starts[] = {
        {u"wendlow-settings"_s, {u"--window=stats"_s}, u"Stats"_s},
        {u"wendlow-open"_s, {u"memories"_s}, u"Memories"_s},
        {u"wendlow-settings"_s, {u"--pane=recovery"_s}, u"Wendlow"_s},
        {u"wendlow-open"_s, {u"stats"_s}, u"Stats"_s},
        {u"wendlow-open"_s, {u"first-run"_s}, u"Welcome to Wendlow"_s},
        {u"wendlow-settings"_s, {u"--window=stats"_s}, u"Stats"_s},
    };
    for (const auto& [name, arguments, inFront] : starts) {
        const Ended ended = run(name, arguments);
        EXPECT_EQ(ended.status, 0) << ended.said.toStdString();
        EXPECT_TRUE(isInFront(inFront)) << inFront.toStdString();
    }
    // Who names no window is shown the one that was in front last, also out of the taskbar.
    for (const auto& next : {u"Welcome to Wendlow"_s, u"Wendlow"_s, u"Memories"_s}) {
        desktop.press({u"ctrl+m"_s});
        EXPECT_TRUE(isInFront(next)) << next.toStdString();
    }
    desktop.press({u"ctrl+m"_s});
    EXPECT_TRUE(hasWindows({}));
    EXPECT_EQ(run(u"wendlow-settings"_s, {}).status, 0);
    EXPECT_TRUE(isInFront(u"Memories"_s) && hasWindows({u"Memories"_s}));
    EXPECT_EQ(processes().size(), 1U);
    EXPECT_EQ(run(u"wendlow-open"_s, {u"nothing"_s}).status, 2);
}

TEST_F(SecondStart, TurnsSettingsToThePane) {
    RunningApplication first(desktop, {u"--window=settings"_s});
    ASSERT_TRUE(first.window(u"Wendlow"_s));
    EXPECT_EQ(run(u"wendlow-settings"_s, {u"--pane=classifier"_s}).status, 0);
    EXPECT_TRUE(first.find(u"heading"_s, u"Runs entirely on your Mac"_s));
}

TEST_F(SecondStart, LeavesOneOfThoseThatAreStartedAtOnce) {
    std::vector<std::unique_ptr<QProcess>> starts;
    for (const QString& window :
         {u"--window=stats"_s, u"--window=editor"_s, u"--window=settings"_s})
        starts.push_back(begin(u"wendlow-settings"_s, {window}));
    EXPECT_TRUE(hasWindows({u"Stats"_s, u"Memories"_s, u"Wendlow"_s}));
    EXPECT_TRUE(eventually([this] { return processes().size() == 1; }));
    int running = 0;
    for (const auto& start : starts)
        if (start->waitForFinished(0) || start->state() != QProcess::Running)
            EXPECT_EQ(start->exitCode(), 0) << start->readAllStandardError().toStdString();
        else
            ++running;
    EXPECT_EQ(running, 1);
}

TEST_F(SecondStart, OpensMemoriesWhereNothingRuns) {
    EXPECT_EQ(run(u"wendlow-open"_s, {u"memories"_s}).status, 0);
    EXPECT_TRUE(hasWindows({u"Memories"_s}));
    EXPECT_EQ(processes().size(), 1U);
}

TEST_F(SecondStart, RunsWhereThereIsNoBusAndTakesThePlaceOfWhoHasGone) {
    const auto first = begin(u"wendlow-settings"_s, {u"--window=stats"_s});
    ASSERT_TRUE(isInFront(u"Stats"_s));
    desktop.bus().stop();
    const auto second = begin(u"wendlow-settings"_s, {u"--window=editor"_s});
    EXPECT_TRUE(isInFront(u"Memories"_s)) << "no window comes without a bus";
    first->terminate();
    second->terminate();
    EXPECT_TRUE(first->waitForFinished() && second->waitForFinished());
    desktop.bus().restart();
    desktop.setVariable(u"DBUS_SESSION_BUS_ADDRESS"_s, desktop.busAddress());
    const auto third = begin(u"wendlow-settings"_s, {u"--window=stats"_s});
    ASSERT_TRUE(isInFront(u"Stats"_s));
    third->kill();
    EXPECT_EQ(run(u"wendlow-open"_s, {u"settings"_s}).status, 0);
    EXPECT_TRUE(hasWindows({u"Wendlow"_s}));
}

} // namespace
} // namespace wendlow::testing
