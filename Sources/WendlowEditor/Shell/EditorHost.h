#pragma once

#include "Shell/EditorRoot.h"
#include "Shell/EditorWorlds.h"

#include <memory>
#include <vector>

namespace wendlow {

/// What the Editor's window shows: a root over the store of the world in force, a new one for each
/// world. The one before stays as long as a view of it is there. UI thread; the worlds must outlive
/// it.
class EditorHost final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application makes the host and hands it to the window.")
    Q_PROPERTY(wendlow::EditorRoot* root READ root NOTIFY rootChanged)

public:
    explicit EditorHost(EditorWorlds& worlds, EditorClocks clocks = {});
    ~EditorHost() override;

    EditorRoot* root() const { return m_root.get(); }

Q_SIGNALS:
    void rootChanged();

private:
    void renew();
    void letGo();

    EditorWorlds& m_worlds;
    const EditorClocks m_clocks;
    std::vector<std::unique_ptr<EditorRoot>> m_before; ///< that are still looked at
    std::unique_ptr<EditorRoot> m_root;
};

} // namespace wendlow
