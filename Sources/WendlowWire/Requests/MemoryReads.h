#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Described.h"
#include "FilterValue.h"

namespace wendlow {

/// Questions about what is remembered, and the search in it.
namespace ReadCase {

struct Recall {
    std::string query;
    std::optional<std::string> from = std::nullopt;
    std::optional<std::string> to = std::nullopt;
    WENDLOW_REQUEST(Recall, "recall", "recall", query, from, to);
};

struct Search {
    std::string query;
    std::optional<std::int64_t> limit = std::nullopt;
    WENDLOW_REQUEST(Search, "search", "search", query, limit);
};

struct Grep {
    std::string query;
    std::optional<std::string> from = std::nullopt;
    std::optional<std::string> to = std::nullopt;
    WENDLOW_REQUEST(Grep, "grep", "grep", query, from, to);
};

/// Absent filters and empty ones are different questions.
struct GetByType {
    std::string type;
    std::optional<std::string> path = std::nullopt;
    std::optional<std::map<std::string, FilterValue>> filters = std::nullopt;
    std::optional<std::string> session = std::nullopt;
    WENDLOW_REQUEST(GetByType, "getByType", "memory_get_by_type", type, path, filters, session);
};

struct ListTypes {
    std::optional<std::string> scope = std::nullopt;
    WENDLOW_REQUEST(ListTypes, "listTypes", "memory_list_types", scope);
};

struct Grab {
    std::string id;
    std::optional<std::string> session = std::nullopt;
    bool full = false;
    std::optional<std::string> subagent = std::nullopt;
    WENDLOW_REQUEST(Grab, "grab", "grab", id, session, full, subagent);
};

struct Browse {
    std::optional<std::string> query = std::nullopt;
    std::int64_t limit = 0;
    std::int64_t offset = 0;
    WENDLOW_REQUEST(Browse, "browse", "browse", query, limit, offset);
};

/// The store browser's question: free words, exact filters, one page.
struct TextBrowse {
    std::optional<std::string> term = std::nullopt;
    std::optional<std::string> type = std::nullopt;
    std::vector<std::string> scopes;
    std::optional<std::int64_t> limit = std::nullopt;
    std::optional<std::string> kind = std::nullopt;
    std::optional<std::string> order = std::nullopt;
    std::vector<FilterPair> filters;
    std::int64_t offset = 0;
    static constexpr std::string_view defaulted[] = {"offset"};
    WENDLOW_REQUEST(TextBrowse, "textBrowse", "text_browse", term, type, scopes, limit, kind, order,
                    filters, offset);
};

struct TextIndexAudit {
    bool reindex = false;
    WENDLOW_REQUEST(TextIndexAudit, "textIndexAudit", "text_index_audit", reindex);
};

struct ConfigScan {
    WENDLOW_REQUEST(ConfigScan, "configScan", "memory_config_scan");
};

} // namespace ReadCase
} // namespace wendlow
