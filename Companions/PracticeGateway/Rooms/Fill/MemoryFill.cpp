#include "Fill/MemoryFill.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "Fill/Content.h"
#include "Fill/Vocabulary.h"
#include "HomeFolder.h"
#include "ModShelf.h"

namespace wendlow {
namespace {

constexpr double hour = 3600;

const Vocabulary::MemoryType& typeOf(Content& content) {
    std::uint64_t place = content.below(1000);
    for (const Vocabulary::MemoryType& type : Vocabulary::memoryTypes()) {
        if (place < type.perThousand)
            return type;
        place -= type.perThousand;
    }
    return Vocabulary::memoryTypes().front();
}

std::vector<FilterPair> filtersOf(Content& content, std::string_view type, const Project& project) {
    using Words = std::string_view;
    constexpr Words sources[] = {"session", "meeting", "mail", "review", "paper"};
    constexpr Words areas[] = {"storage", "search", "interface", "release", "money", "people"};
    constexpr Words statuses[] = {"doing", "next", "next", "waiting", "done"};
    // In the order of their keys, as a written memory's filters are.
    std::vector<FilterPair> filters;
    const bool work = type == "ticket" || type == "focus";
    if (work && content.oneIn(2))
        filters.push_back({"archived", FilterValue(true)});
    if (content.oneIn(3))
        filters.push_back({"area", FilterValue(std::string(content.pick(areas)))});
    if (type == "decision")
        filters.push_back({"binding", FilterValue(!content.oneIn(4))});
    const auto name = project.scope.substr(project.scope.rfind('/') + 1);
    if (!name.empty() && !content.oneIn(5))
        filters.push_back({"project", FilterValue(std::string(name))});
    if (content.oneIn(2))
        filters.push_back({"source", FilterValue(std::string(content.pick(sources)))});
    if (work && !content.oneIn(8))
        filters.push_back({"status", FilterValue(std::string(content.pick(statuses)))});
    if (work || content.oneIn(6))
        filters.push_back({"week", FilterValue(static_cast<double>(1 + content.below(52)))});
    if (content.oneIn(6))
        filters.push_back({"with", FilterValue(std::string(content.person()))});
    return filters;
}

} // namespace

MemoryFill::MemoryFill(DocumentStore& documents, ModRoom& mods, const Clock& clock)
    : m_documents(documents), m_mods(mods), m_now(secondsOf(clock())) {}

void MemoryFill::fill(FillSize size) {
    constexpr std::uint64_t year = 365;
    rules();
    awkward();
    // The ones above are of the number too.
    const auto others = Vocabulary::standingRules().size() + Vocabulary::awkwardTexts().size() + 1 +
                        ModShelf::names().size();
    if (size != FillSize::power)
        memories(300 - others, 45);
    else
        memories(100'000 - others, 3 * year);
    folders();
    mods();
}

void MemoryFill::memories(std::uint64_t count, std::uint64_t days) {
    constexpr std::string_view writers[] = {"claude-code", "codex", "cursor", "wendlow-editor"};
    Content content("memories");
    std::vector<double> times(count);
    std::ranges::generate(times, [&] { return content.before(m_now, days); });
    std::ranges::sort(times);
    for (const double at : times) {
        const Project& project = content.project();
        const Vocabulary::MemoryType& type = typeOf(content);
        const std::string_view title = content.pick(std::span(type.titles));
        Document memory{.id = m_documents.nextMemoryID(),
                        .type = std::string(type.name),
                        .scope = std::string(project.scope),
                        .at = at,
                        .title = content.filled(title),
                        .why = content.filled("{reason}."),
                        .body = content.prose(project.name, 2 + content.below(3)),
                        .filters = filtersOf(content, type.name, project),
                        .writer = std::string(content.pick(writers))};
        m_documents.put(memory);
    }
}

void MemoryFill::awkward() {
    std::string longest;
    for (int count = 1; longest.size() < 10'000; ++count)
        longest += fmt::format("{}and the title goes on to its word number {}",
                               longest.empty() ? "" : ", ", count);
    Content content("awkward");
    for (const std::string_view text : Vocabulary::awkwardTexts())
        m_documents.put({.id = m_documents.nextMemoryID(),
                         .type = "note",
                         .scope = "/studio/letters",
                         .at = content.before(m_now, 3),
                         .title = std::string(text),
                         .why = "It has to be shown as it was written.",
                         .body = std::string(text) + "\n\n" + std::string(text)});
    m_documents.put({.id = m_documents.nextMemoryID(),
                     .type = "note",
                     .scope = "/studio/letters",
                     .at = m_now - hour,
                     .title = longest,
                     .why = "Somebody pasted it.",
                     .body = longest});
}

void MemoryFill::rules() {
    Content content("rules");
    for (const Vocabulary::StandingRule& rule : Vocabulary::standingRules()) {
        std::vector<FilterPair> filters;
        if (!rule.module.empty())
            filters.push_back({"rules-file", FilterValue(std::string(rule.module))});
        m_documents.put({.id = m_documents.nextMemoryID(),
                         .type = "rule",
                         .scope = std::string(rule.scope),
                         .at = content.before(m_now, 200),
                         .title = std::string(rule.text),
                         .titled = false,
                         .why = std::string(rule.why),
                         .body = std::string(rule.text),
                         .filters = std::move(filters),
                         .writer = "wendlow-editor"});
    }
    for (const auto& [module, sentence] : Vocabulary::moduleSentences())
        m_documents.database().run("UPDATE rule_modules SET sentence = ? WHERE tag = ?", sentence,
                                   module);
}

void MemoryFill::folders() {
    for (const Project& project : Content::projects())
        m_documents.database().run("INSERT INTO folder_maps(folder, scope) VALUES(?, ?)",
                                   expandingTilde(std::string(project.folder)), project.scope);
}

void MemoryFill::mods() {
    for (const std::string_view slug : ModShelf::names())
        m_mods.put(*ModShelf::find(slug), "It came with the workbench.", "wendlow-editor");
    m_mods.put(ModRejectionEntry{.slug = "price-watch",
                                 .scope = "/clients/harbour",
                                 .behavior = "fetch",
                                 .reason = "it asks for the tool web_fetch, which is not granted "
                                           "to mods"});
    m_mods.put(
        ModRejectionEntry{.slug = "old-notes", .scope = "/home", .reason = "mod.md has no hint"});

    constexpr std::string_view outcomes[] = {"ok",
                                             "ok",
                                             "ok",
                                             "ok",
                                             "maxTurns",
                                             "timedOut",
                                             "failed",
                                             "authFailure",
                                             "refusedNoBackup",
                                             "skippedNoHarness"};
    Content content("runs");
    const auto slugs = ModShelf::names();
    for (int count = 0; count < 40; ++count) {
        const ModBoardEntry& mod = *ModShelf::find(content.pick(std::span(slugs)));
        const ModBehaviorEntry& behavior = content.pick(std::span(std::as_const(mod.behaviors)));
        const std::string_view outcome = content.pick(outcomes);
        const double started = content.before(m_now, 30);
        ModRunEntry run{.mod = count % 13 == 12 ? "retired-helper" : mod.slug,
                        .behavior = behavior.name,
                        .scope = mod.scope,
                        .trigger = behavior.trigger,
                        .startedAt = started,
                        .endedAt = started + static_cast<double>(4 + content.below(5000)),
                        .outcome = std::string(outcome)};
        if (!outcome.starts_with("skipped") && !outcome.starts_with("refused")) {
            run.exit = outcome == "ok" ? 0 : 1;
            run.turns = static_cast<std::int64_t>(1 + content.below(24));
            run.mutations = static_cast<std::int64_t>(content.below(9));
            run.report = content.prose("the studio", 3);
            if (content.oneIn(6))
                *run.report += "\n\n…[report truncated by Wendlow]";
        }
        m_mods.put(run);
    }
}

} // namespace wendlow
