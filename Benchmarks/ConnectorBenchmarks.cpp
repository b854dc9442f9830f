// A whole verb on real files, beside a bare program that does only what cannot be left out: read
// both files, copy the large one and read the copy back, write, flush, rename.

#include "ClaudeCode/ClaudeCodeConnector.h"
#include "Support/GeneratedClaudeFile.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace wendlow::benchmarks {

namespace {

namespace fs = std::filesystem;

/// A home with a generated `.claude.json` and a small settings file, on a real disk.
class Home {
public:
    explicit Home(std::size_t size)
        : m_servers(generatedClaudeFile(ClaudeFileKind::shortHistories, size)) {
        std::string pattern = (fs::current_path() / "benchmark-home-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no folder for the benchmark could be made");
        m_path = pattern;
        fs::create_directory(m_path / ".claude");
        fs::create_directories(m_path / "Wendlow.app/Contents/MacOS");
    }
    ~Home() {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;

    /// Both files as they were before any verb, and no copies.
    void refill() const {
        for (const auto& entry : fs::directory_iterator(m_path))
            if (entry.is_regular_file())
                fs::remove(entry);
        std::ofstream(servers(), std::ios::binary) << m_servers;
        std::ofstream(settings(), std::ios::binary) << "{\n  \"model\": \"opus\"\n}\n";
    }
    fs::path servers() const { return m_path / ".claude.json"; }
    fs::path settings() const { return m_path / ".claude/settings.json"; }
    ClaudeCodeConnector connector() const {
        return ClaudeCodeConnector(ClaudeCodePaths::under(m_path, m_path / "Wendlow.app"));
    }

private:
    std::string m_servers;
    fs::path m_path;
};

std::string readWhole(const fs::path& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::string bytes(fs::file_size(path), '\0');
    std::size_t held = 0;
    while (held < bytes.size())
        held += static_cast<std::size_t>(
            std::max<ssize_t>(::read(file, bytes.data() + held, bytes.size() - held), 0));
    ::close(file);
    return bytes;
}

enum class Flush { no, yes };

void writeWhole(const fs::path& path, std::string_view bytes, Flush flush) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    while (!bytes.empty())
        bytes.remove_prefix(static_cast<std::size_t>(
            std::max<ssize_t>(::write(file, bytes.data(), bytes.size()), 0)));
    if (flush == Flush::yes)
        ::fsync(file);
    ::close(file);
}

void bare(const Home& home) {
    const auto servers = readWhole(home.servers());
    const auto settings = readWhole(home.settings());
    benchmark::DoNotOptimize(settings.data());
    const auto copy = home.servers().string() + ".copy";
    writeWhole(copy, servers, Flush::no);
    benchmark::DoNotOptimize(readWhole(copy) == servers);
    const auto temporary = home.servers().string() + ".new";
    writeWhole(temporary, servers, Flush::yes);
    fs::rename(temporary, home.servers());
}

void require(benchmark::State& state, const ConnectorOutcome& outcome) {
    if (outcome.result != ConnectorOutcome::Result::changed)
        state.SkipWithError(outcome.observations.front().text.c_str());
}

enum class Work { bareProgram, install, remove };

void verb(benchmark::State& state, Work work) {
    const auto size = static_cast<std::size_t>(state.range(0)) * megabyte;
    const Home home(size);
    for (auto _ : state) {
        state.PauseTiming();
        home.refill();
        if (work == Work::remove)
            require(state, home.connector().install());
        ::sync(); // what was written outside the measure is not flushed inside it
        state.ResumeTiming();
        if (work == Work::bareProgram)
            bare(home);
        else
            require(state,
                    work == Work::install ? home.connector().install() : home.connector().remove());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(size));
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("MB")
        ->Arg(13)
        ->Arg(65)
        ->Arg(238)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(5)
        ->UseRealTime();
}

BENCHMARK_CAPTURE(verb, bare, Work::bareProgram)->Apply(sizes);
BENCHMARK_CAPTURE(verb, install, Work::install)->Apply(sizes);
BENCHMARK_CAPTURE(verb, remove, Work::remove)->Apply(sizes);

} // namespace

} // namespace wendlow::benchmarks
