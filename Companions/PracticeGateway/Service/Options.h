#pragma once

#include <chrono>
#include <expected>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <QStringList>

#include "DayManner.h"
#include "Fill/FillSize.h"
#include "GrantRoom.h"
#include "MeetingRoom.h"
#include "ModRoom.h"
#include "PhraseRoom.h"
#include "RuleChain.h"
#include "Service/Misbehaviour.h"
#include "Service/SteeredGateway.h"

namespace wendlow {

/// The command line of the practice gateway.
struct Options {
    std::string name;               ///< what it owns on the bus
    std::filesystem::path database; ///< the file, in a folder of its own
    std::optional<FillSize> fill;   ///< what an empty database is filled with
    /// After how long the day goes on and another moment comes; 0: it stands still.
    std::chrono::milliseconds live{0};
    Misbehaviour misbehaviour;
    SteeredGateway::Answers steered;         ///< to some verbs, in place of its own
    std::optional<StoreProtection> recovery; ///< how its store is to be protected from now on
    RuleManner rules;                        ///< how it answers about them
    DayManner days;                          ///< and about days
    std::vector<LineManner> lines;           ///< what happens to them
    ModManner mods;                          ///< how it answers about them
    GrantManner grants;                      ///< what becomes of them
    std::optional<std::string> help;         ///< to be printed in place of all else

    /// The options in the program's words, the program's name first, or a sentence about what is
    /// wrong with them.
    static std::expected<Options, std::string> parse(const QStringList& words);
};

} // namespace wendlow
