// The Editor's window with 50,000 moments and as many pictures as it ever holds. Says how much
// memory the process has, the way FirstFrame/measure.py reads it.

#include "EditorWindow.h"
#include "Moments/MomentsFaceModel.h"

#include <QGuiApplication>

#include <fmt/format.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <string>

namespace wendlow::benchmarks {

namespace {

/// Opens the moments, holds all of them, and scrolls until as many pictures have come as are kept.
void scrollThroughPictures(EditorWindow& editor) {
    EditorRoot& root = editor.root();
    root.setFace(EditorFace::moments);
    auto& face = static_cast<MomentsFaceModel&>(root.model(EditorFace::moments));
    runUntil([&] { return face.grid()->count() > 0; });
    face.goToEnd();
    runUntil([&] { return face.grid()->count() >= 50'000; });
    QQuickItem& view =
        *editor.item(QStringLiteral("MomentCells"))->findChild<QQuickItem*>(QStringLiteral("view"));
    const auto& tiles = editor.store().tiles().tiles();
    // By halves: for a screenful that is only passed no picture is asked.
    for (double top = 0; tiles.size() < TileWindow::most; top += view.height() / 2) {
        view.setProperty("contentY", top);
        editor.rest();
    }
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
    const char* const gateway = Gateways::running().withMoments();
    const QGuiApplication application(argc, argv);
    EditorWindow editor{gateway};
    scrollThroughPictures(editor);
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
