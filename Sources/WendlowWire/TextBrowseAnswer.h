#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Described.h"
#include "FilterValue.h"

namespace wendlow {

struct NameCount {
    std::string name;
    std::int64_t count = 0;
    WENDLOW_RECORD(NameCount, name, count);
};

struct FilterKeyCount {
    std::string key;
    std::int64_t count = 0;
    WENDLOW_RECORD(FilterKeyCount, key, count);
};

struct KindCount {
    std::string kind;
    std::int64_t count = 0;
    std::optional<std::vector<FilterKeyCount>> filters = std::nullopt;
    WENDLOW_RECORD(KindCount, kind, count, filters);
};

struct FilterValueCount {
    FilterValue value;
    std::int64_t count = 0;
    WENDLOW_RECORD(FilterValueCount, value, count);
};

struct FilterKeyCensus {
    std::string key;
    std::int64_t count = 0;
    std::vector<FilterValueCount> values;
    WENDLOW_RECORD(FilterKeyCensus, key, count, values);
};

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

} // namespace wendlow
