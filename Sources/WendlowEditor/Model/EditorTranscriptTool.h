#pragma once

#include <string>
#include <string_view>

/// The AI tool of a transcript as a person knows it.
namespace wendlow::EditorTranscriptTool {

/// By the tool's part of a transcript's mark; one that is not known keeps its own name.
std::string name(std::string_view raw);

} // namespace wendlow::EditorTranscriptTool
