#pragma once

#include <string>

#include "Described.h"

namespace wendlow {

/// Answers without a record. `Failure` and `Unimplemented` belong to the envelope: every caller has
/// to expect them, and treats any case that it did not expect as a refusal.
namespace AnswerCase {

struct Text {
    std::string _0;
    WENDLOW_CASE(Text, "text", _0);
};

struct Flag {
    bool _0 = false;
    WENDLOW_CASE(Flag, "flag", _0);
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
} // namespace wendlow
