#pragma once

#include "Live/EditorLink.h"
#include "Live/LiveTell.h"

#include <expected>

namespace wendlow {

/// The daemon's scopes. May go while its answers are under way; the link must outlive it.
class LiveScopes final : public ScopeSource {
    Q_OBJECT

public:
    struct Board {
        EditorScope tree;
        std::vector<EditorScopeRow> rows;
    };
    /// What was read, or the words for why not.
    using Reading = std::expected<Board, std::string>;

    LiveScopes(EditorLink& link, LiveTell tell);
    ~LiveScopes() override { m_life.end(); }

    const EditorScope& rootScope() const override { return m_root; }
    const std::vector<EditorScopeRow>& scopeBoard() const override { return m_board; }
    bool boardRead() const override { return m_boardRead; }
    QCoro::Task<EditorWriteOutcome> mapFolder(std::string folder, std::string path) override;

    /// Reads and shows nothing yet.
    QCoro::Task<Reading> read();
    /// Shows what was read, and tells nobody.
    void show(Board board);
    /// Reads and shows the board. Where that fails, what was there stays.
    QCoro::Task<> reload();

private:
    EditorLink& m_link;
    const LiveTell m_tell;
    EditorScope m_root = EditorScope::root();
    std::vector<EditorScopeRow> m_board;
    bool m_boardRead = false;
    Lifetime m_life;
};

} // namespace wendlow
