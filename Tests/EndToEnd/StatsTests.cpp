#include "Support/KeyWalk.h"
#include "Support/OnADesktop.h"

#include <QDate>
#include <QJsonArray>
#include <QLocale>

#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

const QString unknown = u"not known yet"_s;

QString shortTime(qint64 seconds) {
    const qint64 minutes = seconds / 60;
    if (minutes < 60)
        return u"%1m"_s.arg(minutes);
    return minutes % 60 == 0 ? u"%1h"_s.arg(minutes / 60)
                             : u"%1h %2m"_s.arg(minutes / 60).arg(minutes % 60);
}

QString exactTime(qint64 seconds) {
    QStringList parts;
    for (const auto& [count, unit] :
         {std::pair(seconds / 3600, u"h"_s), {seconds / 60 % 60, u"m"_s}, {seconds % 60, u"s"_s}})
        if (count > 0)
            parts.append(QString::number(count) + unit);
    return parts.join(u' ');
}

/// The window in front of the gateway, held against what the gateway says of the same day.
class Stats : public OnADesktop {
protected:
    void open() {
        application.emplace(desktop, QStringList{u"--window=stats"_s});
        const auto window = application->window(u"Stats"_s);
        ASSERT_TRUE(window) << application->errors().toStdString();
        ASSERT_TRUE(eventually([&] { return window->isActive(); }));
    }
    QJsonObject report(const char* question, const QDate& day) const {
        return gateway
            .ask(u"{\"read\":{\"_0\":{\"%1\":{\"day\":\"%2\"}}}}"_s
                     .arg(QLatin1String(question), day.toString(Qt::ISODate))
                     .toStdString())["_0"_L1]
            .toObject();
    }
    static qint64 sum(const QJsonArray& list, const QString& figure) {
        qint64 all = 0;
        for (const auto& each : list)
            all += each[figure].toInteger();
        return all;
    }
    /// Every figure of a day that the gateway tells is on the screen.
    void expectDay(const QDate& day) const {
        SCOPED_TRACE(day.toString(Qt::ISODate).toStdString());
        const QString named = day == QDate::currentDate()
                                  ? u"YOUR WORKING DAY"_s
                                  : QLocale::c().toString(day, u"dddd MMMM d yyyy"_s).toUpper();
        EXPECT_TRUE(is("heading", named));
        const QJsonArray apps = report("dayPresence", day)["apps"_L1].toArray();
        ASSERT_FALSE(apps.isEmpty());
        const qint64 attended = sum(apps, u"attended"_s);
        EXPECT_TRUE(says(shortTime(attended + sum(apps, u"unattended"_s))));
        EXPECT_TRUE(is("list item", u"You Work, "_s + exactTime(attended)));
        QJsonArray listed;
        for (const auto& app : apps)
            if (!app["isBrowser"_L1].toBool())
                listed.append(app);
        EXPECT_TRUE(is("heading", u"apps · "_s + shortTime(sum(listed, u"active"_s))));
        EXPECT_TRUE(is("list item", listed[0]["app"_L1].toString() + u", "_s +
                                        exactTime(listed[0]["active"_L1].toInteger())));
        const QJsonObject web = report("dayWeb", day);
        const auto site = web["sites"_L1][0];
        EXPECT_TRUE(is("heading", u"web · "_s + shortTime(web["browserSeconds"_L1].toInteger())));
        EXPECT_TRUE(is("list item", site["domain"_L1].toString() + u", "_s +
                                        exactTime(site["seconds"_L1].toInteger())));
        EXPECT_TRUE(is("list item",
                       u"Talking with AI, "_s +
                           exactTime(report("dayAttention", day)["aiSeconds"_L1].toInteger())));
    }
};

TEST_F(Stats, GoThreeDaysBackAndReturn) {
    gateway.start();
    open();
    const QDate today = QDate::currentDate();
    expectDay(today);
    EXPECT_TRUE(says(u"TODAY"_s));
    EXPECT_THAT(nameless(u"Stats"_s), ::testing::IsEmpty());
    desktop.press({u"Right"_s});
    for (int ago = 1; ago <= 3; ++ago) {
        desktop.press({u"Left"_s});
        expectDay(today.addDays(-ago));
    }
    desktop.press({u"Right"_s});
    expectDay(today.addDays(-2));
    press(u"Back to today"_s);
    expectDay(today);
    const auto window = application->window(u"Stats"_s);
    EXPECT_FALSE(window->find([](const Accessible& thing) {
        return thing.name() == u"Back to today"_s && thing.isShowing();
    }));
    press(u"Previous day"_s);
    expectDay(today.addDays(-1));
    desktop.press({u"t"_s});
    expectDay(today);
}

TEST_F(Stats, EveryKeyLeavesTheFocusAtOneThingInSight) {
    gateway.start();
    open();
    expectDay(QDate::currentDate());
    const KeyWalk walk(desktop, *application, u"Stats"_s);
    QStringList keys{u"Left"_s};
    keys += QStringList(22, u"Tab"_s);
    keys += QStringList{u"Down"_s, u"End"_s,   u"shift+Tab"_s, u"shift+Tab"_s, u"Left"_s, u"Tab"_s,
                        u"Tab"_s,  u"space"_s, u"Right"_s,     u"Tab"_s,       u"F5"_s,   u"t"_s};
    EXPECT_EQ(walk.press(keys).join(u'\n').toStdString(), "");
}

TEST_F(Stats, StandUpToAnyDaemon) {
    open();
    EXPECT_TRUE(says(unknown)) << "there is no daemon";
    EXPECT_TRUE(says(u"no attention data"_s));
    EXPECT_THAT(nameless(u"Stats"_s), ::testing::IsEmpty());
    gateway.start();
    expectDay(QDate::currentDate());
    for (const char* const replies : {"refuse", "rubbish", "wire-2", "answer,answer,die"}) {
        gateway.start(replies);
        desktop.press({u"F5"_s});
        ASSERT_TRUE(is("heading", u"web"_s)) << replies;
        ASSERT_TRUE(says(unknown)) << replies;
    }
    gateway.start("silent");
    desktop.press({u"F5"_s});
    ASSERT_TRUE(says(u"reading…"_s));
    gateway.start();
    expectDay(QDate::currentDate());
    const std::pair<const char*, QString> oddities[] = {{"no-times", u"no app data"_s},
                                                        {"negative", u"no web data"_s},
                                                        {"enormous", u"2562047788015215h 30m"_s},
                                                        {"many-apps,odd-names", u"🧭, "_s},
                                                        {"no-pictures", u"YOUR WORKING DAY"_s}};
    for (const auto& [days, words] : oddities) {
        gateway.start("answer", "", days);
        desktop.press({u"F5"_s});
        EXPECT_TRUE(application->find(u"label"_s, u"TODAY"_s)) << days;
        const auto window = application->window(u"Stats"_s);
        EXPECT_TRUE(eventually([&] {
            return window
                ->find([&](const Accessible& thing) { return thing.name().startsWith(words); })
                .has_value();
        })) << days;
    }
}

} // namespace
} // namespace wendlow::testing
