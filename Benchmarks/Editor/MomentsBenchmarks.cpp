// Fifty thousand moments go by, beside as many coloured cells of a bare grid; and a page is folded
// into as many, beside looking its ids up in a set.

#include "EditorWindow.h"
#include "FrameWork.h"
#include "Moments/MomentsFaceModel.h"
#include "Scrolling.h"

#include <benchmark/benchmark.h>

#include <QQmlComponent>
#include <QQmlEngine>

#include <string>
#include <unordered_set>

namespace wendlow::benchmarks {

namespace {

constexpr int momentsWanted = 50'000;
constexpr int columns = 3;
constexpr int rowHeight = 182;
/// Far enough that every part of the work has its share.
constexpr int rowsGoneBy = 4'000;

void scrollHeldMoments(benchmark::State& state) {
    EditorWindow editor{Gateways::running().withMoments()};
    EditorRoot& root = editor.root();
    root.setFace(EditorFace::moments);
    auto& face = static_cast<MomentsFaceModel&>(root.model(EditorFace::moments));
    runUntil([&] { return face.grid()->count() > 0; });
    face.goToEnd();
    runUntil([&] { return face.grid()->count() >= momentsWanted; });
    editor.rest();
    QQuickItem* const cells = editor.item(QStringLiteral("MomentCells"));
    QQuickItem& view = *cells->findChild<QQuickItem*>(QStringLiteral("view"));
    view.setProperty("contentY", 0);
    editor.rest();
    for (auto _ : state) {
        const FrameWork frames(editor.window());
        scroll(editor.window(), view, rowHeight,
               [&] { return view.property("contentY").toInt() > rowsGoneBy * rowHeight; });
        report(state, frames);
    }
    state.counters["moments"] = face.grid()->count();
    state.counters["cells"] = face.grid()->rowCount();
}

void scrollBareGrid(benchmark::State& state) {
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick\n"
                      "Window { id: window; visible: true; width: 980; height: 860\n"
                      "  GridView { objectName: 'list'; width: 708; height: 784; x: 256; y: 76\n"
                      "    model: 50000; cellWidth: 236; cellHeight: 182\n"
                      "    delegate: Rectangle { required property int index\n"
                      "      width: 220; height: 162; radius: 8\n"
                      "      color: Qt.hsla(index % 100 / 100, 0.4, 0.5, 1) } } }",
                      {});
    const std::unique_ptr<QObject> made(component.create());
    auto& window = *qobject_cast<QQuickWindow*>(made.get());
    QQuickItem& list = *window.findChild<QQuickItem*>(QStringLiteral("list"));
    for (auto _ : state) {
        const FrameWork frames(window);
        scroll(window, list, rowHeight,
               [&] { return list.property("contentY").toInt() > rowsGoneBy * rowHeight; });
        report(state, frames);
    }
}

EditorMoment momentOf(int number) {
    EditorMoment moment{.id = std::to_string(1'000'000 + number)};
    moment.title = "A title of some words, number " + moment.id;
    moment.framed = true;
    return moment;
}

constexpr int page = 48;
constexpr int pages = 400;

/// Pages of which each goes on where the one before ended, as the live store gives them.
void foldPage(benchmark::State& state) {
    EditorMoments answer;
    for (int number = 0; number < momentsWanted; ++number)
        answer.push_back(momentOf(number));
    std::vector<EditorMoments> answers;
    const EditorMoments first = answer;
    for (int count = 0; count < pages; ++count) {
        for (int number = 0; number < page; ++number)
            answer.push_back(momentOf(static_cast<int>(answer.size())));
        answers.push_back(answer);
    }
    HeldMoments held;
    held.fold(first);
    std::size_t at = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(held.fold(answers[at++]));
    state.counters["held"] = static_cast<double>(held.size());
}

void lookUpPage(benchmark::State& state) {
    std::unordered_set<std::string> ids;
    std::vector<std::string> wanted;
    for (int number = 0; number < momentsWanted; ++number)
        ids.insert(momentOf(number).id);
    for (int number = 0; number < pages * page; ++number)
        wanted.push_back(momentOf(number * 7 % (2 * momentsWanted)).id);
    std::size_t at = 0;
    for (auto _ : state) {
        for (int number = 0; number < page; ++number)
            benchmark::DoNotOptimize(ids.contains(wanted[at + static_cast<std::size_t>(number)]));
        at += page;
    }
}

BENCHMARK(scrollHeldMoments)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(scrollBareGrid)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(foldPage)->Iterations(pages)->Unit(benchmark::kMicrosecond);
BENCHMARK(lookUpPage)->Iterations(pages)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace wendlow::benchmarks
