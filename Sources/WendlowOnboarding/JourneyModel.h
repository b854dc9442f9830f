#pragma once

#include "Journey.h"
#include "JourneyContacts.h"
#include "JourneyWiring.h"
#include "LocalModelsProgress.h"
#include "LocalModelsScreen.h"
#include "LocalModelsUndo.h"

#include <QCoroTask>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace wendlow {

/// How long a journey waits.
struct JourneyLimits {
    std::chrono::milliseconds poll = std::chrono::seconds(2);    ///< between two rounds
    std::chrono::milliseconds answer = std::chrono::seconds(5);  ///< of the daemon
    std::chrono::milliseconds unplug = std::chrono::seconds(10); ///< of one tool, at a cancel
};

/// The first-run journey: looks at the machine every two seconds, says which screen that asks for,
/// and carries out what the buttons ask. Whatever must outlive it is a receipt on the disk, so that
/// it can be broken off anywhere. UI thread; may go while answers are under way.
class JourneyModel final : public QObject {
    Q_OBJECT

public:
    using Limits = JourneyLimits;

    explicit JourneyModel(JourneyContacts contacts, Limits limits = Limits());
    ~JourneyModel() override;

    /// Looks at the machine and chooses the first screen. Called once.
    void start();
    /// A person comes back: looks at the tools again, and asks for the words that did not come.
    void lookAgain();

    // The ticks and buttons of the screens.
    void setAgreedToTerms(bool agreed);
    void setAutoInstall(bool automatic);
    /// Does nothing while the terms are not agreed to.
    void beginSetup();
    /// Asks for the permission of the screen that is shown; nothing on others.
    void ask();
    void nextFromPermission();
    void setWroteItDown(bool wrote);
    /// Does nothing while the words are shown and not ticked off. Words that could not be read hold
    /// nobody back.
    void continueFromRecoveryKey();
    void setWired(const std::string& id, bool on) { m_wiring.set(id, on); }
    void selectAll() { m_wiring.setAll(true); }
    void unselectAll() { m_wiring.setAll(false); }
    void continueToLocalModels();
    void continueFromLocalModels();
    /// Does nothing before the hello.
    void closeSetup();
    /// The window is done with.
    void quit();
    /// Unplugs what this journey has plugged in, has the download stopped and undone, undoes it
    /// here too, and ends the application. A second one does nothing.
    void cancelInstall();
    void closeCancelFailed();

    /// Does nothing unless the rail is clickable.
    void jump(JourneyStep step);
    void setRailClickable(bool clickable);
    void goBack();
    void returnForward();

    JourneyScreen screen() const { return m_screen; }
    bool isStarted() const { return m_started; }
    /// A button has asked the machine and waits for the answer.
    bool isMoving() const { return m_moving; }
    /// The furthest screen reached, while a person looks back.
    std::optional<JourneyScreen> reviewing() const { return m_reviewing; }
    bool canGoBack() const;
    bool canReturn() const { return m_reviewing.has_value(); }
    bool isRailClickable() const { return m_railClickable; }
    bool isPolling() const { return m_polling; }
    bool agreedToTerms() const { return m_agreedToTerms; }
    bool autoInstall() const { return m_autoInstall; }
    bool wroteItDown() const { return m_wroteItDown; }
    bool hasAsked(const std::string& kind) const { return m_asked.contains(kind); }
    const std::optional<GrantPair>& lastGrants() const { return m_lastGrants; }
    const std::optional<RecoveryRead>& lastPhrase() const { return m_lastPhrase; }
    const std::optional<LocalModelsProgress>& lastProgress() const { return m_lastProgress; }
    std::optional<bool> lastHello() const { return m_lastHello; }
    std::optional<std::int64_t> appBytes() const { return m_appBytes; }
    const std::vector<std::string>& wiredThisRun() const { return m_wiring.ids(); }
    ConnectedAppsModel& apps() const { return m_wiring.apps(); }
    bool aiWired() const { return m_wiring.anyConnected(); }
    bool writerAlive() const;
    std::chrono::system_clock::time_point now() const { return m_contacts.now(); }
    std::optional<LocalModelsScreen::Estimate> estimate() const;
    std::vector<std::string> cancelDeletes() const;
    std::vector<std::string> cancelKeeps() const;
    std::vector<std::string> cancelCaveats() const;
    bool isCancelling() const { return m_cancelling; }
    bool hasCancelFailed() const { return m_cancelFailed; }
    void openTerms() const { m_contacts.openTerms(); }
    /// What is read of the download can be true.
    bool isPlausible() const;
    /// As rows are to show it: a writer that has written nothing for a minute waits.
    LocalModelsScreen::Writer shownWriter() const;

Q_SIGNALS:
    void screenChanged();
    void startedChanged();
    void movingChanged();
    void ticksChanged();
    void grantsChanged(); ///< or what has been asked for
    void phraseChanged();
    void appsChanged();
    void progressChanged();
    void helloChanged();
    void cancelChanged();

private:
    enum class Deriving { no, yes };

    QCoro::Task<std::optional<JourneyWorld>> world(Deriving deriving);
    QCoro::Task<> begin();
    QCoro::Task<> setUp();
    QCoro::Task<> advance();
    QCoro::Task<> requestGrant(std::string kind);
    QCoro::Task<> readPhrase();
    QCoro::Task<> round(int generation);
    QCoro::Task<> cancel();
    QCoro::Task<> measure();
    /// Nothing can be asked for just now.
    bool isBusy() const;
    void logWorld(const JourneyWorld& world, bool askedHello) const;
    void show(JourneyScreen screen);
    void forgetPhrase();
    void setMoving(bool moving);
    void syncPoll();
    void wakeTheWriterIfNeeded();
    void readProgress();
    void takeGrants(std::optional<GrantPair> grants);
    void log(const std::string& line) const { m_contacts.log(line); }

    const JourneyContacts m_contacts;
    const Limits m_limits;
    JourneyWiring m_wiring;

    JourneyScreen m_screen = JourneyScreen::welcome;
    std::optional<JourneyScreen> m_reviewing;
    bool m_started = false;
    bool m_moving = false;
    bool m_railClickable = false;
    bool m_agreedToTerms = false;
    bool m_autoInstall = true;
    bool m_wroteItDown = false;
    std::set<std::string> m_asked;
    std::optional<GrantPair> m_lastGrants;
    std::optional<RecoveryRead> m_lastPhrase;
    std::optional<LocalModelsProgress> m_lastProgress;
    std::optional<bool> m_lastHello;
    std::optional<std::int64_t> m_appBytes;
    bool m_wokeWriter = false;
    bool m_cancelling = false;
    bool m_cancelFailed = false;
    bool m_polling = false;
    int m_generation = 0; ///< of the poll; a round of an older one ends
    int m_phraseAsked = 0;
    QTimer m_pause;
};

} // namespace wendlow
