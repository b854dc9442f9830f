#pragma once

#include "AppInventory.h"
#include "ConnectedAppsList.h"
#include "Connectors.h"
#include "Converge.h"
#include "PaneModel.h"
#include "RowOpenness.h"
#include "ToolLane.h"
#include "VerbNote.h"

#include <QCoroTask>
#include <QFuture>
#include <QString>
#include <QTimer>
#include <QtQmlIntegration/qqmlintegration.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

/// The Connected Apps pane: the AI apps found on this machine, each with its switch and with what
/// its files and the last verb had to say. An object of the UI thread.
///
/// Each tool is worked on a serial lane of its own, so that no two edits of its files interleave,
/// no tool waits for another, and no disk is waited for on the UI thread. Nothing is kept on disk:
/// whether an app is connected is read back from the tool's own files each time.
class ConnectedAppsModel final : public PaneModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the model and hands it to the pane.")

    Q_PROPERTY(wendlow::ConnectedAppsList* apps READ appsList CONSTANT)
    /// Each tool has been looked at; before, an empty list means nothing.
    Q_PROPERTY(bool scanned READ scanned NOTIFY scannedChanged)
    Q_PROPERTY(QString error READ error CONSTANT)
    Q_PROPERTY(QString endpoint READ endpoint CONSTANT)
    Q_PROPERTY(QString mastheadTitle READ mastheadTitle CONSTANT)
    Q_PROPERTY(QString mastheadBody READ mastheadBody CONSTANT)
    Q_PROPERTY(QString otherToolsTitle READ otherToolsTitle CONSTANT)
    Q_PROPERTY(QString endpointCaption READ endpointCaption CONSTANT)
    Q_PROPERTY(QString copyWord READ copyWord CONSTANT)
    Q_PROPERTY(QString noEndpointSentence READ noEndpointSentence CONSTANT)
    /// What stands in place of the rows while there is none, and what to do about it.
    Q_PROPERTY(QString emptySentence READ emptySentence NOTIFY scannedChanged)
    Q_PROPERTY(QString emptyAdvice READ emptyAdvice NOTIFY scannedChanged)
    Q_PROPERTY(QString lookAgainWords READ lookAgainWords CONSTANT)

public:
    /// What the model asks of the world around it; what is left out has the meaning told here.
    struct Surroundings {
        std::function<void(const QString&)> copy;           ///< left out: `copyToPasteboard`
        std::function<bool(const std::string&)> imageLoads; ///< left out: no brand image does
        std::filesystem::path home; ///< shown as "~" in paths; left out: nothing is
        // NOLINTNEXTLINE(readability-redundant-member-init): it may be left out of a list
        QLocale locale = QLocale();              ///< of dates and sizes; left out: the person's
        std::function<FileDate()> now = nullptr; ///< left out: the system's clock
        /// Clears away what is no longer offered; left out: there is nothing of that.
        std::function<std::vector<Converge::Repair>()> retire = nullptr;
    };

    /// `endpoint` is the path of the bridge program, if there is one.
    ConnectedAppsModel(Connectors::List connectors, std::optional<std::string> endpoint,
                       Surroundings surroundings);
    /// Waits for verbs that are under way or queued, so that a change to a person's files is
    /// finished; but for no more than a second, since a disk may never answer. Scans and readings
    /// that have not begun are skipped.
    ~ConnectedAppsModel() override;

    /// The model of the running application. No bundle: no connectors, no endpoint, and `error`
    /// says so. Home folder and retirements in `surroundings` are filled in.
    static std::unique_ptr<ConnectedAppsModel>
    forThisMac(const std::filesystem::path& home,
               const std::optional<std::filesystem::path>& bundle,
               const std::filesystem::path& applications, Surroundings surroundings);

    /// Clears the clipboard and puts the text there.
    static void copyToPasteboard(const QString& text);

    /// Reads the tools' files again. Returns at once; only the newest scan of a tool lands. What
    /// the tools give lands together, unless one is slow: then the others do not wait.
    Q_INVOKABLE void scan();
    /// Runs the verb for a row and scans after it; an unknown id is ignored. A second verb for the
    /// same row queues behind the first.
    Q_INVOKABLE void connect(const QString& id);
    Q_INVOKABLE void disconnect(const QString& id);
    /// Does something else to a tool's files in its turn, off the UI thread: behind what has been
    /// asked of the tool by now and before all that will be. An unknown id is done with at once.
    QFuture<void> inTurn(const std::string& id, std::function<void(const Connector&)> work);
    /// Of all tools, whether they are on this machine or not.
    std::vector<std::string> ids() const;
    /// The person opens or closes a row. Opened, it reads the tool's store.
    Q_INVOKABLE void setOpen(const QString& id, bool open);
    /// Does nothing without an endpoint.
    Q_INVOKABLE void copyEndpoint();
    Q_INVOKABLE void copySubject(const QString& text);
    /// What a strip of a row offers; `path` is what that strip is about.
    Q_INVOKABLE void act(const QString& id, int action, const QString& path);

    const std::vector<ConnectedAppRow>& apps() const { return m_apps.rows(); }
    /// The lines of a row: those of its last verb, then those of its files.
    std::vector<ConnectableAppNote> notes(const std::string& id) const;

    ConnectedAppsList* appsList() { return &m_apps; }
    bool scanned() const { return m_scanned; }
    /// No verb, no scan and no reading of a store is waiting for an answer.
    bool idle() const;
    /// Scans, but no tool of which a verb, scan or reading is under way, which ends in what is true
    /// anyway.
    void refresh() override;
    /// Repairs wiring of ours that has become stale, and shows what has changed by it.
    void started(const Log& log) override;
    bool settled() const override { return m_scanned && idle(); }
    QString error() const { return m_error; }
    QString endpoint() const { return QString::fromStdString(m_endpoint.value_or(std::string())); }
    static QString mastheadTitle();
    static QString mastheadBody();
    static QString otherToolsTitle();
    static QString endpointCaption();
    static QString copyWord();
    static QString noEndpointSentence();
    QString emptySentence() const;
    QString emptyAdvice() const;
    static QString lookAgainWords();

Q_SIGNALS:
    void scannedChanged();
    /// What scans have found has been taken over.
    void landed();

private:
    /// What a scan found of a tool, and what stands beside that.
    struct Look {
        ScanReport report;
        std::vector<std::string> places; ///< for each observation where in its file it points
        FileStamps files;                ///< of the last verb's files
    };
    /// One tool, with everything that is known of it.
    struct Tool {
        explicit Tool(std::shared_ptr<Connector> worked);

        const std::shared_ptr<Connector> connector;
        const std::string id;
        AppInventory* inventory = nullptr; ///< a child of the model
        std::optional<Look> shown;
        std::optional<Look> fresh; ///< found, and not taken over yet
        std::optional<VerbNote> note;
        int verbs = 0;   ///< in flight, their scan included
        int ended = 0;   ///< of these, those that wait for their scan alone
        int pending = 0; ///< verbs, scans and repairs that have not been answered
        bool scanning = false;
        /// Counts scans. Shared with the lane, where a scan that is no longer the newest skips its
        /// work.
        const std::shared_ptr<std::atomic<int>> generation = std::make_shared<std::atomic<int>>(0);
        ToolLane lane;
    };

    QCoro::Task<> scanTool(Tool* tool);
    QCoro::Task<> run(Tool* tool, RowVerb verb);
    QCoro::Task<> repair(Tool* tool, Log log);
    QCoro::Task<> retire(Tool* tool, Log log);
    void landWhenTold();
    void land();
    void settle(Tool& tool);
    void tell(const Tool& tool);
    void publish();
    InventoryWords words() const;
    ConnectedAppRow row(const Tool& tool) const;
    static bool isHere(const Tool& tool);
    bool isOpen(const Tool& tool) const;
    Tool* tool(const std::string& id) const;

    const std::optional<std::string> m_endpoint;
    const Surroundings m_surroundings;
    QString m_error;

    ConnectedAppsList m_apps;
    RowOpenness m_openness;
    bool m_scanned = false;
    /// What is found waits for the rest until then.
    QTimer m_patience;
    bool m_impatient = false;
    std::vector<std::unique_ptr<Tool>> m_tools;
};

} // namespace wendlow
