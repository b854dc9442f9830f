#include "JourneySnapshots.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <utility>
#include <vector>

namespace wendlow {

namespace {

using Mac = PosedJourney;
using Screen = JourneyScreen;

struct State {
    const char* name;
    Screen screen;
    /// Told larger words of, too.
    bool telling = false;
    void (*make)(Mac& mac) = nullptr;
    /// What a person does there.
    void (*act)(JourneyRoot& root) = nullptr;
};

void grantFirst(Mac& mac) {
    mac.grants.screenRecording = true;
}
void grantTwo(Mac& mac) {
    mac.grants = {.screenRecording = true, .accessibility = true};
}
void cancelNow(JourneyRoot& root) {
    root.askToCancel();
    root.cancelInstall();
}

constexpr State states[] = {
    {.name = "welcome", .screen = Screen::welcome},
    {.name = "welcome-agreed",
     .screen = Screen::welcome,
     .telling = true,
     .act = [](JourneyRoot& root) { root.setAgreedToTerms(true); }},
    {.name = "recording", .screen = Screen::screenRecording, .telling = true},
    {.name = "recording-granted", .screen = Screen::screenRecording, .make = grantFirst},
    {.name = "accessibility",
     .screen = Screen::accessibility,
     .telling = true,
     .make = grantFirst,
     .act = [](JourneyRoot& root) { root.ask(); }},
    {.name = "microphone", .screen = Screen::microphone, .make = grantTwo},
    {.name = "microphone-refused",
     .screen = Screen::microphone,
     .telling = true,
     .make =
         [](Mac& mac) {
             grantTwo(mac);
             mac.grants.microphoneDenied = true;
         }},
    {.name = "recovery-reading",
     .screen = Screen::recoveryKey,
     .make = [](Mac& mac) { mac.phrase = Mac::Answer::silent; }},
    {.name = "recovery-failed",
     .screen = Screen::recoveryKey,
     .make = [](Mac& mac) { mac.phrase = Mac::Answer::refused; }},
    {.name = "recovery",
     .screen = Screen::recoveryKey,
     .telling = true,
     .act = [](JourneyRoot& root) { root.setWroteItDown(true); }},
    {.name = "plug-in-none",
     .screen = Screen::plugIn,
     .make = [](Mac& mac) { mac.tools = Mac::Tools::none; }},
    {.name = "plug-in",
     .screen = Screen::plugIn,
     .telling = true,
     .act =
         [](JourneyRoot& root) {
             root.setWired(QStringLiteral("codex"), true);
             root.setWired(QStringLiteral("cursor"), true);
         }},
    {.name = "models-unknown",
     .screen = Screen::localModels,
     .make = [](Mac& mac) { mac.download = Mac::Download::unknown; }},
    {.name = "models-unmeasured",
     .screen = Screen::localModels,
     .make = [](Mac& mac) { mac.download = Mac::Download::unmeasured; }},
    {.name = "models", .screen = Screen::localModels, .telling = true},
    {.name = "models-done",
     .screen = Screen::localModels,
     .make = [](Mac& mac) { mac.download = Mac::Download::done; }},
    {.name = "cancel-nothing",
     .screen = Screen::localModels,
     .make = [](Mac& mac) { mac.download = Mac::Download::unknown; },
     .act = [](JourneyRoot& root) { root.askToCancel(); }},
    {.name = "cancel",
     .screen = Screen::localModels,
     .telling = true,
     .act = [](JourneyRoot& root) { root.askToCancel(); }},
    {.name = "cancelling", .screen = Screen::localModels, .act = cancelNow},
    {.name = "cancel-failed",
     .screen = Screen::localModels,
     .make = [](Mac& mac) { mac.cancel = Mac::Answer::refused; },
     .act = cancelNow},
    {.name = "hello", .screen = Screen::sayHello, .telling = true},
    {.name = "hello-received",
     .screen = Screen::sayHello,
     .make = [](Mac& mac) { mac.helloReceived = true; }},
    {.name = "warming",
     .screen = Screen::warming,
     .make =
         [](Mac& mac) {
             grantTwo(mac);
             mac.grants.microphone = true;
         }},
    {.name = "done", .screen = Screen::done},
};

void waitFor(const std::function<bool()>& done) {
    constexpr int patience = 5000;
    for (const QDeadlineTimer limit(patience); !done() && !limit.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
}

/// What is under way has come as far as it does: a tool may take its time for ever.
void settle() {
    constexpr int soon = 150;
    for (const QDeadlineTimer limit(soon); !limit.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
}

} // namespace

JourneySnapshots::JourneySnapshots(QQuickItem& content, JourneyRoot& root, Save save)
    : m_content(content), m_root(root), m_save(std::move(save)) {
    m_content.setProperty("posing", true);
}

JourneySnapshots::~JourneySnapshots() {
    leave();
    m_content.setProperty("posing", false);
}

void JourneySnapshots::leave() {
    m_content.setProperty("root", QVariant::fromValue(&m_root));
    // What showed the posed one goes before it does.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_stand.reset();
}

void JourneySnapshots::pose(const std::function<void(const QString& state, bool telling)>& each) {
    for (const State& state : states) {
        auto stand = std::make_unique<Stand>();
        PosedJourney& mac = stand->mac;
        mac.screen = state.screen;
        if (state.make)
            state.make(mac);
        mac.apps().scan();
        waitFor([&mac] { return mac.apps().settled(); });
        stand->root = std::make_unique<JourneyRoot>(std::make_unique<JourneyModel>(mac.contacts()));
        JourneyRoot& root = *stand->root;
        m_stand = std::move(stand);
        m_content.setProperty("root", QVariant::fromValue(&root));
        waitFor([&root] { return root.isStarted(); });
        if (state.act)
            state.act(root);
        settle();
        each(QString::fromLatin1(state.name), state.telling);
        leave();
    }
}

void JourneySnapshots::take() {
    pose([this](const QString& state, bool) { m_save(QStringLiteral("journey-") + state); });
}

void JourneySnapshots::takeSome(const QString& suffix) {
    pose([&](const QString& state, bool telling) {
        if (telling)
            m_save(QStringLiteral("journey-") + state + suffix);
    });
}

} // namespace wendlow
