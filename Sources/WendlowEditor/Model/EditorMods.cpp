#include "Model/EditorMods.h"

#include "PlainText.h"
#include "Say.h"

#include <algorithm>
#include <chrono>
#include <iterator>

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace wendlow {

std::string EditorModBehavior::powers() const {
    if (!wake)
        return say("runs in your session — your tools, no ceiling");
    const std::string granted = tools && !tools->empty()
                                    ? fmt::format("{}", fmt::join(*tools, ", "))
                                    : say("no tools granted");
    const std::string ceiling = maxMutations ? say.plural(*maxMutations, "up to {} store changes",
                                                          "up to {} store changes", *maxMutations)
                                             : say("no ceiling declared");
    return granted + " · " + ceiling;
}

std::vector<std::pair<std::string, std::int64_t>> EditorInstalledMod::filesWithRevs() const {
    std::vector<std::pair<std::string, std::int64_t>> pairs;
    pairs.reserve(files.size());
    for (const std::string& file : files)
        pairs.emplace_back(file, rev);
    return pairs;
}

std::string EditorModRejection::label() const {
    return behavior ? slug + "/" + *behavior : slug;
}

std::string EditorModRejection::id() const {
    return label() + "|" + scope;
}

std::string EditorModRun::lane() const {
    return behavior.empty() ? mod : mod + "/" + behavior;
}

std::int64_t EditorModRun::seconds() const {
    using namespace std::chrono_literals;
    const auto took = std::chrono::floor<std::chrono::seconds>(endedAt - startedAt + 500ms);
    return std::max<std::int64_t>(took.count(), 0);
}

bool EditorModRun::hasReport() const {
    return report && !PlainText::trimmed(*report).empty();
}

bool EditorModRun::isReportTruncated() const {
    return report && report->ends_with("\n\n…[report truncated by Wendlow]");
}

std::vector<EditorModRun> EditorModsBoard::runsOf(std::string_view slug) const {
    std::vector<EditorModRun> found;
    std::ranges::copy_if(runs, std::back_inserter(found),
                         [slug](const EditorModRun& run) { return run.mod == slug; });
    return found;
}

std::vector<EditorModRun> EditorModsBoard::orphanRuns() const {
    std::vector<EditorModRun> found;
    std::ranges::copy_if(runs, std::back_inserter(found), [this](const EditorModRun& run) {
        return std::ranges::find(mods, run.mod, &EditorInstalledMod::slug) == mods.end();
    });
    return found;
}

} // namespace wendlow
