#pragma once

#include "Model/EditorScope.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace wendlow {

/// A move of a scope and of all below it, as it is shown before and written into a script. Pure.
struct EditorScopeMigration {
    struct Rename {
        std::string from;
        std::string to;
        bool operator==(const Rename&) const = default;
    };
    struct Retire {
        std::string scope;
        std::string destination; ///< of what it holds
        bool operator==(const Retire&) const = default;
    };

    std::variant<Rename, Retire> kind;
    std::vector<EditorScopeRow> affected;  ///< in the order of their paths
    std::vector<std::string> destinations; ///< of each of these

    static EditorScopeMigration rename(const std::vector<EditorScopeRow>& board, std::string from,
                                       std::string to);
    static EditorScopeMigration retire(const std::vector<EditorScopeRow>& board, std::string scope,
                                       std::string destination);
    /// The same to somewhere else. Costs less than to look for the rows once more.
    void redirect(std::string to);

    bool operator==(const EditorScopeMigration&) const = default;

    const std::string& moved() const;
    const std::string& to() const;
    bool isRetire() const { return std::holds_alternative<Retire>(kind); }
    std::int64_t memoryCount() const; ///< of every kind
    std::int64_t foldersTotal() const;
    /// Whether a name of it would end a line of the script, and be run.
    bool breaksLines() const;

    /// What it would do, in a sentence or two.
    std::string summary() const;
    /// The path as a piece of a file's name.
    static std::string slug(std::string_view path);
    /// `date`: as in "2026-11-19".
    std::string scriptName(std::string_view date) const;
    /// What does it: a program in Python that needs nothing but `mcp`, the path of `wendlow-mcp`.
    std::string script(std::string_view date, std::string_view mcp) const;
};

} // namespace wendlow
