#include "BlockFinding.h"

#include "Overloaded.h"

#include <utility>

#include <fmt/format.h>

namespace wendlow {

BlockFinding BlockFinding::from(std::vector<std::string> reasons) {
    if (reasons.empty())
        return {Connected{}};
    return {Drifted{std::move(reasons)}};
}

Observations observations(const BlockFinding& finding, const BlockSubject& subject) {
    Observations result;
    const auto say = [&](std::string text) { result.push_back({subject.path, std::move(text)}); };
    std::visit(
        Overloaded{
            [&](const BlockFinding::Unreadable& unreadable) {
                result.push_back({subject.path,
                                  fmt::format("this file did not read as {} — {}", subject.language,
                                              unreadable.reason),
                                  unreadable.byte});
            },
            [&](const BlockFinding::Drifted& drifted) {
                for (const std::string& reason : drifted.reasons)
                    say(fmt::format("the Wendlow {} here — {}", subject.what, reason));
            },
            [&](const BlockFinding::Foreign& foreign) {
                for (const std::string& reason : foreign.reasons)
                    say(reason);
            },
            [&](const BlockFinding::FileAbsent&) { say("there is no file here"); },
            [&](const BlockFinding::Absent&) {
                say(fmt::format("this file holds no Wendlow {}", subject.what));
            },
            [&](const BlockFinding::Connected&) {
                say(fmt::format("the Wendlow {} here runs {}", subject.what, subject.command));
            },
        },
        finding.content);
    return result;
}

} // namespace wendlow
