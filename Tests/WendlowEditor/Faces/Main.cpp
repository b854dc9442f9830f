#include "Shell/EditorHost.h"
#include "Support/ScriptedClient.h"
#include "ThemeSource.h"

#include <QAccessible>
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

/// What the QML tests cannot reach by themselves.
class Bench : public QObject {
    Q_OBJECT
    Q_PROPERTY(wendlow::EditorHost* host READ host CONSTANT)

public:
    EditorHost* host() { return &m_host; }

    /// "dayZero", "someData" or "powerUser", from its beginning.
    Q_INVOKABLE void world(const QString& name) {
        m_worlds.switchWorld(EditorWorld::realData);
        for (const EditorWorld world : editorWorlds)
            if (const auto seed = seedWorld(world); seed && text(*seed) == name.toStdString())
                m_worlds.switchWorld(world);
    }
    Q_INVOKABLE void open(const QString& type) { m_host.root()->setOpenType(type.toStdString()); }
    Q_INVOKABLE QString openType() {
        return QString::fromStdString(m_host.root()->openType().value_or(""));
    }
    Q_INVOKABLE QString face() {
        return QString::fromUtf8(EditorFaces::text(m_host.root()->face()));
    }

    /// Everything in sight that a screen reader finds in an item's window: role and name of each, a
    /// line each. What it may press is marked with a star.
    Q_INVOKABLE static QStringList spoken(QQuickItem* item) {
        QStringList lines;
        if (QAccessibleInterface* const face =
                QAccessible::queryAccessibleInterface(item->window()))
            gather(*face, lines);
        return lines;
    }
    /// Presses the thing of this name as a screen reader does.
    Q_INVOKABLE static bool press(QQuickItem* item, const QString& name) {
        QAccessibleInterface* const found =
            find(QAccessible::queryAccessibleInterface(item->window()), name);
        if (!found || !found->actionInterface())
            return false;
        found->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        return true;
    }

private:
    static bool pressable(QAccessibleInterface& face) {
        QAccessibleActionInterface* const actions = face.actionInterface();
        return actions &&
               actions->actionNames().contains(QAccessibleActionInterface::pressAction());
    }
    static QString role(QAccessible::Role role) {
        return QString::fromUtf8(QMetaEnum::fromType<QAccessible::Role>().valueToKey(role));
    }
    static void gather(QAccessibleInterface& face, QStringList& lines) {
        for (int at = 0; at < face.childCount(); ++at) {
            QAccessibleInterface* const child = face.child(at);
            if (!child || child->state().invisible)
                continue;
            lines.append(role(child->role()) + u' ' + child->text(QAccessible::Name) +
                         (pressable(*child) ? u"*"_s : QString()));
            gather(*child, lines);
        }
    }
    static QAccessibleInterface* find(QAccessibleInterface* face, const QString& name) {
        for (int at = 0; face && at < face->childCount(); ++at) {
            QAccessibleInterface* const child = face->child(at);
            if (!child || child->state().invisible)
                continue;
            if (child->text(QAccessible::Name) == name && pressable(*child))
                return child;
            if (QAccessibleInterface* const inner = find(child, name))
                return inner;
        }
        return nullptr;
    }

    EditorWorlds m_worlds{std::make_shared<testing::ScriptedClient>(), EditorWorld::powerUser};
    EditorHost m_host{m_worlds};
};

class Setup : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine* engine) {
        engine->setImportPathList(engine->importPathList() << u":/qt/qml"_s);
        QAccessible::setActive(true);
        engine->rootContext()->setContextProperty(u"bench"_s, &m_bench);
    }

private:
    Bench m_bench;
};

QUICK_TEST_MAIN_WITH_SETUP(WendlowEditor, Setup)

#include "Main.moc"
