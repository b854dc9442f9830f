#include "Scopes/ScopesFaceModel.h"

#include "Floor/EditorWords.h"
#include "Floor/FlatScopes.h"
#include "Floor/RowText.h"
#include "Say.h"
#include "Scopes/EditorScopePaths.h"

#include <QCoroFuture>
#include <QDesktopServices>
#include <QFileInfo>
#include <QFuture>
#include <qtconcurrentrun.h>

#include <utility>

namespace wendlow {

ScopesFaceModel::ScopesFaceModel(ScopeSource& scopes, FaceActions actions, MakePlace place)
    : m_scopes(scopes), m_actions(std::move(actions)), m_place(std::move(place)), m_sheet(scopes) {
    connect(&m_scopes, &ScopeSource::changed, this, &ScopesFaceModel::boardChanged);
    connect(&m_sheet, &ScopeSheetModel::openChanged, this, &FaceModel::modalChanged);
    connect(&m_sheet, &ScopeSheetModel::scriptWanted, this, &ScopesFaceModel::writeScript);
    connect(&m_sheet, &ScopeSheetModel::mapped, this,
            [this](const std::string& path, const EditorWriteOutcome& outcome) {
                m_outcome = outcome;
                if (outcome.ok())
                    selectPath(path);
                Q_EMIT changed();
            });
    boardChanged();
}

QUrl ScopesFaceModel::page() const {
    return QUrl(QStringLiteral("qrc:/qt/qml/WendlowEditorScopes/ScopesFace.qml"));
}

void ScopesFaceModel::boardChanged() {
    m_isBehind = true;
    m_count = m_scopes.boardRead() ? std::optional(FlatScopes::count(m_scopes.rootScope()))
                                   : std::nullopt;
    if (isOpen())
        follow();
}

/// A face that nobody looks at makes no rows.
void ScopesFaceModel::follow() {
    if (!std::exchange(m_isBehind, false))
        return;
    take(m_scopes.scopeBoard(), m_scopes.boardRead());
    m_sheet.followBoard();
}

void ScopesFaceModel::take(std::vector<EditorScopeRow> board, bool read) {
    m_read = read;
    m_rows.show(EditorScopeBoard::directoryOrdered(std::move(board)));
    if (m_selected && m_rows.indexOf(*m_selected) < 0)
        m_selected.reset();
    // The row has another index where rows came before it.
    Q_EMIT selectedChanged();
    Q_EMIT changed();
}

void ScopesFaceModel::show(const FaceView& view) {
    m_state = view.answer->state;
    if (isOpen())
        follow();
    Q_EMIT changed();
}

void ScopesFaceModel::appear(EditorAsk& /*ask*/) {
    follow();
}

void ScopesFaceModel::leave(EditorAsk& /*ask*/) {
    m_outcome.reset();
    m_script.reset();
    m_folderFault.clear();
    Q_EMIT changed();
}

bool ScopesFaceModel::back() {
    const bool open = m_sheet.isOpen();
    m_sheet.cancel();
    return open;
}

void ScopesFaceModel::reveal(const FoundHit& found, EditorAsk& /*ask*/) {
    if (const auto* const scope = std::get_if<SearchDestination::Scope>(&found.hit.destination))
        selectPath(scope->path);
}

void ScopesFaceModel::select(int index) {
    const int before = selected();
    if (index == before)
        return;
    m_selected = m_rows.holds(index) ? std::optional(m_rows.row(index).id) : std::nullopt;
    Q_EMIT selectedChanged();
}

void ScopesFaceModel::selectPath(const std::string& path) {
    const int at = m_rows.indexOf(path);
    if (at < 0)
        return;
    select(at);
    Q_EMIT revealed(at);
}

template<class Sheet> void ScopesFaceModel::begin() {
    const int at = selected();
    if (at >= 0)
        m_sheet.begin(Sheet{m_rows.row(at).scope.path});
}

void ScopesFaceModel::mapFolder() {
    begin<ScopeSheet::MapFolder>();
}

void ScopesFaceModel::rename() {
    begin<ScopeSheet::Rename>();
}

void ScopesFaceModel::retire() {
    begin<ScopeSheet::Retire>();
}

void ScopesFaceModel::newScope() {
    m_sheet.begin(ScopeSheet::NewScope{});
}

void ScopesFaceModel::writeScript(const EditorScopeMigration& migration) {
    m_outcome.reset();
    m_script.reset();
    m_folderFault.clear();
    m_sheet.setWriting(true);
    Q_EMIT changed();
    // Runs on by itself, and ends by itself where this goes.
    [[maybe_unused]] const auto task = write(migration);
}

QCoro::Task<> ScopesFaceModel::write(EditorScopeMigration migration) {
    const Lifetime::Watch life = m_life.watch();
    // A disk may take its time, and a board of thousands is a long text.
    QFuture<EditorWriteOutcome> writing =
        QtConcurrent::run([migration = std::move(migration), place = m_place,
                           date = EditorMigrationWriter::today(m_actions.today())] {
            return EditorMigrationWriter::write(migration, date, place());
        });
    EditorWriteOutcome outcome = co_await writing;
    if (life.expired())
        co_return;
    m_script = std::move(outcome);
    m_sheet.setWriting(false);
    Q_EMIT changed();
}

void ScopesFaceModel::openFolder() {
    const QString folder = QFileInfo(scriptPath()).path();
    const bool opened = QDesktopServices::openUrl(QUrl::fromLocalFile(folder));
    m_folderFault = opened ? QString()
                           : RowText::plain(say("No program here opens a folder. It is {}.",
                                                folder.toStdString()));
    Q_EMIT changed();
}

QString ScopesFaceModel::intro() {
    return RowText::plain(
        say("Every scope Wendlow knows, with what is filed there and which folders point at it."));
}

QString ScopesFaceModel::emptyWords() const {
    if (m_rows.rowCount() > 0 || !strip().isEmpty())
        return {};
    return RowText::plain(m_read ? say("No scopes yet. A scope comes into being when a folder maps "
                                       "to it or a memory is filed at it.")
                                 : say("Reading your scopes…"));
}

bool ScopesFaceModel::isReading() const {
    return !m_read;
}

/// A search that is not ready keeps nothing from a board that has been read.
QString ScopesFaceModel::strip() const {
    const EditorWords::Strip words = EditorWords::strip(m_state);
    return words.warns || !m_read ? words.words : QString();
}

bool ScopesFaceModel::stripWarns() const {
    return EditorWords::strip(m_state).warns;
}

QString ScopesFaceModel::outcome() const {
    return m_outcome ? RowText::plain(m_outcome->words) : QString();
}

QString ScopesFaceModel::script() const {
    if (!m_script)
        return {};
    if (!m_script->ok())
        return RowText::plain(m_script->words);
    return RowText::plain(say("Migration script written to {}. Read it, then run it — the Editor "
                              "never performs a scope move itself.",
                              m_script->words));
}

QString ScopesFaceModel::scriptPath() const {
    return m_script && m_script->ok() ? RowText::plain(m_script->words) : QString();
}

} // namespace wendlow

#include "moc_ScopesFaceModel.cpp"
