#pragma once

#include <QImage>

#include <cstdint>
#include <list>
#include <unordered_map>

namespace wendlow {

/// Pictures by a number, the last that were looked at; so many of them as fit into some bytes.
class PictureShelf {
public:
    explicit PictureShelf(qsizetype bytes) : m_most(bytes) {}

    /// It may hold so much from now on.
    void setMost(qsizetype bytes) { m_most = bytes; }

    /// Null where there is none. Looked at, it stays longer.
    QImage find(std::int64_t key) {
        const auto found = m_places.find(key);
        if (found == m_places.end())
            return {};
        m_pictures.splice(m_pictures.begin(), m_pictures, found->second);
        return found->second->picture;
    }
    /// Empty where there is none.
    QSize sizeOf(std::int64_t key) const {
        const auto found = m_places.find(key);
        return found == m_places.end() ? QSize() : found->second->picture.size();
    }
    void put(std::int64_t key, QImage picture) {
        if (const auto found = m_places.find(key); found != m_places.end())
            drop(found->second);
        m_bytes += picture.sizeInBytes();
        m_pictures.push_front({key, std::move(picture)});
        m_places[key] = m_pictures.begin();
        while (m_bytes > m_most && m_pictures.size() > 1)
            drop(std::prev(m_pictures.end()));
    }
    qsizetype bytes() const { return m_bytes; }

private:
    struct Kept {
        std::int64_t key;
        QImage picture;
    };
    using Pictures = std::list<Kept>;

    void drop(Pictures::iterator which) {
        m_bytes -= which->picture.sizeInBytes();
        m_places.erase(which->key);
        m_pictures.erase(which);
    }

    qsizetype m_most;
    qsizetype m_bytes = 0;
    Pictures m_pictures; ///< the last looked at first
    std::unordered_map<std::int64_t, Pictures::iterator> m_places;
};

} // namespace wendlow
