#include "Shell/EditorDetails.h"

#include <utility>

namespace wendlow {

void EditorDetails::request(const std::vector<std::string>& ids) {
    std::vector<std::string> wanted;
    bool anew = false;
    for (const std::string& id : ids) {
        const auto known = m_known.find(id);
        const bool cameToNothing = known != m_known.end() && !known->second;
        if ((known != m_known.end() && !cameToNothing) || !m_underWay.insert(id).second)
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
    [[maybe_unused]] const auto task = fetch(std::move(wanted));
}

QCoro::Task<> EditorDetails::fetch(std::vector<std::string> ids) {
    const Lifetime::Watch life = m_life.watch();
    const std::uint64_t epoch = m_epoch;
    SearchPage::Details found;
    for (const std::string& id : ids) {
        auto detail = co_await m_pages.detail(id);
        if (life.expired() || epoch != m_epoch)
            co_return;
        found.insert_or_assign(id, std::move(detail));
    }
    for (const std::string& id : ids)
        m_underWay.erase(id);
    m_known.merge(found);
    Q_EMIT changed();
}

void EditorDetails::clear() {
    ++m_epoch;
    m_underWay.clear();
    if (m_known.empty())
        return;
    m_known.clear();
    Q_EMIT changed();
}

} // namespace wendlow
