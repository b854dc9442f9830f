#pragma once

#include "Shell/EditorHost.h"
#include "SilentGateway.h"

#include <QQuickItem>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace wendlow {

/// The states of the Editor's window, for pictures: those that its faces hand over, in the made-up
/// worlds and over a daemon that is slow, still building its index, or refuses; and the window's
/// own. UI thread.
class EditorSnapshots final {
public:
    enum class Focus { away, kept };

    /// Called when the window stands in a state; is to save the picture, with the focus where it is
    /// or without a sign of it.
    using Save = std::function<void(const QString& name, Focus focus)>;

    /// `content` is what the Editor's window shows, and `host` what that is over.
    EditorSnapshots(QQuickItem& content, EditorHost& host, EditorWorlds& worlds, Save save);
    ~EditorSnapshots();
    EditorSnapshots(const EditorSnapshots&) = delete;
    EditorSnapshots& operator=(const EditorSnapshots&) = delete;

    /// Takes them all, and leaves the window in the world that it was in.
    void take();

    /// Takes the states that look different in a narrow or a wide window, or with larger words;
    /// `suffix` ends their names.
    void takeSome(const QString& suffix);

private:
    using World = FacePicture::World;

    EditorRoot& root() { return *m_host.root(); }
    void save(const char* state, Focus focus = Focus::away);
    void takeDaemon(World world, std::shared_ptr<Gateway> gateway);
    /// The pictures that the faces have of a world, which the root is over.
    void takeFaces(EditorRoot& root, World world);
    void takeScopes();
    void takeSearch();
    void type(const QString& text);

    QQuickItem& m_content;
    EditorHost& m_host;
    EditorWorlds& m_worlds;
    const Save m_save;
    QString m_suffix; ///< empty: all states
    const std::shared_ptr<SilentGateway> m_silent = std::make_shared<SilentGateway>();
    // Faces look at these for a while after others have taken their place.
    std::vector<std::unique_ptr<EditorWorlds>> m_daemons;
    std::vector<std::unique_ptr<EditorHost>> m_hosts;
};

} // namespace wendlow
