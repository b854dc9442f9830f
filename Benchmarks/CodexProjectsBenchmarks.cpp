// How long the list of Codex's projects takes beside a bare program that lists the same folder,
// opens each file and reads its first 4 KiB.

#include "Codex/CodexConnector.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

namespace {

namespace fs = std::filesystem;
using namespace wendlow;

/// A home with 10,000 session files in folders by date. Most first records are 600 bytes, every
/// tenth is 20 kB of instructions; behind them come 60 kB of conversation.
class Sessions {
public:
    Sessions() {
        std::string pattern = (fs::temp_directory_path() / "wendlow-benchmark-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no temporary folder could be made");
        m_home = pattern;
        const std::string rest(60'000, 'x');
        for (int index = 0; index < 10'000; ++index) {
            const fs::path folder = paths().sessionsDirectory() / "2026" /
                                    fmt::format("{:02}", index / 900 + 1) /
                                    fmt::format("{:02}", index / 30 % 30 + 1);
            fs::create_directories(folder);
            std::ofstream(folder / fmt::format("rollout-2026-11-21T10-00-00-{:08}.jsonl", index))
                << fmt::format(R"({{"timestamp":"2026-11-21T10:00:00.000Z","type":"session_meta",)"
                               R"("payload":{{"id":"{:08}","cwd":"/home/me/project-{}",)"
                               R"("instructions":"{}"}}}})",
                               index, index % 40, std::string(index % 10 == 0 ? 20'000 : 450, 'i'))
                << '\n'
                << rest << '\n';
        }
    }
    ~Sessions() {
        std::error_code ignored;
        fs::remove_all(m_home, ignored);
    }
    Sessions(const Sessions&) = delete;
    Sessions& operator=(const Sessions&) = delete;

    CodexPaths paths() const { return CodexPaths::under(m_home, m_home / "Wendlow.app"); }

private:
    fs::path m_home;
};

const Sessions& sessions() {
    static const Sessions all;
    return all;
}

void projects(benchmark::State& state) {
    const CodexConnector connector(sessions().paths());
    for (auto round : state) {
        (void)round;
        const auto report = connector.projects();
        if (report.projects.size() != 40)
            state.SkipWithError("the projects were not all found");
    }
}
BENCHMARK(projects)->Unit(benchmark::kMillisecond);

void bareHeads(benchmark::State& state) {
    for (auto round : state) {
        (void)round;
        std::array<char, 4096> head{};
        ssize_t total = 0;
        for (const auto& entry :
             fs::recursive_directory_iterator(sessions().paths().sessionsDirectory())) {
            if (!entry.is_regular_file())
                continue;
            const int file = ::open(entry.path().c_str(), O_RDONLY | O_CLOEXEC);
            total += ::read(file, head.data(), head.size());
            ::close(file);
        }
        benchmark::DoNotOptimize(total);
    }
}
BENCHMARK(bareHeads)->Unit(benchmark::kMillisecond);

} // namespace
