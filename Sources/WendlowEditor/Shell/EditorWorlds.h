#pragma once

#include "Live/EditorLiveStore.h"
#include "Seeded/SeededStore.h"

#include <memory>

#include <QObject>

namespace wendlow {

/// Which of the Editor's worlds is in force, and the stores behind them, both of which exist from
/// the start. UI thread.
class EditorWorlds final : public QObject {
    Q_OBJECT

public:
    /// Begins to read the real data where that is the world.
    EditorWorlds(std::shared_ptr<WendlowClient> client, EditorWorld world,
                 EditorLiveStore::Note note = {});

    EditorWorld world() const { return m_world; }
    /// The store of the world in force.
    EditorStore& store();
    SeededStore& seeded() { return m_seeded; }
    EditorLiveStore& live() { return m_live; }

    void switchWorld(EditorWorld world);
    /// Reads the current world afresh.
    void resetWorld();
    /// There is a daemon again: what the one before could not answer is asked anew.
    void daemonCame();

Q_SIGNALS:
    void worldChanged();

private:
    void startLoading();

    EditorWorld m_world;
    SeededStore m_seeded;
    EditorLiveStore m_live;
};

} // namespace wendlow
