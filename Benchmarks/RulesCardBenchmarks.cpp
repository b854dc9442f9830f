// Reading a rules card of a megabyte, beside the same lines matched with regular expressions, and
// beside no more than cutting it into trimmed lines.

#include "Model/Blanks.h"
#include "Model/EditorRulesCard.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <cstdint>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

#include <malloc.h>

namespace wendlow::benchmarks {

namespace {

/// No row gives its memory back to the system and has it cleared again at the next round: whether
/// the allocator does depends on what was freed last, and costs more than any of this.
[[maybe_unused]] const bool keepsMemory = [] {
    constexpr int all = 256 * 1024 * 1024;
    return ::mallopt(M_TRIM_THRESHOLD, all) == 1 && ::mallopt(M_MMAP_THRESHOLD, all / 8) == 1;
}();

/// A card of a megabyte: of four lines three are rules, and one is a module.
const std::string& card() {
    static const std::string text = [] {
        std::string made;
        for (int scope = 0; made.size() < 1'000'000; ++scope) {
            made += fmt::format("/work/scope{} rules:\n", scope);
            for (int rule = 0; rule < 24; ++rule)
                made += fmt::format("- Never let the timetable of pier {} touch saved settings"
                                    "  ·m:{}·\n",
                                    rule, scope * 100 + rule);
            for (int module = 0; module < 8; ++module)
                made += fmt::format("<module{} trigger=\"Read before work on pier {}.\" "
                                    "file=\"work/scope{}/module{}.md\" rev=\"{}\"/>\n",
                                    module, module, scope, module, scope);
        }
        return made;
    }();
    return text;
}

template<class Take> void eachLine(std::string_view text, const Take& take) {
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        take(Blanks::trimmed(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void setBytes(benchmark::State& state) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(card().size()));
}

void parseCard(benchmark::State& state) {
    card();
    std::size_t found = 0;
    for (auto _ : state) {
        const EditorRulesCard parsed = EditorRulesCard::parse("/work", card());
        found = parsed.inlineRules.size() + parsed.files.size();
    }
    state.counters["found"] = static_cast<double>(found);
    setBytes(state);
}
BENCHMARK(parseCard)->Unit(benchmark::kMillisecond);

void splitAndTrim(benchmark::State& state) {
    card();
    for (auto _ : state) {
        std::vector<std::string> lines;
        eachLine(card(), [&](std::string_view line) { lines.emplace_back(line); });
        benchmark::DoNotOptimize(lines);
    }
    setBytes(state);
}
BENCHMARK(splitAndTrim)->Unit(benchmark::kMillisecond);

void matchWithRegex(benchmark::State& state) {
    card();
    const std::regex heading("(/.*) rules:");
    const std::regex rule("- (.*)  ·m:([^·]+)·");
    const std::regex module("<([^ />]+) trigger=\"([^\"]*)\" file=\"([^\"]*)\" rev=\"([0-9]+)\"/>");
    std::size_t found = 0;
    for (auto _ : state) {
        std::vector<EditorRuleLine> rules;
        std::vector<EditorRulesFileEntry> modules;
        std::string scope;
        eachLine(card(), [&](std::string_view line) {
            std::cmatch match;
            const char* const begin = line.data();
            const char* const end = begin + line.size();
            if (std::regex_match(begin, end, match, rule))
                rules.push_back({.id = match[2], .text = match[1], .scope = scope});
            else if (std::regex_match(begin, end, match, module))
                modules.push_back({.scope = {},
                                   .name = match[1],
                                   .trigger = match[2],
                                   .file = match[3],
                                   .rev = std::stoll(match[4])});
            else if (std::regex_match(begin, end, match, heading))
                scope = match[1];
        });
        found = rules.size() + modules.size();
    }
    state.counters["found"] = static_cast<double>(found);
    setBytes(state);
}
BENCHMARK(matchWithRegex)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace wendlow::benchmarks
