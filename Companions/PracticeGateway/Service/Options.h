#pragma once

#include <expected>
#include <filesystem>
#include <optional>
#include <string>

#include <QStringList>

#include "Fill/FillSize.h"
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
    Misbehaviour misbehaviour;
    SteeredGateway::Answers steered;         ///< to some verbs, in place of its own
    std::optional<StoreProtection> recovery; ///< how its store is to be protected from now on
    RuleManner rules;                        ///< how it answers about them
    std::optional<std::string> help;         ///< to be printed in place of all else

    /// The options in the program's words, the program's name first, or a sentence about what is
    /// wrong with them.
    static std::expected<Options, std::string> parse(const QStringList& words);
};

} // namespace wendlow
