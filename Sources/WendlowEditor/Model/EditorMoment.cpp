#include "Model/EditorMoment.h"

#include "Model/DecimalInteger.h"

#include <string_view>

namespace wendlow {

std::optional<std::string> EditorMoment::transcriptTool() const {
    constexpr std::string_view prefix = "one.tarnbeck.wendlow.transcript.";
    if (!bundle || !bundle->starts_with(prefix) || bundle->size() == prefix.size())
        return std::nullopt;
    return bundle->substr(prefix.size());
}

std::optional<std::string> EditorMoment::agentTool() const {
    auto tool = transcriptTool();
    return tool ? tool : sessionTool;
}

bool EditorMoment::drawsTextCard() const {
    return isTranscript() || (!framed && sessionTool.has_value());
}

std::optional<std::int64_t> EditorMoment::thumbnailKey() const {
    return decimalInteger(id);
}

} // namespace wendlow
