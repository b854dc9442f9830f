#include "Mods/ModsFaceModel.h"

#include "Floor/RowText.h"
#include "Mods/EditorModsFormat.h"
#include "Say.h"

#include <utility>

namespace wendlow {

ModsFaceModel::ModsFaceModel(ModSource& mods) : m_mods(mods) {
    connect(&m_mods, &ModSource::changed, this, &ModsFaceModel::take);
    take();
}

QUrl ModsFaceModel::page() const {
    return QUrl(QStringLiteral("qrc:/qt/qml/WendlowEditorMods/ModsFace.qml"));
}

void ModsFaceModel::take() {
    Shown now;
    now.board = m_mods.modsBoard();
    now.loaded = m_mods.modsLoaded();
    now.error = m_mods.modsError();
    showBoard(std::move(now));
}

void ModsFaceModel::showBoard(Shown shown) {
    m_shown = std::move(shown);
    m_rows.show(m_shown.board ? ModsPage::rows(*m_shown.board) : std::vector<ModsRow>());
    Q_EMIT changed();
    serveReveal();
}

void ModsFaceModel::show(const FaceView& view) {
    const auto* const failed = std::get_if<EditorAnswerStateCase::Failed>(&view.answer->state);
    auto error = failed != nullptr ? std::optional(failed->words) : std::nullopt;
    if (std::exchange(m_storeError, std::move(error)) != m_storeError)
        Q_EMIT changed();
    if (std::exchange(m_generation, view.generation) != view.generation && isOpen())
        m_mods.loadMods();
}

void ModsFaceModel::appear(EditorAsk& /*ask*/) {
    m_mods.loadMods();
}

void ModsFaceModel::leave(EditorAsk& /*ask*/) {
    closeReport();
    m_wanted.reset();
}

bool ModsFaceModel::back() {
    const bool wasOpen = m_isReportOpen;
    closeReport();
    return wasOpen;
}

void ModsFaceModel::reveal(const FoundHit& found, EditorAsk& /*ask*/) {
    if (const auto* const mod = std::get_if<SearchDestination::Mod>(&found.hit.destination))
        m_wanted = *mod;
    serveReveal();
}

void ModsFaceModel::serveReveal() {
    const int row = m_wanted ? m_rows.indexOfMod(m_wanted->scope, m_wanted->slug) : -1;
    if (row < 0)
        return;
    m_wanted.reset();
    Q_EMIT revealed(row);
}

std::optional<std::int64_t> ModsFaceModel::railCount() const {
    const auto& board = m_mods.modsBoard();
    return board ? std::optional<std::int64_t>(std::ssize(board->mods)) : std::nullopt;
}

QString ModsFaceModel::emptyWords() const {
    if (!trouble().isEmpty())
        return {};
    return RowText::plain(ModsPage::emptyLine(m_shown.board, m_shown.loaded, {}).value_or(""));
}

QString ModsFaceModel::trouble() const {
    // A store that has given up reads no mods either.
    const auto& error = m_shown.error || m_shown.board ? m_shown.error : m_storeError;
    return error ? RowText::plain(*error) : QString();
}

void ModsFaceModel::activate(int row) {
    if (!m_rows.holds(row) || !m_rows.row(row).opens())
        return;
    m_report = *m_rows.row(row).run;
    Q_EMIT reportChanged();
    if (!std::exchange(m_isReportOpen, true))
        Q_EMIT modalChanged();
}

void ModsFaceModel::closeReport() {
    if (std::exchange(m_isReportOpen, false))
        Q_EMIT modalChanged();
}

QString ModsFaceModel::reportTitle() const {
    return RowText::plain(EditorModsFormat::when(m_report.startedAt));
}

QString ModsFaceModel::reportOutcome() const {
    return RowText::line(m_report.outcome.words());
}

QString ModsFaceModel::reportFacts() const {
    std::string facts = EditorModsFormat::duration(m_report.seconds());
    if (m_report.turns)
        facts += " · " + EditorModsFormat::turns(m_report.turns);
    if (m_report.mutations)
        facts += " · " + say.plural(*m_report.mutations, "{} store changes in its window",
                                    "{} store changes in its window", *m_report.mutations);
    return RowText::plain(facts);
}

QString ModsFaceModel::report() const {
    return RowText::plain(m_report.report.value_or(""));
}

} // namespace wendlow

#include "moc_ModsFaceModel.cpp"
