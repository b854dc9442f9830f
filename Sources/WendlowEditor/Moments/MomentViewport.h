#pragma once

#include "Moments/HeldMoments.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

namespace wendlow {

/// Which moments are on the screen, by their places among those held. One thread.
class MomentViewport {
public:
    void appeared(std::size_t place) { m_onScreen.insert(place); }
    void disappeared(std::size_t place) { m_onScreen.erase(place); }
    void clear() { m_onScreen.clear(); }
    const std::set<std::size_t>& onScreen() const { return m_onScreen; }

    /// The numbers of their pictures in the order held. What has no number has none, and what draws
    /// a card of text wants none.
    std::vector<std::int64_t> keys(const HeldMoments& held) const {
        std::vector<std::int64_t> keys;
        for (const std::size_t place : m_onScreen) {
            const EditorMoment& moment = held[place];
            const auto key = moment.drawsTextCard() ? std::nullopt : moment.thumbnailKey();
            if (key)
                keys.push_back(*key);
        }
        return keys;
    }

private:
    std::set<std::size_t> m_onScreen;
};

} // namespace wendlow
