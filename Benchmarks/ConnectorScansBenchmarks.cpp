// How long it takes to scan every tool there is, beside a bare program that reads the same files
// from end to end: from the page cache, as at every scan after the first, and from the disk, as at
// the first after a start of the machine.

#include "Connectors.h"
#include "Files.h"
#include "Support/GeneratedClaudeFile.h"
#include "TemporaryHome.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

namespace wendlow::benchmarks {

namespace {

namespace fs = std::filesystem;
using testing::put;

/// A home in which every tool is used and connected.
class ConnectedHome {
public:
    explicit ConnectedHome(std::size_t claudeFileSize) {
        for (const char* program : {"wendlow-hook", "wendlow-mcp"})
            put(m_home / "Wendlow.app/Contents/MacOS" / program, "", 0755);
        const std::string settings = "{\n  \"model\": \"opus\",\n  \"permissions\": {\n    "
                                     "\"allow\": [\n      \"Bash(ls:*)\"\n    ]\n  }\n}\n";
        put(m_home / ".claude/settings.json", settings);
        put(m_home / ".claude.json",
            generatedClaudeFile(ClaudeFileKind::shortHistories, claudeFileSize));
        put(m_home / ".codex/hooks.json", "{\n  \"hooks\": {}\n}\n");
        std::string config = "model = \"gpt-5\"\n";
        for (int project = 0; project < 50; ++project)
            config += "\n[projects.\"/home/me/projects/" + std::to_string(project) +
                      "\"]\ntrust_level = \"trusted\"\n";
        put(m_home / ".codex/config.toml", config);
        put(m_home / ".cursor/mcp.json", "{\n  \"mcpServers\": {}\n}\n");
        put(m_home / ".config/opencode/opencode.jsonc",
            "{\n  // mine\n  \"theme\": \"system\"\n}\n");
        for (const auto& connector : connectors())
            connector->install();
    }

    Connectors::List connectors() const {
        return Connectors::all(m_home.path(), m_home / "Wendlow.app", m_home / "Applications");
    }
    /// What a scan reads.
    std::vector<fs::path> files() const {
        std::vector<fs::path> found;
        for (const char* name :
             {".claude/settings.json", ".claude.json", ".codex/hooks.json", ".codex/config.toml",
              ".cursor/hooks.json", ".cursor/mcp.json", ".config/opencode/opencode.jsonc",
              ".config/opencode/plugins/wendlow.js"})
            if (fs::exists(m_home / name))
                found.push_back(m_home / name);
        const auto receipts = m_home / "Library/Application Support/Wendlow/Connectors";
        for (const auto& receipt : fs::directory_iterator(receipts))
            found.push_back(receipt.path());
        return found;
    }
    /// Has the kernel forget what the files hold.
    void leaveTheCache() const {
        for (const auto& path : files()) {
            const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
            ::fdatasync(file);
            ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
            ::close(file);
        }
    }

private:
    testing::TemporaryHome m_home;
};

enum class From { cache, disk };

/// Runs `work` each round, over files in the page cache or out of it.
template<typename Work>
void measure(benchmark::State& state, const ConnectedHome& home, From from, const Work& work) {
    for (auto round : state) {
        (void)round;
        if (from == From::disk) {
            state.PauseTiming();
            home.leaveTheCache();
            state.ResumeTiming();
        }
        work();
    }
}

void scans(benchmark::State& state, From from) {
    const ConnectedHome home(static_cast<std::size_t>(state.range(0)));
    const auto connectors = home.connectors();
    measure(state, home, from, [&] {
        for (const auto& connector : connectors)
            if (connector->scan().state != ConnectorState::connected)
                state.SkipWithError("a tool is not connected");
    });
    state.counters["tools"] = static_cast<double>(connectors.size());
}

void bareRead(benchmark::State& state, From from) {
    const ConnectedHome home(static_cast<std::size_t>(state.range(0)));
    const auto files = home.files();
    measure(state, home, from, [&] {
        for (const auto& path : files) {
            const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
            std::string bytes(fs::file_size(path), '\0');
            std::size_t held = 0;
            while (held < bytes.size())
                held += static_cast<std::size_t>(
                    std::max<ssize_t>(::read(file, bytes.data() + held, bytes.size() - held), 0));
            ::close(file);
            benchmark::DoNotOptimize(bytes.data());
        }
    });
    state.counters["files"] = static_cast<double>(files.size());
}

constexpr std::int64_t usualSize = 30'000;

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("claudeFile")->Arg(usualSize)->Arg(usualLargeSize);
    benchmark->Unit(benchmark::kMicrosecond);
}
BENCHMARK_CAPTURE(scans, cached, From::cache)->Apply(sizes);
BENCHMARK_CAPTURE(bareRead, cached, From::cache)->Apply(sizes);
BENCHMARK_CAPTURE(scans, fromDisk, From::disk)->Apply(sizes)->UseRealTime();
BENCHMARK_CAPTURE(bareRead, fromDisk, From::disk)->Apply(sizes)->UseRealTime();

} // namespace

} // namespace wendlow::benchmarks
