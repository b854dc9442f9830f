#pragma once

#include <string>
#include <vector>

#include "Described.h"
#include "FrontRecording.h"
#include "Records/GrantsAnswer.h"
#include "Records/KeptStats.h"
#include "Records/ModBoardAnswer.h"
#include "Records/ScopeBoardEntry.h"
#include "Rule.h"

namespace wendlow {

/// The state of the daemon and of what it keeps.
namespace AnswerCase {

struct Rules {
    std::vector<Rule> _0;
    WENDLOW_CASE(Rules, "rules", _0);
};

struct ScopeBoard {
    std::vector<ScopeBoardEntry> _0;
    WENDLOW_CASE(ScopeBoard, "scopeBoard", _0);
};

struct ModBoard {
    ModBoardAnswer _0;
    WENDLOW_CASE(ModBoard, "modBoard", _0);
};

struct FrontState {
    FrontRecording _0 = FrontRecording::unknown;
    WENDLOW_CASE(FrontState, "frontState", _0);
};

/// The words of a recovery phrase.
struct Phrase {
    std::vector<std::string> _0;
    WENDLOW_CASE(Phrase, "phrase", _0);
};

struct Grants {
    GrantsAnswer _0;
    WENDLOW_CASE(Grants, "grants", _0);
};

struct FrameStats {
    wendlow::FrameStats _0;
    WENDLOW_CASE(FrameStats, "frameStats", _0);
};

struct ReelStats {
    wendlow::ReelStats _0;
    WENDLOW_CASE(ReelStats, "reelStats", _0);
};

struct DiskUsed {
    wendlow::DiskUsed _0;
    WENDLOW_CASE(DiskUsed, "diskUsed", _0);
};

} // namespace AnswerCase
} // namespace wendlow
