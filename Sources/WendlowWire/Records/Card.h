#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Described.h"
#include "FilterValue.h"

namespace wendlow {

/// Points at another session.
struct SessionLink {
    std::string id;
    std::optional<std::string> name = std::nullopt;
    WENDLOW_RECORD(SessionLink, id, name);
};

/// What was on screen. `hidden` counts the lines that are left out.
struct MomentBody {
    std::string text;
    std::int64_t hidden = 0;
    std::string source;
    bool cleaned = false;
    std::optional<std::string> sessionArtifact = std::nullopt;
    std::optional<SessionLink> startedBy = std::nullopt;
    std::optional<SessionLink> mainChat = std::nullopt;
    WENDLOW_RECORD(MomentBody, text, hidden, source, cleaned, sessionArtifact, startedBy, mainChat);
};

/// What an AI session was about; each `...More` counts what its list leaves out.
struct SessionBody {
    std::optional<std::string> started = std::nullopt;
    std::optional<std::string> lastActive = std::nullopt;
    std::vector<std::string> files;
    std::int64_t filesMore = 0;
    std::vector<std::string> tickets;
    std::int64_t ticketsMore = 0;
    std::vector<std::string> tail;
    std::optional<std::string> continuesFrom = std::nullopt;
    std::optional<SessionLink> startedBy = std::nullopt;
    std::optional<SessionLink> mainChat = std::nullopt;
    WENDLOW_RECORD(SessionBody, started, lastActive, files, filesMore, tickets, ticketsMore, tail,
                   continuesFrom, startedBy, mainChat);
};

/// A thing that was found. Times are strings, worded by the daemon.
struct Card {
    std::string kind;
    std::string id;
    std::optional<std::string> state = std::nullopt;
    std::optional<std::string> snippet = std::nullopt;
    std::string why;
    std::optional<std::int64_t> src = std::nullopt;
    std::optional<std::string> when = std::nullopt;
    std::optional<std::string> chapter = std::nullopt;
    std::optional<std::string> excerpt = std::nullopt;
    std::optional<std::string> locator = std::nullopt;
    std::optional<std::string> filed = std::nullopt;
    std::optional<std::string> memoryKind = std::nullopt;
    std::optional<std::vector<FilterPair>> filters = std::nullopt;
    std::optional<std::string> title = std::nullopt;
    std::optional<SessionBody> session = std::nullopt;
    std::optional<MomentBody> body = std::nullopt;
    std::optional<std::string> subagent = std::nullopt;
    WENDLOW_RECORD(Card, kind, id, state, snippet, why, src, when, chapter, excerpt, locator, filed,
                   memoryKind, filters, title, session, body, subagent);
};

} // namespace wendlow
