#include "DocumentFacets.h"

#include "FilterText.h"

namespace wendlow {

std::uint32_t Names::number(std::string_view text) {
    if (const auto found = m_numbers.find(text); found != m_numbers.end())
        return found->second;
    const auto number = static_cast<std::uint32_t>(m_texts.size());
    m_texts.emplace_back(text);
    m_numbers.emplace(text, number);
    return number;
}

std::uint32_t Names::find(std::string_view text) const {
    const auto found = m_numbers.find(text);
    return found == m_numbers.end() ? none : found->second;
}

void DocumentFacets::set(std::int64_t rowid, const Figures& figures) {
    const auto place = static_cast<std::size_t>(rowid);
    if (place >= m_rows.size())
        m_rows.resize(place + 1);
    const std::uint32_t set = m_setTexts.number(figures.filters);
    if (set == m_sets.size()) {
        std::vector<std::uint32_t>& pairs = m_sets.emplace_back();
        for (const FilterPair& pair : FilterText::read(figures.filters))
            pairs.push_back(pairNumber(pair));
    }
    m_rows[place] = {.at = figures.at,
                     .type = m_types.number(figures.type),
                     .scope = m_scopes.number(figures.scope),
                     .filters = set,
                     .kind = figures.kind,
                     .present = true};
}

void DocumentFacets::remove(std::int64_t rowid) {
    m_rows[static_cast<std::size_t>(rowid)].present = false;
}

std::uint32_t DocumentFacets::findPair(const FilterPair& pair) const {
    return m_pairTexts.find(FilterText::write({&pair, 1}));
}

std::uint32_t DocumentFacets::pairNumber(const FilterPair& pair) {
    // The number 3 and the text "3" are two values: the JSON of the pair tells them apart.
    const std::uint32_t number = m_pairTexts.number(FilterText::write({&pair, 1}));
    if (number == m_pairs.size())
        m_pairs.push_back({m_keys.number(pair.key), pair.value});
    return number;
}

} // namespace wendlow
