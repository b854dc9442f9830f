#pragma once

#include "Model/EditorMoment.h"

#include <cstdint>
#include <map>
#include <vector>

#include <QObject>

namespace wendlow {

/// The thumbnails of moments. UI thread.
class TileSource : public QObject {
    Q_OBJECT

public:
    /// Those that are known, by `thumbnailKey`.
    virtual const std::map<std::int64_t, EditorTile>& tiles() const = 0;
    /// These are on screen now. Takes the place of the list before.
    virtual void showTiles(std::vector<std::int64_t> keys) = 0;

Q_SIGNALS:
    /// The tile of this key is known now; an older one may have gone for it.
    void tileArrived(std::int64_t key);
};

} // namespace wendlow
