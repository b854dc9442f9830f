#pragma once

#include "Moments/PictureShelf.h"
#include "Moments/TileDecoder.h"
#include "Store/TileSource.h"

#include <QObject>
#include <QSize>
#include <QThreadPool>
#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace wendlow {

/// The pictures of the cells, decoded beside the thread of the window: those that are on screen
/// first. What has been seen is kept, a small one of it longer than a sharp one, so that a cell
/// that comes back is not empty. UI thread; the source must outlive it.
class TileRoom final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the moments makes it.")

public:
    /// On a thread of its own.
    using Decode =
        std::function<TileDecoder::Tile(const std::string& bytes, QSize size, double radius)>;

    explicit TileRoom(TileSource& source, Decode decode = TileDecoder::tile);
    /// Waits for the one picture that is being decoded.
    ~TileRoom() override;

    /// These are in sight or about to be, the first ones first; the others wait until they are.
    void show(std::vector<std::int64_t> keys);
    /// How large a cell's picture is, in the pixels of the screen, and how round.
    Q_INVOKABLE void setSize(QSize size, double radius);

    /// What there is to show now: the picture in that size, else another one of it; null: none yet.
    QImage picture(std::int64_t key);
    /// It is known that there is none.
    bool hasNone(std::int64_t key) const;
    /// One that is to be shown whole, as large as it is; nothing: none any more.
    void setWhole(std::optional<std::int64_t> key);
    /// Null until it has been decoded.
    const QImage& whole() const { return m_whole; }

    /// The bytes of the picture; none where they have not come.
    const std::string* bytes(std::int64_t key) const;

    /// Some are in sight, and all of them are there, and the whole one: none that could be is not.
    bool isStill() const;

Q_SIGNALS:
    /// There is another picture to show of this, or it is known now that there is none.
    void changed(qint64 key);

private:
    void arrived(std::int64_t key);
    bool isWanting(std::int64_t key) const;
    void work();
    void take(std::int64_t key, TileDecoder::Tile tile);
    void workWhole();

    TileSource& m_source;
    const Decode m_decode;
    QSize m_size;
    double m_radius = 0;
    std::vector<std::int64_t> m_shown;
    std::set<std::int64_t> m_faulty; ///< whose bytes are no picture
    PictureShelf m_sharp;
    PictureShelf m_posters;
    bool m_working = false;
    std::optional<std::int64_t> m_wholeKey;
    QImage m_whole;
    QThreadPool m_lane; ///< last, so that it ends first
};

} // namespace wendlow
