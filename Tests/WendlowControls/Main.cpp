#include "ConnectedAppsModel.h"
#include "General/PrivacyModel.h"
#include "IconDrawing.h"
#include "MockConnector.h"
#include "PosedGateway.h"
#include "QmlWarnings.h"
#include "Recording/RecordingControlModel.h"
#include "Recovery/RecoveryModel.h"
#include "SettingsRoot.h"
#include "ThemeSource.h"
#include "ToolTiles.h"
#include "WordsInPlace.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QSemaphore>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(WendlowControlsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowSettingsPlugin)

using namespace wendlow;
using namespace Qt::StringLiterals;

namespace {

std::shared_ptr<MockConnector> tool(const char* id, const char* name,
                                    MockConnector::Script script) {
    return std::make_shared<MockConnector>(ConnectorIdentity{id, name, "A tool.", "terminal"},
                                           std::move(script));
}

} // namespace

/// What the QML tests cannot reach by themselves.
class Bench : public QObject {
    Q_OBJECT
    Q_PROPERTY(wendlow::SettingsRoot* root READ root CONSTANT)
    Q_PROPERTY(QStringList copied READ copied)

public:
    Bench() {
        ConnectedAppsModel::Surroundings around;
        around.home = "/home/ada";
        around.copy = [this](const QString& text) { m_copied.append(text); };
        around.imageLoads = [](const std::string& asset) {
            return ToolTiles::has(QString::fromStdString(asset));
        };
        const auto cursor =
            tool("cursor", "Cursor",
                 {.state = ConnectorState::drifted,
                  .observations = {{"/home/ada/.cursor/mcp.json", "this entry was changed"}}});
        ProjectReport projects{"/home/ada/.codex/sessions", {}, std::nullopt};
        for (int at = 1; at <= 2310; ++at)
            projects.projects.push_back({"/home/ada/p" + std::to_string(at), distantPast, {}});
        const auto codex =
            tool("codex", "Codex", {.state = ConnectorState::connected, .projectReport = projects});
        const auto slow = tool("opencode", "OpenCode", {.onVerb = [this] { m_verbs.acquire(); }});
        Panes::Models models;
        models.emplace(Pane::connected,
                       std::make_unique<ConnectedAppsModel>(Connectors::List{cursor, codex, slow},
                                                            "/opt/wendlow-mcp", std::move(around)));
        const auto client = std::make_shared<InProcessClient>(m_daemon);
        models.emplace(Pane::privacy,
                       std::make_unique<PrivacyModel>(client, PrivacyModel::Surroundings{}));
        models.emplace(Pane::recording,
                       std::make_unique<RecordingControlModel>(client, AppChooser::Surroundings{}));
        models.emplace(Pane::recovery,
                       std::make_unique<RecoveryModel>(
                           client, [this](const QString& text) { m_copied.append(text); }));
        m_root = std::make_unique<SettingsRoot>(std::move(models));
    }

    ~Bench() override {
        m_root.reset();
        m_daemon->giveUp();
    }

    /// What is not as it should be, once.
    Q_INVOKABLE QStringList warnings() { return m_warnings.taken(); }
    void listen(QQmlEngine& engine) { m_warnings.listen(engine); }
    SettingsRoot* root() const { return m_root.get(); }
    QStringList copied() const { return m_copied; }
    /// OpenCode's verbs take until then.
    Q_INVOKABLE void endVerb() { m_verbs.release(); }
    /// What a screen reader gets from an item.
    Q_INVOKABLE static QVariantMap spoken(QQuickItem* item) {
        QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(item);
        if (!face)
            return {};
        return {{u"name"_s, face->text(QAccessible::Name)},
                {u"description"_s, face->text(QAccessible::Description)},
                {u"checked"_s, face->state().checked != 0}};
    }
    Q_INVOKABLE static QStringList outOfPlace(QQuickItem* item) {
        return testing::WordsInPlace::faults(*item);
    }
    Q_INVOKABLE static bool isSeparator(QQuickItem* item) {
        QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(item);
        return face && face->role() == QAccessible::Separator;
    }
    /// A screen reader comes or goes.
    Q_INVOKABLE static void read(bool active) { QAccessible::setActive(active); }
    /// Does what a screen reader does to press an item.
    Q_INVOKABLE static bool press(QQuickItem* item) {
        QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(item);
        QAccessibleActionInterface* const actions = face ? face->actionInterface() : nullptr;
        if (!actions || !actions->actionNames().contains(QAccessibleActionInterface::pressAction()))
            return false;
        actions->doAction(QAccessibleActionInterface::pressAction());
        return true;
    }
    /// The share of a drawing that is inked, in percent; -1 when there is no such drawing.
    Q_INVOKABLE static int ink(const QString& symbol) {
        const QImage drawing = IconDrawing::image(symbol, 32, Qt::red);
        if (drawing.isNull())
            return -1;
        int sum = 0;
        for (int i = 0; i < 32 * 32; ++i)
            sum += qAlpha(drawing.pixel(i % 32, i / 32));
        return sum * 100 / (255 * 32 * 32);
    }

private:
    /// Everything is kept, and 2,000 topics are not recorded.
    static PosedGateway::Answers answers() {
        PosedGateway::Answers all{
            {"recovery_state", AnswerCase::Text{"armed"}},
            {"self_names", AnswerCase::NoteID{}},
            {"frame_stats", AnswerCase::FrameStats{{.screenshots = 7, .bytes = 0}}},
            {"reel_stats", AnswerCase::ReelStats{}},
            {"disk_used", AnswerCase::DiskUsed{}}};
        for (const char* flag : {"frame_keep_state", "reel_keep_state", "diagnostic_logging_state"})
            all.emplace(flag, AnswerCase::Flag{true});
        std::vector<Rule> rules;
        for (int at = 1; at <= 2000; ++at)
            rules.push_back({.id = std::to_string(at),
                             .kind = RuleKind::topic,
                             .value = "topic " + std::to_string(at),
                             .tier = RuleTier::never,
                             .origin = RuleOrigin::user,
                             .enabled = true});
        all.emplace("get_rules", AnswerCase::Rules{std::move(rules)});
        return all;
    }

    testing::QmlWarnings m_warnings;
    QStringList m_copied;
    QSemaphore m_verbs;
    const std::shared_ptr<PosedGateway> m_daemon = std::make_shared<PosedGateway>(answers());
    std::unique_ptr<SettingsRoot> m_root;
};

class Setup : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine* engine) {
        m_bench.listen(*engine);
        engine->setImportPathList(engine->importPathList() << u":/qt/qml"_s);
        QAccessible::setActive(true);
        engine->rootContext()->setContextProperty(u"bench"_s, &m_bench);
    }

private:
    Bench m_bench;
};

QUICK_TEST_MAIN_WITH_SETUP(WendlowControls, Setup)

#include "Main.moc"
