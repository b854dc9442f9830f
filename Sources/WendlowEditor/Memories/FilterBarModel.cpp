#include "Memories/FilterBarModel.h"

#include "Floor/RowText.h"
#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

bool has(const std::vector<EditorCount>& census, const std::string& name) {
    return std::ranges::find(census, name, &EditorCount::name) != census.end();
}

/// What was there stays in its order, what is new comes behind.
std::vector<EditorCount> keepOrder(const std::vector<EditorCount>& before,
                                   std::vector<EditorCount> now) {
    const auto placeOf = [&before](const EditorCount& each) {
        return std::ranges::find(before, each.name, &EditorCount::name) - before.begin();
    };
    std::ranges::stable_sort(now, {}, placeOf);
    return now;
}

} // namespace

void FilterBarModel::show(const EditorAsk& ask, const EditorAnswer& answer) {
    m_ask = ask;
    // Counted anew with each pick, they would go from under the pointer.
    const bool isPicking = m_ask.hasChips();
    m_scopes = isPicking ? keepOrder(m_scopes, answer.scopeCounts) : answer.scopeCounts;
    m_keys = isPicking ? keepOrder(m_keys, answer.filterKeyCounts) : answer.filterKeyCounts;
    auto counts = answer.filterValueCounts;
    for (auto& [key, values] : counts)
        if (isPicking)
            values = keepOrder(m_counts[key], std::move(values));
    m_counts = std::move(counts);
    // What is picked can be unpicked, whether or not the answer still counts it.
    for (const auto& [key, picks] : m_ask.filters) {
        if (!has(m_keys, key))
            m_keys.push_back({.name = key});
        for (const EditorPick& pick : picks)
            if (auto& values = m_counts[key]; !has(values, pick.name))
                values.push_back({.name = pick.name, .members = pick.members});
    }
    for (const std::string& scope : m_ask.scopes)
        if (!has(m_scopes, scope))
            m_scopes.push_back({.name = scope});
    rebuild();
}

void FilterBarModel::startAfresh() {
    m_openPanel.reset();
    m_showAll = false;
    m_keys.clear();
    m_scopes.clear();
    m_counts.clear();
}

std::size_t FilterBarModel::picksOf(const std::string& key) const {
    if (key == scopeKey)
        return m_ask.scopes.size();
    const auto picks = m_ask.filters.find(key);
    return picks == m_ask.filters.end() ? 0 : picks->second.size();
}

void FilterBarModel::rebuild() {
    std::vector<FilterChip> chips{{.id = scopeKey, .label = say("scope").toStdString()}};
    for (const EditorCount& key : m_keys) {
        const bool inUse = picksOf(key.name) > 0 || m_openPanel == key.name;
        if (m_showAll || inUse || chips.size() < chipsShown)
            chips.push_back({.id = key.name, .label = key.name});
    }
    m_moreChips = static_cast<int>(m_keys.size() + 1 - chips.size());
    for (FilterChip& chip : chips) {
        chip.picks = picksOf(chip.id);
        chip.open = m_openPanel == chip.id;
    }
    m_chips.show(std::move(chips));
    showPanel();
    Q_EMIT changed();
}

const std::vector<EditorCount>& FilterBarModel::panelRows() const {
    static const std::vector<EditorCount> none;
    if (m_openPanel == scopeKey)
        return m_scopes;
    const auto found = m_openPanel ? m_counts.find(*m_openPanel) : m_counts.end();
    return found == m_counts.end() ? none : found->second;
}

void FilterBarModel::showPanel() {
    std::vector<FilterValueRow> rows;
    if (m_openPanel) {
        const auto picks = m_ask.filters.find(*m_openPanel);
        const auto picked =
            picks == m_ask.filters.end() ? std::set<std::string>() : names(picks->second);
        const auto& chosen = m_openPanel == scopeKey ? m_ask.scopes : picked;
        for (const EditorCount& row : panelRows())
            rows.push_back(
                {.id = row.name, .count = row.count, .picked = chosen.contains(row.name)});
    }
    m_values.show(std::move(rows));
}

void FilterBarModel::togglePanel(const QString& key) {
    std::string wanted = key.toStdString();
    if (m_openPanel == wanted)
        m_openPanel.reset();
    else
        m_openPanel = std::move(wanted);
    rebuild();
}

bool FilterBarModel::closePanel() {
    if (!std::exchange(m_openPanel, std::nullopt))
        return false;
    rebuild();
    return true;
}

void FilterBarModel::toggleValue(int index) {
    if (!m_openPanel || !m_values.holds(index))
        return;
    const std::string name = m_values.row(index).id;
    EditorAsk next = m_ask;
    if (m_openPanel == scopeKey) {
        if (next.scopes.erase(name) == 0)
            next.scopes.insert(name);
    } else {
        EditorPicks& picks = next.filters[*m_openPanel];
        const auto erased =
            std::erase_if(picks, [&](const EditorPick& pick) { return pick.name == name; });
        const auto& rows = panelRows();
        const auto row = std::ranges::find(rows, name, &EditorCount::name);
        if (erased == 0 && row != rows.end())
            picks.insert(EditorPick(*row));
    }
    change(std::move(next));
}

void FilterBarModel::clearPanel() {
    if (!m_openPanel)
        return;
    EditorAsk next = m_ask;
    if (m_openPanel == scopeKey)
        next.scopes.clear();
    else
        next.filters.erase(*m_openPanel);
    change(std::move(next));
}

void FilterBarModel::clearAll() {
    EditorAsk next = m_ask;
    next.filters.clear();
    change(std::move(next));
}

/// A key without picks is no filter, so that the ask equals the one that never had it.
void FilterBarModel::change(EditorAsk ask) {
    std::erase_if(ask.filters, [](const auto& filter) { return filter.second.empty(); });
    ask.offset = 0;
    m_changeAsk(std::move(ask));
}

void FilterBarModel::showAllChips() {
    m_showAll = true;
    rebuild();
}

QString FilterBarModel::panelLabel() const {
    if (!m_openPanel)
        return {};
    return m_openPanel == scopeKey ? say("scope") : RowText::line(*m_openPanel);
}

bool FilterBarModel::panelPicked() const {
    return m_openPanel && picksOf(*m_openPanel) > 0;
}

} // namespace wendlow

#include "moc_FilterBarModel.cpp"
