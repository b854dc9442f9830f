#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Described.h"
#include "FilterValue.h"
#include "Records/Counts.h"

namespace wendlow {

struct TextBrowseRow {
    std::string id;
    std::string type;
    std::string scope;
    std::string title;
    double at = 0; ///< seconds since 1970
    std::vector<FilterPair> filters;
    double score = 0;
    std::optional<std::string> app = std::nullopt;
    std::optional<std::string> abstract = std::nullopt;
    std::optional<std::string> passage = std::nullopt;
    std::optional<std::vector<std::string>> files = std::nullopt;
    std::optional<std::int64_t> fileCount = std::nullopt;
    bool framed = false;
    std::optional<std::string> sessionTool = std::nullopt;
    static constexpr std::string_view defaulted[] = {"score", "framed"};
    WENDLOW_RECORD(TextBrowseRow, id, type, scope, title, at, filters, score, app, abstract,
                   passage, files, fileCount, framed, sessionTool);
};

/// One page of what was found, and the counts of the whole. `ready` is false while the index is
/// being made.
struct TextBrowseAnswer {
    bool ready = false;
    std::int64_t total = 0;
    std::vector<TextBrowseRow> rows;
    std::vector<NameCount> byType;
    std::vector<NameCount> byScope;
    std::vector<KindCount> byKind;
    std::vector<FilterKeyCensus> byFilter;
    std::optional<std::string> order = std::nullopt;
    bool narrowed = false;
    static constexpr std::string_view defaulted[] = {"byKind", "byFilter", "narrowed"};
    WENDLOW_RECORD(TextBrowseAnswer, ready, total, rows, byType, byScope, byKind, byFilter, order,
                   narrowed);
};

/// What the index of the texts holds, beside what it should hold.
struct TextIndexAuditAnswer {
    bool ready = false;
    std::int64_t rows = 0;
    std::int64_t memories = 0;
    std::int64_t moments = 0;
    std::int64_t meetings = 0;
    std::int64_t pending = 0;
    std::int64_t added = 0;
    std::int64_t removed = 0;
    std::int64_t megabytes = 0;
    WENDLOW_RECORD(TextIndexAuditAnswer, ready, rows, memories, moments, meetings, pending, added,
                   removed, megabytes);
};

} // namespace wendlow
