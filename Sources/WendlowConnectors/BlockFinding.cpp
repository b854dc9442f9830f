#include "BlockFinding.h"

#include "Overloaded.h"
#include "Say.h"

#include <utility>

namespace wendlow {

BlockFinding BlockFinding::from(std::vector<std::string> reasons) {
    if (reasons.empty())
        return {Connected{}};
    return {Drifted{std::move(reasons)}};
}

namespace {

std::string driftedWords(OurPart what, const std::string& reason) {
    switch (what) {
    case OurPart::hookEntry:
        return say("the Wendlow hook entry here — {}", reason);
    case OurPart::serverEntry:
        return say("the Wendlow MCP server entry here — {}", reason);
    case OurPart::plugin:
        break;
    }
    return say("the Wendlow plugin here — {}", reason);
}

std::string absentWords(OurPart what) {
    switch (what) {
    case OurPart::hookEntry:
        return say("this file holds no Wendlow hook entry");
    case OurPart::serverEntry:
        return say("this file holds no Wendlow MCP server entry");
    case OurPart::plugin:
        break;
    }
    return say("this file holds no Wendlow plugin");
}

std::string connectedWords(OurPart what, const std::string& command) {
    switch (what) {
    case OurPart::hookEntry:
        return say("the Wendlow hook entry here runs {}", command);
    case OurPart::serverEntry:
        return say("the Wendlow MCP server entry here runs {}", command);
    case OurPart::plugin:
        break;
    }
    return say("the Wendlow plugin here runs {}", command);
}

} // namespace

Observations observations(const BlockFinding& finding, const BlockSubject& subject) {
    Observations result;
    const auto add = [&](std::string text) { result.push_back({subject.path, std::move(text)}); };
    std::visit(Overloaded{
                   [&](const BlockFinding::Unreadable& unreadable) {
                       result.push_back({subject.path,
                                         say("this file did not read as {} — {}",
                                             say.view(subject.language), unreadable.reason),
                                         unreadable.byte});
                   },
                   [&](const BlockFinding::Drifted& drifted) {
                       for (const std::string& reason : drifted.reasons)
                           add(driftedWords(subject.what, reason));
                   },
                   [&](const BlockFinding::Foreign& foreign) {
                       for (const std::string& reason : foreign.reasons)
                           add(reason);
                   },
                   [&](const BlockFinding::FileAbsent&) { add(say("there is no file here")); },
                   [&](const BlockFinding::Absent&) { add(absentWords(subject.what)); },
                   [&](const BlockFinding::Connected&) {
                       add(connectedWords(subject.what, subject.command));
                   },
               },
               finding.content);
    return result;
}

} // namespace wendlow
