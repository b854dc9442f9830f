#pragma once

#include "Model/EditorRows.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace wendlow {

/// The moments that have come so far in answer to one question, page by page. One that is here
/// keeps its place whatever comes. One thread.
class HeldMoments {
public:
    /// Takes the moments of an answer whose ids are not here yet, in their order, behind those that
    /// are. A page that is asked for again with a larger limit brings all of the one before: where
    /// it shares them with that, only what is new costs anything. Gives how many came.
    std::size_t fold(const EditorMoments& answer);
    void clear() { *this = {}; }

    const EditorMoments& moments() const { return m_moments; }
    std::size_t size() const { return m_moments.size(); }
    const EditorMoment& operator[](std::size_t place) const { return m_moments[place]; }

private:
    /// A slot of the table by which an id is found: no id is kept a second time.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t placeAfter = 0; ///< the place and one; 0: the slot is free
    };

    bool insert(const EditorMoments& list, const EditorMoment& moment, std::size_t place);
    void makeRoom(std::size_t count);

    EditorMoments m_moments;
    EditorMoments m_last;      ///< the answer that was folded last
    std::vector<Slot> m_slots; ///< a power of two of them, half of them free at least
};

} // namespace wendlow
