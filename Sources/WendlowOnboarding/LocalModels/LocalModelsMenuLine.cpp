#include "LocalModelsMenuLine.h"

#include "Say.h"

#include <algorithm>

namespace wendlow::LocalModelsMenuLine {

std::optional<Line> line(const std::optional<LocalModelsProgress>& progress, bool writerAlive) {
    if (!progress || !progress->running || !writerAlive)
        return std::nullopt;
    if (!progress->downloadRows().empty() && progress->allDownloadsDone())
        return std::nullopt;
    const bool migrating = progress->migrating.value_or(false);
    const std::int64_t total = progress->knownTotalBytes().value_or(0);
    if (total <= 0)
        return Line{.title = migrating ? say("Updating the naming model…")
                                       : say("Setting up local models…")};
    const double fraction =
        static_cast<double>(progress->downloadedBytes()) / static_cast<double>(total);
    return Line{.title =
                    migrating ? say("Updating the naming model") : say("Setting up local models"),
                .fraction = std::clamp(fraction, 0.0, 1.0)};
}

std::optional<Line> line(const std::optional<LocalModelsProgress>& progress) {
    return line(progress, progress && progress->writerAlive());
}

} // namespace wendlow::LocalModelsMenuLine
