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
    /// A picture is taken: what is made up is not marked, and the focus may be nowhere.
    Q_PROPERTY(bool posing READ isPosing NOTIFY rootChanged)
    /// What is shown is made up, and is to be marked so.
    Q_PROPERTY(bool madeUp READ isMadeUp NOTIFY rootChanged)

public:
    explicit EditorHost(EditorWorlds& worlds, EditorClocks clocks = {});
    ~EditorHost() override;

    EditorRoot* root() const { return m_root.get(); }
    bool isMadeUp() const;
    bool isPosing() const { return m_posing; }
    void setPosing(bool posing);
    Q_INVOKABLE void backToRealData();

Q_SIGNALS:
    void rootChanged();

private:
    void renew();
    void letGo();

    EditorWorlds& m_worlds;
    const EditorClocks m_clocks;
    bool m_posing = false;
    std::vector<std::unique_ptr<EditorRoot>> m_before; ///< that are still looked at
    std::unique_ptr<EditorRoot> m_root;
};

} // namespace wendlow
