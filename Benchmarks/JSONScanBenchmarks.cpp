// The scan beside other readers of JSON, each from the same bytes in memory into fresh memory.

#include "ConfigFile/JSONText.h"
#include "Support/GeneratedClaudeFile.h"
#include "Support/PeakMemory.h"

#include <benchmark/benchmark.h>
#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>
#include <rapidjson/document.h>
#include <simdjson.h>

#include <string>

namespace wendlow::benchmarks {

namespace {

struct Scan {
    static bool reads(const std::string& text) {
        const auto document = JSONText::scanWithTrivia(text, JSONDialect::json);
        return document.has_value() && document->root().isObject();
    }
};

struct BoostJSON {
    static bool reads(const std::string& text) {
        boost::json::monotonic_resource memory;
        boost::json::error_code error;
        const auto document = boost::json::parse(text, error, &memory);
        return !error && document.is_object();
    }
};

struct RapidJSON {
    static bool reads(const std::string& text) {
        rapidjson::Document document;
        document.Parse<rapidjson::kParseValidateEncodingFlag>(text.data(), text.size());
        return !document.HasParseError() && document.IsObject();
    }
};

/// The padding that it needs behind the text is there; asking for it would copy the text.
struct SimdjsonDOM {
    static bool reads(const std::string& text) {
        simdjson::dom::parser parser;
        const auto document = parser.parse(text.data(), text.size(), false);
        return document.error() == simdjson::SUCCESS && document.is_object();
    }
};

template<typename Reader> void scan(benchmark::State& state) {
    auto text = generatedClaudeFile(static_cast<ClaudeFileKind>(state.range(0)),
                                    static_cast<std::size_t>(state.range(1)) * megabyte);
    text.reserve(text.size() + simdjson::SIMDJSON_PADDING);
    bool read = false;
    const auto peak = peakMemory([&] { read = Reader::reads(text); });
    if (!read) {
        state.SkipWithError("the file was not read");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(Reader::reads(text));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
    state.counters["memory/file"] = static_cast<double>(peak) / static_cast<double>(text.size());
}

void files(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgNames({"longPastes", "MB"})->Unit(benchmark::kMillisecond)->MinTime(0.3);
}
void usualFiles(benchmark::internal::Benchmark* benchmark) {
    benchmark->Apply(files)->ArgsProduct({{0, 1}, {13}});
}
void allFiles(benchmark::internal::Benchmark* benchmark) {
    benchmark->Apply(files)->ArgsProduct({{0, 1}, {13, 65, 238}});
}

BENCHMARK(scan<Scan>)->Apply(allFiles);
BENCHMARK(scan<BoostJSON>)->Apply(usualFiles);
BENCHMARK(scan<RapidJSON>)->Apply(usualFiles);
BENCHMARK(scan<SimdjsonDOM>)->Apply(usualFiles);

} // namespace

} // namespace wendlow::benchmarks
