#pragma once

#include "Scopes/EditorScopeMigration.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The text of the script that moves a scope. Whoever reads it sees first what it will do; it
/// writes nothing unless it is told to, and nothing before it has made a copy of the store and
/// counted it.
namespace wendlow::MigrationScript {

std::string text(const EditorScopeMigration& migration, std::string_view date,
                 std::string_view mcp);

/// A string as Python reads it. The text must not break lines.
std::string py(std::string_view text);

/// How many memories are filed exactly there.
std::int64_t memories(const EditorScopeRow& row);

} // namespace wendlow::MigrationScript
