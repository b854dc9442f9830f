#include "JourneyModel.h"

#include "Bounded.h"
#include "JourneyWords.h"

#include <QPointer>

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

using LocalModelsScreen::Writer;

JourneyModel::JourneyModel(JourneyContacts contacts, Limits limits)
    : m_contacts(std::move(contacts)), m_limits(limits),
      m_wiring(m_contacts.connect(), m_contacts.loadWired, m_contacts.saveWired, m_contacts.tools) {
    m_pause.setSingleShot(true);
    m_pause.setInterval(m_limits.poll);
    connect(&m_pause, &QTimer::timeout, this, [this] {
        round(m_generation); // ends by itself
    });
    connect(&m_wiring, &JourneyWiring::changed, this, &JourneyModel::appsChanged);
}

JourneyModel::~JourneyModel() = default;

void JourneyModel::start() {
    // Both end by themselves.
    measure();
    begin();
}

QCoro::Task<> JourneyModel::measure() {
    const QPointer<JourneyModel> self(this);
    auto measuring = m_contacts.measureAppSize();
    const std::optional<std::int64_t> bytes = co_await measuring;
    if (!self)
        co_return;
    m_appBytes = bytes;
    Q_EMIT progressChanged();
}

QCoro::Task<> JourneyModel::begin() {
    const QPointer<JourneyModel> self(this);
    auto scan = m_wiring.scanned(m_limits.answer);
    co_await scan;
    if (!self)
        co_return;
    auto look = world(Deriving::yes);
    const std::optional<JourneyWorld> now = co_await look;
    if (!self || !now)
        co_return;
    const std::optional<JourneyScreen> forced = m_contacts.forcedScreen();
    const JourneyScreen first = forced.value_or(Journey::derive(*now));
    log(fmt::format("start: {} screen {}", forced ? "forced" : "derived", text(first)));
    m_started = true;
    show(first);
    Q_EMIT startedChanged();
}

void JourneyModel::lookAgain() {
    if (!m_started || m_cancelling)
        return;
    m_wiring.apps().refresh();
    if (m_screen == JourneyScreen::recoveryKey && m_lastPhrase &&
        std::holds_alternative<RecoveryFailed>(*m_lastPhrase))
        readPhrase();
}

QCoro::Task<std::optional<JourneyWorld>> JourneyModel::world(Deriving deriving) {
    const QPointer<JourneyModel> self(this);
    const JourneyScreen screen = m_screen;
    auto grantsQuestion = bounded(m_contacts.grants(), m_limits.answer);
    const auto grants = co_await grantsQuestion;
    if (!self)
        co_return std::nullopt;
    takeGrants(grants.value_or(std::nullopt));
    auto storeQuestion = bounded(m_contacts.storePresent(), m_limits.answer);
    const bool storePresent = (co_await storeQuestion).value_or(false);
    if (!self)
        co_return std::nullopt;
    const GrantPair known = m_lastGrants.value_or(GrantPair());
    JourneyWorld world{.screenRecording = known.screenRecording,
                       .accessibility = known.accessibility,
                       .microphone = known.microphone,
                       .aiWired = aiWired(),
                       .storePresent = storePresent};
    const bool complete = known.screenRecording && known.accessibility && known.microphone &&
                          world.aiWired && storePresent;
    const bool needsHello =
        screen == JourneyScreen::sayHello || (deriving == Deriving::yes && complete);
    if (needsHello) {
        auto helloQuestion = bounded(m_contacts.hello(), m_limits.answer);
        const std::optional<bool> hello = (co_await helloQuestion).value_or(std::nullopt);
        if (!self)
            co_return std::nullopt;
        world.helloReceived = hello.value_or(false);
        // What was heard once is not taken back by a daemon that falls silent.
        if (hello && std::exchange(m_lastHello, hello) != hello)
            Q_EMIT helloChanged();
    }
    world.warm = m_contacts.warm();
    world.recoveryPassed = m_contacts.recoveryPassed();
    world.termsAgreed = m_contacts.termsAgreed();
    readProgress();
    logWorld(world, needsHello);
    co_return world;
}

void JourneyModel::logWorld(const JourneyWorld& world, bool askedHello) const {
    std::string models = "no file";
    if (m_lastProgress) {
        const LocalModelsProgress::Done downloads = m_lastProgress->downloadsDone();
        models = fmt::format("{}/{} writer={}", downloads.done, downloads.total,
                             writerAlive() ? "alive" : "gone");
    }
    const std::string hello = askedHello ? fmt::format("{}", world.helloReceived) : "not asked";
    log(fmt::format("world: door={} sr={} ax={} mic={} ai={} store={} hello={} warm={} recovery={} "
                    "terms={} models={}",
                    m_lastGrants ? "ok" : "NO ANSWER", world.screenRecording, world.accessibility,
                    world.microphone, world.aiWired, world.storePresent, hello, world.warm,
                    world.recoveryPassed, world.termsAgreed, models));
}

void JourneyModel::takeGrants(std::optional<GrantPair> grants) {
    if (std::exchange(m_lastGrants, grants) != grants)
        Q_EMIT grantsChanged();
}

void JourneyModel::readProgress() {
    m_lastProgress = m_contacts.localModels();
    // What is said of it goes by the clock too.
    Q_EMIT progressChanged();
}

void JourneyModel::syncPoll() {
    const bool wanted = m_started && !m_moving && !m_cancelling && !m_railClickable &&
                        !m_reviewing && Journey::isPolled(m_screen);
    if (wanted == m_polling)
        return;
    m_polling = wanted;
    ++m_generation;
    m_pause.stop();
    if (wanted)
        round(m_generation); // ends by itself
}

QCoro::Task<> JourneyModel::round(int generation) {
    const QPointer<JourneyModel> self(this);
    const JourneyScreen from = m_screen;
    const Deriving deriving = Journey::followsWorld(from) ? Deriving::yes : Deriving::no;
    auto look = world(deriving);
    const std::optional<JourneyWorld> now = co_await look;
    if (!self || !now || generation != m_generation)
        co_return;
    if (m_screen == JourneyScreen::localModels)
        wakeTheWriterIfNeeded();
    // Of a daemon that does not answer nobody is led anywhere.
    const bool follows = deriving == Deriving::yes && m_lastGrants;
    const JourneyScreen next = follows ? Journey::advanced(from, *now) : m_screen;
    if (deriving == Deriving::no) {
        log(fmt::format("poll: holding {} (buttons track the world)", text(m_screen)));
    } else if (next == m_screen) {
        log(fmt::format("poll: holding {}", text(m_screen)));
    } else {
        log(fmt::format("poll: {} → {}", text(m_screen), text(next)));
        show(next);
    }
    // Whoever was told may have moved on.
    if (self && generation == m_generation)
        m_pause.start();
}

void JourneyModel::show(JourneyScreen screen) {
    if (m_reviewing && Journey::isAtMost(*m_reviewing, screen))
        m_reviewing.reset();
    const bool wasRecovery = std::exchange(m_screen, screen) == JourneyScreen::recoveryKey;
    if (screen != JourneyScreen::recoveryKey)
        forgetPhrase();
    else if (!wasRecovery || !m_lastPhrase)
        readPhrase();
    if (screen == JourneyScreen::localModels)
        readProgress();
    syncPoll();
    Q_EMIT screenChanged();
}

QCoro::Task<> JourneyModel::readPhrase() {
    const QPointer<JourneyModel> self(this);
    const int mine = ++m_phraseAsked;
    m_lastPhrase.reset();
    Q_EMIT phraseChanged();
    if (!self || mine != m_phraseAsked)
        co_return;
    auto question = bounded(m_contacts.phrase(), m_limits.answer);
    std::optional<RecoveryRead> read = co_await question;
    // Words that come after the screen was left are nobody's any more.
    if (!self || mine != m_phraseAsked)
        co_return;
    if (!read)
        read = RecoveryFailed{std::string(JourneyWords::Beside::phraseSilent.said())};
    m_lastPhrase = std::move(read);
    Q_EMIT phraseChanged();
}

void JourneyModel::forgetPhrase() {
    ++m_phraseAsked;
    if (m_lastPhrase) {
        m_lastPhrase.reset();
        Q_EMIT phraseChanged();
    }
    setWroteItDown(false);
}

void JourneyModel::setMoving(bool moving) {
    if (std::exchange(m_moving, moving) != moving)
        Q_EMIT movingChanged();
    syncPoll();
}

void JourneyModel::setAgreedToTerms(bool agreed) {
    if (std::exchange(m_agreedToTerms, agreed) != agreed)
        Q_EMIT ticksChanged();
}

void JourneyModel::setAutoInstall(bool automatic) {
    if (std::exchange(m_autoInstall, automatic) != automatic)
        Q_EMIT ticksChanged();
}

void JourneyModel::setWroteItDown(bool wrote) {
    if (std::exchange(m_wroteItDown, wrote) != wrote)
        Q_EMIT ticksChanged();
}

bool JourneyModel::isBusy() const {
    return !m_started || m_moving || m_cancelling;
}

void JourneyModel::beginSetup() {
    if (isBusy() || m_screen != JourneyScreen::welcome || !m_agreedToTerms)
        return;
    m_contacts.markTermsAgreed();
    m_contacts.setAutoInstall(m_autoInstall);
    setUp();
}

QCoro::Task<> JourneyModel::setUp() {
    const QPointer<JourneyModel> self(this);
    setMoving(true);
    auto look = world(Deriving::no);
    const std::optional<JourneyWorld> now = co_await look;
    if (!self || !now)
        co_return;
    const JourneyScreen next = Journey::afterSetup(*now);
    log(fmt::format("button: setup wendlow → {} · terms agreed · auto-install={}", text(next),
                    m_autoInstall));
    m_moving = false;
    show(next);
    Q_EMIT movingChanged();
}

void JourneyModel::ask() {
    const std::string_view kind = Journey::grantKind(m_screen);
    if (kind.empty() || m_cancelling)
        return;
    requestGrant(std::string(kind));
}

QCoro::Task<> JourneyModel::requestGrant(std::string kind) {
    const QPointer<JourneyModel> self(this);
    log(fmt::format("button: request_grant({})", kind));
    m_asked.insert(kind);
    Q_EMIT grantsChanged();
    if (!self)
        co_return;
    // Whether it worked is what the next look at the machine tells.
    auto request = m_contacts.requestGrant(kind);
    co_await request;
    if (self)
        log(fmt::format("button: request_grant({}) returned — the poll re-reads; macOS decides the "
                        "dialog",
                        kind));
}

void JourneyModel::nextFromPermission() {
    if (isBusy() || !Journey::isPermission(m_screen))
        return;
    advance();
}

QCoro::Task<> JourneyModel::advance() {
    const QPointer<JourneyModel> self(this);
    setMoving(true);
    auto look = world(Deriving::no);
    const std::optional<JourneyWorld> now = co_await look;
    if (!self || !now)
        co_return;
    const JourneyScreen next = Journey::advanced(m_screen, *now);
    m_moving = false;
    if (next == m_screen) {
        syncPoll();
    } else {
        log(fmt::format("button: next → {}", text(next)));
        show(next);
    }
    Q_EMIT movingChanged();
}

void JourneyModel::continueFromRecoveryKey() {
    if (isBusy() || m_screen != JourneyScreen::recoveryKey || !m_lastPhrase)
        return;
    if (std::holds_alternative<RecoveryWordsRead>(*m_lastPhrase) && !m_wroteItDown)
        return;
    log("button: recovery key next → plugIn");
    m_contacts.markRecoveryPassed();
    show(JourneyScreen::plugIn);
}

void JourneyModel::continueToLocalModels() {
    if (isBusy() || m_screen != JourneyScreen::plugIn)
        return;
    log("button: next → models");
    show(JourneyScreen::localModels);
}

void JourneyModel::continueFromLocalModels() {
    if (isBusy() || m_screen != JourneyScreen::localModels)
        return;
    const JourneyScreen next = m_contacts.warm() ? JourneyScreen::sayHello : JourneyScreen::warming;
    log(fmt::format("button: continue → {}", text(next)));
    show(next);
}

void JourneyModel::closeSetup() {
    if (isBusy() || m_screen != JourneyScreen::sayHello || !m_lastHello.value_or(false))
        return;
    log("button: close setup → done");
    show(JourneyScreen::done);
}

void JourneyModel::quit() {
    log("button: quit setup");
    m_contacts.terminate();
}

bool JourneyModel::writerAlive() const {
    return m_lastProgress && m_lastProgress->writerAlive();
}

bool JourneyModel::isPlausible() const {
    return m_lastProgress && m_lastProgress->isPlausible(now(), m_contacts.diskBytes());
}

Writer JourneyModel::shownWriter() const {
    using Seconds = std::chrono::duration<double>;
    constexpr Seconds quiet{60};
    if (!writerAlive())
        return Writer::gone;
    const Seconds written(m_lastProgress->writtenAt);
    const bool silent =
        m_lastProgress->running && Seconds(now().time_since_epoch()) - written > quiet;
    return silent ? Writer::gone : Writer::alive;
}

std::optional<LocalModelsScreen::Estimate> JourneyModel::estimate() const {
    if (!isPlausible())
        return std::nullopt;
    return LocalModelsScreen::estimate(m_lastProgress, writerAlive() ? Writer::alive : Writer::gone,
                                       now());
}

void JourneyModel::wakeTheWriterIfNeeded() {
    const Writer writer = writerAlive() ? Writer::alive : Writer::gone;
    if (m_wokeWriter || !LocalModelsScreen::needsWake(m_lastProgress, writer))
        return;
    m_wokeWriter = true;
    log("wake: the download's writer is gone with rows not done — opening the menu app");
    m_contacts.wakeWriter();
}

std::vector<std::string> JourneyModel::cancelDeletes() const {
    return m_lastProgress ? m_contacts.describeUndo(m_lastProgress->installed)
                          : std::vector<std::string>();
}

std::vector<std::string> JourneyModel::cancelKeeps() const {
    return m_lastProgress ? LocalModelsUndo::keeps(m_lastProgress->installed)
                          : std::vector<std::string>();
}

std::vector<std::string> JourneyModel::cancelCaveats() const {
    return m_lastProgress ? LocalModelsUndo::caveats(m_lastProgress->installed)
                          : std::vector<std::string>();
}

void JourneyModel::cancelInstall() {
    if (!m_started || m_cancelling)
        return;
    m_cancelling = true;
    syncPoll();
    cancel();
    Q_EMIT cancelChanged();
}

QCoro::Task<> JourneyModel::cancel() {
    const QPointer<JourneyModel> self(this);
    log(fmt::format("button: cancel install — unplugging {}", fmt::join(m_wiring.plugged(), ", ")));
    auto unplugging = m_wiring.unplug(m_limits.unplug);
    co_await unplugging;
    if (!self)
        co_return;
    auto stopping = m_contacts.cancelInstall(m_lastProgress);
    const CancelEnd end = co_await stopping;
    if (!self)
        co_return;
    if (end == CancelEnd::stopped) {
        m_contacts.terminate();
        co_return;
    }
    m_cancelFailed = true;
    Q_EMIT cancelChanged();
}

void JourneyModel::closeCancelFailed() {
    if (!std::exchange(m_cancelFailed, false))
        return;
    Q_EMIT cancelChanged();
    m_contacts.terminate();
}

void JourneyModel::setRailClickable(bool clickable) {
    m_railClickable = clickable;
    syncPoll();
}

void JourneyModel::jump(JourneyStep step) {
    if (!m_railClickable || isBusy())
        return;
    m_reviewing.reset();
    show(JourneySteps::first(step));
}

bool JourneyModel::canGoBack() const {
    return !isBusy() && Journey::previous(m_screen).has_value();
}

void JourneyModel::goBack() {
    if (!canGoBack())
        return;
    if (!m_reviewing)
        m_reviewing = m_screen;
    show(*Journey::previous(m_screen));
}

void JourneyModel::returnForward() {
    if (!m_reviewing || isBusy())
        return;
    const auto next = Journey::next(m_screen);
    // `warming`, where it is the furthest, is no neighbour.
    show(next && Journey::isAtMost(*next, *m_reviewing) ? *next : *m_reviewing);
}

} // namespace wendlow

#include "moc_JourneyModel.cpp"
