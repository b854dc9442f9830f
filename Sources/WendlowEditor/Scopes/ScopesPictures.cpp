#include "Scopes/ScopesFaceModel.h"

#include "Scopes/EditorScopePaths.h"

#include <fmt/format.h>

namespace wendlow {

namespace {

using World = FacePicture::World;
using Widths = FacePicture::Widths;
using Board = std::vector<EditorScopeRow>;

constexpr const char* moved = "/work/harbour";

/// With scopes of all depths, with no folder and with many.
Board deepened(Board board) {
    EditorScopeRow cranes{
        .path = "/work/harbour/cranes",
        .kinds = {{.name = "decision", .count = 1}, {.name = "rule", .count = 4}}};
    for (const char* const folder : {"north", "south", "east", "west", "spare", "old"})
        cranes.folders.push_back(fmt::format("/home/me/work/cranes/{}", folder));
    EditorScopeRow north{.path = "/work/harbour/cranes/north",
                         .kinds = {{.name = "ticket", .count = 12}}};
    board.push_back(cranes);
    board.push_back(north);
    return board;
}

/// As many as nobody has.
Board crowded() {
    Board board;
    for (int number = 0; number < 5000; ++number)
        board.push_back({.path = fmt::format("/work/harbour/berth-{:04}", number),
                         .folders = {fmt::format("/home/me/berths/{:04}", number)},
                         .kinds = {{.name = "note", .count = number % 9 + 1}}});
    board.push_back({.path = moved});
    return board;
}

} // namespace

/// The made-up worlds can neither map a folder nor are they to write a script, so that what comes
/// of either is put in place.
FacePictures ScopesFaceModel::pictures() {
    const auto show = [this](const Board& board) {
        take(board, true);
        select(m_rows.indexOf(moved));
    };
    const auto moving = [this](const ScopeSheet::Any& sheet, const char* path) {
        return [this, sheet, path] {
            m_sheet.begin(sheet);
            m_sheet.setPath(QString::fromUtf8(path));
        };
    };
    const auto folder = [this](const char* path) {
        return [this, path] {
            m_sheet.cancel();
            mapFolder();
            m_sheet.setFolder(QString::fromUtf8(path));
        };
    };
    const auto ended = [this](const EditorWriteOutcome& outcome) {
        return [this, outcome] {
            m_script = outcome;
            Q_EMIT changed();
        };
    };
    const auto close = [this] { m_sheet.cancel(); };
    const auto clear = [this] {
        m_script.reset();
        m_outcome.reset();
        Q_EMIT changed();
    };

    FacePictures pictures;
    pictures.push_back({.name = "scopes-pending", .world = World::silent});
    pictures.push_back({.name = "scopes-failed", .world = World::refusing});
    pictures.push_back(
        {.name = "scopes-empty", .world = World::empty, .stand = [this] { take({}, true); }});
    pictures.push_back({.name = "scopes-rows", .widths = Widths::every, .stand = [this] {
                            take(deepened(m_scopes.scopeBoard()), true);
                            select(-1);
                        }});
    pictures.push_back({.name = "scopes-selected", .widths = Widths::every, .stand = [this, show] {
                            show(deepened(m_scopes.scopeBoard()));
                        }});
    pictures.push_back({.name = "scopes-written",
                        .widths = Widths::every,
                        .stand = ended(EditorWriteOutcome::wrote(
                            "/home/me/.wendlow/migrations/"
                            "migrate-scope-rename-work-harbour-2026-11-19.py")),
                        .leave = clear});
    pictures.push_back({.name = "scopes-unwritten",
                        .stand = ended(EditorWriteOutcome::refused(
                            "a name in this move holds a line break or another control character, "
                            "so no script was written")),
                        .leave = clear});
    pictures.push_back({.name = "scopes-mapped",
                        .stand =
                            [this] {
                                m_outcome = EditorWriteOutcome::wrote(
                                    "/home/me/work/pier maps to /work/harbour.");
                                Q_EMIT changed();
                            },
                        .leave = clear});
    pictures.push_back({.name = "scopes-map", .stand = folder("")});
    pictures.push_back({.name = "scopes-map-fault", .stand = folder("work/pier")});
    pictures.push_back({.name = "scopes-map-refused",
                        .stand =
                            [this, folder] {
                                folder("/home/me/work/pier")();
                                m_sheet.commit();
                            },
                        .leave = close});
    pictures.push_back({.name = "scopes-new",
                        .stand = moving(ScopeSheet::NewScope{}, "/work/pier"),
                        .leave = close});
    pictures.push_back({.name = "scopes-rename",
                        .widths = Widths::every,
                        .stand = moving(ScopeSheet::Rename{"/work"}, "/projects"),
                        .leave = close});
    pictures.push_back({.name = "scopes-rename-fault",
                        .stand = moving(ScopeSheet::Rename{"/work"}, "projects"),
                        .leave = close});
    pictures.push_back({.name = "scopes-retire",
                        .stand = moving(ScopeSheet::Retire{"/work"}, "/"),
                        .leave = close});
    pictures.push_back({.name = "scopes-retire-fault",
                        .stand = moving(ScopeSheet::Retire{"/work"}, "/work/harbour"),
                        .leave = close});
    pictures.push_back({.name = "scopes-many", .stand = [show] { show(crowded()); }});
    pictures.push_back({.name = "scopes-rename-many",
                        .stand =
                            [this] {
                                m_sheet.begin(ScopeSheet::Rename{moved});
                                m_sheet.moves()->show(
                                    EditorScopeMigration::rename(crowded(), moved, "/work/port"));
                                m_sheet.setPath(QStringLiteral("/work/quay"));
                            },
                        .leave =
                            [this, close, show] {
                                close();
                                show(m_scopes.scopeBoard());
                            }});
    return pictures;
}

} // namespace wendlow
