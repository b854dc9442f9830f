// The Editor's window with its first page and as many pictures as it ever holds. Says how much
// memory the process has, the way FirstFrame/measure.py reads it.

#include "EditorWindow.h"

#include <QGuiApplication>

#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <string>

namespace wendlow::benchmarks {

namespace {

std::vector<std::int64_t> pictures(EditorLiveStore& store) {
    EditorAsk ask{.term = {}};
    ask.kind = EditorKind::moment;
    ask.limit = 5 * static_cast<std::int64_t>(TileWindow::most);
    const EditorAnswer answer = QCoro::waitFor(store.pages().query(ask, EditorAsker::page));
    std::vector<std::int64_t> keys;
    for (const EditorMoment& moment : answer.moments)
        if (const auto key = moment.thumbnailKey(); key && moment.framed)
            keys.push_back(*key);
    return keys;
}

long residentKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmRSS:"))
            return std::stol(line.substr(6));
    return 0;
}

void run(int argc, char** argv) {
    drawOffScreen();
    Gateways::running();
    const QGuiApplication application(argc, argv);
    EditorWindow editor{Gateways::practiceName};
    const std::vector<std::int64_t> keys = pictures(editor.store());
    editor.store().tiles().showTiles(keys);
    editor.rest();
    const auto& tiles = editor.store().tiles().tiles();
    std::size_t bytes = 0;
    for (const auto& [key, tile] : tiles)
        bytes += tile.image.value_or(std::string()).size();
    fmt::print("first-frame 0 ms, resident {} KB\n", residentKilobytes());
    fmt::print("{} tiles, {} KB of pictures\n", tiles.size(), bytes / 1024);
    std::fflush(stdout);
}

} // namespace

} // namespace wendlow::benchmarks

int main(int argc, char** argv) try {
    wendlow::benchmarks::run(argc, argv);
    return 0;
} catch (const std::exception& fault) {
    fmt::print(stderr, "editor-tiles: {}\n", fault.what());
    return 1;
}
