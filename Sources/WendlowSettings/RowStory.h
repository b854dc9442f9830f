#pragma once

#include "ConnectableApp.h"
#include "VerbNote.h"

#include <string>

namespace wendlow {

/// How an open row tells of its app: first, in a strip, what has happened and what to do next; then
/// what can be unfolded; then what its files hold. Pure.
namespace RowStory {

/// What a row is told from. Pointers are null for what is not there.
struct Subject {
    std::string name; ///< of the app
    ConnectorState state = ConnectorState::found;
    const VerbNote* verb = nullptr; ///< the last, once its own scan has landed
};

/// The strips at the top of an open row.
std::vector<RowStrip> strips(const Subject& subject);
/// What stands folded below them, and what that is called; empty for nothing.
std::vector<ConnectableAppNote> changes(const Subject& subject);
std::string changesTitle(const Subject& subject);
/// What the last verb came to, in one go, for a screen reader.
std::string spoken(const Subject& subject);

/// What an action is called, and what a screen reader hears besides.
std::string label(RowAction action);
std::string hint(RowAction action, const std::string& name, const std::string& path);

/// The lines with what stands beside them; `places` may be shorter.
std::vector<ConnectableAppNote> numbered(const Observations& lines,
                                         const std::vector<std::string>& places);

} // namespace RowStory
} // namespace wendlow
