#pragma once

#include "AppInventory.h"
#include "ConnectedAppsList.h"
#include "Connectors.h"
#include "PaneModel.h"
#include "RowOpenness.h"

#include <QCoroTask>
#include <QFuture>
#include <QString>
#include <QThreadPool>
#include <QtQmlIntegration/qqmlintegration.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace wendlow {

/// The Connected Apps pane: the AI apps found on this machine, each with its switch and with what
/// its files and the last verb had to say. An object of the UI thread.
///
/// The connectors are worked on a serial lane of its own, so that no two file edits interleave and
/// no disk is waited for on the UI thread. Nothing is kept on disk: whether an app is connected is
/// read back from the tool's own files each time.
class ConnectedAppsModel final : public PaneModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the model and hands it to the pane.")

    Q_PROPERTY(wendlow::ConnectedAppsList* apps READ appsList CONSTANT)
    /// A first scan has landed; before, an empty list means nothing.
    Q_PROPERTY(bool scanned READ scanned NOTIFY scannedChanged)
    Q_PROPERTY(QString error READ error CONSTANT)
    Q_PROPERTY(QString endpoint READ endpoint CONSTANT)
    Q_PROPERTY(QString mastheadTitle READ mastheadTitle CONSTANT)
    Q_PROPERTY(QString mastheadBody READ mastheadBody CONSTANT)
    Q_PROPERTY(QString otherToolsTitle READ otherToolsTitle CONSTANT)
    Q_PROPERTY(QString endpointCaption READ endpointCaption CONSTANT)
    Q_PROPERTY(QString copyWord READ copyWord CONSTANT)
    Q_PROPERTY(QString noEndpointSentence READ noEndpointSentence CONSTANT)

public:
    /// What the model asks of the world around it; what is left out has the meaning told here.
    struct Surroundings {
        std::function<void(const QString&)> copy;           ///< left out: `copyToPasteboard`
        std::function<bool(const std::string&)> imageLoads; ///< left out: no brand image does
        std::filesystem::path home; ///< shown as "~" in paths; left out: nothing is
        // NOLINTNEXTLINE(readability-redundant-member-init): it may be left out of a list
        QLocale locale = QLocale();              ///< of dates and sizes; left out: the person's
        std::function<FileDate()> now = nullptr; ///< left out: the system's clock
    };

    /// What a verb reported, kept beside its row until the app's state has moved on.
    struct VerbNote {
        Observations lines;
        /// The state that the app had when the verb's own scan landed; nothing before that.
        std::optional<ConnectorState> stateWhenSeen;
    };

    /// `endpoint` is the path of the bridge program, if there is one.
    ConnectedAppsModel(Connectors::List connectors, std::optional<std::string> endpoint,
                       Surroundings surroundings);
    /// Waits for a verb that is on the lane, or queued there: a change to a person's files is
    /// finished and never cut. Scans and readings that have not begun are skipped.
    ~ConnectedAppsModel() override;

    /// The model of the running application. No bundle: no connectors, no endpoint, and `error`
    /// says so. The home folder in `surroundings` is taken from `home`.
    static std::unique_ptr<ConnectedAppsModel>
    forThisMac(const std::filesystem::path& home,
               const std::optional<std::filesystem::path>& bundle,
               const std::filesystem::path& applications, Surroundings surroundings);

    /// Clears the clipboard and puts the text there.
    static void copyToPasteboard(const QString& text);

    /// Reads the tools' files again. Returns at once; only the newest scan lands.
    Q_INVOKABLE void scan();
    /// Runs the verb for a row and scans after it; an unknown id is ignored. A second verb for the
    /// same row queues behind the first.
    Q_INVOKABLE void connect(const QString& id);
    Q_INVOKABLE void disconnect(const QString& id);
    /// The person opens or closes a row. Opened, it reads the tool's store.
    Q_INVOKABLE void setOpen(const QString& id, bool open);
    /// Does nothing without an endpoint.
    Q_INVOKABLE void copyEndpoint();
    Q_INVOKABLE void copySubject(const QString& text);

    const std::vector<ConnectedAppRow>& apps() const { return m_apps.rows(); }
    /// The lines of a row: those of its last verb, then those of its files.
    std::vector<ConnectableAppNote> notes(const std::string& id) const;

    ConnectedAppsList* appsList() { return &m_apps; }
    bool scanned() const { return m_scanned; }
    /// No verb, no scan and no reading of a store is waiting for an answer.
    bool idle() const;
    /// Scans, unless a verb or a scan is under way, which ends in what is true anyway.
    void refresh() override;
    bool settled() const override { return m_scanned && idle(); }
    QString error() const { return m_error; }
    QString endpoint() const { return QString::fromStdString(m_endpoint.value_or(std::string())); }
    static QString mastheadTitle();
    static QString mastheadBody();
    static QString otherToolsTitle();
    static QString endpointCaption();
    static QString copyWord();
    static QString noEndpointSentence();

Q_SIGNALS:
    void scannedChanged();
    /// A scan's result has been taken over.
    void landed();

private:
    enum class Verb { connect, disconnect };

    template<class Work> auto onTheLane(Work work);
    QCoro::Task<> scanOnce();
    QCoro::Task<> run(std::string id, Verb verb);
    void land(std::vector<ScanReport> reports);
    void expireNotes();
    void settleEndedVerbs();
    void publish(Reread reread = Reread::no);
    void showInventories(const std::vector<ConnectedAppRow>& rows, Reread reread);
    InventoryWords words() const;
    ConnectedAppRow row(const ScanReport& report) const;
    bool isOpen(const ScanReport& report) const;
    const ScanReport* report(const std::string& id) const;
    std::shared_ptr<Connector> connector(const std::string& id) const;

    const Connectors::List m_connectors;
    const std::optional<std::string> m_endpoint;
    const Surroundings m_surroundings;
    QString m_error;

    ConnectedAppsList m_apps;
    std::vector<ScanReport> m_reports;
    std::multiset<std::string> m_busy; ///< one entry for each verb in flight
    std::vector<std::string> m_ended;  ///< verbs that have ended and whose scan has not landed
    std::map<std::string, VerbNote> m_verbNotes;
    RowOpenness m_openness;
    std::map<std::string, AppInventory*> m_inventories; ///< one for each connector; children
    bool m_scanned = false;
    int m_pending = 0;

    /// Counts scans. Shared with the lane, where a scan that is no longer the newest skips its
    /// work.
    std::shared_ptr<std::atomic<int>> m_generation = std::make_shared<std::atomic<int>>(0);
    /// Last, so that it is waited for before anything else of the model goes.
    QThreadPool m_lane;
};

} // namespace wendlow
