#pragma once

#include "LocalModelsProgress.h"

#include <optional>
#include <string>

/// What a menu says of the download. Pure.
namespace wendlow::LocalModelsMenuLine {

struct Line {
    std::string title;
    std::optional<double> fraction = std::nullopt; ///< 0…1; nothing: how far it is is not known
    bool operator==(const Line&) const = default;
};

/// Nothing where there is nothing to say.
std::optional<Line> line(const std::optional<LocalModelsProgress>& progress, bool writerAlive);
/// The same, of the writer that is there now.
std::optional<Line> line(const std::optional<LocalModelsProgress>& progress);

} // namespace wendlow::LocalModelsMenuLine
