#include "Moments/MomentsFaceFixture.h"

namespace wendlow::testing::paging {
namespace {

using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Ne;
using ::testing::Not;
using ::testing::SizeIs;

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
    const int ofThePool = pool.maxThreadCount();
    pool.setMaxThreadCount(1); // what is written waits behind this
    pool.start([&] { written.acquire(); });
    box.openPicture();
    box.dismiss();
    box.wentAway();
    written.release();
    EXPECT_TRUE(soon([&] { return !std::filesystem::is_empty(temporary / "other"); }));
    QTest::qWait(50);
    pool.setMaxThreadCount(ofThePool);
    EXPECT_THAT(opened, IsEmpty());
}

} // namespace
} // namespace wendlow::testing::paging
