#include "Recording/RuleGroup.h"

#include "PlainText.h"
#include "Recording/RuleInput.h"
#include "Say.h"
#include "SiteIcon.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

} // namespace

RuleGroup::RuleGroup(const Nature& nature, QObject* parent)
    : KeyedListModel(parent), m_nature(nature) {}

QString RuleGroup::title() const {
    return text(say(m_nature.title));
}

QString RuleGroup::caption() const {
    return text(say(m_nature.caption));
}

QString RuleGroup::addWords() const {
    return text(say(m_nature.addWords));
}

QString RuleGroup::hint() const {
    return text(say(m_nature.hint));
}

bool RuleGroup::isPicked() const {
    return isOf(RuleKind::app);
}

bool RuleGroup::isOf(RuleKind kind) const {
    return std::ranges::find(m_nature.kinds, kind) != m_nature.kinds.end();
}

bool RuleGroup::takes(const Rule& rule) const {
    const auto kind = rule.kind.known();
    const auto tier = rule.tier.known();
    if (m_nature.kinds.empty())
        return !kind || !tier;
    return kind && tier && tier == m_nature.tier && isOf(*kind);
}

RuleRow RuleGroup::made(const Rule& rule, const Icons& icons) const {
    RuleRow shown{
        .id = rule.id, .value = text(rule.value), .tag = {}, .off = !rule.enabled, .picture = {}};
    if (m_nature.kinds.empty())
        shown.tag = text(rule.kind.word()) + QStringLiteral(" · ") + text(rule.tier.word());
    else if (m_nature.tier == RuleTier::never)
        shown.tag = text(say("Never recorded"));
    if (const auto icon = icons.find(rule.value); icon != icons.end())
        shown.picture = icon->second;
    return shown;
}

void RuleGroup::show(std::span<const Rule> rules, const Icons& icons) {
    std::vector<RuleRow> rows;
    for (const Rule& rule : rules)
        if (takes(rule))
            rows.push_back(made(rule, icons));
    const int before = count();
    take(std::move(rows));
    if (count() != before)
        Q_EMIT countChanged();
}

bool RuleGroup::has(const std::string& value) const {
    const std::string wanted = PlainText::lowerCased(value);
    return std::ranges::any_of(rows(), [&](const RuleRow& row) {
        return PlainText::lowerCased(row.value.toStdString()) == wanted;
    });
}

void RuleGroup::open() {
    m_adding = true;
    Q_EMIT entryChanged();
}

void RuleGroup::cancel() {
    m_adding = false;
    m_typed.clear();
    m_note.clear();
    Q_EMIT entryChanged();
}

void RuleGroup::setTyped(const QString& typed) {
    if (m_typed == typed)
        return;
    m_typed = typed;
    m_note.clear();
    Q_EMIT entryChanged();
}

std::string RuleGroup::fit(const std::string& value) const {
    return isOf(RuleKind::site) ? RuleInput::domain(value) : std::string(PlainText::trimmed(value));
}

RuleKind RuleGroup::kindOf(const std::string& value) const {
    return isOf(RuleKind::word) ? RuleInput::wordKind(value) : m_nature.kinds.front();
}

void RuleGroup::commit() {
    offer(m_typed.toStdString());
}

bool RuleGroup::offer(const std::string& value) {
    const std::string fitting = fit(value);
    if (fitting.empty() || isBusy())
        return false;
    m_note.clear();
    if (has(fitting)) {
        m_note = text(say("“{}” is there already.", fitting));
        Q_EMIT entryChanged();
        return false;
    }
    m_sent = fitting;
    Q_EMIT entryChanged();
    Q_EMIT wanted(fitting, kindOf(fitting));
    return true;
}

void RuleGroup::answered(const Rule& rule) {
    m_answered = m_answered || (isBusy() && m_sent == rule.value && takes(rule));
}

void RuleGroup::settle() {
    if (!std::exchange(m_answered, false))
        return;
    const bool isThere = has(std::exchange(m_sent, {}));
    // What did not become a rule stays in the field.
    if (isThere)
        cancel();
    else
        Q_EMIT entryChanged();
    if (isThere)
        Q_EMIT added();
}

void RuleGroup::remove(int index) {
    if (holds(index))
        Q_EMIT unwanted(row(index).id);
}

QVariant RuleGroup::data(const QModelIndex& index, int role) const {
    if (!holds(index.row()))
        return {};
    const RuleRow& shown = row(index.row());
    switch (role) {
    case IdRole:
        return text(shown.id);
    case ValueRole:
        return shown.value;
    case TagRole:
        return shown.off ? text(say("Off")) : shown.tag;
    case OffRole:
        return shown.off;
    case PictureRole:
        return SiteIcon::picture(
            {shown.picture.constData(), static_cast<std::size_t>(shown.picture.size())});
    case LetterRole: {
        // A letter beyond the first plane is two units.
        const bool isPair = !shown.value.isEmpty() && shown.value.front().isHighSurrogate();
        return shown.value.left(isPair ? 2 : 1).toUpper();
    }
    default:
        return {};
    }
}

QHash<int, QByteArray> RuleGroup::roleNames() const {
    return {{IdRole, "ruleId"}, {ValueRole, "value"},     {TagRole, "tag"},
            {OffRole, "off"},   {PictureRole, "picture"}, {LetterRole, "letter"}};
}

} // namespace wendlow

#include "moc_RuleGroup.cpp"
