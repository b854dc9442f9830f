#pragma once

#include "Model/EditorDate.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

/// Something that happened on the screen or in a session of an AI tool.
struct EditorMoment {
    std::string id;
    EditorDate at = {};
    double shade = 0; ///< the grey of a seeded tile; 0 for live rows
    std::string title = {};
    /// The application's bundle identifier, or the mark of a transcript.
    std::optional<std::string> bundle = std::nullopt;
    std::optional<std::string> abstract = std::nullopt;
    std::optional<std::string> passage = std::nullopt;
    double score = 0;
    std::vector<std::string> files = {};
    std::int64_t fileCount = 0;
    bool framed = false; ///< a frame of the screen exists
    std::optional<std::string> sessionTool = std::nullopt;

    bool operator==(const EditorMoment&) const = default;

    /// The tool whose transcript this comes from.
    std::optional<std::string> transcriptTool() const;
    bool isTranscript() const { return transcriptTool().has_value(); }
    /// The AI tool of this moment, from its transcript or its session.
    std::optional<std::string> agentTool() const;
    /// Whether its tile is a card of text and not a picture.
    bool drawsTextCard() const;
    /// The number by which its frame is addressed. Nothing: its id is not a whole number.
    std::optional<std::int64_t> thumbnailKey() const;
};

/// One thumbnail.
struct EditorTile {
    /// The bytes of an encoded picture. Nothing: the daemon has none, and is not asked again.
    std::optional<std::string> image;

    bool operator==(const EditorTile&) const = default;
};

// NOLINTEND(readability-redundant-member-init)

} // namespace wendlow
