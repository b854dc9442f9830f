#include "OrderedClient.h"
#include "StatsRoot.h"

#include <QAbstractItemModelTester>
#include <QBuffer>
#include <QDateTime>
#include <QImage>
#include <QSignalSpy>

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <cstdlib>
#include <ctime>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using testing::OrderedClient;

constexpr std::size_t questions = 8;

/// The good answer to the question of a place in the chain. All its figures are `mark`, by which
/// the loads are told apart.
GatewayResponse goodAnswer(std::size_t place, std::int64_t mark, std::size_t sites = 10) {
    switch (place) {
    case 0:
        return AnswerCase::Presence{
            {.day = {},
             .apps = {{.app = "Code", .attended = mark, .active = mark, .intervals = {}}},
             .active = mark}};
    case 1:
        return AnswerCase::SpanHours{
            {.from = {}, .to = {}, .attended = mark, .apps = {}, .days = {}}};
    case 2:
        return AnswerCase::AllTime{{.meetings = mark}};
    case 3:
        return AnswerCase::Stretches{
            {.day = {},
             .focus = {{.start = 0, .end = 1, .seconds = mark, .apps = {{"Code", mark}}}}}};
    case 4:
        return AnswerCase::TopSessions{{.day = {}, .sessions = {{"The index", mark, "c1"}}}};
    case 5:
        return AnswerCase::Attention{{.day = {}, .aiSeconds = mark}};
    case 6: {
        WebReport report{.day = {}, .browserSeconds = mark, .sites = {}};
        for (std::size_t site = 0; site < sites; ++site)
            report.sites.push_back({fmt::format("s{}.example", site), mark});
        return AnswerCase::Web{std::move(report)};
    }
    default:
        return AnswerCase::Icons{{{"s0.example", {std::to_string(mark)}}, {"s8.example", {"x"}}}};
    }
}

class StatsDay : public ::testing::Test {
protected:
    ~StatsDay() override {
        root.reset();
        client->endAll();
    }

    static std::chrono::system_clock::time_point at(const QDateTime& time) {
        return std::chrono::system_clock::time_point(
            std::chrono::milliseconds(time.toMSecsSinceEpoch()));
    }
    /// Of each thing that is published its mark; 0: it is not there.
    std::vector<std::int64_t> marks() const {
        const DashboardModel& model = root->model();
        const auto& web = model.todayWeb();
        return {model.todayRecord() ? model.todayRecord()->attended : 0,
                model.week() ? model.week()->attended : 0,
                model.allTime() ? model.allTime()->meetings : 0,
                model.todayFocus() ? model.todayFocus()->front().seconds : 0,
                model.todaySessions().empty() ? 0 : model.todaySessions().front().seconds,
                model.todayAttention() ? model.todayAttention()->aiSeconds : 0,
                web ? web->browserSeconds : 0,
                web && web->sites[0].favicon ? std::stoi(*web->sites[0].favicon) : 0};
    }
    /// Answers the questions of one load, of which the first is at this place, up to `end`.
    void answer(std::size_t first, std::int64_t mark, std::size_t end = questions) {
        for (std::size_t place = 0; place < end; ++place)
            client->answer(first + place, goodAnswer(place, mark));
    }
    std::shared_ptr<OrderedClient> client = std::make_shared<OrderedClient>();
    QDateTime now{QDate(2026, 11, 21), QTime(12, 0)};
    std::unique_ptr<StatsRoot> root =
        std::make_unique<StatsRoot>(client, [this] { return at(now); });
};

TEST_F(StatsDay, AsksEightQuestionsOneAfterTheOtherAndPublishesEach) {
    EXPECT_TRUE(client->sent().empty()) << "nobody has seen it yet";
    root->appear();
    root->appear();
    std::vector<std::int64_t> expected(questions, 0);
    for (std::size_t place = 0; place < questions; ++place) {
        EXPECT_TRUE(root->isLoading());
        ASSERT_EQ(client->sent().size(), place + 1);
        client->answer(place, goodAnswer(place, 7));
        expected[place] = 7;
        EXPECT_EQ(marks(), expected) << place;
    }
    EXPECT_FALSE(root->isLoading());
    const auto read = [](const std::string& request) {
        return R"({"read":{"_0":{)" + request + "}}}";
    };
    EXPECT_THAT(
        client->sent(),
        ElementsAre(read(R"("dayPresence":{"day":"2026-11-21"})"),
                    read(R"("spanHours":{"from":"2026-11-15","to":"2026-11-21"})"),
                    read(R"("allTime":{"force":false})"),
                    read(R"("dayStretches":{"day":"2026-11-21"})"),
                    read(R"("dayTopSessions":{"day":"2026-11-21"})"),
                    read(R"("dayAttention":{"day":"2026-11-21"})"),
                    read(R"("dayWeb":{"day":"2026-11-21"})"),
                    read(R"("favicons":{"hosts":["s0.example","s1.example","s2.example",)"
                         R"("s3.example","s4.example","s5.example","s6.example","s7.example"]})")));
    EXPECT_FALSE(root->model().todayWeb()->sites[1].favicon);
    EXPECT_TRUE(root->model().todayWeb()->sites[8].favicon) << "what was not asked for is no fault";

    root->refresh();
    EXPECT_EQ(marks(), std::vector<std::int64_t>(questions, 0));
    answer(questions, 8, 2);
    EXPECT_EQ(client->sent().back(), read(R"("allTime":{"force":true})"));
}

TEST_F(StatsDay, GoesOnBehindAnyAnswerThatIsNone) {
    const std::vector<GatewayResponse> wrong{
        AnswerCase::Failure{"Wendlow isn't running — start it to access your memory."},
        AnswerCase::Unimplemented{"day_get_web"}, AnswerCase::Ok{}, AnswerCase::Flag{true}};
    std::size_t first = 0;
    root->appear();
    for (std::size_t failing = 0; failing < questions; ++failing)
        for (const GatewayResponse& response : wrong) {
            std::vector<std::int64_t> expected(questions, 5);
            expected[failing] = 0;
            // Without sites there is nobody to ask for icons of.
            const std::size_t asked = failing == 6 ? 7 : questions;
            if (failing == 6)
                expected[7] = 0;
            for (std::size_t place = 0; place < asked; ++place)
                client->answer(first + place, place == failing ? response : goodAnswer(place, 5));
            EXPECT_EQ(marks(), expected) << failing << ' ' << response.caseName();
            EXPECT_FALSE(root->isLoading());
            first += asked;
            EXPECT_EQ(client->sent().size(), first);
            root->refresh();
        }
    // The same for a day on which there were no sites.
    for (std::size_t place = 0; place < 7; ++place)
        client->answer(first + place, goodAnswer(place, 5, 0));
    EXPECT_FALSE(root->isLoading());
}

TEST_F(StatsDay, NeverMixesDays) {
    root->appear();
    std::size_t first = 0;
    std::int64_t mark = 1;
    for (std::size_t answered = 0; answered < questions; ++answered) {
        // The question behind the answered ones stays without an answer, as of a silent daemon.
        answer(first, mark, answered);
        root->goToPreviousDay();
        EXPECT_EQ(marks(), std::vector<std::int64_t>(questions, 0));
        const std::size_t next = client->sent().size() - 1;
        ASSERT_EQ(next, first + answered + 1) << "it is asked at once";
        client->answer(next, goodAnswer(0, ++mark));
        const auto before = marks();
        client->answer(first + answered, goodAnswer(answered, 99));
        EXPECT_EQ(marks(), before) << "the late answer is dropped, of question " << answered;
        EXPECT_EQ(client->sent().size(), next + 2) << "and the overtaken load asks no further";
        for (std::size_t place = 1; place < questions; ++place)
            client->answer(next + place, goodAnswer(place, mark));
        EXPECT_EQ(marks(), std::vector<std::int64_t>(questions, mark));
        EXPECT_FALSE(root->isLoading());
        root->goToToday();
        first = client->sent().size() - 1;
        ++mark;
    }
    // It may go while an answer is under way.
    root.reset();
    client->answer(first, goodAnswer(0, 1));
}

TEST_F(StatsDay, GoesByDaysOfTheCalendar) {
    const char* const zone = std::getenv("TZ");
    const std::optional<std::string> before =
        zone ? std::optional<std::string>(zone) : std::nullopt;
    ::setenv("TZ", "Europe/Berlin", 1);
    ::tzset();
    // On both sides of a night that has an hour more or less than the others.
    for (const QDate night : {QDate(2026, 3, 29), QDate(2026, 10, 25)})
        for (const QTime time : {QTime(0, 10), QTime(2, 30), QTime(23, 50)}) {
            now = QDateTime(night.addDays(1), time);
            StatsRoot other(client, [this] { return at(now); });
            std::vector<QDate> days;
            for (int move = 0; move < 3; ++move) {
                days.push_back(other.model().selectedDay());
                other.goToPreviousDay();
            }
            EXPECT_THAT(days, ElementsAre(night.addDays(1), night, night.addDays(-1)));
            for (int move = 0; move < 5; ++move)
                other.goToNextDay();
            EXPECT_EQ(other.model().selectedDay(), night.addDays(1));
            EXPECT_EQ(other.model().dayString(2), DashboardModel::dayString(night.addDays(-1)));
        }
    before ? ::setenv("TZ", before->c_str(), 1) : ::unsetenv("TZ");
    ::tzset();
}

TEST_F(StatsDay, LearnsOfMidnightWhenItIsLookedAt) {
    root->appear();
    QSignalSpy moved(root.get(), &StatsRoot::dayChanged);
    root->goToNextDay();
    root->lookAgain();
    EXPECT_EQ(moved.count(), 0);
    EXPECT_EQ(client->sent().size(), 1U) << "there is no day after today";
    EXPECT_EQ(root->eyebrow(), "YOUR WORKING DAY");
    now = now.addDays(1);
    root->lookAgain();
    root->lookAgain();
    EXPECT_EQ(moved.count(), 1);
    EXPECT_FALSE(root->isOnToday());
    EXPECT_EQ(root->eyebrow(), "SATURDAY NOVEMBER 21 2026");
    EXPECT_EQ(client->sent().size(), 1U) << "it stays with its day";
    root->goToNextDay();
    EXPECT_TRUE(root->isOnToday());
    EXPECT_THAT(client->sent().back(), ::testing::HasSubstr("2026-11-22"));
}

TEST_F(StatsDay, SaysWhatIsKnown) {
    QAbstractItemModelTester apps(root->apps());
    QAbstractItemModelTester web(root->web());
    QSignalSpy said(root.get(), &StatsRoot::said);
    EXPECT_EQ(root->appsWords(), "not known yet");
    root->appear();
    EXPECT_EQ(root->appsWords(), "reading…");
    EXPECT_EQ(root->total()->words(), "—");
    client->answer(
        0, AnswerCase::Presence{
               {.day = {},
                .apps = {{.app = "Zed Editor", .attended = 19'440, .active = 60, .intervals = {}},
                         {.app = "Chrome",
                          .unattended = 8880,
                          .active = 9000,
                          .isBrowser = true,
                          .intervals = {}}}}});
    EXPECT_EQ(root->total()->words(), "7h 52m");
    EXPECT_EQ(root->total()->at(0.5), "3h 56m");
    EXPECT_EQ(root->appsWords(), "");
    EXPECT_EQ(root->apps()->rowCount(), 1);
    EXPECT_EQ(root->apps()->index(0).data(StatsBarList::TipRole), "Zed Editor · 1m");
    const auto share = [](const QVariantList& shares, int at) { return shares[at].toMap(); };
    EXPECT_NEAR(share(root->work(), 0)[u"share"_s].toDouble(), 0.686, 0.001);
    EXPECT_EQ(share(root->work(), 0)[u"name"_s], "You Work");
    EXPECT_EQ(share(root->work(), 0)[u"beside"_s], "· 5h 24m");
    EXPECT_EQ(share(root->work(), 1)[u"name"_s], "Your AI Unattended");
    EXPECT_EQ(share(root->work(), 1)[u"beside"_s], "· 2h 28m");
    for (std::size_t place = 1; place < 5; ++place)
        client->answer(place, goodAnswer(place, 6420));
    EXPECT_EQ(root->streak()->words(), "1h 47m");
    EXPECT_FALSE(root->streakTag().isEmpty());
    client->answer(5, AnswerCase::Attention{{.day = {},
                                             .aiSeconds = 60,
                                             .humansSeconds = 60,
                                             .scrollingSeconds = 960,
                                             .scrollingGlances = 9}});
    EXPECT_EQ(share(root->attention(), 0)[u"name"_s], "Doom Scrolling");
    EXPECT_EQ(share(root->attention(), 0)[u"beside"_s], "9 glances · 16m");
    EXPECT_EQ(share(root->attention(), 1)[u"name"_s], "Talking with Humans");
    EXPECT_EQ(share(root->attention(), 2)[u"name"_s], "Talking with AI");
    client->answer(
        6, AnswerCase::Web{
               {.day = {}, .browserSeconds = 60, .sites = {{"a.example", 60}, {"b.example", 9}}}});
    QByteArray png;
    QBuffer buffer(&png);
    QImage(8, 8, QImage::Format_RGB32).save(&buffer, "PNG");
    const QPersistentModelIndex first(root->web()->index(0));
    const QPersistentModelIndex second(root->web()->index(1));
    client->answer(
        7, AnswerCase::Icons{{{"a.example", {png.toStdString()}},
                              {"b.example", {"<svg xmlns='http://www.w3.org/2000/svg'/>"}}}});
    EXPECT_TRUE(first.isValid()) << "the rows stay while their icons come";
    EXPECT_FALSE(first.data(StatsBarList::PictureRole).value<QImage>().isNull());
    EXPECT_TRUE(second.data(StatsBarList::PictureRole).value<QImage>().isNull());
    EXPECT_EQ(second.data(StatsBarList::LetterRole), "B");
    EXPECT_THAT(said.takeFirst(), ElementsAre(u"Today, 7h 52m"_s));

    root->goToPreviousDay();
    client->endAll();
    EXPECT_EQ(root->appsWords(), "not known yet");
    EXPECT_EQ(root->attentionWords(), "no attention data");
    EXPECT_EQ(root->streak()->words(), "—");
    EXPECT_THAT(said.takeFirst(), ElementsAre(u"Friday November 20 2026, not known yet"_s));
    // As soon as there is somebody to ask.
    const std::size_t sent = client->sent().size();
    root->daemonCame();
    EXPECT_EQ(client->sent().size(), sent + 1);
}

} // namespace
} // namespace wendlow
