// The scan beside a whole parser of TOML, from the same bytes in memory. The parser does more: it
// judges values and builds a tree. The scan's share of that is what a settings window waits for.

#include "ConfigFile/TOMLText.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#define TOML_EXCEPTIONS 0
#include <toml++/toml.h>

#include <iterator>
#include <string>

namespace wendlow::benchmarks {

namespace {

/// A settings file grown to `size`: servers with their arguments and environment, trusted hooks,
/// projects, and a person's comments between them.
std::string generatedCodexFile(std::size_t size) {
    std::string text = "# Settings\nmodel = \"some-model-5\"\napproval_policy = \"on-request\"\n";
    for (int index = 0; text.size() < size; ++index) {
        fmt::format_to(std::back_inserter(text),
                       "\n# Server {0}, as the wiki says\n[mcp_servers.server-{0}]\n"
                       "command = \"/home/person/bin/server-{0}\" # not the system's\n"
                       "args = [\"--root\", \"/home/person/projects/{0}\", # where it looks\n"
                       "        \"--depth\", \"3\"]\nstartup_timeout_sec = 20.5\nenabled = true\n"
                       "env = {{ HOME = \"/home/person\", TOKEN_FILE = '/run/secrets/{0}' }}\n"
                       "\n[projects.\"/home/person/projects/{0}\"]\ntrust_level = \"trusted\"\n"
                       "added = 2026-11-21 07:32:00Z\nnote.text = \"caf\\u00e9 \\\"{0}\\\"\"\n"
                       "\n[hooks.state.\"/home/person/.codex/hooks.json:stop:{0}:0\"]\n"
                       "trusted_hash = \"sha256:{0:064x}\"\n"
                       "\n[[profiles]]\nname = 'profile {0}'\ninstructions = \"\"\"\n"
                       "Answer briefly.\nAsk before anything is deleted.\n\"\"\"\n",
                       index);
    }
    return text;
}

struct Scan {
    static bool reads(std::string_view text) { return TOMLText::scan(text).has_value(); }
};

struct TomlPlusPlus {
    static bool reads(std::string_view text) { return toml::parse(text).succeeded(); }
};

template<typename Reader> void scan(benchmark::State& state) {
    const auto text = generatedCodexFile(static_cast<std::size_t>(state.range(0)) << 20U);
    if (!Reader::reads(text)) {
        state.SkipWithError("the file was not read");
        return;
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(Reader::reads(text));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void file(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("MB")->Arg(1)->Unit(benchmark::kMillisecond);
}

BENCHMARK(scan<Scan>)->Apply(file);
BENCHMARK(scan<TomlPlusPlus>)->Apply(file);

} // namespace

} // namespace wendlow::benchmarks
