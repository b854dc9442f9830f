#include "LocalModelsMenuLine.h"

#include <algorithm>

namespace wendlow::LocalModelsMenuLine {

std::optional<Line> line(const std::optional<LocalModelsProgress>& progress, bool writerAlive) {
    if (!progress || !progress->running || !writerAlive)
        return std::nullopt;
    if (!progress->downloadRows().empty() && progress->allDownloadsDone())
        return std::nullopt;
    const std::string title = progress->migrating.value_or(false) ? "Updating the naming model"
                                                                  : "Setting up local models";
    const std::int64_t total = progress->knownTotalBytes().value_or(0);
    if (total <= 0)
        return Line{.title = title + "…"};
    const double fraction =
        static_cast<double>(progress->downloadedBytes()) / static_cast<double>(total);
    return Line{.title = title, .fraction = std::clamp(fraction, 0.0, 1.0)};
}

std::optional<Line> line(const std::optional<LocalModelsProgress>& progress) {
    return line(progress, progress && progress->writerAlive());
}

} // namespace wendlow::LocalModelsMenuLine
