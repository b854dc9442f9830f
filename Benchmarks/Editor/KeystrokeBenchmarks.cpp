// From a key to what it finds on screen, over the bus, beside a bare exchange of the same bytes
// with the same process.

#include "EditorWindow.h"
#include "FrameWork.h"

#include "Live/BrowseWire.h"
#include "WireCodec.h"
#include "WireContract.h"
#include "XPC/BusMessage.h"
#include "XPCEndpoint.h"

#include <benchmark/benchmark.h>

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QTimer>

#include <fmt/format.h>

#include <string>
#include <vector>

namespace wendlow::benchmarks {

namespace {

/// A search as a person types it; every prefix of two letters and more is searched for.
constexpr std::string_view words = "backup checksum";

/// When the page of a term was there, and when a frame with it was.
class PageWatch : public QObject {
public:
    PageWatch(EditorWindow& editor, std::string term)
        : m_search(*editor.root().search()), m_window(editor.window()), m_client(editor.client()) {
        connect(&m_search, &EditorSearch::settled, this, [this, term = std::move(term)] {
            if (m_search.term() != term)
                return;
            m_rows = Clock::now();
            m_rowsWork = threadMilliseconds();
            m_answered = m_client.lastAnswered();
            m_window.update(); // also where the page stays as it is
        });
        connect(&editor.window(), &QQuickWindow::afterAnimating, this,
                [this] { m_drawn = m_rows.has_value(); });
        connect(&editor.window(), &QQuickWindow::frameSwapped, this, [this] {
            if (!m_drawn || m_frame)
                return;
            m_frame = Clock::now();
            m_frameWork = threadMilliseconds();
        });
        m_window.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::UpdateRequest && !m_frame)
            m_begun = Clock::now();
        return false;
    }

    bool done() const { return m_frame.has_value(); }
    Clock::time_point answered() const { return m_answered; }
    Clock::time_point rows() const { return *m_rows; }
    Clock::time_point frame() const { return *m_frame; }
    /// Processor time of this thread by then.
    double rowsWork() const { return m_rowsWork; }
    double frameWork() const { return m_frameWork; }
    /// From when the screen wanted that frame.
    Clock::duration drawing() const { return *m_frame - m_begun; }

private:
    EditorSearch& m_search;
    QQuickWindow& m_window;
    CountingClient& m_client;
    std::optional<Clock::time_point> m_rows, m_frame;
    Clock::time_point m_answered, m_begun;
    double m_rowsWork = 0, m_frameWork = 0;
    bool m_drawn = false;
};

/// Milliseconds from the key on.
struct Typed {
    double answered = 0; ///< until both answers had come
    double rows = 0;     ///< until the list had the rows
    double work = 0;     ///< the same, and the work for the frame that shows them
    double frame = 0;    ///< until that frame was drawn, with the wait for the screen to want it
    double rowsProcessor = 0;  ///< processor time of the UI thread until the list had the rows
    double frameProcessor = 0; ///< and until the frame was drawn
};

/// Types the next letter of a term, whose letters before are in the field.
Typed typeLast(EditorWindow& editor, const std::string& term) {
    const PageWatch watch(editor, term);
    const double work = threadMilliseconds();
    const auto start = Clock::now();
    editor.type(QLatin1Char(term.back()));
    runUntil([&] { return watch.done(); });
    return {.answered = milliseconds(watch.answered() - start),
            .rows = milliseconds(watch.rows() - start),
            .work = milliseconds(watch.rows() - start + watch.drawing()),
            .frame = milliseconds(watch.frame() - start),
            .rowsProcessor = watch.rowsWork() - work,
            .frameProcessor = watch.frameWork() - work};
}

/// The two exchanges that a page takes, on this thread, with nothing in between.
class BareExchanges {
public:
    explicit BareExchanges(const std::string& term) {
        EditorAsk ask{.term = term};
        ask.limit = 24;
        m_calls.push_back(call(ask));
        ask.kind = EditorKind::moment;
        ask.limit = 5;
        m_calls.push_back(call(ask));
    }

    double run() {
        const auto start = Clock::now();
        for (const QDBusMessage& call : m_calls) {
            const QDBusMessage reply = bus().call(call);
            m_bytes = reply.type() == QDBusMessage::ReplyMessage ? m_bytes : -1;
        }
        return milliseconds(Clock::now() - start);
    }
    /// Of both answers. 0: one of them did not come.
    double bytes() {
        double sum = 0;
        for (const QDBusMessage& call : m_calls) {
            const QDBusReply<QVariantMap> reply = bus().call(call);
            if (!reply.isValid())
                return 0;
            sum += static_cast<double>(reply.value()[payloadKey()].toByteArray().size());
        }
        return sum;
    }

private:
    static QString payloadKey() { return QString::fromLatin1(XPCEndpoint::payloadKey); }
    static QDBusConnection& bus() {
        static QDBusConnection bus = QDBusConnection::connectToBus(
            QString::fromStdString(Gateways::running().address()), QStringLiteral("bare"));
        return bus;
    }
    static QDBusMessage call(const EditorAsk& ask) {
        const GatewayRequest request = ReadRequest(BrowseWire::request(ask));
        QDBusMessage call = QDBusMessage::createMethodCall(
            QString::fromLatin1(Gateways::recordingName), BusMessage::path, BusMessage::interface,
            QStringLiteral("Exchange"));
        call << QVariantMap{
            {payloadKey(), QByteArray::fromStdString(*WireCodec::encode(request))},
            {QString::fromLatin1(XPCEndpoint::wireKey), qulonglong{WireContract::version}}};
        return call;
    }

    std::vector<QDBusMessage> m_calls;
    int m_bytes = 0;
};

int handedOn() {
    QDBusInterface gateway(QString::fromLatin1(Gateways::recordingName), BusMessage::path,
                           BusMessage::interface);
    return QDBusReply<int>(gateway.call(QStringLiteral("HandedOn"))).value();
}

void clearField(EditorWindow& editor) {
    editor.press(Qt::Key_Escape);
    editor.rest();
}

/// All but the gateway's work: it answers from memory what it was asked in a first round.
void keystroke(benchmark::State& state) {
    EditorWindow editor(Gateways::recordingName);
    std::vector<double> answered, rows, work, bare, rowsProcessor, frameProcessor;
    double bytes = 0, searches = 0;
    int asked = 0;
    const auto typeAll = [&](bool measured) {
        for (std::size_t length = 1; length <= words.size(); ++length) {
            const std::string term(words.substr(0, length));
            if (length < 2 || term.ends_with(' ')) {
                editor.type(QLatin1Char(term.back()));
                editor.rest();
                continue;
            }
            const Typed typed = typeLast(editor, term);
            editor.rest();
            BareExchanges exchanges(term);
            bytes += exchanges.bytes();
            ++searches;
            const double took = exchanges.run();
            if (!measured)
                continue;
            answered.push_back(typed.answered);
            rows.push_back(typed.rows);
            work.push_back(typed.work);
            rowsProcessor.push_back(typed.rowsProcessor);
            frameProcessor.push_back(typed.frameProcessor);
            bare.push_back(took);
        }
        clearField(editor);
    };
    typeAll(false);
    asked = handedOn();
    for (auto _ : state)
        typeAll(true);
    if (handedOn() != asked)
        state.SkipWithError("the gateway was asked something new");
    const double peer = Spread::of(bare).median;
    state.counters["bare_ms"] = peer;
    for (const auto& [name, times] :
         {std::pair("answered", answered), std::pair("rows", rows),
          std::pair("rows_and_frame", work), std::pair("rows_processor", rowsProcessor),
          std::pair("frame_processor", frameProcessor)}) {
        state.counters[fmt::format("{}_ms", name)] = Spread::of(times).median;
        state.counters[fmt::format("{}_ratio", name)] = Spread::of(times).median / peer;
    }
    state.counters["answer_bytes"] = bytes / searches;
}
BENCHMARK(keystroke)->Iterations(10)->Unit(benchmark::kMillisecond);

/// What a person waits, with the gateway's own work.
void keystrokeWithItsGateway(benchmark::State& state) {
    EditorWindow editor(Gateways::practiceName);
    std::vector<double> rows, frames, served;
    for (auto _ : state) {
        for (std::size_t length = 1; length <= words.size(); ++length) {
            const std::string term(words.substr(0, length));
            if (length < 2 || term.ends_with(' ')) {
                editor.type(QLatin1Char(term.back()));
                editor.rest();
                continue;
            }
            editor.client().startAfresh();
            const Typed typed = typeLast(editor, term);
            rows.push_back(typed.rows);
            frames.push_back(typed.frame);
            served.push_back(
                static_cast<double>(editor.client().served(ReadCase::TextBrowse::verb).count()));
            editor.rest();
        }
        clearField(editor);
    }
    state.counters["rows_ms"] = Spread::of(rows).median;
    state.counters["frame_ms"] = Spread::of(frames).median;
    state.counters["longest_frame_ms"] = Spread::of(frames).longest;
    state.counters["served_ms"] = Spread::of(served).median;
}
BENCHMARK(keystrokeWithItsGateway)->Iterations(5)->Unit(benchmark::kMillisecond);

/// Sixty keys, one each so many milliseconds; none: all before the loop turns.
void burst(benchmark::State& state) {
    EditorWindow editor(Gateways::practiceName);
    const std::string typed = "backup checksum archive disk restore kestrel meeting decides";
    const auto pause = std::chrono::milliseconds(state.range(0));
    for (auto _ : state) {
        editor.client().startAfresh();
        const std::string all = typed.substr(0, 60);
        const PageWatch watch(editor, all);
        auto next = Clock::now();
        for (const char letter : all) {
            if (pause > 0ms)
                runUntil([&] { return Clock::now() >= next; });
            editor.type(QLatin1Char(letter));
            next += pause;
        }
        const auto last = Clock::now();
        runUntil([&] { return watch.done(); });
        state.counters["page_after_last_key_ms"] = milliseconds(watch.frame() - last);
        editor.rest();
        state.counters["keys"] = static_cast<double>(all.size());
        state.counters["browses"] = editor.client().count(ReadCase::TextBrowse::verb);
        clearField(editor);
    }
}
BENCHMARK(burst)
    ->ArgName("pause_ms")
    ->Arg(0)
    ->Arg(10)
    ->Arg(50)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace

} // namespace wendlow::benchmarks
