// How long the list of Cursor's workspaces takes beside a bare program that walks the same folders
// and takes the same dates.

#include "Cursor/CursorConnector.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

namespace {

namespace fs = std::filesystem;
using namespace wendlow;

/// A home with 2,000 workspaces, each as Cursor leaves one: the file that names its folder, a
/// database with its copy, and a folder of an extension's.
class Workspaces {
public:
    Workspaces() {
        std::string pattern = (fs::temp_directory_path() / "wendlow-benchmark-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no temporary folder could be made");
        m_home = pattern;
        for (int index = 0; index < 2'000; ++index) {
            const fs::path folder =
                paths().workspaceStorageDirectory / fmt::format("{:032x}", index * 7919);
            fs::create_directories(folder / "anysphere.cursor-retrieval");
            std::ofstream(folder / "workspace.json")
                << fmt::format("{{\n\t\"folder\": \"file:///home/me/project%20{}\"\n}}", index);
            std::ofstream(folder / "state.vscdb") << "a database";
            std::ofstream(folder / "state.vscdb.backup") << "its copy";
        }
    }
    ~Workspaces() {
        std::error_code ignored;
        fs::remove_all(m_home, ignored);
    }
    Workspaces(const Workspaces&) = delete;
    Workspaces& operator=(const Workspaces&) = delete;

    CursorPaths paths() const {
        return CursorPaths::under(m_home, m_home / "Wendlow.app", m_home / "Applications");
    }

private:
    fs::path m_home;
};

const Workspaces& workspaces() {
    static const Workspaces all;
    return all;
}

void projects(benchmark::State& state) {
    const CursorConnector connector(workspaces().paths());
    for (auto round : state) {
        (void)round;
        if (connector.projects().projects.size() != 2'000)
            state.SkipWithError("the projects were not all found");
    }
}
BENCHMARK(projects)->Unit(benchmark::kMillisecond);

/// Calls `visit` with the path of whatever lies directly in a folder.
template<class Visit> void forEachIn(const std::string& folder, Visit visit) {
    DIR* const open = ::opendir(folder.c_str());
    while (const dirent* entry = ::readdir(open))
        if (const std::string_view name = entry->d_name; name != "." && name != "..")
            visit(fmt::format("{}/{}", folder, name));
    ::closedir(open);
}

void bareDates(benchmark::State& state) {
    const std::string store = workspaces().paths().workspaceStorageDirectory.string();
    for (auto round : state) {
        (void)round;
        std::int64_t sum = 0;
        forEachIn(store, [&](const std::string& folder) {
            struct stat status{};
            ::stat(folder.c_str(), &status);
            std::int64_t newest = status.st_mtim.tv_sec;
            forEachIn(folder, [&](const std::string& child) {
                ::lstat(child.c_str(), &status);
                newest = std::max<std::int64_t>(newest, status.st_mtim.tv_sec);
            });
            sum += newest;
        });
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(bareDates)->Unit(benchmark::kMillisecond);

} // namespace
