#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <boost/describe/enum.hpp>

#include "Described.h"
#include "FrontRecording.h"
#include "PrimedAnswer.h"
#include "RulesWalk.h"
#include "TextBrowseAnswer.h"
#include "WireData.h"

namespace wendlow {

struct ScreenImage {
    std::int64_t moment = 0;
    std::string window;
    std::optional<WireData> heic = std::nullopt;
    std::optional<std::string> note = std::nullopt;
    WENDLOW_RECORD(ScreenImage, moment, window, heic, note);
};

/// `staleWitness`: the line changed since it was read.
enum class LineDeleteOutcome { deleted, staleWitness, notFound };
BOOST_DESCRIBE_ENUM(LineDeleteOutcome, deleted, staleWitness, notFound)

/// The answers, as far as the application asks for them. `Failure` and `Unimplemented` belong to
/// the envelope: every caller has to expect them, and treats any case that it did not expect as a
/// refusal.
namespace AnswerCase {

struct Primed {
    std::vector<PrimeCard> _0;
    bool distilled = false;
    std::optional<ShortcutInjection> shortcut = std::nullopt;
    std::optional<MeetingJustEnded> justEnded = std::nullopt;
    WENDLOW_CASE(Primed, "primed", _0, distilled, shortcut, justEnded);
};

struct StandingWalk {
    std::optional<RulesWalk> _0 = std::nullopt;
    WENDLOW_CASE(StandingWalk, "standingWalk", _0);
};

struct Text {
    std::string _0;
    WENDLOW_CASE(Text, "text", _0);
};

struct Images {
    std::vector<ScreenImage> _0;
    WENDLOW_CASE(Images, "images", _0);
};

struct Icons {
    std::map<std::string, WireData> _0; ///< by host
    WENDLOW_CASE(Icons, "icons", _0);
};

struct Flag {
    bool _0 = false;
    WENDLOW_CASE(Flag, "flag", _0);
};

struct FrontState {
    FrontRecording _0 = FrontRecording::unknown;
    WENDLOW_CASE(FrontState, "frontState", _0);
};

struct Phrase {
    std::vector<std::string> _0;
    WENDLOW_CASE(Phrase, "phrase", _0);
};

struct TextBrowse {
    TextBrowseAnswer _0;
    WENDLOW_CASE(TextBrowse, "textBrowse", _0);
};

struct LineDelete {
    LineDeleteOutcome _0 = LineDeleteOutcome::notFound;
    WENDLOW_CASE(LineDelete, "lineDelete", _0);
};

/// `echo` repeats what the daemon made of the input.
struct NoteID {
    std::string _0;
    std::optional<std::vector<std::string>> echo = std::nullopt;
    WENDLOW_CASE(NoteID, "noteID", _0, echo);
};

/// The daemon knows the envelope and has no handler: it is older than the request.
struct Unimplemented {
    std::string verb;
    WENDLOW_CASE(Unimplemented, "unimplemented", verb);
};

/// A refusal or an error, in words for a person; never parsed.
struct Failure {
    std::string message;
    WENDLOW_CASE(Failure, "failure", message);
};

struct Ok {
    WENDLOW_CASE(Ok, "ok");
};

} // namespace AnswerCase

/// Every answer of the daemon. Plain data, free to cross threads.
struct GatewayResponse
    : std::variant<AnswerCase::Primed, AnswerCase::StandingWalk, AnswerCase::Text,
                   AnswerCase::Images, AnswerCase::Icons, AnswerCase::Flag, AnswerCase::FrontState,
                   AnswerCase::Phrase, AnswerCase::TextBrowse, AnswerCase::LineDelete,
                   AnswerCase::NoteID, AnswerCase::Unimplemented, AnswerCase::Failure,
                   AnswerCase::Ok> {
    using variant::variant;

    static constexpr std::string_view typeName = "GatewayResponse";
};

} // namespace wendlow
