#include "Mods/ModsPage.h"

#include "Mods/EditorModsFormat.h"
#include "Say.h"

#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

using Kind = ModsRow::Kind;

/// Writes the rows in their order. A row keeps its id as long as it speaks of the same thing, so
/// that it keeps its place and its focus when the board is read again.
class Writer {
public:
    explicit Writer(const EditorModsBoard& board) : m_board(board) {}

    std::vector<ModsRow> written() {
        for (const EditorInstalledMod& mod : m_board.mods)
            card(mod);
        rejections();
        orphans();
        return std::move(m_rows);
    }

private:
    ModsRow& add(Kind kind, std::string id, std::string text) {
        return m_rows.emplace_back(
            ModsRow{.id = std::move(id), .kind = kind, .text = std::move(text)});
    }

    void card(const EditorInstalledMod& mod) {
        const auto begin = m_rows.size();
        const std::string id = fmt::format("mod/{}/{}", mod.scope, mod.slug);
        ModsRow& head = add(Kind::head, id, mod.slug);
        head.beside = mod.scope;
        head.under = mod.hint;
        head.trailing = say("rev {}", mod.rev);
        part([&] {
            for (const auto& [path, rev] : mod.filesWithRevs())
                add(Kind::file, fmt::format("{}/file/{}", id, path), path).trailing =
                    say("rev {}", rev);
        });
        part([&] {
            for (const EditorModBehavior& behavior : mod.behaviors) {
                ModsRow& row = add(Kind::behavior, fmt::format("{}/does/{}", id, behavior.name),
                                   behavior.name);
                row.beside = behavior.trigger;
                row.under = behavior.powers();
                row.trailing = behavior.laneState.value_or("");
            }
        });
        part([&] {
            log(m_board.runsOf(mod.slug), id, false);
            if (m_rows.back().kind != Kind::run)
                add(Kind::note, id + "/none",
                    say("No runs banked yet — nothing has fired on this Mac."));
        });
        frame(begin);
    }

    void log(const std::vector<EditorModRun>& runs, const std::string& of, bool withLane) {
        for (const EditorModRun& run : runs) {
            ModsRow& row = add(Kind::run,
                               fmt::format("{}/run/{}/{}", of, run.lane(),
                                           run.startedAt.time_since_epoch().count()),
                               EditorModsFormat::when(run.startedAt));
            row.beside = withLane ? run.lane() : std::string();
            row.trailing = EditorModsFormat::turns(run.turns);
            row.run = run;
        }
    }

    void rejections() {
        if (m_board.rejected.empty())
            return;
        add(Kind::section, "section/refused", say("Refused"));
        const auto begin = m_rows.size();
        for (const EditorModRejection& rejection : m_board.rejected) {
            ModsRow& row = add(Kind::rejection, "refused/" + rejection.id(), rejection.label());
            row.beside = rejection.scope;
            row.under = rejection.reason;
        }
        frame(begin);
    }

    void orphans() {
        const std::vector<EditorModRun> runs = m_board.orphanRuns();
        if (runs.empty())
            return;
        add(Kind::section, "section/orphans", say("Runs of mods no longer installed")).under = say(
            "A receipt outlives the mod that earned it — these ran, and the ledger keeps them.");
        const auto begin = m_rows.size();
        log(runs, "orphans", true);
        frame(begin);
    }

    /// What `write` adds is a part of the card.
    template<class Write> void part(const Write& write) {
        const auto begin = m_rows.size();
        write();
        if (begin < m_rows.size())
            m_rows[begin].parts = true;
    }

    /// The rows from here on stand on one card.
    void frame(std::size_t begin) {
        m_rows[begin].first = true;
        m_rows.back().last = true;
    }

    const EditorModsBoard& m_board;
    std::vector<ModsRow> m_rows;
};

} // namespace

std::vector<ModsRow> ModsPage::rows(const EditorModsBoard& board) {
    return Writer(board).written();
}

std::optional<std::string> ModsPage::emptyLine(const std::optional<EditorModsBoard>& board,
                                               bool loaded,
                                               const std::optional<std::string>& error) {
    if (error)
        return error;
    if (board)
        return board->isEmpty()
                   ? std::optional<std::string>(
                         say("No mods installed. A mod is a memory of type mod — a data spine plus "
                             "named behaviors — filed at the scope it works in."))
                   : std::nullopt;
    return loaded ? say("This world models no mods. Switch to your real data to see the registry.")
                  : say("Reading your mods…");
}

} // namespace wendlow
