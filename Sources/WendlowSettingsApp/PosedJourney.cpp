#include "PosedJourney.h"

#include "LocalModel.h"
#include "LocalModelsUndo.h"
#include "MockConnector.h"
#include "ToolTiles.h"

#include <QDateTime>

#include <utility>

#include <unistd.h>

namespace wendlow {

namespace {

constexpr const char* support = "/Users/mara/Library/Application Support/Wendlow";
constexpr std::int64_t namingSoFar = 1'300'000'000;
constexpr std::int64_t transcriptionBytes = 464'321'004;
constexpr std::int64_t appBytes = 212'448'113;
constexpr std::int64_t diskBytes = 494'384'795'648;

using Row = LocalModelsProgress::Row;

/// Even bytes over two minutes, as an estimate wants them.
std::vector<LocalModelsProgress::Sample> evenSamples(double now, std::int64_t bytes) {
    constexpr std::int64_t bytesPerSecond = 1'850'000;
    std::vector<LocalModelsProgress::Sample> samples;
    for (int ago = 120; ago >= 0; ago -= 20)
        samples.push_back({now - ago, bytes - bytesPerSecond * ago});
    return samples;
}

LocalModelsProgress::Receipts installed() {
    return {.runtimeDir = std::string(support) + "/runtime",
            .agentPlist = "/Users/mara/Library/LaunchAgents/works.fenmoor.wendlow.model-host.plist",
            .pulledModel = std::string(LocalModel::titleModel),
            .asrCacheDir = std::string(support) + "/transcription",
            .ollama =
                LocalModelsProgress::OllamaInventory{.folder = "/Users/mara/.ollama/models",
                                                     .folderExisted = true,
                                                     .models = {"nomic-embed-text", "llama3.2"}}};
}

std::shared_ptr<MockConnector> tool(const char* id, const char* name, const char* detail,
                                    MockConnector::Script script) {
    return std::make_shared<MockConnector>(ConnectorIdentity{id, name, detail, "terminal"},
                                           std::move(script));
}

} // namespace

std::chrono::system_clock::time_point PosedJourney::now() {
    const QDateTime local(QDate(2026, 11, 19), QTime(16, 20));
    return std::chrono::system_clock::from_time_t(local.toSecsSinceEpoch());
}

PosedJourney::~PosedJourney() {
    m_slowVerb.release();
    m_apps.reset();
    m_readers.resumeAll(RecoveryFailed{"gone"});
    m_cancellers.resumeAll(CancelEnd::stopped);
}

ConnectedAppsModel& PosedJourney::apps() {
    if (m_apps)
        return *m_apps;
    Connectors::List connectors;
    if (tools == Tools::some)
        connectors = {tool("claude-code", "Claude Code",
                           "The Claude Code CLI and Claude Code in the desktop app.",
                           {.state = ConnectorState::connected}),
                      tool("codex", "Codex", "The Codex CLI and the ChatGPT desktop app.",
                           {.refuses = true,
                            .verbObservations =
                                Observations{{"/Users/mara/.codex/config.toml",
                                              "this file did not read as TOML, so nothing was "
                                              "written"}}}),
                      tool("cursor", "Cursor",
                           "The Cursor editor, its agent view, and the terminal agent.",
                           {.onVerb = [this] { m_slowVerb.acquire(); }}),
                      tool("opencode", "OpenCode", "The OpenCode desktop app and terminal.", {})};
    ConnectedAppsModel::Surroundings around;
    around.home = "/Users/mara";
    around.imageLoads = [](const std::string& asset) {
        return ToolTiles::has(QString::fromStdString(asset));
    };
    m_apps = std::make_unique<ConnectedAppsModel>(std::move(connectors), std::nullopt,
                                                  std::move(around));
    return *m_apps;
}

QCoro::Task<std::optional<GrantPair>> PosedJourney::readGrants() {
    co_return grants;
}

QCoro::Task<std::optional<bool>> PosedJourney::askHello() {
    co_return helloReceived;
}

QCoro::Task<> PosedJourney::grant(std::string kind) {
    if (grantsWhatIsAsked)
        for (const auto& [asked, granted] :
             {std::pair(JourneyScreen::screenRecording, &grants.screenRecording),
              std::pair(JourneyScreen::accessibility, &grants.accessibility),
              std::pair(JourneyScreen::microphone, &grants.microphone)})
            *granted = *granted || kind == Journey::grantKind(asked);
    co_return;
}

QCoro::Task<RecoveryRead> PosedJourney::readPhrase() {
    if (phrase == Answer::silent)
        co_return co_await m_readers;
    if (phrase == Answer::refused)
        co_return RecoveryFailed{"The recovery phrase can't be shown: the key is not in this Mac's "
                                 "keychain."};
    co_return RecoveryWordsRead{"amber",  "canvas", "orbit", "gentle", "harbor", "lemon",
                                "meadow", "pepper", "quiet", "river",  "saddle", "violin"};
}

QCoro::Task<CancelEnd> PosedJourney::endCancel() {
    if (cancel == Answer::silent)
        co_return co_await m_cancellers;
    co_return cancel == Answer::given ? CancelEnd::stopped : CancelEnd::writerStillRuns;
}

std::optional<LocalModelsProgress> PosedJourney::progress() const {
    if (download == Download::unknown)
        return std::nullopt;
    const bool done = download == Download::done;
    const bool measured = download != Download::unmeasured;
    LocalModelsProgress all;
    all.pid = ::getpid();
    all.writtenAt = std::chrono::duration<double>(now().time_since_epoch()).count();
    all.running = !done;
    all.rows = {Row{.id = "runtime",
                    .label = "Runtime",
                    .state = "done",
                    .download = true,
                    .bytes = LocalModel::runtimeApproxBytes,
                    .totalBytes = LocalModel::runtimeApproxBytes},
                Row{.id = "model",
                    .label = "Model",
                    .state = done ? "done" : "active",
                    .download = true,
                    .bytes = done ? LocalModel::approxDownloadBytes : namingSoFar},
                Row{.id = "asr",
                    .label = "Transcription",
                    .state = done ? "done" : "pending",
                    .download = true,
                    .totalBytes = transcriptionBytes,
                    .present = done}};
    if (measured) {
        all.rows[1].totalBytes = LocalModel::approxDownloadBytes;
        all.samples = evenSamples(all.writtenAt, all.downloadedBytes());
        all.installed = installed();
    }
    return all;
}

JourneyContacts PosedJourney::contacts() {
    m_agreed = screen != JourneyScreen::welcome;
    m_passed = !Journey::isAtMost(screen, JourneyScreen::recoveryKey);
    return {
        .connect = [this]() -> ConnectedAppsModel& { return apps(); },
        .grants = [this] { return readGrants(); },
        .storePresent = []() -> QCoro::Task<bool> { co_return true; },
        .phrase = [this] { return readPhrase(); },
        .recoveryPassed = [this] { return m_passed; },
        .markRecoveryPassed = [this] { m_passed = true; },
        .termsAgreed = [this] { return m_agreed; },
        .markTermsAgreed = [this] { m_agreed = true; },
        .setAutoInstall = [](bool) {},
        .requestGrant = [this](std::string kind) { return grant(std::move(kind)); },
        .forcedScreen = [this] { return std::optional(screen); },
        .localModels = [this] { return progress(); },
        .hello = [this] { return askHello(); },
        .warm = [this] { return warm; },
        .describeUndo =
            [](const LocalModelsProgress::Receipts& receipts) {
                return LocalModelsUndo::describe(LocalModelsUndo::plan(receipts, {}));
            },
        .cancelInstall = [this](const std::optional<LocalModelsProgress>&) { return endCancel(); },
        .wakeWriter = [] {},
        .now = &PosedJourney::now,
        .loadWired = [] { return std::vector<std::string>(); },
        .saveWired = [](const std::vector<std::string>&) {},
        .tools = {}, // no tool here has files
        .measureAppSize = []() -> QCoro::Task<std::optional<std::int64_t>> { co_return appBytes; },
        .diskBytes = [] { return std::optional(diskBytes); },
        .openTerms = [] {},
        .terminate = [] {},
        .log = [](const std::string&) {},
    };
}

} // namespace wendlow
