#include "RowOpenness.h"

namespace wendlow {

void RowOpenness::choose(const std::string& id, bool open, const RowFacts& facts) {
    m_choices.insert_or_assign(id, Choice{open, facts});
}

void RowOpenness::hold(const std::string& id, bool open) {
    m_choices.insert_or_assign(id, Choice{open, std::nullopt});
}

void RowOpenness::forget(const std::string& id) {
    m_choices.erase(id);
}

void RowOpenness::observe(const std::string& id, const RowFacts& facts) {
    const auto choice = m_choices.find(id);
    if (choice != m_choices.end() && choice->second.madeAt && *choice->second.madeAt != facts)
        m_choices.erase(choice);
}

bool RowOpenness::isOpen(const std::string& id, const RowFacts& facts, VerbWords words) const {
    if (const auto choice = m_choices.find(id); choice != m_choices.end())
        return choice->second.open;
    return words == VerbWords::there || facts.state == ConnectorState::drifted || facts.unreadable;
}

} // namespace wendlow
