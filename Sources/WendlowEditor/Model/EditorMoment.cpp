#include "Model/EditorMoment.h"

#include <charconv>
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
    std::string_view digits = id;
    if (digits.starts_with('+'))
        digits.remove_prefix(1);
    // A second sign would be taken by the reading below.
    if (digits.size() < id.size() && digits.starts_with('-'))
        return std::nullopt;
    std::int64_t key = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), key);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return key;
}

} // namespace wendlow
