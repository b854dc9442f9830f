#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Described.h"
#include "Records/ScreenRef.h"

namespace wendlow {

/// Questions about moments, their pictures, and who and what they are about.
namespace ReadCase {

struct GetMoment {
    std::string id;
    WENDLOW_REQUEST(GetMoment, "getMoment", "moment_get", id);
};

struct GetChapter {
    std::string id;
    WENDLOW_REQUEST(GetChapter, "getChapter", "chapter_get", id);
};

struct TitleTrace {
    std::string id;
    WENDLOW_REQUEST(TitleTrace, "titleTrace", "title_trace", id);
};

struct GetScreen {
    std::int64_t momentID = 0; ///< "ID" is spelled so on the wire too
    std::string window;
    WENDLOW_REQUEST(GetScreen, "getScreen", "screen_get", momentID, window);
};

struct GetThumbnail {
    std::int64_t momentID = 0;
    WENDLOW_REQUEST(GetThumbnail, "getThumbnail", "thumbnail_get", momentID);
};

struct OpenScreens {
    std::vector<ScreenRef> _0;
    WENDLOW_REQUEST(OpenScreens, "openScreens", "screen_open", _0);
};

struct Favicons {
    std::vector<std::string> hosts;
    WENDLOW_REQUEST(Favicons, "favicons", "favicons", hosts);
};

struct GetEntity {
    std::string name;
    WENDLOW_REQUEST(GetEntity, "getEntity", "entity_get", name);
};

struct SessionList {
    std::optional<std::string> session = std::nullopt;
    bool older = false;
    WENDLOW_REQUEST(SessionList, "sessionList", "session_list", session, older);
};

} // namespace ReadCase
} // namespace wendlow
