#include "VerbNote.h"

#include "Connector.h"
#include "FilePlace.h"
#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

/// Copies are left out: pruned by a later verb, they say nothing about the tool's own files.
std::vector<std::string> concerned(const ConnectorOutcome& outcome) {
    std::vector<std::string> paths;
    for (const Observation& line : outcome.observations)
        if (line.subject.starts_with('/') &&
            std::ranges::find(outcome.backups, std::filesystem::path(line.subject)) ==
                outcome.backups.end())
            paths.push_back(line.subject);
    return paths;
}

} // namespace

VerbNote VerbNote::of(const Connector& connector, RowVerb verb) {
    const ConnectorOutcome outcome =
        verb == RowVerb::connect ? connector.install() : connector.remove();
    VerbNote note{.verb = verb,
                  .result = outcome.result,
                  .lines = outcome.observations,
                  .places = {},
                  .files = stampsOf(concerned(outcome)),
                  .canBeUndone = outcome.result == ConnectorOutcome::Result::changed};
    for (const std::filesystem::path& backup : outcome.backups)
        if (std::ranges::find(note.lines, backup.string(), &Observation::subject) ==
            note.lines.end())
            note.lines.push_back(
                {backup.string(), say("a backup was written here before this change")});
    note.places = FilePlace::words(note.lines);
    return note;
}

std::vector<std::string> VerbNote::paths() const {
    std::vector<std::string> list;
    for (const auto& [path, stamp] : files)
        list.push_back(path);
    return list;
}

} // namespace wendlow
