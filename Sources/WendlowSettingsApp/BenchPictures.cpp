#include "SilentGateway.h"
#include "ThemeSource.h"
#include "WindowModels.h"
#include "WindowPictures.h"

#include <QDeadlineTimer>
#include <QQuickItem>

#include <functional>

namespace wendlow::WindowPictures {

namespace {

constexpr int longestWait = 8000; // somebody who is patient waits for five seconds

using Focus = PictureSession::Focus;

void save(const PictureSession& session, const QString& name) {
    session.save(name, Focus::away);
}

/// The whole of a page that is longer than its window, where that is no size that was asked for;
/// then as narrow and as wide as it may come to be.
void takePage(const PictureSession& session, const QString& name) {
    save(session, name);
    if (session.isAsGiven)
        return;
    const QSize own = session.window.size();
    auto* const content = session.window.property("content").value<QQuickItem*>();
    const auto takeAt = [&](const QSize& size) {
        session.window.resize(size);
        save(session, QStringLiteral("%1-%2x%3").arg(name).arg(size.width()).arg(size.height()));
    };
    takeAt({560, 420});
    takeAt({1600, 1000});
    session.window.resize(own);
    constexpr int bar = 28;
    session.window.resize(own.width(), content->property("contentHeight").toInt() + bar);
    save(session, name + QStringLiteral("-whole"));
    session.window.resize(own);
}

} // namespace

void takeControls(const PictureSession& session, WindowModels& /*models*/) {
    takePage(session, QStringLiteral("controls-bench"));
}

void takeFilters(const PictureSession& session, WindowModels& /*models*/) {
    takePage(session, QStringLiteral("filters-bench"));
}

void takeSearch(const PictureSession& session, WindowModels& models) {
    SearchBenchModel& bench = models.searchBench();
    const QString name = QStringLiteral("search-bench");
    save(session, name);
    const auto type = [&](const char* words, const char* state) {
        bench.root()->search()->setText(QString::fromUtf8(words));
        SilentGateway::waitUntilNoticed();
        save(session, name + QString::fromUtf8(state));
    };
    type("backup", "-found");
    type("zeppelin", "-nothing");
    bench.chooseAnswers(QString::fromUtf8(overLabel(EditorOver::refusing)));
    type("backup", "-refused");
    bench.root()->search()->clear();
    bench.chooseAnswers(QString::fromUtf8(overLabel(EditorOver::powerUser)));
    bench.root()->search()->clear();
    if (session.isAsGiven)
        return;
    const QSize own = session.window.size();
    session.window.resize(560, 420);
    type("backup", "-found-560x420");
    session.window.resize(own);
    bench.root()->search()->clear();
}

void takeRows(const PictureSession& session, WindowModels& models) {
    RowsBenchModel& bench = models.rowsBench();
    SilentGateway::waitUntilNoticed();
    save(session, QStringLiteral("rows-bench-refused"));
    bench.stand(EditorOver::powerUser);
    SilentGateway::waitUntilNoticed();
    takePage(session, QStringLiteral("rows-bench"));
    bench.stand(EditorOver::realData);
}

void takeWorkbench(const PictureSession& session, WindowModels& models) {
    WorkbenchModel& bench = models.workbench();
    const auto take = [&](EditorOver over, EditorFace face, int width, const char* state) {
        bench.stand(over, face, width);
        SilentGateway::waitUntilNoticed();
        save(session, QStringLiteral("workbench") + QString::fromUtf8(state));
    };
    take(EditorOver::powerUser, EditorFace::memory, 0, "");
    take(EditorOver::powerUser, EditorFace::rules, 560, "-560");
    take(EditorOver::powerUser, EditorFace::scopes, 1600, "-1600");
    take(EditorOver::refusing, EditorFace::memory, 700, "-refused");
    bench.stand(EditorOver::silent, EditorFace::meetings, 700);
    for (const QDeadlineTimer limit(longestWait);
         bench.root()->waitingWords().isEmpty() && !limit.hasExpired();)
        SilentGateway::waitUntilNoticed();
    save(session, QStringLiteral("workbench-silent"));
    if (!session.isAsGiven) {
        session.looks.setTextScale(1.5);
        take(EditorOver::someData, EditorFace::memory, 700, "-text150");
        session.looks.setTextScale(1);
        const QSize own = session.window.size();
        session.window.resize(560, 420);
        take(EditorOver::dayZero, EditorFace::memory, 0, "-560x420");
        session.window.resize(own);
    }
    bench.stand(EditorOver::powerUser, EditorFace::memory, 0);
}

} // namespace wendlow::WindowPictures
