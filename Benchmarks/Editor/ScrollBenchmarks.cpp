// Ten thousand rows go by, beside as many of a bare list of texts.

#include "EditorWindow.h"
#include "FrameWork.h"
#include "Memories/MemoryFaceModel.h"
#include "Scrolling.h"

#include <benchmark/benchmark.h>

#include <QQmlComponent>
#include <QQmlEngine>

#include <algorithm>

namespace wendlow::benchmarks {

namespace {

constexpr int rowsWanted = 10'000;
constexpr int rowHeight = 56;
/// The window with a type open that has so many memories and more, all of those held: as a person
/// comes to the last one of them from a search.
class OpenList {
public:
    OpenList() {
        face.open(largestType());
        editor.rest();
        runUntil([&] {
            // Rows that appear only now ask for their few.
            EditorAsk ask = root.page().ask();
            ask.limit = MemoriesModel::limitFor(rowsWanted);
            root.setAsk(ask);
            return root.page().answer().ready() && root.page().answer().rows.size() >= rowsWanted;
        });
        face.list()->reveal(root.page().answer().rows[rowsWanted - 1].memory.id);
        face.list()->closeOpen();
        editor.rest();
        list = editor.item(QStringLiteral("MemoryRows"));
    }

    int count() const { return face.list()->lines()->rowCount(); }

    EditorWindow editor{Gateways::practiceName};
    EditorRoot& root = editor.root();
    MemoryFaceModel& face = static_cast<MemoryFaceModel&>(root.model(EditorFace::memory));
    QQuickItem* list = nullptr;

private:
    std::string largestType() {
        return std::ranges::max(editor.store().pages().memoryTypeCounts(), {}, &EditorCount::count)
            .name;
    }
};

/// From the top to the last; as each row comes by, its why is asked for.
void scrollHeldRows(benchmark::State& state) {
    OpenList open;
    open.list->setProperty("contentY", 0);
    open.editor.rest();
    for (auto _ : state) {
        const FrameWork frames(open.editor.window());
        scroll(open.editor.window(), *open.list, rowHeight, [&] {
            return open.list->property("contentY").toInt() > (rowsWanted - 40) * rowHeight;
        });
        report(state, frames);
    }
    state.counters["rows"] = open.count();
}

/// Reading on behind ten thousand rows: each page is asked for with all that come before it.
void scrollWhileRowsCome(benchmark::State& state) {
    constexpr int more = 600;
    OpenList open;
    open.list->setProperty("contentY", (rowsWanted - 20) * rowHeight);
    open.editor.rest();
    open.editor.client().startAfresh();
    for (auto _ : state) {
        const FrameWork frames(open.editor.window());
        const int before = open.count();
        scroll(open.editor.window(), *open.list, rowHeight,
               [&] { return open.count() >= before + more; });
        report(state, frames);
    }
    state.counters["rows"] = open.count();
    state.counters["browses"] = open.editor.client().count(ReadCase::TextBrowse::verb);
    state.counters["served_ms"] =
        static_cast<double>(open.editor.client().served(ReadCase::TextBrowse::verb).count());
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
        scroll(window, list, rowHeight, [&] { return isAtEnd(list); });
        report(state, frames);
    }
}

BENCHMARK(scrollHeldRows)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(scrollWhileRowsCome)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK(scrollBareList)->Iterations(1)->Unit(benchmark::kSecond);

} // namespace

} // namespace wendlow::benchmarks
