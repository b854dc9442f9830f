#pragma once

#include "Model/EditorMemory.h"
#include "Model/TextHash.h"

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>

namespace wendlow {

/// Why and body by the memory's id. Without a value: it was asked for, and nothing came.
using MemoryDetails =
    std::unordered_map<std::string, std::optional<EditorMemoryDetail>, TextHash, std::equal_to<>>;

} // namespace wendlow
