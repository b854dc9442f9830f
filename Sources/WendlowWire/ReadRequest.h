#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Described.h"
#include "FilterValue.h"

namespace wendlow {

/// A moment's picture, and of one window of it when `window` is present.
struct ScreenRef {
    std::int64_t moment = 0;
    std::optional<std::string> window = std::nullopt;
    WENDLOW_RECORD(ScreenRef, moment, window);
};

/// The questions that may be asked without changing anything. The catalogue holds those that the
/// application asks so far; a further one is a struct here and a name in `ReadRequest`.
/// Days are "yyyy-MM-dd" in the local calendar of the daemon's user.
namespace ReadCase {

struct Recall {
    std::string query;
    std::optional<std::string> from = std::nullopt;
    std::optional<std::string> to = std::nullopt;
    WENDLOW_REQUEST(Recall, "recall", "recall", query, from, to);
};

struct GetByType {
    std::string type;
    std::optional<std::string> path = std::nullopt;
    std::optional<std::map<std::string, FilterValue>> filters = std::nullopt;
    std::optional<std::string> session = std::nullopt;
    WENDLOW_REQUEST(GetByType, "getByType", "memory_get_by_type", type, path, filters, session);
};

struct AllTime {
    bool force = false;
    WENDLOW_REQUEST(AllTime, "allTime", "all_time_get_totals", force);
};

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

struct GetThumbnail {
    std::int64_t momentID = 0; ///< "ID" is spelled so on the wire too
    WENDLOW_REQUEST(GetThumbnail, "getThumbnail", "thumbnail_get", momentID);
};

struct OpenScreens {
    std::vector<ScreenRef> _0;
    WENDLOW_REQUEST(OpenScreens, "openScreens", "screen_open", _0);
};

struct Health {
    WENDLOW_REQUEST(Health, "health", "health");
};

struct FrontState {
    WENDLOW_REQUEST(FrontState, "frontState", "front_state");
};

} // namespace ReadCase

struct ReadRequest : std::variant<ReadCase::Recall, ReadCase::GetByType, ReadCase::AllTime,
                                  ReadCase::TextBrowse, ReadCase::GetThumbnail,
                                  ReadCase::OpenScreens, ReadCase::Health, ReadCase::FrontState> {
    using variant::variant;

    static constexpr std::string_view typeName = "ReadRequest";

    std::string_view verb() const;
};

} // namespace wendlow
