// Long texts: a transcript of 20,000 lines beside one of 200, opened and with a line deleted; and
// the report of a run, of a megabyte beside one of a page.

#include "EditorWindow.h"
#include "FrameWork.h"
#include "Meetings/MeetingsFaceModel.h"
#include "Mods/ModsFaceModel.h"
#include "ThemeSource.h"

#include <benchmark/benchmark.h>

#include <QQmlEngine>
#include <QQuickTextDocument>
#include <QQuickView>
#include <QTextDocument>

#include <fmt/format.h>

#include <utility>

namespace wendlow::benchmarks {

namespace {

/// A face alone in a window, as large as the stage of the Editor's.
class FaceWindow {
public:
    explicit FaceWindow(FaceModel& face) : m_face(face) {
        view.engine()->addImportPath(QStringLiteral(":/qt/qml"));
        ThemeSource::of(*view.engine())->setReduceMotion(true);
        QQmlEngine::setObjectOwnership(&m_face, QQmlEngine::CppOwnership);
        m_face.setOpen(true);
        view.resize(756, 832);
        view.setInitialProperties(
            {{QStringLiteral("face"), QVariant::fromValue(&m_face)},
             {QStringLiteral("margin"), 32},
             {QStringLiteral("column"), 692},
             {QStringLiteral("over"), QVariant::fromValue(view.contentItem())}});
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.setSource(m_face.page());
        view.show();
        std::ignore = until([] {});
    }
    /// Does this, and gives the processor time of this thread until the frame that shows it.
    double until(const std::function<void()>& what) {
        bool drawn = false;
        const auto watch =
            QObject::connect(&view, &QQuickWindow::frameSwapped, &view, [&drawn] { drawn = true; });
        const double start = threadMilliseconds();
        what();
        view.update();
        runUntil([&drawn] { return drawn; });
        QObject::disconnect(watch);
        return threadMilliseconds() - start;
    }

private:
    FaceModel& m_face;

public:
    QQuickView view;
};

EditorTranscript transcriptOf(std::int64_t lines, std::int64_t without = -1) {
    EditorTranscript made;
    for (std::int64_t at = 0; at < lines; ++at)
        if (at != without)
            made.lines.push_back(
                {.id = at,
                 .speaker = at % 3 == 0 ? "Mara" : "Jonas",
                 .text = fmt::format("Line {} says what one says at a table, as long as most.", at),
                 .witness = fmt::format("a proof of what line {} says", at)});
    return made;
}

/// Two meetings, whose transcripts have come before they are asked for.
class TwoMeetings final : public MeetingSource {
public:
    static constexpr std::int64_t lines[] = {200, 20'000};

    EditorTranscript next;

    TwoMeetings() {
        m_list.emplace();
        for (const std::int64_t count : lines)
            m_list->push_back({.id = fmt::format("{}", count), .lines = count});
    }
    std::optional<std::int64_t> meetingCount() const override { return std::ssize(*m_list); }
    const std::optional<Meetings>& meetings() const override { return m_list; }
    bool meetingsLoaded() const override { return true; }
    std::optional<std::string> meetingsError() const override { return std::nullopt; }
    void loadMeetings() override {}
    QCoro::Task<EditorTranscriptResult> transcript(std::string /*id*/) override {
        co_return std::move(next);
    }
    QCoro::Task<EditorLineDelete> deleteLine(std::string /*meeting*/, std::int64_t /*rowid*/,
                                             std::string /*witness*/) override {
        co_return EditorLineDeleteCase::Deleted{std::move(next)};
    }

private:
    std::optional<Meetings> m_list;
};

/// From the answer on, until the lines are in a frame; and a delete, from the answer with all other
/// lines on.
void openTranscript(benchmark::State& state) {
    constexpr std::int64_t erased = 2;
    TwoMeetings meetings;
    MeetingsFaceModel face(meetings);
    FaceWindow window(face);
    std::vector<double> opened[2], deleted[2];
    const auto take = [&](int row) {
        meetings.next = transcriptOf(TwoMeetings::lines[row]);
        opened[row].push_back(window.until([&] { face.openMeeting(row); }));
        if (face.lines()->rowCount() != TwoMeetings::lines[row])
            state.SkipWithError("the lines are not there");
        meetings.next = transcriptOf(TwoMeetings::lines[row], erased);
        deleted[row].push_back(window.until([&] { face.eraseLine(static_cast<int>(erased)); }));
        if (face.lines()->rowCount() != TwoMeetings::lines[row] - 1)
            state.SkipWithError("the line is still there");
        std::ignore = window.until([&] { face.dismiss(); });
    };
    for (auto _ : state)
        for (const int row : {0, 1})
            take(row);
    for (const int row : {0, 1}) {
        const std::string name = fmt::format("{}", TwoMeetings::lines[row]);
        state.counters["open_" + name] = Spread::of(opened[row]).median;
        state.counters["delete_" + name] = Spread::of(deleted[row]).median;
    }
    state.counters["open_ratio"] = Spread::of(opened[1]).median / Spread::of(opened[0]).median;
}
BENCHMARK(openTranscript)->Iterations(30)->Unit(benchmark::kMillisecond);

/// A mod with one run, which has reported so many lines.
class OneReport final : public ModSource {
public:
    explicit OneReport(std::int64_t lines) {
        EditorModRun run{.mod = "sweep", .outcome = EditorRunOutcome::of("ok"), .report = ""};
        for (std::int64_t at = 0; at < lines; ++at)
            *run.report +=
                fmt::format("Looked at ticket {}, which is done, and archived it.\n", at);
        m_board = EditorModsBoard{.mods = {{.slug = "sweep"}}, .rejected = {}, .runs = {run}};
    }
    const std::optional<EditorModsBoard>& modsBoard() const override { return m_board; }
    bool modsLoaded() const override { return true; }
    std::optional<std::string> modsError() const override { return std::nullopt; }
    void loadMods() override {}

private:
    std::optional<EditorModsBoard> m_board;
};

QQuickTextDocument* documentIn(const QQuickItem& item) {
    const QVariant document = item.property("textDocument");
    if (document.isValid())
        return document.value<QQuickTextDocument*>();
    for (const QQuickItem* const child : item.childItems())
        if (QQuickTextDocument* const found = documentIn(*child))
            return found;
    return nullptr;
}

/// Until the first frame of the sheet, and the frames from there until all of it is laid out.
void openReport(benchmark::State& state) {
    OneReport mods(state.range(0));
    ModsFaceModel face(mods);
    FaceWindow window(face);
    std::vector<double> first, longest, all;
    for (auto _ : state) {
        first.push_back(window.until([&] {
            for (int row = 0; row < face.rows()->rowCount() && !face.isModal(); ++row)
                face.activate(row);
        }));
        const double start = threadMilliseconds();
        const FrameWork frames(window.view);
        runUntil([&] {
            const QQuickTextDocument* const text = documentIn(*window.view.contentItem());
            return text != nullptr && text->textDocument()->blockCount() > state.range(0);
        });
        all.push_back(threadMilliseconds() - start);
        longest.push_back(frames.work().longest);
        std::ignore = window.until([&] { face.closeReport(); });
    }
    state.counters["first_ms"] = Spread::of(first).median;
    state.counters["longest_ms"] = Spread::of(longest).longest;
    state.counters["all_ms"] = Spread::of(all).median;
    state.counters["bytes"] = static_cast<double>(face.report().size());
}
BENCHMARK(openReport)
    ->ArgName("lines")
    ->Arg(20)
    ->Arg(20'000)
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace wendlow::benchmarks
