#pragma once

#include "Live/EditorLink.h"
#include "Live/LiveTell.h"

namespace wendlow {

/// The daemon's mods. May go while its answers are under way; the link must outlive it.
class LiveMods final : public ModSource {
    Q_OBJECT

public:
    LiveMods(EditorLink& link, LiveTell tell);
    ~LiveMods() override { m_life.end(); }

    const std::optional<EditorModsBoard>& modsBoard() const override { return m_board; }
    bool modsLoaded() const override { return m_loaded; }
    std::optional<std::string> modsError() const override { return m_error; }
    void loadMods() override;

    /// A full load begins: what was read is old.
    void beginLoad() { m_loaded = false; }
    /// Reads what has been read before once more; what is shown stays meanwhile.
    void readAgain();

private:
    QCoro::Task<> read();

    EditorLink& m_link;
    const LiveTell m_tell;
    std::optional<EditorModsBoard> m_board;
    std::optional<std::string> m_error;
    bool m_loaded = false;
    bool m_reading = false;
    Lifetime m_life;
};

} // namespace wendlow
