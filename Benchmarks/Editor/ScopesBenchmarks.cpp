// The face of the scopes over boards of two sizes: what it costs to open it, and each key in the
// field of a rename that moves them all.

#include "Client.h"
#include "EditorWindow.h"
#include "FrameWork.h"
#include "Scopes/ScopesFaceModel.h"
#include "Shell/EditorHost.h"

#include <benchmark/benchmark.h>

#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickView>

#include <fmt/format.h>

namespace wendlow::benchmarks {

namespace {

/// A daemon that knows so many scopes, and nothing else.
class ScopesGateway final : public Gateway {
public:
    explicit ScopesGateway(std::int64_t scopes) {
        m_board.push_back({.path = "/", .folders = {}, .kinds = {}});
        m_board.push_back({.path = "/work", .folders = {}, .kinds = {}});
        for (std::int64_t number = 2; number < scopes; ++number)
            m_board.push_back({.path = fmt::format("/work/project-{:04}", number),
                               .folders = {fmt::format("/home/me/work/project-{:04}", number)},
                               .kinds = {{.kind = "decision", .count = 3},
                                         {.kind = "note", .count = number % 40}}});
    }
    QCoro::Task<GatewayResponse> handle(GatewayRequest request) override {
        if (request.verb() == NotesCase::ScopeBoard::verb)
            co_return AnswerCase::ScopeBoard{m_board};
        TextBrowseAnswer nothing;
        nothing.ready = true;
        co_return AnswerCase::TextBrowse{std::move(nothing)};
    }

private:
    std::vector<ScopeBoardEntry> m_board;
};

/// The Editor over such a daemon, at rest on its first face.
class ScopesWindow {
public:
    explicit ScopesWindow(std::int64_t scopes)
        : m_worlds(std::make_shared<InProcessClient>(std::make_shared<ScopesGateway>(scopes)),
                   EditorWorld::realData),
          m_host(m_worlds) {
        view.engine()->addImportPath(QStringLiteral(":/qt/qml"));
        view.setInitialProperties({{QStringLiteral("host"), QVariant::fromValue(&m_host)}});
        view.setSource(QUrl(QStringLiteral("qrc:/qt/qml/WendlowEditor/EditorHostFace.qml")));
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.resize(980, 832);
        view.show();
        runUntil([this] { return m_worlds.store().scopes().boardRead(); });
        rest();
    }

    EditorRoot& root() { return *m_host.root(); }
    ScopesFaceModel& face() {
        return static_cast<ScopesFaceModel&>(root().model(EditorFace::scopes));
    }
    void rest() {
        const auto since = Clock::now();
        runUntil([&] { return Clock::now() - since > 60ms; });
    }
    /// Does this, and gives the processor time of this thread until the frame that shows it.
    double until(const std::function<void()>& what) {
        bool drawn = false;
        const auto frame =
            QObject::connect(&view, &QQuickWindow::frameSwapped, &view, [&drawn] { drawn = true; });
        const double start = threadMilliseconds();
        what();
        runUntil([&] { return drawn; });
        QObject::disconnect(frame);
        return threadMilliseconds() - start;
    }

private:
    EditorWorlds m_worlds;
    EditorHost m_host;

public:
    QQuickView view;
};

void openScopes(benchmark::State& state) {
    std::vector<double> first, again;
    for (auto _ : state) {
        ScopesWindow window(state.range(0));
        first.push_back(window.until([&] { window.root().setFace(EditorFace::scopes); }));
        if (window.face().rows()->rowCount() != state.range(0))
            state.SkipWithError("the rows are not there");
        window.root().setFace(EditorFace::memory);
        window.rest();
        again.push_back(window.until([&] { window.root().setFace(EditorFace::scopes); }));
    }
    state.counters["first_ms"] = Spread::of(first).median;
    state.counters["again_ms"] = Spread::of(again).median;
}
BENCHMARK(openScopes)
    ->ArgName("scopes")
    ->Arg(50)
    ->Arg(5000)
    ->Iterations(15)
    ->Unit(benchmark::kMillisecond);

void typeNewPath(benchmark::State& state) {
    ScopesWindow window(state.range(0));
    window.root().setFace(EditorFace::scopes);
    window.rest();
    window.face().select(window.face().rows()->indexOf("/work"));
    window.face().rename();
    window.rest();
    ScopeSheetModel& sheet = *window.face().sheet();
    std::vector<double> keys, model;
    for (auto _ : state)
        for (const char letter : std::string_view("shop")) {
            const QString before = sheet.path();
            keys.push_back(window.until([&] {
                QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(QLatin1Char(letter)));
                QCoreApplication::sendEvent(&window.view, &press);
            }));
            if (sheet.path() == before)
                state.SkipWithError("the key did not reach the field");
            const double start = threadMilliseconds();
            sheet.setPath(sheet.path() + u'x');
            model.push_back(threadMilliseconds() - start);
        }
    state.counters["frame_ms"] = Spread::of(keys).median;
    state.counters["longest_frame_ms"] = Spread::of(keys).longest;
    state.counters["preview_ms"] = Spread::of(model).median;
    state.counters["longest_preview_ms"] = Spread::of(model).longest;
}
BENCHMARK(typeNewPath)
    ->ArgName("scopes")
    ->Arg(50)
    ->Arg(5000)
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace wendlow::benchmarks
