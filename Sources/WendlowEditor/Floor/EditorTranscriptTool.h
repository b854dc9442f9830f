#pragma once

#include <string>
#include <string_view>

namespace wendlow::EditorTranscriptTool {

/// The name by which a person knows the tool that a transcript comes from. One that is not known
/// goes by its own name, begun in upper case.
std::string name(std::string_view raw);

} // namespace wendlow::EditorTranscriptTool
