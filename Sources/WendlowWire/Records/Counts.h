#pragma once

#include <cstdint>
#include <optional>
#include <string>
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

/// How many things of a kind there are, and how often each filter stands on them.
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

/// One filter: on how many things it stands, and with which values.
struct FilterKeyCensus {
    std::string key;
    std::int64_t count = 0;
    std::vector<FilterValueCount> values;
    WENDLOW_RECORD(FilterKeyCensus, key, count, values);
};

} // namespace wendlow
