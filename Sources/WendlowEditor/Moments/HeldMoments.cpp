#include "Moments/HeldMoments.h"

#include <bit>
#include <functional>
#include <string_view>
#include <utility>

namespace wendlow {

std::size_t HeldMoments::fold(const EditorMoments& answer) {
    const std::size_t before = m_moments.size();
    // As long as the answers go on from one another, the last one is all that is held.
    bool adopts = answer.shared(m_moments) == before;
    std::size_t at = adopts ? before : answer.shared(m_last);
    m_last = answer;
    makeRoom(before + answer.size() - at);
    for (; at < answer.size(); ++at) {
        const bool isNew = adopts ? insert(answer, answer[at], at)
                                  : insert(m_moments, answer[at], m_moments.size());
        if (isNew && !adopts) {
            m_moments.push_back(answer[at]);
        } else if (!isNew && adopts) {
            m_moments = answer.first(at);
            adopts = false;
        }
    }
    if (adopts)
        m_moments = answer;
    return m_moments.size() - before;
}

/// Whether no moment of this id was there; the places of those that are, are those in `list`.
bool HeldMoments::insert(const EditorMoments& list, const EditorMoment& moment, std::size_t place) {
    const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(moment.id));
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
        Slot& slot = m_slots[at];
        if (slot.placeAfter == 0) {
            slot = {.hash = hash, .placeAfter = static_cast<std::uint32_t>(place + 1)};
            return true;
        }
        if (slot.hash == hash && list[slot.placeAfter - 1].id == moment.id)
            return false;
    }
}

void HeldMoments::makeRoom(std::size_t count) {
    if (2 * count <= m_slots.size())
        return;
    const auto before = std::exchange(m_slots, std::vector<Slot>(std::bit_ceil(2 * count)));
    const std::size_t mask = m_slots.size() - 1;
    for (const Slot& slot : before) {
        if (slot.placeAfter == 0)
            continue;
        std::size_t at = slot.hash & mask;
        while (m_slots[at].placeAfter != 0)
            at = (at + 1) & mask;
        m_slots[at] = slot;
    }
}

} // namespace wendlow
