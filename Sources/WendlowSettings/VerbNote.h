#pragma once

#include "ConnectorTypes.h"
#include "FileStamps.h"

#include <optional>
#include <string>
#include <vector>

namespace wendlow {

class Connector;

/// What a row's switch, and what stands for it, asks of a tool.
enum class RowVerb { connect, disconnect };

/// What a verb reported, kept beside its row until the app's state has moved on.
struct VerbNote {
    RowVerb verb = RowVerb::connect;
    ConnectorOutcome::Result result = ConnectorOutcome::Result::unchanged;
    /// The outcome's sentences, and one for each copy of which none of them tells.
    Observations lines;
    std::vector<std::string> places; ///< for each line where in its file it points; may be empty
    /// The state that the app had when the verb's own scan landed; nothing before that.
    std::optional<ConnectorState> stateWhenSeen = std::nullopt;
    /// The files that it speaks of, as the verb left them.
    // NOLINTNEXTLINE(readability-redundant-member-init): it may be left out of a list
    FileStamps files = {};
    bool canBeUndone = false; ///< it has changed something, and nobody has since

    /// Does the verb, and notes what came of it. Blocks on the disk.
    static VerbNote of(const Connector& connector, RowVerb verb);
    std::vector<std::string> paths() const;
};

} // namespace wendlow
