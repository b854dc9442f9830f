#include "Scopes/ScopeSheetModel.h"

#include "Floor/RowText.h"
#include "Overloaded.h"
#include "Say.h"
#include "Scopes/EditorScopePaths.h"
#include "Scopes/ScopeFields.h"

#include <utility>

namespace wendlow {

std::string ScopeSheet::id(const Any& sheet) {
    return std::visit(Overloaded{[](const MapFolder& map) { return "map:" + map.scope; },
                                 [](const Rename& rename) { return "rename:" + rename.scope; },
                                 [](const Retire& retire) { return "retire:" + retire.scope; },
                                 [](const NewScope& /*none*/) { return std::string("new"); }},
                      sheet);
}

void ScopeSheetModel::begin(ScopeSheet::Any sheet) {
    if (m_open)
        return;
    ++m_session;
    m_sheet = std::move(sheet);
    const auto* const retire = std::get_if<ScopeSheet::Retire>(&m_sheet);
    m_path = RowText::plain(retire != nullptr ? EditorScopePaths::parent(retire->scope) : scope());
    m_folder.clear();
    m_busy = false;
    m_refusal.clear();
    m_moves.show(migration());
    judge();
    setOpen(true);
}

void ScopeSheetModel::cancel() {
    setOpen(false);
}

void ScopeSheetModel::setOpen(bool open) {
    if (std::exchange(m_open, open) != open)
        Q_EMIT openChanged();
}

void ScopeSheetModel::followBoard() {
    if (!m_open || !m_moves.migration())
        return;
    if (auto now = migration(); now != m_moves.migration())
        m_moves.show(std::move(now));
    judge();
}

void ScopeSheetModel::setWriting(bool writing) {
    m_writing = writing;
    Q_EMIT changed();
}

const std::string& ScopeSheetModel::scope() const {
    static const std::string none;
    return std::visit(
        Overloaded{[](const ScopeSheet::NewScope& /*none*/) -> const std::string& { return none; },
                   [](const auto& of) -> const std::string& { return of.scope; }},
        m_sheet);
}

std::optional<EditorScopeMigration> ScopeSheetModel::migration() const {
    const auto& board = m_scopes.scopeBoard();
    const std::string to = m_path.toStdString();
    if (std::holds_alternative<ScopeSheet::Rename>(m_sheet))
        return EditorScopeMigration::rename(board, scope(), to);
    if (std::holds_alternative<ScopeSheet::Retire>(m_sheet))
        return EditorScopeMigration::retire(board, scope(), to);
    return std::nullopt;
}

/// Looks at what is in the fields, and says what becomes of it.
void ScopeSheetModel::judge() {
    const std::string path = m_path.toStdString();
    m_folderFault =
        mapsFolder() ? ScopeFields::faultOfFolder(m_folder.toStdString()) : std::string();
    m_pathFault =
        std::visit(Overloaded{[](const ScopeSheet::MapFolder& /*map*/) { return std::string(); },
                              [&](const ScopeSheet::NewScope& /*none*/) {
                                  return ScopeFields::faultOfScope(path);
                              },
                              [&](const ScopeSheet::Rename& of) {
                                  return ScopeFields::faultOfRename(of.scope, path);
                              },
                              [&](const ScopeSheet::Retire& of) {
                                  return ScopeFields::faultOfRetire(of.scope, path);
                              }},
                   m_sheet);
    const auto& move = m_moves.migration();
    if (move && move->affected.empty())
        m_pathFault = say("This scope isn’t there any more.");
    m_summary = move && !m_path.isEmpty() ? RowText::plain(move->summary()) : QString();
    Q_EMIT changed();
}

void ScopeSheetModel::setPath(const QString& path) {
    if (std::exchange(m_path, path) == path)
        return;
    m_moves.redirect(path.toStdString());
    judge();
}

void ScopeSheetModel::setFolder(const QString& folder) {
    if (std::exchange(m_folder, folder) != folder)
        judge();
}

bool ScopeSheetModel::canCommit() const {
    return m_pathFault.empty() && m_folderFault.empty();
}

void ScopeSheetModel::commit() {
    if (!m_open || isBusy() || !canCommit())
        return;
    if (const auto& move = m_moves.migration()) {
        const EditorScopeMigration wanted = *move;
        setOpen(false);
        Q_EMIT scriptWanted(wanted);
        return;
    }
    m_busy = true;
    m_refusal.clear();
    Q_EMIT changed();
    // Runs on by itself, and ends by itself where this goes.
    [[maybe_unused]] const auto task = map(m_folder.toStdString(), m_path.toStdString());
}

QCoro::Task<> ScopeSheetModel::map(std::string folder, std::string path) {
    const Lifetime::Watch life = m_life.watch();
    const std::uint64_t session = m_session;
    const EditorWriteOutcome outcome = co_await m_scopes.mapFolder(std::move(folder), path);
    if (life.expired())
        co_return;
    const bool here = m_open && session == m_session;
    if (here) {
        m_busy = false;
        if (!outcome.ok())
            m_refusal = RowText::plain(outcome.words);
        Q_EMIT changed();
    }
    if (here && !outcome.ok())
        co_return;
    if (here)
        setOpen(false);
    Q_EMIT mapped(path, outcome);
}

QString ScopeSheetModel::title() const {
    const std::string of = RowText::line(scope()).toStdString();
    return RowText::plain(std::visit(
        Overloaded{
            [&](const ScopeSheet::MapFolder& /*map*/) { return say("Map a folder to {}", of); },
            [&](const ScopeSheet::Rename& /*rename*/) { return say("Rename {}", of); },
            [&](const ScopeSheet::Retire& /*retire*/) { return say("Retire {}", of); },
            [](const ScopeSheet::NewScope& /*none*/) { return say("New scope"); }},
        m_sheet));
}

QString ScopeSheetModel::text() const {
    if (std::holds_alternative<ScopeSheet::NewScope>(m_sheet))
        return RowText::plain(
            say("A scope exists once something points at it. Name the path and the folder that "
                "maps to it; Wendlow files memories from that folder here from now on."));
    if (const auto* const map = std::get_if<ScopeSheet::MapFolder>(&m_sheet))
        return RowText::plain(say("Work done in this folder files its memories at {}.",
                                  RowText::line(map->scope).toStdString()));
    return {};
}

QString ScopeSheetModel::pathLabel() const {
    return RowText::plain(std::visit(
        Overloaded{[](const ScopeSheet::MapFolder& /*map*/) { return std::string(); },
                   [](const ScopeSheet::Rename& /*rename*/) { return say("New path"); },
                   [](const ScopeSheet::Retire& /*retire*/) { return say("Move its contents to"); },
                   [](const ScopeSheet::NewScope& /*none*/) { return say("Scope path"); }},
        m_sheet));
}

bool ScopeSheetModel::mapsFolder() const {
    return std::holds_alternative<ScopeSheet::MapFolder>(m_sheet) ||
           std::holds_alternative<ScopeSheet::NewScope>(m_sheet);
}

QString ScopeSheetModel::commitLabel() const {
    return RowText::plain(mapsFolder() ? say("Map folder") : say("Write migration script"));
}

QString ScopeSheetModel::fault() const {
    return RowText::line(m_pathFault.empty() ? m_folderFault : m_pathFault);
}

} // namespace wendlow

#include "moc_ScopeSheetModel.cpp"
