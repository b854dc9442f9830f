#pragma once

#include "ConfigFile/JSONNode.h"

#include <string>
#include <string_view>
#include <variant>

namespace wendlow {

/// What a hooks file says of its own version. Only the number 1, spelled so, has been read by this
/// build; every other is left alone rather than guessed at.
struct CursorHooksVersion {
    struct Absent {
        bool operator==(const Absent&) const = default;
    };
    struct One {
        bool operator==(const One&) const = default;
    };
    struct Foreign {
        std::string text; ///< as the file spells it, quotation marks and all
        bool operator==(const Foreign&) const = default;
    };

    std::variant<Absent, One, Foreign> content;

    /// `bytes` are what was scanned.
    static CursorHooksVersion of(const JSONNode& root, std::string_view bytes);

    /// The text of a foreign one; null: it is none.
    const std::string* foreign() const;

    bool operator==(const CursorHooksVersion&) const = default;
};

/// The file states a version that this build does not add entries to.
struct CursorHookError {
    std::string version;

    std::string description() const;
    bool operator==(const CursorHookError&) const = default;
};

} // namespace wendlow
