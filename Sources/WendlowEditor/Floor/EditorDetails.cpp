#include "Floor/EditorDetails.h"

#include <utility>

namespace wendlow {

void EditorDetails::request(const std::vector<std::string>& ids, EditorAsker asker) {
    if (m_retired)
        return;
    std::set<std::string>& underWay = m_underWay[asker].ids;
    std::vector<std::string> wanted;
    bool anew = false;
    for (const std::string& id : ids) {
        const auto known = m_known.find(id);
        const bool cameToNothing = known != m_known.end() && !known->second;
        if ((known != m_known.end() && !cameToNothing) || !underWay.insert(id).second)
            continue;
        if (cameToNothing)
            m_known.erase(known);
        anew = anew || cameToNothing;
        wanted.push_back(id);
    }
    if (wanted.empty())
        return;
    if (anew)
        Q_EMIT changed();
    // Runs on by itself, and ends by itself where this goes.
    [[maybe_unused]] const auto task = fetch(std::move(wanted), asker);
}

QCoro::Task<> EditorDetails::fetch(std::vector<std::string> ids, EditorAsker asker) {
    const Lifetime::Watch life = m_life.watch();
    UnderWay& mine = m_underWay[asker];
    const std::uint64_t epoch = mine.epoch;
    MemoryDetails found;
    for (const std::string& id : ids) {
        auto detail = co_await m_source.detail(id);
        if (life.expired() || epoch != mine.epoch)
            co_return;
        found.insert_or_assign(id, std::move(detail));
    }
    for (const std::string& id : ids)
        mine.ids.erase(id);
    m_known.merge(found);
    Q_EMIT changed();
}

void EditorDetails::abandon(EditorAsker asker) {
    UnderWay& batches = m_underWay[asker];
    ++batches.epoch;
    batches.ids.clear();
}

void EditorDetails::clear() {
    for (auto& [asker, batches] : m_underWay)
        abandon(asker);
    if (m_known.empty())
        return;
    m_known.clear();
    Q_EMIT changed();
}

void EditorDetails::retire() {
    m_retired = true;
    clear();
}

} // namespace wendlow

#include "moc_EditorDetails.cpp"
