#include "Rules/RulesFaceModel.h"

#include "Floor/RowText.h"
#include "Floor/RulesScope.h"
#include "Model/EditorRail.h"
#include "Say.h"

#include <utility>

namespace wendlow {

RulesFaceModel::RulesFaceModel(RuleSource& rules, ScopeSource& scopes, PageSource& pages,
                               FaceActions actions)
    : m_rules(rules), m_scopes(scopes), m_pages(pages), m_actions(std::move(actions)),
      m_composer(rules) {
    connect(&m_composer, &RuleComposerModel::openChanged, this, &FaceModel::modalChanged);
    connect(&m_composer, &RuleComposerModel::ended, this, &RulesFaceModel::tell);
}

QUrl RulesFaceModel::page() const {
    return QUrl(QStringLiteral("qrc:/qt/qml/WendlowEditorRules/RulesFace.qml"));
}

void RulesFaceModel::show(const FaceView& view) {
    m_counted = view.counted;
    Key key{.scope = rulesScope(view.ask.scopes, m_scopes.scopeBoard()),
            .generation = view.generation,
            .looks = view.looks};
    if (key.scope != m_key.scope)
        m_outcome.reset(); // it speaks of a rule that goes from sight
    m_key = std::move(key);
    // Before a board is there nothing can be known to be on it, unless none is coming.
    settle(m_scopes.boardRead() ||
           !std::holds_alternative<EditorAnswerStateCase::Pending>(view.answer->state));
    if (std::exchange(m_ask, view.ask).term != view.ask.term)
        rebuild();
    Q_EMIT changed();
    serveReveal();
}

void RulesFaceModel::settle(bool canAsk) {
    if (!isOpen() || !canAsk || m_asked == m_key)
        return;
    m_asked = m_key;
    m_reading = true;
    // Runs on by itself, and ends by itself where this goes or another key comes.
    [[maybe_unused]] const auto task = read(m_key);
}

QCoro::Task<> RulesFaceModel::read(Key key) {
    const Lifetime::Watch life = m_life.watch();
    const std::uint64_t number = ++m_task;
    EditorRulesPicture picture = co_await m_rules.rulesPicture(key.scope);
    if (life.expired() || number != m_task)
        co_return;
    m_reading = false;
    take(std::move(key.scope), std::move(picture));
}

void RulesFaceModel::take(std::string scope, EditorRulesPicture picture) {
    m_scope = std::move(scope);
    m_picture = std::move(picture);
    rebuild();
    Q_EMIT changed();
    serveReveal();
}

void RulesFaceModel::rebuild() {
    if (!m_picture)
        return;
    auto rows = RulesPage::rows(*m_picture, m_scope, m_ask.term);
    for (RulesRow& row : rows)
        if (const auto edit = m_edits.find(row.id); edit != m_edits.end()) {
            row.editing = true;
            row.busy = edit->second.busy;
        }
    m_rows.show(std::move(rows));
}

void RulesFaceModel::leave(EditorAsk& /*ask*/) {
    m_outcome.reset();
    m_wanted.clear();
}

bool RulesFaceModel::back() {
    if (m_composer.isOpen()) {
        m_composer.cancel();
        return true;
    }
    for (auto& [rowID, edit] : m_edits)
        if (const int at = m_rows.indexOf(rowID); at >= 0) {
            leaveEdit(at);
            return true;
        }
    return false;
}

void RulesFaceModel::reveal(const FoundHit& found, EditorAsk& ask) {
    const auto* const rule = std::get_if<SearchDestination::Rule>(&found.hit.destination);
    if (rule == nullptr)
        return;
    ask.scopes = {rule->scope};
    m_wanted = found.memory ? found.memory->memory.id : std::string();
}

void RulesFaceModel::serveReveal() {
    if (m_wanted.empty() || m_reading || !m_picture || m_asked != m_key)
        return;
    const int at = m_rows.indexOfRule(std::exchange(m_wanted, {}));
    if (at >= 0)
        Q_EMIT revealed(at);
}

std::optional<std::int64_t> RulesFaceModel::railCount() const {
    // Before anything has been read, none is not a number of things.
    const auto& standing = m_pages.memoryTypeCounts();
    return m_counted || !standing.empty() ? std::optional(RailCounts::rules(standing))
                                          : std::nullopt;
}

void RulesFaceModel::activate(int index) {
    if (!m_rows.holds(index))
        return;
    const RulesRow row = m_rows.row(index);
    if (row.canAdd)
        newRule();
    if (row.canRetry)
        Q_EMIT retried();
    if (row.ruleID.empty() || row.editing)
        return;
    const auto unwritten = m_unwritten.find(row.ruleID);
    m_edits.insert_or_assign(row.id,
                             Edit{.number = ++m_editCount,
                                  .ruleID = row.ruleID,
                                  .from = row.text,
                                  .draft = unwritten == m_unwritten.end() ? RowText::plain(row.text)
                                                                          : unwritten->second});
    m_unwritten.erase(row.ruleID);
    m_rows.mark(index, true, false);
}

QString RulesFaceModel::draft(int index) const {
    const auto edit = m_rows.holds(index) ? m_edits.find(m_rows.row(index).id) : m_edits.end();
    return edit == m_edits.end() ? QString() : edit->second.draft;
}

void RulesFaceModel::setDraft(int index, const QString& text) {
    const auto edit = m_rows.holds(index) ? m_edits.find(m_rows.row(index).id) : m_edits.end();
    if (edit != m_edits.end() && !edit->second.busy)
        edit->second.draft = text;
}

void RulesFaceModel::leaveEdit(int index) {
    if (!m_rows.holds(index))
        return;
    m_edits.erase(m_rows.row(index).id);
    m_rows.mark(index, false, false);
}

void RulesFaceModel::commit(int index) {
    const auto found = m_rows.holds(index) ? m_edits.find(m_rows.row(index).id) : m_edits.end();
    if (found == m_edits.end())
        return;
    Edit& edit = found->second;
    if (edit.busy || edit.draft == RowText::plain(edit.from))
        return;
    edit.busy = true;
    m_rows.mark(index, true, true);
    // Runs on by itself, and ends by itself where this goes.
    [[maybe_unused]] const auto task = write(found->first, edit);
}

QCoro::Task<> RulesFaceModel::write(std::string rowID, Edit edit) {
    const Lifetime::Watch life = m_life.watch();
    const std::string to = edit.draft.toStdString();
    EditorWriteOutcome outcome = co_await m_rules.editRuleLine(edit.ruleID, edit.from, to);
    if (life.expired())
        co_return;
    if (outcome.ok())
        showWritten(edit.ruleID, edit.from, to);
    else
        m_unwritten.insert_or_assign(edit.ruleID, edit.draft);
    // The field may have been left meanwhile, and opened again.
    const auto now = m_edits.find(rowID);
    if (now != m_edits.end() && now->second.number == edit.number)
        m_edits.erase(now);
    rebuild();
    tell(std::move(outcome));
}

/// The picture with the rule in it is still to be read; until then nobody is to see the old words
/// come back.
void RulesFaceModel::showWritten(const std::string& ruleID, const std::string& from,
                                 const std::string& to) {
    if (!m_picture)
        return;
    const auto show = [&](std::vector<EditorRuleLine>& lines) {
        for (EditorRuleLine& line : lines)
            if (line.id == ruleID && line.text == from)
                line.text = to;
    };
    if (m_picture->card)
        show(m_picture->card->inlineRules);
    for (EditorRuleFileGroup& group : m_picture->filed)
        show(group.rules);
}

void RulesFaceModel::tell(EditorWriteOutcome outcome) {
    m_outcome = std::move(outcome);
    Q_EMIT changed();
}

void RulesFaceModel::newRule() {
    if (m_picture)
        m_composer.begin(m_scope, RulesPage::pickable(m_picture->card, m_scope));
}

QString RulesFaceModel::listName() const {
    return RowText::plain(say("Rules at {}", RowText::line(m_scope).toStdString()));
}

QString RulesFaceModel::emptyWords() const {
    return m_picture ? QString() : RowText::plain(say("Reading your rules…"));
}

QString RulesFaceModel::outcome() const {
    return m_outcome ? RowText::plain(m_outcome->words) : QString();
}

} // namespace wendlow

#include "moc_RulesFaceModel.cpp"
