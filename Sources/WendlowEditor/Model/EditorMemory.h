#pragma once

#include "Model/EditorCount.h"
#include "Model/EditorDate.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

struct EditorMemory {
    std::string id;
    std::string type;
    std::string title;
    std::string why = {};
    std::string body = {};
    std::map<std::string, std::string> filters = {}; ///< printed
    EditorDate day = {};

    bool operator==(const EditorMemory&) const = default;
};

struct EditorMemoryHit {
    EditorMemory memory;
    std::string scopeID; ///< the path of the scope where it is filed
    double score = 0;

    bool operator==(const EditorMemoryHit&) const = default;
};
using EditorMemoryHits = std::vector<EditorMemoryHit>;

/// Fetched on demand: rows do not carry why and body.
struct EditorMemoryDetail {
    std::string id;
    std::string why;
    std::string body;

    bool operator==(const EditorMemoryDetail&) const = default;
};

enum class DayOrder { newestFirst, oldestFirst };

/// By day, equal days by id upwards in either order.
EditorMemoryHits dayOrdered(EditorMemoryHits hits, DayOrder order);

/// Censuses of rows, without members, in census order.
std::vector<EditorCount> typeCensus(const EditorMemoryHits& hits);
std::vector<EditorCount> scopeCensus(const EditorMemoryHits& hits);
std::vector<EditorCount> filterKeyCensus(const EditorMemoryHits& hits);
/// Of the printed values of one key.
std::vector<EditorCount> filterValueCensus(const EditorMemoryHits& hits, std::string_view key);

// NOLINTEND(readability-redundant-member-init)

} // namespace wendlow
