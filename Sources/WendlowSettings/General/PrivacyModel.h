#pragma once

#include "Client.h"
#include "DaemonSwitch.h"
#include "DiagnosticRelay.h"
#include "PaneModel.h"
#include "PaneState.h"
#include "Pause.h"
#include "Records/KeptStats.h"

#include <QCoroTask>
#include <QElapsedTimer>
#include <QStringList>
#include <QVariantList>
#include <QtQmlIntegration/qqmlintegration.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace wendlow {

/// The pane "General": how much is kept on the disk, the two switches for screenshots with their
/// questions, the person's names in meeting apps, and the diagnostic log. All of it is the
/// daemon's; a switch shows what was read back. UI thread; may go while answers are under way.
class PrivacyModel final : public PaneModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the model and hands it to the pane.")

    /// For each row of the table a map with `label`, `rate`, `month` and `keep`, which is null
    /// where the row is always kept, else its switch.
    Q_PROPERTY(QVariantList rows READ rows CONSTANT)
    /// For each row what it takes of the disk.
    Q_PROPERTY(QStringList used READ used NOTIFY changed)
    Q_PROPERTY(wendlow::DaemonSwitch* frameKeep READ frameKeep CONSTANT)
    Q_PROPERTY(wendlow::DaemonSwitch* reelKeep READ reelKeep CONSTANT)
    Q_PROPERTY(wendlow::DaemonSwitch* diagnosticLogging READ diagnosticLogging CONSTANT)
    /// How far the deletion has come, or what it has left; empty for nothing.
    Q_PROPERTY(QString purge READ purge NOTIFY changed)
    Q_PROPERTY(bool purging READ purging NOTIFY changed)
    Q_PROPERTY(bool confirmingFrameKeepOff READ confirmingFrameKeepOff NOTIFY changed)
    Q_PROPERTY(QString frameKeepQuestion READ frameKeepQuestion NOTIFY changed)
    Q_PROPERTY(bool confirmingReelKeepOff READ confirmingReelKeepOff NOTIFY changed)
    Q_PROPERTY(QString reelKeepQuestion READ reelKeepQuestion NOTIFY changed)
    /// What the field shows: what is being typed, else what the daemon holds.
    Q_PROPERTY(QString names READ names WRITE setNames NOTIFY namesChanged)
    Q_PROPERTY(bool namesCanBeSaved READ namesCanBeSaved NOTIFY namesChanged)
    Q_PROPERTY(bool savingNames READ savingNames NOTIFY namesChanged)
    Q_PROPERTY(QString selfNamesRefusal READ selfNamesRefusal NOTIFY namesChanged)
    Q_PROPERTY(QString diagnosticLoggingDetail READ diagnosticLoggingDetail NOTIFY changed)
    /// Why nothing could be read; empty once something was.
    Q_PROPERTY(QString error READ error NOTIFY changed)
    /// What is to be seen is being read, after it could not be.
    Q_PROPERTY(bool retrying READ retrying NOTIFY changed)

public:
    /// What the model takes from the world around it; what is left out has the meaning told here.
    struct Surroundings {
        std::chrono::milliseconds pollEvery = std::chrono::seconds(2);
        /// Left out: the event loop's clock.
        std::function<QCoro::Task<>(std::chrono::milliseconds)> sleep = nullptr;
        /// After that long without an answer, a person who comes back has everything asked anew.
        std::chrono::milliseconds patience = std::chrono::seconds(5);
    };

    PrivacyModel(std::shared_ptr<WendlowClient> client, Surroundings surroundings);
    ~PrivacyModel() override;

    /// Asks everything, one thing after the other; a newer load overtakes it.
    QCoro::Task<> load();
    Q_INVOKABLE void toggleFrameKeep(bool on);
    Q_INVOKABLE void confirmFrameKeepOff();
    Q_INVOKABLE void cancelFrameKeepOff();
    Q_INVOKABLE void toggleReelKeep(bool on);
    Q_INVOKABLE void confirmReelKeepOff();
    Q_INVOKABLE void cancelReelKeepOff();
    /// Nothing happens while a save is under way, or where nothing has changed.
    Q_INVOKABLE void saveSelfNames(const QString& text);
    Q_INVOKABLE void toggleDiagnosticLogging(bool on);
    void startPollingIfNeeded();
    void stopPolling();
    /// Whether the daemon is working out a size that is to be seen, or deleting.
    bool pollNeeded() const;

    Q_INVOKABLE void refresh() override;
    void left() override;
    bool settled() const override { return m_asking == 0; }

    QVariantList rows();
    QStringList used() const;
    DaemonSwitch* frameKeep() { return &m_frameKeep; }
    DaemonSwitch* reelKeep() { return &m_reelKeep; }
    DaemonSwitch* diagnosticLogging() { return &m_diagnosticLogging; }
    QString purge() const;
    bool purging() const;
    bool confirmingFrameKeepOff() const { return m_confirmingFrameKeepOff; }
    QString frameKeepQuestion() const;
    bool confirmingReelKeepOff() const { return m_confirmingReelKeepOff; }
    QString reelKeepQuestion() const;
    QString names() const { return m_draft.value_or(QString::fromStdString(m_selfNames)); }
    void setNames(const QString& text);
    bool namesCanBeSaved() const;
    bool savingNames() const { return m_savingNames; }
    QString selfNamesRefusal() const { return m_selfNamesRefusal; }
    QString diagnosticLoggingDetail() const;
    QString error() const { return QString::fromStdString(PaneStates::error(m_state)); }
    bool retrying() const { return !error().isEmpty() && m_loading; }

    const std::string& selfNames() const { return m_selfNames; }
    const std::optional<FrameStats>& frameStats() const { return m_frameStats; }
    const std::optional<ReelStats>& reelStats() const { return m_reelStats; }
    const std::optional<DiskUsed>& diskUsed() const { return m_diskUsed; }

Q_SIGNALS:
    void changed();
    void namesChanged();

private:
    /// What is asked for.
    enum class Subject {
        diagnosticLogging,
        selfNames,
        frameKeep,
        reelKeep,
        frameStats,
        reelStats,
        diskUsed
    };
    /// What came of a question. `gone`: the model has gone, and nothing of it may be touched.
    enum class Outcome { kept, refused, overtaken, gone };
    /// All that could be asked: what one load, and each write, asks for.
    using Load = int;

    QCoro::Task<Outcome> read(Subject subject, std::optional<Load> load = std::nullopt);
    bool keep(Subject subject, const GatewayResponse& answer, int asked);
    /// Grows with each write of it: an answer to a question from before is no longer true.
    int ageOf(Subject subject);
    DaemonSwitch* switchOf(Subject subject);
    QCoro::Task<> writeFrameKeep(bool on);
    QCoro::Task<> writeReelKeep(bool on);
    QCoro::Task<> askReelKeepOff();
    QCoro::Task<> writeDiagnosticLogging(bool on);
    QCoro::Task<> writeNames(QString text);
    /// Sends what a switch asks for, and shows what came of it there.
    QCoro::Task<Outcome> write(DaemonSwitch& toggle, ControlRequest request);
    QCoro::Task<> poll(int number);
    void note(std::string_view verb, const std::string& reason);

    const std::shared_ptr<WendlowClient> m_client;
    const Surroundings m_around;
    std::optional<DiagnosticRelay> m_relay; ///< made with the first refusal

    DaemonSwitch m_frameKeep{this};
    DaemonSwitch m_reelKeep{this};
    DaemonSwitch m_diagnosticLogging{this};
    std::optional<FrameStats> m_frameStats;
    std::optional<ReelStats> m_reelStats;
    std::optional<DiskUsed> m_diskUsed;
    bool m_confirmingFrameKeepOff = false;
    bool m_confirmingReelKeepOff = false;
    std::string m_selfNames;
    std::optional<QString> m_draft; ///< what has been typed and is not what is held
    bool m_savingNames = false;
    int m_namesAge = 0;
    QString m_selfNamesRefusal;

    PaneState<std::monostate> m_state;
    int m_asking = 0; ///< loads and writes under way
    bool m_loading = false;
    QElapsedTimer m_loadingFor;
    Load m_loads = 0;      ///< an answer to an older one is dropped
    std::string m_failure; ///< the last of the load under way
    int m_polls = 0;
    Pause m_pause; ///< of the poll
    bool m_polling = false;
    bool m_seen = true; ///< nothing is polled for a pane that nobody sees
};

} // namespace wendlow
