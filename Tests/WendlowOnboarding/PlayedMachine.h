#pragma once

#include "JourneyRoot.h"
#include "MockConnector.h"

#include <QCoroFuture>
#include <QCoroTask>
#include <QPromise>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include <unistd.h>

namespace wendlow::testing {

/// A Mac as a journey meets it. It stays as it is when a journey is killed, and the next finds it.
class PlayedMachine {
public:
    using Words = std::vector<std::string>;

    std::optional<GrantPair> grants = GrantPair(); ///< nothing: there is no daemon
    bool store = true;
    std::optional<bool> hello = false;
    bool terms = false;
    bool recovery = false;
    bool warm = false;
    Words wired;
    std::optional<LocalModelsProgress> progress;
    RecoveryRead phrase = RecoveryWordsRead(12, "word");
    bool silent = false;               ///< the daemon takes questions and answers none
    std::atomic<bool> refuses = false; ///< a tool does what is asked
    std::atomic<bool> holds = false;   ///< a tool has begun what is asked, and gets no further
    /// Of the journey with the daemon: long, so that a busy machine is not taken for a silent one.
    std::chrono::milliseconds patience = std::chrono::seconds(3);
    CancelEnd cancelEnd = CancelEnd::stopped;
    std::chrono::system_clock::time_point now = std::chrono::system_clock::now();

    int hellosAsked = 0;
    int woken = 0;
    int ended = 0;
    Words cancelled; ///< what was connected as the cancel came to the download
    Words log;
    Words turns; ///< what is done beside the verbs, and how it finds the tool
    std::mutex turning;

    std::shared_ptr<MockConnector> code = tool("claude-code", "Claude Code");
    std::shared_ptr<MockConnector> codex = tool("codex", "Codex");
    ConnectedAppsModel apps{{code, codex}, std::nullopt, {}};
    std::unique_ptr<JourneyRoot> root;

    ~PlayedMachine() {
        letGo();
        root.reset();
        answerAll();
    }

    /// Starts the application anew.
    void start() {
        root.reset();
        JourneyModel::Limits limits;
        limits.poll = std::chrono::milliseconds(5);
        limits.answer = patience;
        limits.unplug = std::chrono::seconds(5);
        root = std::make_unique<JourneyRoot>(std::make_unique<JourneyModel>(contacts(), limits));
        root->appear();
        EXPECT_TRUE(until([this] { return root->isStarted(); }));
    }
    JourneyModel& model() const { return root->model(); }
    std::string screen() const { return root->screen().toStdString(); }
    static bool until(const std::function<bool()>& holds) { return QTest::qWaitFor(holds, 5000); }
    /// Whether the screen becomes this one.
    bool shows(const std::string& name) const {
        return until([&] { return screen() == name && !model().isMoving(); });
    }
    /// Lets the poll go round a few times.
    void rounds(int count = 3) {
        const auto logged = [this] {
            return std::ranges::count_if(
                log, [](const std::string& line) { return line.starts_with("poll:"); });
        };
        const auto before = logged();
        EXPECT_TRUE(until([&] { return logged() >= before + count; })) << screen();
    }
    /// Presses the button at the foot once it can be pressed.
    void press() {
        EXPECT_TRUE(until([this] { return root->isPrimaryEnabled(); })) << screen();
        root->press();
    }
    /// A journey from its beginning to the screen, by what a person does.
    void walkTo(const std::string& name) {
        start();
        const auto step = [&](const char* from, const std::function<void()>& does) {
            if (screen() == from && screen() != name)
                does();
            return screen() == name;
        };
        root->setAgreedToTerms(true);
        step("welcome", [&] {
            press();
            EXPECT_TRUE(shows("screenrec"));
        });
        step("screenrec", [&] {
            grants->screenRecording = true;
            press();
            EXPECT_TRUE(shows("accessibility"));
        });
        step("accessibility", [&] {
            grants->accessibility = true;
            press();
            EXPECT_TRUE(shows("mic"));
        });
        step("mic", [&] {
            grants->microphone = true;
            press();
            EXPECT_TRUE(shows("recovery"));
        });
        step("recovery", [&] {
            root->setWroteItDown(true);
            press();
            EXPECT_TRUE(shows("ais"));
        });
        step("ais", [&] {
            root->setWired(QStringLiteral("claude-code"), true);
            EXPECT_TRUE(until([&] { return model().aiWired() && apps.idle(); }));
            press();
        });
        step("models", [&] { press(); });
        step("warming", [&] {
            warm = true;
            EXPECT_TRUE(shows("hello"));
        });
        step("hello", [&] {
            hello = true;
            press();
        });
        EXPECT_EQ(screen(), name);
    }
    bool logged(const std::string& piece) const {
        return std::ranges::any_of(
            log, [&](const std::string& line) { return line.find(piece) != std::string::npos; });
    }
    Words connected() const {
        Words ids;
        for (const ConnectedAppRow& row : apps.apps())
            if (row.app.connected)
                ids.push_back(row.app.id);
        return ids;
    }
    /// What `holds` held up goes on.
    void letGo() {
        holds = false;
        holds.notify_all();
    }
    /// The questions that were left without an answer get one.
    void answerAll() {
        silent = false;
        for (auto& question : m_questions)
            question->finish();
        m_questions.clear();
        QTest::qWait(0);
    }

private:
    /// A tool that is as its last verb left it.
    std::shared_ptr<MockConnector> tool(const char* id, const char* name) {
        const auto self = std::make_shared<std::weak_ptr<MockConnector>>();
        const auto tool = std::make_shared<MockConnector>(
            ConnectorIdentity{id, name, "here", "terminal"},
            MockConnector::Script{.onVerb = [this, self] {
                holds.wait(true);
                const auto mock = self->lock();
                const bool on = mock->scan().state == ConnectorState::connected;
                mock->becomes(on != !refuses ? ConnectorState::connected : ConnectorState::found,
                              {}, {.refuses = refuses});
            }});
        *self = tool;
        return tool;
    }

    ToolsBefore::Step turn(const std::string& name) {
        return [this, name](const Connector& tool) {
            const std::string state(text(tool.scan().state));
            const std::lock_guard guard(turning);
            turns.push_back(name + ' ' + tool.identity().id + ' ' + state);
        };
    }
    QFuture<void> question() {
        const auto promise = std::make_shared<QPromise<void>>();
        promise->start();
        m_questions.push_back(promise);
        if (!silent) {
            promise->finish();
            m_questions.pop_back();
        }
        return promise->future();
    }
    template<class Answer> static QCoro::Task<Answer> answered(QFuture<void> asked, Answer answer) {
        co_await asked;
        co_return answer;
    }

    JourneyContacts contacts() {
        return {.connect = [this]() -> ConnectedAppsModel& { return apps; },
                .grants = [this] { return answered(question(), grants); },
                .storePresent = [this] { return answered(question(), store); },
                .phrase = [this] { return answered(question(), phrase); },
                .recoveryPassed = [this] { return recovery; },
                .markRecoveryPassed = [this] { recovery = true; },
                .termsAgreed = [this] { return terms; },
                .markTermsAgreed = [this] { terms = true; },
                .setAutoInstall = [](bool) {},
                .requestGrant =
                    [this](const std::string& kind) {
                        grants->microphone = grants->microphone || kind == "microphone";
                        return asked();
                    },
                .forcedScreen = [] { return std::nullopt; },
                .localModels = [this] { return progress; },
                .hello =
                    [this] {
                        ++hellosAsked;
                        return answered(question(), hello);
                    },
                .warm = [this] { return warm; },
                .describeUndo =
                    [](const LocalModelsProgress::Receipts& receipts) {
                        return LocalModelsUndo::describe(LocalModelsUndo::plan(receipts, {}));
                    },
                .cancelInstall =
                    [this](const std::optional<LocalModelsProgress>&) {
                        cancelled = connected();
                        return answered(question(), cancelEnd);
                    },
                .wakeWriter = [this] { ++woken; },
                .now = [this] { return now; },
                .loadWired = [this] { return wired; },
                .saveWired = [this](const Words& ids) { wired = ids; },
                .tools = {.beforeConnect = turn("before"),
                          .afterConnect = turn("after"),
                          .putBack = turn("back")},
                .measureAppSize =
                    [this] { return answered(question(), std::optional<std::int64_t>(1000)); },
                .diskBytes = [] { return std::optional<std::int64_t>(1'000'000'000'000); },
                .openTerms = [] {},
                .terminate = [this] { ++ended; },
                .log = [this](const std::string& line) { log.push_back(line); }};
    }
    static QCoro::Task<> asked() { co_return; }

    std::vector<std::shared_ptr<QPromise<void>>> m_questions;
};

} // namespace wendlow::testing
