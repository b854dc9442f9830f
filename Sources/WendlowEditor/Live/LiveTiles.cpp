#include "Live/LiveTiles.h"

#include <utility>

#include <QByteArray>

namespace wendlow {

namespace {

using Lane = EditorLink::Lane;

/// In base64. No screen's picture is as large; what is would hold up everything while it is read.
constexpr std::size_t mostText = std::size_t{24} << 20U;

/// The picture in an answer. Nothing: there is none, or it does not decode, or it is monstrous.
std::optional<EditorTile> picture(const GatewayResponse& response) {
    const auto* const image = std::get_if<AnswerCase::Image>(&response);
    if (image == nullptr || image->base64.size() > mostText)
        return std::nullopt;
    const auto decoded = QByteArray::fromBase64Encoding(QByteArray::fromStdString(image->base64),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return std::nullopt;
    return EditorTile{.image = (*decoded).toStdString()};
}

} // namespace

LiveTiles::LiveTiles(EditorLink& link) : m_link(link) {}

void LiveTiles::showTiles(std::vector<std::int64_t> keys) {
    std::erase_if(keys, [this](std::int64_t key) { return m_tiles.holds(key); });
    m_wanted.assign(keys.begin(), keys.end());
    if (m_wanted.empty() || m_fetching)
        return;
    m_fetching = true;
    // Runs on by itself, and ends by itself where this goes.
    [[maybe_unused]] const auto task = drain();
}

QCoro::Task<> LiveTiles::drain() {
    const Lifetime::Watch life = m_life.watch();
    while (!m_wanted.empty()) {
        const std::int64_t key = m_wanted.front();
        m_wanted.pop_front();
        if (m_tiles.holds(key))
            continue;
        EditorTile tile = co_await fetch(key);
        if (life.expired())
            co_return;
        m_tiles.remember(key, std::move(tile));
        Q_EMIT tileArrived(key);
    }
    m_fetching = false;
}

QCoro::Task<EditorTile> LiveTiles::fetch(std::int64_t key) {
    const Lifetime::Watch life = m_life.watch();
    const ReadRequest smallPicture = ReadCase::GetThumbnail{.momentID = key};
    const EditorLink::Reply thumbnail = co_await m_link.send(smallPicture, Lane::later);
    if (auto tile = picture(thumbnail.response))
        co_return *std::move(tile);
    if (life.expired() || !m_frameDoorOpen)
        co_return EditorTile();
    const ReadRequest wholePicture = ReadCase::GetScreen{.momentID = key, .window = {}};
    const EditorLink::Reply screen = co_await m_link.send(wholePicture, Lane::later);
    // An older daemon has no such door: no further tile knocks there.
    if (!life.expired() && std::holds_alternative<AnswerCase::Unimplemented>(screen.response))
        m_frameDoorOpen = false;
    co_return picture(screen.response).value_or(EditorTile());
}

} // namespace wendlow

#include "moc_LiveTiles.cpp"
