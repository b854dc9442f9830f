#include "Memories/MemoryFaceModel.h"
#include "QmlWarnings.h"
#include "Shell/EditorHost.h"
#include "Support/ScriptedClient.h"
#include "Support/ScriptedStore.h"
#include "ThemeSource.h"
#include "WordsInPlace.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExtensionPlugin>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(WendlowControlsPlugin)
Q_IMPORT_QML_PLUGIN(WendlowEditorPlugin)

using namespace wendlow;
using namespace Qt::StringLiterals;

/// A daemon that understands nothing.
class RefusingGateway final : public Gateway {
public:
    QCoro::Task<GatewayResponse> handle(GatewayRequest /*request*/) override {
        co_return AnswerCase::Failure{
            "Wendlow answered with something this mod does not understand."};
    }
};

/// What the QML tests cannot reach by themselves.
class Bench : public QObject {
    Q_OBJECT
    Q_PROPERTY(wendlow::EditorHost* host READ host CONSTANT)
    Q_PROPERTY(QString clipboard READ clipboard WRITE setClipboard)

public:
    EditorHost* host() { return &m_host; }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }
    static void setClipboard(const QString& text) { QGuiApplication::clipboard()->setText(text); }
    Q_INVOKABLE wendlow::MemoryFaceModel* memories() {
        return static_cast<MemoryFaceModel*>(&m_host.root()->model(EditorFace::memory));
    }

    /// "dayZero", "someData" or "powerUser", from its beginning.
    Q_INVOKABLE void world(const QString& name) {
        m_worlds.switchWorld(EditorWorld::realData);
        for (const EditorWorld world : editorWorlds)
            if (const auto seed = seedWorld(world); seed && text(*seed) == name.toStdString())
                m_worlds.switchWorld(world);
    }
    /// Over a daemon that refuses everything, or over the made-up worlds.
    Q_INVOKABLE wendlow::EditorHost* hostOf(bool isRefused) {
        return isRefused ? &m_refusedHost : &m_host;
    }
    /// Brings the window into each state of its world of which there is a picture, and calls.
    Q_INVOKABLE void pose(const QString& world, const QJSValue& each) {
        using World = FacePicture::World;
        const World posed = world == u"refused"_s   ? World::refusing
                            : world == u"dayZero"_s ? World::empty
                                                    : World::full;
        EditorRoot& root = *hostOf(posed == World::refusing)->root();
        for (const EditorFace face : EditorFaces::all) {
            root.setFace(face);
            for (const FacePicture& picture : root.model(face).pictures()) {
                if (picture.world != posed)
                    continue;
                if (picture.stand)
                    picture.stand();
                std::ignore = each.call({QString::fromUtf8(picture.name)});
                if (picture.leave)
                    picture.leave();
            }
        }
    }
    Q_INVOKABLE static QStringList outOfPlace(QQuickItem* item) {
        return testing::WordsInPlace::faults(*item);
    }
    Q_INVOKABLE void open(const QString& type) { memories()->open(type.toStdString()); }
    Q_INVOKABLE QString openType() {
        return QString::fromStdString(memories()->openType().value_or(""));
    }
    Q_INVOKABLE QString face() {
        return QString::fromUtf8(EditorFaces::text(m_host.root()->face()));
    }

    /// Everything in sight that a screen reader finds in an item's window: role and name of each, a
    /// line each. What it may press is marked with a star.
    Q_INVOKABLE static QStringList spoken(QQuickItem* item) {
        QStringList lines;
        const auto roles = QMetaEnum::fromType<QAccessible::Role>();
        walk(QAccessible::queryAccessibleInterface(item->window()), [&](auto& child) {
            lines.append(QString::fromUtf8(roles.valueToKey(child.role())) + u' ' +
                         child.text(QAccessible::Name) + (pressable(child) ? u"*"_s : QString()));
            return false;
        });
        return lines;
    }
    /// Presses the thing of this name as a screen reader does.
    Q_INVOKABLE static bool press(QQuickItem* item, const QString& name) {
        QAccessibleInterface* const found = find(item, name);
        if (found)
            found->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        return found != nullptr;
    }
    /// What a screen reader is told of the thing beside its name.
    Q_INVOKABLE static QString told(QQuickItem* item, const QString& name) {
        QAccessibleInterface* const found = find(item, name);
        if (!found)
            return u"not there"_s;
        return found->text(QAccessible::Description) +
               (found->state().selected ? u" selected"_s : QString());
    }
    /// Its middle, in the window.
    Q_INVOKABLE static QPointF middle(QQuickItem* item, const QString& name) {
        QAccessibleInterface* const found = find(item, name);
        return found ? QPointF(found->rect().center() - item->window()->position()) : QPointF();
    }
    /// The same of what stands in another thing.
    Q_INVOKABLE static QPointF middleOf(QQuickItem* item, const QString& outer,
                                        const QString& name) {
        QAccessibleInterface* const found =
            walk(QAccessible::queryAccessibleInterface(item->window()), [&](auto& child) {
                return child.text(QAccessible::Name) == name && child.parent() &&
                       child.parent()->text(QAccessible::Name) == outer;
            });
        return found ? QPointF(found->rect().center() - item->window()->position()) : QPointF();
    }
    /// How far the lines of the open menu are indented.
    Q_INVOKABLE static QList<int> indents(QQuickItem* item) {
        QList<int> all;
        gatherIndents(*item->window()->contentItem(), all);
        return all;
    }
    /// What is not as it should be, once.
    Q_INVOKABLE QStringList warnings() { return m_warnings.taken(); }
    void listen(QQmlEngine& engine) { m_warnings.listen(engine); }
    void keep() {
        for (QObject* const mine :
             {static_cast<QObject*>(&m_scriptedRoot), static_cast<QObject*>(&m_ledgerRoot),
              static_cast<QObject*>(&m_host), static_cast<QObject*>(&m_refusedHost)})
            QQmlEngine::setObjectOwnership(mine, QQmlEngine::CppOwnership);
    }
    /// A window over a store with meetings and mods, at this face.
    Q_INVOKABLE wendlow::EditorRoot* ledger(const QString& face) {
        m_ledger.meeting.asked.clear();
        m_ledger.meeting.loaded = true;
        m_ledger.meeting.list.emplace();
        for (const char* const title : {"Atlas", "Budget", "Council"})
            m_ledger.meeting.list->push_back({.id = title, .title = title, .lines = 3});
        EditorModRun run{.mod = "sweep", .outcome = EditorRunOutcome::of("ok")};
        run.report = "Begun.\n\n\tone\r\n";
        for (int line = 0; line < 2'000; ++line)
            *run.report += "Looked at one more.\n";
        *run.report += "the end";
        EditorModRun bare{.mod = "sweep", .outcome = EditorRunOutcome::of("authFailure")};
        m_ledger.mod.board = EditorModsBoard{
            .mods = {{.slug = "sweep", .files = {"mod.md"}}}, .rejected = {}, .runs = {run, bare}};
        m_ledger.tell();
        for (const EditorFace other :
             {EditorFace::memory, *EditorFaces::fromText(face.toStdString())})
            m_ledgerRoot.setFace(other);
        return &m_ledgerRoot;
    }
    Q_INVOKABLE QStringList asked() {
        QStringList all;
        for (const std::string& each : m_ledger.meeting.asked)
            all.append(QString::fromStdString(each));
        return all;
    }
    /// The transcript that is waited for has so many lines.
    Q_INVOKABLE void answerTranscript(int lines) {
        m_said = EditorTranscript();
        for (int at = 0; at < lines; ++at)
            m_said.lines.push_back({.id = at,
                                    .speaker = "Mara",
                                    .text = "Line " + std::to_string(at),
                                    .witness = "w"});
        m_ledger.meeting.answer(m_said);
    }
    /// The line of this row has been deleted.
    Q_INVOKABLE void answerDelete(int row) {
        m_said = m_said.removing(row);
        m_ledger.meeting.answerDelete(EditorLineDeleteCase::Deleted{m_said});
    }
    Q_INVOKABLE void refuseDelete() {
        m_ledger.meeting.answerDelete(EditorLineDeleteCase::Failed{"gone"});
    }
    /// A window over a store that cannot give why and body, with a memory opened.
    Q_INVOKABLE wendlow::EditorRoot* withoutDetails() {
        auto& face = static_cast<MemoryFaceModel&>(m_scriptedRoot.model(EditorFace::memory));
        face.open("decision");
        while (m_scripted.page.isWaiting())
            m_scripted.page.settle(testing::memories(2));
        face.list()->toggle(0);
        while (m_scripted.page.detailWaits())
            m_scripted.page.answerDetail(std::nullopt);
        return &m_scriptedRoot;
    }

private:
    static bool pressable(QAccessibleInterface& face) {
        QAccessibleActionInterface* const actions = face.actionInterface();
        return actions &&
               actions->actionNames().contains(QAccessibleActionInterface::pressAction());
    }
    using Looking = std::function<bool(QAccessibleInterface&)>;
    /// The first thing in sight below that is the one looked for.
    static QAccessibleInterface* walk(QAccessibleInterface* face, const Looking& isIt) {
        for (int at = 0; face && at < face->childCount(); ++at) {
            QAccessibleInterface* const child = face->child(at);
            if (!child || child->state().invisible)
                continue;
            if (isIt(*child))
                return child;
            if (QAccessibleInterface* const inner = walk(child, isIt))
                return inner;
        }
        return nullptr;
    }
    static QAccessibleInterface* find(QQuickItem* item, const QString& name) {
        return walk(QAccessible::queryAccessibleInterface(item->window()), [&](auto& child) {
            return child.text(QAccessible::Name) == name && pressable(child);
        });
    }
    static void gatherIndents(const QQuickItem& item, QList<int>& all) {
        if (item.isVisible() && item.property("indent").isValid() &&
            item.property("keys").isValid())
            all.append(item.property("indent").toInt());
        for (const QQuickItem* const child : item.childItems())
            gatherIndents(*child, all);
    }

    testing::QmlWarnings m_warnings;
    EditorWorlds m_worlds{std::make_shared<testing::ScriptedClient>(), EditorWorld::powerUser};
    EditorHost m_host{m_worlds};
    EditorWorlds m_refused{std::make_shared<InProcessClient>(std::make_shared<RefusingGateway>()),
                           EditorWorld::realData};
    EditorHost m_refusedHost{m_refused};
    testing::ScriptedStore m_scripted;
    EditorRoot m_scriptedRoot{m_scripted};
    testing::ScriptedStore m_ledger;
    EditorRoot m_ledgerRoot{m_ledger};
    EditorTranscript m_said;
};

class Setup : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine* engine) {
        m_bench.listen(*engine);
        engine->setImportPathList(engine->importPathList() << u":/qt/qml"_s);
        QAccessible::setActive(true);
        m_bench.keep();
        engine->rootContext()->setContextProperty(u"bench"_s, &m_bench);
    }

private:
    Bench m_bench;
};

QUICK_TEST_MAIN_WITH_SETUP(WendlowEditor, Setup)

#include "Main.moc"
