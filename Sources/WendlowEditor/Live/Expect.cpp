#include "Live/Expect.h"

#include <fmt/format.h>

namespace wendlow {

std::string misfit(const GatewayResponse& response, std::string_view answered, MissingDoor door) {
    if (const auto* const failure = std::get_if<AnswerCase::Failure>(&response))
        return failure->message;
    const auto* const missing = std::get_if<AnswerCase::Unimplemented>(&response);
    if (missing != nullptr && door == MissingDoor::named)
        return fmt::format("This build of Wendlow has no {} door.", missing->verb);
    return fmt::format("Wendlow answered{}{} with something this mod does not understand.",
                       answered.empty() ? "" : " ", answered);
}

} // namespace wendlow
