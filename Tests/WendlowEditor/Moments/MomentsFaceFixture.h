#pragma once

#include "DateWords.h"
#include "Files.h"
#include "Moments/MomentWords.h"
#include "Moments/MomentsFaceModel.h"
#include "Moments/TilePicture.h"
#include "Support/ScriptedStore.h"
#include "TemporaryHome.h"

#include <QAbstractItemModelTester>
#include <QBuffer>
#include <QDeadlineTimer>
#include <QSemaphore>
#include <QTest>
#include <QThread>
#include <QThreadPool>

#include <gmock/gmock.h>

#include <mutex>

namespace wendlow::testing::paging {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Case = EditorAnswerStateCase;

inline const EditorDate noon(std::chrono::hours(24 * 20'000 + 12));

inline std::string encoded(QSize size, const char* format = "PNG") {
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(200, 40, 40));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes.toStdString();
}

/// Tiles that the test gives when it pleases.
class ScriptedTiles final : public TileSource {
public:
    std::map<std::int64_t, EditorTile> held;
    std::vector<std::int64_t> shown;

    const std::map<std::int64_t, EditorTile>& tiles() const override { return held; }
    void showTiles(std::vector<std::int64_t> keys) override { shown = std::move(keys); }
    void come(std::int64_t key, std::optional<std::string> image) {
        held[key] = {.image = std::move(image)};
        Q_EMIT tileArrived(key);
    }
};

/// Moments of these numbers, an hour apart, the newest first; every fourth a session.
inline EditorMoments moments(int from, int to) {
    EditorMoments made;
    for (int number = from; number < to; ++number) {
        EditorMoment moment{.id = std::to_string(number), .at = noon - 1h * number};
        moment.title = "Number " + moment.id;
        moment.framed = number % 4 != 3;
        if (!moment.framed)
            moment.sessionTool = "codex";
        made.push_back(moment);
    }
    return made;
}

/// The page over scripted pages and tiles, three columns wide.
struct Face : ::testing::Test {
    ScriptedPages pages;
    ScriptedTiles tiles;
    TemporaryHome temporary;
    std::vector<EditorAsk> asked;
    EditorAsk ask{.term = {}};
    EditorAnswer answer;
    std::int64_t generation = 0;
    MemoryDetails details;
    EditorDate now = noon;
    std::vector<QUrl> opened;
    bool viewerFound = true;
    std::mutex guard;
    std::vector<QThread*> threads; ///< on which pictures were decoded
    std::optional<std::filesystem::path> folder = temporary / ExportedScreens::folderName();
    MomentsFaceModel model{
        pages,
        tiles,
        {.ask =
             [this](EditorAsk next) {
                 asked.push_back(next);
                 ask = std::move(next);
                 answer = answer.awaitingRefresh();
                 show();
             },
         .requestDetails = {},
         .today = [this] { return now; }},
        {.folder =
             [this] { return folder ? std::optional(ExportedScreens(*folder)) : std::nullopt; },
         .open =
             [this](const QUrl& url) {
                 opened.push_back(url);
                 return viewerFound;
             }},
        [this](const std::string& bytes, QSize size, double radius) {
            const std::lock_guard hold(guard);
            threads.push_back(QThread::currentThread());
            return TileDecoder::tile(bytes, size, radius);
        }};
    QAbstractItemModelTester tester{model.grid()};

    Face() {
        ask.kind = EditorKind::moment;
        model.setOpen(true);
        model.appear(ask);
        show();
        model.grid()->measure(3, 162, 20, 86, 12, 44);
        model.tiles()->setSize({220, 138}, 8);
        model.grid()->look(0, 700);
    }
    void show() {
        model.show({.ask = ask,
                    .answer = std::make_shared<const EditorAnswer>(answer),
                    .counted = true,
                    .generation = generation,
                    .details = details});
    }
    void settle(EditorMoments page, std::int64_t total = 400) {
        answer = {.ask = ask, .state = Case::Settled{}};
        answer.moments = std::move(page);
        answer.total = total;
        answer.kindCounts[EditorKind::moment] = total;
        show();
        QCoreApplication::processEvents();
    }
    /// The page as asked, of a world of so many.
    void settleAsAsked(int total = 400) {
        const auto end = std::min<std::int64_t>(ask.offset + ask.limit, total);
        settle(moments(static_cast<int>(ask.offset), static_cast<int>(end)), total);
    }
    void look(double top) {
        model.grid()->look(top, 700);
        QCoreApplication::processEvents();
    }
    /// What the cells show, by place: "place id-title at column,top".
    std::map<int, QString> cells() {
        std::map<int, QString> all;
        for (int row = 0; row < model.grid()->rowCount(); ++row) {
            const MomentCellModel& cell = model.grid()->cell(row);
            if (cell.isShown())
                all.emplace(cell.place(),
                            u"%1 at %2,%3"_s.arg(cell.isTextCard() ? cell.title() : cell.caption())
                                .arg(cell.column())
                                .arg(cell.top()));
        }
        return all;
    }
    template<class Done> bool soon(const Done& done) { return QTest::qWaitFor(done, 5000); }
};

} // namespace wendlow::testing::paging
