#include "Support/KeyWalk.h"
#include "Support/OnADesktop.h"
#include "Support/ToolHomes.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <map>

#include <sys/stat.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

/// The real application on a Mac that knows Wendlow for the first time, worked by hand.
class JourneyWindow : public OnADesktop {
protected:
    const QString title = u"Welcome to Wendlow"_s;

    void SetUp() override {
        OnADesktop::SetUp();
        ClaudeCodeHome::fill(desktop.home().path());
        gateway.fill.clear();
        gateway.start();
        gateway.ask(R"({"control":{"_0":{"generatePhrase":{}}}})");
    }
    void TearDown() override {
        OnADesktop::TearDown();
        menu.terminate();
        menu.waitForFinished();
    }
    /// Starts the application as the desktop does: without a word of what is to be shown.
    void start(const QStringList& options = {}) { application.emplace(desktop, options); }
    /// Starts it in a journey that is to be gone on with by keys.
    void startJourney(const QStringList& options = {}) {
        start(options);
        const auto window = application->window(title);
        ASSERT_TRUE(window) << application->errors().toStdString();
        ASSERT_TRUE(eventually([&] { return window->isActive(); }));
    }
    /// Plays the menu-bar application beside it.
    void startMenu(const QStringList& options) {
        menu.setProcessEnvironment(desktop.environment());
        menu.start(QStringLiteral(WENDLOW_PRACTICE_MENU), options);
        ASSERT_TRUE(menu.waitForReadyRead());
    }
    std::string servers() const { return get(desktop.home() / ".claude.json").value_or(""); }

    QProcess menu;

    /// The keys come to this, or what begins with it.
    ::testing::AssertionResult comesTo(const QString& thing) const {
        const KeyWalk walk(desktop, *application, title);
        QStringList last;
        if (eventually([&] {
                last = walk.focused();
                return last.size() == 1 && last[0].startsWith(thing);
            }))
            return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "at “" << last.join(u", "_s).toStdString() << "”";
    }
    void expect(const QString& thing, const QStringList& keys) const {
        EXPECT_TRUE(comesTo(thing)) << "in place of " << thing.toStdString();
        desktop.press(keys);
    }

    // What a person does on each screen to come to the next.
    void agree() const {
        expect(u"check box I agree to the terms."_s, {u"space"_s, u"Tab"_s, u"Tab"_s, u"Tab"_s});
        expect(u"push button Setup Wendlow"_s, {u"Return"_s});
    }
    void ask(const QString& words) const { expect(u"push button "_s + words, {u"Return"_s}); }
    void next() const { expect(u"push button Next"_s, {u"Return"_s}); }
    void writeTheWordsDown() const {
        expect(u"check box I have written these twelve words down."_s,
               {u"space"_s, u"Tab"_s, u"Tab"_s});
        next();
    }
    void plugIn() const {
        expect(u"check box Claude Code"_s, {u"space"_s});
        EXPECT_TRUE(eventually([&] { return servers().contains("wendlow-mcp"); }));
        press(u"Next"_s);
        EXPECT_TRUE(comesTo(u"push button Continue"_s));
    }
    /// What an AI tool does about the word that is typed to it: it starts the server that the
    /// journey has given it, and files a memory by that.
    void sayHello() const {
        const QJsonObject known = QJsonDocument::fromJson(QByteArray::fromStdString(servers()))
                                      .object()[u"mcpServers"_s]
                                      .toObject();
        QString command;
        for (const QJsonValue& server : known)
            if (server[u"command"_s].toString().endsWith(u"/wendlow-mcp"_s))
                command = server[u"command"_s].toString();
        QProcess server;
        server.setProcessEnvironment(desktop.environment());
        server.start(command, QStringList());
        ASSERT_TRUE(server.waitForStarted()) << command.toStdString();
        server.write(
            R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{"protocolVersion":)"
            R"("2025-06-18","capabilities":{},"clientInfo":{"name":"tool","version":"1"}}})"
            "\n"
            R"({"jsonrpc":"2.0","method":"notifications/initialized"})"
            "\n"
            R"({"jsonrpc":"2.0","id":2,"method":"tools/call","params":{"name":"memory_add",)"
            R"("arguments":{"text":"Hello.","why":"the first words","type":"onboarding",)"
            R"("scope":"/"}}})"
            "\n");
        server.closeWriteChannel();
        ASSERT_TRUE(server.waitForFinished());
        const QByteArray said = server.readAllStandardOutput();
        EXPECT_THAT(said.toStdString(), ::testing::HasSubstr(R"("isError":false)"));
    }
};

TEST_F(JourneyWindow, OpensByItselfAndIsWalkedToItsEndOnce) {
    startJourney();
    const auto terms = application->find(u"check box"_s, u"I agree to the terms."_s);
    ASSERT_TRUE(terms);
    desktop.click(terms->extents().topLeft() + QPoint(8, terms->extents().height() / 2));
    ASSERT_TRUE(eventually([&] { return terms->isChecked(); }));
    desktop.press({u"Tab"_s, u"Tab"_s, u"Tab"_s});
    ask(u"Setup Wendlow"_s);
    for (const auto& asked :
         {u"Ask for Screen Recording"_s, u"Ask for Accessibility"_s, u"Allow microphone"_s}) {
        ask(asked);
        next();
    }
    EXPECT_TRUE(is("list", u"Setup, step 3 of 6"_s));
    writeTheWordsDown();
    plugIn();
    EXPECT_THAT(nameless(title), ::testing::IsEmpty());
    desktop.press({u"Return"_s});
    EXPECT_TRUE(comesTo(u"label One moment, getting the assistant ready…"_s));
    startMenu({});
    EXPECT_TRUE(comesTo(u"label listening for your AI"_s));
    sayHello();
    ask(u"Close setup"_s);
    EXPECT_TRUE(says(u"Wendlow is installed."_s));
    ask(u"Quit setup"_s);
    EXPECT_TRUE(application->waitForEnd());

    start();
    EXPECT_TRUE(application->window(u"Wendlow"_s)) << application->errors().toStdString();
    EXPECT_EQ(application->windowTitles(), QStringList{u"Wendlow"_s}) << "it opened once more";
}

TEST_F(JourneyWindow, KilledOnAnyScreenLandsWhereTheMachineSays) {
    const std::map<std::string, QString> says{
        {"welcome", u"Wendlow."_s},
        {"screenrec", u"Screen & Audio Recording"_s},
        {"accessibility", u"Accessibility"_s},
        {"mic", u"Microphone"_s},
        {"recovery", u"Write these twelve words down."_s},
        {"ais", u"Upgrade Your AIs with Wendlow"_s},
        {"models", u"Local models"_s},
        {"warming", u"One moment, getting the assistant ready…"_s},
        {"hello", u"To complete setup do these 2 things:"_s},
        {"done", u"Wendlow is installed."_s}};
    struct Case {
        const char* killedOn;
        int step;                      ///< of six; 0: it is over
        std::function<void()> goThere; ///< from where the kill before has landed
        const char* lands;
    };
    const auto stay = [] {};
    const Case cases[] = {
        {"welcome", 1, stay, "welcome"},
        {"screenrec", 2, [this] { agree(); }, "welcome"},
        {"accessibility", 2,
         [this] {
             agree();
             ask(u"Ask for Screen Recording"_s);
             next();
         },
         "screenrec"},
        {"mic", 2,
         [this] {
             next();
             ask(u"Ask for Accessibility"_s);
             next();
         },
         "mic"},
        {"recovery", 3,
         [this] {
             ask(u"Allow microphone"_s);
             next();
         },
         "recovery"},
        {"ais", 4, [this] { writeTheWordsDown(); }, "ais"},
        {"models", 5, [this] { plugIn(); }, "warming"},
        {"warming", 6, stay, "warming"},
        {"hello", 6, [this] { startMenu({}); }, "hello"},
        {"done", 0,
         [this] {
             sayHello();
             ask(u"Close setup"_s);
         },
         "done"},
    };
    startJourney();
    for (const auto& [killedOn, step, goThere, lands] : cases) {
        goThere();
        ASSERT_TRUE(application->findNamed(says.at(killedOn))) << "on the way to " << killedOn;
        EXPECT_TRUE(step == 0 || is("list", u"Setup, step %1 of 6"_s.arg(step))) << killedOn;
        EXPECT_THAT(nameless(title), ::testing::IsEmpty()) << killedOn;
        application->kill();
        // Whoever has come to the end is led there no more unless they ask.
        startJourney(std::string_view(killedOn) == "done" ? QStringList{u"--window=onboarding"_s}
                                                          : QStringList());
        EXPECT_TRUE(application->findNamed(says.at(lands))) << "killed on " << killedOn;
    }
    EXPECT_TRUE(servers().contains("wendlow-mcp")) << "what was plugged in stays so";
}

TEST_F(JourneyWindow, AskedForSeveralTimesAtOnceIsOneWindow) {
    start();
    for (int time = 0; time < 3; ++time)
        desktop.run(QStringLiteral(WENDLOW_POST_NOTIFICATION),
                    {u"works.fenmoor.wendlow.open-window"_s, u"--object"_s, u"onboarding"_s});
    ASSERT_TRUE(application->window(title)) << application->errors().toStdString();
    agree();
    EXPECT_TRUE(comesTo(u"push button Ask for Screen Recording"_s));
    EXPECT_EQ(application->windowTitles(), QStringList{title});
}

/// A menu-bar application beside which a journey is cancelled.
struct Writer {
    const char* name;
    QStringList options;
    bool lives = true;
    bool runsOn = false; ///< and the person is told
    /// The application is killed once the tools are plugged in, and the next one is cancelled.
    bool killed = false;
};

class JourneyCancelled : public JourneyWindow, public ::testing::WithParamInterface<Writer> {
protected:
    using Home = std::map<std::string, std::string>;

    /// The home and all that lies in it, but for logs and what the running daemon and desktop hold:
    /// its bytes, modes, and times to the nanosecond. The folders that the product's own files and
    /// the models lie in have another time, since things came and went there.
    Home everything() const {
        constexpr const char* others[] = {"/runtime", "/.cache/openbox", "/Library/Logs",
                                          "/Library/Application Support/Wendlow/data.db"};
        Home all;
        const std::string home = desktop.home().path().string();
        const auto add = [&](const std::string& path) {
            struct stat file{};
            EXPECT_EQ(::lstat((home + path).c_str(), &file), 0) << path;
            std::string& entry = all[path];
            entry = fmt::format("{:o} {}", file.st_mode, get(home + path).value_or(""));
            if (!S_ISDIR(file.st_mode) || !path.starts_with("/Library"))
                entry += fmt::format(" {}.{:09}", file.st_mtim.tv_sec, file.st_mtim.tv_nsec);
        };
        add("");
        for (const auto& each : std::filesystem::recursive_directory_iterator(home)) {
            const std::string path = each.path().string().substr(home.size());
            if (std::ranges::none_of(others, [&](auto other) { return path.starts_with(other); }))
                add(path);
        }
        return all;
    }
    static std::vector<std::string> differences(const Home& before, const Home& after) {
        std::vector<std::string> found;
        for (const auto& [path, entry] : before)
            if (const auto now = after.find(path); now == after.end() || now->second != entry)
                found.push_back(path);
        for (const auto& [path, entry] : after)
            if (!before.contains(path))
                found.push_back(path);
        return found;
    }
    void goToLocalModels() {
        for (const char* kind : {"screen_recording", "accessibility", "microphone"})
            gateway.ask(
                fmt::format(R"({{"control":{{"_0":{{"requestGrant":{{"kind":"{}"}}}}}}}})", kind));
        startJourney();
        agree();
        writeTheWordsDown();
        plugInAll();
    }
    void plugInAll() {
        press(u"select all"_s);
        for (const char* file : {".claude.json", ".codex/config.toml", ".cursor/mcp.json",
                                 ".config/opencode/opencode.jsonc"})
            EXPECT_TRUE(eventually([&] {
                return get(desktop.home() / file).value_or("").contains("wendlow-mcp");
            })) << file;
        EXPECT_TRUE(is("push button", u"unselect all"_s)) << "the verbs have not all ended";
        press(u"Next"_s);
        EXPECT_TRUE(comesTo(u"push button Continue"_s));
    }
};

TEST_P(JourneyCancelled, GivesEverythingBack) {
    const Writer& writer = GetParam();
    const std::filesystem::path support = desktop.home() / "Library/Application Support";
    const auto models = support / "Wendlow Practice/menu/ollama";
    ToolHomes::fill(desktop.home().path());
    for (const auto& theirs : {desktop.home() / "Documents/letter", models / "manifests/theirs",
                               models / "blobs/sha256-old-partial", models / "blobs/sha256-whole"})
        put(theirs, "theirs");
    std::filesystem::create_symlink("letter", desktop.home() / "Documents/link");
    std::filesystem::create_directories(desktop.home() / "Library/Logs");
    const Home before = everything();
    startMenu(writer.options);
    goToLocalModels();
    ASSERT_TRUE(eventually([&] {
        return std::filesystem::exists(models.parent_path() / "runtime") &&
               get(support / "Wendlow/local-models-progress.json")
                   .value_or("")
                   .contains("runtimeDir");
    }));
    if (!writer.lives) {
        EXPECT_TRUE(menu.state() == QProcess::NotRunning || menu.waitForFinished());
    }
    if (writer.killed) {
        application->kill();
        startJourney();
        press(u"Back"_s);
    }
    press(u"Cancel install"_s);
    EXPECT_TRUE(is("dialog", u"Cancel the install?"_s));
    expect(u"push button Keep going"_s, {u"Tab"_s});
    ask(u"Cancel install"_s);
    // Nobody is heard of for ten seconds before the undo begins without them.
    if (writer.runsOn) {
        EXPECT_TRUE(is("dialog", u"Could not stop the download"_s) ||
                    is("dialog", u"Could not stop the download"_s));
        ask(u"OK"_s);
    }
    EXPECT_TRUE(application->waitForEnd() || application->waitForEnd());
    EXPECT_NE(menu.state() == QProcess::NotRunning ||
                  menu.waitForFinished(writer.runsOn ? 0 : 10000),
              writer.runsOn);
    menu.kill();
    menu.waitForFinished();
    std::vector<std::string> left;
    if (writer.runsOn)
        left = {"/Library/Application Support/Wendlow/local-models-progress.json"};
    EXPECT_EQ(differences(before, everything()), left);
}

INSTANTIATE_TEST_SUITE_P(
    Beside, JourneyCancelled,
    ::testing::Values(
        Writer{.name = "ALiveWriter", .options = {u"--no-warm-up"_s}},
        Writer{.name = "ALiveWriterInAnotherRun", .options = {u"--no-warm-up"_s}, .killed = true},
        Writer{.name = "ADeadWriter",
               .options = {u"--no-warm-up"_s, u"--lasts"_s, u"400"_s, u"--dies-at"_s, u"0.5"_s},
               .lives = false},
        Writer{.name = "ADeafWriter",
               .options = {u"--no-warm-up"_s, u"--deaf"_s, u"--stalls-at"_s, u"0.3"_s},
               .runsOn = true}),
    [](const auto& each) { return each.param.name; });

} // namespace
} // namespace wendlow::testing
