#include "ClaudeChat/ClaudeChatRetirement.h"

#include "ClaudeChat/ClaudeChatConfig.h"
#include "ConfigFile/Leftovers.h"
#include "Say.h"
#include "ToolFile.h"

#include <utility>

namespace wendlow {

namespace {

using Result = ConnectorOutcome::Result;

ConnectorOutcome said(Result result, Observation observation) {
    return {.result = result, .observations = {std::move(observation)}, .backups = {}};
}

} // namespace

ConnectorOutcome ClaudeChatRetirement::retire() const {
    ToolFile file = ToolFile::read(paths.configFile, ToolFile::Purpose::plan);
    if (!file.bytes)
        return said(Result::unchanged, {file.label, say("there is no file here")});
    const auto document = ClaudeChatConfig::read(*file.bytes, profile);
    if (!document)
        return said(Result::refused,
                    {file.label,
                     say("this file did not read as {} — {}", "JSON", document.error().reason),
                     document.error().byte});
    auto retired = ClaudeChatConfig::retired(*file.bytes, *document, profile);
    if (!retired)
        return said(Result::refused,
                    {file.label, say("nothing was written — {}", description(retired.error()))});
    if (retired->names.empty())
        return said(Result::unchanged,
                    {file.label, say("this file holds no Wendlow entry of this profile")});

    Observations swept = Leftovers::sweep(file.path, now());
    // Nothing looks at the document from here on: the bytes it points into are moved.
    const std::vector<FileChange> changes{{.path = std::move(file.path),
                                           .label = file.label,
                                           .before = std::move(file.bytes),
                                           .after = std::move(retired->bytes)}};
    auto result = Transaction::commit(changes, now());
    if (auto* refused = std::get_if<TransactionResult::Refused>(&result.outcome)) {
        append(swept, std::move(refused->observations));
        return {.result = Result::refused, .observations = std::move(swept), .backups = {}};
    }
    // Taking a member out always changes the bytes, so nothing is left but a commit.
    auto& committed = std::get<TransactionResult::Committed>(result.outcome);
    append(swept, std::move(committed.observations));
    ConnectorOutcome outcome{.result = Result::changed,
                             .observations = std::move(swept),
                             .backups = std::move(committed.backups)};
    for (const std::string& entry : retired->names)
        outcome.observations.push_back(
            {file.label, say("the Wendlow entry \"{}\" was removed from this file", entry)});
    return outcome;
}

} // namespace wendlow
