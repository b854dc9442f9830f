#include "Scopes/EditorMigrationWriter.h"

#include "ClientInstance.h"
#include "ConfigFile/Disk.h"
#include "ConfigFile/HiddenName.h"
#include "DateWords.h"
#include "InstalledBundle.h"
#include "OwnedNames.h"
#include "Say.h"
#include "Scopes/EditorScopePaths.h"

#include <expected>
#include <tuple>

#include <unistd.h>

namespace wendlow::EditorMigrationWriter {

namespace {

/// Why it failed, in words.
using Result = std::expected<void, std::string>;

Result inWords(const Disk::Result<void>& result) {
    if (result)
        return {};
    return std::unexpected(Disk::words(result.error()));
}

/// The folder, made where it lacks. One that somebody else could have put there is not used: what
/// is written into it would lie where they chose.
Result makeFolder(const std::filesystem::path& folder) {
    if (Disk::readLink(folder))
        return std::unexpected(
            say("the folder {} is a link, and nothing is written through one", folder.string()));
    if (const auto made = inWords(Disk::createDirectories(folder, 0700)); !made)
        return made;
    const auto found = Disk::attributes(folder);
    if (!found)
        return std::unexpected(Disk::words(found.error()));
    if (found->owner != ::geteuid())
        return std::unexpected(say("the folder {} belongs to somebody else", folder.string()));
    return {};
}

/// Under a new name first: a link that stands at the path is replaced and not followed.
Result put(const std::string& text, const std::filesystem::path& file) {
    const auto hidden = HiddenName::unique(file.parent_path() / "script");
    if (!hidden)
        return std::unexpected(Disk::words(hidden.error()));
    if (const auto made = inWords(Disk::create(*hidden, text, 0600)); !made)
        return made;
    // Where it cannot be made to run by itself, Python runs it all the same.
    std::ignore = Disk::setMode(*hidden, 0755);
    const auto moved = inWords(Disk::rename(*hidden, file));
    if (!moved)
        std::ignore = Disk::remove(*hidden);
    else
        std::ignore = Disk::flushFolder(file.parent_path());
    return moved;
}

} // namespace

Place Place::here() {
    Place place{.directory =
                    std::filesystem::path(ClientInstance::dotRootExpanded()) / "migrations",
                .mcp = std::nullopt};
    if (const auto bundle = InstalledBundle::current())
        place.mcp = OwnedNames::program(*bundle, OwnedNames::mcpProgram);
    return place;
}

std::string today(EditorDate date) {
    return DateWords::local(date).toString(QStringLiteral("yyyy-MM-dd")).toStdString();
}

EditorWriteOutcome write(const EditorScopeMigration& migration, std::string_view date,
                         const Place& place) {
    if (!place.mcp)
        return EditorWriteOutcome::refused(
            say("Wendlow is not running from an installed app bundle, so there is no wendlow-mcp "
                "here for the migration script to run its writes through."));
    if (migration.breaksLines() || EditorScopePaths::breaksLines(place.mcp->string()))
        return EditorWriteOutcome::refused(say("a name in this move holds a line break or another "
                                               "control character, so no script was written"));
    const auto file = place.directory / migration.scriptName(date);
    Result result = makeFolder(place.directory);
    if (result)
        result = put(migration.script(date, place.mcp->string()), file);
    if (!result)
        return EditorWriteOutcome::refused(
            say("Couldn’t write the migration script to {}: {}", file.string(), result.error()));
    return EditorWriteOutcome::wrote(file.string());
}

} // namespace wendlow::EditorMigrationWriter
