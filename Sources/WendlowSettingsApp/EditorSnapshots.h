#pragma once

#include "Shell/EditorHost.h"

#include <QQuickItem>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace wendlow {

/// The states of the Editor's window, for pictures: those of the made-up worlds, and those of a
/// daemon that is slow, still building its index, or refuses. UI thread.
class EditorSnapshots final {
public:
    /// Called when the window stands in a state; is to save the picture.
    using Save = std::function<void(const QString& name)>;

    /// `content` is what the Editor's window shows, and `host` what that is over.
    EditorSnapshots(QQuickItem& content, EditorHost& host, EditorWorlds& worlds, Save save);

    /// Takes them all, and leaves the window in the world that it was in.
    void take();

private:
    EditorRoot& root() { return *m_host.root(); }
    void takeMemories();
    void takeSearch();
    void takeDaemon(const QString& name, std::shared_ptr<Gateway> gateway);

    QQuickItem& m_content;
    EditorHost& m_host;
    EditorWorlds& m_worlds;
    const Save m_save;
    // Faces look at these for a while after others have taken their place.
    std::vector<std::unique_ptr<EditorWorlds>> m_daemons;
    std::vector<std::unique_ptr<EditorHost>> m_hosts;
};

} // namespace wendlow
