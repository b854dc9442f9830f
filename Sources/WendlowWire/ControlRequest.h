#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Described.h"

namespace wendlow {

/// What the daemon is told to do to itself or to the store's surroundings. The catalogue holds the
/// commands that the application gives so far.
namespace ControlCase {

struct AddConcept {
    std::string _0;
    WENDLOW_REQUEST(AddConcept, "addConcept", "add_concept", _0);
};

/// `witness` goes back as the daemon gave it, so that a stale view cannot delete another line.
struct DeleteUtterance {
    std::string meeting;
    std::int64_t rowid = 0;
    std::string witness;
    WENDLOW_REQUEST(DeleteUtterance, "deleteUtterance", "delete_utterance", meeting, rowid,
                    witness);
};

struct EnterPhrase {
    std::vector<std::string> words;
    WENDLOW_REQUEST(EnterPhrase, "enterPhrase", "enter_phrase", words);
};

struct PauseFor {
    std::int64_t minutes = 0;
    WENDLOW_REQUEST(PauseFor, "pauseFor", "pause_for", minutes);
};

struct SetFrameKeep {
    bool _0 = false;
    WENDLOW_REQUEST(SetFrameKeep, "setFrameKeep", "set_frame_keep", _0);
};

struct Pause {
    WENDLOW_REQUEST(Pause, "pause", "pause");
};

struct Resume {
    WENDLOW_REQUEST(Resume, "resume", "resume");
};

} // namespace ControlCase

struct ControlRequest
    : std::variant<ControlCase::AddConcept, ControlCase::DeleteUtterance, ControlCase::EnterPhrase,
                   ControlCase::PauseFor, ControlCase::SetFrameKeep, ControlCase::Pause,
                   ControlCase::Resume> {
    using variant::variant;

    static constexpr std::string_view typeName = "ControlRequest";

    std::string_view verb() const;
};

} // namespace wendlow
