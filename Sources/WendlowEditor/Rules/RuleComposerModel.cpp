#include "Rules/RuleComposerModel.h"

#include "Floor/RowText.h"
#include "Model/Blanks.h"
#include "Say.h"

#include <utility>

namespace wendlow {

namespace {

std::string trimmed(const QString& text) {
    return std::string(Blanks::trimmed(text.toStdString()));
}

} // namespace

bool RuleComposerModel::canSave(std::string_view text, std::string_view why,
                                const std::optional<EditorRulePlacement>& pick) {
    return !Blanks::trimmed(text).empty() && !Blanks::trimmed(why).empty() && pick &&
           pick->isLegal();
}

bool RuleComposerModel::canSave() const {
    return canSave(m_text.toStdString(), m_why.toStdString(), placement());
}

void RuleComposerModel::begin(std::string scope, std::vector<std::string> known) {
    if (m_open)
        return;
    ++m_session;
    m_scope = std::move(scope);
    m_known = std::move(known);
    m_picked = -1;
    m_text.clear();
    m_why.clear();
    m_newName.clear();
    m_busy = false;
    m_refusal.clear();
    Q_EMIT changed();
    setOpen(true);
}

void RuleComposerModel::cancel() {
    setOpen(false);
}

void RuleComposerModel::setOpen(bool open) {
    if (std::exchange(m_open, open) != open)
        Q_EMIT openChanged();
}

void RuleComposerModel::save() {
    if (!m_open || m_busy || !canSave())
        return;
    m_busy = true;
    m_refusal.clear();
    Q_EMIT changed();
    // Runs on by itself, and ends by itself where this goes.
    [[maybe_unused]] const auto task = write(trimmed(m_text), trimmed(m_why), *placement());
}

QCoro::Task<> RuleComposerModel::write(std::string text, std::string why,
                                       EditorRulePlacement placement) {
    const Lifetime::Watch life = m_life.watch();
    const std::uint64_t session = m_session;
    const EditorWriteOutcome outcome =
        co_await m_rules.addRule(std::move(text), std::move(why), std::move(placement), m_scope);
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
    Q_EMIT ended(outcome);
}

std::optional<EditorRulePlacement> RuleComposerModel::placement() const {
    const auto known = static_cast<int>(m_known.size());
    if (m_picked < 0 || m_picked > known + 1)
        return std::nullopt;
    EditorRulePlacement place;
    if (m_picked > known)
        // As it will stand in the card, so that no second spelling of it is filed.
        place.file = EditorRulesFiles::normalizedName(m_newName.toStdString())
                         .value_or(m_newName.toStdString());
    else if (m_picked > 0)
        place.file = m_known[static_cast<std::size_t>(m_picked - 1)];
    return place;
}

QString RuleComposerModel::title() const {
    return RowText::plain(say("New rule at {}", RowText::line(m_scope).toStdString()));
}

QStringList RuleComposerModel::choices() const {
    QStringList all{RowText::plain(EditorRulePlacement().label())};
    for (const std::string& name : m_known)
        all.append(RowText::line(name));
    all.append(RowText::plain(say("a new rules module:")));
    return all;
}

void RuleComposerModel::pick(int choice) {
    if (std::exchange(m_picked, choice) != choice)
        Q_EMIT changed();
}

void RuleComposerModel::set(QString& field, const QString& value) {
    if (std::exchange(field, value) != value)
        Q_EMIT changed();
}

void RuleComposerModel::setText(const QString& text) {
    set(m_text, text);
}

void RuleComposerModel::setWhy(const QString& why) {
    set(m_why, why);
}

void RuleComposerModel::setNewName(const QString& name) {
    set(m_newName, name);
    if (!name.isEmpty())
        pick(static_cast<int>(m_known.size()) + 1);
}

QString RuleComposerModel::nameFault() const {
    const auto place = placement();
    if (!place || place->isLegal() || m_newName.trimmed().isEmpty())
        return {};
    return RowText::plain(EditorRulesFiles::refusal(m_newName.toStdString()));
}

} // namespace wendlow

#include "moc_RuleComposerModel.cpp"
