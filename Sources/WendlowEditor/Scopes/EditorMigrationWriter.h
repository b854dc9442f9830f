#pragma once

#include "Model/EditorDate.h"
#include "Model/EditorRules.h"
#include "Scopes/EditorScopeMigration.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

/// Puts a migration's script where the person finds and runs it. Nothing else of a move is done
/// here or anywhere in the window.
namespace wendlow::EditorMigrationWriter {

/// Where scripts go, and what they make their writes through.
struct Place {
    std::filesystem::path directory;
    /// `wendlow-mcp`; nothing where the program runs from no installed application.
    std::optional<std::filesystem::path> mcp;

    /// Below the home of this process, beside its own program. Asks the file system.
    static Place here();
};

/// As in "2026-11-19", in local time.
std::string today(EditorDate date);

/// Gives the path of what was written, or why nothing was. A script of the same name is replaced as
/// a whole; nothing is written through a link, and a failure leaves the folder as it was. Blocks;
/// any thread.
EditorWriteOutcome write(const EditorScopeMigration& migration, std::string_view date,
                         const Place& place);

} // namespace wendlow::EditorMigrationWriter
