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

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Ne;
using ::testing::Not;
using ::testing::SizeIs;

namespace Case = EditorAnswerStateCase;

const EditorDate noon(std::chrono::hours(24 * 20'000 + 12));

std::string encoded(QSize size, const char* format = "PNG") {
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
EditorMoments moments(int from, int to) {
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

TEST_F(Face, readsOnPageByPage) {
    EXPECT_EQ(model.emptyWords(), u"Reading your screens…");
    EXPECT_EQ(model.heading(), u"Moments");
    settleAsAsked();
    EXPECT_EQ(model.heading(), u"Today");
    EXPECT_EQ(model.subheading(), u"400 moments in all");
    EXPECT_THAT(asked, IsEmpty()) << "the last is not in sight";
    for (const std::int64_t limit : {96, 144, 192}) {
        look(model.grid()->contentHeight() - 700);
        ASSERT_THAT(asked, SizeIs(limit / 48 - 1));
        EXPECT_EQ(asked.back().limit, limit);
        look(model.grid()->contentHeight() - 600);
        EXPECT_THAT(asked, SizeIs(limit / 48 - 1)) << "one at a time";
        const auto before = cells();
        EXPECT_TRUE(model.isRefreshing() && !before.empty());
        settleAsAsked();
        EXPECT_EQ(model.grid()->count(), limit);
        for (const auto& [place, words] : before)
            EXPECT_EQ(cells()[place], words) << "nothing moves";
    }
    look(model.grid()->contentHeight() - 700);
    settle(moments(0, 192), 192);
    look(model.grid()->contentHeight() - 800);
    look(model.grid()->contentHeight() - 700);
    EXPECT_THAT(asked, SizeIs(4)) << "there is no more";

    // Another question, and another state of the world, begin anew.
    for (int time = 0; time < 2; ++time) {
        if (time == 0)
            ++generation;
        else
            ask.scopes = {"/work"};
        ask.limit = time == 0 ? 240 : 50;
        answer = answer.awaitingRefresh();
        show();
        EXPECT_EQ(ask.limit, 50);
        EXPECT_GT(model.grid()->count(), 100) << "what is here stays until that is read";
        settle(moments(200, 250));
        EXPECT_EQ(model.grid()->count(), 50);
        EXPECT_EQ(model.visibleCount(), 48);
        settle(moments(0, 150));
    }
}

TEST_F(Face, keepsWhatIsSeenInItsPlaceWhenMoreComesAbove) {
    settle(moments(30, 80));
    look(1500); // below the newest day, whatever the zone makes of it
    const auto shifted = [&] {
        double by = 0;
        const auto heard =
            QObject::connect(model.grid(), &MomentGrid::shifted, [&](double far) { by += far; });
        ask.limit = 96;
        // Since the person looked; of the newest day.
        EditorMoments page;
        for (EditorMoment fresh : moments(20, 30)) {
            fresh.at = noon - 30h;
            page.push_back(fresh);
        }
        for (const EditorMoment& old : moments(30, 110))
            page.push_back(old);
        settle(page);
        QObject::disconnect(heard);
        return by;
    };
    std::map<QString, double> before;
    for (const auto& [place, words] : cells())
        before[words.section(u" at "_s, 0, 0)] = words.section(u',', 1).toDouble();
    const double by = shifted();
    EXPECT_GT(by, 0);
    int stayed = 0;
    for (const auto& [place, words] : cells())
        if (const auto was = before.find(words.section(u" at "_s, 0, 0)); was != before.end()) {
            // What the keys are at is kept though it is out of sight.
            if (was->second < 1300)
                continue;
            EXPECT_EQ(words.section(u',', 1).toDouble() - by, was->second);
            ++stayed;
        }
    EXPECT_GT(stayed, 9);
}

TEST_F(Face, goesToTheLastOfAllInStridesBehindWhatIsHeld) {
    int revealed = -1;
    QObject::connect(&model, &MomentsFaceModel::revealed, [&](int place) { revealed = place; });
    settleAsAsked(6'000);
    model.goToEnd();
    EXPECT_EQ(ask.offset, 50);
    EXPECT_EQ(ask.limit, MomentsFaceModel::stride);
    settleAsAsked(6'000);
    EXPECT_EQ(ask.offset, 2'450);
    // Three came at the top meanwhile: what was held is three further down.
    settle(moments(2'447, 4'847), 6'003);
    EXPECT_EQ(ask.offset, 4'847);
    settle(moments(4'847, 6'000), 6'000);
    EXPECT_EQ(model.grid()->count(), 6'000);
    EXPECT_EQ(revealed, 5'999);
    const std::size_t questions = asked.size();
    look(model.grid()->contentHeight() - 700);
    EXPECT_EQ(asked.size(), questions) << "all are held";
    model.goToEnd();
    EXPECT_EQ(asked.size(), questions);
    // A few cells are enough for all of them, and the one that the keys are at stays.
    model.grid()->setCurrent(0);
    look(model.grid()->contentHeight() / 2);
    EXPECT_LT(model.grid()->rowCount(), 40);
    EXPECT_EQ(cells().begin()->first, 0);
    EXPECT_GT(std::next(cells().begin())->first, 2'000);
}

TEST_F(Face, saysWhatIsTheMatter) {
    const std::pair<EditorAnswerState, const char*> states[] = {
        {Case::Warming{}, "Your screens will be ready in a moment — the index is still building."},
        {Case::Failed{"The daemon is gone."}, "The daemon is gone."}};
    for (const auto& [state, words] : states) {
        answer = {.ask = ask, .state = state};
        show();
        EXPECT_EQ(model.emptyWords(), QString::fromUtf8(words));
        EXPECT_EQ(model.strip(), u""_s);
        EXPECT_TRUE(model.isFailing());
    }
    settle({}, 0);
    EXPECT_EQ(model.emptyWords(), u"No moments captured yet.");
    EXPECT_FALSE(model.isFailing());
    settle(moments(0, 1), 1);
    EXPECT_EQ(model.subheading(), u"1 moment");
    EXPECT_EQ(model.emptyWords(), u"");
    answer.state = Case::Failed{"The daemon is gone."};
    show();
    EXPECT_EQ(model.emptyWords(), u"") << "what is here stays";
    EXPECT_EQ(model.strip(), u"The daemon is gone.");
    model.leave(ask);
    EXPECT_EQ(model.grid()->count(), 0);
}

TEST_F(Face, noticesMidnight) {
    const auto passed = std::chrono::steady_clock::now();
    const EditorDate begin = std::chrono::floor<std::chrono::milliseconds>(noon);
    const auto midnight = DateWords::local(begin).date().addDays(1).startOfDay();
    const EditorDate before(std::chrono::milliseconds(midnight.toMSecsSinceEpoch() - 150));
    MomentsFaceModel late(pages, tiles,
                          {.ask = {}, .requestDetails = {}, .today = [&] {
                               return before + std::chrono::duration_cast<EditorDate::duration>(
                                                   std::chrono::steady_clock::now() - passed);
                           }});
    late.setOpen(true);
    late.appear(ask);
    late.show({.ask = ask,
               .answer = std::make_shared<const EditorAnswer>(
                   EditorAnswer{.ask = ask, .state = Case::Settled{}, .moments = moments(0, 60)}),
               .counted = true,
               .generation = 0,
               .details = details});
    late.grid()->measure(3, 162, 20, 86, 12, 44);
    late.grid()->look(300, 700);
    ASSERT_EQ(late.heading(), u"Today");
    ASSERT_EQ(late.grid()->stickyTitle(), u"Today");
    ASSERT_TRUE(soon([&] { return late.grid()->stickyTitle() != u"Today"; }));
    EXPECT_EQ(late.heading(), DateWords::weekday(DateWords::local(noon).date(),
                                                 DateWords::local(noon).date().addDays(1)));
    EXPECT_EQ(late.grid()->stickyTitle(), late.heading());
}

TEST_F(Face, keepsADayAtTheTopWhileItsMomentsPass) {
    settle(moments(0, 100));
    MomentGrid& grid = *model.grid();
    EXPECT_EQ(grid.stickyTitle(), u"") << "its own head is in sight";
    const double next = grid.layout().headTop(1);
    look(next - 200);
    EXPECT_EQ(grid.stickyTitle(), u"Today");
    EXPECT_EQ(grid.stickyOffset(), 0);
    look(next - 20);
    EXPECT_EQ(grid.stickyOffset(), -24) << "the next one pushes it up";
    look(next + 1);
    EXPECT_EQ(grid.stickyTitle(), MomentWords::day(grid.dayOf(1), grid.dayOf(0)));
    for (const MomentHead& head : grid.heads()->rows())
        EXPECT_NE(head.title, grid.stickyTitle()) << "once is enough";
    look(next);
    EXPECT_EQ(grid.heads()->row(0).top, next);
}

TEST_F(Face, decodesPicturesBesideTheWindowAndThoseInSightFirst) {
    settle(moments(0, 60));
    EXPECT_THAT(tiles.shown, AllOf(SizeIs(::testing::Ge(9U)), Each(Ne(3)), Each(Ne(7))))
        << "what draws words wants no picture";
    const auto first = tiles.shown;
    EXPECT_EQ(first.front(), 0);
    TileRoom& room = *model.tiles();
    tiles.come(0, encoded({320, 200}));
    EXPECT_TRUE(room.picture(0).isNull()) << "not on this thread, and not now";
    ASSERT_TRUE(soon([&] { return !room.picture(0).isNull(); }));
    EXPECT_EQ(room.picture(0).size(), QSize(220, 138));
    EXPECT_EQ(qAlpha(room.picture(0).pixel(0, 0)), 0) << "its corners are round";
    EXPECT_EQ(room.picture(0).pixelColor(110, 69), QColor(200, 40, 40));
    {
        const std::lock_guard hold(guard);
        EXPECT_THAT(threads, AllOf(SizeIs(1), Each(Ne(QThread::currentThread()))));
    }
    // Out of sight nothing is decoded, until it is in sight.
    look(3'000);
    EXPECT_THAT(tiles.shown, Each(Ne(0)));
    tiles.come(1, encoded({320, 200}));
    QTest::qWait(50);
    EXPECT_TRUE(room.picture(1).isNull());
    look(0);
    EXPECT_FALSE(room.picture(0).isNull()) << "what has been seen is there at once";
    EXPECT_TRUE(soon([&] { return !room.picture(1).isNull(); }));
    // Sharp pictures in another size are shown until they have been made anew.
    room.setSize({440, 276}, 16);
    EXPECT_EQ(room.picture(0).size(), QSize(220, 138));
    EXPECT_TRUE(soon([&] { return room.picture(0).size() == QSize(440, 276); }));
    room.setSize({2000, 1500}, 16);
    EXPECT_TRUE(soon([&] { return room.isStill(); })) << "also where they are more than is kept";
    model.leave(ask);
    EXPECT_THAT(tiles.shown, IsEmpty());
}

/// A picture that says it is of this size, all of it one colour: a few kilobytes.
std::string bomb() {
    QImage image(30'000, 30'000, QImage::Format_Mono);
    image.fill(0);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes.toStdString();
}

TEST_F(Face, hasNeitherPicturesNorWordsOfWhatRushesBy) {
    const auto untold = [this] {
        int count = 0;
        for (int row = 0; row < model.grid()->rowCount(); ++row)
            count += model.grid()->cell(row).isShown() && !model.grid()->cell(row).isTold();
        return count;
    };
    // The clock of the rush does not go on between two of these.
    const auto rush = [this](double top) { model.grid()->look(top, 700); };
    settle(moments(0, 400));
    rush(3'000);
    EXPECT_THAT(tiles.shown, Not(IsEmpty())) << "a page further";
    for (const double top : {6'000, 9'000, 12'000}) {
        rush(top);
        EXPECT_THAT(tiles.shown, IsEmpty()) << "one screenful after the other";
        EXPECT_GT(untold(), 9);
    }
    EXPECT_TRUE(soon([&] { return !tiles.shown.empty(); })) << "it rests";
    const auto rested = tiles.shown;
    const auto words = cells();
    EXPECT_EQ(untold(), 0);
    rush(9'000);
    EXPECT_EQ(untold(), 0) << "a screenful";
    const int all = static_cast<int>(cells().size());
    rush(9'600);
    EXPECT_GT(untold(), 0) << "and another";
    EXPECT_LT(untold(), all - 3) << "what is still in sight keeps its words";
    rush(12'100);
    rush(12'000);
    EXPECT_EQ(untold(), 0) << "it has slowed";
    EXPECT_EQ(cells(), words);
    look(12'100);
    EXPECT_THAT(tiles.shown, Not(IsEmpty()));
    look(12'000);
    EXPECT_EQ(tiles.shown, rested);
}

TEST_F(Face, isNotHarmedByBytesThatAreNoPicture) {
    settle(moments(0, 60));
    const std::string good = encoded({64, 40});
    const std::string small = bomb();
    ASSERT_LT(small.size(), 1'000'000U);
    const std::pair<const char*, std::string> faulty[] = {
        {"no bytes", ""},
        {"words", "<html>no picture</html>"},
        {"half of one", good.substr(0, 20)},
        {"one that would fill the memory", small},
        {"a drawing", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"}};
    std::int64_t key = 0;
    for (const auto& [what, bytes] : faulty) {
        key = *std::ranges::find_if(tiles.shown, [&](auto other) { return other > key; });
        EXPECT_FALSE(model.tiles()->hasNone(key));
        tiles.come(key, bytes);
        EXPECT_TRUE(soon([&] { return model.tiles()->hasNone(key); })) << what;
        EXPECT_TRUE(model.tiles()->picture(key).isNull());
        EXPECT_TRUE(TileDecoder::whole(bytes).isNull()) << what;
        EXPECT_EQ(TileDecoder::png(bytes), "") << what;
    }
    tiles.come(0, std::nullopt);
    EXPECT_TRUE(model.tiles()->hasNone(0));
    tiles.come(1, good);
    EXPECT_TRUE(soon([&] { return !model.tiles()->picture(1).isNull(); })) << "and goes on";
}

TEST_F(Face, opensOneLargeAndClosesIt) {
    settle(moments(0, 60));
    MomentLightbox& box = *model.lightbox();
    model.openMoment(-1);
    model.openMoment(60);
    EXPECT_FALSE(box.isOpen() || model.isModal() || model.back());
    model.openMoment(3);
    EXPECT_TRUE(model.isModal() && box.isTextCard());
    EXPECT_EQ(box.badge(), u"Codex");
    EXPECT_EQ(box.title(), u"Number 3");
    EXPECT_EQ(box.body(), u"No text has been distilled from this session yet.");
    EXPECT_FALSE(box.copyPicture());
    EXPECT_TRUE(model.back());
    EXPECT_FALSE(model.isModal());
    EXPECT_EQ(box.title(), u"Number 3") << "until it has gone from sight";
    box.wentAway();
    EXPECT_EQ(box.title(), u"");

    model.openMoment(0);
    EXPECT_TRUE(box.isWaiting()) << "its picture has not come";
    EXPECT_EQ(box.pictureWords(), u"Reading the picture…");
    box.openPicture();
    EXPECT_FALSE(box.isOpening() || box.isReady());
    tiles.come(0, encoded({320, 200}));
    EXPECT_TRUE(soon([&] { return box.isReady(); }));
    EXPECT_EQ(box.pictureWords(), u"");
    TilePicture picture;
    picture.setProperty("whole", true);
    picture.setRoom(model.tiles());
    picture.setKey(box.key());
    EXPECT_EQ(picture.naturalSize(), QSize(320, 200));
    bool told = false;
    QObject::connect(&picture, &TilePicture::filledChanged, [&told] { told = true; });
    model.leave(ask);
    box.wentAway();
    picture.setKey(box.key());
    EXPECT_TRUE(told && !picture.isFilled()) << "the next one may have none";
    EXPECT_FALSE(box.isOpen());
}

TEST_F(Face, givesThePictureToAnotherProgram) {
    settle(moments(0, 60));
    MomentLightbox& box = *model.lightbox();
    for (const char* const format : {"PNG", "JPEG"}) {
        tiles.come(0, encoded({320, 200}, format));
        model.openMoment(0);
        ASSERT_TRUE(soon([&] { return box.isReady(); }));
        box.openPicture();
        ASSERT_TRUE(soon([&] { return !box.isOpening(); }));
        EXPECT_EQ(box.refusal(), u"");
        const auto file = *folder / "moment-0-Number0.png";
        EXPECT_THAT(opened, ElementsAre(QUrl::fromLocalFile(QString::fromStdString(file))));
        EXPECT_EQ(QImage(QString::fromStdString(file), "PNG").size(), QSize(320, 200)) << format;
        opened.clear();
    }
    const auto refused = [&] {
        box.openPicture();
        EXPECT_TRUE(soon([&] { return !box.isOpening(); }));
        return box.refusal().toStdString();
    };
    viewerFound = false;
    EXPECT_EQ(refused(), "No program was found that shows pictures.");
    opened.clear();
    std::filesystem::remove_all(*folder);
    std::filesystem::create_directory_symlink(temporary.path(), *folder);
    EXPECT_THAT(refused(), HasSubstr("is not a plain folder; nothing is written through it"));
    folder.reset();
    EXPECT_EQ(refused(), "There is no private folder on this computer.");
    EXPECT_THAT(opened, IsEmpty());
    // One that is closed while it is written opens nothing.
    folder = temporary / "other" / ExportedScreens::folderName();
    std::filesystem::create_directory(temporary / "other");
    QSemaphore written;
    QThreadPool& pool = *QThreadPool::globalInstance();
    const int threads = pool.maxThreadCount();
    pool.setMaxThreadCount(1); // what is written waits behind this
    pool.start([&] { written.acquire(); });
    box.openPicture();
    box.dismiss();
    box.wentAway();
    written.release();
    EXPECT_TRUE(soon([&] { return !std::filesystem::is_empty(temporary / "other"); }));
    QTest::qWait(50);
    pool.setMaxThreadCount(threads);
    EXPECT_THAT(opened, IsEmpty());
}

TEST_F(Face, showsWhatASearchFoundWhereItIsHeld) {
    int revealed = -1;
    QObject::connect(&model, &MomentsFaceModel::revealed, [&](int place) { revealed = place; });
    FoundHit found;
    found.hit.destination = SearchDestination::Moment{"30"};
    model.reveal(found, ask);
    settle(moments(0, 50));
    EXPECT_EQ(revealed, 30);
}

} // namespace
} // namespace wendlow::testing
