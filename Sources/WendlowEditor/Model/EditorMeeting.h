#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

struct EditorMeeting {
    std::string id;
    std::optional<std::string> title = std::nullopt;
    std::optional<std::string> titleSource = std::nullopt;
    std::string day = {}; ///< these four as the daemon printed them
    std::string from = {};
    std::string to = {};
    std::string duration = {};
    std::vector<std::string> speakers = {};
    std::int64_t lines = 0;

    bool operator==(const EditorMeeting&) const = default;

    /// The application it was held in, out of its id.
    std::string app() const;
};

struct EditorTranscript {
    struct Line {
        std::int64_t id = 0; ///< the row in the daemon's store
        std::string speaker;
        std::string text;
        std::string witness; ///< the daemon's proof of what the line said when it was read
        double at = 0;       ///< as the wire gives it

        bool operator==(const Line&) const = default;
    };

    std::string id;
    std::optional<std::string> title = std::nullopt;
    std::optional<std::string> titleSource = std::nullopt;
    std::vector<std::string> who = {};
    std::vector<Line> lines = {};

    bool operator==(const EditorTranscript&) const = default;

    /// Without the lines of this row.
    EditorTranscript removing(std::int64_t rowid) const;
};

/// What a reading came to: what was read, or the words for why not.
using EditorTranscriptResult = std::expected<EditorTranscript, std::string>;
using EditorMeetingsResult = std::expected<std::vector<EditorMeeting>, std::string>;

namespace EditorLineDeleteCase {
struct Deleted {
    /// As it reads now. Nothing: it could not be read again.
    std::optional<EditorTranscript> transcript;
    bool operator==(const Deleted&) const = default;
};
struct Failed {
    std::string words;
    bool operator==(const Failed&) const = default;
};
/// The line is not what it was when it was read, or is gone.
struct Refused {
    bool operator==(const Refused&) const = default;
};
} // namespace EditorLineDeleteCase
using EditorLineDelete = std::variant<EditorLineDeleteCase::Deleted, EditorLineDeleteCase::Failed,
                                      EditorLineDeleteCase::Refused>;

// NOLINTEND(readability-redundant-member-init)

} // namespace wendlow
