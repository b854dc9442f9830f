#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Described.h"

namespace wendlow {

struct PrimeCard {
    std::string when;
    std::string whenRelative;
    std::string chapter;
    std::string gist;
    std::string evidence;
    std::string grabId;
    WENDLOW_RECORD(PrimeCard, when, whenRelative, chapter, gist, evidence, grabId);
};

struct ShortcutRow {
    std::string name;
    std::string when;
    std::int64_t duplicates = 0;
    WENDLOW_RECORD(ShortcutRow, name, when, duplicates);
};

struct ShortcutCard {
    std::string scope;
    std::int64_t moments = 0;
    std::int64_t memories = 0;
    std::int64_t meetings = 0;
    std::optional<std::string> version = std::nullopt;
    std::optional<std::string> build = std::nullopt;
    WENDLOW_RECORD(ShortcutCard, scope, moments, memories, meetings, version, build);
};

struct ShortcutDetail {
    std::string name;
    std::optional<std::string> when = std::nullopt;
    std::string body;
    std::int64_t duplicates = 0;
    WENDLOW_RECORD(ShortcutDetail, name, when, body, duplicates);
};

namespace ShortcutCase {

struct Fired {
    std::string name;
    std::string body;
    std::optional<std::string> argument = std::nullopt;
    WENDLOW_CASE(Fired, "fired", name, body, argument);
};

struct List {
    std::vector<ShortcutRow> _0;
    std::optional<ShortcutCard> card = std::nullopt;
    std::optional<ShortcutDetail> detail = std::nullopt;
    WENDLOW_CASE(List, "list", _0, card, detail);
};

struct Unreadable {
    std::string reason;
    WENDLOW_CASE(Unreadable, "unreadable", reason);
};

} // namespace ShortcutCase

struct ShortcutInjection
    : std::variant<ShortcutCase::Fired, ShortcutCase::List, ShortcutCase::Unreadable> {
    using variant::variant;

    static constexpr std::string_view typeName = "ShortcutInjection";
};

struct MeetingJustEnded {
    std::string key;
    std::optional<std::string> title = std::nullopt;
    std::vector<std::string> speakers;
    std::string started;
    std::string ended;
    std::optional<bool> askSelfName = std::nullopt;
    WENDLOW_RECORD(MeetingJustEnded, key, title, speakers, started, ended, askSelfName);
};

} // namespace wendlow
