#pragma once

#include "LocalModelsProgress.h"

#include <optional>
#include <string>
#include <string_view>

/// The progress file's bytes. A key that is not known is passed over, since a newer writer may have
/// more to say; one that lacks, or holds another kind of value, makes the whole file unread.
namespace wendlow::LocalModelsJson {

std::string encode(const LocalModelsProgress& progress);
std::optional<LocalModelsProgress> decode(std::string_view json);

} // namespace wendlow::LocalModelsJson
