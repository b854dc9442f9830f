#include "Shell/EditorDetails.h"

#include <utility>

namespace wendlow {

void EditorDetails::request(const std::vector<std::string>& ids) {
    std::vector<std::string> wanted;
    for (const std::string& id : ids)
        if (!m_known.contains(id) && m_underWay.insert(id).second)
            wanted.push_back(id);
    if (wanted.empty())
        return;
    // Runs on by itself, and ends by itself where this goes.
    [[maybe_unused]] const auto task = fetch(std::move(wanted));
}

QCoro::Task<> EditorDetails::fetch(std::vector<std::string> ids) {
    const Lifetime::Watch life = m_life.watch();
    const std::uint64_t epoch = m_epoch;
    SearchPage::Details found;
    for (const std::string& id : ids) {
        auto detail = co_await m_store.detail(id);
        if (life.expired() || epoch != m_epoch)
            co_return;
        if (detail)
            found.insert_or_assign(id, *std::move(detail));
    }
    for (const std::string& id : ids)
        m_underWay.erase(id);
    if (found.empty())
        co_return;
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
