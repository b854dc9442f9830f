#include "Moments/TileRoom.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

/// Of the sharp pictures, some screenfuls of a usual window; from a small one on the way back to
/// the sharp one it is a few milliseconds.
constexpr qsizetype sharpBytes = qsizetype{10} << 20U;
constexpr qsizetype posterBytes = qsizetype{8} << 20U;

} // namespace

TileRoom::TileRoom(TileSource& source, Decode decode)
    : m_source(source), m_decode(std::move(decode)), m_sharp(sharpBytes), m_posters(posterBytes) {
    m_lane.setMaxThreadCount(1);
    connect(&m_source, &TileSource::tileArrived, this, &TileRoom::arrived);
}

TileRoom::~TileRoom() {
    m_lane.waitForDone();
}

void TileRoom::show(std::vector<std::int64_t> keys) {
    m_shown = std::move(keys);
    work();
}

void TileRoom::setSize(QSize size, double radius) {
    if (m_size == size && m_radius == radius)
        return;
    m_size = size;
    m_radius = radius;
    work();
}

QImage TileRoom::picture(std::int64_t key) {
    QImage sharp = m_sharp.find(key);
    return sharp.isNull() ? m_posters.find(key) : sharp;
}

bool TileRoom::hasNone(std::int64_t key) const {
    const auto tile = m_source.tiles().find(key);
    return m_faulty.contains(key) || (tile != m_source.tiles().end() && !tile->second.image);
}

const std::string* TileRoom::bytes(std::int64_t key) const {
    const auto tile = m_source.tiles().find(key);
    return tile != m_source.tiles().end() && tile->second.image ? &*tile->second.image : nullptr;
}

void TileRoom::arrived(std::int64_t key) {
    m_faulty.erase(key);
    if (bytes(key) == nullptr) {
        Q_EMIT changed(key);
        return;
    }
    work();
    if (m_wholeKey == key)
        workWhole();
}

void TileRoom::setWhole(std::optional<std::int64_t> key) {
    m_wholeKey = key;
    m_whole = {};
    workWhole();
}

void TileRoom::workWhole() {
    if (!m_wholeKey || bytes(*m_wholeKey) == nullptr || m_faulty.contains(*m_wholeKey))
        return;
    m_lane.start([this, key = *m_wholeKey, bytes = *bytes(*m_wholeKey)] {
        QImage whole = TileDecoder::whole(bytes);
        QMetaObject::invokeMethod(
            this,
            [this, key, whole = std::move(whole)] {
                if (whole.isNull())
                    m_faulty.insert(key);
                else if (m_wholeKey == key)
                    m_whole = whole;
                Q_EMIT changed(key);
            },
            Qt::QueuedConnection);
    });
}

bool TileRoom::isWanting(std::int64_t key) const {
    return bytes(key) != nullptr && !m_faulty.contains(key) && m_sharp.sizeOf(key) != m_size;
}

bool TileRoom::isStill() const {
    const bool readsWhole = m_wholeKey && m_whole.isNull() && bytes(*m_wholeKey) != nullptr &&
                            !m_faulty.contains(*m_wholeKey);
    return !m_working && !readsWhole && !m_shown.empty() &&
           std::ranges::none_of(m_shown, [this](auto key) { return isWanting(key); });
}

void TileRoom::work() {
    if (m_working || m_size.isEmpty())
        return;
    // What is in sight stays, however large the window is: gone, it would be decoded without end.
    constexpr int pixelBytes = 4;
    m_sharp.setMost(std::max<qsizetype>(sharpBytes, std::ssize(m_shown) * pixelBytes *
                                                        m_size.width() * m_size.height()));
    const auto next = std::ranges::find_if(m_shown, [this](auto key) { return isWanting(key); });
    if (next == m_shown.end())
        return;
    m_working = true;
    m_lane.start([this, key = *next, bytes = *bytes(*next), size = m_size, radius = m_radius] {
        TileDecoder::Tile tile = m_decode(bytes, size, radius);
        // What is still to be told when this goes is told nobody.
        QMetaObject::invokeMethod(
            this, [this, key, tile = std::move(tile)] { take(key, tile); }, Qt::QueuedConnection);
    });
}

void TileRoom::take(std::int64_t key, TileDecoder::Tile tile) {
    m_working = false;
    if (tile.picture.isNull())
        m_faulty.insert(key);
    else {
        m_posters.put(key, std::move(tile.poster));
        m_sharp.put(key, std::move(tile.picture));
    }
    work(); // also once more for this one, where the size has changed meanwhile
    Q_EMIT changed(key);
}

} // namespace wendlow

#include "moc_TileRoom.cpp"
