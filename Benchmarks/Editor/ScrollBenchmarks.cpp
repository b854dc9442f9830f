// Ten thousand rows go by, beside as many of a bare list of texts.

#include "EditorWindow.h"
#include "FrameWork.h"

#include <benchmark/benchmark.h>

#include <QQmlComponent>
#include <QQmlEngine>
#include <QTimer>

#include <algorithm>
#include <functional>

namespace wendlow::benchmarks {

namespace {

constexpr int rowsWanted = 10'000;
constexpr int rowHeight = 56;
/// A fast wheel: so much of the list goes by from one frame to the next.
constexpr int rowsPerFrame = 5;

/// Moves a list by some rows for each frame of a screen of 60 a second, until it is done or, at the
/// end of the list, for so long as `isOver` says no.
void scroll(QQuickWindow& window, QQuickItem& list, const std::function<bool()>& isOver) {
    QTimer frames;
    frames.setTimerType(Qt::PreciseTimer);
    QObject::connect(&frames, &QTimer::timeout, &list, [&] {
        const double end = list.property("originY").toDouble() +
                           list.property("contentHeight").toDouble() - list.height();
        const double next = list.property("contentY").toDouble() + rowsPerFrame * rowHeight;
        list.setProperty("contentY", std::max(0.0, std::min(next, end)));
        window.update();
    });
    frames.start(16);
    runUntil(isOver, std::chrono::minutes(30));
}

bool isAtEnd(const QQuickItem& list) {
    return list.property("atYEnd").toBool();
}

void report(benchmark::State& state, const FrameWork& frames) {
    state.counters["frames"] = static_cast<double>(frames.frames());
    state.counters["median_ms"] = frames.work().median;
    state.counters["longest_ms"] = frames.work().longest;
    state.counters["drawing_median_ms"] = frames.drawing().median;
    state.counters["drawing_longest_ms"] = frames.drawing().longest;
}

std::unique_ptr<EditorWindow>& editor() {
    static std::unique_ptr<EditorWindow> window;
    return window;
}

/// The type that has most memories.
std::string largestType(EditorLiveStore& store) {
    return std::ranges::max(store.memoryTypeCounts(), {}, &EditorCount::count).name;
}

/// As a person reads on: the rows come page by page from the gateway, each with its why and body.
void scrollWhileRowsCome(benchmark::State& state) {
    editor() = std::make_unique<EditorWindow>(Gateways::practiceName);
    EditorRoot& root = editor()->root();
    root.setOpenType(largestType(editor()->store()));
    editor()->rest();
    QQuickItem& list = *editor()->item(QStringLiteral("MemoryRows"));
    editor()->client().startAfresh();
    for (auto _ : state) {
        const FrameWork frames(editor()->window());
        scroll(editor()->window(), list,
               [&] { return list.property("count").toInt() >= rowsWanted; });
        report(state, frames);
    }
    state.counters["rows"] = list.property("count").toInt();
    state.counters["browses"] = editor()->client().count(ReadCase::TextBrowse::verb);
}

/// From top to bottom once more, with all rows there.
void scrollHeldRows(benchmark::State& state) {
    QQuickItem& list = *editor()->item(QStringLiteral("MemoryRows"));
    editor()->rest();
    list.setProperty("contentY", 0);
    editor()->rest();
    for (auto _ : state) {
        const FrameWork frames(editor()->window());
        const int rows = list.property("count").toInt();
        scroll(editor()->window(), list,
               [&] { return isAtEnd(list) || list.property("count").toInt() > rows; });
        report(state, frames);
    }
    editor() = nullptr;
}

void scrollBareList(benchmark::State& state) {
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick\n"
                      "Window { id: window; visible: true; width: 980; height: 860\n"
                      "  ListView { objectName: 'list'; anchors.fill: parent; model: 10000\n"
                      "    delegate: Text { required property int index; height: 56\n"
                      "      text: 'This is the row ' + index } } }",
                      {});
    const std::unique_ptr<QObject> made(component.create());
    auto& window = *qobject_cast<QQuickWindow*>(made.get());
    QQuickItem& list = *window.findChild<QQuickItem*>(QStringLiteral("list"));
    for (auto _ : state) {
        const FrameWork frames(window);
        scroll(window, list, [&] { return isAtEnd(list); });
        report(state, frames);
    }
}

BENCHMARK(scrollWhileRowsCome)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(scrollHeldRows)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(scrollBareList)->Iterations(1)->Unit(benchmark::kSecond);

} // namespace

} // namespace wendlow::benchmarks
