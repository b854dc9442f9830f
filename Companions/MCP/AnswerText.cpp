#include "AnswerText.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace wendlow::AnswerText {

namespace {

using Told = std::expected<std::string, std::string>;

Told told(const AnswerCase::NoteID& answer) {
    if (answer.echo && !answer.echo->empty())
        return fmt::format("Saved {}: {}.", answer._0, fmt::join(*answer.echo, ", "));
    return fmt::format("Saved {}.", answer._0);
}

} // namespace

Told told(const GatewayResponse& response, std::string_view tool) {
    if (const auto* const answer = std::get_if<AnswerCase::NoteID>(&response))
        return told(*answer);
    if (const auto* const answer = std::get_if<AnswerCase::Text>(&response))
        return answer->_0;
    if (const auto* const answer = std::get_if<AnswerCase::Failure>(&response))
        return std::unexpected(answer->message);
    if (std::holds_alternative<AnswerCase::Unimplemented>(response))
        return std::unexpected(
            fmt::format("This Wendlow does not know {} yet; it is older than this tool.", tool));
    return std::unexpected("Wendlow sent an answer we couldn't read");
}

} // namespace wendlow::AnswerText
