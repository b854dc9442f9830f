// The edit that a connector makes, beside what it cannot do without: one scan and one copy.

#include "ConfigFile/JSONEdit.h"
#include "Support/GeneratedClaudeFile.h"
#include "Support/PeakMemory.h"

#include <benchmark/benchmark.h>

#include <string>

namespace wendlow::benchmarks {

namespace {

const JSONLiteral& server() {
    static const auto literal = JSONLiteral::object(
        {{"type", JSONLiteral::string("stdio")},
         {"command", JSONLiteral::string("/Applications/Wendlow.app/Contents/MacOS/wendlow-mcp")},
         {"args", JSONLiteral::array({JSONLiteral::string("--tool=claude")})}});
    return literal;
}

struct SetMember {
    static std::size_t run(const std::string& text) {
        return JSONEdit::setMember(text, {"mcpServers"}, "wendlow", server(), JSONDialect::json)
            ->size();
    }
};

struct ScanAndCopy {
    static std::size_t run(const std::string& text) {
        const auto document = JSONText::scanWithTrivia(text, JSONDialect::json);
        std::string copy = text;
        benchmark::DoNotOptimize(copy.data());
        return document->root().count() + copy.size();
    }
};

template<typename Work> void edit(benchmark::State& state) {
    const auto text = generatedClaudeFile(static_cast<ClaudeFileKind>(state.range(0)),
                                          static_cast<std::size_t>(state.range(1)) * megabyte);
    const auto peak = peakMemory([&] { benchmark::DoNotOptimize(Work::run(text)); });
    for (auto _ : state) {
        benchmark::DoNotOptimize(Work::run(text));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
    state.counters["memory/file"] = static_cast<double>(peak) / static_cast<double>(text.size());
}

void files(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"longPastes", "MB"})
        ->Unit(benchmark::kMillisecond)
        ->MinTime(0.3)
        ->ArgsProduct({{0, 1}, {13}});
}

BENCHMARK(edit<SetMember>)->Apply(files);
BENCHMARK(edit<ScanAndCopy>)->Apply(files);

} // namespace

} // namespace wendlow::benchmarks
