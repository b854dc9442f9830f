#include "AllTimeBand.h"
#include "DashboardReports.h"
#include "DashboardWords.h"

#include <QDateTime>

#include <gmock/gmock.h>

namespace wendlow::Dashboard {
namespace {

using ::testing::ElementsAre;

constexpr auto most = std::numeric_limits<std::int64_t>::max();

std::vector<std::string> labels(const std::vector<Bar>& bars) {
    std::vector<std::string> all;
    for (const Bar& bar : bars)
        all.push_back(
            (bar.name + u' ' + QString::number(bar.fraction) + u' ' + bar.label).toStdString());
    return all;
}

TEST(DashboardWords, SayTimes) {
    const struct {
        std::int64_t seconds;
        const char* words;
        const char* exact;
    } times[] = {
        {0, "0m", "0s"},
        {59, "0m", "59s"},
        {60, "1m", "1m"},
        {2579, "42m", "42m 59s"},
        {3599, "59m", "59m 59s"},
        {3600, "1h", "1h"},
        {3659, "1h", "1h 59s"},
        {3660, "1h 1m", "1h 1m"},
        {11232, "3h 7m", "3h 7m 12s"},
        {360'000, "100h", "100h"},
        {-3700, "-61m", "−1h 1m 40s"},
        {most, "2562047788015215h 30m", "2562047788015215h 30m 7s"},
        {std::numeric_limits<std::int64_t>::min(), "-153722867280912930m",
         "−2562047788015215h 30m 8s"},
    };
    for (const auto& [seconds, words, exact] : times) {
        EXPECT_EQ(dashTime(seconds).toStdString(), words) << seconds;
        EXPECT_EQ(exactTime(seconds).toStdString(), exact) << seconds;
    }
}

TEST(DashboardWords, CallEachHourByItsPartOfTheDay) {
    std::string parts;
    for (int hour = 0; hour < 24; ++hour)
        parts += dayPart(hour).toStdString() + (hour < 23 ? "|" : "");
    EXPECT_EQ(parts,
              "the small hours|the small hours|the small hours|the small hours|the small hours|"
              "early morning|early morning|early morning|mid morning|mid morning|mid morning|"
              "late morning|early afternoon|early afternoon|mid afternoon|mid afternoon|"
              "late afternoon|late afternoon|evening|evening|evening|"
              "late evening|late evening|late evening");
    const QDateTime noon(QDate(2026, 11, 21), QTime(12, 59, 59));
    EXPECT_EQ(dayPartOf(static_cast<double>(noon.toSecsSinceEpoch()) + 0.9), "early afternoon");
    for (const double time : {1e300, -1e300, std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity()})
        EXPECT_EQ(dayPartOf(time), QString());
}

TEST(DashboardBars, AreSharesOfTheFirst) {
    const std::vector<AppShare> apps{{"Google Chrome", 7200, true},
                                     {" Visual  Studio Code\n", 5400},
                                     {"🧭\tCompass", 60},
                                     {"Mail", 0},
                                     {"", -60}};
    EXPECT_THAT(labels(appBars(apps, 9)),
                ElementsAre("Chrome 1 2h", "Visual  Studio Code 0.75 1h 30m",
                            "Compass 0.00833333 1m", "Mail 0 0m", " -0.00833333 -1m"));
    EXPECT_EQ(appBars(apps, 9)[0].fullName, "Google Chrome");
    EXPECT_EQ(appBars(apps, 2).size(), 2U);
    EXPECT_TRUE(appBars({}, 5).empty());
    EXPECT_TRUE(appBars(std::vector<AppShare>{{"Mail", 0}}, 5).empty());
    const std::vector<WebSite> sites{{"a.example", 120}, {"two words", 12}, {"c.example", -5}};
    EXPECT_THAT(labels(webBars(sites, 3)),
                ElementsAre("a.example 1 2m", "two words 0.1 1m", "c.example -0.0416667 1m"));
    EXPECT_EQ(webBars(sites, 3)[1].exact, "12s");
}

TEST(DashboardFaces, SayWhatThereIs) {
    const auto faces = [](const std::optional<Today>& today) {
        const DayCardFace face = appsFace(today);
        return std::pair(static_cast<int>(face.kind),
                         (face.words + u'/' + appsTitle(today)).toStdString());
    };
    const auto ofWeb = [](const std::optional<Web>& web) {
        const DayCardFace face = webFace(web);
        return std::pair(static_cast<int>(face.kind),
                         (face.words + u'/' + webTitle(web)).toStdString());
    };
    enum { empty, loading, loaded };
    EXPECT_EQ(faces({}), std::pair(+loading, std::string("/apps")));
    EXPECT_EQ(faces(Today{}), std::pair(+empty, std::string("no app data/apps")));
    EXPECT_EQ(faces(Today{.apps = {{"Chrome", 60, true}, {"Mail", 0}}}),
              std::pair(+empty, std::string("no app data/apps")));
    EXPECT_EQ(faces(Today{.apps = {{"Chrome", 9000, true}, {"Mail", 3660}, {"Code", 1}}}),
              std::pair(+loaded, std::string("/apps · 1h 1m")));
    EXPECT_EQ(faces(Today{.apps = {{"Code", most}, {"Mail", most}}}).second,
              "/apps · 2562047788015215h 30m");
    EXPECT_EQ(ofWeb({}), std::pair(+loading, std::string("/web")));
    EXPECT_EQ(ofWeb(Web{.browserSeconds = 600, .sites = {{"a.example", 0}}}),
              std::pair(+empty, std::string("no web data/web")));
    EXPECT_EQ(ofWeb(Web{.browserSeconds = 7500, .sites = {{"a.example", 12}}}),
              std::pair(+loaded, std::string("/web · 2h 5m")));
    for (const auto& attention :
         {std::optional<Attention>(), std::optional(Attention{.scrollingGlances = 3})})
        EXPECT_EQ(attentionFace(attention),
                  (DayCardFace{DayCardFace::Kind::empty, u"no attention data"_qs}));
    EXPECT_EQ(attentionFace(Attention{.aiSeconds = 1}).kind, DayCardFace::Kind::loaded);
}

TEST(DashboardReports, SortSharesAndPickDays) {
    const Today today = todayOf(
        {.day = {},
         .apps = {{.app = "b", .attended = 1, .active = 5, .intervals = {}},
                  {.app = "z", .unattended = 2, .active = 9, .isBrowser = true, .intervals = {}},
                  {.app = "a", .attended = most, .active = 5, .intervals = {}}},
         .active = 17});
    EXPECT_EQ(today, (Today{.attended = most,
                            .unattended = 2,
                            .active = 17,
                            .apps = {{"z", 9, true}, {"a", 5}, {"b", 5}}}));
    const Week week =
        weekOf({.from = {},
                .to = {},
                .apps = {},
                .days = {{"2026-11-16", 4, 1}, {"2026-11-17", 4, 7}, {"2026-11-18", 2, 7}}});
    EXPECT_EQ(week.biggestDay, (Week::BiggestDay{"Monday", 4}));
    EXPECT_EQ(week.aiPeakDay, (Week::AIPeakDay{"Tuesday", 7}));
    EXPECT_EQ(weekOf({.from = {}, .to = {}, .apps = {}, .days = {}}).biggestDay, std::nullopt);

    using enum Attention::Bucket;
    EXPECT_THAT((Attention{}.ranked()), ElementsAre(humans, ai, scrolling));
    EXPECT_THAT((Attention{.aiSeconds = 3, .humansSeconds = 3, .scrollingSeconds = 4}.ranked()),
                ElementsAre(scrolling, humans, ai));
}

TEST(AllTimeBand, HasFiveFiguresAsFarAsTheyAreKnown) {
    const auto words = [](const std::optional<AllTimeTotals>& totals) {
        std::string all;
        for (const auto& [value, label] : AllTimeBand::stats(totals))
            all += (value ? value->words() : u"none"_qs).toStdString() + ' ' + label.toStdString() +
                   ';';
        return all;
    };
    AllTimeTotals totals{.meetings = 1430,
                         .days = 1086,
                         .storageBytes = 4'509'715'661,
                         .cpuMs = 14,
                         .cpuWallMs = 1000};
    EXPECT_EQ(words(totals), "4.2 GB storage used;1086 days running;3 MB per day on disk;"
                             "1430 meetings captured;1.4% avg CPU engine;");
    totals.days = 0;
    totals.cpuWallMs = 0;
    EXPECT_EQ(words(totals), "4.2 GB storage used;0 days running;none per day on disk;"
                             "1430 meetings captured;none avg CPU engine;");
    EXPECT_EQ(words({}), "none storage used;none days running;none per day on disk;"
                         "none meetings captured;none avg CPU engine;");
}

} // namespace
} // namespace wendlow::Dashboard
